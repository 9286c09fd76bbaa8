#pragma once
// Dialog templates, string tables and initial list items, read from a UTF-8 subset of
// Windows resource-script syntax (the files under res/). Both the dialog model and the
// window renderer work from these templates.
#include <map>
#include <memory>
#include <set>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace ui {

struct ControlTemplate {
  std::string kind;        // statement keyword: LTEXT, EDITTEXT, PUSHBUTTON, CONTROL, ...
  std::string text;        // caption / initial text
  int id = -1;
  std::string class_name;  // window class: "Static", "Edit", "Button", "ComboBox", ...
  std::set<std::string> styles;  // style names as written (e.g. "ES_READONLY", "WS_GROUP")
  std::set<std::string> not_styles;  // names written after NOT
  unsigned long style_bits = 0;  // numeric style parts
  int x = 0, y = 0, cx = 0, cy = 0;  // dialog units
  bool Has(const std::string& style) const { return styles.count(style) != 0; }
};

struct DialogTemplate {
  int id = 0;
  std::string name;  // symbolic name when one was used
  int x = 0, y = 0, cx = 0, cy = 0;  // dialog units
  std::string caption;
  std::set<std::string> styles;
  std::string font_face = "MS Shell Dlg";
  int font_points = 8;
  std::vector<ControlTemplate> controls;  // template order (tab order)
  std::map<int, std::vector<std::string>> initial_items;  // control id -> list items (DLGINIT)
  bool Has(const std::string& style) const { return styles.count(style) != 0; }
  const ControlTemplate* Find(int control_id) const;
};

class ResourceError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// All resources of one module: dialogs by id, strings by id, symbolic names.
class ResourceSet {
 public:
  // Parses resource-script text; the name is used in error messages ("wggl.rc:12: ...").
  // Throws ResourceError on a syntax error.
  void Parse(std::string_view text, const std::string& name);

  const DialogTemplate* FindDialog(int id) const;
  const std::string* FindString(int id) const;
  int Symbol(const std::string& name, int fallback = 0) const;
  const std::map<int, DialogTemplate>& Dialogs() const { return dialogs_; }

 private:
  std::map<int, DialogTemplate> dialogs_;
  std::map<int, std::string> strings_;
  std::map<std::string, long> symbols_;
  std::map<int, std::map<int, std::vector<std::string>>> pending_items_;
  friend class ResourceParser;
};

// The resources that dialogs are created from: a stack, as the host's resource push/pop
// makes a module's resources current for the length of a command.
const ResourceSet* CurrentResources();
void PushResources(const ResourceSet* set);
void PopResources();

}  // namespace ui

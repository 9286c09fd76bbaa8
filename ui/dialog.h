#pragma once
// A dialog of the framework: built from its template, with handlers by control id and
// notification, data exchange, and child dialogs (pages and input forms) inside it.
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "ui/control.h"
#include "ui/resource_script.h"
#include "ui/ui_host.h"

namespace ui {

class DataExchange;
class PropertySheet;

// Notifications a control sends to its dialog.
enum class Notify {
  Clicked,      // button, check box, radio
  SelChange,    // combo, list, list view, tab strip
  EditChange,   // text typed into an edit or editable combo
  KillFocus,    // focus left the control
  DropDown,     // combo list opened
  DeltaPos,     // up-down step (argument: proposed position change)
  HeaderClick,  // list view column header (argument: column)
  DblClk,       // list view / table double click
};

const char* NotifyName(Notify n);

// Told about every change of a dialog, so a renderer can follow the model.
class DialogObserver {
 public:
  virtual ~DialogObserver() = default;
  virtual void ControlChanged(Control& c) = 0;
  virtual void ControlCreated(Control& c) = 0;
  virtual void ControlDestroyed(Control& c) = 0;
  virtual void DialogChanged(Dialog& d) = 0;  // caption, child shown/hidden/moved/enabled
  virtual void ChildCreated(Dialog& child) = 0;
  virtual void ChildDestroyed(Dialog& child) = 0;
};

class Dialog {
 public:
  explicit Dialog(int template_id, Dialog* parent = nullptr);
  virtual ~Dialog();
  Dialog(const Dialog&) = delete;
  Dialog& operator=(const Dialog&) = delete;

  // Modal run through the current host: -1 when the template is missing.
  int DoModal();
  // Creates a modeless child dialog (a page or an input form) inside parent.
  bool Create(Dialog* parent);
  // Builds the controls from the template and runs OnInitDialog; used by hosts for modal
  // dialogs. Returns false when the template is missing.
  bool CreateModal();
  bool IsCreated() const { return created_; }

  virtual bool OnInitDialog();
  virtual void OnOK();
  virtual void OnCancel();
  virtual void DoDataExchange(DataExchange& dx);
  // Framework exchange between members and controls; false when a field was refused.
  bool UpdateData(bool save_and_validate = true);
  void EndDialog(int result);
  bool IsEnded() const { return ended_; }
  int Result() const { return result_; }

  int template_id() const { return template_id_; }
  const DialogTemplate* GetTemplate() const { return template_; }
  Dialog* GetParent() const { return parent_; }
  // The top-level (modal) dialog this one lies in.
  Dialog* TopLevel();

  // Controls.
  Control* GetDlgItem(int id);
  const Control* GetDlgItem(int id) const;
  std::string GetDlgItemText(int id) const;
  void SetDlgItemText(int id, const std::string& text);
  void CheckRadioButton(int first_id, int last_id, int check_id);
  int GetCheckedRadioButton(int first_id, int last_id) const;
  void CheckDlgButton(int id, int check);
  int IsDlgButtonChecked(int id) const;
  const std::vector<std::unique_ptr<Control>>& controls() const { return controls_; }
  // A control created at run time (index lists, rich-text and table displays).
  Control& CreateControl(Kind kind, int id, const std::string& text, const Rect& rect, bool visible = true);
  void DestroyControl(Control* c);

  // The dialog's own window.
  const std::string& GetWindowText() const { return caption_; }
  void SetWindowText(const std::string& caption);
  bool IsWindowVisible() const { return visible_; }
  void ShowWindow(bool show);
  bool IsWindowEnabled() const { return enabled_; }
  void EnableWindow(bool enable);
  const Rect& GetWindowRect() const { return rect_; }  // in the parent's client pixels
  void MoveWindow(const Rect& r);
  Rect GetClientRect() const { return Rect{0, 0, rect_.Width(), rect_.Height()}; }
  const std::vector<Dialog*>& children() const { return children_; }
  // White or another solid page background (RGB), when the dialog paints its own.
  std::optional<unsigned> background() const { return background_; }
  void SetBackground(std::optional<unsigned> rgb);

  // Fonts and measures.
  const Font& GetFont() const { return font_; }
  Rect MapDialogRect(const Rect& dlu) const;
  Size GetTextExtent(const std::string& text, const Font* font = nullptr) const;
  void RedrawWindow();

  int MessageBox(const std::string& text, const std::string& caption = {}, unsigned type = MB_OK);

  // Handlers.
  using Handler = std::function<void()>;
  using ArgHandler = std::function<void(int)>;
  void On(int id, Notify code, Handler h);
  void OnArg(int id, Notify code, ArgHandler h);
  // A control notifies its dialog (hosts and user actions call this). Returns true when
  // a handler (or the default for IDOK / IDCANCEL) ran.
  bool SendNotify(int id, Notify code, int arg = 0);

  // The tab sheet this dialog holds, if any (the script's `tab N` goes to it).
  PropertySheet* sheet() const { return sheet_; }
  void SetSheet(PropertySheet* s) { sheet_ = s; }

  void SetObserver(DialogObserver* obs) { observer_ = obs; }
  DialogObserver* observer();

  // Internal: called by controls and children when they change.
  void NotifyControlChanged(Control& c);

 protected:
  // Subclasses may set the template before DoModal / Create.
  void SetTemplateId(int id);

 private:
  void BuildFromTemplate();
  void AttachChild(Dialog* child);
  void DetachChild(Dialog* child);

  int template_id_;
  const DialogTemplate* template_ = nullptr;
  Dialog* parent_;
  bool created_ = false;
  bool ended_ = false;
  int result_ = 0;
  std::string caption_;
  bool visible_ = true;
  bool enabled_ = true;
  Rect rect_;
  Font font_;
  std::optional<unsigned> background_;
  std::vector<std::unique_ptr<Control>> controls_;
  std::vector<Dialog*> children_;
  std::map<std::pair<int, Notify>, ArgHandler> handlers_;
  DialogObserver* observer_ = nullptr;
  PropertySheet* sheet_ = nullptr;
};

// Base classes the calculators derive from, under the names their dialogs are known by.
class CAcUiDialog : public Dialog {
 public:
  using Dialog::Dialog;
};

}  // namespace ui

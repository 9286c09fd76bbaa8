#pragma once
// Shared by the renderer tests: one offscreen application, a resource set parsed from a
// test template made current, the Qt host made current, and a way to act inside the
// modal loop of a dialog.
#include <functional>
#include <memory>
#include <string>

#include "host/qt/dialog_view.h"
#include "host/qt/qt_ui_host.h"
#include "ui/resource_script.h"

namespace kestra::qt::testing {

// The offscreen QApplication of the test program (made on first use).
void EnsureApp();

// Parses the resources, pushes them and installs a QtUiHost for the life of the object.
class QtScope {
 public:
  explicit QtScope(const std::string& rc_text);
  ~QtScope();
  QtUiHost& host() { return host_; }
  const ui::ResourceSet& resources() const { return res_; }

 private:
  ui::ResourceSet res_;
  QtUiHost host_;
};

// Runs the dialog modally; `body` runs inside its loop once the window is up. When the
// body leaves the dialog open, the window is closed (a cancel).
int RunWith(QtUiHost& host, ui::Dialog& dlg, const std::function<void(DialogView&)>& body);

// Clicks the given button of the message box that is up (first one found), later.
void AnswerNextMessageBox(const std::string& button_text, std::string* seen_text = nullptr,
                          std::string* seen_title = nullptr);

// Typed widget of a control in the top view.
template <class W>
W* WidgetAs(DialogView& v, ui::Control* c) {
  return c ? qobject_cast<W*>(v.WidgetOf(*c)) : nullptr;
}

}  // namespace kestra::qt::testing

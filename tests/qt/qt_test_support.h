#pragma once
// Shared by the renderer tests: one offscreen application, the test template
// (tests/qt/data/test_dialogs.rc) made current with a Qt host, and a way to act inside the
// modal loop of a dialog.
#include <functional>
#include <string>

#include "host/qt/dialog_view.h"
#include "host/qt/qt_ui_host.h"
#include "ui/resource_script.h"

namespace kestra::qt::testing {

// Ids of the test template.
enum : int {
  IDD_TEST = 30900, IDD_FORM = 30901, IDD_SUB = 30902, IDD_PAGE = 30903,
  IDC_COS1 = 1001, IDC_SPIN = 1002, IDC_RADIO1 = 1003, IDC_RADIO2 = 1004, IDC_CHECK = 1005,
  IDC_COMBO = 1006, IDC_RESULT = 1007, IDC_EDITCOMBO = 1008, IDC_CALC = 1010, IDC_REPORT = 1011,
  IDC_FRAME = 1012, IDC_HIDDEN = 1013, IDC_SUBDLG = 1015, IDC_COUNT = 1016, IDC_FORM_EDIT = 2001,
};

// The offscreen QApplication of the test program (made on first use).
void EnsureApp();

// Pushes the test template and installs a QtUiHost for the life of the object.
class QtScope {
 public:
  QtScope();
  ~QtScope();
  QtUiHost& host() { return host_; }

 private:
  ui::ResourceSet res_;
  QtUiHost host_;
};

// Runs the dialog modally; `body` runs inside its loop once the window is up. When the
// body leaves the dialog open, the window is closed (a cancel).
int RunWith(QtUiHost& host, ui::Dialog& dlg, const std::function<void(DialogView&)>& body);

// What a message box showed.
struct SeenBox {
  std::string text, title, default_button;
  int icon = -1;  // QMessageBox::Icon
  bool icon_room = false;  // the icon's place is shown
  bool centred = false;    // the buttons are centred
  int text_width = 0;      // of the text's label, in pixels
};
// Later, answers the message box that is up (first one found): clicks the button with the
// given text, its default button for "<default>", or closes it for "".
void AnswerNextMessageBox(const std::string& button_text, SeenBox* seen = nullptr);

// Typed widget of a control in the view.
template <class W>
W* WidgetAs(DialogView& v, ui::Control* c) {
  return c ? qobject_cast<W*>(v.WidgetOf(*c)) : nullptr;
}

}  // namespace kestra::qt::testing

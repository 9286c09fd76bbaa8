#pragma once
// What the dialogs need from whoever shows them: the window renderer or the headless
// script host. The module itself never touches a GUI toolkit.
#include <optional>
#include <string>
#include <string_view>

#include "services/report/report_target.h"
#include "ui/geometry.h"

namespace ui {

class Dialog;

// Message box types and answers (the Win32 values).
enum : unsigned {
  MB_OK = 0x0,
  MB_OKCANCEL = 0x1,
  MB_YESNOCANCEL = 0x3,
  MB_YESNO = 0x4,
  MB_ICONERROR = 0x10,
  MB_ICONQUESTION = 0x20,
  MB_ICONWARNING = 0x30,
  MB_ICONINFORMATION = 0x40,
  MB_DEFBUTTON2 = 0x100,
};
enum : int { IDOK = 1, IDCANCEL = 2, IDABORT = 3, IDRETRY = 4, IDIGNORE = 5, IDYES = 6, IDNO = 7, IDHELP = 9 };

// A host is also where reports go: NewReportPath / ShowReport of the report target.
class UiHost : public kestra::report::ReportTarget {
 public:
  virtual ~UiHost() = default;

  // Shows the dialog modally: creates it (CreateModal), lets the designer work until it
  // ends, and returns its result (IDOK, IDCANCEL, ...).
  virtual int RunModal(Dialog& dlg) = 0;
  // A message box; an empty caption means the application title. Returns the answer.
  virtual int MessageBox(const std::string& text, const std::string& caption, unsigned type) = 0;
  virtual void BeginWaitCursor() = 0;
  virtual void EndWaitCursor() = 0;
  // Dialog base units (average character width and height) of a font, for dialog units.
  virtual Size BaseUnits(const Font& font) = 0;
  // Size of a one-line text in a font, in pixels.
  virtual Size TextExtent(const std::string& text, const Font& font) = 0;
  // The application title: the caption of message boxes that name none.
  virtual std::string AppTitle() const = 0;
  // The dialog changed in a way a renderer must show (shown, redrawn); hosts without
  // windows ignore it.
  virtual void Redraw(Dialog&) {}
};

// The host the dialogs of this process talk to.
UiHost* CurrentHost();
void SetCurrentHost(UiHost* host);

// A wait cursor for the life of the object.
class WaitCursor {
 public:
  WaitCursor();
  ~WaitCursor();
  WaitCursor(const WaitCursor&) = delete;
  WaitCursor& operator=(const WaitCursor&) = delete;
};

// Message box through the current host (empty caption: the application title).
int MessageBox(const std::string& text, const std::string& caption = {}, unsigned type = MB_OK);

}  // namespace ui

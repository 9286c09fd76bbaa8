#pragma once
// The table display of a pick dialog: a table of a table file ("datcom\tabdata.idp") shown in a
// control of the dialog, from which the designer picks one cell. The dialog creates it over a
// frame of its template, opens a table by its key, and on "确定" takes the picked cell's text.
//
//   CTabDisp tab;
//   tab.Create(frame->GetWindowRect(), this, frame_id);  // OnInitDialog
//   tab.Open(module.DataFile("datcom\\tabdata.idp"), "jsxsc");
//   m_strPicked = tab.GetPickedText(); tab.Close();       // "确定"
#include <string>

#include "ui/dialog.h"

namespace kestra::forms {

class CTabDisp {
 public:
  // Creates the table control in parent over rect (pixels) with the given id. A script picks
  // its cells by that id (`pick ID ROW COL`); the pick dialogs give it the id of the frame it
  // covers, the frame itself being hidden.
  bool Create(const ui::Rect& rect, ui::Dialog* parent, int id);
  // Shows the table stored under table_key in the table file. A file or table that cannot be
  // read is told to the designer in a message box (with the reader's reason) and leaves the
  // display empty, so that nothing can be picked.
  bool Open(const std::string& file_path, const std::string& table_key);
  // The picked cell's text as shown; empty when nothing is picked.
  std::string GetPickedText() const;
  // Empties the display.
  void Close();

 private:
  ui::Control* control_ = nullptr;
};

}  // namespace kestra::forms

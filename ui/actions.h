#pragma once
// What a designer does to a dialog, as one function each: used by the script host and
// by tests. Each acts on the control like a real click or keystroke, then sends the
// notification the dialog would get. An action that a designer could not do (a hidden
// or disabled control, an item that is not there) throws ActionError.
#include <stdexcept>
#include <string>

#include "ui/dialog.h"

namespace ui {

class ActionError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

namespace act {

void SetText(Control& c, const std::string& text);   // edit / editable combo
void Leave(Control& c);                              // focus loss
void Select(Control& c, int index);                  // combo, list, list view, tab strip
void Select(Control& c, const std::string& item);    // by item text
void Click(Control& c);                              // button, check box, radio
void Spin(Control& c, bool up, int count = 1);       // c: the up-down or its buddy
void Drop(Control& c);                               // open a combo's list
void HeaderClick(Control& c, int column);            // list view header
void PickCell(Control& c, int row, int column);      // table display
// Activates page n of the dialog's sheet or tab strip.
void Tab(Dialog& d, int n);
void Ok(Dialog& d);
void Cancel(Dialog& d);

// The up-down control that drives an edit (its buddy), or null.
Control* UpDownOf(Control& edit);

}  // namespace act

// Finds a control for a designer: first among what is visible (the dialog, its shown
// pages and forms, depth first), then among hidden ones. By id, or by caption/label.
Control* FindControl(Dialog& d, int id);
Control* FindControlByLabel(Dialog& d, const std::string& label);

}  // namespace ui

#pragma once
// Where the keyboard goes in a dialog: the controls Tab stops at, the one that has the focus
// when the dialog opens, and the arrow keys inside a group of radio buttons. The renderers
// move the focus by these rules, so that every host tabs the same way.
#include <vector>

#include "ui/dialog.h"

namespace ui {

// Visible and enabled, in dialogs (pages, forms) that are shown and enabled.
bool Reachable(const Control& c);

// The radio buttons of c's group in template order: the group runs from the control that
// starts it (WS_GROUP) to the control before the next one that starts a group.
std::vector<Control*> RadioGroup(Control& c);

// The tab stops of a dialog in Tab order: the shown pages and forms first (a page's fields come
// before the sheet's buttons), then the dialog's own controls, each in template order.
// A group of radio buttons is one stop: its checked button, or its first tab stop when none is
// checked.
std::vector<Control*> TabStops(Dialog& d);

// The control that has the focus when the dialog opens: its first tab stop (null: none).
Control* FirstTabStop(Dialog& d);

// The radio button an arrow key moves to from `radio`: the next (or previous) reachable
// one of its group, round from the end to the start; `radio` itself when it is alone.
Control* NextInGroup(Control& radio, bool forward);

}  // namespace ui

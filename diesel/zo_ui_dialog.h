#pragma once
// The dialog base the generator-capacity dialogs are built on. The dialogs use of it only
// construction with a template id and a parent, OnInitDialog, DoModal and destruction;
// the host's dialog base gives all of these. Control colours: a page asks for its white
// background with SetBackground, every other control keeps the host's colours.
#include "ui/dialog.h"

namespace kestra::diesel {

class ZoUiDialog : public ui::CAcUiDialog {
 public:
  explicit ZoUiDialog(int template_id, ui::Dialog* parent = nullptr) : ui::CAcUiDialog(template_id, parent) {}
};

}  // namespace kestra::diesel

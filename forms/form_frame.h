#pragma once
// Input forms in a frame: a page creates its forms once, as child dialogs lying over one
// frame control, and shows the one that the designer's choice (line kind and load situation,
// starting method) selects. Exactly one form is shown and enabled at a time; the others are
// hidden and disabled, so that neither the designer nor a script reaches their controls.
#include <vector>

#include "ui/dialog.h"

namespace kestra::forms {

class FormFrame {
 public:
  // Creates each form as a child of page, in order (each form's OnInitDialog runs at its
  // creation), and moves every form onto the frame's rectangle shrunk by 2 on each side.
  // False when a form's template is missing or the page has no such frame.
  bool Create(ui::Dialog& page, int frame_id, std::vector<ui::Dialog*> forms);

  // Shows and enables form index, hides and disables every other. An index outside the forms
  // changes nothing and returns false.
  bool Show(int index);

  int current() const { return current_; }  // -1 before the first Show
  int count() const { return static_cast<int>(forms_.size()); }
  ui::Dialog* form(int index) const;

 private:
  std::vector<ui::Dialog*> forms_;
  int current_ = -1;
};

}  // namespace kestra::forms

#include "forms/form_frame.h"

namespace kestra::forms {

bool FormFrame::Create(ui::Dialog& page, int frame_id, std::vector<ui::Dialog*> forms) {
  forms_ = std::move(forms);
  current_ = -1;
  bool ok = true;
  for (ui::Dialog* f : forms_) ok = f->Create(&page) && ok;
  const ui::Control* frame = page.GetDlgItem(frame_id);
  if (!frame) return false;
  const ui::Rect r = frame->GetWindowRect();
  const ui::Rect inside{r.left + 2, r.top + 2, r.right - 2, r.bottom - 2};
  for (ui::Dialog* f : forms_) f->MoveWindow(inside);
  return ok;
}

bool FormFrame::Show(int index) {
  if (index < 0 || index >= count()) return false;
  for (int i = 0; i < count(); ++i) {
    if (i == index) continue;
    forms_[static_cast<std::size_t>(i)]->ShowWindow(false);
    forms_[static_cast<std::size_t>(i)]->EnableWindow(false);
  }
  forms_[static_cast<std::size_t>(index)]->ShowWindow(true);
  forms_[static_cast<std::size_t>(index)]->EnableWindow(true);
  current_ = index;
  return true;
}

ui::Dialog* FormFrame::form(int index) const {
  return index >= 0 && index < count() ? forms_[static_cast<std::size_t>(index)] : nullptr;
}

}  // namespace kestra::forms

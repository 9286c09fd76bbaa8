#include "ui/property_sheet.h"

namespace ui {

bool PropertySheet::Create(Dialog* owner, const Rect& rect, int active) {
  owner_ = owner;
  tab_ = &owner->CreateControl(Kind::Tab, kTabId, "", rect);
  for (PropertyPage* p : pages_) tab_->AddString(p->tab_text());
  owner->SetSheet(this);
  owner->OnArg(kTabId, Notify::SelChange, [this](int) { SetActivePage(tab_->GetCurSel()); });
  // The first page is always created with the sheet (its controls exist from the start), then
  // the wanted one.
  if (pages_.empty()) return false;
  active_ = -1;
  SetActivePage(0);
  if (active > 0 && active < GetPageCount()) SetActivePage(active);
  return true;
}

Rect PropertySheet::PageRect() const {
  Rect r = tab_->GetWindowRect();
  // The strip's tabs take the top; the page fills the rest inside a small margin.
  return Rect{r.left + 4, r.top + 24, r.right - 4, r.bottom - 4};
}

void PropertySheet::MoveWindow(const Rect& rect) {
  if (!tab_) return;
  tab_->MoveWindow(rect);
  for (PropertyPage* p : pages_)
    if (p->IsCreated()) p->MoveWindow(PageRect());
}

bool PropertySheet::SetActivePage(int index) {
  if (index < 0 || index >= GetPageCount()) return false;
  if (index == active_) return true;
  if (PropertyPage* old = GetActivePage()) {
    if (!old->OnKillActive()) {
      tab_->SetCurSel(active_);
      return false;
    }
    old->ShowWindow(false);
  }
  PropertyPage* page = pages_[static_cast<std::size_t>(index)];
  active_ = index;
  tab_->SetCurSel(index);
  if (!page->IsCreated()) {
    page->Create(owner_);
    page->MoveWindow(PageRect());
  }
  page->ShowWindow(true);
  page->EnableWindow(true);
  page->OnSetActive();
  return true;
}

}  // namespace ui

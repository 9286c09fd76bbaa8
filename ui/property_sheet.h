#pragma once
// A tab sheet inside a dialog: a tab strip and one child page per tab, pages created on
// first activation, OnKillActive asked before a page is left.
#include <vector>

#include "ui/dialog.h"

namespace ui {

class PropertyPage : public Dialog {
 public:
  PropertyPage(int template_id, std::string tab_text) : Dialog(template_id), tab_text_(std::move(tab_text)) {}
  const std::string& tab_text() const { return tab_text_; }
  // False keeps the page (the sheet stays on it).
  virtual bool OnKillActive() { return UpdateData(true); }
  virtual bool OnSetActive() { return true; }

 private:
  std::string tab_text_;
};

class PropertySheet {
 public:
  // The tab strip gets this id in the owner dialog.
  static constexpr int kTabId = 0x3020;

  void AddPage(PropertyPage* page) { pages_.push_back(page); }
  // Creates the tab strip in owner over rect (pixels) and activates page active.
  bool Create(Dialog* owner, const Rect& rect, int active = 0);
  bool SetActivePage(int index);
  int GetActiveIndex() const { return active_; }
  PropertyPage* GetActivePage() const { return active_ < 0 ? nullptr : pages_[static_cast<std::size_t>(active_)]; }
  int GetPageCount() const { return static_cast<int>(pages_.size()); }
  PropertyPage* GetPage(int i) const { return pages_[static_cast<std::size_t>(i)]; }
  Control* tab() const { return tab_; }
  void MoveWindow(const Rect& rect);

 private:
  Rect PageRect() const;

  Dialog* owner_ = nullptr;
  Control* tab_ = nullptr;
  std::vector<PropertyPage*> pages_;
  int active_ = -1;
};

}  // namespace ui

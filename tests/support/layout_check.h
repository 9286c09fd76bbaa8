#pragma once
// The layout rules every dialog and page of a calculator keeps, checked on the dialog as the
// headless host builds it: everything inside the dialog; every caption readable in its control
// (a label may wrap onto the lines it is high, other captions keep to their own lines); no two
// controls on top of each other, none across the edge of a group box; and the label a script
// names an edit or a list by is the one a designer reads beside it.
#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <string>
#include <vector>

#include "ui/actions.h"
#include "ui/dialog.h"

namespace kestra::testing {

inline bool Inside(const ui::Rect& a, const ui::Rect& b) {
  return a.left >= b.left && a.top >= b.top && a.right <= b.right && a.bottom <= b.bottom;
}
inline bool Overlap(const ui::Rect& a, const ui::Rect& b) {
  return a.left < b.right && b.left < a.right && a.top < b.bottom && b.top < a.bottom;
}

inline void ExpectCleanLayout(ui::Dialog& d) {
  SCOPED_TRACE("dialog " + std::to_string(d.template_id()) + " " + d.GetWindowText());
  std::vector<const ui::Control*> boxes, solid;
  const ui::Control* before = nullptr;  // the control before, in template order
  for (const auto& c : d.controls()) {
    const ui::Rect r = c->GetWindowRect();
    const ui::Kind k = c->kind();
    const std::string what = std::to_string(c->id()) + " \"" + c->GetWindowText() + "\"";
    EXPECT_TRUE(Inside(r, d.GetClientRect())) << what;
    (k == ui::Kind::GroupBox || k == ui::Kind::Frame ? boxes : solid).push_back(c.get());
    if (k == ui::Kind::Static || k == ui::Kind::CheckBox || k == ui::Kind::Radio || k == ui::Kind::Button ||
        k == ui::Kind::GroupBox) {
      const int box = (k == ui::Kind::CheckBox || k == ui::Kind::Radio) ? 14 : 0;  // the box before the text
      const int line = d.GetTextExtent("国", c->font()).cy;
      std::istringstream lines(c->GetWindowText());
      int needed = 0;
      for (std::string text; std::getline(lines, text);) {
        const int cx = d.GetTextExtent(text, c->font()).cx + box;
        if (k == ui::Kind::Static) {
          needed += (cx + r.Width() - 1) / std::max(1, r.Width());
        } else {
          ++needed;
          EXPECT_LE(cx, r.Width()) << what;
        }
      }
      EXPECT_LE(needed, std::max(1, r.Height() / line)) << what;
    }
    if ((k == ui::Kind::Edit || k == ui::Kind::Combo) && before && before->kind() == ui::Kind::Static) {
      const ui::Rect l = before->GetWindowRect();
      EXPECT_TRUE(l.top < r.bottom && r.top < l.bottom && l.left < r.left) << what << " is not beside its label";
      EXPECT_EQ(ui::FindControlByLabel(d, before->GetWindowText()), c.get()) << what;
    }
    if (c->template_index() >= 0) before = c.get();
  }
  for (std::size_t i = 0; i < solid.size(); ++i) {
    const ui::Rect a = solid[i]->GetWindowRect();
    for (std::size_t j = i + 1; j < solid.size(); ++j)
      EXPECT_FALSE(Overlap(a, solid[j]->GetWindowRect())) << solid[i]->id() << " / " << solid[j]->id();
    for (const ui::Control* b : boxes)
      EXPECT_TRUE(!Overlap(a, b->GetWindowRect()) || Inside(a, b->GetWindowRect())) << solid[i]->id() << " across a box";
  }
}

}  // namespace kestra::testing

// The dialog as a renderer shows it: the three pages are borderless children inside the tab
// control, white, their symbol labels in the small subscript font, and the dialog and every
// page keep the layout rules.
#include "diesel_fixture.h"
#include "res/embedded.h"
#include "tests/support/layout_check.h"

namespace {

TEST_F(DieselDialogTest, PagesAndLayout) {
  // Every script of res/ is carried, not only the first: the module's strings are there too.
  const std::string* name = kestra::res::ModuleResources().FindString(100);
  ASSERT_NE(name, nullptr);
  EXPECT_EQ(*name, "OrvelKestra");
  ZoUiCyfdjzrlCalDlg dlg(module_.context());
  Run(dlg, [&](ui::Dialog& d) {
    kestra::testing::ExpectCleanLayout(d);
    const ui::Rect tab = Ctl(d, 215).GetWindowRect();
    ASSERT_EQ(d.children().size(), 3u);
    for (ui::Dialog* page : d.children()) {
      SCOPED_TRACE(page->template_id());
      const ui::DialogTemplate& t = *page->GetTemplate();
      EXPECT_TRUE(t.Has("WS_CHILD") && !t.Has("WS_CAPTION") && !t.Has("WS_BORDER") && !t.Has("DS_MODALFRAME"));
      EXPECT_FALSE(t.Has("WS_VISIBLE"));  // the dialog shows one page at a time
      const ui::Rect r = page->GetWindowRect();
      EXPECT_TRUE(kestra::testing::Inside(r, tab) && r.top > tab.top + 12) << "below the tabs";
      EXPECT_EQ(page->background(), 0xFFFFFFu);
      // The symbol labels with an id: 2 units smaller (-11 at 8 points becomes -9), charset 136, 0x36.
      ui::Font small = page->GetFont();
      ASSERT_LT(small.height, -2);
      small.height += 2, small.charset = 136, small.pitch_family = 0x36;
      for (int id : {225, 229, 231}) {
        if (page == d.children()[1] && id == 231) continue;  // the peak-load page has two
        const ui::Control* label = page->GetDlgItem(id);
        ASSERT_TRUE(label && label->font()) << id;
        EXPECT_EQ(*label->font(), small) << id;
      }
      for (const auto& c : page->controls()) {  // "j:" and "m:" have no id and keep the dialog font
        if (c->GetWindowText() == "j:" || c->GetWindowText() == "m:") {
          EXPECT_EQ(c->font(), nullptr);
        }
      }
      kestra::testing::ExpectCleanLayout(*page);
    }
  });
}

}  // namespace

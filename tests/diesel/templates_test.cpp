// The templates as a renderer shows them: sizes and fonts, white pages with the small subscript
// font, and on each page every label readable (wrapping where it is lines high), nothing outside
// the page, nothing on top of another control, every row inside its group box.
#include <algorithm>
#include <tuple>
#include <vector>

#include "diesel_fixture.h"
#include "res/embedded.h"

namespace {

bool Inside(const ui::Rect& inner, const ui::Rect& outer) {
  return inner.left >= outer.left && inner.top >= outer.top && inner.right <= outer.right &&
         inner.bottom <= outer.bottom;
}
bool Overlap(const ui::Rect& a, const ui::Rect& b) {
  return a.left < b.right && b.left < a.right && a.top < b.bottom && b.top < a.bottom;
}

TEST_F(DieselDialogTest, TemplateSizesFontsAndStyles) {
  const ui::ResourceSet& res = kestra::res::ModuleResources();
  // Every script of res/ is carried, not only the first: the module's strings are there too.
  ASSERT_NE(res.FindString(100), nullptr);
  EXPECT_EQ(*res.FindString(100), "OrvelKestra");
  // The main dialog, then its three pages: child windows without caption or border.
  const int sizes[][3] = {{200, 256, 230}, {201, 241, 190}, {202, 241, 190}, {203, 241, 189}};
  for (const auto& [id, cx, cy] : sizes) {
    const ui::DialogTemplate* t = res.FindDialog(id);
    ASSERT_NE(t, nullptr) << id;
    EXPECT_EQ((std::vector<int>{t->cx, t->cy, t->font_points}), (std::vector<int>{cx, cy, 8})) << id;
    EXPECT_EQ(t->font_face, "MS Shell Dlg");
    const bool child = id != 200;
    EXPECT_EQ(t->Has("WS_CHILD"), child) << id;
    if (child) {
      EXPECT_FALSE(t->Has("WS_CAPTION") || t->Has("WS_BORDER") || t->Has("DS_MODALFRAME")) << id;
      EXPECT_FALSE(t->Has("WS_VISIBLE")) << id;  // the dialog shows one page at a time
    }
  }
  const ui::ControlTemplate* tab = res.FindDialog(200)->Find(215);
  ASSERT_NE(tab, nullptr);
  EXPECT_EQ((std::vector<int>{tab->x, tab->y, tab->cx, tab->cy}), (std::vector<int>{7, 7, 242, 199}));
  // Result edits are read-only, inputs scroll.
  for (auto [page, result] : {std::pair{201, 219}, std::pair{202, 221}, std::pair{203, 216}}) {
    for (const ui::ControlTemplate& c : res.FindDialog(page)->controls) {
      if (c.class_name != "Edit") continue;
      EXPECT_TRUE(c.Has("ES_AUTOHSCROLL")) << page << "/" << c.id;
      EXPECT_EQ(c.Has("ES_READONLY"), c.id == result) << page << "/" << c.id;
    }
  }
}

TEST_F(DieselDialogTest, PagesAreWhiteWithTheSubscriptFontAndLaidOutCleanly) {
  ZoUiCyfdjzrlCalDlg dlg(module_.context());
  Run(dlg, [&](ui::Dialog& d) {
    // Main dialog: the buttons below the tab control, everything inside the dialog.
    const ui::Rect client = d.GetClientRect();
    const ui::Rect tab = Ctl(d, 215).GetWindowRect();
    for (const auto& c : d.controls()) {
      EXPECT_TRUE(Inside(c->GetWindowRect(), client)) << c->id();
      if (c->id() != 215) {
        EXPECT_FALSE(Overlap(c->GetWindowRect(), tab)) << c->id();
      }
    }
    const ui::Dialog* pages[] = {&dlg.SteadyLoadPage(), &dlg.PeakLoadPage(), &dlg.BusDropPage()};
    for (const ui::Dialog* page : pages) {
      EXPECT_EQ(page->GetWindowRect(), (ui::Rect{tab.left + 2, tab.top + 22, tab.right - 2, tab.bottom - 2}));
      EXPECT_EQ(page->background(), 0xFFFFFFu);
      // The subscript labels with an id: 2 units smaller (-11 at 8 points becomes -9), charset 136, 0x36.
      ui::Font small = page->GetFont();
      ASSERT_LT(small.height, -2);
      small.height += 2;
      small.charset = 136;
      small.pitch_family = 0x36;
      for (int id : {225, 229, 231}) {
        const ui::Control* label = page->GetDlgItem(id);
        if (page == pages[1] && id == 231) {
          EXPECT_EQ(label, nullptr);
          continue;
        }
        ASSERT_NE(label, nullptr) << id;
        ASSERT_NE(label->font(), nullptr) << id;
        EXPECT_EQ(*label->font(), small) << id;
      }
      const ui::Rect area = page->GetClientRect();  // the part of the tab control it covers
      std::vector<const ui::Control*> groups, others;
      for (const auto& c : page->controls())
        (c->kind() == ui::Kind::GroupBox ? groups : others).push_back(c.get());
      ASSERT_EQ(groups.size(), 2u);
      EXPECT_EQ(groups[0]->GetWindowText(), "输入参数");
      EXPECT_EQ(groups[1]->GetWindowText(), "输出参数");
      for (const ui::Control* g : groups) EXPECT_TRUE(Inside(g->GetWindowRect(), area)) << g->GetWindowText();
      for (const ui::Control* c : others) {
        const std::string what = std::to_string(page->template_id()) + " \"" + c->GetWindowText() + "\" " +
                                 std::to_string(c->id());
        const ui::Rect r = c->GetWindowRect();
        EXPECT_EQ(std::count_if(groups.begin(), groups.end(),
                                [&](const ui::Control* g) { return Inside(r, g->GetWindowRect()); }),
                  1)
            << what;
        for (const ui::Control* o : others)
          if (o != c) {
            EXPECT_FALSE(Overlap(r, o->GetWindowRect())) << what << " / \"" << o->GetWindowText() << "\"";
          }
        if (c->kind() == ui::Kind::Static) {
          const ui::Size text = page->GetTextExtent(c->GetWindowText(), c->font());
          const int lines = std::max(1, r.Height() / text.cy);
          EXPECT_LE(text.cx, r.Width() * lines) << what;
          EXPECT_GE(r.Height(), text.cy) << what;
        }
        // The peak-load page's "j:" and "m:" have no id and keep the dialog font.
        if (c->GetWindowText() == "j:" || c->GetWindowText() == "m:") {
          EXPECT_EQ(c->font(), nullptr) << what;
        }
      }
    }
  });
}

// Scripts name an edit by the label a designer reads beside it.
TEST_F(DieselDialogTest, EditsAreFoundByTheirDescriptiveLabels) {
  const std::tuple<int, const char*, int> rows[] = {  // page, label, edit
      {0, "发电机总负荷计算功率", 216},
      {0, "所带负荷的综合效率", 217},
      {0, "发电机额定功率因数", 218},
      {0, "按稳定负荷计算的发电机视在功率", 219},
      {1, "因尖峰负荷造成电压、频率降低而导致电动机功率下降的系数", 216},
      {1, "发电机允许短时过载系数", 217},
      {1, "最大的单台电动机或成组电动机的起动容量", 218},
      {1, "Sm的有功功率", 219},
      {1, "Sm的无功功率", 220},
      {1, "按尖峰负荷计算的发电机视在功率", 221},
      {2, "发电机母线允许电压降", 217},
      {2, "发电机瞬态电抗", 218},
      {2, "导致发电机最大电压降的电动机的最大起动容量", 219},
      {2, "按母线允许压降计算的发电机视在功率", 216},
  };
  ZoUiCyfdjzrlCalDlg dlg(module_.context());
  Run(dlg, [&](ui::Dialog& d) {
    for (const auto& [page, label, id] : rows) {
      ui::act::Tab(d, page);
      ui::Control* edit = ui::FindControlByLabel(d, label);
      ASSERT_NE(edit, nullptr) << label;
      EXPECT_EQ(edit->id(), id) << label;
      EXPECT_EQ(edit->kind(), ui::Kind::Edit) << label;
      EXPECT_TRUE(edit->IsWindowVisible() && edit->owner()->IsWindowVisible()) << label;
    }
  });
}

}  // namespace

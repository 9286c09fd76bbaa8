// Data exchange between a dialog's members and its controls, and the property sheet, whose
// pages are left only when their exchange takes what the designer typed.
#include "ui/data_exchange.h"

#include <gtest/gtest.h>

#include <sstream>
#include <tuple>

#include "tests/support/temp_folder.h"
#include "ui/actions.h"
#include "ui/headless_host.h"
#include "ui/property_sheet.h"

namespace {

using Texts = std::vector<std::string>;

// The script runner's test dialogs: 900 with edits 101-103, a check box 104, the radio group
// that starts at 105 (106 is its other radio, 119 starts the next group) and a list 107; 902 to
// hold pages of template 903 (edit 301).
class UiDialogs : public ::testing::Test {
 protected:
  UiDialogs() {
    resources_.Parse(kestra::testing::ReadFile(std::string(KESTRA_SOURCE_DIR) + "/tests/host/data/test_dialogs.rc"),
                     "test_dialogs.rc");
    ui::PushResources(&resources_);
    ui::SetCurrentHost(&host_);
  }
  ~UiDialogs() override {
    ui::SetCurrentHost(nullptr);
    ui::PopResources();
  }
  ui::ResourceSet resources_;
  std::ostringstream transcript_;
  ui::HeadlessHost host_{transcript_};
};

struct Members : ui::Dialog {
  Members() : Dialog(900) {}
  void DoDataExchange(ui::DataExchange& dx) override {
    dx.Real(101, real);
    dx.Int(102, count);
    dx.Text(103, name);
    dx.Check(104, check);
    dx.Radio(105, radio);
    dx.ComboIndex(107, pick);
    dx.Real(99, real);  // no such control: passed over
  }
  double real = 0.1 + 0.2;
  int count = -7, check = 1, radio = 1, pick = 1;
  std::string name = "线路 1";
};

// Loading prints reals with "%.15g" and checks the group's radio by its index among the radios
// (the other controls of the group are none); saving reads them back.
TEST_F(UiDialogs, MembersGoToTheControlsAndComeBack) {
  Members d;
  ASSERT_TRUE(d.CreateModal());  // loads the members
  d.CheckDlgButton(119, 1);
  ASSERT_TRUE(d.UpdateData(false));
  EXPECT_EQ((Texts{d.GetDlgItemText(101), d.GetDlgItemText(102), d.GetDlgItemText(103)}), (Texts{"0.3", "-7", "线路 1"}));
  EXPECT_EQ((std::vector<int>{d.IsDlgButtonChecked(104), d.IsDlgButtonChecked(105), d.IsDlgButtonChecked(106),
                              d.IsDlgButtonChecked(119), d.GetDlgItem(107)->GetCurSel()}),
            (std::vector<int>{1, 0, 1, 1, 1}));
  for (auto [id, text] : {std::pair{101, " 1e3 "}, {102, "+42"}}) d.SetDlgItemText(id, text);
  d.CheckDlgButton(104, 0);
  d.GetDlgItem(107)->SetCurSel(0);
  d.radio = 7;
  ASSERT_TRUE(d.UpdateData(true));
  EXPECT_EQ((std::vector<double>{d.real, double(d.count), double(d.check), double(d.radio), double(d.pick)}),
            (std::vector<double>{1000, 42, 0, 1, 0}));
  d.CheckDlgButton(106, 0);
  ASSERT_TRUE(d.UpdateData(true));
  EXPECT_EQ(d.radio, -1);
  EXPECT_TRUE(host_.messages().empty());
}

// The first field that is not its kind of number is refused with the framework's message; the
// fields before it keep what they got, those after it are not read; OK then leaves it open.
TEST_F(UiDialogs, ARefusedFieldEndsTheExchange) {
  Members d;
  ASSERT_TRUE(d.CreateModal());
  for (const auto& [real, count, message] : {std::tuple{"1.5", "4.2", "请输入一个整数。"}, {"abc", "5", "请输入一个数字。"}}) {
    d.SetDlgItemText(101, real);
    d.SetDlgItemText(102, count);
    d.SetDlgItemText(103, "新名称");
    EXPECT_FALSE(d.UpdateData(true));
    d.OnOK();
    EXPECT_FALSE(d.IsEnded());
    EXPECT_EQ(host_.messages().back(), message);
  }
  EXPECT_EQ(host_.messages().size(), 4u);
  EXPECT_EQ(d.real, 1.5);  // from the first round; "abc" changed nothing
  EXPECT_EQ(d.count, -7);
  EXPECT_EQ(d.name, "线路 1");
}

struct Page : ui::PropertyPage {
  Page(const char* tab, Texts& log) : PropertyPage(903, tab), log(log) {}
  void DoDataExchange(ui::DataExchange& dx) override { dx.Real(301, value); }
  bool OnSetActive() override {
    log.push_back("set " + tab_text());
    return PropertyPage::OnSetActive();
  }
  bool OnKillActive() override {
    const bool ok = PropertyPage::OnKillActive();
    log.push_back("kill " + tab_text() + (ok ? "" : " refused"));
    return ok;
  }
  double value = 0;
  Texts& log;
};

TEST_F(UiDialogs, PropertySheetMakesPagesWhenFirstShownAndKeepsOneThatRefusesToBeLeft) {
  ui::Dialog owner(902);
  ASSERT_TRUE(owner.CreateModal());
  Texts log;
  Page p0("甲", log), p1("乙", log), p2("丙", log);
  ui::PropertySheet sheet;
  for (Page* p : {&p0, &p1, &p2}) sheet.AddPage(p);
  ASSERT_TRUE(sheet.Create(&owner, ui::Rect{5, 5, 295, 220}, 2));
  ui::Control& tab = *sheet.tab();
  EXPECT_EQ(tab.items(), (Texts{"甲", "乙", "丙"}));
  // The first page is made with the sheet, then the wanted one; the second waits for its tab.
  EXPECT_EQ(log, (Texts{"set 甲", "kill 甲", "set 丙"}));
  EXPECT_EQ((std::vector<bool>{p0.IsCreated(), p1.IsCreated(), p2.IsCreated()}), (std::vector<bool>{true, false, true}));
  EXPECT_EQ((std::vector<bool>{p0.IsWindowVisible(), p2.IsWindowVisible()}), (std::vector<bool>{false, true}));
  EXPECT_EQ(tab.GetCurSel(), 2);
  // Pages lie inside the tab strip, below its tabs, and move with it.
  const ui::Rect moved{20, 30, 280, 200};
  sheet.MoveWindow(moved);
  for (const Page* p : {&p0, &p2}) {
    const ui::Rect r = p->GetWindowRect();
    EXPECT_TRUE(r.left >= moved.left && r.top > moved.top + 12 && r.right <= moved.right && r.bottom <= moved.bottom);
  }
  // A page holding a refused number keeps its tab, and the strip goes back to it.
  log.clear();
  ui::act::SetText(*p2.GetDlgItem(301), "abc");
  ui::act::Select(tab, 1);
  EXPECT_EQ((std::vector<int>{sheet.GetActiveIndex(), tab.GetCurSel(), p1.IsCreated()}), (std::vector<int>{2, 2, 0}));
  EXPECT_EQ(host_.messages(), Texts{ui::kRefuseReal});
  ui::act::SetText(*p2.GetDlgItem(301), "7");
  ui::act::Select(tab, 1);
  EXPECT_EQ(log, (Texts{"kill 丙 refused", "kill 丙", "set 乙"}));
  EXPECT_EQ(p2.value, 7.0);
  EXPECT_EQ((std::vector<bool>{p1.IsWindowVisible(), p2.IsWindowVisible()}), (std::vector<bool>{true, false}));
  EXPECT_FALSE(sheet.SetActivePage(3));
  EXPECT_FALSE(sheet.SetActivePage(-1));
  EXPECT_EQ(sheet.GetActiveIndex(), 1);
}

}  // namespace

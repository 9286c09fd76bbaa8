// The shared form parts on test dialogs shown by the headless host (a 9-point font is 12
// pixels high, CJK characters 12 wide, others 6; dialog units map through base units 6 x 12)
// and on a catalogue built here: key lists as line forms, motor combos and the pick dialog's
// search row use them; forms in a frame.
#include <sstream>
#include <tuple>
#include <utility>

#include "forms/form_frame.h"
#include "forms/key_lists.h"
#include "tests/tabledb/test_support.h"
#include "ui/actions.h"
#include "ui/headless_host.h"

namespace kestra::forms {
namespace {

using kestra::tabledb::test::TempDir;
using kestra::tabledb::test::WriteFile;
using text::ValueOrder;
using Texts = std::vector<std::string>;

const char* kDialogs = R"rc(
950 DIALOGEX 0, 0, 320, 120
FONT 9, "宋体"
BEGIN
    LTEXT           "Static", 300, 20, 30, 40, 8
    COMBOBOX        310, 20, 60, 60, 80, CBS_DROPDOWNLIST | WS_VSCROLL
    COMBOBOX        311, 90, 60, 60, 80, CBS_DROPDOWNLIST | WS_VSCROLL
END
960 DIALOGEX 0, 0, 200, 100
FONT 9, "宋体"
BEGIN
    CONTROL         "", 400, "Static", SS_ETCHEDFRAME, 10, 10, 100, 60
END
961 DIALOGEX 0, 0, 90, 50
STYLE WS_CHILD | WS_DISABLED
FONT 9, "宋体"
BEGIN
END
)rc";

const KeyListStyle kLineForm{ValueOrder::Natural, true, {false, "Like", true}, {.first_id = 101}};
const KeyListStyle kMotor{ValueOrder::Catalogue, true, {}, {}};
const KeyListStyle kPickRow{ValueOrder::Catalogue, false, {}, {.first_id = 1200, .max_lists = 9, .drop_list = false}};

class Forms : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    dir_ = new TempDir;
    const std::string src = *dir_ / "src";
    WriteFile(src + "/tables.txt", "a.csv\t三列\nb.csv\t一列\nc.csv\t无索引\nd.csv\t空表\ne.csv\t电机\nf.csv\t引号\ng.csv\t起动电抗器数据\n");
    WriteFile(src + "/a.csv",
              "序号,￥芯数,￥截面,￥敷设,R,X,U\n1,1,10,空气,1.83,0.1,0.4\n2,1,20,空气,0.9,0.09,0.4\n3,1,30,空气,0.6,0.09,0.4\n"
              "4,1,40,空气,0.45,0.08,0.4\n5,1,50,空气,0.36,0.08,0.4\n6,2,10,土壤,1.9,0.11,0.4\n7,2,60,土壤,0.3,0.07,0.4\n"
              "8,1,40,土壤,0.46,0.081,0.4\n9,2,40,土壤,0.47,0.082,0.4\n");
    WriteFile(src + "/b.csv", "序号,￥截面,R,X,U\n1,120,0.15,0.06,0.4\n2,3x50,0.36,0.06,0.4\n3,95,0.19,0.07,0.4\n4,铜,1,1,1\n"
                              "5,4x16,1.1,0.09,0.4\n6,3x25,0.72,0.09,0.4\n");
    WriteFile(src + "/c.csv", "序号,R,X,U\n1,0.5,0.08,0.38\n2,0.6,0.09,0.4\n");
    WriteFile(src + "/d.csv", "序号,￥截面,R,X,U\n");
    WriteFile(src + "/e.csv", "序号,￥系列名称,￥型号,功率kW\n1,YB,YB355M-4,250\n2,Y,Y315S-4,110\n3,yb,yb355m-4,260\n"
                              "4,Y,Y315M-4,132\n5,YB,YB315S-4,112\n");
    WriteFile(src + "/f.csv", "序号,￥型,￥号,R\n1,\"QKSG \"\"B\"\"\",1,0.1\n");
    WriteFile(src + "/g.csv", "序号,￥型 号,容量kVA,￥系列\n1,QKSG-200,200,干式\n2,QKSG-100,100,干式\n3,QKS-9,9,油浸\n");
    ASSERT_EQ(kestra::catalog::BuildCatalogue(src, *dir_ / "cat.db"), "");
  }
  static void TearDownTestSuite() { delete dir_; }

  void SetUp() override {
    resources_.Parse(kDialogs, "forms_test.rc");
    ui::PushResources(&resources_);
    ui::SetCurrentHost(&host_);
    db_.Open(kestra::tabledb::ConnectionText(*dir_ / "cat.db"));
    db_.SetQueryObserver([this](const std::string& q) { queries_.push_back(q); });
    kestra::tabledb::SetErrorReporter([this](const std::string& m) { reported_.push_back(m); });
    ASSERT_TRUE(dlg_.CreateModal());
  }
  void TearDown() override {
    kestra::tabledb::SetErrorReporter(nullptr);
    ui::SetCurrentHost(nullptr);
    ui::PopResources();
  }
  Texts Taken() { return std::exchange(queries_, {}); }
  static Texts Items(const ui::Control* c) { return c ? c->items() : Texts{}; }

  static TempDir* dir_;
  ui::ResourceSet resources_;
  std::ostringstream transcript_;
  ui::HeadlessHost host_{transcript_};
  CADODatabase db_;
  ui::Dialog dlg_{950};
  Texts queries_, reported_;
};
TempDir* Forms::dir_ = nullptr;

TEST_F(Forms, LineFormRowOfThreeLists) {
  KeyLists lists(dlg_, kLineForm);
  int shown = 0;
  lists.Wire([&shown] { ++shown; });
  lists.SetTable(&db_, "三列");
  ASSERT_TRUE(lists.Build(*dlg_.GetDlgItem(300), 0, 3));
  EXPECT_EQ(Taken(), (Texts{"SELECT DISTINCT [￥芯数] FROM [三列]", "SELECT DISTINCT [￥截面] FROM [三列]",
                            "SELECT DISTINCT [￥截面] FROM [三列] WHERE ￥芯数 LIKE \"1\"", "SELECT DISTINCT [￥敷设] FROM [三列]"}));
  EXPECT_EQ(lists.columns().values, (Texts{"R", "X", "U"}));
  // Placeholder at 20,30 units: (20*6+2)/4 = 30, (30*12+4)/8 = 45 px. Labels "xx:" 12+12+6 = 30
  // wide. Widest values "1" 6, "10" 12, "空气" 24; heights 2, 6, 2 values of 12. Label at x,
  // list at x + 30 + 10 and 3 higher, widest + 30 wide, heights + 50 high; next at list + widest + 40.
  std::vector<ui::Rect> rects, want = {{30, 45, 60, 57},    {70, 42, 106, 116},  {116, 45, 146, 57},
                                       {156, 42, 198, 164}, {208, 45, 238, 57}, {248, 42, 302, 116}};
  for (std::size_t i = 0; i < lists.size(); ++i) {
    rects.insert(rects.end(), {lists.label(i)->GetWindowRect(), lists.list(i)->GetWindowRect()});
    EXPECT_EQ(lists.label(i)->id(), -1);
    EXPECT_EQ(lists.list(i)->id(), 101 + static_cast<int>(i));
    EXPECT_TRUE(lists.list(i)->drop_list() && lists.list(i)->IsWindowVisible() && lists.label(i)->IsWindowVisible());
  }
  EXPECT_EQ(rects, want);
  EXPECT_EQ(lists.label(2)->GetWindowText(), "敷设:");
  // The second list holds what lies under "1"; the stored position 3 is its fourth entry.
  EXPECT_EQ(Items(lists.list(1)), (Texts{"10", "20", "30", "40", "50"}));
  EXPECT_EQ(Items(lists.list(2)), (Texts{"土壤", "空气"}));  // U+571F before U+7A7A
  EXPECT_EQ(lists.Text(1) + "|" + lists.Text(2), "40|");
  lists.list(2)->SetCurSel(0);
  Texts values(3);
  ASSERT_TRUE(lists.FetchValues(lists.columns().values, values));
  EXPECT_EQ(values, (Texts{"0.46", "0.081", "0.4"}));
  EXPECT_EQ(Taken()[0], "SELECT [R] FROM 三列 WHERE ￥芯数 Like \"1\" AND ￥截面 Like \"40\" AND ￥敷设 Like \"土壤\"");

  // A new first value keeps the second text where the refreshed list has it (position 3 would
  // not), else takes entry 0 (not position 2); the drop-down refreshes keeping the position.
  ui::act::Select(*lists.list(0), "2");
  EXPECT_EQ(Items(lists.list(1)), (Texts{"10", "40", "60"}));
  EXPECT_EQ(lists.Text(1), "40");
  ui::act::Select(*lists.list(1), "60");
  ui::act::Select(*lists.list(0), "1");
  EXPECT_EQ(lists.Text(1), "10");
  ui::act::Drop(*lists.list(1));
  EXPECT_EQ(Taken().back(), "SELECT DISTINCT [￥截面] FROM [三列] WHERE ￥芯数 LIKE \"1\"");
  EXPECT_EQ(shown, 3);  // each selection shows the row
  // Another table: the old row goes.
  lists.SetTable(&db_, "一列");
  ASSERT_TRUE(lists.Build(*dlg_.GetDlgItem(300)));
  EXPECT_EQ(dlg_.controls().size(), 3u + 2u);
  EXPECT_TRUE(reported_.empty());
}

TEST_F(Forms, OneNoKeyAndEmptyTables) {
  struct {
    std::string table;
    Texts items;  // of the only list
    Texts values;  // starting from "old"
    std::string first_query;
  } cases[] = {
      {"一列", {"铜", "3x25", "3x50", "4x16", "95", "120"}, {"0.19", "0.07", "0.4"}, "SELECT [R] FROM 一列 WHERE ￥截面 Like \"95\""},
      {"无索引", {}, {"0.6", "0.09", "0.4"}, "SELECT [R] FROM 无索引"},  // the last row wins
      {"空表", {}, {"old", "old", "old"}, "SELECT [R] FROM 空表"},        // no row: the texts stay
  };
  for (const auto& c : cases) {
    KeyLists lists(dlg_, kLineForm);
    lists.SetTable(&db_, c.table);
    ASSERT_TRUE(lists.Build(*dlg_.GetDlgItem(300), 4, 0));
    EXPECT_EQ(lists.size(), c.table == "无索引" ? 0u : 1u);
    EXPECT_EQ(Items(lists.list(0)), c.items);
    Taken();
    Texts values(3, "old");
    ASSERT_TRUE(lists.FetchValues(lists.columns().values, values));
    EXPECT_EQ(values, c.values) << c.table;
    EXPECT_EQ(Taken()[0], c.first_query);
  }
}

TEST_F(Forms, MotorCombosNarrowByKeysWithoutRegardToCase) {
  KeyLists lists(dlg_, kMotor);
  lists.SetTable(&db_, "电机");
  ASSERT_TRUE(lists.Scan());
  lists.Bind({{dlg_.GetDlgItem(310), lists.columns().keys[0]}, {dlg_.GetDlgItem(311), lists.columns().keys[1]}});
  Texts power(1);
  lists.Wire([&] { lists.FetchValues({"功率kW"}, power); });
  ASSERT_TRUE(lists.Fill(0));
  lists.list(0)->SetCurSel(0);
  ASSERT_TRUE(lists.RefreshSecond());
  EXPECT_EQ(Taken(), (Texts{"SELECT DISTINCT [￥系列名称] FROM [电机]", "SELECT DISTINCT [￥型号] FROM [电机] WHERE ￥系列名称 LIKE \"Y\""}));
  EXPECT_EQ(Items(lists.list(0)), (Texts{"Y", "YB", "yb"}));
  EXPECT_EQ(Items(lists.list(1)), (Texts{"Y315M-4", "Y315S-4"}));  // heads as texts
  ui::act::Select(*lists.list(1), "Y315S-4");
  EXPECT_EQ(Taken()[0], "SELECT [功率kW] FROM [电机] WHERE ￥系列名称 LIKE \"Y\" AND ￥型号 LIKE \"Y315S-4\"");
  // "yb" finds the "YB" rows too; nothing begins with "Y315S-4": the first model.
  ui::act::Select(*lists.list(0), "yb");
  EXPECT_EQ(Items(lists.list(1)), (Texts{"YB315S-4", "YB355M-4", "yb355m-4"}));
  EXPECT_EQ(lists.Text(1) + " " + power[0], "YB315S-4 112");
  // The prefix search ignores case from the top: "yb355m-4" is kept as "YB355M-4"; rows 1 and
  // 3 both match, the last one read (260 kW) gives the data.
  ui::act::Select(*lists.list(1), "yb355m-4");
  ui::act::Select(*lists.list(0), "YB");
  EXPECT_EQ(lists.Text(1) + " " + power[0], "YB355M-4 260");
}

TEST_F(Forms, PickRowAndErrors) {
  KeyLists row(dlg_, kPickRow);
  row.SetTable(&db_, "起动电抗器数据");
  ASSERT_TRUE(row.Build(*dlg_.GetDlgItem(300)));
  EXPECT_EQ(row.columns().fields, (Texts{"型 号", "容量kVA", "系列"}));
  EXPECT_EQ(Taken(), (Texts{"SELECT DISTINCT [￥型 号] FROM [起动电抗器数据]", "SELECT DISTINCT [￥系列] FROM [起动电抗器数据]"}));
  EXPECT_EQ(row.list(1)->id(), 1201);
  EXPECT_FALSE(row.list(0)->drop_list());
  EXPECT_EQ(Items(row.list(0)), (Texts{"QKS-9", "QKSG-100", "QKSG-200"}));
  EXPECT_EQ(row.SearchQuery(), "SELECT * FROM [起动电抗器数据]");
  ui::act::SetText(*row.list(0), " QKS-9 ");
  ui::act::SetText(*row.list(1), "油浸");
  EXPECT_EQ(row.SearchQuery(), "SELECT * FROM [起动电抗器数据] where [￥型 号]=\"QKS-9\" and [￥系列]=\"油浸\"");

  // A key value with double quotes breaks the refresh query: reported once, the row not shown.
  KeyLists lists(dlg_, kLineForm);
  lists.SetTable(&db_, "引号");
  EXPECT_FALSE(lists.Build(*dlg_.GetDlgItem(300), 0, 0));
  ASSERT_EQ(reported_.size(), 1u);
  EXPECT_NE(reported_[0].find("LIKE \"QKSG \"B\"\""), std::string::npos) << reported_[0];
  EXPECT_FALSE(lists.list(0)->IsWindowVisible());
  lists.SetTable(&db_, "没有这个表");
  EXPECT_FALSE(lists.Build(*dlg_.GetDlgItem(300)));
  // No catalogue, or one without tables: nothing asked, nothing reported.
  CADODatabase closed;
  lists.SetTable(&closed, "三列");
  EXPECT_TRUE(lists.Build(*dlg_.GetDlgItem(300)));
  lists.SetTable(&db_, "");
  EXPECT_TRUE(lists.Build(*dlg_.GetDlgItem(300)));
  EXPECT_EQ(reported_.size(), 2u);
  EXPECT_EQ(Taken().size(), 3u);  // those of the first Build, the failing one included
}

TEST_F(Forms, FormsLieInTheFrameAndOneIsShown) {
  ui::Dialog page(960), a(961), b(961), c(961);
  ASSERT_TRUE(page.CreateModal());
  FormFrame frame;
  ASSERT_TRUE(frame.Create(page, 400, {&c, &a, &b}));
  EXPECT_EQ(page.children(), (std::vector<ui::Dialog*>{&c, &a, &b}));
  // Frame at 10,10 size 100x60 units: (15, 15, 165, 105) px; the forms lie 2 px inside.
  for (ui::Dialog* f : {&a, &b, &c}) EXPECT_EQ(f->GetWindowRect(), (ui::Rect{17, 17, 163, 103}));
  using Step = std::tuple<int, bool, int>;  // form to show, accepted, form shown after
  for (auto [show, ok, current] : std::initializer_list<Step>{{1, true, 1}, {2, true, 2}, {3, false, 2}, {-1, false, 2}, {0, true, 0}}) {
    EXPECT_EQ(frame.Show(show), ok);
    EXPECT_EQ(frame.current(), current);
    for (int i = 0; i < frame.count(); ++i)
      EXPECT_EQ(frame.form(i)->IsWindowVisible() + 2 * frame.form(i)->IsWindowEnabled(), i == current ? 3 : 0) << show << i;
  }
  ui::Dialog d(961);
  EXPECT_FALSE(FormFrame().Create(page, 401, {&d}));  // no such frame
}

}  // namespace
}  // namespace kestra::forms

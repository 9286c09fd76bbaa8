// The reactive compensation calculator as a designer uses it: the command opens the dialog in
// a host without windows, a driver types and clicks, and the parameter file is read back.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <initializer_list>
#include <iterator>
#include <sstream>
#include <string>
#include <tuple>
#include <vector>

#include "services/idp/idp_values.h"
#include "services/idp/inter_dp_data.h"
#include "tests/report/zip_reader.h"
#include "tests/shell/test_module.h"
#include "tests/support/dialog_driver.h"
#include "tests/support/layout_check.h"
#include "ui/actions.h"
#include "ui/headless_host.h"
#include "wggl/wggl_command.h"
#include "wggl/wggl_dialog.h"
#include "wggl/wggl_report.h"
#include "wggl/wggl_subdialogs.h"

namespace fs = std::filesystem;

namespace {

using kestra::wggl::CWGGADDDLG;
using kestra::wggl::CWGGSMDLD;
using kestra::wggl::CWGGSYYN;
using kestra::wggl::CWgglbcDlg;
using namespace kestra::testing;

using Strings = std::vector<std::string>;

const char* const kNegative =
    "补偿容量结果不能为负,请查看自然平均功率因数和补偿后功率因数,单击确认,结果取绝对值";
const char* const kOutOfRange = "计算出的自然平均功率因数(范围从0.1到1.0)超出最小值范围";

class WgglDialog : public ::testing::Test {
 protected:
  void SetUp() override {
    fs::copy_file(fs::path(KESTRA_SOURCE_DIR) / "data/Image/Wgglbc.RTF", root_ / "Image/Wgglbc.RTF");
  }

  fs::path ParamFile() const { return root_ / "Kestra/无功功率补偿计算.idp"; }

  // Runs the command with a driver for the main dialog.
  void Run(const std::function<void(CWgglbcDlg&)>& drive) {
    host_.SetDriver([&](ui::Dialog& d) { drive(dynamic_cast<CWgglbcDlg&>(d)); });
    kestra::shell::ModuleScope scope(module_.context());
    kestra::wggl::RunWgglCommand(module_.context());
    host_.SetDriver(nullptr);
  }

  std::string Stored(const std::string& key) const {
    CInterDpData tree;
    tree.ReadDataFromIdpFile(ParamFile().string());
    const auto* node = tree.GetSubValueFromPathW(0, "Wgglbc\\" + key);
    return node ? node->Text() : "<missing>";
  }
  void ExpectStored(std::initializer_list<std::pair<const char*, const char*>> keys) const {
    for (const auto& [key, text] : keys) EXPECT_EQ(Stored(key), text) << key;
  }
  void Store(const std::string& key, const std::string& text) {
    CInterDpData tree;
    tree.ReadDataFromIdpFile(ParamFile().string());
    kestra::idp::SetValue(tree, "Wgglbc\\" + key, text);
    tree.WriteDataToIdpFile(ParamFile().string());
  }
  bool Shown(const std::string& line) const { return module_.transcript().find(line) != std::string::npos; }

  // Types cosφ1, cosφ2, α and Pjs; presses "计算".
  static void Enter(ui::Dialog& d, const char* cos1, const char* cos2, const char* alpha, const char* pjs) {
    for (auto [id, text] : {std::pair{kCos1, cos1}, {kCos2, cos2}, {kAlpha, alpha}, {kPjs, pjs}}) Type(d, id, text);
  }
  static void Calc(ui::Dialog& d) { Press(d, "计算"); }
  // Types into a sub-dialog and presses "确认"; true when it closed.
  static bool Confirm(ui::Dialog& s, std::initializer_list<std::pair<int, const char*>> texts) {
    for (const auto& [id, text] : texts) Type(s, id, text);
    Press(s, "确认");
    return s.IsEnded();
  }

  // Control ids of the templates.
  static constexpr int kCos1 = 1001, kDesign = 1003, kInUse = 1004, kCos2 = 1005, kAlpha = 1007, kPjs = 1009,
                       kQc = 1010, kBox = 1011, kRating = 1012, kCount = 1013, kActual = 1014;

  kestra::testing::TestModule module_;
  const fs::path& root_ = module_.root();
  ui::HeadlessHost& host_ = module_.ui();
};

TEST_F(WgglDialog, WorkedExampleWithDefaultsAndWhatOkStores) {
  Run([&](CWgglbcDlg& d) {
    EXPECT_EQ(d.GetWindowText(), "无功功率补偿");
    // Every default of a missing file.
    EXPECT_EQ(Texts(d, {kCos1, kCos2, kAlpha, kPjs, kRating, kQc}), (Strings{"0.5", "0.5", "0.75", "0", "30", ""}));
    EXPECT_EQ(Ctl(d, kBox).GetCheck(), 1);
    EXPECT_EQ(Ctl(d, kDesign).GetCheck(), 1);
    EXPECT_EQ(Ctl(d, kInUse).GetCheck(), 0);
    Enter(d, "0.75", "0.95", "0.75", "1000");
    Calc(d);
    EXPECT_EQ(Texts(d, {kQc, kCount, kActual}), (Strings{"412.5", "14", "420"}));
    EXPECT_TRUE(d.calculated());
    Type(d, kRating, "27.5");  // divides Qc exactly: no capacitor more
    Calc(d);
    EXPECT_EQ(Texts(d, {kCount, kActual}), (Strings{"15", "412.5"}));
    ui::act::Ok(d);
  });
  EXPECT_TRUE(host_.messages().empty());
  EXPECT_TRUE(Shown("[closed] 无功功率补偿 OK"));
  ExpectStored({{"Zrglys", "0.75"}, {"Bchglys", "0.95"}, {"Fhxs", "0.75"}, {"Ygjsfh", "1000"}, {"Drrl", "27.5"},
                {"Sfdrsl", "1"}, {"Dqxtlx", "0"}, {"Ygfhxs", "0.75"}, {"Wgfhxs", "0.75"}, {"Wgjsfh", "0"},
                {"Ygdn", "0"}, {"Wgdn", "0"}});
}

TEST_F(WgglDialog, MessagesOfTheCalculation) {
  Run([&](CWgglbcDlg& d) {
    Enter(d, "0.95", "0.75", "0.75", "1000");
    Calc(d);
    EXPECT_EQ(Text(d, kQc), "412.5");  // shown as its absolute value
    // No rating: the count is left as it was, the calculation still counts as done.
    Enter(d, "0.75", "0.95", "0.75", "1000");
    Calc(d);
    Type(d, kRating, "");
    Calc(d);
    EXPECT_EQ(Texts(d, {kCount, kActual}), (Strings{"14", "420"}));
    EXPECT_TRUE(d.calculated());
    // A power factor without a finite tangent: told, nothing computed.
    Type(d, kCos1, "0");
    Type(d, kPjs, "2000");
    Calc(d);
    EXPECT_EQ(Text(d, kQc), "412.5");
    EXPECT_FALSE(d.calculated());
    Type(d, kCos1, "0.8");
    Type(d, kCos2, "1.2");
    Calc(d);
    EXPECT_FALSE(d.calculated());
    ui::act::Cancel(d);
  });
  EXPECT_EQ(host_.messages(), (Strings{kNegative, "没有输入单个电容器额定容量或不能为零,无法计算单个电容器的数量!",
                                       "'自然平均功率因数'输入非法, 请输入[-1, 1]之间非零实数!",
                                       "'补偿后功率因数'输入非法, 请输入[-1, 1]之间非零实数!"}));
  EXPECT_TRUE(Shown("[message] 警告: 补偿容量结果不能为负"));
  EXPECT_FALSE(fs::exists(ParamFile()));  // cancel stores nothing
}

// Every number edit of the four dialogs takes a signed real, so a minus typed by the designer
// reaches the calculation and its messages instead of being refused at the keyboard. Two-decimal
// rounding truncates towards zero after adding 0.005, so a negative whole number loses 0.01
// at each rounding: −1000 becomes −999.99.
TEST_F(WgglDialog, NegativeNumbersAreTypedAndCalculatedWith) {
  Run([&](CWgglbcDlg& d) {
    Enter(d, "0.75", "0.95", "0.75", "-1000");  // (0.75 · −999.99) · 0.55 = −412.495875
    Type(d, kRating, "-30");
    Calc(d);
    EXPECT_EQ(Texts(d, {kQc, kCount, kActual}), (Strings{"412.5", "", ""}));
    // The squares of the sub-dialogs' formulas lose the signs: 1/√(1 + (881.99/999.98)²) = 0.74997.
    host_.QueueDriver([&](ui::Dialog& s) {
      EXPECT_EQ(Text(s, 1105), "-999.99");
      EXPECT_TRUE(Confirm(s, {{1101, "0.75"}, {1103, "0.75"}, {1106, "-882"}}));
    });
    ui::act::Click(Ctl(d, kDesign));
    EXPECT_EQ(Texts(d, {kCos1, kPjs}), (Strings{"0.75", "-999.97"}));  // rounded in both dialogs
    host_.QueueDriver([&](ui::Dialog& s) { EXPECT_TRUE(Confirm(s, {{1201, "-1000"}, {1202, "-882"}})); });
    Type(d, kCos1, "0.5");
    ui::act::Click(Ctl(d, kInUse));
    EXPECT_EQ(Text(d, kCos1), "0.75");
    ui::act::Cancel(d);
  });
  EXPECT_EQ(host_.messages(), (Strings{kNegative, "没有输入单个电容器额定容量或不能为零,无法计算单个电容器的数量!"}));
}

TEST_F(WgglDialog, CapacitorControlsFollowTheCheckBox) {
  Store("Sfdrsl", "0");
  auto expect_enabled = [](ui::Dialog& d, bool on) {
    for (int id : {1012, 1013, 1014, 1020, 1021, 1022, 1023, 1024}) EXPECT_EQ(Ctl(d, id).IsWindowEnabled(), on) << id;
  };
  Run([&](CWgglbcDlg& d) {
    expect_enabled(d, false);
    EXPECT_THROW(Type(d, kRating, "40"), ui::ActionError);
    Enter(d, "0.75", "0.95", "0.75", "1000");
    Calc(d);
    EXPECT_EQ(Text(d, kCount), "");  // no count without the box
    ui::act::Click(Ctl(d, kBox));
    expect_enabled(d, true);
    Calc(d);
    EXPECT_EQ(Text(d, kCount), "14");
    ui::act::Click(Ctl(d, kBox));
    expect_enabled(d, false);
    ui::act::Ok(d);
  });
  EXPECT_EQ(Stored("Sfdrsl"), "0");
}

// The up arrow steps up; a billion steps end at the limit as soon as the value stops changing.
TEST_F(WgglDialog, SpinStepsStopAtTheirLimitsAndAreStoredWithoutACalculation) {
  Run([&](CWgglbcDlg& d) {
    const std::tuple<int, const char*, bool, int, const char*> steps[] = {
        {kAlpha, "0.01", false, 1, "0"}, {kAlpha, "0", false, 1, "0.01"}, {kAlpha, "0.99", true, 3, "1"},
        {kCos1, "0.75", true, 1, "0.8"}, {kCos2, "0.1", false, 2, "0.05"},
        {kCos1, "0.5", true, 999999999, "1"}, {kCos2, "0.5", false, 999999999, "0.05"}};
    for (const auto& [id, from, up, times, want] : steps) {
      Type(d, id, from);
      ui::act::Spin(Ctl(d, id), up, times);
      EXPECT_EQ(Text(d, id), want) << id << " from " << from;
    }
    ui::act::Ok(d);
  });
  ExpectStored({{"Zrglys", "1"}, {"Bchglys", "0.05"}, {"Fhxs", "1"}});
}

TEST_F(WgglDialog, OnlyCalculatedValuesAreStoredAndTheRatingIsItsIntegerPartUntilTheFirst) {
  Store("Drrl", "25.5");
  Store("Zrglys", "");  // an empty text reads as the default
  Store("Dqxtlx", "1");
  Store("Other", "kept");
  Run([&](CWgglbcDlg& d) {
    EXPECT_EQ(Texts(d, {kRating, kCos1}), (Strings{"25.5", "0.5"}));
    EXPECT_DOUBLE_EQ(d.numbers().rating, 25);
    EXPECT_EQ(Ctl(d, kInUse).GetCheck(), 1);
    ui::act::Ok(d);
  });
  ExpectStored({{"Drrl", "25"}, {"Dqxtlx", "1"}, {"Other", "kept"}});
  Store("Drrl", "25.5");
  Run([&](CWgglbcDlg& d) {
    Enter(d, "0.75", "0.95", "0.75", "1000");
    Calc(d);
    EXPECT_EQ(Texts(d, {kCount, kActual}), (Strings{"17", "433.5"}));  // 412.5 / 25.5 = 16.2
    Enter(d, "0.6", "0.9", "0.5", "800");  // typed after the last calculation
    ui::act::Ok(d);
  });
  ExpectStored({{"Drrl", "25.5"}, {"Zrglys", "0.75"}, {"Bchglys", "0.95"}, {"Fhxs", "0.75"}, {"Ygjsfh", "1000"},
                {"Dqxtlx", "1"}, {"Other", "kept"}});
  // Closing the window stores nothing either.
  Run([&](CWgglbcDlg& d) {
    Enter(d, "0.6", "0.9", "0.5", "800");
    Calc(d);
  });
  EXPECT_EQ(Stored("Zrglys"), "0.75");
  EXPECT_TRUE(Shown("[closed] 无功功率补偿 Cancel"));
}

TEST_F(WgglDialog, DesignSubDialogDerivesThePowerFactor) {
  Run([&](CWgglbcDlg& d) {
    Type(d, kPjs, "1000");
    Calc(d);  // Pjs 1000 becomes the number the sub-dialog starts with
    host_.QueueDriver([&](ui::Dialog& s) {
      EXPECT_EQ(s.GetWindowText(), "正在设计中的电气系统");
      EXPECT_EQ(Texts(s, {1101, 1103, 1105, 1106}), (Strings{"0.75", "0.75", "1000", "0"}));
      ui::act::Spin(Ctl(s, 1101), true);
      EXPECT_EQ(Text(s, 1101), "0.76");
      EXPECT_FALSE(Confirm(s, {{1101, "0.75"}, {1105, "0"}}));
      EXPECT_FALSE(Confirm(s, {{1105, "100"}, {1106, "1000"}}));  // cosφ1 ≈ 0.0995
      EXPECT_TRUE(Confirm(s, {{1105, "1000"}, {1106, "882"}}));
    });
    ui::act::Click(Ctl(d, kDesign));
    EXPECT_EQ(Texts(d, {kCos1, kPjs}), (Strings{"0.75", "1000"}));
    Type(d, kCos2, "0.95");
    Calc(d);
    const auto blocks = kestra::wggl::BuildWgglReport(d.last_results(), d.last_bank());
    EXPECT_EQ(blocks[6].text.rfind("\t补偿前企业自然平均功率因数(正在设计中)", 0), 0u) << blocks[6].text;
    ui::act::Ok(d);
  });
  EXPECT_EQ(host_.messages(), (Strings{"有功计算负荷作为除数不能为零 !", kOutOfRange}));
  ExpectStored({{"Wgjsfh", "882"}, {"Ygfhxs", "0.75"}, {"Zrglys", "0.75"}});
}

TEST_F(WgglDialog, EnergySubDialogAndCancellingKeepsValuesButNotTheRadio) {
  Store("Ygdn", "500");
  Run([&](CWgglbcDlg& d) {
    host_.QueueDriver([&](ui::Dialog& s) {
      EXPECT_EQ(s.GetWindowText(), "已使用一年的电气系统");
      EXPECT_EQ(Text(s, 1201), "500");
      Type(s, 1201, "2000");
      ui::act::Cancel(s);
    });
    ui::act::Click(Ctl(d, kInUse));
    EXPECT_EQ((std::vector<int>{Ctl(d, kInUse).GetCheck(), Ctl(d, kDesign).GetCheck()}), (std::vector<int>{1, 0}));
    EXPECT_EQ(Text(d, kCos1), "0.5");
    host_.QueueDriver([&](ui::Dialog& s) {
      EXPECT_EQ(Text(s, 1201), "500");  // the cancelled value was not taken
      EXPECT_FALSE(Confirm(s, {{1201, "0"}}));
      EXPECT_FALSE(Confirm(s, {{1201, "100"}, {1202, "1000"}}));
      EXPECT_TRUE(Confirm(s, {{1201, "1000"}, {1202, "882"}}));
    });
    ui::act::Click(Ctl(d, kInUse));  // clicked again while selected: opens again
    EXPECT_EQ(Text(d, kCos1), "0.75");
    // Cancelling the other sub-dialog: the design radio stays selected, nothing else moves.
    host_.QueueDriver([&](ui::Dialog& s) { ui::act::Cancel(s); });
    ui::act::Click(Ctl(d, kDesign));
    EXPECT_EQ(Ctl(d, kDesign).GetCheck(), 1);
    EXPECT_EQ(Text(d, kCos1), "0.75");
    ui::act::Ok(d);
  });
  EXPECT_EQ(host_.messages(), (Strings{"有功电能消耗量作为除数不能为零 !", kOutOfRange}));
  ExpectStored({{"Dqxtlx", "0"}, {"Ygdn", "1000"}, {"Wgdn", "882"}, {"Zrglys", "0.75"}});
}

TEST_F(WgglDialog, DescriptionPage) {
  Run([&](CWgglbcDlg& d) {
    host_.QueueDriver([&](ui::Dialog& s) {
      EXPECT_EQ(s.GetWindowText(), "说明");
      ui::Control& page = Ctl(s, 1302);
      EXPECT_EQ(page.kind(), ui::Kind::RichText);
      EXPECT_EQ(page.GetWindowRect(), Ctl(s, 1301).GetWindowRect());
      ASSERT_NE(page.rich(), nullptr);
      EXPECT_NE(page.rich()->PlainText().find("无功功率补偿计算说明"), std::string::npos);
      Press(s, "返回");
    });
    Press(d, "?说明");
    fs::remove(root_ / "Image/Wgglbc.RTF");
    host_.QueueDriver([&](ui::Dialog& s) {
      EXPECT_NE(Ctl(s, 1302).rich()->PlainText().find("Wgglbc.RTF"), std::string::npos);
    });
    Press(d, "?说明");
    Press(d, "帮助");  // does nothing
    ui::act::Cancel(d);
  });
  EXPECT_TRUE(host_.messages().empty());
}

TEST_F(WgglDialog, ReportButtonCalculatesThenWritesTheDocument) {
  Run([&](CWgglbcDlg& d) {
    Enter(d, "0.95", "0.75", "0.75", "1000");
    Press(d, "  输出\n计算文件");
    EXPECT_EQ(Text(d, kQc), "412.5");  // the calculation ran first, with its message
    EXPECT_EQ(host_.wait_cursor_depth(), 0);
    // A power factor the calculation refuses: no report.
    Type(d, kCos1, "0");
    Press(d, "  输出\n计算文件");
    ui::act::Cancel(d);
  });
  ASSERT_EQ(host_.messages().size(), 2u);
  EXPECT_EQ(host_.messages()[0], kNegative);
  // Exactly one document, named after the report's title.
  ASSERT_EQ(std::distance(fs::directory_iterator(root_ / "reports"), fs::directory_iterator()), 1);
  const fs::path docx = fs::directory_iterator(root_ / "reports")->path();
  EXPECT_EQ(docx.filename().string().rfind("无功功率补偿计算书 ", 0), 0u) << docx;
  EXPECT_EQ(docx.extension(), ".docx");
  EXPECT_TRUE(Shown("[report] " + docx.string()));
  // The report keeps the sign the dialog does not show.
  const std::string text = kestra::report::testing::DocumentText(docx.string());
  EXPECT_EQ(text.rfind("无功功率补偿计算书\n计算依据\n", 0), 0u) << text;
  EXPECT_NE(text.find("=0.75*-0.55*1000.00=-412.50kVar\n计算结果\n"), std::string::npos) << text;
  EXPECT_NE(text.find("\t并联电容器数量=14"), std::string::npos) << text;
}

// The four dialogs of the calculator keep the layout rules.
TEST_F(WgglDialog, Layout) {
  host_.SetDriver([](ui::Dialog& d) { kestra::testing::ExpectCleanLayout(d); });
  {
    kestra::shell::ModuleScope scope(module_.context());
    CWgglbcDlg main_dlg(module_.context());
    EXPECT_EQ(main_dlg.DoModal(), ui::IDCANCEL);
    CWGGADDDLG(0.75, 0.75, 0, 0).DoModal();
    CWGGSYYN(0, 0).DoModal();
    CWGGSMDLD(nullptr, (root_ / "Image/Wgglbc.RTF").string()).DoModal();
  }
  const std::string shown = module_.transcript();
  EXPECT_EQ(std::count(shown.begin(), shown.end(), '\n'), 8) << shown;  // four opened, four closed
}

}  // namespace

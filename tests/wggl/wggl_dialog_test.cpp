// The reactive compensation calculator as a designer uses it: the command opens the dialog in
// a host without windows, a driver types and clicks, and the parameter file is read back.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <initializer_list>
#include <iterator>
#include <sstream>
#include <string>
#include <vector>

#include "services/idp/idp_values.h"
#include "services/idp/inter_dp_data.h"
#include "tests/report/document_text.h"
#include "tests/shell/test_module.h"
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

  static ui::Control& Must(ui::Control* c, const std::string& what) {
    return c ? *c : throw std::runtime_error("no control " + what);
  }
  static ui::Control& C(ui::Dialog& d, int id) { return Must(ui::FindControl(d, id), std::to_string(id)); }
  static ui::Control& L(ui::Dialog& d, const std::string& label) { return Must(ui::FindControlByLabel(d, label), label); }
  static std::string T(ui::Dialog& d, int id) { return C(d, id).GetWindowText(); }
  static Strings Texts(ui::Dialog& d, std::initializer_list<int> ids) {
    Strings out;
    for (int id : ids) out.push_back(T(d, id));
    return out;
  }
  static void Calc(ui::Dialog& d) { ui::act::Click(L(d, "计算")); }
  static void Enter(ui::Dialog& d, const char* cos1, const char* cos2, const char* alpha, const char* pjs) {
    ui::act::SetText(C(d, kCos1), cos1);
    ui::act::SetText(C(d, kCos2), cos2);
    ui::act::SetText(C(d, kAlpha), alpha);
    ui::act::SetText(C(d, kPjs), pjs);
  }
  // Types into a sub-dialog and presses "确认"; true when it closed.
  static bool Confirm(ui::Dialog& s, std::initializer_list<std::pair<int, const char*>> texts) {
    for (const auto& [id, text] : texts) ui::act::SetText(C(s, id), text);
    ui::act::Click(L(s, "确认"));
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
    EXPECT_EQ(C(d, kBox).GetCheck(), 1);
    EXPECT_EQ(C(d, kDesign).GetCheck(), 1);
    EXPECT_EQ(C(d, kInUse).GetCheck(), 0);
    Enter(d, "0.75", "0.95", "0.75", "1000");
    Calc(d);
    EXPECT_EQ(Texts(d, {kQc, kCount, kActual}), (Strings{"412.5", "14", "420"}));
    EXPECT_TRUE(d.calculated());
    ui::act::SetText(C(d, kRating), "27.5");  // divides Qc exactly: no capacitor more
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
    EXPECT_EQ(T(d, kQc), "412.5");  // shown as its absolute value
    // No rating: the count is left as it was, the calculation still counts as done.
    Enter(d, "0.75", "0.95", "0.75", "1000");
    Calc(d);
    ui::act::SetText(C(d, kRating), "");
    Calc(d);
    EXPECT_EQ(Texts(d, {kCount, kActual}), (Strings{"14", "420"}));
    EXPECT_TRUE(d.calculated());
    // A power factor without a finite tangent: told, nothing computed.
    ui::act::SetText(C(d, kCos1), "0");
    ui::act::SetText(C(d, kPjs), "2000");
    Calc(d);
    EXPECT_EQ(T(d, kQc), "412.5");
    EXPECT_FALSE(d.calculated());
    ui::act::SetText(C(d, kCos1), "0.8");
    ui::act::SetText(C(d, kCos2), "1.2");
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

TEST_F(WgglDialog, CapacitorControlsFollowTheCheckBox) {
  Store("Sfdrsl", "0");
  auto expect_enabled = [](ui::Dialog& d, bool on) {
    for (int id : {1012, 1013, 1014, 1020, 1021, 1022, 1023, 1024}) EXPECT_EQ(C(d, id).IsWindowEnabled(), on) << id;
  };
  Run([&](CWgglbcDlg& d) {
    expect_enabled(d, false);
    EXPECT_THROW(ui::act::SetText(C(d, kRating), "40"), ui::ActionError);
    Enter(d, "0.75", "0.95", "0.75", "1000");
    Calc(d);
    EXPECT_EQ(T(d, kCount), "");  // no count without the box
    ui::act::Click(C(d, kBox));
    expect_enabled(d, true);
    Calc(d);
    EXPECT_EQ(T(d, kCount), "14");
    ui::act::Click(C(d, kBox));
    expect_enabled(d, false);
    ui::act::Ok(d);
  });
  EXPECT_EQ(Stored("Sfdrsl"), "0");
}

TEST_F(WgglDialog, SpinStepsStopAtTheirLimitsAndAreStoredWithoutACalculation) {
  Run([&](CWgglbcDlg& d) {
    auto spin = [&](int id, const char* from, bool up, int times) {
      if (from) ui::act::SetText(C(d, id), from);
      ui::act::Spin(C(d, id), up, times);
      return T(d, id);
    };
    EXPECT_EQ(spin(kAlpha, "0.01", false, 1), "0");
    EXPECT_EQ(spin(kAlpha, nullptr, false, 1), "0.01");
    EXPECT_EQ(spin(kAlpha, "0.99", true, 3), "1");
    EXPECT_EQ(spin(kCos1, "0.75", true, 1), "0.8");
    EXPECT_EQ(spin(kCos1, "1", true, 1), "1");
    EXPECT_EQ(spin(kCos2, "0.1", false, 2), "0.05");
    // A billion steps end with the value at its limit, as soon as it stops changing.
    EXPECT_EQ(spin(kCos1, "0.5", true, 999999999), "1");
    EXPECT_EQ(spin(kCos2, "0.5", false, 999999999), "0.05");
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
    EXPECT_EQ(C(d, kInUse).GetCheck(), 1);
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
    ui::act::SetText(C(d, kPjs), "1000");
    Calc(d);  // Pjs 1000 becomes the number the sub-dialog starts with
    host_.QueueDriver([&](ui::Dialog& s) {
      EXPECT_EQ(s.GetWindowText(), "正在设计中的电气系统");
      EXPECT_EQ(Texts(s, {1101, 1103, 1105, 1106}), (Strings{"0.75", "0.75", "1000", "0"}));
      ui::act::Spin(C(s, 1101), true);
      EXPECT_EQ(T(s, 1101), "0.76");
      EXPECT_FALSE(Confirm(s, {{1101, "0.75"}, {1105, "0"}}));
      EXPECT_FALSE(Confirm(s, {{1105, "100"}, {1106, "1000"}}));  // cosφ1 ≈ 0.0995
      EXPECT_TRUE(Confirm(s, {{1105, "1000"}, {1106, "882"}}));
    });
    ui::act::Click(C(d, kDesign));
    EXPECT_EQ(Texts(d, {kCos1, kPjs}), (Strings{"0.75", "1000"}));
    ui::act::SetText(C(d, kCos2), "0.95");
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
    EXPECT_EQ(C(d, kDesign).GetCheck(), 1);
    host_.QueueDriver([&](ui::Dialog& s) {
      EXPECT_EQ(s.GetWindowText(), "已使用一年的电气系统");
      EXPECT_EQ(T(s, 1201), "500");
      ui::act::SetText(C(s, 1201), "2000");
      ui::act::Cancel(s);
    });
    ui::act::Click(C(d, kInUse));
    EXPECT_EQ(C(d, kInUse).GetCheck(), 1);
    EXPECT_EQ(C(d, kDesign).GetCheck(), 0);
    EXPECT_EQ(T(d, kCos1), "0.5");
    host_.QueueDriver([&](ui::Dialog& s) {
      EXPECT_EQ(T(s, 1201), "500");  // the cancelled value was not taken
      EXPECT_FALSE(Confirm(s, {{1201, "0"}}));
      EXPECT_FALSE(Confirm(s, {{1201, "100"}, {1202, "1000"}}));
      EXPECT_TRUE(Confirm(s, {{1201, "1000"}, {1202, "882"}}));
    });
    ui::act::Click(C(d, kInUse));  // clicked again while selected: opens again
    EXPECT_EQ(T(d, kCos1), "0.75");
    // Cancelling the other sub-dialog: the design radio stays selected, nothing else moves.
    host_.QueueDriver([&](ui::Dialog& s) { ui::act::Cancel(s); });
    ui::act::Click(C(d, kDesign));
    EXPECT_EQ(C(d, kDesign).GetCheck(), 1);
    EXPECT_EQ(T(d, kCos1), "0.75");
    ui::act::Ok(d);
  });
  EXPECT_EQ(host_.messages(), (Strings{"有功电能消耗量作为除数不能为零 !", kOutOfRange}));
  ExpectStored({{"Dqxtlx", "0"}, {"Ygdn", "1000"}, {"Wgdn", "882"}, {"Zrglys", "0.75"}});
}

TEST_F(WgglDialog, DescriptionPage) {
  Run([&](CWgglbcDlg& d) {
    host_.QueueDriver([&](ui::Dialog& s) {
      EXPECT_EQ(s.GetWindowText(), "说明");
      ui::Control& page = C(s, 1302);
      EXPECT_EQ(page.kind(), ui::Kind::RichText);
      EXPECT_EQ(page.GetWindowRect(), C(s, 1301).GetWindowRect());
      ASSERT_NE(page.rich(), nullptr);
      EXPECT_NE(page.rich()->PlainText().find("无功功率补偿计算说明"), std::string::npos);
      ui::act::Click(L(s, "返回"));
    });
    ui::act::Click(L(d, "?说明"));
    fs::remove(root_ / "Image/Wgglbc.RTF");
    host_.QueueDriver([&](ui::Dialog& s) {
      EXPECT_NE(C(s, 1302).rich()->PlainText().find("Wgglbc.RTF"), std::string::npos);
    });
    ui::act::Click(L(d, "?说明"));
    ui::act::Click(L(d, "帮助"));  // does nothing
    ui::act::Cancel(d);
  });
  EXPECT_TRUE(host_.messages().empty());
}

using kestra::report::testing::DocumentText;

TEST_F(WgglDialog, ReportButtonCalculatesThenWritesTheDocument) {
  Run([&](CWgglbcDlg& d) {
    Enter(d, "0.95", "0.75", "0.75", "1000");
    ui::act::Click(L(d, "  输出\n计算文件"));
    EXPECT_EQ(T(d, kQc), "412.5");  // the calculation ran first, with its message
    EXPECT_EQ(host_.wait_cursor_depth(), 0);
    // A power factor the calculation refuses: no report.
    ui::act::SetText(C(d, kCos1), "0");
    ui::act::Click(L(d, "  输出\n计算文件"));
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
  const std::string text = DocumentText(docx.string());
  EXPECT_EQ(text.rfind("无功功率补偿计算书\n计算依据\n", 0), 0u) << text;
  EXPECT_NE(text.find("\t补偿系数 qc=TANφ1-TANφ2=0.33-0.88=-0.55\n"), std::string::npos) << text;
  EXPECT_NE(text.find("=0.75*-0.55*1000.00=-412.50kVar\n计算结果\n"), std::string::npos) << text;
  EXPECT_NE(text.find("\t并联电容器数量=14"), std::string::npos) << text;
}

// Every caption fits its control and no two controls lie over each other (group boxes and
// frames excepted, which hold others), in all four dialogs of the calculator.
void CheckLayout(ui::Dialog& d) {
  SCOPED_TRACE(d.GetWindowText());
  const ui::Rect client = d.GetClientRect();
  std::vector<const ui::Control*> solid;
  for (const auto& c : d.controls()) {
    const ui::Rect r = c->GetWindowRect();
    EXPECT_TRUE(r.left >= 0 && r.top >= 0 && r.right <= client.right && r.bottom <= client.bottom)
        << c->GetWindowText() << " " << c->id();
    const ui::Kind k = c->kind();
    const int box = (k == ui::Kind::CheckBox || k == ui::Kind::Radio) ? 14 : 0;
    if (k == ui::Kind::Static || k == ui::Kind::CheckBox || k == ui::Kind::Radio || k == ui::Kind::Button ||
        k == ui::Kind::GroupBox) {
      std::istringstream lines(c->GetWindowText());
      std::string line;
      int count = 0;
      for (; std::getline(lines, line); ++count) EXPECT_LE(d.GetTextExtent(line).cx + box, r.Width()) << line;
      EXPECT_LE(count * d.GetTextExtent("国").cy, r.Height()) << c->GetWindowText();
    }
    if (k != ui::Kind::GroupBox && k != ui::Kind::Frame) solid.push_back(c.get());
  }
  for (std::size_t i = 0; i < solid.size(); ++i)
    for (std::size_t j = i + 1; j < solid.size(); ++j) {
      const ui::Rect a = solid[i]->GetWindowRect(), b = solid[j]->GetWindowRect();
      EXPECT_FALSE(a.left < b.right && b.left < a.right && a.top < b.bottom && b.top < a.bottom)
          << solid[i]->GetWindowText() << " / " << solid[j]->GetWindowText();
    }
}

TEST_F(WgglDialog, LayoutCaptionsFitAndControlsDoNotOverlap) {
  host_.SetDriver([](ui::Dialog& d) { CheckLayout(d); });
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

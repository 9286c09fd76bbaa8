// The generator-capacity dialog through the headless host.
#include <fstream>

#include "diesel/diesel_command.h"
#include "diesel/diesel_report.h"
#include "diesel_fixture.h"
#include "tests/report/zip_reader.h"

namespace {

using namespace kestra::diesel;

// The report's parameter and result paragraphs as the dialog stands.
std::string ReportBlock(const ZoUiCyfdjzrlCalDlg& dlg, std::size_t block) {
  return BuildDieselReport(dlg.Inputs(), Calculate(dlg.Inputs()), "2026-11-22").at(block).text;
}
std::string ParamsOf(const ZoUiCyfdjzrlCalDlg& dlg) { return ReportBlock(dlg, 11); }
std::string ResultsOf(const ZoUiCyfdjzrlCalDlg& dlg) { return ReportBlock(dlg, 13); }
bool Has(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }
int Count(const std::string& text, const std::string& part) {
  int n = 0;
  for (auto at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) ++n;
  return n;
}

using Strings = std::vector<std::string>;

TEST_F(DieselDialogTest, OpensOnTheSteadyLoadPageWithTheReportGreyed) {
  ZoUiCyfdjzrlCalDlg dlg(module_.context());
  Run(dlg, [&](ui::Dialog& d) {
    EXPECT_EQ(d.GetWindowText(), "柴油发电机组容量计算");
    ui::Control& tab = Ctl(d, 215);
    EXPECT_EQ(tab.items(), (Strings{"按稳定负荷计算", "按尖峰负荷计算", "按发电机母线允许压降计算"}));
    EXPECT_EQ(Shown(dlg), (std::vector<bool>{true, false, false}));
    EXPECT_EQ(Texts(d, {216, 217, 218}), (Strings{"", "0.85", "0.8"}));
    EXPECT_EQ(PageTexts(dlg.PeakLoadPage(), {216, 217}), (Strings{"0.9", "1.5"}));
    EXPECT_EQ(PageTexts(dlg.BusDropPage(), {217, 218, 219}), (Strings{"0.2", "0.2", ""}));
    EXPECT_FALSE(Ctl(d, 213).IsWindowEnabled());
    EXPECT_THROW(Press(d, "计算书"), ui::ActionError);
    EXPECT_THROW(Type(d, 219, "1"), ui::ActionError);  // the result is read-only
    Press(d, "关闭");
  });
  EXPECT_EQ(dlg.Result(), ui::IDCANCEL);
}

TEST_F(DieselDialogTest, SteadyLoadCalculationAndNumberReading) {
  ZoUiCyfdjzrlCalDlg dlg(module_.context());
  Run(dlg, [&](ui::Dialog& d) {
    Calculate(d, {});  // P∑ empty reads as 0
    EXPECT_EQ(Text(d, 219), "0.000");
    EXPECT_TRUE(Ctl(d, 213).IsWindowEnabled());
    Calculate(d, {{216, "500"}});
    EXPECT_EQ(Text(d, 219), "735.294");
    // _wtof reading: leading blanks skipped, trailing text ignored, letters only are 0.
    Calculate(d, {{216, " 1.5kW"}, {217, "1"}, {218, "1e0x"}});
    EXPECT_EQ(Text(d, 219), "1.500");
    Calculate(d, {{218, "abc"}});
    EXPECT_EQ(Text(d, 219), "0.000");
  });
  EXPECT_TRUE(module_.transcript().find("[message]") == std::string::npos) << module_.transcript();
}

TEST_F(DieselDialogTest, PeakLoadWithoutSmUsesPmQmAndWritesSmBack) {
  ZoUiCyfdjzrlCalDlg dlg(module_.context());
  Run(dlg, [&](ui::Dialog& d) {
    ui::act::Tab(d, 1);
    Calculate(d, {{219, "300"}, {220, "400"}});
    EXPECT_EQ(Texts(d, {218, 221}), (Strings{"500.00", "300.000"}));
    // The page keeps Sm = 0 until the next calculation: the report says so.
    EXPECT_EQ(dlg.PeakLoadPage().Inputs().sm, 0.0);
    EXPECT_TRUE(Has(ParamsOf(dlg), "S<L>m</L>= 0.000（kVA）"));
    EXPECT_TRUE(Has(ResultsOf(dlg), "√(P<L>2m</L>+Q<L>2m</L>)=300.000\n"));
    // The second "计算" reads the written 500 and gives the same capacity.
    Calculate(d, {});
    EXPECT_EQ(Texts(d, {218, 221}), (Strings{"500.00", "300.000"}));
    EXPECT_EQ(dlg.PeakLoadPage().Inputs().sm, 500.0);
    EXPECT_TRUE(Has(ParamsOf(dlg), "S<L>m</L>= 500.000（kVA）"));
  });
}

TEST_F(DieselDialogTest, PeakLoadSmRulesForEmptyAndBlankTexts) {
  ZoUiCyfdjzrlCalDlg dlg(module_.context());
  Run(dlg, [&](ui::Dialog& d) {
    ui::act::Tab(d, 1);
    Calculate(d, {});  // Sm, Pm and Qm all empty: 0 and nothing written back
    EXPECT_EQ(Texts(d, {218, 221}), (Strings{"", "0.000"}));
    Calculate(d, {{219, "300"}});  // only Pm given: still written back
    EXPECT_EQ(Texts(d, {218, 221}), (Strings{"300.00", "180.000"}));
    Calculate(d, {{218, " "}, {220, "400"}});  // a single blank is a given Sm of 0: nothing written
    EXPECT_EQ(Texts(d, {218, 221}), (Strings{" ", "0.000"}));
    Calculate(d, {{218, "600"}});  // Sm given: Kj/KG·Sm
    EXPECT_EQ(Texts(d, {218, 221}), (Strings{"600", "360.000"}));
  });
}

TEST_F(DieselDialogTest, BusDropPageAndTabSwitchingKeepEverything) {
  ZoUiCyfdjzrlCalDlg dlg(module_.context());
  Run(dlg, [&](ui::Dialog& d) {
    Calculate(d, {{216, "500"}});
    ui::act::Tab(d, 2);
    EXPECT_EQ(dlg.CurrentPage(), 2);
    EXPECT_EQ(Shown(dlg), (std::vector<bool>{false, false, true}));
    Calculate(d, {{219, "1000"}});
    EXPECT_EQ(Text(d, 216), "800.000");  // 216 is this page's result
    Calculate(d, {{217, "1"}});
    EXPECT_EQ(Text(d, 216), "0.000");
    ui::act::Tab(d, 1);
    Type(d, 218, "600");
    ui::act::Tab(d, 0);  // back without calculating the peak load
    EXPECT_EQ(Texts(d, {216, 219}), (Strings{"500", "735.294"}));
    ui::act::Tab(d, 2);
    EXPECT_EQ(Texts(d, {217, 219, 216}), (Strings{"1", "1000", "0.000"}));
    ui::act::Tab(d, 1);
    EXPECT_EQ(Texts(d, {218, 221}), (Strings{"600", ""}));
    Press(d, "计算");  // computes the shown page only
    EXPECT_EQ(Text(d, 221), "360.000");
    EXPECT_EQ(dlg.SteadyLoadPage().GetDlgItemText(219), "735.294");
  });
}

TEST_F(DieselDialogTest, ReportShowsEachPagesLastCalculation) {
  ZoUiCyfdjzrlCalDlg dlg(module_.context());
  Run(dlg, [&](ui::Dialog& d) {
    Calculate(d, {{216, "500"}});
    Type(d, 216, "900");  // edited after the calculation
    ui::act::Tab(d, 2);
    Type(d, 219, "1000");  // never calculated
    Press(d, "计算书");
  });
  // The steady load as calculated (500 kW, not 900); the pages never calculated with every
  // value 0: 8 parameters and 2 results.
  const std::string params = ParamsOf(dlg), results = ResultsOf(dlg);
  EXPECT_TRUE(Has(params, "P<L>∑</L>=500.000（kW）；") && Has(results, "=735.294\n2）")) << params << results;
  EXPECT_EQ(Count(params, "=0.000") + Count(params, "= 0.000"), 8) << params;
  EXPECT_EQ(Count(results, "=0.000\n"), 2) << results;
  EXPECT_TRUE(host_.messages().empty());
}

// The transcript and the report's place: the script end-to-end test; here the document.
TEST_F(DieselDialogTest, CommandRunsTheDialogWritesTheReportAndLeavesNothingOpen) {
  host_.SetDriver([&](ui::Dialog& d) {
    Calculate(d, {{216, "500"}});
    Press(d, "计算书");
    EXPECT_EQ(host_.wait_cursor_depth(), 0);
    Press(d, "关闭");
  });
  RunDieselCommand(module_.context());
  EXPECT_TRUE(host_.open_dialogs().empty());
  EXPECT_TRUE(host_.messages().empty());
  const std::string text = kestra::report::testing::DocumentText(std::filesystem::directory_iterator(report_dir_)->path());
  EXPECT_NE(text.find("=735.294\n2）\t按尖峰负荷计算发电机容量"), std::string::npos) << text;
  EXPECT_NE(text.find("按发电机母线允许压降计算发电机容量"), std::string::npos) << text;
}

TEST_F(DieselDialogTest, ReportThatCannotBeCreatedSaysSoAndTheDialogGoesOn) {
  // The report folder is a file: no document can be created there.
  std::filesystem::create_directories(report_dir_.parent_path());
  { std::ofstream(report_dir_) << "not a folder"; }
  ZoUiCyfdjzrlCalDlg dlg(module_.context());
  Run(dlg, [&](ui::Dialog& d) {
    Calculate(d, {{216, "500"}});
    Press(d, "计算书");
    Calculate(d, {{216, "1000"}});
    EXPECT_EQ(Text(d, 219), "1470.588");
  });
  EXPECT_EQ(host_.messages(), (Strings{"创建Word实例失败!"}));
  EXPECT_NE(module_.transcript().find("[message] OrvelKestra: 创建Word实例失败!\n"), std::string::npos);
  EXPECT_EQ(module_.transcript().find("[report]"), std::string::npos);
}

}  // namespace

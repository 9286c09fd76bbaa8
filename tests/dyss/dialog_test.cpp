// The voltage-loss page as a designer uses it: the forms chosen by line kind and load situation,
// the line catalogue lists, the checks, the spin, the hand-over between forms, the C pick dialog
// and what "确定" and "取消" leave in the parameter file.
#include <sqlite3.h>

#include <fstream>

#include "dyss/dyss_ids.h"
#include "services/idp/idp_table.h"
#include "tests/dyss/dialog_support.h"

namespace kestra::dyss::testing {
namespace {

const char* const kCosClosed = "'功率因数'输入非法, 请输入[0, 1]之间实数!";

std::string FileBytes(const fs::path& p) {
  std::ifstream in(p, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(in), {});
}

TEST_F(DyssDialogTest, FirstStartAndTheWorkedValuesOfEveryKind) {
  Run([&](CDyssCalDlg& d) {
    EXPECT_EQ(d.GetWindowText(), "电压损失计算");
    EXPECT_EQ(d.active_page(), 0);
    EXPECT_EQ(T(d, IDC_DYSS_KIND), "三相平衡负荷线路");
    EXPECT_EQ(T(d, IDC_DYSS_CASE), "终端负荷用电流矩(A.km)");
    EXPECT_EQ(C(d, IDC_DYSS_F0_LINE).items(), (Texts{"示例电缆", "三列", "无索引", "空表", "两列"}));
    EXPECT_EQ(C(d, 101).items(), (Texts{"95", "120", "150"}));
    EXPECT_EQ((Texts{T(d, 101), T(d, IDC_DYSS_F0_I), T(d, IDC_DYSS_F0_L), T(d, IDC_DYSS_F0_COS)}),
              (Texts{"95", "1", "1", "0.8"}));
    EXPECT_EQ(T(d, IDC_DYSS_F0_LINE_DATA), "电阻(Ω/km):0.193  感抗(Ω/km):0.08  电压(kV):0.38");

    // Form 4 with its defaults: C·S = 7.66·120 = 919.2. Kinds 0 and 1 take six loads:
    // ΣP·l = 6000, 6000/919.2 = 6.5274; kinds 2 and 3 take P1·l1 only: 1000/919.2 = 1.0879.
    Select(d, IDC_DYSS_CASE, 4);
    Press(d, "计算");
    EXPECT_EQ(T(d, IDC_DYSS_RESULT), "6.527");
    Select(d, IDC_DYSS_KIND, 2);
    EXPECT_EQ(T(d, IDC_DYSS_CASE), "终端负荷用电流矩(A.km)");
    Select(d, IDC_DYSS_CASE, 2);
    for (std::size_t k = 1; k < 6; ++k)
      EXPECT_FALSE(C(d, kF4Loads[k]).IsWindowEnabled() || C(d, kF4Lengths[k]).IsWindowEnabled()) << k;
    EXPECT_TRUE(C(d, IDC_DYSS_F4_P1).IsWindowEnabled() && C(d, IDC_DYSS_F4_L1).IsWindowEnabled());
    Press(d, "计算");
    EXPECT_EQ(T(d, IDC_DYSS_RESULT), "1.088");
    Select(d, IDC_DYSS_KIND, 0);
    Select(d, IDC_DYSS_CASE, 4);
    EXPECT_TRUE(C(d, IDC_DYSS_F4_P6).IsWindowEnabled() && C(d, IDC_DYSS_F4_L6).IsWindowEnabled());

    // Form 0, I 100 A, l 0.5 km on the line R′ 0.193, X′ 0.08, U 0.38 with cosφ 0.8:
    // A = 0.193·0.8 + 0.08·0.6 = 0.2024, A·I·l = 10.12.
    Select(d, IDC_DYSS_CASE, 0);
    Set(d, {{IDC_DYSS_F0_I, "100"}, {IDC_DYSS_F0_L, "0.5"}});
    const std::pair<int, const char*> kinds[] = {
        {0, "4.613"},  // 10.12·1.732 / 3.8
        {1, "5.326"},  // 10.12·2 / 3.8
        {2, "6.919"},  // 10.12·2.598 / 3.8
        {3, "9.225"},  // 10.12·2 / (3.8/1.732)
    };
    for (const auto& [kind, want] : kinds) {
      Select(d, IDC_DYSS_KIND, kind);
      EXPECT_EQ(T(d, IDC_DYSS_RESULT), "");
      Press(d, "计算");
      EXPECT_EQ(T(d, IDC_DYSS_RESULT), want) << kind;
    }
  });
  EXPECT_TRUE(host_.messages().empty());
}

TEST_F(DyssDialogTest, ChecksRefuseInOrderWithTheirMessagesAndTheShownResultStays) {
  Run([&](CDyssCalDlg& d) {
    Set(d, {{IDC_DYSS_F0_I, "100"}, {IDC_DYSS_F0_L, "0.5"}});
    Press(d, "计算");
    ASSERT_EQ(T(d, IDC_DYSS_RESULT), "4.613");
    // cosφ 0 lies in [0, 1], but its "%.3f" text is not positive; it is checked before I and l.
    Set(d, {{IDC_DYSS_F0_COS, "0"}, {IDC_DYSS_F0_I, ""}, {IDC_DYSS_F0_L, "-1"}});
    Press(d, "计算");
    Set(d, {{IDC_DYSS_F0_COS, "0.8"}});
    Press(d, "计算");
    Set(d, {{IDC_DYSS_F0_I, "100"}});
    Press(d, "计算");
    EXPECT_EQ(T(d, IDC_DYSS_RESULT), "4.613");
    // A cosφ that is not a number: the framework refuses it, and the calculation goes on with
    // the values read before (cosφ 0.8, and I 100, exchanged after cosφ, not the 200 typed).
    Set(d, {{IDC_DYSS_F0_L, "0.5"}});
    Press(d, "计算");
    Set(d, {{IDC_DYSS_F0_COS, "abc"}, {IDC_DYSS_F0_I, "200"}});
    Press(d, "计算");
    EXPECT_EQ(T(d, IDC_DYSS_RESULT), "4.613");

    // Form 1: a load 2 to 6 may be empty, not negative. I1 100 l1 0.5, I3 50 l3 0.2:
    // ΣA·I·l = 0.2024·60 = 12.144; 12.144·1.732/3.8 = 5.5351.
    Select(d, IDC_DYSS_CASE, 1);
    Set(d, {{IDC_DYSS_F1_COS, "0.8"}, {IDC_DYSS_F1_I2, "-5"}});
    Press(d, "计算");
    for (std::size_t k = 1; k < 6; ++k) Set(d, {{kF1Currents[k], ""}, {kF1Lengths[k], ""}});
    Set(d, {{IDC_DYSS_F1_I1, "100"}, {IDC_DYSS_F1_L1, "0.5"}, {IDC_DYSS_F1_I3, "50"}, {IDC_DYSS_F1_L3, "0.2"}});
    Press(d, "计算");
    EXPECT_EQ(T(d, IDC_DYSS_RESULT), "5.535");

    // Form 2 takes cosφ in (0, 1]; cosφ 1 gives sinφ 0 and B = R′: 0.193·100·0.5/1.444 = 6.6828.
    Select(d, IDC_DYSS_CASE, 2);
    Set(d, {{IDC_DYSS_F2_P, "100"}, {IDC_DYSS_F2_L, "0.5"}, {IDC_DYSS_F2_COS, "0"}});
    Press(d, "计算");
    Set(d, {{IDC_DYSS_F2_COS, "1"}});
    Press(d, "计算");
    EXPECT_EQ(T(d, IDC_DYSS_RESULT), "6.683");
  });
  EXPECT_EQ(host_.messages(), (Texts{kCosClosed, "'负荷计算电流'输入非法, 请输入大于0的实数!",
                                     "'线路长度'输入非法, 请输入大于0的实数!", "请输入一个数字。",
                                     "请输入一个数字。",  // again as form 0 is left: its controls are read
                                     "'负荷计算电流2'输入非法, 请输入大于0的实数!",
                                     "'功率因数'输入非法, 请输入(0, 1]之间实数!"}));
  // The checks' caption is the application's title.
  EXPECT_NE(Transcript().find("[message] OrvelKestra: '负荷计算电流2'输入非法"), std::string::npos);
}

TEST_F(DyssDialogTest, PowerFactorSpinStepsAndLimits) {
  Run([&](CDyssCalDlg& d) {
    const std::pair<const char*, const char*> ups[] = {{"0.98", "1"}, {"0.8", "0.85"}, {"1.2", "0.05"}, {"0.8x", "0.05"}};
    for (const auto& [from, want] : ups) {
      Set(d, {{IDC_DYSS_F0_COS, from}});
      ui::act::Spin(C(d, IDC_DYSS_F0_COS_SPIN), true);
      EXPECT_EQ(T(d, IDC_DYSS_F0_COS), want) << from;
    }
    Set(d, {{IDC_DYSS_F0_COS, "0.02"}});
    ui::act::Spin(C(d, IDC_DYSS_F0_COS_SPIN), false);
    EXPECT_EQ(T(d, IDC_DYSS_F0_COS), "0");
  });
  // Only 1.2 is refused: a text that is not digits and points becomes 0 first.
  EXPECT_EQ(host_.messages(), Texts{"请输入0 ～ 1之间的实数!"});
  EXPECT_NE(Transcript().find("[message] 电压损失计算: 请输入0 ～ 1之间的实数!"), std::string::npos);
}

TEST_F(DyssDialogTest, FormsHandTheirValuesOverThroughTheWorkingValues) {
  Run([&](CDyssCalDlg& d) {
    Set(d, {{IDC_DYSS_F0_I, "25"}, {IDC_DYSS_F0_L, "0.3"}, {IDC_DYSS_F0_COS, "0.85"}});
    Press(d, "计算");
    Select(d, IDC_DYSS_CASE, 1);
    // I1, l1 from form 0 in "%.3f"; I2 from what form 1 read at its start ("1").
    EXPECT_EQ((Texts{T(d, IDC_DYSS_F1_I1), T(d, IDC_DYSS_F1_L1), T(d, IDC_DYSS_F1_COS), T(d, IDC_DYSS_F1_I2),
                     T(d, IDC_DYSS_RESULT)}),
              (Texts{"25.000", "0.300", "0.85", "1.000", ""}));
    Select(d, IDC_DYSS_CASE, 0);
    Set(d, {{IDC_DYSS_F0_I, "25"}});
    Press(d, "计算");
    // Another kind keeps form 0 but stores and loads it.
    Select(d, IDC_DYSS_KIND, 1);
    EXPECT_EQ((Texts{T(d, IDC_DYSS_F0_I), T(d, IDC_DYSS_RESULT)}), (Texts{"25.000", ""}));
    // From form 3 to kind 2: item 0, form 0 shown and form 3 hidden.
    Select(d, IDC_DYSS_CASE, 3);
    Select(d, IDC_DYSS_KIND, 2);
    EXPECT_TRUE(d.loss_page().Form(0).IsWindowVisible());
    EXPECT_FALSE(d.loss_page().Form(3).IsWindowVisible() || d.loss_page().Form(3).IsWindowEnabled());
  });
}

TEST_F(DyssDialogTest, OkStoresTheChosenFormAndCancelWritesNothing) {
  Store({{"Cal\\DyssCal\\Page1\\Input2\\输入参数\\负荷计算电流3", "77"}});
  Run([&](CDyssCalDlg& d) {
    Select(d, IDC_DYSS_CASE, 2);
    Set(d, {{IDC_DYSS_F2_P, "250"}, {IDC_DYSS_F2_L, "0.4"}, {IDC_DYSS_F2_COS, "0.9"}});
    Press(d, "计算");
    ui::act::Ok(d);
  });
  const std::string in3 = "Cal\\DyssCal\\Page1\\Input3\\";
  const std::pair<std::string, const char*> stored[] = {
      {"Cal\\DyssCal\\当前页", "0"},
      {"Cal\\DyssCal\\Page1\\线路种类", "0"},
      {"Cal\\DyssCal\\Page1\\负荷情况", "2"},
      {in3 + "输入参数\\线路名称", "0"},
      {in3 + "输入参数\\索引1", "0"},
      {in3 + "输入参数\\索引2", "<missing>"},  // the line has one index list
      {in3 + "输入参数\\说明", "电阻(Ω/km):0.193  感抗(Ω/km):0.08  电压(kV):0.38"},
      {in3 + "输入参数\\功率因数", "0.900"},
      {in3 + "输入参数\\有功负荷", "250"},
      {in3 + "输入参数\\线路长度", "0.4"},
      // sinφ = √0.19 = 0.43589, B = 0.193 + 0.08·0.43589/0.9 = 0.231746; 0.231746·250·0.4/1.444 = 16.0489
      {in3 + "计算结果", "16.049"},
      {"Cal\\DyssCal\\Page1\\Input2\\输入参数\\负荷计算电流3", "77"},  // another form: as the file held it
      {"Cal\\DyssCal\\Page1\\Input4\\输入参数\\有功负荷1", "<missing>"},
  };
  for (const auto& [key, want] : stored) EXPECT_EQ(Stored(key), want) << key;

  // Changes, then "取消": the file stays as it was, byte for byte.
  const std::string before = FileBytes(ParamFile());
  Run([&](CDyssCalDlg& d) {
    Select(d, IDC_DYSS_KIND, 3);
    Set(d, {{IDC_DYSS_F0_I, "5"}});
    ui::act::Tab(d, 1);
    ui::act::Cancel(d);
  });
  EXPECT_EQ(FileBytes(ParamFile()), before);

  Store({{"Cal\\DyssCal\\当前页", "1"}});
  Run([&](CDyssCalDlg& d) { EXPECT_EQ(d.active_page(), 1); });
}

TEST_F(DyssDialogTest, LineCatalogueListsQueriesAndLineData) {
  // A stored second index 3 opens with the fourth entry of the second list under the first.
  Store({{"Cal\\DyssCal\\Page1\\Input1\\输入参数\\线路名称", "1"},
         {"Cal\\DyssCal\\Page1\\Input1\\输入参数\\索引2", "3"}});
  Texts queries;
  Run([&](CDyssCalDlg& d) {
    d.line_catalogue()->SetQueryObserver([&](const std::string& q) { queries.push_back(q); });
    EXPECT_EQ(C(d, 101).items(), (Texts{"1", "2"}));
    EXPECT_EQ(C(d, 102).items(), (Texts{"10", "20", "30", "40", "50"}));
    EXPECT_EQ(C(d, 103).items(), (Texts{"土壤", "空气"}));
    EXPECT_EQ((Texts{T(d, 101), T(d, 102), T(d, 103)}), (Texts{"1", "40", "土壤"}));
    EXPECT_EQ(T(d, IDC_DYSS_F0_LINE_DATA), "电阻(Ω/km):0.46  感抗(Ω/km):0.081  电压(kV):0.4");
    const ShownLine shown = d.loss_page().Form(0).line()->Shown();
    EXPECT_EQ(shown.indexes.size(), 3u);
    EXPECT_EQ(shown.indexes[1], (std::pair<std::string, std::string>{"截面:", "40"}));

    // A new first index: the second list under it keeps "40".
    Select(d, 101, 1);
    EXPECT_EQ(C(d, 102).items(), (Texts{"10", "40", "60"}));
    EXPECT_EQ(T(d, 102), "40");
    EXPECT_EQ(T(d, IDC_DYSS_F0_LINE_DATA), "电阻(Ω/km):0.47  感抗(Ω/km):0.082  电压(kV):0.4");
    EXPECT_EQ(queries, (Texts{"SELECT DISTINCT [￥截面] FROM [三列] WHERE ￥芯数 LIKE \"2\"",
                              "SELECT [R] FROM 三列 WHERE ￥芯数 Like \"2\" AND ￥截面 Like \"40\" AND ￥敷设 Like \"土壤\"",
                              "SELECT [X] FROM 三列 WHERE ￥芯数 Like \"2\" AND ￥截面 Like \"40\" AND ￥敷设 Like \"土壤\"",
                              "SELECT [U] FROM 三列 WHERE ￥芯数 Like \"2\" AND ￥截面 Like \"40\" AND ￥敷设 Like \"土壤\""}));

    // A table without key columns: no index lists, the line data of its last row.
    queries.clear();
    Press(d, "计算");
    Select(d, IDC_DYSS_F0_LINE, 2);
    EXPECT_EQ(ui::FindControl(d, 101), nullptr);
    EXPECT_EQ(T(d, IDC_DYSS_RESULT), "");
    EXPECT_EQ(queries, (Texts{"SELECT [R] FROM 无索引", "SELECT [X] FROM 无索引", "SELECT [U] FROM 无索引"}));
    EXPECT_EQ(T(d, IDC_DYSS_F0_LINE_DATA), "电阻(Ω/km):0.6  感抗(Ω/km):0.09  电压(kV):0.4");

    // Two key columns: the second list under the first; "LGJ" sorts before "LJ", 16 before 25.
    queries.clear();
    Select(d, IDC_DYSS_F0_LINE, 4);
    EXPECT_EQ((Texts{T(d, 101), T(d, 102)}), (Texts{"LGJ", "35/6"}));
    Select(d, 101, 1);
    EXPECT_EQ(C(d, 102).items(), (Texts{"16", "25"}));
    EXPECT_EQ(ui::FindControl(d, 103), nullptr);
    EXPECT_EQ(queries.back(), "SELECT [U] FROM 两列 WHERE ￥型号 Like \"LJ\" AND ￥截面 Like \"16\"");
    EXPECT_EQ(T(d, IDC_DYSS_F0_LINE_DATA), "电阻(Ω/km):2  感抗(Ω/km):0.358  电压(kV):0.38");

    // One key column: its values, then the row of the first one.
    queries.clear();
    Select(d, IDC_DYSS_F0_LINE, 0);
    EXPECT_EQ(queries, (Texts{"SELECT DISTINCT [￥截面] FROM [示例电缆]", "SELECT [R] FROM 示例电缆 WHERE ￥截面 Like \"95\"",
                              "SELECT [X] FROM 示例电缆 WHERE ￥截面 Like \"95\"",
                              "SELECT [U] FROM 示例电缆 WHERE ￥截面 Like \"95\""}));
    EXPECT_EQ(ui::FindControl(d, 102), nullptr);
  });

  // A line table without rows has no line data: the result says so instead of a number.
  Store({{"Cal\\DyssCal\\Page1\\Input1\\输入参数\\线路名称", "3"}});
  Run([&](CDyssCalDlg& d) {
    EXPECT_EQ(C(d, 101).items(), Texts{});
    EXPECT_EQ(T(d, IDC_DYSS_F0_LINE_DATA), "电阻(Ω/km):  感抗(Ω/km):  电压(kV):");
    Press(d, "计算");
    EXPECT_EQ(T(d, IDC_DYSS_RESULT), "无线路数据");
  });

  // A damaged catalogue: cells that hold no number show as damaged (and read as 0), in the line
  // data, the stored line data and the report; never as the "nan" or "inf" they hold.
  sqlite3* db = nullptr;
  ASSERT_EQ(sqlite3_open((root_ / "datcom/DyssCal.Mdb").c_str(), &db), SQLITE_OK);
  EXPECT_EQ(sqlite3_exec(db, "UPDATE 示例电缆 SET R = 'nan', X = '-inf' WHERE ￥截面 = '95'", nullptr, nullptr, nullptr), SQLITE_OK);
  sqlite3_close(db);
  Store({{"Cal\\DyssCal\\Page1\\Input1\\输入参数\\线路名称", "0"}});
  Run([&](CDyssCalDlg& d) {
    EXPECT_EQ(T(d, IDC_DYSS_F0_LINE_DATA), "电阻(Ω/km):无效  感抗(Ω/km):无效  电压(kV):0.38");
    Press(d, "计算");
    EXPECT_EQ(T(d, IDC_DYSS_RESULT), "0.000");
    Press(d, "计算书");
    ui::act::Ok(d);
  });
  EXPECT_EQ(Stored("Cal\\DyssCal\\Page1\\Input1\\输入参数\\说明"), "电阻(Ω/km):无效  感抗(Ω/km):无效  电压(kV):0.38");
  const Texts report = ReportParagraphs(LastReport());
  ASSERT_FALSE(report.empty());
  for (const std::string& line : report) {
    EXPECT_EQ(line.find("nan"), std::string::npos) << line;
    EXPECT_EQ(line.find("inf"), std::string::npos) << line;
  }
}

TEST_F(DyssDialogTest, CoefficientPickedFromTheTable) {
  CInterDpData tables;
  ASSERT_TRUE(idp::WriteTable(tables, "jsxsc", {"C", {"线路系统及电压", "铜芯C"}, {{"三相四线 380/220V", "4.45"}}, ""}));
  tables.WriteDataToIdpFile((root_ / "datcom/tabdata.idp").string());
  auto pick = [&](int row, int column, bool ok) {
    host_.QueueDriver([=](ui::Dialog& q) {
      ui::act::PickCell(C(q, IDC_DYSS_QUERY_FRAME), row, column);
      if (ok) ui::act::Ok(q);
      else ui::act::Cancel(q);
    });
  };
  Run([&](CDyssCalDlg& d) {
    Select(d, IDC_DYSS_CASE, 4);
    pick(0, 1, false);
    Press(d, "<");
    EXPECT_EQ(T(d, IDC_DYSS_F4_C), "7.66");
    pick(0, 0, true);  // a name is no coefficient
    Press(d, "<");
    EXPECT_EQ(T(d, IDC_DYSS_F4_C), "7.66");
    Set(d, {{IDC_DYSS_F4_P1, "500"}});
    pick(0, 1, true);
    Press(d, "<");
    // What was typed before the pick stays. C·S = 4.45·120 = 534; ΣP·l = 500 + 5·1000 = 5500.
    EXPECT_EQ((Texts{T(d, IDC_DYSS_F4_C), T(d, IDC_DYSS_F4_P1)}), (Texts{"4.45", "500"}));
    Press(d, "计算");
    EXPECT_EQ(T(d, IDC_DYSS_RESULT), "10.300");  // 5500/534 = 10.2996
  });
  EXPECT_NE(Transcript().find("[dialog] 线路电压损失的计算系数C值(cosφ=1)\n"), std::string::npos);
}

TEST_F(DyssDialogTest, WithoutItsCatalogueTheDialogIsNotShownAndNothingIsWritten) {
  fs::remove(root_ / "datcom/DyssCal.Mdb");
  bool shown = false;
  Run([&](CDyssCalDlg&) { shown = true; });
  EXPECT_FALSE(shown);
  ASSERT_EQ(host_.messages().size(), 1u);
  EXPECT_NE(host_.messages()[0].find("DyssCal.Mdb"), std::string::npos) << host_.messages()[0];
  EXPECT_EQ(Transcript().find("[dialog]"), std::string::npos);
  EXPECT_FALSE(fs::exists(ParamFile()));
}

}  // namespace
}  // namespace kestra::dyss::testing

// The line-length page as a designer uses it: the permissible length of each kind and form, its
// checks, the third-harmonic section current with the rated-ampacity check, the fields normalised
// when they lose the focus, and the harmonic settings the file keeps whatever the dialog's end.
#include <gmock/gmock.h>

#include "dyss/dyss_ids.h"
#include "tests/dyss/dialog_support.h"

namespace kestra::dyss::testing {
namespace {

const int kHarmonicControls[] = {IDC_DYSS_HARM_LIST, IDC_DYSS_I_PRIME, IDC_DYSS_RATED, IDC_DYSS_L_PRIME};

class DyssLengthTest : public DyssDialogTest {
 protected:
  static bool HarmonicEnabled(ui::Dialog& d) {
    int on = 0;
    for (int id : kHarmonicControls) on += C(d, id).IsWindowEnabled() ? 1 : 0;
    return on == 4 ? true : on == 0 ? false : throw std::runtime_error("harmonic controls half enabled");
  }
  // The line of the length examples (R′ 0.5, X′ 0.08, Un 0.38), I 100 A (the focus then leaves
  // the edit, as the designer moves on), Δu 5 %.
  static void ExampleLine(ui::Dialog& d) {
    Select(d, 113, 2);
    Set(d, {{IDC_DYSS_LF0_I, "100"}, {IDC_DYSS_REQUIRE, "5"}});
    ui::act::Leave(C(d, IDC_DYSS_LF0_I));
  }
  static Texts Harmonic(ui::Dialog& d) { return {T(d, IDC_DYSS_K), T(d, IDC_DYSS_I_PRIME)}; }
};

TEST_F(DyssLengthTest, FirstStartAndTheWorkedLengthOfEveryKind) {
  Run([&](CDyssCalDlg& d) {
    ui::act::Tab(d, 1);
    EXPECT_EQ((Texts{T(d, IDC_DYSS_LEN_KIND), T(d, IDC_DYSS_LEN_CASE), T(d, IDC_DYSS_LF0_I), T(d, IDC_DYSS_LF0_COS),
                     T(d, IDC_DYSS_REQUIRE), T(d, IDC_DYSS_HARM_LIST), T(d, IDC_DYSS_K), T(d, IDC_DYSS_I_PRIME),
                     T(d, IDC_DYSS_RATED), T(d, IDC_DYSS_L_PRIME)}),
              (Texts{"三相平衡线路", "终端负荷用电流矩(A.km)", "1", "0.8", "0.2", "20%三次谐波", "0.86", "1.0", "1.0", ""}));
    EXPECT_EQ(C(d, IDC_DYSS_HARM_CHECK).GetCheck(), 1);
    EXPECT_TRUE(HarmonicEnabled(d));
    ExampleLine(d);
    ui::act::Click(C(d, IDC_DYSS_HARM_CHECK));
    EXPECT_FALSE(HarmonicEnabled(d));
    // 10·Un·Δu = 19; R′cosφ + X′sinφ = 0.5·0.8 + 0.08·0.6 = 0.448.
    const std::pair<int, const char*> kinds[] = {
        {0, "0.245"},  // 19 / (100·1.732·0.448)
        {1, "0.212"},  // 19 / (100·2·0.448)
        {2, "0.163"},  // 19 / (100·1.5·1.732·0.448)
        {3, "0.122"},  // 5·10·(0.38/1.732) / (100·2·0.448)
    };
    for (const auto& [kind, want] : kinds) {
      Select(d, IDC_DYSS_LEN_KIND, kind);
      Press(d, "计算");
      EXPECT_EQ(T(d, IDC_DYSS_LEN_RESULT), want) << kind;
    }
    // Kinds 1 to 3 keep the harmonic controls off whatever the check box says.
    ui::act::Click(C(d, IDC_DYSS_HARM_CHECK));
    EXPECT_FALSE(HarmonicEnabled(d));
    Select(d, IDC_DYSS_LEN_KIND, 0);
    EXPECT_TRUE(HarmonicEnabled(d));
    ui::act::Click(C(d, IDC_DYSS_HARM_CHECK));
    // Form 1 takes the line of form 0; P 100: 5·10·0.38·0.38 / ((0.5 + 0.08·0.75)·100) = 0.12893.
    Select(d, IDC_DYSS_LEN_CASE, 1);
    EXPECT_EQ(T(d, IDC_DYSS_LF1_LINE_DATA), "电阻(Ω/km):0.5  感抗(Ω/km):0.08  电压(kV):0.38");
    Set(d, {{IDC_DYSS_LF1_P, "100"}});
    Press(d, "计算");
    EXPECT_EQ(T(d, IDC_DYSS_LEN_RESULT), "0.129");
  });
  EXPECT_TRUE(host_.messages().empty());
}

TEST_F(DyssLengthTest, ChecksOfTheLoadThePowerFactorAndTheRequiredLoss) {
  Run([&](CDyssCalDlg& d) {
    ui::act::Tab(d, 1);
    ExampleLine(d);
    ui::act::Click(C(d, IDC_DYSS_HARM_CHECK));
    // cosφ is used as its "%.3f" text: 0.8004 gives the length of 0.8.
    Set(d, {{IDC_DYSS_LF0_COS, "0.8004"}});
    Press(d, "计算");
    EXPECT_EQ(T(d, IDC_DYSS_LEN_RESULT), "0.245");
    for (const char* cos : {"0.0004", "1.2"}) {
      Set(d, {{IDC_DYSS_LF0_COS, cos}, {IDC_DYSS_REQUIRE, "4"}});
      Press(d, "计算");
    }
    Set(d, {{IDC_DYSS_LF0_COS, "0.8"}});
    for (const char* i : {"", "1a"}) {
      Set(d, {{IDC_DYSS_LF0_I, i}});
      Press(d, "计算");
    }
    Set(d, {{IDC_DYSS_LF0_I, "100"}, {IDC_DYSS_REQUIRE, ""}});
    Press(d, "计算");
    EXPECT_EQ(T(d, IDC_DYSS_LEN_RESULT), "0.245");  // a stopped calculation changes nothing shown
    Select(d, IDC_DYSS_LEN_CASE, 1);
    Set(d, {{IDC_DYSS_LF1_P, ""}, {IDC_DYSS_REQUIRE, "5"}});
    Press(d, "计算");
  });
  const char* const cos = "'功率因数'输入非法, 请输入[0, 1]之间的实数!";
  const char* const current = "'负荷计算电流'输入非法, 请输入大于0的实数!";
  EXPECT_EQ(host_.messages(), (Texts{cos, cos, current, current, "'线路电压损失'输入非法, 请输入大于0的实数!",
                                     "'有功负荷'输入非法, 请输入大于0的实数!"}));
  EXPECT_NE(Transcript().find("[message] OrvelKestra: " + std::string(cos)), std::string::npos);
}

TEST_F(DyssLengthTest, ThirdHarmonicSectionCurrentAndTheRatedAmpacity) {
  Run([&](CDyssCalDlg& d) {
    ui::act::Tab(d, 1);
    ExampleLine(d);
    // I′ for I = 100 A: 20 %: √(100² + 20²)/0.86 = 118.5819; 40 %: 100·0.4·3/0.86 = 139.5349;
    // 50 %: 100·0.5·3/1.0 = 150 ("%g"); none: I ("%g").
    const std::pair<int, Texts> harmonics[] = {
        {1, {"0.86", "118.582"}}, {3, {"1.0", "150"}}, {0, {"1.0", "100"}}, {2, {"0.86", "139.535"}}};
    for (const auto& [position, want] : harmonics) {
      Select(d, IDC_DYSS_HARM_LIST, position);
      EXPECT_EQ(Harmonic(d), want) << position;
    }
    // A rated ampacity equal to I′ passes: L′ = 19 / (139.535·1.732·0.448) = 0.17548.
    Set(d, {{IDC_DYSS_RATED, "139.535"}});
    Press(d, "计算");
    EXPECT_EQ((Texts{T(d, IDC_DYSS_LEN_RESULT), T(d, IDC_DYSS_L_PRIME)}), (Texts{"0.245", "0.175"}));
    // Just below: refused; the shown length and L′ stay. The length for Δu 4 was computed before
    // the refusal, so the report prints it (19·4/5 / (100·1.732·0.448) = 0.19589) beside the
    // L′ shown.
    Set(d, {{IDC_DYSS_RATED, "139.53"}, {IDC_DYSS_REQUIRE, "4"}});
    Press(d, "计算");
    Press(d, "计算书");
    EXPECT_EQ((Texts{T(d, IDC_DYSS_LEN_RESULT), T(d, IDC_DYSS_L_PRIME)}), (Texts{"0.245", "0.175"}));
    const Texts report = ReportParagraphs(LastReport());
    EXPECT_THAT(report, ::testing::Contains("\t最大允许线路长度l(km)=0.196"));
    EXPECT_EQ(report.back(), "\t=0.175(km)");

    // Focus loss: I and I′ negative or empty become 1, the rated ampacity 0 when empty; "%g".
    Set(d, {{IDC_DYSS_LF0_I, "-3"}});
    ui::act::Leave(C(d, IDC_DYSS_LF0_I));
    EXPECT_EQ((Texts{T(d, IDC_DYSS_LF0_I), T(d, IDC_DYSS_I_PRIME)}), (Texts{"1", "1.395"}));  // 1·0.4·3/0.86
    Set(d, {{IDC_DYSS_LF0_I, "25.50"}});
    ui::act::Leave(C(d, IDC_DYSS_LF0_I));
    EXPECT_EQ(T(d, IDC_DYSS_LF0_I), "25.5");
    Set(d, {{IDC_DYSS_I_PRIME, ""}, {IDC_DYSS_RATED, ""}});
    ui::act::Leave(C(d, IDC_DYSS_I_PRIME));
    ui::act::Leave(C(d, IDC_DYSS_RATED));
    EXPECT_EQ((Texts{T(d, IDC_DYSS_I_PRIME), T(d, IDC_DYSS_RATED)}), (Texts{"1", "0"}));
    Set(d, {{IDC_DYSS_I_PRIME, "007.50"}, {IDC_DYSS_RATED, "250.0"}});
    ui::act::Leave(C(d, IDC_DYSS_I_PRIME));
    ui::act::Leave(C(d, IDC_DYSS_RATED));
    EXPECT_EQ((Texts{T(d, IDC_DYSS_I_PRIME), T(d, IDC_DYSS_RATED)}), (Texts{"7.5", "250"}));
  });
  // Once for "计算", once for the calculation "计算书" runs first.
  EXPECT_EQ(host_.messages(), Texts(2, "额定载流量小于导线截面电流\n错误!请重新设置"));
  // The message comes before the report.
  EXPECT_LT(Transcript().rfind("[message] 提示: "), Transcript().find("[report]"));
}

TEST_F(DyssLengthTest, FormsHandOverTheirOwnWorkingValues) {
  Run([&](CDyssCalDlg& d) {
    ui::act::Tab(d, 1);
    Set(d, {{IDC_DYSS_LF0_I, "25"}, {IDC_DYSS_LF0_COS, "0.85"}, {IDC_DYSS_REQUIRE, "3"}});
    Select(d, IDC_DYSS_LEN_CASE, 1);
    // P from what form 1 read at its start, in "%.3f".
    EXPECT_EQ((Texts{T(d, IDC_DYSS_LF1_P), T(d, IDC_DYSS_LF1_COS), T(d, IDC_DYSS_REQUIRE)}),
              (Texts{"1000.000", "0.85", "3"}));
    Select(d, IDC_DYSS_LEN_CASE, 0);
    EXPECT_EQ(T(d, IDC_DYSS_LF0_I), "25.000");
  });
}

TEST_F(DyssLengthTest, HarmonicSettingsSurviveOkOnEitherPageAndLeavingThePage) {
  const std::string h = "PmData\\PdXBDL\\";
  auto harmonic_keys = [&] {
    return Texts{Stored(h + "Check"), Stored(h + "Box"), Stored(h + "GeDing"), Stored(h + "XiaoZheng"),
                 Stored(h + "JieMian")};
  };
  // Leaving the page writes them at once; "取消" then writes nothing else.
  Run([&](CDyssCalDlg& d) {
    ui::act::Tab(d, 1);
    Select(d, IDC_DYSS_HARM_LIST, 3);  // K 1.0, I′ = 1·0.5·3 = 1.5
    Set(d, {{IDC_DYSS_RATED, "200"}, {IDC_DYSS_REQUIRE, "4"}});
    ui::act::Tab(d, 0);
    ui::act::Cancel(d);
  });
  const Texts left = {"1", "3", "200", "1.0", "1.5"};
  EXPECT_EQ(harmonic_keys(), left);
  EXPECT_EQ(Stored("Cal\\DyssCal\\Page2\\Input1\\输入参数\\要求"), "<missing>");

  // "确定" on page 0 without showing page 1: its tree holds the keys as read, and it keeps them.
  Run([&](CDyssCalDlg& d) { ui::act::Ok(d); });
  EXPECT_EQ(harmonic_keys(), left);
  EXPECT_EQ(Stored("Cal\\DyssCal\\当前页"), "0");

  // "确定" on page 1: the page's keys, the current form's for "确定", then the harmonic settings.
  Run([&](CDyssCalDlg& d) {
    ui::act::Tab(d, 1);
    Select(d, IDC_DYSS_HARM_LIST, 0);
    ui::act::Click(C(d, IDC_DYSS_HARM_CHECK));
    Set(d, {{IDC_DYSS_LF0_I, "80"}, {IDC_DYSS_REQUIRE, "4.5"}});
    ui::act::Ok(d);
  });
  EXPECT_EQ(harmonic_keys(), (Texts{"0", "0", "200", "1.0", "1"}));
  const std::string in1 = "Cal\\DyssCal\\Page2\\Input1\\";
  const std::pair<std::string, const char*> stored[] = {
      {"Cal\\DyssCal\\当前页", "1"},
      {"Cal\\DyssCal\\Page2\\线路电压损失", "4.5"},
      {"Cal\\DyssCal\\Page2\\负荷情况", "0"},
      {in1 + "输入参数\\负荷计算电流", "80"},
      {in1 + "输入参数\\要求", "4.5"},
      {in1 + "输入参数\\功率因数", "0.800"},
      {in1 + "输入参数\\线路长度", "<missing>"},  // kept for the hand-over, not written by "确定"
      {in1 + "输入参数\\说明", "<missing>"},
  };
  for (const auto& [key, want] : stored) EXPECT_EQ(Stored(key), want) << key;

  // "确定" on page 0 after a visit to page 1: the page's settings, not the tree's older ones.
  Run([&](CDyssCalDlg& d) {
    EXPECT_EQ(d.active_page(), 1);
    ui::act::Click(C(d, IDC_DYSS_HARM_CHECK));
    Select(d, IDC_DYSS_HARM_LIST, 2);
    ui::act::Tab(d, 0);
    ui::act::Ok(d);
  });
  EXPECT_EQ(harmonic_keys(), (Texts{"1", "2", "200", "0.86", "111.628"}));  // I′ = 80·0.4·3/0.86
}

// A damaged file: texts the unsigned-number edits cannot hold are never shown (K is a result the
// designer cannot retype) nor stored again; the keys' defaults stand in. A number is kept as it is.
TEST_F(DyssLengthTest, DamagedHarmonicSettingsFallBackToTheirDefaults) {
  const std::string h = "PmData\\PdXBDL\\";
  Store({{h + "GeDing", "-inf"}, {h + "XiaoZheng", "nan"}, {h + "JieMian", "inf"}});
  Run([&](CDyssCalDlg& d) {
    ui::act::Tab(d, 1);
    EXPECT_EQ((Texts{T(d, IDC_DYSS_RATED), T(d, IDC_DYSS_K), T(d, IDC_DYSS_I_PRIME)}), (Texts{"1.0", "0.86", "1.0"}));
    ui::act::Ok(d);
  });
  EXPECT_EQ((Texts{Stored(h + "GeDing"), Stored(h + "XiaoZheng"), Stored(h + "JieMian")}), (Texts{"1.0", "0.86", "1.0"}));

  Store({{h + "GeDing", "中文"}, {h + "XiaoZheng", "1e309"}, {h + "JieMian", "42.5"}});
  Run([&](CDyssCalDlg& d) {
    ui::act::Tab(d, 1);
    EXPECT_EQ((Texts{T(d, IDC_DYSS_RATED), T(d, IDC_DYSS_K), T(d, IDC_DYSS_I_PRIME)}), (Texts{"1.0", "1e309", "42.5"}));
    ui::act::Cancel(d);
  });
}

}  // namespace
}  // namespace kestra::dyss::testing

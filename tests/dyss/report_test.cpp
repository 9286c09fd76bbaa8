// The calculation reports as the designer reads them: written through the dialog's "计算书",
// read back from the .docx paragraph by paragraph, and compared with the report's format strings
// filled in by hand with the example's numbers (R′ 0.193, X′ 0.08, U 0.38, cosφ 0.8: sinφ 0.6,
// tgφ 0.75 on the voltage-loss page; R′ 0.5 and Δu 5 % on the line-length page).
#include <gmock/gmock.h>

#include "dyss/dyss_ids.h"
#include "tests/dyss/dialog_support.h"

namespace kestra::dyss::testing {
namespace {

// The paragraphs after the heading `from`, up to the heading `to` (or the end).
Texts Between(const Texts& p, const std::string& from, const std::string& to) {
  auto b = std::find(p.begin(), p.end(), from);
  if (b == p.end()) return {"<no " + from + ">"};
  return Texts(b + 1, std::find(b + 1, p.end(), to));
}

class DyssReportTest : public DyssDialogTest {
 protected:
  // The example's inputs on each form of the voltage-loss page: form 1 I1 100 l1 0.5 and I3 50
  // l3 0.2; form 3 P1 100 l1 0.5 and P2 200 l2 0.25; form 4 S 120, C 7.66, P1 1000 l1 1 and P2
  // 500 l2 2 where P2 can be typed (kinds 2 and 3 keep what the hand-over put there).
  static void Fill(ui::Dialog& d, int form) {
    auto six = [&](const std::array<int, 6>& a, const std::array<int, 6>& b, Texts as, Texts bs) {
      as.resize(6), bs.resize(6);
      for (std::size_t k = 0; k < 6; ++k)
        if (C(d, a[k]).IsWindowEnabled()) Set(d, {{a[k], as[k].c_str()}, {b[k], bs[k].c_str()}});
    };
    switch (form) {
      case 0: Set(d, {{IDC_DYSS_F0_I, "100"}, {IDC_DYSS_F0_L, "0.5"}, {IDC_DYSS_F0_COS, "0.8"}}); break;
      case 1:
        Set(d, {{IDC_DYSS_F1_COS, "0.8"}});
        six(kF1Currents, kF1Lengths, {"100", "", "50"}, {"0.5", "", "0.2"});
        break;
      case 2: Set(d, {{IDC_DYSS_F2_P, "100"}, {IDC_DYSS_F2_L, "0.5"}, {IDC_DYSS_F2_COS, "0.8"}}); break;
      case 3:
        Set(d, {{IDC_DYSS_F3_COS, "0.8"}});
        six(kF3Loads, kF3Lengths, {"100", "200"}, {"0.5", "0.25"});
        break;
      default:
        Set(d, {{IDC_DYSS_F4_SECTION, "120"}, {IDC_DYSS_F4_C, "7.66"}});
        six(kF4Loads, kF4Lengths, {"1000", "500"}, {"1", "2"});
    }
  }
  // Runs the dialog with `drive`, then reads the report it wrote.
  Texts Report(const std::function<void(CDyssCalDlg&)>& drive) {
    const std::string before = LastReport();
    Run(drive);
    return LastReport() == before ? Texts{"<no report>"} : ReportParagraphs(LastReport());
  }
  Texts LossReport(int kind, int item, int form) {
    return Report([&](CDyssCalDlg& d) {
      Select(d, IDC_DYSS_KIND, kind);
      Select(d, IDC_DYSS_CASE, item);
      Fill(d, form);
      Press(d, "计算书");
    });
  }
};

TEST_F(DyssReportTest, VoltageLossReportLineByLine) {
  const Texts head = {"电压损失计算书", "计算依据", "\t《工厂和民用配电设计手册》第三版（水利电力出版社）的p542表9-63中的公式",
                      "已知条件"};
  const Texts p = LossReport(0, 0, 0);
  ASSERT_GT(p.size(), head.size());
  EXPECT_EQ(Texts(p.begin(), p.begin() + 4), head);
  EXPECT_EQ(Between(p, "已知条件", "计算公式和过程"),
            Paragraphs("\t线路种类：三相平衡负荷线路\n\t负荷情况：终端负荷用电流矩(A.km)\n\t线路名称：示例电缆"
                       "\n\t截面:95\t\n\t电阻(Ω/km):0.193  感抗(Ω/km):0.08  电压(kV):0.38"
                       "\n\t负荷计算电流I(A)=100\n\t线路长度l(km)=0.5\n\t功率因数cosφ=0.8"));
  EXPECT_EQ(Between(p, "计算结果", ""), Texts{"\t线路电压损失Δu(%)=4.613"});  // ends the report

  // Form 1 lists only the loads given (1 and 3); form 4 of kind 2 only P1 and l1.
  EXPECT_EQ(Between(LossReport(0, 1, 1), "已知条件", "计算公式和过程"),
            Paragraphs("\t线路种类：三相平衡负荷线路\n\t负荷情况：几个负荷用电流矩(A.km)\n\t线路名称：示例电缆"
                       "\n\t截面:95\t\n\t电阻(Ω/km):0.193  感抗(Ω/km):0.08  电压(kV):0.38\n\t功率因数cosφ=0.8"
                       "\n\t负荷计算电流I1(A)=100\n\t线路长度l1(km)=0.5\n\t负荷计算电流I3(A)=50\n\t线路长度l3(km)=0.2"));
  EXPECT_EQ(Between(LossReport(2, 2, 4), "已知条件", "计算公式和过程"),
            Paragraphs("\t线路种类：接于相电压的两相-N线平衡负荷线路\n\t负荷情况：终端负荷且cosφ=1,负荷用负荷矩(kW.km)"
                       "\n\t线芯标称截面S(mm2)=120\n\t功率因数为1时的计算系数C=7.66"
                       "\n\t有功负荷P1(kW)=1000\n\t线路长度l1(km)=1"));
}

TEST_F(DyssReportTest, VoltageLossFormulaOfEveryKindAndForm) {
  // ΣIL = 100·0.5 + 50·0.2 = 60; ΣpL = 100·0.5 + 200·0.25 = 100 (form 3), 1000·1 + 500·2 = 2000
  // (form 4). A = 0.193·0.8 + 0.08·0.6 = 0.2024, A·I·l = 10.12, ΣA·I·l = 12.144; B = 0.193 +
  // 0.08·0.75 = 0.253, B·P·l = 12.65, ΣP·l·B = 25.3; U·10 = 3.8, U·10·U = 1.444, C·S = 919.2.
  // Kind 1: 12.65·2/1.444 = 17.521, 25.3·2/1.444 = 35.042, 4000/919.2 = 4.352; kind 2: 12.65·2.25/
  // 1.444 = 19.711, 1000/919.2 = 1.088; kind 3: 12.65·2/(10·(0.38/1.732)²) = 52.559.
  const char* const sum_il = "\tΣIL\n\t=100*0.5+0*0+50*0.2+0*0+0*0+0*0\n\t=60.000";
  const char* const sum_pl3 = "\tΣpL\n\t=100*0.5+200*0.25+0*0+0*0+0*0+0*0\n\t=100.000";
  const char* const sum_pl4 = "\tΣpL\n\t=1000*1+500*2+0*0+0*0+0*0+0*0\n\t=2000.000";
  struct Case {
    int kind, item, form;
    std::string formula;
  };
  const Case cases[] = {
      {0, 0, 0,
       "\tSINφ=(1-0.8<U>2</U>)<U>0.5</U>=0.6\n\tΔu(%)\n\t=1.732(R' COSφ+X' SINφ)IL/10Un"
       "\n\t=1.732*(0.193*0.8+0.08*0.6)*100*0.5/(10*0.38)\n\t=4.613"},
      {0, 1, 1,
       std::string(sum_il) + "\n\tΔu(%)\n\t=1.732(R' COSφ+X' SINφ)ΣIL/10Un\n\t=1.732*60*(0.193*0.8+0.08*0.6)/(10*0.38)"
                             "\n\t=5.535"},  // 12.144·1.732/3.8
      {0, 2, 2,
       "\ttgφ=0.750\n\tΔu(%)\n\t=(R'+X'tgφ)pL/10Un<U>2</U>\n\t=(0.193+0.08*0.750)*100*0.5/(10*0.38<U>2</U>)\n\t=8.760"},  // 0.253·50/1.444
      {0, 3, 3,
       std::string(sum_pl3) + "\n\tΔu(%)\n\t=Σ(R'+X'tgφ)pL/(10Un<U>2</U>)\n\t=100*(0.193+0.08*0.750)/(10*0.38<U>2</U>)"
                              "\n\t=17.521"},  // 25.3/1.444
      {0, 4, 4, std::string(sum_pl4) + "\n\tΔu(%)\n\t=ΣpL/CS=2000.000/(7.66*120)\n\t=2.176"},  // 2000/919.2
      {1, 0, 0,
       "\tΔu(%)\n\t=2(R'COSφ+X'SINφ)IL/10Un\n\t=2*(0.193*0.800+0.08*0.600)*100*0.5/(10*0.38)\n\t=5.326"},
      {1, 1, 1,
       std::string(sum_il) + "\n\tΔu(%)\n\t=Σ2(R'COSφ+X'SINφ)IL/10Un\n\t=2*60.000*(0.193*0.800+0.08*0.600)/(10*0.38)"
                             "\n\t=6.392"},  // 12.144·2/3.8
      {1, 2, 2,
       "\ttgφ=0.750\n\tΔu(%)\n\t=2(R'+X'tgφ)pL/10Un<U>2</U>\n\t=2*(0.193+0.08*0.750)*100*0.5/(10*0.38<U>2</U>)\n\t=17.521"},
      {1, 3, 3,
       std::string(sum_pl3) + "\n\tΔu(%)\n\t=2Σ(R'+X'tgφ)pL/10Un<U>2</U>\n\t=2*100.000*(0.193+0.08*0.750)/(10*0.38<U>2</U>)"
                              "\n\t=35.042"},
      {1, 4, 4, std::string(sum_pl4) + "\n\tΔu(%)\n\t=2ΣpL/CS\n\t=2*2000.000/(7.66*120)\n\t=4.352"},
      {2, 0, 0,
       "\tΔu(%)\n\t=1.5*1.732*(R'COSφ+X'SINφ)IL/10Un\n\t=1.5*1.732*(0.193*0.800+0.08*0.600)*100*0.5/(10*0.38)\n\t=6.919"},
      {2, 1, 2,
       "\ttgφ=0.750\n\tΔu(%)\n\t=2.25(R'+X'tgφ)pL/10Un<U>2</U>\n\t=2.25*(0.193+0.08*0.750)*100*0.5/(10*0.38<U>2</U>)"
       "\n\t=19.711"},
      // Kind 2's form 4 starts with a line feed (an empty paragraph); kind 3's does not.
      {2, 2, 4, "\n\tΔu(%)\n\t=ΣpL/CS\n\t=1000*1/(7.66*120)\n\t=1.088"},
      {3, 0, 0,
       "\tΔu(%)\n\t=2*1.732(R'COSφ+X'SINφ)IL/10Un\n\t=2*1.732*(0.193*0.800+0.08*0.600)*100*0.5/(10*0.38)\n\t=9.225"},
      {3, 1, 2,
       "\ttgφ=0.750\n\tΔu(%)\n\t=6(R'+X'tgφ)pL/10Un<U>2</U>\n\t=6*(0.193+0.08*0.750)*100*0.5/(10*0.38<U>2</U>)\n\t=52.559"},
      {3, 2, 4, "\tΔu(%)\n\t=ΣpL/CS\n\t=1000*1/(7.66*120)\n\t=1.088"},
  };
  for (const Case& c : cases) {
    const Texts p = LossReport(c.kind, c.item, c.form);
    const Texts formula = Paragraphs(c.formula);
    EXPECT_EQ(Between(p, "计算公式和过程", "计算结果"), formula) << c.kind << "/" << c.form;
    // The result line ends the report with the formula's result.
    EXPECT_EQ(p.back(), "\t线路电压损失Δu(%)=" + formula.back().substr(2)) << c.kind << "/" << c.form;
  }
  EXPECT_TRUE(host_.messages().empty());
}

TEST_F(DyssReportTest, LineLengthReportOfEveryKindAndFormAndItsHarmonicPart) {
  // R′ 0.5, X′ 0.08, Un 0.38, cosφ 0.8, Δu 5, I 100 or P 100; R′cosφ + X′sinφ = 0.448,
  // R′ + X′tgφ = 0.56; 10·Un·Δu = 19, 10·Un²·Δu = 7.22.
  struct Case {
    int kind, situation;
    const char* formula;
  };
  const Case cases[] = {
      {0, 0, "\tL=10UnΔu(%)/1.732I(R'COSφ+X'SINφ)\n\t=10*0.38*5.000/[1.732*100*(0.5*0.800+0.08*0.600)]\n\t=0.245"},
      {0, 1, "\tL=10Un<U>2</U>Δu(%)/p(R'+X'tgφ)\n\t=10*0.38<U>2</U>*5/[100*(0.5+0.08*0.750)]\n\t=0.129"},
      {1, 0, "\tL=10UnΔu(%)/2I(R'COSφ+X'SINφ)\n\t=10*0.38*5/[2*100*(0.5*0.800+0.08*0.600)]\n\t=0.212"},
      {1, 1, "\tL=10Un<U>2</U>Δu(%)/2p(R'+X'tgφ)\n\t=10*0.38<U>2</U>*5/[2*100*(0.5+0.08*0.750)]\n\t=0.064"},  // 7.22/112
      {2, 0,
       "\tL=10UnΔu(%)/1.5*1.732I(R'COSφ+X'SINφ)\n\t=10*0.38*5/[1.5*1.732*100*(0.5*0.800+0.08*0.600)]\n\t=0.163"},
      {2, 1, "\tL=10Un<U>2</U>Δu(%)/2.25p(R'+X'tgφ)\n\t=10*0.38<U>2</U>*5/[2.25*100*(0.5+0.08*0.750)]\n\t=0.057"},  // 7.22/126
      {3, 0, "\tL=10UnΔu(%)/2*1.732I(R'COSφ+X'SINφ)\n\t=10*0.38*5/[2*1.732*100*(0.5*0.800+0.08*0.600)]\n\t=0.122"},
      // 50·(0.38/1.732)² / (0.56·2·100) = 2.40682/112
      {3, 1, "\tL=10Un<U>2</U>Δu(%)/6p(R'+X'tgφ)\n\t=10*0.38<U>2</U>*5/[6*100*(0.5+0.08*0.750)]\n\t=0.021"},
  };
  for (const Case& c : cases) {
    const Texts p = Report([&](CDyssCalDlg& d) {
      ui::act::Tab(d, 1);
      ui::act::Click(C(d, IDC_DYSS_HARM_CHECK));  // no section selection
      Select(d, IDC_DYSS_LEN_KIND, c.kind);
      Select(d, IDC_DYSS_LEN_CASE, c.situation);
      Select(d, c.situation == 0 ? 113 : 116, 2);
      Set(d, {{c.situation == 0 ? IDC_DYSS_LF0_I : IDC_DYSS_LF1_P, "100"}, {IDC_DYSS_REQUIRE, "5"}});
      Press(d, "计算书");
    });
    const Texts formula = Paragraphs(c.formula);
    EXPECT_EQ(Between(p, "计算公式和过程", "计算结果"), formula) << c.kind << "/" << c.situation;
    // Without the harmonic part the length line ends the report.
    EXPECT_EQ(p.back(), "\t最大允许线路长度l(km)=" + formula.back().substr(2)) << c.kind << "/" << c.situation;
  }

  // Kind 0 with the section selection on: the known conditions, then the harmonic part.
  const Texts p = Report([&](CDyssCalDlg& d) {
    ui::act::Tab(d, 1);
    Select(d, 113, 2);
    Set(d, {{IDC_DYSS_LF0_I, "100"}, {IDC_DYSS_REQUIRE, "5"}, {IDC_DYSS_RATED, "200"}});
    ui::act::Leave(C(d, IDC_DYSS_LF0_I));
    Select(d, IDC_DYSS_HARM_LIST, 2);
    Press(d, "计算书");
  });
  ASSERT_FALSE(p.empty());
  EXPECT_EQ(p.front(), "线路长度计算书");
  EXPECT_EQ(Between(p, "已知条件", "计算公式和过程"),
            Paragraphs("\n\t线路种类：三相平衡线路\n\t负荷情况：终端负荷用电流矩(A.km)\n\t线路名称：示例电缆\n\t截面:150\t"
                       "\n\t电阻(Ω/km):0.5  感抗(Ω/km):0.08  电压(kV):0.38\n\t负荷计算电流I(A)=100\n\t功率因数cosφ=0.8"
                       "\n\t要求线路电压损失Δu(%)=5"));
  EXPECT_EQ(Between(p, "计算结果", "谐波下导线截面选择及线路长度计算"), Texts{"\t最大允许线路长度l(km)=0.245"});
  // I′ = 100·0.4·3/0.86 = 139.535; L′ = 19/(139.535·1.732·0.448) = 0.17548.
  EXPECT_EQ(Between(p, "谐波下导线截面选择及线路长度计算", ""),
            Paragraphs("\t相电流中三次谐波分量= 40%三次谐波\n\t谐波电流校正系数= 0.86\n\t负荷计算电流= 100A"
                       "\n    截面的计算电流I' = I × 40% × 3 / K = 139.535A\n    谐波下最大允许线路长度"
                       "\n       L' = 10UnΔu(%)/1.732I'(R'COSφ+X'SINφ)"
                       "\n\t=10*0.38*5.000/[1.732*139.535*(0.5*0.800+0.08*0.600)]\n\t=0.175(km)"));
}

TEST_F(DyssReportTest, ARefusedCalculationReportsOnlyAResultStillHeld) {
  // The voltage-loss page empties its result before the checks: no report, even after a good one.
  EXPECT_EQ(Report([&](CDyssCalDlg& d) {
              Press(d, "计算");
              Set(d, {{IDC_DYSS_F0_I, ""}});
              Press(d, "计算书");
            }),
            Texts{"<no report>"});
  // The line-length page keeps the length its edit shows. With the defaults (I 1, cosφ 0.8,
  // Δu 0.2) on the first line (R′ 0.193, X′ 0.08, Un 0.38): 0.2·10·0.38 / (1.732·0.2024) = 2.16798.
  const Texts p = Report([&](CDyssCalDlg& d) {
    ui::act::Tab(d, 1);
    ui::act::Click(C(d, IDC_DYSS_HARM_CHECK));
    Press(d, "计算");
    Set(d, {{IDC_DYSS_REQUIRE, "x"}});
    Press(d, "计算书");
  });
  ASSERT_FALSE(p.empty());
  EXPECT_EQ(p.back(), "\t最大允许线路长度l(km)=2.168");
  EXPECT_THAT(p, ::testing::Contains("\t要求线路电压损失Δu(%)=x"));
  // Without any length shown there is nothing to report.
  EXPECT_EQ(Report([&](CDyssCalDlg& d) {
              ui::act::Tab(d, 1);
              Set(d, {{IDC_DYSS_REQUIRE, "x"}});
              Press(d, "计算书");
            }),
            Texts{"<no report>"});
  EXPECT_EQ(host_.messages(), (Texts{"'负荷计算电流'输入非法, 请输入大于0的实数!", "'线路电压损失'输入非法, 请输入大于0的实数!",
                                     "'线路电压损失'输入非法, 请输入大于0的实数!"}));
}

}  // namespace
}  // namespace kestra::dyss::testing

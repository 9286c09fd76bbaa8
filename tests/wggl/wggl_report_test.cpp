// The report's blocks as a designer reads them in the document.
#include "wggl/wggl_report.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace {
using kestra::report::BlockKind;
using namespace kestra::wggl;
namespace report = kestra::report;

WgglInputs Example() {
  WgglInputs v;
  v.cos_phi1 = 0.75;
  v.cos_phi2 = 0.95;
  v.alpha = 0.75;
  v.p_js = 1000;
  v.system = SystemKind::Designing;
  v.alpha_p = 0.75;
  v.beta_q = 0.75;
  v.q_js = 0;  // gives cosφ1 = 1: does not match 0.75, so no derivation
  v.count_capacitors = true;
  v.rating = 30;
  return v;
}

report::Blocks Report(const WgglInputs& v) {
  const WgglResults r = Calculate(v);
  return BuildWgglReport(r, r.bank);
}
std::string Derivation(const WgglInputs& v) { return Report(v)[6].text; }
// Block 7 begins with the qc line when cosφ1 is not derived.
bool Derives(const WgglInputs& v) { return Derivation(v).rfind("\t补偿系数 qc=", 0) != 0; }

TEST(WgglReport, WorkedExampleBlocks) {
  const auto b = Report(Example());
  const std::pair<BlockKind, std::string> want[] = {
      {BlockKind::Title, "无功功率补偿计算书"},
      {BlockKind::Heading, "计算依据"},
      {BlockKind::Body, "\t《民用建筑电气设计手册》（湖南电气情报网编）p94 公式2.6.2-4,2.6.2-5"},
      {BlockKind::Heading, "已知条件"},
      {BlockKind::Body,
       "\t自然平均功率因数cosφ1=0.75\n\t补偿后功率因数cosφ2=0.95\n\t负荷系数α=0.75\n\t有功计算负荷Pjs=1000.00kW"},
      {BlockKind::Heading, "计算公式和过程"},
      {BlockKind::Body,
       "\t补偿系数 qc=TANφ1-TANφ2=0.88-0.33=0.55\n\t计算补偿容量 Qc=αqc Pjs=0.75*0.55*1000.00=412.50kVar"},
      {BlockKind::Heading, "计算结果"},
      {BlockKind::BodyEnd, "\t单个电容器额定容量=30.00kVar\n\t实际补偿容量=420.00kVar\n\t并联电容器数量=14"},
  };
  ASSERT_EQ(b.size(), std::size(want));
  for (std::size_t i = 0; i < b.size(); ++i) {
    EXPECT_EQ(b[i].kind, want[i].first) << i;
    EXPECT_EQ(b[i].text, want[i].second) << i;
  }
}

TEST(WgglReport, DerivationFromLoadsWhenTheDialogValueMatchesItsSource) {
  auto v = Example();
  v.q_js = 882;  // (0.75·882)/(0.75·1000) gives cosφ1 ≈ 0.74997
  const std::string text = Derivation(v);
  EXPECT_EQ(text.substr(0, text.find("\t补偿系数")),
            "\t补偿前企业自然平均功率因数(正在设计中)"
            "\n\tcosφ1=[1/(1+(βQjs/αPjs)<U>2</U>)]<U>0.5</U>={1/[1+((0.75*882.00)/(0.75*1000.00))<U>2</U>]}"
            "<U>0.5</U>=0.75\n");
  v.cos_phi1 = 0.76;  // typed over it, 0.01 or more away
  EXPECT_FALSE(Derives(v));
  v.cos_phi1 = 0.75;
  v.p_js = 0;  // no active load to derive from
  EXPECT_FALSE(Derives(v));
}

TEST(WgglReport, DerivationFromEnergyForTheOtherOrNoRadio) {
  auto v = Example();
  v.w_m = 1000;
  v.w_rm = 882;
  const std::string expected =
      "\t补偿前企业自然平均功率因数(已生产企业)"
      "\n\tcosφ1=[1/(1+(Wrm/Wm)<U>2</U>)]<U>0.5</U>=[1/(1+(882.00/1000.00)<U>2</U>)]<U>0.5</U>=0.75\n"
      "\t补偿系数 qc=";
  EXPECT_FALSE(Derives(v));  // with the design radio the energy values are not looked at
  for (SystemKind kind : {SystemKind::InUse, SystemKind::None}) {
    v.system = kind;
    EXPECT_EQ(Derivation(v).rfind(expected, 0), 0u) << int(kind);
  }
  v.w_rm = 0;  // no reactive energy
  EXPECT_FALSE(Derives(v));
}

TEST(WgglReport, NegativeCapacityKeepsItsSignAndMissingCountsStayBlank) {
  auto v = Example();
  v.cos_phi1 = 0.95;
  v.cos_phi2 = 0.75;
  const std::string text = Derivation(v);
  EXPECT_NE(text.find("\t补偿系数 qc=TANφ1-TANφ2=0.33-0.88=-0.55"), std::string::npos) << text;
  EXPECT_NE(text.find("=0.75*-0.55*1000.00=-412.50kVar"), std::string::npos) << text;
  // No capacitor count since the dialog opened: the values are left blank as the dialog does.
  v.rating = 25;  // the loaded rating's integer part
  v.count_capacitors = false;
  EXPECT_EQ(Report(v)[8].text, "\t单个电容器额定容量=25.00kVar\n\t实际补偿容量=kVar\n\t并联电容器数量=");
}

// The line writes αqc Pjs and multiplies in that order: tanφ1 = 0.8/0.6 → 1.33, tanφ2 =
// √0.19/0.9 = 0.4843 → 0.48, qc = 0.85; 0.7·0.85 = 0.595 (just below in binary), ·105 =
// 62.4749… → 62.47, while the dialog's (0.7·105)·0.85 = 62.4750… shows 62.48.
TEST(WgglReport, CompensationLineMultipliesAsItReads) {
  WgglInputs v = Example();
  v.cos_phi1 = 0.6, v.cos_phi2 = 0.9, v.alpha = 0.7, v.p_js = 105;
  EXPECT_DOUBLE_EQ(Calculate(v).qc, 62.48);
  const std::string text = Derivation(v);
  EXPECT_EQ(text.substr(text.find("\n")), "\n\t计算补偿容量 Qc=αqc Pjs=0.70*0.85*105.00=62.47kVar") << text;
}

}  // namespace

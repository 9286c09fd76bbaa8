// The motor-start arithmetic against hand calculations. Unless a case says otherwise the motor
// is Ur 6 kV, Ir 100 A, Iq 600 A: Kst = 6, Srm = 1.732·6·100/1000 = 1.0392 MVA, Sstm = 6.2352 MVA;
// the cable paper-insulated of 1 km: Xl = 0.07 Ω; Sfh 1 MVA at cosφ 0.8: Qfh = 0.6 Mvar.
#include "djqd/djqd_formulas.h"

#include <gtest/gtest.h>

#include <cmath>

#include "services/text/number_text.h"

namespace {
using namespace kestra::djqd;
using kestra::text::Format3f;

constexpr Motor kMotor{185, 980, 100, 600, 6};
constexpr Cable kPaper1km{kPaperInsulated, 95, 1};

TEST(DjqdFormulas, TheHandbookExampleStartedDirectOnLine) {
  // Kst = 2025/337; Srm = 1.732·0.38·337/1000 = 0.22180; Sstm = 1.732·0.38·2025/1000 = 1.33277;
  // Xl = (0.08 + 18.3/120)·0.025 = 0.0058125; Skm = 0.63/(0.045 + 0.63/50) = 10.9375;
  // Qfh = 0.4·0.6; Sst = 1/(1/1.33277 + 0.0058125/0.1444) = 1.26491;
  // Ustm = 11.1775/12.44241 = 0.89834; ustM = Ustm·Sst/Sstm; Istm = Ustm·Sst/(1.732·0.38)·1000.
  StartInputs in{StartMethod::FullVoltage, 50, 0.63, 0.045, 0, 0, 0.4, 0.8, 0.38,
                 {kCopper, 120, 0.025}, {185, 980, 337, 2025, 0.38}};
  const StartResults r = StartVoltageDrop(in);
  ASSERT_EQ(r.status, Status::Ok);
  EXPECT_EQ(Format3f(r.basics.kst), "6.009");
  EXPECT_EQ(Format3f(r.basics.srm), "0.222");
  EXPECT_EQ(Format3f(r.basics.sstm), "1.333");
  EXPECT_NEAR(r.basics.cable.xl, 0.0058125, 1e-12);
  EXPECT_EQ(r.basics.cable.formula, CableFormula::CopperSmall);
  EXPECT_EQ(Format3f(r.skm), "10.938");
  EXPECT_EQ(Format3f(r.basics.qfh), "0.240");
  EXPECT_EQ(Format3f(r.sst), "1.265");
  EXPECT_EQ(Format3f(r.ustm), "0.898");
  EXPECT_EQ(Format3f(r.ustm_motor), "0.853");
  EXPECT_EQ(Format3f(r.istm), "1726.512");
  EXPECT_EQ(r.istm_at_bus, r.istm);
}

TEST(DjqdFormulas, EachStartingMethodAtABusOf6_3kV) {
  // UM² = 39.69. Method 0: S" 50, SrT 2, UT 0.06 give Skm = 2/(0.06 + 0.04) = 20; the others
  // take Skm 20. Sst: 0: 1/(1/6.2352 + 0.07/39.69) = 6.16738; 1: 1/(1/6.2352 + 0.06/2 + 0.07/39.69)
  // = 5.20445; 2 (Xk 1.8): 1/(1/6.2352 + 1.87/39.69) = 4.81940; 3 (K 0.8):
  // 1/(1/(0.64·6.2352) + 0.07/39.69) = 3.96264. Ustm = 20.6/(20.6 + Sst); ustM = Ustm·Sst/Sstm
  // (method 3: /(0.8·Sstm)); Istm at UM = Ustm·Sst/(1.732·6.3)·1000, at Ur (methods 1 and 3)
  // = ustM·Sstm/(1.732·6)·1000 = ustM·600.
  struct Case {
    StartMethod method;
    double sk, srt, ut, xk, kz;
    double skm, sst, ustm, ustm_motor, istm, istm_at_bus;
  };
  const Case cases[] = {
      {StartMethod::FullVoltage, 50, 2, 0.06, 0, 0, 20, 6.167378, 0.769593, 0.761222, 434.9843, 434.9843},
      {StartMethod::TransformerUnit, 20, 2, 0.06, 0, 0, 20, 5.204445, 0.798312, 0.666341, 399.8048, 380.7665},
      {StartMethod::Reactor, 20, 0, 0, 1.8, 0, 20, 4.819395, 0.810405, 0.626389, 357.9366, 357.9366},
      {StartMethod::Autotransformer, 20, 0, 0, 0, 0.8, 20, 3.962639, 0.838672, 0.666249, 399.7492, 304.5708},
  };
  for (const Case& c : cases) {
    const StartResults r = StartVoltageDrop({c.method, c.sk, c.srt, c.ut, c.xk, c.kz, 1, 0.8, 6.3, kPaper1km, kMotor});
    SCOPED_TRACE(static_cast<int>(c.method));
    ASSERT_EQ(r.status, Status::Ok);
    EXPECT_NEAR(r.skm, c.skm, 1e-9);
    EXPECT_NEAR(r.sst, c.sst, 1e-6);
    EXPECT_NEAR(r.ustm, c.ustm, 1e-6);
    EXPECT_NEAR(r.ustm_motor, c.ustm_motor, 1e-6);
    EXPECT_NEAR(r.istm, c.istm, 1e-4);
    EXPECT_NEAR(r.istm_at_bus, c.istm_at_bus, 1e-4);
  }
}

TEST(DjqdFormulas, AnAutotransformerOfRatio1IsAStartDirectOnLine) {
  // Same Skm, Qfh and Xl; with UM = Ur the currents agree as well (ustM·Sstm = Ustm·Sst).
  const StartResults direct = StartVoltageDrop({StartMethod::FullVoltage, 50, 2, 0.06, 0, 0, 1, 0.8, 6, kPaper1km, kMotor});
  const StartResults k1 = StartVoltageDrop({StartMethod::Autotransformer, direct.skm, 0, 0, 0, 1, 1, 0.8, 6, kPaper1km, kMotor});
  EXPECT_DOUBLE_EQ(k1.sst, direct.sst);
  EXPECT_DOUBLE_EQ(k1.ustm, direct.ustm);
  EXPECT_DOUBLE_EQ(k1.ustm_motor, direct.ustm_motor);
  EXPECT_NEAR(k1.istm, direct.istm, 1e-9);
}

TEST(DjqdFormulas, CableRulesAtTheirThresholds) {
  // Voltage drop: 0.08 + 18.3/150 = 0.202; 0.08 + 6.1/185 = 0.112973; 0.08 + 30/240 = 0.205;
  // 0.08 + 10/300 = 0.113333; polyethylene 0.09·2, paper 0.07·2; no section or no length: 0.
  struct Case {
    int type;
    double s, l;
    CableFormula formula;
    double xl;
  };
  const Case cases[] = {
      {kCopper, 150, 1, CableFormula::CopperSmall, 0.202},
      {kCopper, 185, 1, CableFormula::CopperLarge, 0.08 + 0.032973},
      {kAluminium, 240, 1, CableFormula::AluminiumSmall, 0.205},
      {kAluminium, 300, 1, CableFormula::AluminiumLarge, 0.113333},
      {kPolyethylene, 300, 2, CableFormula::Polyethylene, 0.18},
      {kPaperInsulated, 1, 2, CableFormula::PaperInsulated, 0.14},
      {kPolyethylene, 0, 2, CableFormula::Omitted, 0},
      {kCopper, 120, 0, CableFormula::Omitted, 0},
      {kAluminium, 0, 1, CableFormula::Omitted, 0},
  };
  for (const Case& c : cases) {
    const CableReactance x = CableReactanceOf(c.type, c.s, c.l);
    EXPECT_EQ(x.formula, c.formula) << c.type << " " << c.s << " " << c.l;
    EXPECT_NEAR(x.xl, c.xl, 1e-6) << c.type << " " << c.s << " " << c.l;
  }
  // The re-check with an actual ratio: 0.07 + 6.3/150 = 0.112 whatever the section,
  // 0.07 + 10/240 = 0.111667, the other types as above, and 0 without a section.
  EXPECT_NEAR(RatioRecheckCableReactance(kCopper, 150, 1), 0.112, 1e-12);
  EXPECT_NEAR(RatioRecheckCableReactance(kCopper, 300, 1), 0.091, 1e-12);
  EXPECT_NEAR(RatioRecheckCableReactance(kAluminium, 240, 1), 0.111667, 1e-6);
  EXPECT_NEAR(RatioRecheckCableReactance(kPolyethylene, 300, 2), 0.18, 1e-12);
  EXPECT_EQ(RatioRecheckCableReactance(kCopper, 0, 1), 0);
}

TEST(DjqdFormulas, ReactorAndRatioForARequiredBusVoltageOf0_85) {
  // Skm 20, UM 6 (UM² = 36): Sst = 20.6/0.85 − 20.6 = 3.635294;
  // Xk = 36/3.635294 − 0.07 − 36/6.2352 = 9.902913 − 0.07 − 5.773672 = 4.059241.
  // The smallest catalogue value not below it is 4.2 (12000 is never taken). With it
  // Sst = 1/(1/6.2352 + 4.27/36) = 3.584346, Ustm = 20.6/24.184346 = 0.851791,
  // ustM = Ustm·Sst/Sstm = 0.489658, Istm = Ustm·Sst/(1.732·6)·1000 = 293.7945.
  const RequirementInputs in{20, 1, 0.8, 6, 0.85, kPaper1km, kMotor};
  const ReactorResults r = ReactorForRequirement(in, {0.5, 12000, 5.0, 4.2, 4.0});
  ASSERT_EQ(r.status, Status::Ok);
  EXPECT_NEAR(r.sst_required, 3.635294, 1e-6);
  EXPECT_NEAR(r.xk, 4.059241, 1e-6);
  EXPECT_EQ(r.xz, 4.2);
  EXPECT_NEAR(r.sst, 3.584346, 1e-6);
  EXPECT_NEAR(r.ustm, 0.851791, 1e-6);
  EXPECT_NEAR(r.ustm_motor, 0.489658, 1e-6);
  EXPECT_NEAR(r.istm, 293.7945, 1e-4);
  EXPECT_EQ(ReactorForRequirement(in, {1.0, 4.0}).status, Status::NoReactance);

  // X = 6.2352·(1/3.635294 − 0.07/36) = 1.703060, Kz = 1/√X = 0.766276.
  const RatioResults k = RatioForRequirement(in);
  ASSERT_EQ(k.status, Status::Ok);
  EXPECT_NEAR(k.x, 1.703060, 1e-6);
  EXPECT_NEAR(k.kz, 0.766276, 1e-6);
  // X ≤ 0 once Xl ≥ 36/3.635294 = 9.903 Ω: 150 km of paper-insulated cable (10.5 Ω).
  RequirementInputs far = in;
  far.cable.length = 150;
  EXPECT_EQ(RatioForRequirement(far).status, Status::NoRatio);

  // Actual ratio 0.7 on 150 mm² copper (re-check rule: Xl = 0.112):
  // Sst = 1/(1/(0.49·6.2352) + 0.112/36) = 3.026481, Ustm = 20.6/23.626481 = 0.871903,
  // ustM = Ustm·Sst/(0.7·Sstm) = 0.604585, Istm = ustM·600 = 362.7512.
  RequirementInputs copper = in;
  copper.cable = {kCopper, 150, 1};
  const RatioRecheck a = RecheckActualRatio(copper, 0.7);
  EXPECT_NEAR(a.basics.cable.xl, 0.112, 1e-12);
  EXPECT_NEAR(a.sst, 3.026481, 1e-6);
  EXPECT_NEAR(a.ustm, 0.871903, 1e-6);
  EXPECT_NEAR(a.ustm_motor, 0.604585, 1e-6);
  EXPECT_NEAR(a.istm, 362.7512, 1e-4);
}

TEST(DjqdFormulas, APowerFactorAbove1IsAStateNotANumber) {
  const StartResults s = StartVoltageDrop({StartMethod::Reactor, 20, 0, 0, 1, 0, 1, 1.2, 6, kPaper1km, kMotor});
  EXPECT_EQ(s.status, Status::PowerFactorAboveOne);
  EXPECT_FALSE(std::isnan(s.ustm) || std::isnan(s.istm));
  const RequirementInputs in{20, 1, 1.0001, 6, 0.85, kPaper1km, kMotor};
  EXPECT_EQ(ReactorForRequirement(in, {4.2}).status, Status::PowerFactorAboveOne);
  EXPECT_EQ(RatioForRequirement(in).status, Status::PowerFactorAboveOne);
  EXPECT_EQ(RecheckActualRatio(in, 0.7).status, Status::PowerFactorAboveOne);
  EXPECT_EQ(StartVoltageDrop({StartMethod::Reactor, 20, 0, 0, 1, 0, 1, 1, 6, kPaper1km, kMotor}).basics.qfh, 0);
}

TEST(DjqdFormulas, CatalogueChoices) {
  // Reactance: exact match, between two sizes, none fits, a negative Xk takes the smallest.
  const std::vector<double> reactances{1.05, 2.0, 0.5, 1.5, 10000};
  EXPECT_EQ(ChooseActualReactance(reactances, 1.05), 1.05);
  EXPECT_EQ(ChooseActualReactance(reactances, 1.06), 1.5);
  EXPECT_EQ(ChooseActualReactance(reactances, 2.1), -1);
  EXPECT_EQ(ChooseActualReactance(reactances, -3), 0.5);
  // Starting currents not below Istm 300: the smallest (first of equals); above 10000 A only
  // when no kept one is below it, then the first kept.
  EXPECT_EQ(ChooseStartingCurrent({250, 600, 400, 400, 900}, 300), 2);
  EXPECT_EQ(ChooseStartingCurrent({250, 12000, 11000}, 300), 1);
  EXPECT_EQ(ChooseStartingCurrent({250, 12000, 500}, 300), 2);
  EXPECT_EQ(ChooseStartingCurrent({250, 299.9}, 300), -1);
  // The reactance as the catalogue writes it.
  const char* trims[][2] = {{"1.050", "1.05"}, {"2.000", "2."}, {"10.000", "10."}, {"0.500", "0.5"}, {"000", ""}};
  for (const auto& [shown, looked_up] : trims) EXPECT_EQ(TrimTrailingZeros(shown), looked_up);
}

TEST(DjqdFormulas, TorqueTimeAndOverload) {
  // √(1.1·0.3/1.1) = √0.3 = 0.547723: ustM 0.548 starts the machine, 0.547 does not.
  EXPECT_TRUE(TorqueCheckPasses(0.548, 0.3, 1.1));
  EXPECT_FALSE(TorqueCheckPasses(0.547, 0.3, 1.1));
  EXPECT_NEAR(RequiredTerminalVoltage(0.3, 1.1), 0.547723, 1e-6);
  // t = 8·980²/[365·185·(0.853²·1.1 − 0.3)] = 7683200/33787.48 = 227.398 s; with ustM 0.5 the
  // bracket is −0.025: −4551.32 s, no result; 0.5²·1.2 − 0.3 = 0 and a power of 0: no time at all.
  EXPECT_NEAR(*StartingTime(8, 980, 185, 0.853, 1.1, 0.3), 227.397858, 1e-6);
  const auto negative = StartingTime(8, 980, 185, 0.5, 1.1, 0.3);
  EXPECT_NEAR(*negative, -4551.321733, 1e-6);
  EXPECT_FALSE(HasStartingTime(negative));
  EXPECT_FALSE(StartingTime(8, 980, 185, 0.5, 1.2, 0.3));
  EXPECT_FALSE(StartingTime(8, 980, 0, 0.853, 1.1, 0.3));
  // KI = 0.853·1.333/0.63 = 1.804840; Iqk = 1.726512·10·2/120 = 0.287752;
  // SrTz = 0.9·1.265·10·2/120 = 0.18975.
  EXPECT_NEAR(*OverloadTransformerUnit(0.853, 1.333, 0.63), 1.804840, 1e-6);
  EXPECT_NEAR(*OverloadReactor(1726.512, 10), 0.287752, 1e-9);
  EXPECT_NEAR(*OverloadAutotransformer(0.9, 1.265, 10), 0.18975, 1e-9);
  EXPECT_FALSE(OverloadTransformerUnit(0.853, 1.333, 0));
}

TEST(DjqdFormulas, PickedResistingTorqueAndPowerFactorSpin) {
  EXPECT_DOUBLE_EQ(*ResistingTorqueOfCell("0.3~0.5"), 0.4);
  EXPECT_DOUBLE_EQ(*ResistingTorqueOfCell("0.25"), 0.25);
  EXPECT_DOUBLE_EQ(*ResistingTorqueOfCell("0.1~0.2~0.9"), 0.15);
  EXPECT_FALSE(ResistingTorqueOfCell(""));
  struct Case {
    double from;
    int delta;  // −1 is the up arrow
    double to;
    bool warned;
  };
  const Case cases[] = {{0.8, -1, 0.81, false}, {0.8, 1, 0.79, false}, {1, -1, 1, false},
                        {0.01, 1, 0.01, false}, {1.5, -1, 0.02, true}, {0.005, 1, 0.01, true}};
  for (const Case& c : cases) {
    const SpinResult r = SpinPowerFactor(c.from, c.delta);
    EXPECT_NEAR(r.cos_phi, c.to, 1e-12) << c.from << " " << c.delta;
    EXPECT_EQ(r.warned, c.warned) << c.from << " " << c.delta;
  }
}

}  // namespace

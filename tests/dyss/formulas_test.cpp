// Voltage loss, permissible length and the harmonic correction at the handbook's worked values
// and at the points where a wrong constant, grouping or guard would show.
#include "dyss/dyss_formulas.h"

#include <gtest/gtest.h>

#include "dyss/dyss_params.h"

namespace {
using namespace kestra::dyss;

// The line of the worked examples: R′ 0.193 Ω/km, X′ 0.08 Ω/km, U 0.38 kV; cosφ 0.8, sinφ 0.6.
LossInputs Line(int kind, int form) {
  LossInputs in;
  in.kind = kind;
  in.form = form;
  in.cos_phi = 0.8;
  in.line = {"0.193", "0.08", "0.38"};
  return in;
}

TEST(DyssLoss, LineFormsByKind) {
  // A = 0.193·0.8 + 0.08·0.6 = 0.2024, B = 0.193 + 0.08·0.6/0.8 = 0.253; U·10 = 3.8, U·10·U = 1.444.
  struct Case {
    int kind, form;
    double want;
  };
  const Case cases[] = {
      // I 100 A, l 0.5 km: A·I·l = 10.12
      {0, 0, 4.612589474},  // 10.12·1.732 / 3.8
      {1, 0, 5.326315789},  // 10.12·2 / 3.8
      {2, 0, 6.918884211},  // 10.12·2.598 / 3.8
      {3, 0, 9.225178947},  // 10.12·2 / (3.8/1.732)
      // I1 100, l1 0.5; load 2 empty; I3 50, l3 0.2: ΣA·I·l = 0.2024·60 = 12.144
      {0, 1, 5.535107368},  // 12.144·1.732 / 3.8
      // P 100 kW, l 0.5 km: B·P·l = 12.65
      {0, 2, 8.760387812},   // 12.65 / 1.444
      {2, 2, 19.710872576},  // 12.65·2.25 / 1.444
      {3, 2, 52.559243213},  // 12.65·2 / ((0.38/1.732)·10·(0.38/1.732))
      // P1 100 l1 0.5, P2 200 l2 0.25: ΣP·l·B = 100·0.253 = 25.3
      {0, 3, 17.520775623},  // 25.3 / 1.444
      {1, 3, 35.041551247},  // 25.3·2 / 1.444
  };
  for (const Case& c : cases) {
    LossInputs in = Line(c.kind, c.form);
    in.current = {"100", "", "50"};
    in.length = c.form == 3 ? std::array<std::string, 6>{"0.5", "0.25"} : std::array<std::string, 6>{"0.5", "", "0.2"};
    in.load = {"100", c.form == 3 ? "200" : ""};
    const LossResult r = ComputeLoss(in);
    ASSERT_EQ(r.outcome, Outcome::kValue) << c.kind << "/" << c.form;
    EXPECT_NEAR(r.du, c.want, 1e-8) << c.kind << "/" << c.form;
    if (c.form == 1) {  // the report's terms: tgφ = 0.6/0.8, ΣIL = 100·0.5 + 0 + 50·0.2
      EXPECT_NEAR(r.tan_phi, 0.75, 1e-12);
      EXPECT_NEAR(r.sum_il, 60, 1e-12);
    }
  }
  // cosφ = 1: sinφ = 0 and B = R′; 0.193·50 / 1.444.
  LossInputs in = Line(0, 2);
  in.cos_phi = 1;
  in.load[0] = "100";
  in.length[0] = "0.5";
  EXPECT_NEAR(ComputeLoss(in).du, 6.682825485, 1e-8);
}

TEST(DyssLoss, SectionAndCoefficientFormWithTheStoredDefaults) {
  // The form's defaults: S 120, C 7.66, P1..P6 1000 kW, l1..l6 1 km; C·S = 919.2.
  LossInputs in;
  in.form = 4;
  for (const ParamKey& k : LossFormKeys(4)) {
    if (k.role != Role::kFieldText) continue;
    auto e = static_cast<std::size_t>(k.field.element);
    switch (k.field.field) {
      case Field::kLoad: in.load[e] = k.default_text; break;
      case Field::kLength: in.length[e] = k.default_text; break;
      case Field::kSection: in.section = k.default_text; break;
      case Field::kCoefficient: in.coefficient = k.default_text; break;
      default: FAIL() << k.name;
    }
  }
  const double want[] = {6.527415144,   // 6000 / 919.2
                         13.054830287,  // 2·6000 / 919.2
                         1.087902524,   // kinds 2 and 3: P1·l1 only, 1000 / 919.2
                         1.087902524};
  for (int kind = 0; kind < 4; ++kind) {
    in.kind = kind;
    EXPECT_NEAR(ComputeLoss(in).du, want[kind], 1e-8) << kind;
  }
  // No catalogue line is needed here, and cosφ plays no part.
  EXPECT_EQ(ComputeLoss(in).outcome, Outcome::kValue);
}

TEST(DyssLoss, NoLineDataOrNoFiniteNumberIsAStateNotANumber) {
  for (int form : {0, 1, 2, 3}) {
    LossInputs in = Line(0, form);
    in.current[0] = in.load[0] = "100";
    in.length[0] = "0.5";
    in.line = {"", "", ""};  // a line table without rows
    EXPECT_EQ(ComputeLoss(in).outcome, Outcome::kNoLineData) << form;
  }
  LossInputs in = Line(0, 4);
  in.section = in.coefficient = "1";
  in.load[0] = in.length[0] = "1e300";  // each a number, their product beyond a double
  EXPECT_EQ(ComputeLoss(in).outcome, Outcome::kNotFinite);
  EXPECT_EQ(ComputeLoss(Line(2, 1)).outcome, Outcome::kNoFormula);  // kinds 2 and 3 have no six-load forms
  EXPECT_EQ(ComputeLoss(Line(3, 3)).outcome, Outcome::kNoFormula);
}

TEST(DyssLength, KindsAndFormsAtTheWorkedLine) {
  // Un 0.38, R′ 0.5, X′ 0.08, cosφ 0.8, Δu 5: R′cosφ + X′sinφ = 0.448, R′ + X′tgφ = 0.56;
  // Δu·10·Un = 19, Δu·10·Un·Un = 7.22.
  struct Case {
    int kind, form;
    double want;
  };
  const Case cases[] = {
      {0, 0, 0.244865556},  // 19 / (100·1.732·0.448)
      {1, 0, 0.212053571},  // 19 / (100·2·0.448)
      {2, 0, 0.163243704},  // 19 / (100·1.5·1.732·0.448)
      {3, 0, 0.122432778},  // 5·10·(0.38/1.732) / (100·2·0.448)
      {0, 1, 0.128928571},  // 7.22 / (0.56·100)
      {1, 1, 0.064464286},  // 7.22 / (0.56·2·100)
      {2, 1, 0.057301587},  // 7.22 / (0.56·2.25·100)
      {3, 1, 0.021489356},  // 5·10·(0.38/1.732)² / (0.56·2·100)
  };
  for (const Case& c : cases) {
    LengthInputs in;
    in.kind = c.kind;
    in.form = c.form;
    in.current = "100";
    in.load = "100";
    in.require = "5";
    in.line = {"0.5", "0.08", "0.38"};
    for (double cos_phi : {0.8, 0.8004}) {  // the calculation takes cosφ to three decimals
      in.cos_phi = cos_phi;
      const LengthResult r = ComputeLength(in);
      ASSERT_EQ(r.outcome, Outcome::kValue) << c.kind << "/" << c.form;
      EXPECT_NEAR(r.l, c.want, 1e-8) << c.kind << "/" << c.form << " cosφ " << cos_phi;
      EXPECT_EQ(r.cos_phi, 0.8);
    }
  }
  LengthInputs none;  // no catalogue line: R′, X′ and Un read as 0
  none.current = "100";
  none.require = "5";
  none.cos_phi = 0.8;
  EXPECT_EQ(ComputeLength(none).outcome, Outcome::kNoLineData);
  none.line = {"0.5", "0.08", ""};  // impedance without a voltage would give 0 km
  EXPECT_EQ(ComputeLength(none).outcome, Outcome::kNoLineData);
}

TEST(DyssLength, ThirdHarmonicCurrentAndLength) {
  // I = 100 A. 20%: √(100² + 20²)/0.86 = 101.980390/0.86; 40%: 100·0.4·3/0.86; 50%: 100·0.5·3/1.
  const char* const cases[][3] = {{"1.0", "100"}, {"0.86", "118.582"}, {"0.86", "139.535"}, {"1.0", "150"}};
  for (int position = 0; position < 4; ++position) {
    const auto h = HarmonicCurrentOf(position, 100);
    ASSERT_TRUE(h) << position;
    EXPECT_STREQ(h->k_text, cases[position][0]);
    EXPECT_EQ(h->i_prime_text, cases[position][1]);
  }
  EXPECT_NEAR(HarmonicCurrentOf(2, 100)->i_prime, 139.534884, 1e-6);  // the value is not rounded
  EXPECT_FALSE(HarmonicCurrentOf(-1, 100));
  EXPECT_FALSE(HarmonicCurrentOf(4, 100));

  LengthInputs in;
  in.current = "100";
  in.require = "5";
  in.cos_phi = 0.8;
  in.line = {"0.5", "0.08", "0.38"};
  const LengthResult line = ComputeLength(in);
  // L′ = 19 / (139.535·1.732·0.448) with I′ as its edit shows it; an equal rating passes.
  const HarmonicLength ok = ComputeHarmonicLength(line, "139.535", "139.535");
  EXPECT_FALSE(ok.ampacity_short);
  ASSERT_EQ(ok.outcome, Outcome::kValue);
  EXPECT_NEAR(ok.l_prime, 0.175486836, 1e-8);
  EXPECT_TRUE(ComputeHarmonicLength(line, "139.535", "139.534").ampacity_short);
  EXPECT_TRUE(ComputeHarmonicLength(line, "139.535", "120").ampacity_short);
  EXPECT_EQ(ComputeHarmonicLength(ComputeLength(LengthInputs{}), "1", "1").outcome, Outcome::kNoLineData);
}

TEST(DyssLength, SpinStepsAndFocusLossRules) {
  const double spins[][3] = {{0.8, -1, 0.85}, {0.8, 1, 0.75}, {0.98, -1, 1}, {0.02, 1, 0}, {0, -2, 0.1}};
  for (const auto& [from, delta, want] : spins)
    EXPECT_NEAR(SpinPowerFactor(from, static_cast<int>(delta)), want, 1e-12) << from << " " << delta;
  // I and I′: negative or empty become 1; the rating: negative becomes 0.
  const std::pair<const char*, double> currents[] = {{"", 1}, {"-3", 1}, {"2.5", 2.5}, {"0", 0}};
  for (const auto& [t, want] : currents) EXPECT_EQ(NormalisedCurrent(t), want) << t;
  const std::pair<const char*, double> ratings[] = {{"", 0}, {"-3", 0}, {"160", 160}};
  for (const auto& [t, want] : ratings) EXPECT_EQ(NormalisedRating(t), want) << t;
}

}  // namespace

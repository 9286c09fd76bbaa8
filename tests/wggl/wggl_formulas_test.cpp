// The calculator's arithmetic at the points where a designer would notice a difference.
#include "wggl/wggl_formulas.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {
using namespace kestra::wggl;

TEST(WgglFormulas, Round2RoundsHalfUpOnTheScaledValueAndTruncatesTowardsZero) {
  // −12.6 + 0.5 = −12.1 truncates to −12; 3e8 is beyond a 32-bit integer once scaled, same rule.
  const double cases[][2] = {{-0.126, -0.12}, {0.125, 0.13},  {0.124999, 0.12},
                             {412.5, 412.5},  {-0.004, 0.0}, {3e8 + 0.126, 3e8 + 0.13}};
  for (const auto& [x, want] : cases) EXPECT_DOUBLE_EQ(Round2(x), want) << x;
  EXPECT_TRUE(std::isnan(Round2(NAN)));
}

TEST(WgglFormulas, TangentsAreTakenAsTheirTwoDecimalTextsAndTheSignIsKept) {
  auto r = RateOf(0.75, 0.95);
  ASSERT_TRUE(r);
  EXPECT_EQ(r->tan1_text, "0.88");
  EXPECT_EQ(r->tan2_text, "0.33");
  EXPECT_DOUBLE_EQ(r->qc, 0.88 - 0.33);
  EXPECT_DOUBLE_EQ(Round2(SignedCapacity(0.75, 1000, r->qc)), 412.5);
  auto neg = RateOf(0.95, 0.75);  // the target below the natural factor
  ASSERT_TRUE(neg);
  EXPECT_LT(SignedCapacity(0.75, 1000, neg->qc), 0);
  EXPECT_EQ(RateOf(1, 1)->tan1_text, "0.00");
  // Power factors without a finite tangent give no rate; a negative one within −1…1 does.
  const double no_tangent[][2] = {{0, 0.9}, {0.9, 1.01}, {-1.5, 0.9}, {NAN, 0.9}};
  for (const auto& [cos1, cos2] : no_tangent) EXPECT_FALSE(RateOf(cos1, cos2)) << cos1 << " " << cos2;
  EXPECT_TRUE(RateOf(-0.5, 1));
}

TEST(WgglFormulas, ACapacitorMoreOnlyBeyondTheTolerance) {
  // 420 / 30 is exactly 14; 420.006 is 14.0002; 420.0015 is 14.00005, within the tolerance.
  const double cases[][2] = {{412.5, 14}, {420, 14}, {420.006, 15}, {420.0015, 14}, {0, 0}, {0.01, 1}};
  for (const auto& [qc, n] : cases) EXPECT_EQ(CapacitorCount(qc, 30), n) << qc;
}

TEST(WgglFormulas, SpinStepsAndTheirLimits) {
  constexpr SpinKind kPf = SpinKind::PowerFactor, kCo = SpinKind::Coefficient;
  struct Case {
    SpinKind kind;
    double from;
    int delta;  // −1 is the up arrow
    double want;
  };
  const Case cases[] = {
      // Power factors: steps of 0.05 between 0.05 and 1, a typed value above the top comes back.
      {kPf, 0.75, -1, 0.8}, {kPf, 0.75, 1, 0.7}, {kPf, 1, -1, 1.0}, {kPf, 0.98, -1, 1.0},
      {kPf, 0.05, 1, 0.05}, {kPf, 0.07, 1, 0.05}, {kPf, 3, 1, 1.0},
      // Coefficients: steps of 0.01; 0 itself stays, below 0 jumps back to 0.01.
      {kCo, 0.75, -1, 0.76}, {kCo, 0.03, 1, 0.02}, {kCo, 0.01, 1, 0.0}, {kCo, 0.0, 1, 0.01},
      {kCo, 1, -1, 1.0}, {kCo, -0.5, -1, 0.01},
  };
  for (const Case& c : cases)
    EXPECT_DOUBLE_EQ(SpinStep(c.kind, c.from, c.delta), c.want) << int(c.kind) << " " << c.from << " " << c.delta;
}

}  // namespace

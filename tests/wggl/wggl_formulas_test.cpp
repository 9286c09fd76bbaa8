// The calculator's arithmetic at the points where a designer would notice a difference.
#include "wggl/wggl_formulas.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {
using namespace kestra::wggl;

TEST(WgglRound2, RoundsHalfUpOnTheScaledValueAndTruncatesTowardsZero) {
  EXPECT_DOUBLE_EQ(Round2(-0.126), -0.12);  // −12.6 + 0.5 = −12.1 truncates to −12
  EXPECT_DOUBLE_EQ(Round2(0.125), 0.13);
  EXPECT_DOUBLE_EQ(Round2(0.124999), 0.12);
  EXPECT_DOUBLE_EQ(Round2(412.5), 412.5);
  EXPECT_DOUBLE_EQ(Round2(-0.004), 0.0);
  // Beyond what a 32-bit integer holds after scaling, the same rule still gives the value.
  EXPECT_DOUBLE_EQ(Round2(3e8 + 0.126), 3e8 + 0.13);
  EXPECT_TRUE(std::isnan(Round2(NAN)));
}

TEST(WgglRate, TangentsAreTakenAsTheirTwoDecimalTexts) {
  auto r = RateOf(0.75, 0.95);
  ASSERT_TRUE(r);
  EXPECT_EQ(r->tan1_text, "0.88");
  EXPECT_EQ(r->tan2_text, "0.33");
  EXPECT_DOUBLE_EQ(r->qc, 0.88 - 0.33);
  EXPECT_DOUBLE_EQ(Round2(SignedCapacity(0.75, 1000, r->qc)), 412.5);
  // The target below the natural factor: negative capacity, kept with its sign here.
  auto neg = RateOf(0.95, 0.75);
  ASSERT_TRUE(neg);
  EXPECT_LT(SignedCapacity(0.75, 1000, neg->qc), 0);
  EXPECT_EQ(RateOf(1, 1)->tan1_text, "0.00");
}

TEST(WgglRate, PowerFactorsWithoutAFiniteTangentGiveNoRate) {
  EXPECT_FALSE(RateOf(0, 0.9));
  EXPECT_FALSE(RateOf(0.9, 1.01));
  EXPECT_FALSE(RateOf(-1.5, 0.9));
  EXPECT_FALSE(RateOf(NAN, 0.9));
  EXPECT_TRUE(RateOf(-0.5, 1));  // negative but within −1…1: a finite (negative) tangent
}

TEST(WgglCapacitorCount, AddsACapacitorOnlyBeyondTheTolerance) {
  EXPECT_EQ(CapacitorCount(412.5, 30), 14);
  EXPECT_EQ(CapacitorCount(420, 30), 14);        // exactly 14
  EXPECT_EQ(CapacitorCount(420.006, 30), 15);    // 14.0002
  EXPECT_EQ(CapacitorCount(420.0015, 30), 14);   // 14.00005: within the tolerance
  EXPECT_EQ(CapacitorCount(0, 30), 0);
  EXPECT_EQ(CapacitorCount(0.01, 30), 1);
}

TEST(WgglNaturalFactor, FromLoadsAndFromEnergy) {
  EXPECT_NEAR(NaturalFactorFromLoads(0.75, 0.75, 1000, 882), 0.75, 0.001);
  EXPECT_NEAR(NaturalFactorFromLoads(0.75, 0.8, 1000, 0), 1.0, 1e-12);
  EXPECT_NEAR(NaturalFactorFromEnergy(1000, 882), 0.75, 0.001);
  EXPECT_NEAR(NaturalFactorFromEnergy(1000, 1000), std::sqrt(0.5), 1e-12);
  EXPECT_LT(NaturalFactorFromEnergy(100, 1000), kMinNaturalFactor);
}

TEST(WgglSpin, PowerFactorStepsAndLimits) {
  EXPECT_DOUBLE_EQ(SpinStep(SpinKind::PowerFactor, 0.75, -1), 0.8);   // up
  EXPECT_DOUBLE_EQ(SpinStep(SpinKind::PowerFactor, 0.75, 1), 0.7);    // down
  EXPECT_DOUBLE_EQ(SpinStep(SpinKind::PowerFactor, 1, -1), 1.0);      // stays at the top
  EXPECT_DOUBLE_EQ(SpinStep(SpinKind::PowerFactor, 0.98, -1), 1.0);
  EXPECT_DOUBLE_EQ(SpinStep(SpinKind::PowerFactor, 0.05, 1), 0.05);   // stays at the bottom
  EXPECT_DOUBLE_EQ(SpinStep(SpinKind::PowerFactor, 0.07, 1), 0.05);
  EXPECT_DOUBLE_EQ(SpinStep(SpinKind::PowerFactor, 3, 1), 1.0);       // typed above the top
}

TEST(WgglSpin, CoefficientStepsAndLimits) {
  EXPECT_DOUBLE_EQ(SpinStep(SpinKind::Coefficient, 0.75, -1), 0.76);
  EXPECT_DOUBLE_EQ(SpinStep(SpinKind::Coefficient, 0.03, 1), 0.02);
  EXPECT_DOUBLE_EQ(SpinStep(SpinKind::Coefficient, 0.01, 1), 0.0);   // 0 itself stays
  EXPECT_DOUBLE_EQ(SpinStep(SpinKind::Coefficient, 0.0, 1), 0.01);   // below 0 jumps back to 0.01
  EXPECT_DOUBLE_EQ(SpinStep(SpinKind::Coefficient, 1, -1), 1.0);
  EXPECT_DOUBLE_EQ(SpinStep(SpinKind::Coefficient, -0.5, -1), 0.01);
}

}  // namespace

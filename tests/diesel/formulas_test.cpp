// The three capacity methods beyond the worked values of the report tests: the near-zero rule,
// the evaluation order, and which peak-load formula the report's SG2 comes from.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "diesel/diesel_formulas.h"

namespace {

using namespace kestra::diesel;

SteadyLoadInputs Steady(double p, double eta, double cos_phi) { return {p, eta, cos_phi}; }
PeakLoadInputs Peak(double kj, double kg, double sm, double pm, double qm) { return {kj, kg, sm, pm, qm}; }
BusDropInputs BusDrop(double du, double xd, double sst) { return {du, xd, sst}; }

TEST(DieselFormulas, DivisorsStrictlyInsideOneMillionthGiveZero) {
  // Exactly ±1e-6 is used as a divisor.
  const double used[][2] = {{SteadyLoadCapacity(Steady(1, 1, 1e-6)), 1e6},
                            {SteadyLoadCapacity(Steady(1, -1e-6, 1)), -1e6},
                            {PeakLoadCapacity(Peak(1, 1e-6, 1, 0, 0)), 1e6},
                            {PeakLoadCapacityFromPQ(Peak(1, -1e-6, 0, 3, 4)), -5e6},
                            {BusDropCapacity(BusDrop(1e-6, 1, 1)), (1 - 1e-6) / 1e-6},
                            {BusDropCapacity(BusDrop(-1e-6, 1, 1)), (1 + 1e-6) / -1e-6},
                            {BusDropCapacity(BusDrop(2, 0.2, 1000)), -100}};  // nothing is range-checked
  for (const auto& [got, want] : used) EXPECT_DOUBLE_EQ(got, want);
  // Inside the band: 0, whichever divisor it is.
  const double zero[] = {SteadyLoadCapacity(Steady(500, 0.85, 0)),
                         SteadyLoadCapacity(Steady(500, 0.0000005, 0.8)),
                         SteadyLoadCapacity(Steady(500, 0.85, -0.0000005)),
                         PeakLoadCapacity(Peak(0.9, 0, 600, 300, 400)),
                         PeakLoadCapacityFromPQ(Peak(0.9, 0, 600, 300, 400)),
                         PeakLoadCapacityFromPQ(Peak(0.9, 0.0000005, 600, 300, 400)),
                         BusDropCapacity(BusDrop(0, 0.2, 1000)),
                         BusDropCapacity(BusDrop(-0.0000005, 0.2, 1000))};
  for (std::size_t i = 0; i < std::size(zero); ++i) EXPECT_EQ(zero[i], 0.0) << "case " << i;
  // Not a number is not near zero: it goes into the formula.
  const double nan = std::numeric_limits<double>::quiet_NaN();
  EXPECT_FALSE(NearZero(nan));
  for (double got : {SteadyLoadCapacity(Steady(500, 0.85, nan)), PeakLoadCapacity(Peak(0.9, nan, 600, 0, 0)),
                     BusDropCapacity(BusDrop(nan, 0.2, 1000))})
    EXPECT_TRUE(std::isnan(got));
}

// Values for which the handbook's order and an algebraically equal one round differently.
TEST(DieselFormulas, FormulasAreEvaluatedInTheHandbooksOrder) {
  const double p = 0.1, eta = 0.3, cosphi = 0.7;
  ASSERT_NE(p / (eta * cosphi), p / eta / cosphi);
  EXPECT_EQ(SteadyLoadCapacity(Steady(p, eta, cosphi)), p / (eta * cosphi));

  const double kj = 0.7, kg = 0.3, sm = 0.1;
  ASSERT_NE((kj / kg) * sm, kj * sm / kg);
  EXPECT_EQ(PeakLoadCapacity(Peak(kj, kg, sm, 0, 0)), (kj / kg) * sm);

  const double du = 0.1, xd = 0.1, sst = 7.0;
  ASSERT_NE(((1 - du) / du) * xd * sst, (1 - du) * xd * sst / du);
  ASSERT_NE(((1 - du) / du) * xd * sst, ((1 - du) / du) * (xd * sst));
  EXPECT_EQ(BusDropCapacity(BusDrop(du, xd, sst)), ((1 - du) / du) * xd * sst);
}

// The report's SG2 comes from Pm and Qm (0.6 · 500) exactly when the stored Sm is near zero.
TEST(DieselFormulas, ReportedPeakLoadSwitchesToPmQmWhenSmIsNearZero) {
  EXPECT_DOUBLE_EQ(Calculate({{}, Peak(0.9, 1.5, 0.0000005, 300, 400), {}}).sg2, 300);
  EXPECT_DOUBLE_EQ(Calculate({{}, Peak(0.9, 1.5, 1e-6, 300, 400), {}}).sg2, 0.9 / 1.5 * 1e-6);
}

}  // namespace

// The three capacity methods: worked values, the near-zero rule, evaluation order and the
// report paragraphs character for character. Symbols are written as \u escapes here so a
// look-alike character in the product's texts cannot pass.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <type_traits>

#include "diesel/diesel_calculators.h"

namespace {

// Calculators live by value in their pages and are never deleted through the base.
static_assert(!std::has_virtual_destructor_v<ZoUiDieselContentCalBase>);
static_assert(!std::is_destructible_v<ZoUiDieselContentCalBase>);

template <class Calculator, class... Values>
Calculator With(Values... values) {
  Calculator c;
  c.SetParams(values...);
  return c;
}
ZoUiWDFHCal Steady(double p, double eta, double cos_phi) { return With<ZoUiWDFHCal>(p, eta, cos_phi); }
ZoUiJFFHCal Peak(double kj, double kg, double sm, double pm, double qm) { return With<ZoUiJFFHCal>(kj, kg, sm, pm, qm); }
ZoUiMXYXYJCal BusDrop(double du, double xd, double sst) { return With<ZoUiMXYXYJCal>(du, xd, sst); }
// The capacity as the report shows it.
std::string Shown(const ZoUiDieselContentCalBase& c) { return c.FormatValue(c.Calculate()); }

TEST(DieselCalculators, WorkedValuesThroughTheCommonInterface) {
  EXPECT_EQ(Shown(Steady(500, 0.85, 0.8)), "735.294");
  EXPECT_EQ(Shown(Peak(0.9, 1.5, 600, 0, 0)), "360.000");
  const ZoUiJFFHCal from_pq = Peak(0.9, 1.5, 0, 300, 400);
  EXPECT_EQ(from_pq.FormatValue(from_pq.CalculateFromPQ()), "300.000");
  EXPECT_EQ(Shown(from_pq), "0.000");  // Calculate() itself uses Sm
  EXPECT_EQ(Shown(BusDrop(0.2, 0.2, 1000)), "800.000");
  EXPECT_EQ(Shown(BusDrop(1, 0.2, 1000)), "0.000");
  // Nothing is range-checked: a drop above 1 gives a negative capacity.
  EXPECT_EQ(Shown(BusDrop(2, 0.2, 1000)), "-100.000");
}

TEST(DieselCalculators, DivisorsStrictlyInsideOneMillionthGiveZero) {
  // Exactly ±1e-6 is used as a divisor.
  const double used[][2] = {{Steady(1, 1, 1e-6).Calculate(), 1e6},
                            {Steady(1, -1e-6, 1).Calculate(), -1e6},
                            {Peak(1, 1e-6, 1, 0, 0).Calculate(), 1e6},
                            {Peak(1, -1e-6, 0, 3, 4).CalculateFromPQ(), -5e6},
                            {BusDrop(1e-6, 1, 1).Calculate(), (1 - 1e-6) / 1e-6},
                            {BusDrop(-1e-6, 1, 1).Calculate(), (1 + 1e-6) / -1e-6}};
  for (const auto& [got, want] : used) EXPECT_DOUBLE_EQ(got, want);
  // Inside the band: 0, whichever divisor it is.
  const double zero[] = {Steady(500, 0.85, 0).Calculate(),          Steady(500, 0.0000005, 0.8).Calculate(),
                         Steady(500, 0.85, -0.0000005).Calculate(), Peak(0.9, 0, 600, 300, 400).Calculate(),
                         Peak(0.9, 0, 600, 300, 400).CalculateFromPQ(),
                         Peak(0.9, 0.0000005, 600, 300, 400).CalculateFromPQ(),
                         BusDrop(0, 0.2, 1000).Calculate(),         BusDrop(-0.0000005, 0.2, 1000).Calculate()};
  for (std::size_t i = 0; i < std::size(zero); ++i) EXPECT_EQ(zero[i], 0.0) << "case " << i;
  // Not a number is not near zero: it goes into the formula.
  const double nan = std::numeric_limits<double>::quiet_NaN();
  EXPECT_FALSE(kestra::diesel::NearZero(nan));
  for (double got : {Steady(500, 0.85, nan).Calculate(), Peak(0.9, nan, 600, 0, 0).Calculate(),
                     BusDrop(nan, 0.2, 1000).Calculate()})
    EXPECT_TRUE(std::isnan(got));
}

// Values for which the handbook's order and an algebraically equal one round differently.
TEST(DieselCalculators, FormulasAreEvaluatedInTheHandbooksOrder) {
  const double p = 0.1, eta = 0.3, cosphi = 0.7;
  ASSERT_NE(p / (eta * cosphi), p / eta / cosphi);
  EXPECT_EQ(Steady(p, eta, cosphi).Calculate(), p / (eta * cosphi));

  const double kj = 0.7, kg = 0.3, sm = 0.1;
  ASSERT_NE((kj / kg) * sm, kj * sm / kg);
  EXPECT_EQ(Peak(kj, kg, sm, 0, 0).Calculate(), (kj / kg) * sm);

  const double du = 0.1, xd = 0.1, sst = 7.0;
  ASSERT_NE(((1 - du) / du) * xd * sst, (1 - du) * xd * sst / du);
  ASSERT_NE(((1 - du) / du) * xd * sst, ((1 - du) / du) * (xd * sst));
  EXPECT_EQ(BusDrop(du, xd, sst).Calculate(), ((1 - du) / du) * xd * sst);
}

const char* const kSteadyHead = "1\uFF09\t\u6309\u7A33\u5B9A\u8D1F\u8377\u8BA1\u7B97\u53D1\u7535\u673A\u5BB9\u91CF\uFF1A\n";

TEST(DieselCalculatorTexts, SteadyLoadParagraphs) {
  const ZoUiWDFHCal c = Steady(500, 0.85, 0.8);
  EXPECT_EQ(std::string(kSteadyHead), "1）\t按稳定负荷计算发电机容量：\n");
  EXPECT_EQ(c.GetParamText(),
            std::string(kSteadyHead) +
                "      发电机总负荷计算功率P<L>\u2211</L>=500.000\uFF08kW\uFF09；\n"
                "      所带负荷的综合效率\u03B7<L>\u2211</L>=0.850，一般取=0.82~0.88；\n"
                "      发电机额定功率因数cos\u03C6= 0.800，一般取cos\u03C6=0.8。\n");
  EXPECT_EQ(c.GetResultText(), std::string(kSteadyHead) +
                                   "           S<L>G1</L>=P<L>\u2211</L>/\uFF08\u03B7<L>\u2211</L>cos\u03C6\uFF09=735.294\n");
}

TEST(DieselCalculatorTexts, PeakLoadParagraphsAndTheSwitchToPmQm) {
  const std::string head = "2）\t按尖峰负荷计算发电机容量：\n";
  const std::string formula =
      "           S<L>G2</L>=(K<L>j</L>/K<L>G</L>)S<L>m</L>= (K<L>j</L>/K<L>G</L>)\u221A(P<L>2m</L>+Q<L>2m</L>)=";
  const ZoUiJFFHCal with_sm = Peak(0.9, 1.5, 600, 300, 400);
  EXPECT_EQ(with_sm.GetParamText(),
            head +
                "      因尖峰负荷造成电压、频率降低而导致电动机功率下降的系数K<L>j</L>= 0.900，一般取K<L>j</L>=0.9~0.95；\n"
                "      发电机允许短时过载系数K<L>G</L>=1.500，一般取K<L>G</L>=1.4~1.6；\n"
                "      最大的单台电动机或成组电动机的起动容量S<L>m</L>= 600.000\uFF08kVA\uFF09；\n"
                "      S<L>m</L>的有功功率P<L>m</L>=300.000\uFF08kW\uFF09；\n"
                "      S<L>m</L>的无功功率Q<L>m</L>=400.000\uFF08kvar\uFF09。\n");
  EXPECT_EQ(with_sm.GetResultText(), head + formula + "360.000\n");

  // Sm near zero: the result comes from Pm and Qm; the parameters still show Sm as 0.000.
  const ZoUiJFFHCal without_sm = Peak(0.9, 1.5, 0.0000005, 300, 400);
  EXPECT_EQ(without_sm.GetResultText(), head + formula + "300.000\n");
  EXPECT_NE(without_sm.GetParamText().find("S<L>m</L>= 0.000（kVA）"), std::string::npos);
  // Just outside the band Sm is used, tiny as it is.
  EXPECT_EQ(Peak(0.9, 1.5, 1e-6, 300, 400).GetResultText(), head + formula + "0.000\n");
}

TEST(DieselCalculatorTexts, BusDropParagraphs) {
  const std::string head = "3）\t按发电机母线允许压降计算发电机容量：\n";
  const ZoUiMXYXYJCal c = BusDrop(0.2, 0.2, 1000);
  EXPECT_EQ(c.GetParamText(),
            head +
                "      发电机母线允许电压降\u25B3U= 0.200，一般取\u25B3U=0.2；\n"
                "      发电机瞬态电抗X\u2019<L>d</L>= 0.200，一般取X\u2019<L>d</L>=0.2；\n"
                "      导致发电机最大电压降的电动机的最大起动容量S<L>st\u25B3</L>= 1000.000\uFF08kVA\uFF09。\n");
  EXPECT_EQ(c.GetResultText(),
            head + "           S<L>G3</L>=((1-\u25B3U)/\u25B3U)X\u2019<L>d</L>S<L>st\u25B3</L>=800.000\n");
}

TEST(DieselCalculatorTexts, NeverCalculatedShowsZeroEverywhere) {
  const ZoUiWDFHCal s;
  const ZoUiJFFHCal p;
  const ZoUiMXYXYJCal b;
  auto count = [](const std::string& text, const std::string& what) {
    int n = 0;
    for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + 1)) ++n;
    return n;
  };
  const std::pair<const ZoUiDieselContentCalBase*, int> cases[] = {{&s, 3}, {&p, 5}, {&b, 3}};
  for (const auto& [c, fields] : cases) {
    const std::string params = c->GetParamText();
    EXPECT_EQ(count(params, "0.000"), fields) << params;
    const std::string result = c->GetResultText();
    EXPECT_EQ(result.substr(result.size() - 7), "=0.000\n") << result;
  }
}

}  // namespace

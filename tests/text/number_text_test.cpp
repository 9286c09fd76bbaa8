#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <cstdlib>
#include <cwchar>
#include <string>

#include "services/text/number_checks.h"
#include "services/text/number_text.h"

using namespace kestra::text;

namespace {
// The C library itself, on the wide text, is the reference for the readings.
double RefWcstod(const std::wstring& w) { return std::wcstod(w.c_str(), nullptr); }
std::wstring Widen(const std::string& s) {
  std::wstring w;
  for (unsigned char c : s) w += static_cast<wchar_t>(c);  // ASCII inputs only
  return w;
}
}  // namespace

TEST(NumberText, ReadsLikeWcstodOnTrickyInputs) {
  for (const char* s : {"", " ", "  12.5", "\t-3", "+4", "1e3", ".5", "5.", "1.2.3", "0.0004", "-0", "inf",
                        "-INF", "nan", "0x10", "1e", "1e+", "e5", "12abc", "  .", "-", "+.7e-2x", "00012",
                        "1,5", "3 4"}) {
    double ours = WcsToD(s);
    double ref = RefWcstod(Widen(s));
    if (std::isnan(ref)) {
      EXPECT_TRUE(std::isnan(ours)) << s;
    } else {
      EXPECT_EQ(ours, ref) << '"' << s << '"';
      EXPECT_EQ(std::signbit(ours), std::signbit(ref)) << s;
    }
  }
  EXPECT_EQ(WcsToD("自然"), 0.0);
  EXPECT_EQ(WcsToD("１２"), 0.0);  // full-width digits are no number
  EXPECT_EQ(WToF("1.5kW"), 1.5);
  std::size_t used = 99;
  EXPECT_EQ(WcsToD("abc", &used), 0.0);
  EXPECT_EQ(used, 0u);
  EXPECT_EQ(WcsToD(" 2.5x", &used), 2.5);
  EXPECT_EQ(used, 4u);
}

TEST(NumberText, ReadsIntegersLikeWtoi) {
  EXPECT_EQ(WToI(""), 0);
  EXPECT_EQ(WToI("  42abc"), 42);
  EXPECT_EQ(WToI("-7"), -7);
  EXPECT_EQ(WToI("+3"), 3);
  EXPECT_EQ(WToI("25.5"), 25);
  EXPECT_EQ(WToI("1e3"), 1);
  EXPECT_EQ(WToI("- 3"), 0);
  EXPECT_EQ(WToI("99999999999"), 2147483647);
  EXPECT_EQ(WToI("-99999999999"), -2147483647 - 1);
  EXPECT_EQ(WToI("二"), 0);
}

TEST(NumberText, PrintsInTheCLocaleWhateverTheUserLocale) {
  // A locale with a decimal comma must not leak into our texts.
  const char* set = std::setlocale(LC_ALL, "de_DE.UTF-8");
  EXPECT_EQ(FormatG(412.5), "412.5");
  EXPECT_EQ(Format2f(0.555), "0.56");
  EXPECT_EQ(Format3f(1.0), "1.000");
  EXPECT_EQ(FormatD(14), "14");
  EXPECT_EQ(FormatG(1e-5), "1e-05");
  EXPECT_EQ(FormatG(-0.0), "-0");
  EXPECT_EQ(WcsToD("0.5"), 0.5);
  if (set) std::setlocale(LC_ALL, "C");
  EXPECT_EQ(FormatDouble("%.0f", 14.0), "14");
}

TEST(NumberText, ShortestTextReadsBackExactly) {
  EXPECT_EQ(ShortestText(500.0), "500");
  EXPECT_EQ(ShortestText(1.05), "1.05");
  EXPECT_EQ(ShortestText(0.0754), "0.0754");
  for (double v : {0.1 + 0.2, 1.0 / 3.0, 123456.789, 6.02e23, -2.5e-9})
    EXPECT_EQ(WcsToD(ShortestText(v)), v);
}

TEST(NumberChecks, PositiveAndNonNegativeTexts) {
  EXPECT_TRUE(IsPositive("1"));
  EXPECT_TRUE(IsPositive("0.5"));
  EXPECT_TRUE(IsPositive("5."));
  EXPECT_TRUE(IsPositive(".5"));
  EXPECT_TRUE(IsPositive("0.0000001"));
  EXPECT_FALSE(IsPositive("0.00000009"));
  EXPECT_FALSE(IsPositive(""));
  EXPECT_FALSE(IsPositive("0"));
  EXPECT_FALSE(IsPositive("-1"));
  EXPECT_FALSE(IsPositive("+1"));
  EXPECT_FALSE(IsPositive("1e3"));
  EXPECT_FALSE(IsPositive(" 1"));
  EXPECT_TRUE(IsPositive("1.2.3"));  // only digits and points, reads as 1.2
  EXPECT_TRUE(IsNonNegative(""));
  EXPECT_TRUE(IsNonNegative("0"));
  EXPECT_TRUE(IsNonNegative("..."));
  EXPECT_FALSE(IsNonNegative("-0"));
  EXPECT_FALSE(IsNonNegative("1 "));
}

TEST(NumberChecks, DoublesAreCheckedOnTheirThreeDecimalText) {
  EXPECT_TRUE(IsPositive(0.0005));   // the double just above 0.0005 prints "0.001"
  EXPECT_FALSE(IsPositive(0.0004));  // "0.000"
  EXPECT_FALSE(IsPositive(-1.0));    // "-1.000" holds a minus sign
  EXPECT_FALSE(IsNonNegative(-0.0001));  // "-0.000"
  EXPECT_TRUE(IsNonNegative(0.0));
  EXPECT_TRUE(IsPositive(1e6));
}

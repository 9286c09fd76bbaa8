#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <string>
#include <utility>
#include <vector>

#include "services/text/format.h"
#include "services/text/number_checks.h"
#include "services/text/number_text.h"

using namespace kestra::text;

namespace {
struct Reading {
  std::string text;
  double value;
  std::size_t used;  // bytes, leading blanks included; 0: no number
};
}  // namespace

TEST(NumberText, ReadsTheLongestLeadingDecimalNumber) {
  const Reading cases[] = {
      {"", 0, 0},          {" ", 0, 0},         {"  12.5", 12.5, 6},   {"\t-3", -3, 3},     {"+4", 4, 2},
      {"1e3", 1000, 3},    {".5", 0.5, 2},      {"5.", 5, 2},          {"1.2.3", 1.2, 3},   {"-0", -0.0, 2},
      {"1e", 1, 1},        {"1e+", 1, 1},       {"e5", 0, 0},          {"12abc", 12, 2},    {"  .", 0, 0},
      {"-", 0, 0},         {"+.7e-2x", 0.007, 6}, {"00012", 12, 5},    {"1,5", 1, 1},       {"3 4", 3, 1},
      {"自然", 0, 0},      {"１２", 0, 0},  // full-width digits are no number
      // Decimal only: no hexadecimal, no infinity, no NaN.
      {"0x10", 0, 1},      {"0X1p3", 0, 1},     {"inf", 0, 0},         {"-INF", 0, 0},      {"nan", 0, 0},
      {"infinity", 0, 0},  {" nan(1)", 0, 0},
      // Beyond a double: no number. Below the smallest double: 0.
      {"1e309", 0, 0},     {"-1e309", 0, 0},    {std::string(400, '9'), 0, 0},           {"1e-400", 0, 6},
      {"1.7976931348623157e308", 1.7976931348623157e308, 22},
      // Blanks typed by Chinese input methods: U+3000 (3 bytes), U+00A0 (2), U+2003 (3), U+0085 (2).
      {"\u3000500", 500, 6}, {"\u00a0\u00a0 2.5", 2.5, 8}, {"\u2003-1", -1, 5}, {"\u0085 7", 7, 4},
      {"\u200b1", 0, 0},  // a zero-width space is no blank
      {"\xe3\x80", 0, 0},  // a cut UTF-8 sequence is no blank either
  };
  for (const Reading& c : cases) {
    std::size_t used = 99;
    const double v = WcsToD(c.text, &used);
    EXPECT_EQ(v, c.value) << '"' << c.text << '"';
    EXPECT_EQ(std::signbit(v), std::signbit(c.value)) << c.text;
    EXPECT_EQ(used, c.used) << c.text;
    EXPECT_EQ(WToF(c.text), c.value) << c.text;
  }
  // Diesel: P∑ "　500" with η∑ 0.85 and cosφ 0.8 gives 500/0.68 = 735.294.
  EXPECT_EQ(Format3f(WToF("\u3000500") / (0.85 * 0.8)), "735.294");
}

TEST(NumberText, ReadsIntegersLikeWtoi) {
  const std::pair<const char*, int> cases[] = {
      {"", 0}, {"  42abc", 42}, {"-7", -7}, {"+3", 3}, {"25.5", 25}, {"1e3", 1}, {"- 3", 0}, {"99999999999", 2147483647},
      {"-99999999999", -2147483647 - 1}, {"二", 0}, {"\u3000\u300042", 42}, {"\u00a0-7", -7}, {"0x10", 0}};
  for (const auto& [text, value] : cases) EXPECT_EQ(WToI(text), value) << text;
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

TEST(NumberText, NonFiniteValuesPrintAsWordsInTheirFormat) {
  EXPECT_EQ(Format2f(HUGE_VAL), "溢出");
  EXPECT_EQ(FormatG(-HUGE_VAL), "溢出");
  EXPECT_EQ(Format3f(NAN), "无效");
  // Report lines, through the formatter of whole lines, as well.
  EXPECT_EQ(Format("Qc=%.2fkVar", 1e308 * 10), "Qc=溢出kVar");
  EXPECT_EQ(FormatDouble("%5.1f%% of %%", -NAN), "无效% of %");
  EXPECT_EQ(ShortestText(HUGE_VAL), "溢出");
  // What such a text reads back as: no number.
  std::size_t used = 1;
  EXPECT_EQ(WcsToD(FormatG(HUGE_VAL), &used), 0.0);
  EXPECT_EQ(used, 0u);
}

TEST(NumberText, ShortestTextReadsBackExactly) {
  EXPECT_EQ(ShortestText(500.0), "500");
  EXPECT_EQ(ShortestText(1.05), "1.05");
  EXPECT_EQ(ShortestText(0.0754), "0.0754");
  for (double v : {0.1 + 0.2, 1.0 / 3.0, 123456.789, 6.02e23, -2.5e-9})
    EXPECT_EQ(WcsToD(ShortestText(v)), v);
}

// Only digits and points ("1.2.3" reads as 1.2), read as a number above 0 (or at least 0).
TEST(NumberChecks, PositiveAndNonNegativeTexts) {
  for (const char* yes : {"1", "0.5", "5.", ".5", "0.0000001", "1.2.3"}) EXPECT_TRUE(IsPositive(yes)) << yes;
  for (const char* no : {"0.00000009", "", "0", "-1", "+1", "1e3", " 1"}) EXPECT_FALSE(IsPositive(no)) << no;
  for (const char* yes : {"", "0", "..."}) EXPECT_TRUE(IsNonNegative(yes)) << yes;
  for (const char* no : {"-0", "1 "}) EXPECT_FALSE(IsNonNegative(no)) << no;
}

// 0.0005 is the double just above it and prints "0.001"; 0.0004 prints "0.000"; "-1.000" and
// "-0.000" hold a minus sign.
TEST(NumberChecks, DoublesAreCheckedOnTheirThreeDecimalText) {
  EXPECT_EQ((std::vector<bool>{IsPositive(0.0005), IsPositive(0.0004), IsPositive(-1.0), IsPositive(1e6),
                               IsNonNegative(-0.0001), IsNonNegative(0.0)}),
            (std::vector<bool>{true, false, false, true, false, true}));
}

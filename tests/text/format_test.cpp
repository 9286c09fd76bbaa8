// The line formatter: what each conversion prints (expected texts by hand, as printf prints
// them), and the check of a format string against its values that stops a build.
#include "services/text/format.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cstdint>
#include <optional>
#include <string>

namespace {

using kestra::text::Format;
using kestra::text::format_detail::CheckFor;
using kestra::text::format_detail::Problem;

TEST(Format, EachConversionAsPrintfPrintsIt) {
  const std::optional<double> none, count = 14;
  const char* null_text = nullptr;
  const std::pair<std::string, std::string> cases[] = {
      {Format("\t计算补偿容量 Qc=αqc Pjs=%.2f*%.2f*%.2f=%.2fkVar", 0.75, 0.55, 1000.0, 412.5),
       "\t计算补偿容量 Qc=αqc Pjs=0.75*0.55*1000.00=412.50kVar"},
      {Format("qc=TANφ1-TANφ2=%s-%s=%.2f", std::string("0.88"), "0.33", 0.55), "qc=TANφ1-TANφ2=0.88-0.33=0.55"},
      {Format("%d|%5d|%-5d|%05d|%+d|%i", 42, 42, 42, 42, 42, -7), "42|   42|42   |00042|+42|-7"},
      {Format("%u %x %X %o", -1, 255, 255u, 8), "4294967295 ff FF 10"},  // -1 as the bits of an int
      {Format("%08lx %hhd %lld", std::uint32_t{0x80070011}, std::uint8_t{200}, 1LL << 40),
       "80070011 200 1099511627776"},
      {Format("%.0f %.0f %g %g %.3e %.1f", 14.5, 15.5, 1e-5, 412.5, 1234.5, 0.25f), "14 16 1e-05 412.5 1.234e+03 0.2"},
      {Format("[%6.3s][%-4s][%s]", "abcdef", "x", null_text), "[   abc][x   ][]"},
      {Format("=%.2fkVar|=%.0f|100%%", none, count), "=kVar|=14|100%"},
      {Format("no values"), "no values"},
  };
  for (const auto& [got, want] : cases) EXPECT_EQ(got, want);
  // A locale with a decimal comma does not reach the text.
  const char* set = std::setlocale(LC_ALL, "de_DE.UTF-8");
  EXPECT_EQ(Format("%.2f|%g", 0.555, 1.5), "0.56|1.5");
  if (set) std::setlocale(LC_ALL, "C");
}

// The check Format runs while compiling, case by case.
TEST(Format, FormatStringsAreCheckedAgainstTheirValues) {
  const std::pair<Problem, Problem> cases[] = {
      {CheckFor<double, std::string, int>("%.2f %s %d"), Problem::kNone},
      {CheckFor<float, long, unsigned char, const char*>("%e %x %u %-3s"), Problem::kNone},
      {CheckFor<std::optional<double>>("%.0f"), Problem::kNone},
      {CheckFor<>("100%% done"), Problem::kNone},
      {CheckFor<int>("%.2f"), Problem::kKindMismatch},
      {CheckFor<double>("%d"), Problem::kKindMismatch},
      {CheckFor<std::string>("%f"), Problem::kKindMismatch},
      {CheckFor<double>("%s"), Problem::kKindMismatch},
      {CheckFor<bool>("%d"), Problem::kKindMismatch},  // a flag is no number
      {CheckFor<char>("%s"), Problem::kKindMismatch},  // nor is a character a text
      {CheckFor<std::optional<int>>("%f"), Problem::kKindMismatch},
      {CheckFor<double, double>("%.2f"), Problem::kTooManyValues},
      {CheckFor<double>("%.2f*%.2f"), Problem::kTooFewValues},
      {CheckFor<int>("%n"), Problem::kUnsupportedConversion},
      {CheckFor<int>("%c"), Problem::kUnsupportedConversion},
      {CheckFor<int, int>("%*d"), Problem::kUnsupportedConversion},
      {CheckFor<int>("%'d"), Problem::kUnsupportedConversion},
      {CheckFor<>("50%"), Problem::kUnsupportedConversion},
  };
  for (std::size_t i = 0; i < std::size(cases); ++i) EXPECT_EQ(cases[i].first, cases[i].second) << "case " << i;
}

}  // namespace

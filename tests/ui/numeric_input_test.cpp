#include <gtest/gtest.h>

#include "ui/control.h"
#include "ui/data_exchange.h"

using ui::CharFilter;
using ui::FilterAccepts;

TEST(NumericInput, RealEditFiltersWhatCannotLeadToANumber) {
  for (const char* ok : {"", "0", "0.75", "-3", "1e3", "1.5E-2", ".5", "5.", "-", "1e"})
    EXPECT_TRUE(FilterAccepts(CharFilter::Double, ok)) << ok;
  for (const char* bad : {"1.2.3", "abc", "1,5", "--1", "1-", "e5", "1e3e4", "1e3.5", " 1", "１"})
    EXPECT_FALSE(FilterAccepts(CharFilter::Double, bad)) << bad;
  EXPECT_FALSE(FilterAccepts(CharFilter::UnsignedDouble, "-3"));
  EXPECT_TRUE(FilterAccepts(CharFilter::UnsignedDouble, "3e-2"));
  EXPECT_TRUE(FilterAccepts(CharFilter::Digits, "0123"));
  EXPECT_FALSE(FilterAccepts(CharFilter::Digits, "1.5"));
}

TEST(NumericInput, ExchangeReadsTheWholeTextAsOneNumber) {
  double d = -1;
  EXPECT_TRUE(ui::ParseWholeReal(" 12.5 ", &d));
  EXPECT_EQ(d, 12.5);
  EXPECT_TRUE(ui::ParseWholeReal("0", &d));
  EXPECT_EQ(d, 0.0);
  EXPECT_TRUE(ui::ParseWholeReal("1e3", &d));
  EXPECT_EQ(d, 1000.0);
  d = 7;
  EXPECT_TRUE(ui::ParseWholeReal("\u3000500\u00a0", &d));  // blanks of a Chinese input method
  EXPECT_EQ(d, 500.0);
  d = 7;
  for (const char* bad : {"", "  ", "abc", "12abc", "1.5kW", ".0", "-0", "1 2", "1e309", "0x10", "inf", "nan"}) {
    EXPECT_FALSE(ui::ParseWholeReal(bad, &d)) << bad;
    EXPECT_EQ(d, 7.0) << "a refused text must not change the value";
  }
  int i = 0;
  EXPECT_TRUE(ui::ParseWholeInt(" 42 ", &i));
  EXPECT_EQ(i, 42);
  EXPECT_FALSE(ui::ParseWholeInt("4.2", &i));
  EXPECT_FALSE(ui::ParseWholeInt("", &i));
  // The whole range of int, and nothing beyond it cut to another number.
  EXPECT_TRUE(ui::ParseWholeInt("\u3000-2147483648", &i));
  EXPECT_EQ(i, -2147483647 - 1);
  EXPECT_TRUE(ui::ParseWholeInt("+02147483647", &i));
  EXPECT_EQ(i, 2147483647);
  for (const char* bad : {"2147483648", "-2147483649", "99999999999", "4294967338", "-0", "+", "0x10"})
    EXPECT_FALSE(ui::ParseWholeInt(bad, &i)) << bad;
  EXPECT_EQ(i, 2147483647);
}

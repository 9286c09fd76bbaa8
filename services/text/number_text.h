#pragma once
// Numbers as the designer's texts: read and printed with the C library's rules in the
// C locale, whatever locale the user (or a toolkit) has set. Texts are UTF-8.
#include <string>
#include <string_view>

namespace kestra::text {

// wcstod: skips leading blanks, takes the longest leading number (sign, digits, point,
// exponent, inf/nan, hex), ignores the rest; a text without a number reads as 0.
double WcsToD(std::string_view s);
// As WcsToD, also telling how many bytes the number used (0 when there was none).
double WcsToD(std::string_view s, std::size_t* used);
// _wtof: the same reading as wcstod.
double WToF(std::string_view s);
// _wtoi: leading blanks, optional sign, decimal digits; saturates at INT_MIN / INT_MAX.
int WToI(std::string_view s);

// One real number printed by one printf conversion in the C locale ("%g", "%.2f", "%.3f", ...).
// Every real the program prints goes through here, Format's conversions included: the one
// place for a policy on numbers that are not finite.
std::string FormatDouble(const char* conversion, double v);
inline std::string FormatG(double v) { return FormatDouble("%g", v); }
inline std::string Format2f(double v) { return FormatDouble("%.2f", v); }
inline std::string Format3f(double v) { return FormatDouble("%.3f", v); }
inline std::string FormatD(int v) { return std::to_string(v); }

// The shortest text that reads back to exactly the same double ("500", "1.05", "0.0754").
std::string ShortestText(double v);

}  // namespace kestra::text

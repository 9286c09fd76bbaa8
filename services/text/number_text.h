#pragma once
// Numbers as the designer's texts: read and printed with the C library's rules in the
// C locale, whatever locale the user (or a toolkit) has set. Texts are UTF-8.
//
// Out of range, both ways:
// - A number too large for a double (1e309, 400 digits) reads as no number at all: 0 with
//   nothing used, so the data exchange refuses it with its non-number message and an input
//   check refuses the 0 it reads, instead of computing on an infinity. A number too small for a
//   double (1e-400) reads as the nearest double (0 or a subnormal one).
// - A result that is not finite is never printed as "inf" or "nan": the number's place in the
//   text holds kOverflowText for an infinity and kInvalidText for a NaN, the rest of the format
//   is kept ("Qc=溢出kVar"). A parameter file written from such a value holds the same text,
//   which reads back as no number.
#include <string>
#include <string_view>

namespace kestra::text {

inline constexpr const char* kOverflowText = "溢出";  // ±infinity
inline constexpr const char* kInvalidText = "无效";   // NaN

// Bytes of blanks at s[pos...]: the white-space characters of Unicode, the no-break ones
// included. An input method types the ideographic space U+3000 or the no-break space U+00A0
// before a number; the wide-character conversions read past both, as past a space or a tab.
std::size_t BlanksAt(std::string_view s, std::size_t pos = 0);

// wcstod: skips leading blanks, takes the longest leading decimal number (sign, digits, point,
// exponent) and ignores the rest; a text without a number reads as 0. Decimal only: "0x10"
// reads 0 (the "0"), "inf" and "nan" read 0.
double WcsToD(std::string_view s);
// As WcsToD, also telling how many bytes the number used, blanks included (0 when there was
// none, and for a number beyond the range of a double).
double WcsToD(std::string_view s, std::size_t* used);
// _wtof: the same reading as wcstod.
double WToF(std::string_view s);
// _wtoi: leading blanks, optional sign, decimal digits; saturates at INT_MIN / INT_MAX.
int WToI(std::string_view s);

// One real number printed by one printf conversion in the C locale ("%g", "%.2f", "%.3f", ...).
// Every real the program prints goes through here, Format's conversions included: so the
// rule above for numbers that are not finite holds everywhere; the conversion may carry text
// around it ("%.2fkVar").
std::string FormatDouble(const char* conversion, double v);
inline std::string FormatG(double v) { return FormatDouble("%g", v); }
inline std::string Format2f(double v) { return FormatDouble("%.2f", v); }
inline std::string Format3f(double v) { return FormatDouble("%.3f", v); }
inline std::string FormatD(int v) { return std::to_string(v); }

// The shortest text that reads back to exactly the same double ("500", "1.05", "0.0754");
// non-finite values as in FormatDouble.
std::string ShortestText(double v);

}  // namespace kestra::text

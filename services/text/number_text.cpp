#include "services/text/number_text.h"

#include <cerrno>
#include <charconv>
#include <climits>
#include <cmath>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <locale.h>

namespace kestra::text {
namespace {

// One C locale for the whole process; the designer's locale never reaches a number.
locale_t CLocale() {
  static const locale_t loc = newlocale(LC_ALL_MASK, "C", static_cast<locale_t>(nullptr));
  return loc;
}

class ScopedCLocale {
 public:
  ScopedCLocale() : old_(uselocale(CLocale())) {}
  ~ScopedCLocale() { uselocale(old_); }
  ScopedCLocale(const ScopedCLocale&) = delete;
  ScopedCLocale& operator=(const ScopedCLocale&) = delete;

 private:
  locale_t old_;
};

// The code point of the UTF-8 sequence at s[i] and its length; 0 bytes for a broken one.
char32_t CodePointAt(std::string_view s, std::size_t i, std::size_t* len) {
  const auto b = static_cast<unsigned char>(s[i]);
  std::size_t n = b < 0x80 ? 1 : (b & 0xE0) == 0xC0 ? 2 : (b & 0xF0) == 0xE0 ? 3 : (b & 0xF8) == 0xF0 ? 4 : 0;
  if (n == 0 || i + n > s.size()) {
    *len = 0;
    return 0;
  }
  char32_t cp = n == 1 ? b : b & (0x7F >> n);
  for (std::size_t k = 1; k < n; ++k) {
    const auto c = static_cast<unsigned char>(s[i + k]);
    if ((c & 0xC0) != 0x80) {
      *len = 0;
      return 0;
    }
    cp = (cp << 6) | (c & 0x3F);
  }
  *len = n;
  return cp;
}

bool IsBlank(char32_t c) {
  return (c >= 0x09 && c <= 0x0D) || c == 0x20 || c == 0x85 || c == 0xA0 || c == 0x1680 ||
         (c >= 0x2000 && c <= 0x200A) || c == 0x2028 || c == 0x2029 || c == 0x202F || c == 0x205F || c == 0x3000;
}

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// Bytes of the longest decimal number at s[i] (sign, digits, point, exponent); 0 for none.
std::size_t DecimalNumberAt(std::string_view s, std::size_t i) {
  const std::size_t start = i;
  const std::size_t n = s.size();
  if (i < n && (s[i] == '+' || s[i] == '-')) ++i;
  std::size_t digits = 0;
  for (; i < n && IsDigit(s[i]); ++i) ++digits;
  if (i < n && s[i] == '.')
    for (++i; i < n && IsDigit(s[i]); ++i) ++digits;
  if (digits == 0) return 0;
  if (i < n && (s[i] == 'e' || s[i] == 'E')) {
    std::size_t j = i + 1;
    if (j < n && (s[j] == '+' || s[j] == '-')) ++j;
    if (j < n && IsDigit(s[j])) {
      while (j < n && IsDigit(s[j])) ++j;
      i = j;
    }
  }
  return i - start;
}

// The format with its one conversion replaced by `text` ("%%" still prints "%").
std::string WithConversionReplaced(const char* fmt, const char* text) {
  std::string out;
  bool replaced = false;
  for (const char* p = fmt; *p;) {
    if (*p != '%') {
      out += *p++;
      continue;
    }
    if (p[1] == '%') {
      out += '%';
      p += 2;
      continue;
    }
    ++p;
    if (replaced) continue;
    while (*p && std::strchr("-+ #0'123456789.*hlLqjzt", *p)) ++p;
    if (*p) ++p;  // the conversion letter
    out += text;
    replaced = true;
  }
  return out;
}

}  // namespace

std::size_t BlanksAt(std::string_view s, std::size_t pos) {
  std::size_t i = pos;
  while (i < s.size()) {
    std::size_t len = 0;
    if (!IsBlank(CodePointAt(s, i, &len)) || len == 0) break;
    i += len;
  }
  return i - pos;
}

double WcsToD(std::string_view s, std::size_t* used) {
  const std::size_t start = BlanksAt(s);
  const std::size_t len = DecimalNumberAt(s, start);
  double v = 0.0;
  bool ok = len != 0;
  if (ok) {
    // The span holds a decimal number only (checked above), so from_chars reads it as strtod in
    // the C locale would, without a copy or a locale switch; it takes no "+" sign.
    const char* first = s.data() + start;
    const char* last = first + len;
    const bool negative = *first == '-';
    if (*first == '+' || negative) ++first;
    const auto r = std::from_chars(first, last, v);
    if (r.ec != std::errc() || r.ptr != last) {
      // Out of a double's range (or read otherwise): strtod's own answer.
      const std::string number(s.substr(start, len));
      errno = 0;
      v = strtod_l(number.c_str(), nullptr, CLocale());
      ok = !(errno == ERANGE && std::isinf(v));  // beyond a double: no number, as said above
    } else if (negative) {
      v = -v;
    }
  }
  if (used) *used = ok ? start + len : 0;
  return ok ? v : 0.0;
}

double WcsToD(std::string_view s) { return WcsToD(s, nullptr); }

double WToF(std::string_view s) { return WcsToD(s, nullptr); }

int WToI(std::string_view s) {
  std::size_t i = BlanksAt(s);
  bool neg = false;
  if (i < s.size() && (s[i] == '+' || s[i] == '-')) neg = s[i++] == '-';
  long long v = 0;
  bool over = false;
  for (; i < s.size() && IsDigit(s[i]); ++i) {
    if (!over) {
      v = v * 10 + (s[i] - '0');
      if (v > static_cast<long long>(INT_MAX) + 1) over = true;
    }
  }
  if (neg) v = -v;
  if (over || v > INT_MAX) return neg ? INT_MIN : INT_MAX;
  if (v < INT_MIN) return INT_MIN;
  return static_cast<int>(v);
}

// Every printed real comes here, Format's conversions included: the one place where a
// number that is not finite gets its words instead of "inf" or "nan".
std::string FormatDouble(const char* fmt, double v) {
  if (std::isinf(v)) return WithConversionReplaced(fmt, kOverflowText);
  if (std::isnan(v)) return WithConversionReplaced(fmt, kInvalidText);
  ScopedCLocale c;
  char buf[512];
  int n = std::snprintf(buf, sizeof buf, fmt, v);
  if (n < 0) return {};
  if (static_cast<std::size_t>(n) < sizeof buf) return std::string(buf, static_cast<std::size_t>(n));
  std::string big(static_cast<std::size_t>(n) + 1, '\0');
  std::snprintf(big.data(), big.size(), fmt, v);
  big.resize(static_cast<std::size_t>(n));
  return big;
}

std::string ShortestText(double v) {
  if (!std::isfinite(v)) return FormatDouble("%g", v);
  char buf[64];
  auto r = std::to_chars(buf, buf + sizeof buf, v);
  return std::string(buf, r.ptr);
}

}  // namespace kestra::text

#include "services/text/number_text.h"

#include <cerrno>
#include <charconv>
#include <climits>
#include <clocale>
#include <cstdio>
#include <cstdlib>
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

bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\v' || c == '\f' || c == '\r'; }

}  // namespace

double WcsToD(std::string_view s, std::size_t* used) {
  // strtod needs a terminated string; the texts are short.
  std::string buf(s);
  char* end = nullptr;
  double v = strtod_l(buf.c_str(), &end, CLocale());
  std::size_t n = static_cast<std::size_t>(end - buf.c_str());
  if (used) *used = n;
  return n == 0 ? 0.0 : v;
}

double WcsToD(std::string_view s) { return WcsToD(s, nullptr); }

double WToF(std::string_view s) { return WcsToD(s, nullptr); }

int WToI(std::string_view s) {
  std::size_t i = 0;
  while (i < s.size() && IsBlank(s[i])) ++i;
  bool neg = false;
  if (i < s.size() && (s[i] == '+' || s[i] == '-')) neg = s[i++] == '-';
  long long v = 0;
  bool over = false;
  for (; i < s.size() && s[i] >= '0' && s[i] <= '9'; ++i) {
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

// Non-finite policy hook: every printed real comes here, Format's conversions included.
std::string FormatDouble(const char* fmt, double v) {
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
  char buf[64];
  auto r = std::to_chars(buf, buf + sizeof buf, v);
  return std::string(buf, r.ptr);
}

}  // namespace kestra::text

#include "services/text/number_checks.h"

#include "services/text/number_text.h"

namespace kestra::text {
namespace {
bool OnlyDigitsAndPoints(std::string_view s) {
  for (char c : s)
    if (!((c >= '0' && c <= '9') || c == '.')) return false;
  return true;
}
}  // namespace

bool IsPositive(std::string_view s) { return !s.empty() && OnlyDigitsAndPoints(s) && WcsToD(s) >= 1e-7; }

bool IsNonNegative(std::string_view s) { return OnlyDigitsAndPoints(s); }

bool IsPositive(double v) { return IsPositive(Format3f(v)); }

bool IsNonNegative(double v) { return IsNonNegative(Format3f(v)); }

}  // namespace kestra::text

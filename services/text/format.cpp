#include "services/text/format.h"

#include <cstdio>
#include <stdexcept>

#include "services/text/number_text.h"

namespace kestra::text::format_detail {
namespace {

// printf of one integer conversion; integers print alike in every locale.
template <class T>
std::string PrintInteger(const std::string& conversion, T value) {
  const int n = std::snprintf(nullptr, 0, conversion.c_str(), value);
  if (n < 0) return {};
  std::string out(static_cast<std::size_t>(n) + 1, '\0');
  std::snprintf(out.data(), out.size(), conversion.c_str(), value);
  out.resize(static_cast<std::size_t>(n));
  return out;
}

// %s with its flags, width and precision (bytes, as printf counts them).
std::string PrintText(std::string_view spec_flags, int width, int precision, std::string_view text) {
  if (precision >= 0 && text.size() > static_cast<std::size_t>(precision)) text = text.substr(0, precision);
  std::string out(text);
  if (width > 0 && out.size() < static_cast<std::size_t>(width)) {
    const std::string pad(static_cast<std::size_t>(width) - out.size(), ' ');
    out = spec_flags.find('-') != std::string_view::npos ? out + pad : pad + out;
  }
  return out;
}

int ReadNumber(std::string_view f, std::size_t& i) {
  int n = 0;
  while (i < f.size() && f[i] >= '0' && f[i] <= '9') n = n * 10 + (f[i++] - '0');
  return n;
}

[[noreturn]] void Mismatch(std::string_view format) {
  // Format() checks every call while compiling; only a call that went around it gets here.
  throw std::logic_error("format string does not match its values: " + std::string(format));
}

}  // namespace

// Declared for the compile-time check only; never called at run time.
void TooFewValuesForTheFormat() {}
void TooManyValuesForTheFormat() {}
void ValueKindDoesNotMatchConversion() {}
void UnsupportedConversionInFormat() {}

std::string FormatValues(std::string_view f, std::span<const Value> values) {
  std::string out;
  out.reserve(f.size() + 16 * values.size());
  std::size_t next = 0;
  for (std::size_t i = 0; i < f.size();) {
    const std::size_t pct = f.find('%', i);
    out.append(f.substr(i, pct == std::string_view::npos ? std::string_view::npos : pct - i));
    if (pct == std::string_view::npos) break;
    i = pct + 1;
    if (i < f.size() && f[i] == '%') {
      out += '%';
      ++i;
      continue;
    }
    // The conversion again without its length modifier: [flags][width][.precision].
    const std::size_t flags_at = i;
    while (i < f.size() && std::string_view("-+ #0").find(f[i]) != std::string_view::npos) ++i;
    const std::string_view flags = f.substr(flags_at, i - flags_at);
    const std::size_t width_at = i;
    const int width = ReadNumber(f, i);
    int precision = -1;
    if (i < f.size() && f[i] == '.') {
      ++i;
      precision = ReadNumber(f, i);
    }
    const std::string_view sizes = f.substr(width_at, i - width_at);
    while (i < f.size() && std::string_view("hlLqjzt").find(f[i]) != std::string_view::npos) ++i;
    if (i >= f.size() || next >= values.size()) Mismatch(f);
    const char conv = f[i++];
    const Value& v = values[next++];
    if (v.kind == Value::Kind::kAbsent) continue;
    const ValueKind want = KindOfConversion(conv);
    const std::string conversion = "%" + std::string(flags) + std::string(sizes);
    if (want == ValueKind::kReal && v.kind == Value::Kind::kReal) {
      out += FormatDouble((conversion + conv).c_str(), v.real);
    } else if (want == ValueKind::kInteger && v.kind == Value::Kind::kInteger) {
      out += conv == 'd' || conv == 'i' ? PrintInteger(conversion + "ll" + conv, v.integer)
                                        : PrintInteger(conversion + "ll" + conv, v.bits);
    } else if (want == ValueKind::kText && v.kind == Value::Kind::kText) {
      out += PrintText(flags, width, precision, v.text);
    } else {
      Mismatch(f);
    }
  }
  if (next != values.size()) Mismatch(f);
  return out;
}

}  // namespace kestra::text::format_detail

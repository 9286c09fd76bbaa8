#pragma once
// printf-style formatting of a whole line in the C locale, checked while compiling:
//
//   Format("\n\t计算补偿容量 Qc=αqc Pjs=%.2f*%.2f*%.2f=%.2fkVar", alpha, qc, p_js, capacity)
//
// so that a report line is written once, as its format string, with its values beside it.
// Conversions: %d %i (integers), %u %o %x %X (integers, a negative one as the bits of its own
// width, as printf), %f %F %e %E %g %G %a %A (reals), %s (texts), %% (a percent sign); with
// the flags - + blank # 0, a width and a precision. Length modifiers (l, ll, h, z, ...) are
// read and ignored: every integer type is printed at its own width. A std::optional value
// prints as its value, or as nothing at all when it is empty (a value the designer never got).
//
// The format string must be a literal. Too few or too many values, a value of the wrong kind
// for its conversion, or a conversion outside the list above stops the build at the call, with
// a message naming the problem (TooFewValuesForTheFormat, ValueKindDoesNotMatchConversion, ...).
#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>

namespace kestra::text {

namespace format_detail {

// What a value is to a conversion.
enum class ValueKind { kInteger, kReal, kText, kUnsupported };

template <class T>
struct IsOptional : std::false_type {};
template <class T>
struct IsOptional<std::optional<T>> : std::true_type {};

template <class T>
constexpr ValueKind KindOf() {
  using U = std::remove_cvref_t<T>;
  if constexpr (IsOptional<U>::value) {
    return KindOf<typename U::value_type>();
  } else if constexpr (std::is_same_v<U, bool> || std::is_same_v<U, char> || std::is_same_v<U, wchar_t> ||
                       std::is_same_v<U, char8_t> || std::is_same_v<U, char16_t> || std::is_same_v<U, char32_t>) {
    return ValueKind::kUnsupported;  // a flag or a character is not a number; say what is meant
  } else if constexpr (std::is_integral_v<U>) {
    return ValueKind::kInteger;
  } else if constexpr (std::is_floating_point_v<U>) {
    return ValueKind::kReal;
  } else if constexpr (std::is_convertible_v<const U&, std::string_view>) {
    return ValueKind::kText;
  } else {
    return ValueKind::kUnsupported;
  }
}

// What is wrong with a format string for its values.
enum class Problem {
  kNone,
  kTooFewValues,
  kTooManyValues,
  kKindMismatch,
  kUnsupportedConversion,  // %n, %p, %c, *, a lone % at the end, ...
};

// One conversion: [flags][width][.precision][length]conversion, starting after the '%'.
// Returns the position after it, and its conversion character in conv (0 when malformed).
constexpr std::size_t ParseConversion(std::string_view f, std::size_t i, char& conv) {
  conv = 0;
  while (i < f.size() && std::string_view("-+ #0").find(f[i]) != std::string_view::npos) ++i;
  while (i < f.size() && f[i] >= '0' && f[i] <= '9') ++i;
  if (i < f.size() && f[i] == '.') {
    ++i;
    while (i < f.size() && f[i] >= '0' && f[i] <= '9') ++i;
  }
  while (i < f.size() && std::string_view("hlLqjzt").find(f[i]) != std::string_view::npos) ++i;
  if (i < f.size()) conv = f[i++];
  return i;
}

constexpr ValueKind KindOfConversion(char conv) {
  if (std::string_view("diuoxX").find(conv) != std::string_view::npos) return ValueKind::kInteger;
  if (std::string_view("fFeEgGaA").find(conv) != std::string_view::npos) return ValueKind::kReal;
  if (conv == 's') return ValueKind::kText;
  return ValueKind::kUnsupported;
}

// The first problem of the format string for values of the given kinds.
constexpr Problem Check(std::string_view f, std::span<const ValueKind> kinds) {
  std::size_t next = 0;
  for (std::size_t i = 0; i < f.size();) {
    if (f[i++] != '%') continue;
    if (i < f.size() && f[i] == '%') {
      ++i;
      continue;
    }
    char conv = 0;
    i = ParseConversion(f, i, conv);
    const ValueKind want = KindOfConversion(conv);
    if (want == ValueKind::kUnsupported) return Problem::kUnsupportedConversion;
    if (next == kinds.size()) return Problem::kTooFewValues;
    if (kinds[next++] != want) return Problem::kKindMismatch;
  }
  return next == kinds.size() ? Problem::kNone : Problem::kTooManyValues;
}

template <class... Values>
constexpr Problem CheckFor(std::string_view f) {
  constexpr std::array<ValueKind, sizeof...(Values)> kinds{KindOf<Values>()...};
  return Check(f, kinds);
}

// Not constexpr on purpose: calling one of these while compiling stops the build, and the
// compiler's message names it.
void TooFewValuesForTheFormat();
void TooManyValuesForTheFormat();
void ValueKindDoesNotMatchConversion();
void UnsupportedConversionInFormat();

// A value as the formatter takes it, whatever its type was.
struct Value {
  enum class Kind { kAbsent, kInteger, kReal, kText } kind = Kind::kAbsent;
  long long integer = 0;
  unsigned long long bits = 0;  // the integer as printf's %u/%x take it: at its own width
  double real = 0;
  std::string_view text;
};

template <class T>
Value ValueOf(const T& v) {
  using U = std::remove_cvref_t<T>;
  Value out;
  if constexpr (IsOptional<U>::value) {
    return v ? ValueOf(*v) : out;
  } else if constexpr (std::is_integral_v<U>) {
    out.kind = Value::Kind::kInteger;
    out.integer = static_cast<long long>(v);
    out.bits = static_cast<unsigned long long>(static_cast<std::make_unsigned_t<U>>(v));
  } else if constexpr (std::is_floating_point_v<U>) {
    out.kind = Value::Kind::kReal;
    out.real = static_cast<double>(v);
  } else if constexpr (std::is_convertible_v<const U&, const char*>) {
    out.kind = Value::Kind::kText;
    const char* s = v;
    out.text = s ? std::string_view(s) : std::string_view();
  } else {
    out.kind = Value::Kind::kText;
    out.text = std::string_view(v);
  }
  return out;
}

// Formats the checked format string with the values, in the C locale.
std::string FormatValues(std::string_view format, std::span<const Value> values);

}  // namespace format_detail

// A format string checked against the types of its values when the program is compiled.
template <class... Values>
class FormatString {
 public:
  template <class S>
    requires std::is_convertible_v<const S&, std::string_view>
  consteval FormatString(const S& s) : text_(s) {  // NOLINT: converts from the literal on purpose
    switch (format_detail::CheckFor<Values...>(text_)) {
      case format_detail::Problem::kNone: break;
      case format_detail::Problem::kTooFewValues: format_detail::TooFewValuesForTheFormat(); break;
      case format_detail::Problem::kTooManyValues: format_detail::TooManyValuesForTheFormat(); break;
      case format_detail::Problem::kKindMismatch: format_detail::ValueKindDoesNotMatchConversion(); break;
      case format_detail::Problem::kUnsupportedConversion: format_detail::UnsupportedConversionInFormat(); break;
    }
  }
  constexpr std::string_view text() const { return text_; }

 private:
  std::string_view text_;
};

template <class... Values>
std::string Format(FormatString<std::type_identity_t<Values>...> format, const Values&... values) {
  const std::array<format_detail::Value, sizeof...(Values)> list{format_detail::ValueOf(values)...};
  return format_detail::FormatValues(format.text(), list);
}

}  // namespace kestra::text

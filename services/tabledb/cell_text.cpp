#include "services/tabledb/cell_text.h"

#include <sqlite3.h>

#include <cmath>
#include <cstdint>

#include "services/text/number_text.h"

namespace kestra::tabledb {

std::string NumberText(double d) {
  // Whole numbers in the integer range print without a point or exponent, as the catalogues
  // show them (1e+06 would be a surprise in a power column).
  if (std::isfinite(d) && d == std::floor(d) && std::fabs(d) < 9.0e15) {
    return std::to_string(static_cast<long long>(d));
  }
  return kestra::text::ShortestText(d);
}

std::string NumberCellText(std::string_view text) {
  std::size_t used = 0;
  kestra::text::WcsToD(text, &used);
  const bool blank = kestra::text::BlanksAt(text) == text.size();  // an empty cell, however typed
  if (used > 0 || blank || text == kestra::text::kOverflowText) return std::string(text);
  return kestra::text::kInvalidText;
}

std::string CellText(sqlite3_value* v) {
  switch (sqlite3_value_type(v)) {
    case SQLITE_INTEGER:
      return std::to_string(static_cast<long long>(sqlite3_value_int64(v)));
    case SQLITE_FLOAT:
      return NumberText(sqlite3_value_double(v));
    case SQLITE_NULL:
      return {};
    default: {
      const auto* p = static_cast<const char*>(sqlite3_value_blob(v));
      int n = sqlite3_value_bytes(v);
      return p ? std::string(p, static_cast<std::size_t>(n)) : std::string();
    }
  }
}

namespace {

// One UTF-8 character starting at s[i]; advances i. A byte that does not start a well-formed
// character counts as a character of its own, so two texts decode alike only when their
// bytes are alike (the indexed equality in front of LIKE relies on that).
char32_t NextChar(std::string_view s, std::size_t& i) {
  const auto b = static_cast<unsigned char>(s[i]);
  const std::size_t n = b < 0x80 ? 1 : (b >> 5) == 6 ? 2 : (b >> 4) == 14 ? 3 : (b >> 3) == 30 ? 4 : 1;
  if (n == 1 || i + n > s.size()) {
    ++i;
    return b < 0x80 ? b : 0x110000 + b;  // stray bytes map outside Unicode
  }
  char32_t c = b & (0x7F >> n);
  for (std::size_t k = 1; k < n; ++k) {
    const auto cb = static_cast<unsigned char>(s[i + k]);
    if ((cb & 0xC0) != 0x80) {
      ++i;
      return 0x110000 + b;
    }
    c = (c << 6) | (cb & 0x3F);
  }
  static constexpr char32_t kMin[] = {0, 0, 0x80, 0x800, 0x10000};
  if (c < kMin[n]) {  // overlong forms would pass for ASCII letters
    ++i;
    return 0x110000 + b;
  }
  i += n;
  return c;
}

char32_t Fold(char32_t c) { return (c >= 'A' && c <= 'Z') ? c + ('a' - 'A') : c; }

bool MatchFrom(std::string_view p, std::size_t pi, std::string_view t, std::size_t ti, char32_t esc) {
  while (pi < p.size()) {
    char32_t pc = NextChar(p, pi);
    if (pc == '%' && pc != esc) {
      while (pi < p.size()) {  // runs of % and _ collapse: each _ still needs a character
        std::size_t k = pi;
        char32_t q = NextChar(p, k);
        if (q == '%') {
          pi = k;
        } else if (q == '_' && q != esc) {
          if (ti >= t.size()) return false;
          NextChar(t, ti);
          pi = k;
        } else {
          break;
        }
      }
      if (pi >= p.size()) return true;
      for (;;) {
        if (MatchFrom(p, pi, t, ti, esc)) return true;
        if (ti >= t.size()) return false;
        NextChar(t, ti);
      }
    }
    if (ti >= t.size()) return false;
    char32_t tc = NextChar(t, ti);
    if (pc == '_' && pc != esc) continue;
    if (esc != 0 && pc == esc) {
      if (pi >= p.size()) return false;  // a trailing escape matches nothing
      pc = NextChar(p, pi);
    }
    if (Fold(pc) != Fold(tc)) return false;
  }
  return ti >= t.size();
}

void LikeFunction(sqlite3_context* ctx, int argc, sqlite3_value** argv) {
  if (sqlite3_value_type(argv[0]) == SQLITE_NULL || sqlite3_value_type(argv[1]) == SQLITE_NULL) {
    return;  // NULL, as the built-in LIKE gives
  }
  char32_t esc = 0;
  if (argc == 3) {
    const auto* e = reinterpret_cast<const char*>(sqlite3_value_text(argv[2]));
    std::string_view es = e ? e : "";
    std::size_t i = 0;
    if (es.empty() || (NextChar(es, i), i != es.size())) {
      sqlite3_result_error(ctx, "ESCAPE expression must be a single character", -1);
      return;
    }
    i = 0;
    esc = NextChar(es, i);
  }
  const std::string pattern = CellText(argv[0]);
  const std::string text = CellText(argv[1]);
  sqlite3_result_int(ctx, LikeMatch(pattern, text, esc) ? 1 : 0);
}

}  // namespace

bool LikeMatch(std::string_view pattern, std::string_view text, char32_t escape) {
  return MatchFrom(pattern, 0, text, 0, escape);
}

bool IsPlainPattern(std::string_view pattern) {
  return pattern.find_first_of("%_") == std::string_view::npos;
}

void RegisterCellFunctions(sqlite3* db) {
  const int flags = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS;
  sqlite3_create_function(db, "like", 2, flags, nullptr, LikeFunction, nullptr, nullptr);
  sqlite3_create_function(db, "like", 3, flags, nullptr, LikeFunction, nullptr, nullptr);
}

}  // namespace kestra::tabledb

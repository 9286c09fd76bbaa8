#include "services/text/value_order.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <string_view>
#include <tuple>

#include "services/text/number_checks.h"
#include "services/text/number_text.h"

namespace kestra::text {
namespace {

// Why sort keys rather than the comparisons themselves: as the lists were first written
// against them, neither comparison is a strict weak order. Two equal "3x50" compare "less"
// both ways; "3" equals both "3x25" and "3x50", which differ; and the catalogue order even
// runs in circles on some mixed texts ("3-A" > "25-B" by head text, yet 25-B > 4 > 3-A by
// number). std::sort with such a comparison is undefined behaviour. So each text gets a key,
// keys compare lexicographically (a strict weak order), and the sort is stable, so that texts
// the order takes as equal keep the catalogue's row order.
//
// The keys give the described result for every pair on which the description decides. Where
// it leaves the order open they choose: texts holding "x" whose parts are not all numbers go
// by their leading number (or their characters); equal heads with tails that are not two
// numbers around "/" go by the tail's characters. Where the catalogue order contradicts
// itself, the keys follow numbers and plain text order:
//   - a number with "-" in it ("-5", "3e-5", "3-A") sorts by the number it begins with;
//   - a text with "-" whose head is a number sorts after texts that do not look numeric,
//     also against texts with "-" (which the description compares by head text);
//   - heads of which one continues the other with a blank or a sign below "-" in character
//     order ("Y-5", "Y 1-3") go by their characters up to and with the "-".
// Texts compare by their UTF-8 bytes, which is the order of their characters.
struct Key {
  int rank = 0;          // 0: does not look numeric, 1: a number
  double number = 0;     // numbers: the leading number
  std::string text;      // others: the text (up to and with its first "-"); numbers: the head before "-"
  int form = 0;          // 1: a second number follows ("3x50", "3-150", tail "35/10")
  double first = 0, second = 0;
  std::string rest;      // others: a tail that is not two numbers around "/"
  bool operator<(const Key& o) const {
    return std::tie(rank, number, text, form, first, second, rest) <
           std::tie(o.rank, o.number, o.text, o.form, o.first, o.second, o.rest);
  }
};

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// Begins with a digit, or with "+" or "-" followed by a digit.
bool LooksNumeric(std::string_view s) {
  if (s.empty()) return false;
  if (IsDigit(s[0])) return true;
  return (s[0] == '+' || s[0] == '-') && s.size() > 1 && IsDigit(s[1]);
}

// The number a text begins with, in decimal. The catalogues write "3x50", never
// hexadecimal, so a number ends at an x.
double LeadingNumber(std::string_view s) {
  const double v = WcsToD(s.substr(0, s.find_first_of("xX")));
  return std::isnan(v) ? 0.0 : v;  // no NaN may reach a key
}

// IsNumber of the pieces around "/": digits and points, with at least one digit.
bool IsPlainNumber(std::string_view s) {
  return IsNonNegative(s) && s.find_first_of("0123456789") != std::string_view::npos;
}

Key NaturalKey(const std::string& s) {
  Key k;
  if (!LooksNumeric(s)) {
    k.text = s;
    return k;
  }
  k.rank = 1;
  k.number = LeadingNumber(s);
  if (const auto x = s.find('x'); x != std::string::npos) {
    const std::string_view back = std::string_view(s).substr(x + 1);
    if (LooksNumeric(back)) {  // the front is numeric as the whole text is
      k.form = 1;
      k.first = LeadingNumber(back);
    }
  }
  return k;
}

Key CatalogueKey(const std::string& s) {
  Key k;
  const auto dash = s.find('-');
  const std::string_view head = std::string_view(s).substr(0, dash);
  const std::string_view tail = dash == std::string::npos ? std::string_view() : std::string_view(s).substr(dash + 1);
  if (LooksNumeric(s)) {
    k.rank = 1;
    k.number = LeadingNumber(s);
    if (dash != std::string::npos && LooksNumeric(head) && LooksNumeric(tail)) {
      k.text = head;
      k.form = 1;
      k.first = LeadingNumber(tail);
    }
    return k;
  }
  if (dash == std::string::npos) {
    k.text = s;
    return k;
  }
  k.text = std::string(head) + "-";
  const auto slash = tail.find('/');
  if (slash != std::string_view::npos && IsPlainNumber(tail.substr(0, slash)) && IsPlainNumber(tail.substr(slash + 1))) {
    k.form = 1;
    k.first = LeadingNumber(tail.substr(0, slash));
    k.second = LeadingNumber(tail.substr(slash + 1));
  } else {
    k.rest = tail;
  }
  return k;
}

}  // namespace

std::vector<int> SortedPositions(const std::vector<std::string>& texts, ValueOrder order) {
  std::vector<Key> keys;
  keys.reserve(texts.size());
  for (const std::string& t : texts) keys.push_back(order == ValueOrder::Natural ? NaturalKey(t) : CatalogueKey(t));
  std::vector<int> positions(texts.size());
  std::iota(positions.begin(), positions.end(), 0);
  std::stable_sort(positions.begin(), positions.end(), [&keys](int a, int b) {
    return keys[static_cast<std::size_t>(a)] < keys[static_cast<std::size_t>(b)];
  });
  return positions;
}

void SortValues(std::vector<std::string>& texts, ValueOrder order) {
  std::vector<std::string> sorted;
  sorted.reserve(texts.size());
  for (int p : SortedPositions(texts, order)) sorted.push_back(std::move(texts[static_cast<std::size_t>(p)]));
  texts = std::move(sorted);
}

}  // namespace kestra::text

// The list orders against the worked cases of the catalogue lists and against seeded random
// lists, checked pair by pair with a reference transcribed from the comparisons' wording.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <random>

#include "services/text/value_order.h"

using kestra::text::SortValues;
using kestra::text::ValueOrder;
using Texts = std::vector<std::string>;

namespace {

Texts Sorted(Texts t, ValueOrder order) {
  SortValues(t, order);
  return t;
}

// The reference: -1 / 0 / 1 as worded; kOpen where the wording leaves the order free.
constexpr int kOpen = 2;
const auto npos = std::string::npos;
bool Digit(char c) { return c >= '0' && c <= '9'; }
bool Numeric(const std::string& s) {
  return !s.empty() && (Digit(s[0]) || ((s[0] == '+' || s[0] == '-') && s.size() > 1 && Digit(s[1])));
}
double Num(const std::string& s) { return std::strtod(s.substr(0, s.find_first_not_of("0123456789+-.")).c_str(), nullptr); }
bool Plain(const std::string& s) { return s.find_first_not_of("0123456789.") == npos && s.find_first_of("0123456789") != npos; }
template <class T> int Cmp(const T& a, const T& b) { return a < b ? -1 : b < a ? 1 : 0; }
int Rest(const std::string& a, const std::string& b) {  // neither or one numeric
  if (Numeric(a) && Numeric(b)) return Cmp(Num(a), Num(b));
  return Numeric(a) != Numeric(b) ? (Numeric(a) ? 1 : -1) : Cmp(a, b);
}
// Splits both at their first c; false when one has none.
bool Split(const std::string& a, const std::string& b, char c, Texts& p) {
  const auto i = a.find(c), j = b.find(c);
  if (i == npos || j == npos) return false;
  p = {a.substr(0, i), a.substr(i + 1), b.substr(0, j), b.substr(j + 1)};
  return true;
}
int NaturalRef(const std::string& a, const std::string& b) {
  Texts p;
  if (!Split(a, b, 'x', p)) return Rest(a, b);
  if (!std::all_of(p.begin(), p.end(), Numeric)) return kOpen;
  if (int c = Cmp(Num(p[0]), Num(p[2]))) return c;
  return Cmp(Num(p[1]), Num(p[3]));  // equal backs are "less" both ways: no order
}
int CatalogueRef(const std::string& a, const std::string& b) {
  Texts p, q;
  if (!Split(a, b, '-', p)) return Rest(a, b);
  if (std::all_of(p.begin(), p.end(), Numeric)) {
    if (int c = Cmp(Num(p[0]), Num(p[2]))) return c;
    if (int c = Cmp(p[0], p[2])) return c;
    return Cmp(Num(p[1]), Num(p[3]));
  }
  if (int c = Cmp(p[0], p[2])) return c;
  if (!Split(p[1], p[3], '/', q) || !std::all_of(q.begin(), q.end(), Plain)) return kOpen;
  if (int c = Cmp(Num(q[0]), Num(q[2]))) return c;
  return Cmp(Num(q[1]), Num(q[3]));
}

}  // namespace

TEST(ValueOrder, WorkedCases) {
  const ValueOrder N = ValueOrder::Natural, C = ValueOrder::Catalogue;
  struct {
    ValueOrder order;
    Texts in, out;  // out: by hand from the wording
  } cases[] = {
      {N, {"120", "3x50", "95", "铜", "4x16", "3x25"}, {"铜", "3x25", "3x50", "4x16", "95", "120"}},
      {N, {"10", "9.5", "b", "B", "a"}, {"B", "a", "b", "9.5", "10"}},
      // "+" and "x5" are no numbers ("+" 0x2B before "x"); "0x10" begins with the number 0.
      {N, {"+5", "-2", "x5", "+", "0x10"}, {"+", "x5", "-2", "0x10", "+5"}},
      // All read 3 ("3x" has no back number): equal, the given order stays.
      {N, {"3.0", "3", "3x"}, {"3.0", "3", "3x"}},
      {N, {"3x50", "3.0x25", "2x95"}, {"2x95", "3.0x25", "3x50"}},
      {C, {"10", "9.5", "YC", "YB", "120", "ABC"}, {"ABC", "YB", "YC", "9.5", "10", "120"}},
      {C, {"3-185", "3-150", "2-240", "3.0-100", "95"}, {"2-240", "3-150", "3-185", "3.0-100", "95"}},
      // Equal heads: 4 < 35 before "/", then 5 < 10 after it.
      {C, {"JS-35/10", "JS-4/1", "JS-35/5"}, {"JS-4/1", "JS-35/5", "JS-35/10"}},
      // Heads as texts; against a text without "-" plain character order (blank before "-").
      {C, {"QKSG-100", "Y315S-4", "QKS-200", "QKSG 2"}, {"QKS-200", "QKSG 2", "QKSG-100", "Y315S-4"}},
  };
  for (const auto& c : cases) EXPECT_EQ(Sorted(c.in, c.order), c.out) << c.in.front();
}

TEST(ValueOrder, RandomListsFollowTheWording) {
  std::mt19937 rng(20240611);
  auto pick = [&rng](std::initializer_list<const char*> pool) { return std::string(pool.begin()[rng() % pool.size()]); };
  auto number = [&] { return std::to_string(rng() % 400) + (rng() % 3 ? "" : "." + std::to_string(rng() % 10)); };
  for (int round = 0; round < 1500; ++round) {
    Texts lists[2];
    const std::size_t n = rng() % 13;
    for (std::size_t i = 0; i < n; ++i) {
      std::string t;
      for (std::size_t k = rng() % 6; k > 0; --k)
        t += pick({"0", "1", "3", "9", ".", "x", "x", "X", "+", "-", "A", "a", "铜", "\xff", " "});
      lists[0].push_back(t);
      // A catalogue column holds numbers beside sections ("3-150") or beside names with "-",
      // never both: there the wording contradicts itself (see value_order.cpp).
      const std::string name = pick({"A", "B", "Y", "a", "YB", "QKS"}) + pick({"", "", "1", "315"});
      const std::string dashed = round % 2 ? number() + "-" + number()
                                           : name + "-" + (rng() % 2 ? number() + "/" + number() : pick({"4", "B", "2.5"}));
      lists[1].push_back(rng() % 4 == 0 ? number() : rng() % 3 == 0 ? name : dashed);
    }
    for (int o = 0; o < 2; ++o) {
      const Texts out = Sorted(lists[o], o ? ValueOrder::Catalogue : ValueOrder::Natural);
      ASSERT_TRUE(std::is_permutation(out.begin(), out.end(), lists[o].begin(), lists[o].end()));
      for (std::size_t i = 0; i < out.size(); ++i)
        for (std::size_t j = i + 1; j < out.size(); ++j)
          ASSERT_NE((o ? CatalogueRef : NaturalRef)(out[i], out[j]), 1) << '"' << out[i] << "\" before \"" << out[j] << '"';
    }
  }
}

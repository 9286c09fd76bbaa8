// The list orders against the worked cases of the catalogue lists and against seeded random
// lists checked pair by pair with a reference transcribed from the comparisons' wording.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <random>
#include <string>
#include <vector>

#include "services/text/value_order.h"

using kestra::text::SortedPositions;
using kestra::text::SortValues;
using kestra::text::ValueOrder;
using Texts = std::vector<std::string>;

namespace {

Texts Sorted(Texts t, ValueOrder order) {
  SortValues(t, order);
  return t;
}

// ---- The reference: -1 / 0 / 1 as worded, kOpen where the wording leaves the order free. ----
constexpr int kOpen = 2;
const auto npos = std::string::npos;

bool Numeric(const std::string& s) {
  auto digit = [](char c) { return c >= '0' && c <= '9'; };
  return !s.empty() && (digit(s[0]) || ((s[0] == '+' || s[0] == '-') && s.size() > 1 && digit(s[1])));
}
// Decimal reading by the C library, of the signs, digits and points a text begins with.
double Num(const std::string& s) { return std::strtod(s.substr(0, s.find_first_not_of("0123456789+-.")).c_str(), nullptr); }
bool Plain(const std::string& s) {
  return !s.empty() && s.find_first_not_of("0123456789.") == npos && s.find_first_of("0123456789") != npos;
}
int Cmp(double a, double b) { return a < b ? -1 : a > b ? 1 : 0; }
int Cmp(const std::string& a, const std::string& b) { return a < b ? -1 : a > b ? 1 : 0; }

int NaturalRef(const std::string& a, const std::string& b) {
  const auto xa = a.find('x'), xb = b.find('x');
  if (xa != npos && xb != npos) {
    const std::string fa = a.substr(0, xa), ba = a.substr(xa + 1), fb = b.substr(0, xb), bb = b.substr(xb + 1);
    if (!(Numeric(fa) && Numeric(ba) && Numeric(fb) && Numeric(bb))) return kOpen;
    if (int c = Cmp(Num(fa), Num(fb))) return c;
    return Cmp(Num(ba), Num(bb));  // equal backs are "less" both ways: no order between them
  }
  if (Numeric(a) && Numeric(b)) return Cmp(Num(a), Num(b));
  if (Numeric(a) != Numeric(b)) return Numeric(a) ? 1 : -1;
  return Cmp(a, b);
}

int CatalogueRef(const std::string& a, const std::string& b) {
  const auto da = a.find('-'), db = b.find('-');
  if (da != npos && db != npos) {
    const std::string ah = a.substr(0, da), at = a.substr(da + 1), bh = b.substr(0, db), bt = b.substr(db + 1);
    if (Numeric(ah) && Numeric(at) && Numeric(bh) && Numeric(bt)) {
      if (int c = Cmp(Num(ah), Num(bh))) return c;
      if (int c = Cmp(ah, bh)) return c;
      return Cmp(Num(at), Num(bt));
    }
    if (int c = Cmp(ah, bh)) return c;
    const auto sa = at.find('/'), sb = bt.find('/');
    if (sa == npos || sb == npos) return kOpen;
    const std::string a1 = at.substr(0, sa), a2 = at.substr(sa + 1), b1 = bt.substr(0, sb), b2 = bt.substr(sb + 1);
    if (!(Plain(a1) && Plain(a2) && Plain(b1) && Plain(b2))) return kOpen;
    if (int c = Cmp(Num(a1), Num(b1))) return c;
    return Cmp(Num(a2), Num(b2));
  }
  if (Numeric(a) && Numeric(b)) return Cmp(Num(a), Num(b));
  if (Numeric(a) != Numeric(b)) return Numeric(a) ? 1 : -1;
  return Cmp(a, b);
}

// The sorted list is a permutation of the input and no pair stands against the reference.
void ExpectSortedAgainst(const Texts& input, ValueOrder order, int (*ref)(const std::string&, const std::string&)) {
  const Texts out = Sorted(input, order);
  Texts a = input, b = out;
  std::sort(a.begin(), a.end());
  std::sort(b.begin(), b.end());
  ASSERT_EQ(a, b);
  for (std::size_t i = 0; i < out.size(); ++i)
    for (std::size_t j = i + 1; j < out.size(); ++j)
      ASSERT_NE(ref(out[i], out[j]), 1) << '"' << out[i] << "\" before \"" << out[j] << '"';
}

}  // namespace

TEST(ValueOrder, WorkedCases) {
  struct Case {
    ValueOrder order;
    Texts in, out;  // out: by hand from the wording
  } cases[] = {
      {ValueOrder::Natural, {"120", "3x50", "95", "铜", "4x16", "3x25"}, {"铜", "3x25", "3x50", "4x16", "95", "120"}},
      {ValueOrder::Natural, {"10", "9.5"}, {"9.5", "10"}},
      {ValueOrder::Natural, {"b", "B", "a", "A"}, {"A", "B", "a", "b"}},
      // "+" and "x5" do not look numeric ("+" 0x2B before "x"); -2 < 1 < +5.
      {ValueOrder::Natural, {"+5", "-2", "x5", "+", "1"}, {"+", "x5", "-2", "1", "+5"}},
      // All read 3 ("3x" has no back number): equal, so the given order stays.
      {ValueOrder::Natural, {"3.0", "3", "3x"}, {"3.0", "3", "3x"}},
      // Fronts by value (3.0 = 3), then backs.
      {ValueOrder::Natural, {"3x50", "3.0x25", "2x95"}, {"2x95", "3.0x25", "3x50"}},
      // Decimal reading: "0x10" begins with the number 0.
      {ValueOrder::Natural, {"5", "0x10"}, {"0x10", "5"}},
      {ValueOrder::Catalogue, {"10", "9.5"}, {"9.5", "10"}},
      {ValueOrder::Catalogue, {"3-185", "3-150", "2-240"}, {"2-240", "3-150", "3-185"}},
      {ValueOrder::Catalogue, {"YC", "YB"}, {"YB", "YC"}},
      {ValueOrder::Catalogue, {"120", "ABC"}, {"ABC", "120"}},
      // Equal head numbers: head texts, "3" before "3.0".
      {ValueOrder::Catalogue, {"3.0-100", "3-150"}, {"3-150", "3.0-100"}},
      // Equal heads: 4 < 35 before "/", then 5 < 10 after it.
      {ValueOrder::Catalogue, {"JS-35/10", "JS-4/1", "JS-35/5"}, {"JS-4/1", "JS-35/5", "JS-35/10"}},
      {ValueOrder::Catalogue, {"QKSG-100", "Y315S-4", "QKS-200"}, {"QKS-200", "QKSG-100", "Y315S-4"}},
      // Only one holds "-": plain character order, the blank (0x20) before "-" (0x2D).
      {ValueOrder::Catalogue, {"QKSG-100", "QKSG 2"}, {"QKSG 2", "QKSG-100"}},
      // A section against plain numbers goes by its leading number.
      {ValueOrder::Catalogue, {"95", "3-150", "2"}, {"2", "3-150", "95"}},
  };
  for (const Case& c : cases) EXPECT_EQ(Sorted(c.in, c.order), c.out) << c.in.front();
}

TEST(ValueOrder, RandomListsFollowTheWording) {
  std::mt19937 rng(20240611);
  auto pick = [&rng](std::initializer_list<const char*> pool) { return std::string(pool.begin()[rng() % pool.size()]); };
  auto number = [&] {
    std::string n = std::to_string(rng() % 400);
    if (rng() % 3 == 0) n += "." + std::to_string(rng() % 10);
    return n;
  };
  for (int round = 0; round < 1500; ++round) {
    Texts natural, catalogue;
    const std::size_t n = rng() % 13;
    for (std::size_t i = 0; i < n; ++i) {
      std::string t;
      for (std::size_t k = rng() % 6; k > 0; --k) t += pick({"0", "1", "3", "9", "5", ".", "x", "x", "+", "-", "A", "a", "铜"});
      natural.push_back(t);
    }
    // One catalogue column holds numbers beside sections ("3-150") or beside names with "-",
    // never both: there the wording contradicts itself (value_order.cpp says how).
    const bool sections = round % 2 == 0;
    for (std::size_t i = 0; i < n; ++i) {
      const std::string name = pick({"A", "B", "Y", "Q", "a", "YB", "QKS"}) + pick({"", "", "1", "315"});
      switch (rng() % 4) {
        case 0: catalogue.push_back(number()); break;
        case 1: catalogue.push_back(name); break;
        default:
          if (sections) {
            catalogue.push_back(number() + "-" + number());
          } else {
            catalogue.push_back(name + "-" + (rng() % 2 ? number() + "/" + number() : pick({"4", "B", "10", "2.5"})));
          }
      }
    }
    ExpectSortedAgainst(natural, ValueOrder::Natural, NaturalRef);
    ExpectSortedAgainst(catalogue, ValueOrder::Catalogue, CatalogueRef);
  }
}

TEST(ValueOrder, AnyBytesSortToAStablePermutation) {
  std::mt19937 rng(7);
  const std::string pool = std::string("0159.-+xX/e nafi") + '\0' + "\xff\xe9\xef\xbf\xa5";
  for (int round = 0; round < 1500; ++round) {
    Texts in(rng() % 12);
    for (auto& t : in)
      for (std::size_t k = rng() % 7; k > 0; --k) t += pool[rng() % pool.size()];
    for (ValueOrder order : {ValueOrder::Natural, ValueOrder::Catalogue}) {
      const std::vector<int> pos = SortedPositions(in, order);
      std::vector<int> seen = pos;
      std::sort(seen.begin(), seen.end());
      for (std::size_t i = 0; i < seen.size(); ++i) ASSERT_EQ(seen[i], static_cast<int>(i));
      Texts once;
      for (int p : pos) once.push_back(in[static_cast<std::size_t>(p)]);
      // A consistent order leaves a sorted list as it is.
      ASSERT_EQ(Sorted(once, order), once);
    }
  }
}

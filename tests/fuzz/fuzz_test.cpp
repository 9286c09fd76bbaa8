// Seeded random inputs for the readers of text the designer or a damaged file can hand us:
// nothing may crash, hang or produce what the next reader refuses. KESTRA_FUZZ_ROUNDS sets the
// inputs per surface (a quick run by default), KESTRA_FUZZ_SEED the seed, for long runs.
#include <gtest/gtest.h>

#include <charconv>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <map>
#include <random>
#include <sstream>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "host/script/script_line.h"
#include "services/idp/idp_format.h"
#include "services/idp/idp_node.h"
#include "services/idp/idp_text.h"
#include "services/tabledb/catalog_csv.h"
#include "services/text/number_text.h"
#include "tests/support/temp_folder.h"
#include "ui/data_exchange.h"
#include "ui/resource_script.h"
#include "ui/rtf_reader.h"

namespace {

long EnvNumber(const char* name, long fallback) {
  const char* v = std::getenv(name);
  return v && *v ? std::strtol(v, nullptr, 10) : fallback;
}

class Fuzz : public ::testing::Test {
 protected:
  long Rounds(long quick) const { return EnvNumber("KESTRA_FUZZ_ROUNDS", quick); }
  std::size_t Below(std::size_t n) { return n == 0 ? 0 : rng_() % n; }
  template <class T>
  const T& Pick(const std::vector<T>& v) {
    return v[Below(v.size())];
  }
  std::string Random(const std::vector<std::string>& pieces, std::size_t max_pieces) {
    std::string s;
    for (std::size_t n = Below(max_pieces + 1); n > 0; --n) s += Pick(pieces);
    return s;
  }
  // One to four edits: a byte changed, a piece inserted, a range dropped or repeated, a cut.
  std::string Mutate(std::string s, const std::vector<std::string>& pieces) {
    for (std::size_t edits = 1 + Below(4); edits > 0; --edits) {
      const std::size_t at = Below(s.size() + 1);
      switch (Below(5)) {
        case 0:
          if (at < s.size()) s[at] = static_cast<char>(rng_());
          break;
        case 1: s.insert(at, Pick(pieces)); break;
        case 2: s.erase(at, Below(64)); break;
        case 3: s.insert(at, s.substr(at, Below(64))); break;
        case 4: s.resize(at); break;
      }
    }
    return s;
  }
  static std::string ReadSource(const std::string& rel) {
    return kestra::testing::ReadFile(std::string(KESTRA_SOURCE_DIR) + "/" + rel);
  }
  std::mt19937_64 rng_{static_cast<std::uint64_t>(EnvNumber("KESTRA_FUZZ_SEED", 20261122))};
};

// Values of every kind survive the file text; any edit of a file either is refused or reads
// as a tree whose text reads back as itself.
TEST_F(Fuzz, ParameterFileText) {
  const std::vector<std::string> names = {"Wgglbc", "Cal", "输入参数", "线路名称", "A", ";x", "a=b", "", "\t", "😀"};
  const std::vector<std::string> value_pieces = {"0.75", "\\", "\n", "\r", "\t", "=", ";", " ", "电", "\\n", "\xFF", "😀"};
  const std::vector<std::string> text_pieces = {"\\", "=", "\n", "\r\n", ";", "\\\\", "\\q", "\xEF\xBB\xBF", "\xE4\xB8"};
  for (long round = 0; round < Rounds(2000); ++round) {
    IdpNode root;
    std::map<std::string, std::string> expect;
    for (std::size_t k = Below(12); k > 0; --k) {
      std::string key = Pick(names);
      for (std::size_t d = Below(5); d > 0; --d) key += "\\" + Pick(names);
      const auto path = kestra::idp::SplitKeyPath(key);
      const std::string value = Random(value_pieces, 6);
      if (!path || !kestra::idp::IsValidUtf8(value)) continue;
      IdpNode* node = &root;
      for (std::string_view name : *path) node = &node->ChildOrCreate(name);
      node->SetValue(value, kestra::idp::StoredLength(value));
      expect[key] = value;
    }
    const std::string text = kestra::idp::FormatIdpText(root);
    IdpNode back;
    std::string error;
    ASSERT_TRUE(kestra::idp::ParseIdpText(text, back, &error)) << error << "\n" << text;
    for (const auto& [key, value] : expect) {
      const IdpNode* node = &back;
      const auto path = kestra::idp::SplitKeyPath(key);
      for (std::string_view name : *path) node = node ? node->Child(name) : nullptr;
      ASSERT_NE(node, nullptr) << key;
      EXPECT_EQ(node->Text(), value) << key;
    }
    const std::string edited = Mutate(text, text_pieces);
    IdpNode once;
    if (!kestra::idp::ParseIdpText(edited, once, nullptr)) continue;
    const std::string again = kestra::idp::FormatIdpText(once);
    IdpNode twice;
    ASSERT_TRUE(kestra::idp::ParseIdpText(again, twice, nullptr)) << again;
    EXPECT_EQ(kestra::idp::FormatIdpText(twice), again);
  }
}

// A line that splits, written back with every word quoted, splits into the same words.
TEST_F(Fuzz, ScriptLines) {
  const std::vector<std::string> pieces = {" ", "\t", "\"", "\\", "n", "a", "1", "0", "计算", "\\\"", "\\n", "\r", ";"};
  for (long round = 0; round < Rounds(5000); ++round) {
    const std::string line = Random(pieces, 16);
    std::vector<kestra::script::Word> words;
    std::string error;
    if (!kestra::script::SplitLine(line, &words, &error)) {
      EXPECT_FALSE(error.empty()) << line;
      continue;
    }
    std::string quoted;
    for (const auto& w : words) {
      quoted += " \"";
      for (char c : w.text) quoted += c == '"' ? "\\\"" : c == '\\' ? "\\\\" : c == '\n' ? "\\n" : std::string(1, c);
      quoted += '"';
      int n = -1;
      if (kestra::script::ParseCount(w, &n)) {
        EXPECT_EQ(n, std::stoi(w.text)) << w.text;
      }
    }
    std::vector<kestra::script::Word> again;
    ASSERT_TRUE(kestra::script::SplitLine(quoted, &again, &error)) << quoted << ": " << error;
    ASSERT_EQ(again.size(), words.size()) << line;
    for (std::size_t i = 0; i < words.size(); ++i) EXPECT_EQ(again[i].text, words[i].text) << line;
  }
}

// The module's own templates, edited: a template or a ResourceError, nothing else.
TEST_F(Fuzz, ResourceScripts) {
  const std::vector<std::string> seeds = {ReadSource("res/wggl.rc"), ReadSource("res/diesel.rc"),
                                          ReadSource("res/module.rc"), ReadSource("tests/host/data/test_dialogs.rc")};
  const std::vector<std::string> pieces = {"(", ")", "-", "+", "|", ",", "\"", "BEGIN", "END", "{", "}", "STRINGTABLE",
                                           "99999999999999999999", "0x", "4294967296", "/*", "//", "\n#define X ",
                                           "NOT ", "DIALOGEX", "DLGINIT", std::string(300, '('), std::string(300, '-')};
  for (long round = 0; round < Rounds(400); ++round) {
    const std::string text = Mutate(Pick(seeds), pieces);
    ui::ResourceSet set;
    try {
      set.Parse(text, "fuzz.rc");
    } catch (const ui::ResourceError&) {
    }
  }
}

// The description page, edited, and random control words: always well-formed text, no NUL.
TEST_F(Fuzz, RichText) {
  const std::string page = ReadSource("data/Image/Wgglbc.RTF");
  const std::vector<std::string> pieces = {"{", "}", "\\", "\\u-10187?", "\\u-8437?", "\\u0 ", "\\u55357 ", "\\'00",
                                           "\\'ce", "\\uc5 ", "\\uc0", "\\*", "\\ansicpg65001 ", "\\ansicpg0", "\\par ",
                                           "\\b", "\\fs-4 ", "\\u99999999999 ", std::string(1, '\0'), "\xFF", "x"};
  for (long round = 0; round < Rounds(800); ++round) {
    const std::string rtf = round % 2 ? Mutate(page, pieces) : "{\\rtf1 " + Random(pieces, 40);
    const auto doc = ui::ReadRtf(rtf);
    if (!doc) continue;
    const std::string text = doc->PlainText();
    ASSERT_TRUE(kestra::idp::IsValidUtf8(text)) << rtf.substr(0, 200);
    ASSERT_EQ(text.find('\0'), std::string::npos) << rtf.substr(0, 200);
  }
}

// Schedules as spreadsheets save them: records written field by field, with or without a BOM,
// every line ended by LF, CRLF or a lone CR, split back into the same records; any edit of such a
// text either splits or is refused with the file and the line named.
TEST_F(Fuzz, CsvSchedules) {
  const std::vector<std::string> pieces = {"a", "电机", "0.85", ",", "\"", "\r", "\n", "\r\n", " ", "\t", "'", "\"\"", "😀"};
  const std::vector<std::string> ends = {"\n", "\r\n", "\r"};
  for (long round = 0; round < Rounds(3000); ++round) {
    std::vector<std::vector<std::string>> records(1 + Below(6));
    for (auto& r : records) {
      r.resize(1 + Below(5));
      for (auto& f : r) f = Random(pieces, 4);
    }
    const std::string& end = Pick(ends);
    std::string text = Below(2) ? "\xEF\xBB\xBF" : "";
    for (const auto& r : records) {
      for (std::size_t i = 0; i < r.size(); ++i) text += (i ? "," : "") + kestra::catalog::CsvField(r[i]);
      text += end;
    }
    std::vector<kestra::catalog::CsvRecord> split;
    std::string error;
    ASSERT_TRUE(kestra::catalog::SplitCsvRecords(text, "s.csv", split, error)) << error;
    ASSERT_EQ(split.size(), records.size()) << ::testing::PrintToString(text);
    for (std::size_t k = 0; k < records.size(); ++k) EXPECT_EQ(split[k].fields, records[k]) << ::testing::PrintToString(text);

    const std::string edited = Mutate(text, pieces);
    error.clear();
    if (!kestra::catalog::SplitCsvRecords(edited, "s.csv", split, error)) {
      EXPECT_TRUE(error.starts_with("s.csv:")) << error;
    }
  }
}

// Readings agree with the standard library's decimal reading of the same characters; nothing
// reads or prints as an infinity or a NaN.
TEST_F(Fuzz, NumberTexts) {
  const std::vector<std::string> pieces = {"0", "1", "9", "5", ".", "e", "E", "+", "-", "x", "X", "i", "n", "f", "a",
                                           " ", "\t", "\u3000", "\u00a0", "\u2003", "308", std::string(40, '9'), "e-400"};
  const std::vector<std::string> blanks = {" ", "\t", "\n", "\v", "\f", "\r", "\u3000", "\u00a0", "\u2003", "\u0085"};
  for (long round = 0; round < Rounds(20000); ++round) {
    const std::string s = Random(pieces, 12);
    std::size_t used = 0;
    const double v = kestra::text::WcsToD(s, &used);
    ASSERT_TRUE(std::isfinite(v)) << s;
    ASSERT_LE(used, s.size());
    std::size_t start = 0;
    for (bool more = true; more;) {
      more = false;
      for (const auto& b : blanks)
        if (s.compare(start, b.size(), b) == 0) start += b.size(), more = true;
    }
    // std::from_chars reads what strtod reads, without a leading "+" or blanks.
    std::string_view rest = std::string_view(s).substr(start);
    const bool plus = rest.starts_with('+') && !rest.starts_with("+-") && !rest.starts_with("++");
    if (plus) rest.remove_prefix(1);
    double ref = 0;
    const auto [end, ec] = std::from_chars(rest.data(), rest.data() + rest.size(), ref, std::chars_format::general);
    const bool named = !rest.empty() && (rest.find_first_of("iInN") < rest.find_first_of("0123456789."));
    if (ec == std::errc::invalid_argument || named) {
      EXPECT_EQ(used, 0u) << s;
      EXPECT_EQ(v, 0.0) << s;
    } else if (ec == std::errc::result_out_of_range) {
      EXPECT_TRUE(used == 0 ? v == 0 : std::fabs(v) < 1e-300) << s;  // too large: none; too small: ~0
    } else {
      EXPECT_EQ(v, ref) << s;
      EXPECT_EQ(used, start + (plus ? 1 : 0) + static_cast<std::size_t>(end - rest.data())) << s;
    }
    double whole = 0;
    if (ui::ParseWholeReal(s, &whole)) {
      EXPECT_EQ(whole, v) << s;
    }
    // Every bit pattern prints as a number or as a word, never as "inf" or "nan".
    double any = 0;
    const std::uint64_t bits = rng_();
    std::memcpy(&any, &bits, sizeof any);
    for (const std::string& printed : {kestra::text::FormatG(any), kestra::text::Format3f(any)})
      ASSERT_EQ(printed.find_first_of("in"), std::string::npos) << printed;
  }
}

}  // namespace

// The rich-text reader behind the description pages.
#include "ui/rtf_reader.h"

#include "services/text/number_text.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace {

ui::RichDocument Read(const std::string& rtf) {
  std::string error;
  auto doc = ui::ReadRtf(rtf, &error);
  EXPECT_TRUE(doc) << error;
  return doc ? *doc : ui::RichDocument{};
}

// A run as "text" followed by its formatting: _ subscript, ^ superscript, b, i, u, then the size.
std::string Describe(const ui::RichRun& r) {
  std::string s = r.text + (r.script == 1 ? "_" : r.script == 2 ? "^" : "");
  s += std::string(r.bold ? "b" : "") + (r.italic ? "i" : "") + (r.underline ? "u" : "");
  return s + " " + kestra::text::FormatG(r.size_pt);
}
std::vector<std::string> Runs(const ui::RichDocument& doc) {
  std::vector<std::string> out;
  for (const auto& r : doc.paragraphs.at(0).runs) out.push_back(Describe(r));
  return out;
}

TEST(RtfReader, CharacterFormattingMakesRuns) {
  auto doc = Read(R"({\rtf1\ansi Q{\sub c}=x{\super 2} \b bold\b0  plain {\i it}{\ul u}\ulnone\fs32 big\par})");
  ASSERT_EQ(doc.paragraphs.size(), 1u);
  EXPECT_EQ(Runs(doc), (std::vector<std::string>{"Q 12", "c_ 12", "=x 12", "2^ 12", "  12", "boldb 12",
                                                 " plain  12", "iti 12", "uu 12", "big 16"}));
  EXPECT_EQ(doc.PlainText(), "Qc=x2 bold plain itubig");
  // \nosupersub ends a script in the same group; \fs counts half-points.
  EXPECT_EQ(Runs(Read(R"({\rtf1 a\super b\nosupersub c\fs21 d})")),
            (std::vector<std::string>{"a 12", "b^ 12", "c 12", "d 10.5"}));
}

TEST(RtfReader, ParagraphsAlignmentAndIndents) {
  auto doc = Read("{\\rtf1\\pard\\qc Title\\par\\pard\\fi420\\li210 Body\\line more\\tab x\\par\\pard\\qr R\\par\\qj J}");
  ASSERT_EQ(doc.paragraphs.size(), 4u);
  EXPECT_EQ(doc.paragraphs[0].align, 1);
  EXPECT_EQ(doc.paragraphs[1].align, 0);  // \pard resets
  EXPECT_DOUBLE_EQ(doc.paragraphs[1].first_indent_pt, 21);
  EXPECT_DOUBLE_EQ(doc.paragraphs[1].left_indent_pt, 10.5);
  EXPECT_EQ(doc.paragraphs[1].runs[0].text, "Body\nmore\tx");
  EXPECT_EQ(doc.paragraphs[2].align, 2);
  EXPECT_EQ(doc.paragraphs[3].align, 3);
  EXPECT_EQ(doc.paragraphs[3].runs[0].text, "J");
}

TEST(RtfReader, TextFromEscapesAndGbkBytesWithoutTablesOrDestinations) {
  const std::string deep = std::string(100000, '{') + "x" + std::string(100000, '}');
  const std::pair<std::string, std::string> cases[] = {
      // 功 = U+529F, 率 = U+7387; 补 = U+8865 is written negative (−30619); \uc1 skips one fallback.
      {R"({\rtf1\uc1\u21151?\u29575?\u-30619?})", "功率补"},
      {R"({\rtf1\uc2\u21151\'b9\'a6x})", "功x"},                // a two-byte GBK fallback skipped whole
      {R"({\rtf1\uc0\u21151 x})", "功x"},                        // nothing to skip
      {R"({\rtf1\u-10187?\u-8437?})", "\xF0\x9D\x9C\x8B"},       // U+1D70B as a surrogate pair
      // Half a pair is U+FFFD, wherever it stands; \u0 and NUL bytes show nothing.
      {R"({\rtf1 a\u55357?b})", "a\uFFFDb"},
      {R"({\rtf1 a\u-8437?b})", "a\uFFFDb"},
      {R"({\rtf1\u-10187?})", "\uFFFD"},
      {R"({\rtf1\u-10187?\par x})", "\uFFFD\nx"},
      {R"({\rtf1\u-10187?\u-10187?\u-8437?})", "\uFFFD\xF0\x9D\x9C\x8B"},
      {R"({\rtf1 a\u0?b\'00c})", "abc"},
      {std::string("{\\rtf1 a\0b}", 11), "ab"},
      {"{\\rtf1 " + deep + "y}", "xy"},  // groups nested far deeper than any page
      // "无功功率" in GBK (CE DE B9 A6 B9 A6 C2 CA), escaped or raw: two bytes form one character.
      {R"({\rtf1\ansi\ansicpg936 \'ce\'de\'b9\'a6\'b9\'a6\'c2\'ca})", "无功功率"},
      {"{\\rtf1 \xCE\xDE\xB9\xA6}", "无功"},
      {R"({\rtf1 \'ce}a)", "\xEF\xBF\xBD"},  // a lead byte without its trail byte swallows nothing
      {R"({\rtf1 \'ce!})", "\xEF\xBF\xBD!"},
      {R"({\rtf1 a\{b\}c\\d})", "a{b}c\\d"},  // escaped braces and backslash are text
      {"{\\rtf1 a}}x", "a"},                   // nothing after the closing brace
      {"{\\rtf1 {\\b a", "a"},                 // a file cut short is shown as far as it goes
      {"{\\rtf1\\ansi{\\fonttbl{\\f0\\fnil\\fcharset134 \\'cb\\'ce\\'cc\\'e5;}}{\\colortbl;\\red0\\green0\\blue0;}"
       "{\\stylesheet{\\s0 Normal;}}{\\info{\\title T}{\\author A}}{\\*\\generator Riched20;}{\\*\\unknown x{y}}"
       "Text{\\*\\bkmkstart m}\\par}",
       "Text"},
  };
  for (const auto& [rtf, plain] : cases) EXPECT_EQ(Read(rtf).PlainText(), plain) << rtf.substr(0, 60);
}

TEST(RtfReader, RefusesWhatIsNotRtfAndSaysWhichFileIsMissing) {
  std::string error;
  EXPECT_FALSE(ui::ReadRtf("hello", &error));
  EXPECT_FALSE(error.empty());
  EXPECT_FALSE(ui::ReadRtfFile("/nonexistent/Wgglbc.RTF", &error));
  EXPECT_NE(error.find("/nonexistent/Wgglbc.RTF"), std::string::npos);
}

TEST(RtfReader, TheCalculatorsDescriptionPageReads) {
  std::string error;
  auto doc = ui::ReadRtfFile(KESTRA_SOURCE_DIR "/data/Image/Wgglbc.RTF", &error);
  ASSERT_TRUE(doc) << error;
  const std::string text = doc->PlainText();
  EXPECT_EQ(doc->paragraphs.at(0).runs.at(0).text, "无功功率补偿计算说明");
  EXPECT_EQ(doc->paragraphs[0].align, 1);
  EXPECT_TRUE(doc->paragraphs[0].runs[0].bold);
  EXPECT_NE(text.find("《民用建筑电气设计手册》"), std::string::npos);
  EXPECT_NE(text.find("412.5kVar"), std::string::npos);
  EXPECT_EQ(text.find('?'), std::string::npos);  // every fallback character skipped
  bool has_sub = false;
  for (const auto& p : doc->paragraphs)
    for (const auto& r : p.runs)
      if (r.script == 1 && r.text == "js") has_sub = true;
  EXPECT_TRUE(has_sub);
}

}  // namespace

// The rich-text reader behind the description pages.
#include "ui/rtf_reader.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>

namespace {

ui::RichDocument Read(const std::string& rtf) {
  std::string error;
  auto doc = ui::ReadRtf(rtf, &error);
  EXPECT_TRUE(doc) << error;
  return doc ? *doc : ui::RichDocument{};
}

TEST(RtfReader, CharacterFormattingMakesRuns) {
  auto doc = Read(R"({\rtf1\ansi Q{\sub c}=x{\super 2} \b bold\b0  plain {\i it}{\ul u}\ulnone\fs32 big\par})");
  ASSERT_EQ(doc.paragraphs.size(), 1u);
  const auto& r = doc.paragraphs[0].runs;
  ASSERT_EQ(r.size(), 10u);
  EXPECT_EQ(r[0].text, "Q");
  EXPECT_EQ(r[1].text, "c");
  EXPECT_EQ(r[1].script, 1);
  EXPECT_EQ(r[2].text, "=x");
  EXPECT_EQ(r[2].script, 0);
  EXPECT_EQ(r[3].text, "2");
  EXPECT_EQ(r[3].script, 2);
  EXPECT_EQ(r[4].text, " ");
  EXPECT_EQ(r[5].text, "bold");
  EXPECT_TRUE(r[5].bold);
  EXPECT_EQ(r[6].text, " plain ");
  EXPECT_FALSE(r[6].bold);
  EXPECT_TRUE(r[7].italic);
  EXPECT_EQ(r[7].text, "it");
  EXPECT_TRUE(r[8].underline);
  EXPECT_EQ(doc.PlainText(), "Qc=x2 bold plain itubig");
  EXPECT_DOUBLE_EQ(r[9].size_pt, 16);
  EXPECT_DOUBLE_EQ(r[0].size_pt, 12);
  // \nosupersub ends a script in the same group; \fs counts half-points.
  auto d2 = Read(R"({\rtf1 a\super b\nosupersub c\fs21 d})");
  ASSERT_EQ(d2.paragraphs[0].runs.size(), 4u);
  EXPECT_EQ(d2.paragraphs[0].runs[2].text, "c");
  EXPECT_EQ(d2.paragraphs[0].runs[2].script, 0);
  EXPECT_DOUBLE_EQ(d2.paragraphs[0].runs[3].size_pt, 10.5);
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

TEST(RtfReader, UnicodeEscapesSkipTheirFallback) {
  // 功 = U+529F, 率 = U+7387; 补 = U+8865 is written negative (−30619).
  EXPECT_EQ(Read(R"({\rtf1\uc1\u21151?\u29575?\u-30619?})").PlainText(), "功率补");
  // \uc2 with a two-byte GBK fallback: both bytes are skipped.
  EXPECT_EQ(Read(R"({\rtf1\uc2\u21151\'b9\'a6x})").PlainText(), "功x");
  // \uc0: nothing to skip.
  EXPECT_EQ(Read(R"({\rtf1\uc0\u21151 x})").PlainText(), "功x");
  // A character outside the basic plane as a surrogate pair (U+1D70B 𝜋).
  EXPECT_EQ(Read(R"({\rtf1\u-10187?\u-8437?})").PlainText(), "\xF0\x9D\x9C\x8B");
}

TEST(RtfReader, CodePageBytesAreGbk) {
  // "无功功率" in GBK: CE DE B9 A6 B9 A6 C2 CA; two bytes form one character.
  EXPECT_EQ(Read(R"({\rtf1\ansi\ansicpg936 \'ce\'de\'b9\'a6\'b9\'a6\'c2\'ca})").PlainText(), "无功功率");
  // Raw GBK bytes in the text count the same.
  EXPECT_EQ(Read("{\\rtf1 \xCE\xDE\xB9\xA6}").PlainText(), "无功");
  // A lead byte without its trail byte does not swallow the rest.
  EXPECT_EQ(Read(R"({\rtf1 \'ce}a)").PlainText(), "\xEF\xBF\xBD");
  EXPECT_EQ(Read(R"({\rtf1 \'ce!})").PlainText(), "\xEF\xBF\xBD!");
  // Escaped braces and backslash are text.
  EXPECT_EQ(Read(R"({\rtf1 a\{b\}c\\d})").PlainText(), "a{b}c\\d");
}

TEST(RtfReader, TablesInformationAndStarDestinationsAreSkipped) {
  auto doc = Read("{\\rtf1\\ansi{\\fonttbl{\\f0\\fnil\\fcharset134 \\'cb\\'ce\\'cc\\'e5;}}"
                  "{\\colortbl;\\red0\\green0\\blue0;}{\\stylesheet{\\s0 Normal;}}"
                  "{\\info{\\title T}{\\author A}}{\\*\\generator Riched20;}{\\*\\unknown x{y}}"
                  "Text{\\*\\bkmkstart m}\\par}");
  ASSERT_EQ(doc.paragraphs.size(), 1u);
  EXPECT_EQ(doc.PlainText(), "Text");
}

TEST(RtfReader, RefusesWhatIsNotRtf) {
  std::string error;
  EXPECT_FALSE(ui::ReadRtf("hello", &error));
  EXPECT_FALSE(error.empty());
  EXPECT_EQ(Read("{\\rtf1 a}}x").PlainText(), "a");
  EXPECT_FALSE(ui::ReadRtfFile("/nonexistent/Wgglbc.RTF", &error));
  EXPECT_NE(error.find("/nonexistent/Wgglbc.RTF"), std::string::npos);
  // A file that ends before its last group closes is still shown.
  EXPECT_EQ(Read("{\\rtf1 {\\b a").PlainText(), "a");
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

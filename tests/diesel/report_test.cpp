// The report's block sequence: header with the notice and the date, the failure boundary,
// the three methods' paragraphs in order, the closing font.
#include <gtest/gtest.h>

#include <regex>

#include "diesel/diesel_report.h"
#include "services/report/report_blocks_writer.h"
#include "services/report/report_styles.h"

namespace {

using kestra::report::Block;
using kestra::report::BlockKind;

TEST(DieselReport, BlocksForTheWorkedValues) {
  ZoUiWDFHCal steady;
  steady.SetParams(500, 0.85, 0.8);
  ZoUiJFFHCal peak;
  peak.SetParams(0.9, 1.5, 600, 300, 400);
  ZoUiMXYXYJCal bus;
  bus.SetParams(0.2, 0.2, 1000);
  const kestra::report::Blocks blocks = kestra::diesel::BuildDieselReport(steady, peak, bus, "2026-11-22");

  ASSERT_EQ(blocks.size(), 15u);
  // The notice: one line, then an empty line.
  const std::string& notice = blocks[1].text;
  ASSERT_GE(notice.size(), 3u);
  EXPECT_EQ(notice.find('\n'), notice.size() - 2) << notice;
  EXPECT_EQ(notice.substr(notice.size() - 2), "\n\n");
  const Block want[] = {
      {BlockKind::Title, "柴油发电机组容量计算"}, {BlockKind::Plain, notice},
      {BlockKind::Plain, "计算时间: 2026-11-22\n"}, {BlockKind::Plain, "设 计 院:\n"},
      {BlockKind::Plain, "工    程:\n"}, {BlockKind::Plain, "计 算 者:"},
      // A failure in the paragraph break that closes the header already counts as the body's.
      {BlockKind::HeaderDone, ""}, {BlockKind::NewParagraph, ""}, {BlockKind::Heading, "计算依据"},
      {BlockKind::Body, "\t根据《工业与民用配电设计手册》第三版66页柴油发电机组容量选择计算公式（2-6）（2-7）（2-8）"},
      {BlockKind::Heading, "计算参数"},
      {BlockKind::Body, steady.GetParamText() + peak.GetParamText() + bus.GetParamText()},
      {BlockKind::Heading, "计算结果"},
      {BlockKind::BodyEnd, steady.GetResultText() + peak.GetResultText() + bus.GetResultText()},
      {BlockKind::DocumentFont, "宋体"}};
  for (std::size_t i = 0; i < std::size(want); ++i) EXPECT_EQ(blocks[i], want[i]) << i;
}

// What the document holds after the blocks: the header lines as paragraphs, the symbols as
// subscript runs, the whole document in 宋体.
TEST(DieselReport, WrittenDocumentHeaderAndFormulaRuns) {
  ZoUiWDFHCal steady;
  steady.SetParams(500, 0.85, 0.8);
  ReportWriter w;
  w.OpenReport();
  kestra::report::WriteBlocks(w, kestra::diesel::BuildDieselReport(steady, {}, {}, "2026-11-22"));
  const auto& doc = w.Document();
  std::vector<std::string> texts;
  for (const auto& p : doc.paragraphs) texts.push_back(p.Text());
  ASSERT_GE(texts.size(), 9u);
  EXPECT_EQ(texts[0], "柴油发电机组容量计算");
  EXPECT_FALSE(texts[1].empty());  // the notice
  const std::vector<std::string> header(texts.begin() + 2, texts.begin() + 8);
  EXPECT_EQ(header, (std::vector<std::string>{"", "计算时间: 2026-11-22", "设 计 院:", "工    程:", "计 算 者:",
                                              "计算依据"}));
  EXPECT_EQ(doc.paragraphs[0].style_id, kestra::report::FindStyle("标题 1")->id);
  EXPECT_EQ(doc.paragraphs[6].style_id, "Normal");
  EXPECT_EQ(doc.paragraphs[7].style_id, kestra::report::FindStyle("标题 2")->id);
  EXPECT_EQ(doc.document_font, "宋体");

  // "S<L>G1</L>=P<L>∑</L>/（η<L>∑</L>cosφ）=735.294": subscripts G1 and ∑ (twice), result plain.
  const kestra::report::Paragraph* sg1 = nullptr;
  for (const auto& p : doc.paragraphs)
    if (p.Text().find("735.294") != std::string::npos) sg1 = &p;
  ASSERT_NE(sg1, nullptr);
  std::vector<std::string> subscripts;
  for (const auto& r : sg1->runs)
    if (r.kind == kestra::report::RunKind::kSubscript) subscripts.push_back(r.text);
  EXPECT_EQ(subscripts, (std::vector<std::string>{"G1", "∑", "∑"}));
  const std::string& last = sg1->runs.back().text;
  EXPECT_EQ(last.substr(last.rfind("）")), "）=735.294");
}

TEST(DieselReport, TodayIsAnIsoDate) {
  EXPECT_TRUE(std::regex_match(kestra::diesel::TodayText(), std::regex("[0-9]{4}-[0-9]{2}-[0-9]{2}")));
}

}  // namespace

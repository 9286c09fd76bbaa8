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
  EXPECT_EQ(blocks[0], (Block{BlockKind::Title, "柴油发电机组容量计算"}));
  // The notice: one line, then an empty line.
  EXPECT_EQ(blocks[1].kind, BlockKind::Plain);
  const std::string& notice = blocks[1].text;
  ASSERT_GE(notice.size(), 3u);
  EXPECT_EQ(notice.find('\n'), notice.size() - 2) << notice;
  EXPECT_EQ(notice.substr(notice.size() - 2), "\n\n");
  EXPECT_EQ(blocks[2], (Block{BlockKind::Plain, "计算时间: 2026-11-22\n"}));
  EXPECT_EQ(blocks[3], (Block{BlockKind::Plain, "设 计 院:\n"}));
  EXPECT_EQ(blocks[4], (Block{BlockKind::Plain, "工    程:\n"}));
  EXPECT_EQ(blocks[5], (Block{BlockKind::Plain, "计 算 者:"}));
  // A failure in the paragraph break that closes the header already counts as the body's.
  EXPECT_EQ(blocks[6].kind, BlockKind::HeaderDone);
  EXPECT_EQ(blocks[7].kind, BlockKind::NewParagraph);
  EXPECT_EQ(blocks[8], (Block{BlockKind::Heading, "计算依据"}));
  EXPECT_EQ(blocks[9], (Block{BlockKind::Body,
                              "\t根据《工业与民用配电设计手册》第三版66页柴油发电机组容量选择计算公式（2-6）（2-7）（2-8）"}));
  EXPECT_EQ(blocks[10], (Block{BlockKind::Heading, "计算参数"}));
  EXPECT_EQ(blocks[11], (Block{BlockKind::Body, steady.GetParamText() + peak.GetParamText() + bus.GetParamText()}));
  EXPECT_EQ(blocks[12], (Block{BlockKind::Heading, "计算结果"}));
  EXPECT_EQ(blocks[13],
            (Block{BlockKind::BodyEnd, steady.GetResultText() + peak.GetResultText() + bus.GetResultText()}));
  EXPECT_EQ(blocks[14], (Block{BlockKind::DocumentFont, "宋体"}));

  // The three capacities in the order of the methods.
  const std::regex capacity("=(-?[0-9]+\\.[0-9]{3})\n");
  std::vector<std::string> values;
  for (std::sregex_iterator it(blocks[13].text.begin(), blocks[13].text.end(), capacity), end; it != end; ++it)
    values.push_back((*it)[1]);
  EXPECT_EQ(values, (std::vector<std::string>{"735.294", "360.000", "800.000"}));
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
  EXPECT_EQ(doc.east_asian_font, "宋体");

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

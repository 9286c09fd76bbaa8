// The report: its block sequence (header with the notice and the date, the failure boundary,
// the three methods' paragraphs, the closing font) and each method's paragraphs character for
// character. Symbols are written as \u escapes here so a look-alike character in the report's
// texts cannot pass.
#include <gtest/gtest.h>

#include <regex>

#include "diesel/diesel_report.h"
#include "services/report/report_blocks_writer.h"

namespace {

using kestra::report::Block;
using kestra::report::BlockKind;
using namespace kestra::diesel;

const DieselInputs kWorked = {{500, 0.85, 0.8}, {0.9, 1.5, 600, 300, 400}, {0.2, 0.2, 1000}};

kestra::report::Blocks Report(const DieselInputs& in) { return BuildDieselReport(in, Calculate(in), "2026-11-22"); }

TEST(DieselReport, BlocksForTheWorkedValues) {
  const kestra::report::Blocks blocks = Report(kWorked);

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
      {BlockKind::Body, blocks[11].text},  // below, method by method
      {BlockKind::Heading, "计算结果"},
      {BlockKind::BodyEnd, blocks[13].text},
      {BlockKind::DocumentFont, "宋体"}};
  for (std::size_t i = 0; i < std::size(want); ++i) EXPECT_EQ(blocks[i], want[i]) << i;
}

const std::string kSteadyHead = "1\uFF09\t\u6309\u7A33\u5B9A\u8D1F\u8377\u8BA1\u7B97\u53D1\u7535\u673A\u5BB9\u91CF\uFF1A\n";
const std::string kPeakHead = "2）\t按尖峰负荷计算发电机容量：\n";
const std::string kBusHead = "3）\t按发电机母线允许压降计算发电机容量：\n";
const std::string kPeakFormula =
    "           S<L>G2</L>=(K<L>j</L>/K<L>G</L>)S<L>m</L>= (K<L>j</L>/K<L>G</L>)\u221A(P<L>2m</L>+Q<L>2m</L>)=";

TEST(DieselReport, EachMethodsParagraphs) {
  const kestra::report::Blocks blocks = Report(kWorked);
  EXPECT_EQ(blocks[11].text,
            kSteadyHead +
                "      发电机总负荷计算功率P<L>\u2211</L>=500.000\uFF08kW\uFF09；\n"
                "      所带负荷的综合效率\u03B7<L>\u2211</L>=0.850，一般取=0.82~0.88；\n"
                "      发电机额定功率因数cos\u03C6= 0.800，一般取cos\u03C6=0.8。\n" +
                kPeakHead +
                "      因尖峰负荷造成电压、频率降低而导致电动机功率下降的系数K<L>j</L>= 0.900，一般取K<L>j</L>=0.9~0.95；\n"
                "      发电机允许短时过载系数K<L>G</L>=1.500，一般取K<L>G</L>=1.4~1.6；\n"
                "      最大的单台电动机或成组电动机的起动容量S<L>m</L>= 600.000\uFF08kVA\uFF09；\n"
                "      S<L>m</L>的有功功率P<L>m</L>=300.000\uFF08kW\uFF09；\n"
                "      S<L>m</L>的无功功率Q<L>m</L>=400.000\uFF08kvar\uFF09。\n" +
                kBusHead +
                "      发电机母线允许电压降\u25B3U= 0.200，一般取\u25B3U=0.2；\n"
                "      发电机瞬态电抗X\u2019<L>d</L>= 0.200，一般取X\u2019<L>d</L>=0.2；\n"
                "      导致发电机最大电压降的电动机的最大起动容量S<L>st\u25B3</L>= 1000.000\uFF08kVA\uFF09。\n");
  EXPECT_EQ(blocks[13].text,
            kSteadyHead + "           S<L>G1</L>=P<L>\u2211</L>/\uFF08\u03B7<L>\u2211</L>cos\u03C6\uFF09=735.294\n" +
                kPeakHead + kPeakFormula + "360.000\n" + kBusHead +
                "           S<L>G3</L>=((1-\u25B3U)/\u25B3U)X\u2019<L>d</L>S<L>st\u25B3</L>=800.000\n");

  // Without Sm the result comes from Pm and Qm; the parameters still show Sm as 0.000.
  DieselInputs no_sm = kWorked;
  no_sm.peak.sm = 0;
  const kestra::report::Blocks b = Report(no_sm);
  EXPECT_NE(b[11].text.find("S<L>m</L>= 0.000（kVA）"), std::string::npos);
  EXPECT_NE(b[13].text.find(kPeakFormula + "300.000\n"), std::string::npos);
}

// Written, the header's lines are paragraphs of their own and the symbols subscript runs.
TEST(DieselReport, WrittenDocumentHeaderAndFormulaRuns) {
  ReportWriter w;
  w.OpenReport();
  kestra::report::WriteBlocks(w, Report({{500, 0.85, 0.8}, {}, {}}));
  std::vector<std::string> texts, subscripts;
  for (const auto& p : w.Document().paragraphs) {
    texts.push_back(p.Text());
    for (const auto& r : p.runs)
      if (r.kind == kestra::report::RunKind::kSubscript && p.Text().find("735.294") != std::string::npos)
        subscripts.push_back(r.text);
  }
  ASSERT_GE(texts.size(), 9u);
  EXPECT_EQ(std::vector<std::string>(texts.begin() + 2, texts.begin() + 8),
            (std::vector<std::string>{"", "计算时间: 2026-11-22", "设 计 院:", "工    程:", "计 算 者:", "计算依据"}));
  // "S<L>G1</L>=P<L>∑</L>/（η<L>∑</L>cosφ）=735.294"
  EXPECT_EQ(subscripts, (std::vector<std::string>{"G1", "∑", "∑"}));
  EXPECT_EQ(w.Document().document_font, "宋体");
}

TEST(DieselReport, TodayIsAnIsoDate) {
  EXPECT_TRUE(std::regex_match(TodayText(), std::regex("[0-9]{4}-[0-9]{2}-[0-9]{2}")));
}

}  // namespace

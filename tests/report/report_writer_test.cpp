#include <gtest/gtest.h>

#include "services/report/report_errors.h"
#include "services/report/report_writer.h"
#include "services/report/docx_parts.h"

using kestra::report::BlockEnd;
using kestra::report::Paragraph;
using RunT = kestra::report::Run;
using kestra::report::RunKind;
using kestra::report::TextMode;

namespace {

class WriterTest : public ::testing::Test {
 protected:
  void SetUp() override { ASSERT_TRUE(w.OpenReport()); }
  const std::vector<Paragraph>& paras() const { return w.Document().paragraphs; }
  ReportWriter w;
};

}  // namespace

TEST_F(WriterTest, LineFeedsSplitTheParagraphKeepingStyleAndAlignment) {
  w.SetParagraphStyle("标题 2", 2);
  w.InsertPlainRun("a\tb\nc\n");
  w.InsertPlainRun("d\r\ne");
  std::vector<std::string> texts;
  for (const Paragraph& p : paras()) {
    EXPECT_EQ(p.style_id, "Heading2");
    EXPECT_EQ(p.alignment, 2);
    texts.push_back(p.Text());
  }
  EXPECT_EQ(texts, (std::vector<std::string>{"a\tb", "c", "d", "e"}));
  // Between two body paragraphs Enter keeps the style and the alignment.
  w.SetParagraphStyle("Normal", 3);
  w.NewParagraph();
  EXPECT_EQ(paras().back().style_id, "Normal");
  EXPECT_EQ(paras().back().alignment, 3);
}

TEST_F(WriterTest, ScriptRunsAreFollowedByOnePlainSpace) {
  w.WriteMarkedText("P<L>js</L>=1000kW, x<U>2</U><5");
  ASSERT_EQ(paras().size(), 1u);
  EXPECT_EQ(paras()[0].runs, (std::vector<RunT>{{"P", RunKind::kPlain}, {"js", RunKind::kSubscript},
                                               {" =1000kW, x", RunKind::kPlain}, {"2<", RunKind::kSuperscript},
                                               {" 5", RunKind::kPlain}}));
  w.InsertScriptRun("a\nb", false);  // a line feed inside a script run splits it too
  ASSERT_EQ(paras().size(), 2u);
  EXPECT_EQ(paras()[0].runs.back(), (RunT{"a", RunKind::kSubscript}));
  EXPECT_EQ(paras()[1].runs, (std::vector<RunT>{{"b", RunKind::kSubscript}, {" ", RunKind::kPlain}}));
}

TEST_F(WriterTest, PlainBlocksKeepMarksLiteral) {
  w.PlainBlock("x<U>2</U>");
  w.TitleBlock("<L>t</L>", TextMode::kPlain);
  EXPECT_EQ(paras()[0].runs, (std::vector<RunT>{{"x<U>2</U>", RunKind::kPlain}}));
  EXPECT_EQ(paras()[1].runs, (std::vector<RunT>{{"<L>t</L>", RunKind::kPlain}}));
  w.BodyBlock("", BlockEnd::kNewParagraph);  // an empty text inserts nothing, the paragraph ends
  EXPECT_EQ(paras().size(), 4u);
  EXPECT_TRUE(paras()[2].runs.empty());
}

TEST_F(WriterTest, StyleNamesAsWordKnowsThem) {
  for (const auto& [name, id] : {std::pair{"Heading 1", "Heading1"}, {"HEADING 2", "Heading2"}, {"正文", "Normal"}}) {
    w.SetParagraphStyle(name, 0);
    EXPECT_EQ(paras().back().style_id, id) << name;
  }
  try {
    w.SetParagraphStyle("标题 9", 0);
    FAIL() << "an unknown style must be refused";
  } catch (const COleDispatchException& e) {
    EXPECT_EQ(e.m_wCode, 5941);  // its message: the report guard's test
  }
  EXPECT_THROW(w.SetParagraphStyle("标题 1", 5), COleDispatchException);
  EXPECT_THROW(w.SetParagraphStyle("标题 1", -1), COleDispatchException);
  EXPECT_EQ(paras().back().style_id, "Normal");  // a refused call changes nothing
}

TEST_F(WriterTest, OpeningDocumentFontAndUseBeforeOpening) {
  ReportWriter unopened;
  EXPECT_THROW(unopened.InsertPlainRun("x"), std::logic_error);
  EXPECT_THROW(unopened.NewParagraph(), std::logic_error);
  for (int round = 0; round < 2; ++round) {  // a new document starts afresh
    ASSERT_EQ(paras().size(), 1u);  // one empty body paragraph
    EXPECT_EQ(paras()[0].style_id, "Normal");
    EXPECT_FALSE(paras()[0].alignment.has_value());
    EXPECT_TRUE(paras()[0].runs.empty());
    EXPECT_TRUE(w.Document().document_font.empty());
    EXPECT_FALSE(w.HeaderDone());
    w.InsertPlainRun("x");
    w.SetDocumentFont("宋体");
    w.MarkHeaderDone();
    EXPECT_TRUE(w.HeaderDone());
    w.OpenReport();
  }
}

TEST_F(WriterTest, TableStandsBetweenParagraphsAndIsWrittenBeforeTheOneAfterIt) {
  kestra::report::ReportTable t;
  t.rows = {{"回路", "Δu%"}, {"WL1", "2.5"}, {"WL2 <L>x</L>", "6.1"}};
  t.marked = {false, false, true};
  w.BodyBlock("前文", BlockEnd::kEndsReport);  // the paragraph holding text is ended first
  w.TableBlock(t);
  w.BodyBlock("后文", BlockEnd::kEndsReport);
  ASSERT_EQ(paras().size(), 2u);
  ASSERT_EQ(w.Document().tables.size(), 1u);
  EXPECT_EQ(w.Document().tables[0].before_paragraph, 1u);
  const std::string xml = kestra::report::DocumentXml(w.Document());
  const auto before = xml.find("前文"), table = xml.find("<w:tbl>"), after = xml.find("后文");
  EXPECT_TRUE(before < table && table < after);
  EXPECT_NE(xml.find("<w:tblHeader/>"), std::string::npos);                   // the header row repeats
  EXPECT_NE(xml.find("WL2 &lt;L&gt;x&lt;/L&gt;"), std::string::npos);         // cells are plain text
  std::size_t marked_cells = 0;
  for (auto at = xml.find("F2DCDB"); at != std::string::npos; at = xml.find("F2DCDB", at + 1)) ++marked_cells;
  EXPECT_EQ(marked_cells, 2u);  // the two cells of the one marked row

  kestra::report::ReportTable ragged;
  ragged.rows = {{"a", "b"}, {"c"}};
  EXPECT_THROW(w.TableBlock(kestra::report::ReportTable{}), COleDispatchException);
  EXPECT_THROW(w.TableBlock(ragged), COleDispatchException);
}

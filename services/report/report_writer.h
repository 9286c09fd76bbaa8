#pragma once
// The calculation-report writer: the operations the calculators' reports are written with, and
// the blocks they are made of, over a document model. The insertion point is always the end
// of the document.
//
//   ReportWriter w;            // usually handed to the report body by kestra::report::RunReport
//   w.OpenReport();
//   w.TitleBlock("无功功率补偿计算书");
//   w.SectionHeading("计算依据");
//   w.BodyBlock("\tcosφ1=[1/(1+(Wrm/Wm)<U>2</U>)]<U>0.5</U>=0.75");
//   w.BodyBlock("\t并联电容器数量=7", kestra::report::BlockEnd::kEndsReport);
#include <string_view>

#include "services/report/report_document.h"

namespace kestra::report {

// How a block's text is inserted: split at its marks, or as it is (marks stay literal).
enum class TextMode { kMarked, kPlain };
// Whether a body block ends with a paragraph end, or is the last block of its report.
enum class BlockEnd { kNewParagraph, kEndsReport };

}  // namespace kestra::report

class ReportWriter {
 public:
  // Starts a new, empty document: one paragraph in the body style "Normal". Returns true.
  // Any earlier document of this writer is dropped.
  bool OpenReport();
  bool IsOpen() const { return open_; }

  // Gives the current paragraph the named style (see report_styles.h; "标题 1", "标题 2",
  // "正文"/"Normal") and the alignment (0 left, 1 centred, 2 right, 3 justified,
  // 4 distributed). An unknown style or alignment throws COleDispatchException, as Word does.
  void SetParagraphStyle(std::string_view style_name, int alignment);
  // Appends plain text. A line feed ends the paragraph and starts one of the same style and
  // alignment; tabs stay tabs.
  void InsertPlainRun(std::string_view text);
  // Appends the text as a superscript (flag set) or subscript run, then one plain space.
  void InsertScriptRun(std::string_view text, bool superscript);
  // Splits the text at its marks (kestra::report::SplitMarkedText) and appends the runs in order.
  void WriteMarkedText(std::string_view text);
  // Ends the current paragraph; the new one takes the style that follows the current one
  // (after a heading: "Normal"), and keeps the alignment only when the style stays the same.
  void NewParagraph();
  // Sets the font of the whole document (Latin letters, digits and Chinese alike), text already
  // written and yet to come.
  void SetDocumentFont(std::string_view font_name);

  // Report blocks.
  // Style "标题 1" centred, the text, paragraph end.
  void TitleBlock(std::string_view text, kestra::report::TextMode mode = kestra::report::TextMode::kMarked);
  // Style "标题 2" left, the text, paragraph end.
  void SectionHeading(std::string_view text,
                      kestra::report::TextMode mode = kestra::report::TextMode::kMarked);
  // The text in the paragraph's current style (after a heading: "Normal"), then a paragraph end
  // unless the block ends the report.
  void BodyBlock(std::string_view text,
                 kestra::report::BlockEnd end = kestra::report::BlockEnd::kNewParagraph,
                 kestra::report::TextMode mode = kestra::report::TextMode::kMarked);
  // A body block whose marks stay literal.
  void PlainBlock(std::string_view text,
                  kestra::report::BlockEnd end = kestra::report::BlockEnd::kNewParagraph) {
    BodyBlock(text, end, kestra::report::TextMode::kPlain);
  }

  // A table (see ReportTable) at the insertion point: a paragraph holding text is ended first,
  // so the table stands between paragraphs, and writing goes on in the paragraph after it.
  // A table without rows, or with a row whose cell count differs from the first row's, throws
  // COleDispatchException as Word's table operations would ("Value out of range").
  void TableBlock(const kestra::report::ReportTable& table);

  // For a report whose first steps have a guard of their own (the diesel report): marks the
  // point from which a failure counts as one of the report body (see report_run.h).
  void MarkHeaderDone() { header_done_ = true; }
  bool HeaderDone() const { return header_done_; }

  const kestra::report::ReportDocument& Document() const { return doc_; }

 private:
  kestra::report::Paragraph& Current();
  void Append(std::string_view text, kestra::report::RunKind kind);

  kestra::report::ReportDocument doc_;
  bool open_ = false;
  bool header_done_ = false;
};

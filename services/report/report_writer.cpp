#include "services/report/report_writer.h"

#include <stdexcept>

#include "services/report/marked_text.h"
#include "services/report/report_errors.h"
#include "services/report/report_styles.h"

using kestra::report::Paragraph;
using kestra::report::Run;
using kestra::report::RunKind;

bool ReportWriter::OpenReport() {
  doc_ = kestra::report::ReportDocument{};
  doc_.paragraphs.emplace_back();
  open_ = true;
  header_done_ = false;
  return true;
}

Paragraph& ReportWriter::Current() {
  if (!open_) throw std::logic_error("the report writer has no open document");
  return doc_.paragraphs.back();
}

void ReportWriter::SetParagraphStyle(std::string_view style_name, int alignment) {
  Paragraph& p = Current();
  const kestra::report::StyleInfo* style = kestra::report::FindStyle(style_name);
  if (style == nullptr) {
    throw COleDispatchException(kestra::report::kWordNoSuchMember,
                                "The requested member of the collection does not exist.");
  }
  if (alignment < kestra::report::kAlignLeft || alignment > kestra::report::kAlignDistribute) {
    throw COleDispatchException(kestra::report::kWordValueOutOfRange, "Value out of range");
  }
  // Word applies the style first, which clears the paragraph's own formatting, then the alignment.
  p.style_id = std::string(style->id);
  p.alignment = alignment;
}

// Appends text of one kind at the end. Word makes a paragraph mark of a line feed (and of a
// carriage return; "\r\n" counts once), which splits the paragraph: the new one has the style
// and alignment of the one it was split from.
void ReportWriter::Append(std::string_view text, RunKind kind) {
  Current();
  std::size_t start = 0;
  while (true) {
    const std::size_t brk = text.find_first_of("\r\n", start);
    const std::string_view piece = text.substr(start, brk == std::string_view::npos ? brk : brk - start);
    if (!piece.empty()) {
      std::vector<Run>& runs = doc_.paragraphs.back().runs;
      if (!runs.empty() && runs.back().kind == kind) {
        runs.back().text += piece;
      } else {
        runs.push_back(Run{std::string(piece), kind});
      }
    }
    if (brk == std::string_view::npos) break;
    const Paragraph& from = doc_.paragraphs.back();
    doc_.paragraphs.push_back(Paragraph{from.style_id, from.alignment, {}});
    start = brk + 1;
    if (text[brk] == '\r' && start < text.size() && text[start] == '\n') ++start;
  }
}

void ReportWriter::InsertPlainRun(std::string_view text) { Append(text, RunKind::kPlain); }

void ReportWriter::InsertScriptRun(std::string_view text, bool superscript) {
  Append(text, superscript ? RunKind::kSuperscript : RunKind::kSubscript);
  Append(" ", RunKind::kPlain);
}

void ReportWriter::WriteMarkedText(std::string_view text) {
  Current();
  for (const Run& run : kestra::report::SplitMarkedText(text)) {
    switch (run.kind) {
      case RunKind::kPlain: InsertPlainRun(run.text); break;
      case RunKind::kSubscript: InsertScriptRun(run.text, false); break;
      case RunKind::kSuperscript: InsertScriptRun(run.text, true); break;
    }
  }
}

void ReportWriter::NewParagraph() {
  const Paragraph& cur = Current();
  const kestra::report::StyleInfo* style = kestra::report::StyleById(cur.style_id);
  Paragraph next;
  next.style_id = style != nullptr ? std::string(style->next_id) : cur.style_id;
  if (next.style_id == cur.style_id) next.alignment = cur.alignment;
  doc_.paragraphs.push_back(std::move(next));
}

void ReportWriter::SetDocumentFont(std::string_view font_name) {
  Current();
  doc_.document_font = std::string(font_name);
}

void ReportWriter::TitleBlock(std::string_view text, kestra::report::TextMode mode) {
  SetParagraphStyle("标题 1", kestra::report::kAlignCenter);
  BodyBlock(text, kestra::report::BlockEnd::kNewParagraph, mode);
}

void ReportWriter::SectionHeading(std::string_view text, kestra::report::TextMode mode) {
  SetParagraphStyle("标题 2", kestra::report::kAlignLeft);
  BodyBlock(text, kestra::report::BlockEnd::kNewParagraph, mode);
}

void ReportWriter::BodyBlock(std::string_view text, kestra::report::BlockEnd end,
                             kestra::report::TextMode mode) {
  if (mode == kestra::report::TextMode::kPlain) {
    InsertPlainRun(text);
  } else {
    WriteMarkedText(text);
  }
  if (end == kestra::report::BlockEnd::kNewParagraph) NewParagraph();
}

void ReportWriter::TableBlock(const kestra::report::ReportTable& table) {
  if (!Current().runs.empty()) NewParagraph();
  bool rectangular = !table.rows.empty() && !table.rows.front().empty();
  for (const auto& row : table.rows) rectangular = rectangular && row.size() == table.rows.front().size();
  if (!rectangular || table.header_rows > table.rows.size() ||
      (!table.widths.empty() && table.widths.size() != table.rows.front().size())) {
    throw COleDispatchException(kestra::report::kWordValueOutOfRange, "Value out of range");
  }
  doc_.tables.push_back({doc_.paragraphs.size() - 1, table});
}

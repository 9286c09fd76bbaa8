#pragma once
// The report document as Word would hold it after the writer's operations: paragraphs, each with
// its style and alignment, made of runs that are plain, subscript or superscript. A backend
// (docx_package.h) turns it into a file.
#include <optional>
#include <string>
#include <vector>

namespace kestra::report {

// The kinds of the marked-text runs (0 plain, 1 subscript, 2 superscript, as rich-text runs).
enum class RunKind { kPlain = 0, kSubscript = 1, kSuperscript = 2 };

struct Run {
  std::string text;  // UTF-8; may hold tabs (a line feed never: it ends the paragraph)
  RunKind kind = RunKind::kPlain;
  bool operator==(const Run&) const = default;
};

// Word's paragraph alignments (wdAlignParagraph...): 0 left, 1 centred, 2 right, 3 justified,
// 4 distributed.
inline constexpr int kAlignLeft = 0;
inline constexpr int kAlignCenter = 1;
inline constexpr int kAlignRight = 2;
inline constexpr int kAlignJustify = 3;
inline constexpr int kAlignDistribute = 4;

struct Paragraph {
  std::string style_id = "Normal";  // a built-in style id of report_styles.h
  std::optional<int> alignment;     // set on the paragraph; empty: the style's own
  std::vector<Run> runs;

  std::string Text() const;  // all runs' texts, joined
};

// A table of plain texts, as a summary report lists its items: header rows first (repeated on each
// page, shaded), then one row per item; a marked row (a failing item) is shaded and bold. Column
// widths are relative weights over the text width (empty: equal columns).
struct ReportTable {
  std::vector<std::vector<std::string>> rows;  // every row has as many cells as the first
  std::size_t header_rows = 1;
  std::vector<bool> marked;  // per row; missing entries: not marked
  std::vector<int> widths;
  bool operator==(const ReportTable&) const = default;
};

// A table placed in the document: it stands before paragraph `before_paragraph`.
struct PlacedTable {
  std::size_t before_paragraph = 0;
  ReportTable table;
};

struct ReportDocument {
  std::vector<Paragraph> paragraphs;
  std::vector<PlacedTable> tables;  // in document order
  // The font set on the whole document (its Latin, Chinese and East Asian faces alike); empty:
  // the document defaults (Times New Roman, East Asian 宋体).
  std::string document_font;
};

}  // namespace kestra::report

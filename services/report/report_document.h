#pragma once
// The report document as Word would hold it after the writer's operations: paragraphs, each with
// its style and alignment, made of runs that are plain, subscript or superscript. A backend
// (docx_package.h) turns it into a file.
#include <optional>
#include <string>
#include <vector>

namespace kestra::report {

// The kinds of the marked-text runs, with the values the report writer has always used.
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

struct ReportDocument {
  std::vector<Paragraph> paragraphs;
  // The font set on the whole document (its Latin, Chinese and East Asian faces alike); empty:
  // the document defaults (Times New Roman, East Asian 宋体).
  std::string document_font;
};

}  // namespace kestra::report

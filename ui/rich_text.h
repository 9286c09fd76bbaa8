#pragma once
// What a rich-text control shows: paragraphs of formatted runs (read from .RTF pages).
#include <string>
#include <vector>

namespace ui {

struct RichRun {
  std::string text;  // UTF-8
  bool bold = false;
  bool italic = false;
  bool underline = false;
  int script = 0;          // 0 normal, 1 subscript, 2 superscript
  double size_pt = 10.5;   // font size in points
  std::string font;        // face name, empty for the document default
};

struct RichParagraph {
  std::vector<RichRun> runs;
  int align = 0;  // 0 left, 1 centred, 2 right, 3 justified
  double first_indent_pt = 0;
  double left_indent_pt = 0;
};

struct RichDocument {
  std::vector<RichParagraph> paragraphs;
  std::string PlainText() const;  // paragraphs joined by line feeds
};

}  // namespace ui

#pragma once
// The paragraph styles a report may name. Reports name the headings as a Chinese Word shows them
// ("标题 1", "标题 2"); in the file they are Word's built-in "heading 1"/"heading 2", which every
// Word shows under its own language's name and LibreOffice imports as headings.
#include <string_view>

namespace kestra::report {

struct StyleInfo {
  std::string_view id;         // w:styleId in the package
  std::string_view name;       // w:name: Word's built-in (English, lower-case) name
  std::string_view next_id;    // the style of the paragraph that Enter starts after this one
  int outline_level;           // 0 for heading 1, 1 for heading 2, -1 for body text
  int default_alignment;       // the style's own alignment (kAlign...)
};

// The style named `name`: its built-in name, its Chinese Word name or its id, ASCII letter case
// ignored as Word does; nullptr when the document has no such style.
const StyleInfo* FindStyle(std::string_view name);
// The style with this id; nullptr when there is none.
const StyleInfo* StyleById(std::string_view id);

}  // namespace kestra::report

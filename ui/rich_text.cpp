#include "ui/rich_text.h"

namespace ui {

std::string RichDocument::PlainText() const {
  std::string out;
  for (std::size_t i = 0; i < paragraphs.size(); ++i) {
    if (i) out += '\n';
    for (const auto& r : paragraphs[i].runs) out += r.text;
  }
  return out;
}

}  // namespace ui

#include "ui/ui_host.h"

#include "ui/rich_text.h"

namespace ui {
namespace {
UiHost* g_host = nullptr;
}

UiHost* CurrentHost() { return g_host; }
void SetCurrentHost(UiHost* host) { g_host = host; }

WaitCursor::WaitCursor() {
  if (g_host) g_host->BeginWaitCursor();
}
WaitCursor::~WaitCursor() {
  if (g_host) g_host->EndWaitCursor();
}

int MessageBox(const std::string& text, const std::string& caption, unsigned type) {
  if (!g_host) return IDOK;
  return g_host->MessageBox(text, caption, type);
}

std::string RichDocument::PlainText() const {
  std::string out;
  for (std::size_t i = 0; i < paragraphs.size(); ++i) {
    if (i) out += '\n';
    for (const auto& r : paragraphs[i].runs) out += r.text;
  }
  return out;
}

}  // namespace ui

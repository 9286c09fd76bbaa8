#include "ui/ui_host.h"

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

}  // namespace ui

#include "ui/headless_host.h"

#include <filesystem>

namespace ui {

std::string TranscriptText(const std::string& s) {
  std::string out;
  for (char c : s) {
    if (c == '\n') out += "\\n";
    else if (c == '\r') continue;
    else out += c;
  }
  return out;
}

HeadlessHost::HeadlessHost(std::ostream& transcript) : out_(transcript) {}

int HeadlessHost::RunModal(Dialog& dlg) {
  // The dialog is seen once its initialisation has run, with the caption it set there (a pick
  // dialog names its catalogue); a message its initialisation shows comes first, as on screen.
  if (!dlg.CreateModal()) {
    out_ << "[dialog] " << TranscriptText(dlg.GetTemplate() ? dlg.GetTemplate()->caption : std::string()) << '\n';
    return -1;
  }
  out_ << "[dialog] " << TranscriptText(dlg.GetWindowText()) << '\n';
  stack_.push_back(&dlg);
  if (!dlg.IsEnded()) {
    Driver d;
    if (!queued_.empty()) {
      d = std::move(queued_.front());
      queued_.pop_front();
    } else {
      d = driver_;
    }
    if (d) d(dlg);
  }
  if (!dlg.IsEnded()) {
    // Nobody acts any more: the window is closed, which is a cancel.
    dlg.OnCancel();
    if (!dlg.IsEnded()) dlg.EndDialog(IDCANCEL);
  }
  stack_.pop_back();
  out_ << "[closed] " << TranscriptText(dlg.GetWindowText()) << ' ' << (dlg.Result() == IDOK ? "OK" : "Cancel") << '\n';
  return dlg.Result();
}

int HeadlessHost::MessageBox(const std::string& text, const std::string& caption, unsigned type) {
  std::string cap = caption.empty() ? title_ : caption;
  out_ << "[message] " << TranscriptText(cap) << ": " << TranscriptText(text) << '\n';
  messages_.push_back(text);
  if (!answers_.empty()) {
    int a = answers_.front();
    answers_.pop_front();
    return a;
  }
  unsigned buttons = type & 0xF;
  bool second = (type & MB_DEFBUTTON2) != 0;
  switch (buttons) {
    case MB_OKCANCEL: return second ? IDCANCEL : IDOK;
    case MB_YESNO:
    case MB_YESNOCANCEL: return second ? IDNO : IDYES;
    default: return IDOK;
  }
}

// A fixed, reproducible metric: 9-point CJK dialog fonts are 12 pixels high with
// characters of 12 (wide) or 6 (narrow) pixels.
Size HeadlessHost::BaseUnits(const Font& font) {
  int h = font.height < 0 ? -font.height : (font.height ? font.height : 12);
  return Size{(h + 1) / 2, h};
}

Size HeadlessHost::TextExtent(const std::string& text, const Font& font) {
  int h = font.height < 0 ? -font.height : (font.height ? font.height : 12);
  int width = 0;
  for (std::size_t i = 0; i < text.size();) {
    unsigned char c = static_cast<unsigned char>(text[i]);
    std::size_t len = c < 0x80 ? 1 : c < 0xE0 ? 2 : c < 0xF0 ? 3 : 4;
    width += len >= 3 ? h : (h + 1) / 2;
    i += len;
  }
  return Size{width, h};
}

std::optional<std::string> HeadlessHost::NewReportPath(std::string_view title) {
  namespace fs = std::filesystem;
  fs::path dir = report_dir_.empty() ? fs::current_path() : fs::path(report_dir_);
  std::error_code ec;
  fs::create_directories(dir, ec);
  return kestra::report::UniqueReportPath(dir.string(), title, std::time(nullptr));
}

void HeadlessHost::ShowReport(const std::string& path) { out_ << "[report] " << path << '\n'; }

}  // namespace ui

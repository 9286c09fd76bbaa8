#include "services/report/marked_text.h"

namespace kestra::report {
namespace {

// W starts with the opening mark `open` (already checked): drops it and, when the closing mark
// follows, the marked text with it, adding that text as a run of `kind` unless it is empty.
void TakeMarkedPart(std::string_view& w, std::string_view close, RunKind kind, std::vector<Run>& runs) {
  w.remove_prefix(3);
  const std::size_t end = w.find(close);
  if (end == std::string_view::npos) return;  // the rest stays as ordinary text
  if (end > 0) runs.push_back(Run{std::string(w.substr(0, end)), kind});
  w.remove_prefix(end + close.size());
}

}  // namespace

std::vector<Run> SplitMarkedText(std::string_view text) {
  std::vector<Run> runs;
  std::string_view w = text;
  while (!w.empty()) {
    const std::size_t lt = w.find('<');
    if (lt == std::string_view::npos) {
      runs.push_back(Run{std::string(w), RunKind::kPlain});
      break;
    }
    const std::string_view at = w.substr(lt, 3);
    // Whatever the "<" turns out to be, the text before it is plain.
    if (lt > 0) {
      runs.push_back(Run{std::string(w.substr(0, lt)), RunKind::kPlain});
    }
    w.remove_prefix(lt);
    if (at == "<L>") {
      TakeMarkedPart(w, "</L>", RunKind::kSubscript, runs);
    } else if (at == "<U>") {
      TakeMarkedPart(w, "</U>", RunKind::kSuperscript, runs);
    } else {
      if (runs.empty()) {
        runs.push_back(Run{"<", RunKind::kPlain});
      } else {
        runs.back().text += '<';
      }
      w.remove_prefix(1);
    }
  }
  return runs;
}

}  // namespace kestra::report

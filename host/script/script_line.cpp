#include "host/script/script_line.h"

#include "services/text/number_text.h"

namespace kestra::script {
namespace {
bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\r'; }
}  // namespace

bool IsBlankOrComment(std::string_view line) {
  std::size_t i = 0;
  while (i < line.size() && IsBlank(line[i])) ++i;
  return i == line.size() || line[i] == ';';
}

bool SplitLine(std::string_view line, std::vector<Word>* words, std::string* error) {
  words->clear();
  std::size_t i = 0;
  while (true) {
    while (i < line.size() && IsBlank(line[i])) ++i;
    if (i == line.size()) return true;
    Word w;
    std::size_t start = i;
    if (line[i] == '"') {
      w.quoted = true;
      ++i;
      bool closed = false;
      while (i < line.size()) {
        char c = line[i++];
        if (c == '"') {
          closed = true;
          break;
        }
        if (c != '\\') {
          w.text += c;
          continue;
        }
        if (i == line.size()) break;
        char e = line[i++];
        if (e == '"' || e == '\\') w.text += e;
        else if (e == 'n') w.text += '\n';
        else {
          *error = std::string("unknown escape \\") + e + " in a quoted word (use \\\" \\\\ or \\n)";
          return false;
        }
      }
      if (!closed) {
        *error = "a quoted word is not closed";
        return false;
      }
      if (i < line.size() && !IsBlank(line[i])) {
        *error = "a closing quote must be followed by a blank";
        return false;
      }
    } else {
      while (i < line.size() && !IsBlank(line[i])) {
        if (line[i] == '"') {
          *error = "a quote inside a word (quote the whole word)";
          return false;
        }
        w.text += line[i++];
      }
    }
    w.raw = std::string(line.substr(start, i - start));
    words->push_back(std::move(w));
  }
}

bool ParseCount(const Word& w, int* out) {
  if (w.quoted || w.text.empty() || w.text.size() > 9) return false;
  for (char c : w.text)
    if (c < '0' || c > '9') return false;
  *out = text::WToI(w.text);
  return true;
}

}  // namespace kestra::script

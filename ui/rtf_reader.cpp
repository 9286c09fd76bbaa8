#include "ui/rtf_reader.h"

#include <iconv.h>

#include <cerrno>
#include <cstdint>
#include <fstream>
#include <iterator>
#include <set>
#include <sstream>
#include <vector>

#include "services/text/data_path.h"

namespace ui {
namespace {

struct CharState {
  bool bold = false, italic = false, underline = false;
  int script = 0;
  double size_pt = 12;  // RTF's default \fs24
  bool SameLook(const RichRun& r) const {
    return r.bold == bold && r.italic == italic && r.underline == underline && r.script == script &&
           r.size_pt == size_pt;
  }
};

struct ParaState {
  int align = 0;
  double first_indent_pt = 0, left_indent_pt = 0;
};

struct GroupState {
  CharState chr;
  ParaState para;
  int uc = 1;         // characters that stand in for each \uN
  bool skip = false;  // inside a destination whose text is not shown
};

void AppendUtf8(std::string& out, std::uint32_t cp) {
  if (cp < 0x80) {
    out += static_cast<char>(cp);
  } else if (cp < 0x800) {
    out += static_cast<char>(0xC0 | (cp >> 6));
    out += static_cast<char>(0x80 | (cp & 0x3F));
  } else if (cp < 0x10000) {
    out += static_cast<char>(0xE0 | (cp >> 12));
    out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (cp & 0x3F));
  } else {
    out += static_cast<char>(0xF0 | (cp >> 18));
    out += static_cast<char>(0x80 | ((cp >> 12) & 0x3F));
    out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (cp & 0x3F));
  }
}

// Code-page bytes to UTF-8 through the C library's converter; a byte sequence the code page
// does not know becomes U+FFFD and the rest is still decoded.
std::string DecodeCodePage(const std::string& bytes, const std::string& charset) {
  std::string out;
  iconv_t cd = iconv_open("UTF-8", charset.c_str());
  if (cd == reinterpret_cast<iconv_t>(-1)) cd = iconv_open("UTF-8", "GBK");
  if (cd == reinterpret_cast<iconv_t>(-1)) {
    for (unsigned char c : bytes) AppendUtf8(out, c < 0x80 ? c : 0xFFFD);
    return out;
  }
  std::vector<char> in(bytes.begin(), bytes.end());
  char* inp = in.data();
  std::size_t inleft = in.size();
  char buf[256];
  while (inleft > 0) {
    char* outp = buf;
    std::size_t outleft = sizeof buf;
    const std::size_t r = iconv(cd, &inp, &inleft, &outp, &outleft);
    out.append(buf, static_cast<std::size_t>(outp - buf));
    if (r == static_cast<std::size_t>(-1)) {
      if (errno == E2BIG) continue;
      // EILSEQ, or EINVAL for a lead byte without its trail byte at the end.
      AppendUtf8(out, 0xFFFD);
      ++inp;
      --inleft;
      iconv(cd, nullptr, nullptr, nullptr, nullptr);
    }
  }
  iconv_close(cd);
  return out;
}

constexpr std::uint32_t kReplacement = 0xFFFD;
// Real pages nest groups a few levels deep; deeper groups share their parent's state rather
// than each holding a copy of it.
constexpr std::size_t kMaxGroupDepth = 256;

bool IsAsciiLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
bool IsDigit(char c) { return c >= '0' && c <= '9'; }

int HexValue(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

// Destinations whose content is not page text.
const std::set<std::string, std::less<>>& SkippedDestinations() {
  static const std::set<std::string, std::less<>> names = {
      "fonttbl", "colortbl", "stylesheet", "info", "pict", "header", "footer", "headerl", "headerr",
      "headerf", "footerl", "footerr", "footerf", "footnote", "fldinst", "listtable", "listoverridetable",
      "revtbl", "rsidtbl", "generator", "xmlnstbl", "filetbl", "object", "themedata", "colorschememapping",
      "latentstyles", "datastore", "mmathPr", "pgdsctbl", "author", "operator", "title", "subject",
      "keywords", "comment", "doccomm", "company", "creatim", "revtim", "printim", "buptim"};
  return names;
}

class Reader {
 public:
  std::optional<RichDocument> Run(std::string_view s, std::string* error) {
    if (s.substr(0, 5) != "{\\rtf") {
      if (error) *error = "not an RTF document";
      return std::nullopt;
    }
    std::size_t i = 0;
    while (i < s.size()) {
      const char c = s[i];
      if (c == '{') {
        Flush();
        if (stack_.size() == kMaxGroupDepth) {
          ++excess_depth_;
        } else {
          stack_.push_back(state_);
        }
        group_start_ = true;
        pending_skip_ = 0;
        ++i;
        continue;
      }
      if (c == '}' && excess_depth_ > 0) {
        Flush();
        --excess_depth_;
        group_start_ = false;
        pending_skip_ = 0;
        ++i;
        continue;
      }
      if (c == '}') {
        Flush();
        // The last paragraph of the document takes the properties in force where it ends.
        if (stack_.size() == 1) EndParagraph(false);
        state_ = stack_.back();
        stack_.pop_back();
        group_start_ = false;
        pending_skip_ = 0;
        ++i;
        if (stack_.empty()) break;  // the document's own group has ended; what follows is not page text
        continue;
      }
      if (c == '\\') {
        i = ControlAt(s, i + 1);
        group_start_ = false;
        continue;
      }
      group_start_ = false;
      if (c == '\r' || c == '\n') {
        ++i;
        continue;
      }
      if (!ConsumeSkip()) PutByte(static_cast<unsigned char>(c));
      ++i;
    }
    Flush();
    EndParagraph(false);
    return std::move(doc_);
  }

 private:
  // Reads a control word or symbol starting after the backslash; returns the next position.
  std::size_t ControlAt(std::string_view s, std::size_t i) {
    if (i >= s.size()) return i;
    const char c = s[i];
    if (c == '\'') {
      const int hi = i + 1 < s.size() ? HexValue(s[i + 1]) : -1;
      const int lo = i + 2 < s.size() ? HexValue(s[i + 2]) : -1;
      if (hi < 0 || lo < 0) return i + 1;  // a broken escape shows nothing
      if (!ConsumeSkip()) PutByte(static_cast<unsigned char>(hi * 16 + lo));
      return i + 3;
    }
    if (!IsAsciiLetter(c)) {
      const bool at_group_start = group_start_;
      if (c == '*') {
        if (at_group_start) state_.skip = true;
        return i + 1;
      }
      if (ConsumeSkip()) return i + 1;
      switch (c) {
        case '\\': case '{': case '}': PutByte(static_cast<unsigned char>(c)); break;
        case '~': PutText("\xC2\xA0"); break;
        case '_': PutText("-"); break;
        case '\r': case '\n': Paragraph(); break;
        default: break;  // \- optional hyphen, \: index entries, ...
      }
      return i + 1;
    }
    std::size_t j = i;
    while (j < s.size() && IsAsciiLetter(s[j])) ++j;
    const std::string_view word = s.substr(i, j - i);
    bool has_param = false;
    bool negative = false;
    long param = 0;
    if (j < s.size() && s[j] == '-' && j + 1 < s.size() && IsDigit(s[j + 1])) {
      negative = true;
      ++j;
    }
    while (j < s.size() && IsDigit(s[j])) {
      has_param = true;
      if (param < 100000000) param = param * 10 + (s[j] - '0');
      ++j;
    }
    if (negative) param = -param;
    if (j < s.size() && s[j] == ' ') ++j;  // the delimiting space belongs to the word
    Word(word, has_param, param);
    return j;
  }

  void Word(std::string_view w, bool has_param, long p) {
    const bool at_group_start = group_start_;
    if (at_group_start && SkippedDestinations().count(w)) {
      state_.skip = true;
      return;
    }
    if (w == "ansicpg" && has_param) {
      charset_ = p == 936 ? "GBK" : "CP" + std::to_string(p);
      return;
    }
    if (w == "uc") {
      state_.uc = has_param && p >= 0 ? static_cast<int>(p) : 1;
      return;
    }
    if (w == "u" && has_param) {
      if (ConsumeSkip()) return;
      PutUnicode(static_cast<std::uint32_t>(p < 0 ? p + 65536 : p) & 0xFFFF);
      pending_skip_ = state_.uc;
      return;
    }
    // Any other word stands in for one replacement character after \uN.
    if (ConsumeSkip()) return;
    const bool on = !has_param || p != 0;
    CharState next = state_.chr;
    if (w == "par") {
      Paragraph();
    } else if (w == "line") {
      PutText("\n");
    } else if (w == "tab") {
      PutText("\t");
    } else if (w == "pard") {
      state_.para = ParaState{};
    } else if (w == "plain") {
      next = CharState{};
    } else if (w == "b") {
      next.bold = on;
    } else if (w == "i") {
      next.italic = on;
    } else if (w == "ul") {
      next.underline = on;
    } else if (w == "ulnone") {
      next.underline = false;
    } else if (w == "sub") {
      next.script = 1;
    } else if (w == "super") {
      next.script = 2;
    } else if (w == "nosupersub") {
      next.script = 0;
    } else if (w == "fs") {
      next.size_pt = has_param && p > 0 ? p / 2.0 : 12;
    } else if (w == "ql") {
      state_.para.align = 0;
    } else if (w == "qc") {
      state_.para.align = 1;
    } else if (w == "qr") {
      state_.para.align = 2;
    } else if (w == "qj") {
      state_.para.align = 3;
    } else if (w == "fi") {
      state_.para.first_indent_pt = p / 20.0;
    } else if (w == "li") {
      state_.para.left_indent_pt = p / 20.0;
    } else if (w == "emdash") {
      PutText("\xE2\x80\x94");
    } else if (w == "endash") {
      PutText("\xE2\x80\x93");
    } else if (w == "bullet") {
      PutText("\xE2\x80\xA2");
    } else if (w == "lquote") {
      PutText("\xE2\x80\x98");
    } else if (w == "rquote") {
      PutText("\xE2\x80\x99");
    } else if (w == "ldblquote") {
      PutText("\xE2\x80\x9C");
    } else if (w == "rdblquote") {
      PutText("\xE2\x80\x9D");
    }
    if (!(next.bold == state_.chr.bold && next.italic == state_.chr.italic &&
          next.underline == state_.chr.underline && next.script == state_.chr.script &&
          next.size_pt == state_.chr.size_pt)) {
      Flush();
      state_.chr = next;
    }
  }

  // After \uN the next uc characters are the fallback for readers without Unicode.
  bool ConsumeSkip() {
    if (pending_skip_ <= 0) return false;
    --pending_skip_;
    return true;
  }

  void PutByte(unsigned char b) {
    if (state_.skip || b == 0) return;  // a NUL is no character of a page
    bytes_ += static_cast<char>(b);
  }

  // A character above U+FFFF comes as two \uN, a high and a low surrogate. Either half without
  // the other stands for no character and shows as U+FFFD; \u0 shows nothing.
  void PutUnicode(std::uint32_t u) {
    if (state_.skip) return;
    Flush();
    const bool high = u >= 0xD800 && u < 0xDC00;
    const bool low = u >= 0xDC00 && u < 0xE000;
    std::string t;
    if (low && high_surrogate_) {
      AppendUtf8(t, 0x10000 + ((high_surrogate_ - 0xD800) << 10) + (u - 0xDC00));
      high_surrogate_ = 0;
      AddText(t);
      return;
    }
    EndSurrogate();
    if (high) {
      high_surrogate_ = u;
      return;
    }
    if (u == 0) return;
    AppendUtf8(t, low ? kReplacement : u);
    AddText(t);
  }

  // A high surrogate still waiting for its low half gets none: it shows as U+FFFD.
  void EndSurrogate() {
    if (!high_surrogate_) return;
    high_surrogate_ = 0;
    std::string t;
    AppendUtf8(t, kReplacement);
    AddText(t);
  }

  void PutText(const std::string& t) {
    if (state_.skip) return;
    Flush();
    AddText(t);
  }

  // Turns the code-page bytes gathered so far into text of the current look.
  void Flush() {
    if (bytes_.empty()) return;
    std::string t = DecodeCodePage(bytes_, charset_);
    bytes_.clear();
    AddText(t);
  }

  void AddText(const std::string& t) {
    if (t.empty()) return;
    EndSurrogate();
    auto& runs = para_.runs;
    if (runs.empty() || !state_.chr.SameLook(runs.back())) {
      RichRun r;
      r.bold = state_.chr.bold;
      r.italic = state_.chr.italic;
      r.underline = state_.chr.underline;
      r.script = state_.chr.script;
      r.size_pt = state_.chr.size_pt;
      runs.push_back(std::move(r));
    }
    runs.back().text += t;
  }

  void Paragraph() {
    if (state_.skip) return;
    Flush();
    EndParagraph(true);
  }

  // A paragraph takes the paragraph properties in effect at its end; the last one of the
  // document counts only when it has text.
  void EndParagraph(bool forced) {
    EndSurrogate();
    if (!forced && para_.runs.empty()) return;
    para_.align = state_.para.align;
    para_.first_indent_pt = state_.para.first_indent_pt;
    para_.left_indent_pt = state_.para.left_indent_pt;
    doc_.paragraphs.push_back(std::move(para_));
    para_ = RichParagraph{};
  }

  RichDocument doc_;
  RichParagraph para_;
  GroupState state_;
  std::vector<GroupState> stack_;
  std::string bytes_;
  std::string charset_ = "GBK";
  bool group_start_ = false;
  int pending_skip_ = 0;
  std::uint32_t high_surrogate_ = 0;
  std::size_t excess_depth_ = 0;  // groups opened beyond kMaxGroupDepth, read as text of their parent
};

}  // namespace

std::optional<RichDocument> ReadRtf(std::string_view rtf, std::string* error) { return Reader().Run(rtf, error); }

std::optional<RichDocument> ReadRtfFile(const std::string& path, std::string* error) {
  if (kestra::text::IsSpecialFile(path)) {
    if (error) *error = "not a file: " + path;
    return std::nullopt;
  }
  std::ifstream in(path, std::ios::binary);
  if (!in) {
    if (error) *error = "cannot open " + path;
    return std::nullopt;
  }
  std::ostringstream ss;
  ss << in.rdbuf();
  if (in.bad()) {
    if (error) *error = "cannot read " + path;
    return std::nullopt;
  }
  return ReadRtf(ss.str(), error);
}

RichDocument ReadRtfPage(const std::string& path) {
  std::string error;
  if (auto doc = ReadRtfFile(path, &error)) return std::move(*doc);
  RichRun run;
  run.text = "说明文件无法打开: " + path + " (" + error + ")";
  RichDocument note;
  note.paragraphs.emplace_back();
  note.paragraphs.back().runs.push_back(std::move(run));
  return note;
}

}  // namespace ui

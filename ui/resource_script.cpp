#include "ui/resource_script.h"

#include <cctype>
#include <cerrno>
#include <climits>
#include <cstdlib>

namespace ui {
namespace {

enum class Tok { End, Ident, Number, String, Punct };

// Ids, coordinates and style bits are 32-bit values; a number beyond that range is no number
// of a resource script.
constexpr long long kLowest = -2147483648LL;
constexpr long long kHighest = 4294967295LL;
// Parentheses and signs nest far less deeply than this in any dialog template.
constexpr int kMaxNesting = 64;

// A C number (decimal, 0x hexadecimal or 0 octal) within the range above.
bool ParseNumber(const std::string& text, long long* out) {
  errno = 0;
  char* end = nullptr;
  const long long v = std::strtoll(text.c_str(), &end, 0);
  if (end == text.c_str() || *end != '\0' || errno == ERANGE || v < kLowest || v > kHighest) return false;
  *out = v;
  return true;
}

struct Token {
  Tok type = Tok::End;
  std::string text;
  long long number = 0;
  int line = 0;
};

class Lexer {
 public:
  Lexer(std::string_view src, const std::string& name) : s_(src), name_(name) {}

  Token Next() {
    SkipBlanks();
    Token t;
    t.line = line_;
    if (i_ >= s_.size()) return t;
    char c = s_[i_];
    if (c == '"') {
      t.type = Tok::String;
      t.text = ReadString();
      return t;
    }
    if (std::isdigit(static_cast<unsigned char>(c))) {
      std::size_t start = i_;
      while (i_ < s_.size() && (std::isalnum(static_cast<unsigned char>(s_[i_])))) ++i_;
      std::string num(s_.substr(start, i_ - start));
      while (!num.empty() && (num.back() == 'L' || num.back() == 'l' || num.back() == 'U' || num.back() == 'u'))
        num.pop_back();
      if (!ParseNumber(num, &t.number)) Fail("bad number '" + num + "'");
      t.type = Tok::Number;
      t.text = num;
      return t;
    }
    if (std::isalpha(static_cast<unsigned char>(c)) || c == '_') {
      std::size_t start = i_;
      while (i_ < s_.size() && (std::isalnum(static_cast<unsigned char>(s_[i_])) || s_[i_] == '_')) ++i_;
      t.type = Tok::Ident;
      t.text = std::string(s_.substr(start, i_ - start));
      return t;
    }
    t.type = Tok::Punct;
    t.text = std::string(1, c);
    ++i_;
    return t;
  }

  // The rest of a preprocessor line (after '#').
  std::string RestOfLine() {
    std::size_t start = i_;
    while (i_ < s_.size() && s_[i_] != '\n') ++i_;
    return std::string(s_.substr(start, i_ - start));
  }

  bool AtLineStartHash() {
    SkipBlanks();
    return i_ < s_.size() && s_[i_] == '#';
  }
  void SkipHash() { ++i_; }

  [[noreturn]] void Fail(const std::string& what) const {
    throw ResourceError(name_ + ":" + std::to_string(line_) + ": " + what);
  }
  int line() const { return line_; }

 private:
  void SkipBlanks() {
    while (i_ < s_.size()) {
      char c = s_[i_];
      if (c == '\n') {
        ++line_;
        ++i_;
      } else if (c == ' ' || c == '\t' || c == '\r' || c == '\f' || c == '\v') {
        ++i_;
      } else if (c == '/' && i_ + 1 < s_.size() && s_[i_ + 1] == '/') {
        while (i_ < s_.size() && s_[i_] != '\n') ++i_;
      } else if (c == '/' && i_ + 1 < s_.size() && s_[i_ + 1] == '*') {
        i_ += 2;
        while (i_ + 1 < s_.size() && !(s_[i_] == '*' && s_[i_ + 1] == '/')) {
          if (s_[i_] == '\n') ++line_;
          ++i_;
        }
        i_ += 2;
      } else if (i_ == 0 && s_.substr(0, 3) == "\xEF\xBB\xBF") {
        i_ += 3;
      } else {
        break;
      }
    }
  }

  std::string ReadString() {
    ++i_;  // opening quote
    std::string out;
    while (true) {
      if (i_ >= s_.size() || s_[i_] == '\n') Fail("unterminated string");
      char c = s_[i_++];
      if (c == '"') {
        if (i_ < s_.size() && s_[i_] == '"') {  // "" stands for one quote
          out += '"';
          ++i_;
          continue;
        }
        break;
      }
      if (c == '\\' && i_ < s_.size()) {
        char e = s_[i_++];
        switch (e) {
          case 'n': out += '\n'; break;
          case 't': out += '\t'; break;
          case 'r': out += '\r'; break;
          case '\\': out += '\\'; break;
          case '"': out += '"'; break;
          default: out += '\\'; out += e; break;
        }
        continue;
      }
      out += c;
    }
    return out;
  }

  std::string_view s_;
  std::string name_;
  std::size_t i_ = 0;
  int line_ = 1;
};

}  // namespace

class ResourceParser {
 public:
  ResourceParser(ResourceSet& set, std::string_view text, const std::string& name)
      : set_(set), lex_(text, name) {}

  void Run() {
    Advance();
    while (cur_.type != Tok::End) {
      if (cur_.type == Tok::Punct && cur_.text == "#") {
        Preprocessor();
        Advance();
        continue;
      }
      TopLevel();
    }
    for (auto& [dlg, items] : set_.pending_items_) {
      auto it = set_.dialogs_.find(dlg);
      if (it == set_.dialogs_.end()) lex_.Fail("DLGINIT for unknown dialog " + std::to_string(dlg));
      for (auto& [ctl, list] : items) it->second.initial_items[ctl] = list;
    }
    set_.pending_items_.clear();
  }

 private:
  void Advance() { cur_ = lex_.Next(); }

  bool IsPunct(const char* p) const { return cur_.type == Tok::Punct && cur_.text == p; }
  bool IsIdent(const char* w) const { return cur_.type == Tok::Ident && cur_.text == w; }

  void Expect(const char* p) {
    if (!IsPunct(p)) lex_.Fail(std::string("expected '") + p + "', found '" + cur_.text + "'");
    Advance();
  }
  void SkipComma() {
    if (IsPunct(",")) Advance();
  }

  void Preprocessor() {
    // cur_ is '#': the rest of the line is the directive.
    std::string line = lex_.RestOfLine();
    std::size_t p = 0;
    auto word = [&]() {
      while (p < line.size() && std::isspace(static_cast<unsigned char>(line[p]))) ++p;
      std::size_t s = p;
      while (p < line.size() && !std::isspace(static_cast<unsigned char>(line[p]))) ++p;
      return line.substr(s, p - s);
    };
    std::string directive = word();
    if (directive == "define") {
      std::string name = word();
      std::string value = word();
      if (name.empty() || value.empty()) lex_.Fail("#define needs a name and a value");
      set_.symbols_[name] = ValueOf(value);
    }
    // #include, #pragma and the rest carry nothing for us.
  }

  long long ValueOf(const std::string& v) {
    std::string s = v;
    bool neg = false;
    if (!s.empty() && s[0] == '-') {
      neg = true;
      s = s.substr(1);
    }
    if (!s.empty() && s.front() == '(' && s.back() == ')') s = s.substr(1, s.size() - 2);
    std::string digits = s;
    if (!digits.empty() && (digits.back() == 'L' || digits.back() == 'l')) digits.pop_back();
    long long n = 0;
    if (!digits.empty() && (std::isdigit(static_cast<unsigned char>(digits[0])) || digits[0] == '+')) {
      if (!ParseNumber(digits, &n)) lex_.Fail("bad number '" + s + "'");
      return neg ? -n : n;
    }
    auto it = set_.symbols_.find(s);
    if (it == set_.symbols_.end()) lex_.Fail("unknown symbol '" + s + "'");
    return neg ? -it->second : it->second;
  }

  long long Symbol(const std::string& name) {
    static const std::map<std::string, long long> builtin = {
        {"IDC_STATIC", -1}, {"IDOK", 1}, {"IDCANCEL", 2}, {"IDABORT", 3}, {"IDRETRY", 4},
        {"IDIGNORE", 5},    {"IDYES", 6}, {"IDNO", 7},     {"IDCLOSE", 8}, {"IDHELP", 9}};
    auto it = set_.symbols_.find(name);
    if (it != set_.symbols_.end()) return it->second;
    auto b = builtin.find(name);
    if (b != builtin.end()) return b->second;
    lex_.Fail("unknown symbol '" + name + "'");
  }

  // An id or coordinate: a number, a symbol, or a simple sum/difference of them; the value
  // and every partial sum must fit an int.
  int IntExpr() {
    long long v = IntTerm();
    while (IsPunct("+") || IsPunct("-")) {
      bool plus = IsPunct("+");
      Advance();
      long long t = IntTerm();
      v = plus ? v + t : v - t;
      InIntRange(v);
    }
    return static_cast<int>(InIntRange(v));
  }
  long long IntTerm() {
    Nesting nest(*this);
    if (IsPunct("-")) {
      Advance();
      return -IntTerm();
    }
    if (IsPunct("(")) {
      Advance();
      long long v = IntExpr();
      Expect(")");
      return v;
    }
    if (cur_.type == Tok::Number) {
      long long v = cur_.number;
      Advance();
      return v;
    }
    if (cur_.type == Tok::Ident) {
      long long v = Symbol(cur_.text);
      Advance();
      return v;
    }
    lex_.Fail("expected a number, found '" + cur_.text + "'");
  }
  long long InIntRange(long long v) {
    if (v < INT_MIN || v > INT_MAX) lex_.Fail("value " + std::to_string(v) + " out of range");
    return v;
  }

  // Counts how deeply expressions nest, so that no input runs the parser out of stack.
  class Nesting {
   public:
    explicit Nesting(ResourceParser& p) : p_(p) {
      if (++p_.nesting_ > kMaxNesting) p_.lex_.Fail("expression nested too deeply");
    }
    ~Nesting() { --p_.nesting_; }
    Nesting(const Nesting&) = delete;
    Nesting& operator=(const Nesting&) = delete;

   private:
    ResourceParser& p_;
  };

  // A style expression: names and numbers joined by '|', each possibly preceded by NOT.
  void StyleExpr(std::set<std::string>& names, std::set<std::string>* not_names, unsigned long& bits) {
    Nesting nest(*this);
    while (true) {
      bool negate = false;
      if (IsIdent("NOT")) {
        negate = true;
        Advance();
      }
      if (cur_.type == Tok::Ident) {
        (negate && not_names ? *not_names : names).insert(cur_.text);
        Advance();
      } else if (cur_.type == Tok::Number) {
        if (!negate) bits |= static_cast<unsigned long>(cur_.number);
        Advance();
      } else if (IsPunct("(")) {
        Advance();
        StyleExpr(names, not_names, bits);
        Expect(")");
      } else {
        lex_.Fail("expected a style, found '" + cur_.text + "'");
      }
      if (!IsPunct("|")) break;
      Advance();
    }
  }

  std::string String() {
    if (cur_.type != Tok::String) lex_.Fail("expected a quoted text, found '" + cur_.text + "'");
    std::string s = cur_.text;
    Advance();
    return s;
  }

  void TopLevel() {
    if (IsIdent("STRINGTABLE")) {
      Advance();
      while (!IsIdent("BEGIN") && !IsPunct("{")) {  // options
        if (cur_.type == Tok::End) lex_.Fail("STRINGTABLE without BEGIN");
        Advance();
      }
      Advance();
      while (!IsIdent("END") && !IsPunct("}")) {
        if (cur_.type == Tok::End) lex_.Fail("STRINGTABLE without END");
        int id = IntExpr();
        SkipComma();
        set_.strings_[id] = String();
      }
      Advance();
      return;
    }
    if (IsIdent("LANGUAGE")) {
      Advance();
      IntOrIdent();
      SkipComma();
      IntOrIdent();
      return;
    }
    // NAME TYPE ...
    if (cur_.type != Tok::Ident && cur_.type != Tok::Number) lex_.Fail("unexpected '" + cur_.text + "'");
    Token name = cur_;
    Advance();
    if (cur_.type != Tok::Ident) lex_.Fail("expected a resource type after '" + name.text + "'");
    std::string type = cur_.text;
    Advance();
    int id = static_cast<int>(InIntRange(name.type == Tok::Number ? name.number : Symbol(name.text)));
    if (type == "DIALOGEX" || type == "DIALOG") {
      Dialog(id, name.type == Tok::Ident ? name.text : std::string());
    } else if (type == "DLGINIT") {
      DlgInit(id);
    } else {
      lex_.Fail("unsupported resource type '" + type + "'");
    }
  }

  void IntOrIdent() {
    if (cur_.type == Tok::Ident || cur_.type == Tok::Number) Advance();
    else lex_.Fail("unexpected '" + cur_.text + "'");
  }

  void Dialog(int id, const std::string& name) {
    if (set_.dialogs_.count(id)) lex_.Fail("dialog " + std::to_string(id) + " defined twice");
    DialogTemplate d;
    d.id = id;
    d.name = name;
    d.x = IntExpr();
    Expect(",");
    d.y = IntExpr();
    Expect(",");
    d.cx = IntExpr();
    Expect(",");
    d.cy = IntExpr();
    if (IsPunct(",")) {  // help id
      Advance();
      IntExpr();
    }
    while (!IsIdent("BEGIN") && !IsPunct("{")) {
      if (cur_.type == Tok::End) lex_.Fail("dialog without BEGIN");
      if (IsIdent("STYLE")) {
        Advance();
        unsigned long bits = 0;
        StyleExpr(d.styles, nullptr, bits);
      } else if (IsIdent("EXSTYLE")) {
        Advance();
        unsigned long bits = 0;
        std::set<std::string> ex;
        StyleExpr(ex, nullptr, bits);
        d.styles.insert(ex.begin(), ex.end());
      } else if (IsIdent("CAPTION")) {
        Advance();
        d.caption = String();
      } else if (IsIdent("FONT")) {
        Advance();
        d.font_points = IntExpr();
        Expect(",");
        d.font_face = String();
        while (IsPunct(",")) {  // weight, italic, charset
          Advance();
          IntExpr();
        }
      } else if (IsIdent("MENU") || IsIdent("CLASS")) {
        Advance();
        Advance();
      } else {
        lex_.Fail("unexpected '" + cur_.text + "' in dialog header");
      }
    }
    Advance();
    while (!IsIdent("END") && !IsPunct("}")) {
      if (cur_.type == Tok::End) lex_.Fail("dialog without END");
      d.controls.push_back(Control());
    }
    Advance();
    set_.dialogs_[id] = std::move(d);
  }

  ControlTemplate Control() {
    static const std::map<std::string, std::pair<const char*, const char*>> text_kinds = {
        {"LTEXT", {"Static", "SS_LEFT"}},
        {"RTEXT", {"Static", "SS_RIGHT"}},
        {"CTEXT", {"Static", "SS_CENTER"}},
        {"ICON", {"Static", "SS_ICON"}},
        {"PUSHBUTTON", {"Button", "BS_PUSHBUTTON"}},
        {"DEFPUSHBUTTON", {"Button", "BS_DEFPUSHBUTTON"}},
        {"GROUPBOX", {"Button", "BS_GROUPBOX"}},
        {"CHECKBOX", {"Button", "BS_CHECKBOX"}},
        {"AUTOCHECKBOX", {"Button", "BS_AUTOCHECKBOX"}},
        {"RADIOBUTTON", {"Button", "BS_RADIOBUTTON"}},
        {"AUTORADIOBUTTON", {"Button", "BS_AUTORADIOBUTTON"}},
    };
    static const std::map<std::string, const char*> id_kinds = {
        {"EDITTEXT", "Edit"}, {"COMBOBOX", "ComboBox"}, {"LISTBOX", "ListBox"}, {"SCROLLBAR", "ScrollBar"}};
    if (cur_.type != Tok::Ident) lex_.Fail("expected a control statement, found '" + cur_.text + "'");
    ControlTemplate c;
    c.kind = cur_.text;
    Advance();
    auto coords = [&]() {
      c.x = IntExpr();
      Expect(",");
      c.y = IntExpr();
      Expect(",");
      c.cx = IntExpr();
      Expect(",");
      c.cy = IntExpr();
    };
    auto optional_styles = [&]() {
      if (IsPunct(",")) {
        Advance();
        StyleExpr(c.styles, &c.not_styles, c.style_bits);
      }
      if (IsPunct(",")) {  // extended styles
        Advance();
        StyleExpr(c.styles, &c.not_styles, c.style_bits);
      }
    };
    if (auto t = text_kinds.find(c.kind); t != text_kinds.end()) {
      c.class_name = t->second.first;
      c.styles.insert(t->second.second);
      c.text = String();
      SkipComma();
      c.id = IntExpr();
      Expect(",");
      coords();
      optional_styles();
    } else if (auto k = id_kinds.find(c.kind); k != id_kinds.end()) {
      c.class_name = k->second;
      c.id = IntExpr();
      Expect(",");
      coords();
      optional_styles();
    } else if (c.kind == "CONTROL") {
      c.text = String();
      Expect(",");
      c.id = IntExpr();
      Expect(",");
      c.class_name = String();
      Expect(",");
      StyleExpr(c.styles, &c.not_styles, c.style_bits);
      Expect(",");
      coords();
      if (IsPunct(",")) {
        Advance();
        StyleExpr(c.styles, &c.not_styles, c.style_bits);
      }
    } else {
      lex_.Fail("unknown control statement '" + c.kind + "'");
    }
    return c;
  }

  void DlgInit(int dialog_id) {
    if (!IsIdent("BEGIN") && !IsPunct("{")) lex_.Fail("expected BEGIN after DLGINIT");
    Advance();
    auto& items = set_.pending_items_[dialog_id];
    while (!IsIdent("END") && !IsPunct("}")) {
      if (cur_.type == Tok::End) lex_.Fail("DLGINIT without END");
      int ctl = IntExpr();
      Expect(",");
      items[ctl].push_back(String());
    }
    Advance();
  }

  ResourceSet& set_;
  Lexer lex_;
  Token cur_;
  int nesting_ = 0;
};

const ControlTemplate* DialogTemplate::Find(int control_id) const {
  for (const auto& c : controls)
    if (c.id == control_id) return &c;
  return nullptr;
}

void ResourceSet::Parse(std::string_view text, const std::string& name) {
  ResourceParser(*this, text, name).Run();
}

const DialogTemplate* ResourceSet::FindDialog(int id) const {
  auto it = dialogs_.find(id);
  return it == dialogs_.end() ? nullptr : &it->second;
}

const std::string* ResourceSet::FindString(int id) const {
  auto it = strings_.find(id);
  return it == strings_.end() ? nullptr : &it->second;
}

int ResourceSet::Symbol(const std::string& name, int fallback) const {
  auto it = symbols_.find(name);
  return it == symbols_.end() ? fallback : static_cast<int>(it->second);
}

namespace {
std::vector<const ResourceSet*>& Stack() {
  static std::vector<const ResourceSet*> stack;
  return stack;
}
}  // namespace

const ResourceSet* CurrentResources() { return Stack().empty() ? nullptr : Stack().back(); }
void PushResources(const ResourceSet* set) { Stack().push_back(set); }
void PopResources() {
  if (!Stack().empty()) Stack().pop_back();
}

}  // namespace ui

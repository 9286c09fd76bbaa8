#include "host/script/script_runner.h"

#include <fstream>
#include <sstream>
#include <stdexcept>

#include "host/core/host_session.h"
#include "ui/actions.h"
#include "ui/headless_host.h"

namespace kestra::script {
namespace {

// A line the runner cannot carry out; the message is the reason shown to the user.
class LineError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

const char* const kActions[] = {"set",  "leave", "select", "click",       "spin", "drop", "tab",
                                "pick", "header", "print", "print-items", "ok",   "cancel"};

bool IsAction(const std::string& w) {
  for (const char* a : kActions)
    if (w == a) return true;
  return false;
}

void Expect(const std::vector<Word>& w, std::size_t least, std::size_t most, const char* usage) {
  if (w.size() < least || w.size() > most) throw LineError(std::string("bad syntax: write ") + usage);
}

int Count(const Word& w, const char* what) {
  int n = 0;
  if (!ParseCount(w, &n)) throw LineError(std::string("bad syntax: ") + what + " must be a number, not " + w.raw);
  return n;
}

bool ShownToDesigner(const ui::Control& c) {
  if (!c.IsWindowVisible()) return false;
  for (const ui::Dialog* d = c.owner(); d; d = d->GetParent())
    if (!d->IsWindowVisible()) return false;
  return true;
}

bool EnabledForDesigner(const ui::Control& c) {
  if (!c.IsWindowEnabled()) return false;
  for (const ui::Dialog* d = c.owner(); d; d = d->GetParent())
    if (!d->IsWindowEnabled()) return false;
  return true;
}

std::string JoinRow(const std::vector<std::string>& cells) {
  std::string s;
  for (std::size_t i = 0; i < cells.size(); ++i) s += (i ? " | " : "") + cells[i];
  return s;
}

std::string Counted(std::size_t n, const char* thing) {
  return std::to_string(n) + " " + thing + (n == 1 ? "" : "s");
}

}  // namespace

ScriptRunner::ScriptRunner(host::HostSession& session, ui::HeadlessHost& ui, std::ostream& transcript, std::ostream& errors)
    : session_(session), ui_(ui), out_(transcript), err_(errors) {
  ui_.SetDriver([this](ui::Dialog& d) { Drive(d); });
  session_.SetOutput([this](const std::string& line) { out_ << ui::TranscriptText(line) << '\n'; });
}

ScriptRunner::~ScriptRunner() {
  ui_.SetDriver(nullptr);
  session_.SetOutput(nullptr);
}

int ScriptRunner::RunFile(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  std::ostringstream text;
  if (!in || !(text << in.rdbuf())) {
    err_ << "[error] cannot read the script " << path << '\n';
    return 2;
  }
  std::string s = text.str();
  return Run(s);
}

int ScriptRunner::Run(std::string_view script) {
  if (script.substr(0, 3) == "\xEF\xBB\xBF") script.remove_prefix(3);  // a byte-order mark
  lines_.clear();
  next_ = 0;
  failed_ = false;
  while (!script.empty()) {
    std::size_t nl = script.find('\n');
    lines_.push_back(script.substr(0, nl));
    if (nl == std::string_view::npos) break;
    script.remove_prefix(nl + 1);
  }
  Statement st;
  while (!failed_ && Next(&st)) RunTopLevel(st);
  return failed_ ? 2 : 0;
}

bool ScriptRunner::Next(Statement* st) {
  while (!failed_ && next_ < lines_.size()) {
    std::string_view line = lines_[next_++];
    if (IsBlankOrComment(line)) continue;
    st->line = static_cast<int>(next_);
    std::string why;
    if (!SplitLine(line, &st->words, &why)) {
      Error(st->line, "bad syntax: " + why);
      return false;
    }
    return true;
  }
  return false;
}

void ScriptRunner::Error(int line, const std::string& reason) {
  err_ << "[error] line " << line << ": " << ui::TranscriptText(reason) << '\n';
  failed_ = true;
}

void ScriptRunner::RunTopLevel(const Statement& st) {
  const Word& first = st.words.front();
  if (!first.quoted && session_.FindCommand(first.text)) {
    if (st.words.size() != 1) return Error(st.line, "bad syntax: a command line holds only the command name");
    try {
      session_.RunCommand(first.text);
    } catch (const std::exception& e) {
      Error(st.line, std::string("the command ") + first.text + " failed: " + e.what());
    }
    return;
  }
  if (IsAction(first.text)) return Error(st.line, "no dialog is open for '" + first.text + "'");
  Error(st.line, "unknown command " + first.raw);
}

void ScriptRunner::Drive(ui::Dialog& dlg) {
  Statement st;
  while (!failed_ && !dlg.IsEnded()) {
    if (!Next(&st)) return;
    ui::Dialog* top = ui_.Top() ? ui_.Top() : &dlg;
    try {
      Act(*top, st);
    } catch (const LineError& e) {
      Error(st.line, e.what());
    } catch (const ui::ActionError& e) {
      Error(st.line, e.what());
    } catch (const std::exception& e) {
      Error(st.line, std::string("the dialog failed: ") + e.what());
    }
  }
}

ui::Control& ScriptRunner::Find(ui::Dialog& dlg, const Word& ctl) {
  ui::Control* c = nullptr;
  if (ctl.quoted) {
    c = ui::FindControlByLabel(dlg, ctl.text);
  } else {
    int id = 0;
    if (!ParseCount(ctl, &id))
      throw LineError("bad syntax: a control is an id or a quoted caption or label, not " + ctl.raw);
    c = ui::FindControl(dlg, id);
  }
  if (!c) throw LineError("no control " + ctl.raw + " in the dialog " + dlg.GetWindowText());
  return *c;
}

void ScriptRunner::Act(ui::Dialog& dlg, const Statement& st) {
  const std::vector<Word>& w = st.words;
  const std::string verb = w[0].quoted ? std::string() : w[0].text;
  if (verb == "ok") {
    Expect(w, 1, 1, "ok");
    ui::act::Ok(dlg);
  } else if (verb == "cancel") {
    Expect(w, 1, 1, "cancel");
    ui::act::Cancel(dlg);
  } else if (verb == "set") {
    Expect(w, 3, 3, "set CTL TEXT");
    ui::act::SetText(Find(dlg, w[1]), w[2].text);
  } else if (verb == "leave") {
    Expect(w, 2, 2, "leave CTL");
    ui::act::Leave(Find(dlg, w[1]));
  } else if (verb == "select") {
    Expect(w, 3, 3, "select CTL N|TEXT");
    ui::Control& c = Find(dlg, w[1]);
    int n = 0;
    if (ParseCount(w[2], &n)) ui::act::Select(c, n);
    else ui::act::Select(c, w[2].text);
  } else if (verb == "click") {
    Expect(w, 2, 2, "click CTL");
    ui::act::Click(Find(dlg, w[1]));
  } else if (verb == "spin") {
    Expect(w, 3, 4, "spin CTL up|down [COUNT]");
    if (w[2].quoted || (w[2].text != "up" && w[2].text != "down"))
      throw LineError("bad syntax: spin goes up or down, not " + w[2].raw);
    int count = w.size() == 4 ? Count(w[3], "the count") : 1;
    ui::act::Spin(Find(dlg, w[1]), w[2].text == "up", count);
  } else if (verb == "drop") {
    Expect(w, 2, 2, "drop CTL");
    ui::act::Drop(Find(dlg, w[1]));
  } else if (verb == "tab") {
    Expect(w, 2, 2, "tab N");
    ui::act::Tab(dlg, Count(w[1], "the page"));
  } else if (verb == "pick") {
    Expect(w, 4, 4, "pick CTL ROW COL");
    ui::Control& c = Find(dlg, w[1]);
    ui::act::PickCell(c, Count(w[2], "the row"), Count(w[3], "the column"));
  } else if (verb == "header") {
    Expect(w, 3, 3, "header CTL COL");
    ui::Control& c = Find(dlg, w[1]);
    ui::act::HeaderClick(c, Count(w[2], "the column"));
  } else if (verb == "print") {
    Expect(w, 2, 2, "print CTL");
    Print(Find(dlg, w[1]), w[1]);
  } else if (verb == "print-items") {
    Expect(w, 2, 2, "print-items CTL");
    PrintItems(Find(dlg, w[1]));
  } else if (!w[0].quoted && session_.FindCommand(w[0].text)) {
    throw LineError("the command " + w[0].text + " cannot run while the dialog " + dlg.GetWindowText() + " is open");
  } else {
    throw LineError("unknown action " + w[0].raw);
  }
}

void ScriptRunner::Print(ui::Control& c, const Word& ctl) {
  using ui::Kind;
  std::string text = c.GetWindowText();
  int sel = c.GetCurSel();
  switch (c.kind()) {
    case Kind::ListBox:
    case Kind::Tab:
      text = sel >= 0 ? c.GetLBText(sel) : std::string();
      break;
    case Kind::ListView:
      text = sel >= 0 ? c.GetItemText(sel, 0) : std::string();
      break;
    case Kind::Table:
      text = c.PickedText();
      break;
    default:
      break;
  }
  out_ << ctl.raw << " = " << ui::TranscriptText(text);
  if (c.kind() == Kind::Combo || c.kind() == Kind::ListBox || c.kind() == Kind::ListView) out_ << " #" << sel;
  if ((c.kind() == Kind::CheckBox || c.kind() == Kind::Radio) && c.GetCheck() != 0) out_ << " [checked]";
  if (const ui::VectorPicture* pic = c.picture()) {
    out_ << " [slide " << ui::TranscriptText(pic->name) << ", " << Counted(pic->lines.size(), "vector");
    if (!pic->fills.empty()) out_ << ", " << Counted(pic->fills.size(), "fill");
    out_ << ']';
  }
  if (!EnabledForDesigner(c)) out_ << " [disabled]";
  if (!ShownToDesigner(c)) out_ << " [hidden]";
  out_ << '\n';
}

void ScriptRunner::PrintItems(ui::Control& c) {
  using ui::Kind;
  switch (c.kind()) {
    case Kind::Combo:
    case Kind::ListBox:
    case Kind::Tab:
      for (const std::string& item : c.items()) out_ << ui::TranscriptText(item) << '\n';
      return;
    case Kind::ListView:
      for (const auto& row : c.rows()) out_ << ui::TranscriptText(JoinRow(row)) << '\n';
      return;
    case Kind::Table:
      if (const ui::TableData* t = c.table())
        for (const auto& row : t->rows) out_ << ui::TranscriptText(JoinRow(row)) << '\n';
      return;
    default:
      throw LineError(std::string("a ") + ui::KindName(c.kind()) + " has no items");
  }
}

}  // namespace kestra::script

#pragma once
// Runs a kestra script: commands typed as at the command line, then a designer's actions on
// the topmost dialog. It drives the headless host: a command opens its dialog modally, the
// host hands the dialog to the runner, which reads lines and acts on the dialog until it
// closes (a sub-dialog opened by a click is driven the same way, one level deeper).
//
// Statements (one per line; blank lines and lines starting with ";" are skipped):
//   COMMAND                        with no dialog open: run a command
//   set CTL TEXT                   text of an edit or editable combo (edit-change notification)
//   leave CTL                      focus leaves the control
//   select CTL N|TEXT              item N (0-based) or the item with that text (selection change)
//   click CTL                      button, check box or radio
//   spin CTL up|down [COUNT]       CTL: the up-down control or its buddy edit
//   drop CTL                       open a combo's list
//   tab N                          activate page N of the sheet or tab strip
//   pick CTL ROW COL               pick a cell of a table display (0-based)
//   header CTL COL                 click a list view's column header (0-based)
//   print CTL                      "CTL = text[ #sel][ [checked]][ [disabled]][ [hidden]]"
//   print-items CTL                the items (rows of a list view or table), one per line
//   ok | cancel
// CTL is a control id, or in double quotes the caption of a button, check box or radio or
// the text of the label just before an edit or combo; visible controls are found first.
// A line that cannot be carried out ends the run: "[error] line N: reason" on the error
// stream, open dialogs are cancelled and the status is 2.
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "host/script/script_line.h"

namespace ui {
class Control;
class Dialog;
class HeadlessHost;
}  // namespace ui

namespace kestra::host {
class HostSession;
}

namespace kestra::script {

class ScriptRunner {
 public:
  // Takes over the host's driver and the session's output for the runner's life.
  ScriptRunner(host::HostSession& session, ui::HeadlessHost& ui, std::ostream& transcript, std::ostream& errors);
  ~ScriptRunner();
  ScriptRunner(const ScriptRunner&) = delete;
  ScriptRunner& operator=(const ScriptRunner&) = delete;

  // Runs script text; returns 0, or 2 after a line that could not be carried out.
  int Run(std::string_view script);
  // Runs a UTF-8 script file; an unreadable file is an error (status 2).
  int RunFile(const std::string& path);

 private:
  struct Statement {
    int line = 0;
    std::vector<Word> words;
  };
  bool Next(Statement* st);
  void Error(int line, const std::string& reason);
  void RunTopLevel(const Statement& st);
  void Drive(ui::Dialog& dlg);
  void Act(ui::Dialog& dlg, const Statement& st);
  ui::Control& Find(ui::Dialog& dlg, const Word& ctl);
  void Print(ui::Control& c, const Word& ctl);
  void PrintItems(ui::Control& c);

  host::HostSession& session_;
  ui::HeadlessHost& ui_;
  std::ostream& out_;
  std::ostream& err_;
  std::vector<std::string_view> lines_;
  std::size_t next_ = 0;
  bool failed_ = false;
};

}  // namespace kestra::script

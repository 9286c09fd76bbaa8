#pragma once
// Small dialogs that exercise the framework the way the calculators do, as commands of a
// host session, and a harness that runs scripts against them.
#include <sstream>
#include <string>
#include <vector>

#include "host/core/host_session.h"
#include "host/script/script_runner.h"
#include "ui/headless_host.h"

namespace kestra::testing {

// What the test dialogs saw: handler calls in order, and the members when they closed.
struct DialogLog {
  std::vector<std::string> events;
  double a = 0, b = 0;
  std::string name;
  int check = 0, radio = -1;
  std::string page1_len, page2_len, form1, form2;
  bool form1_shown = false, form2_shown = false, form1_enabled = false, form2_enabled = false;
};
DialogLog& Log();

// Test commands: TMAIN (dialog 900, opens 901 on "子对话框"), TSHEET (902 with pages 903/904,
// page 904 holding forms 905/906).
class ScriptHarness {
 public:
  ScriptHarness();
  ~ScriptHarness();
  int Run(const std::string& script) { return runner_.Run(script); }
  std::string out() const { return out_.str(); }
  std::string err() const { return err_.str(); }
  ui::HeadlessHost& ui() { return ui_; }

 private:
  std::ostringstream out_, err_;
  ui::HeadlessHost ui_;
  host::HostSession session_;
  script::ScriptRunner runner_;
};

}  // namespace kestra::testing

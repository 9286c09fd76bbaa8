// kestra: the program that loads the OrvelKestra module and runs its calculators, in
// windows or headless from a script.
#include <cstring>
#include <cstdlib>
#include <iostream>
#include <sstream>
#include <string>
#include <vector>

#include "host/core/host_session.h"
#include "host/core/project_command.h"
#include "host/script/script_runner.h"
#include "services/text/data_path.h"
#include "ui/headless_host.h"

#include "batch/batch_command.h"
#include "services/tabledb/catalog.h"
#if defined(KESTRA_HAVE_QT)
#include "host/qt/window_mode.h"
#endif

namespace {

constexpr const char* kVersion = "kestra 0.1.0 (OrvelKestra host)";

void Usage(std::ostream& os) {
  os << "usage: kestra [--module FILE] [COMMAND]           window mode, running COMMAND first\n"
        "       kestra [--module FILE] --script FILE [--report-dir DIR]\n"
        "                                                  headless run of a script (no display needed)\n"
        "       kestra [--module FILE] --list-commands     the registered command groups and commands\n"
        "       kestra catalog ...                         catalogue database tools\n"
        "       kestra project show | set KEY VALUE        the project in the reports' page header\n"
        "       kestra batch voltage-loss|motor-start SCHEDULE.csv [--out RESULTS.csv] [--report SUMMARY.docx]\n"
        "                                                  whole schedules with the data root's catalogues\n"
        "       kestra --version\n"
        "The module is OrvelKestra.so beside kestra unless --module names another.\n";
}

bool LoadModule(kestra::host::HostSession& session, const std::string& path) {
  std::string error;
  if (session.Load(path, &error)) return true;
  std::cerr << "kestra: cannot load the module " << path << ": " << error << '\n';
  return false;
}

int ListCommands(const std::string& module_path) {
  std::ostringstream quiet;
  ui::HeadlessHost ui(quiet);
  kestra::host::HostSession session(ui);
  if (!LoadModule(session, module_path)) return 1;
  const std::string* group = nullptr;
  for (const auto& c : session.Commands()) {
    if (!group || *group != c.group) {
      group = &c.group;
      std::cout << c.group << '\n';
    }
    std::cout << "  " << c.name << ' ' << c.flags << '\n';
  }
  return 0;
}

int RunScript(const std::string& module_path, const std::string& script, const std::string& report_dir) {
  ui::HeadlessHost ui(std::cout);
  if (!report_dir.empty()) ui.SetReportDir(report_dir);
  kestra::host::HostSession session(ui);
  if (!LoadModule(session, module_path)) return 1;
  int status = 0;
  {
    kestra::script::ScriptRunner runner(session, ui, std::cout, std::cerr);
    status = runner.RunFile(script);
  }
  session.Unload();
  std::cout.flush();
  return status;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc >= 2 && std::strcmp(argv[1], "catalog") == 0) {
    return kestra::catalog::RunCatalogCommand(std::vector<std::string>(argv + 2, argv + argc), std::cout, std::cerr);
  }

  if (argc >= 2 && std::strcmp(argv[1], "project") == 0) {
    return kestra::host::RunProjectCommand(std::vector<std::string>(argv + 2, argv + argc),
                                           kestra::text::DataRootOfModule(kestra::host::DefaultModulePath()),
                                           std::cout, std::cerr);
  }

  if (argc >= 2 && std::strcmp(argv[1], "batch") == 0) {
    // The catalogues of the data root this kestra belongs to.
    const std::string root = kestra::text::DataRootOfModule(kestra::host::DefaultModulePath());
    return kestra::batch::RunBatchCommand(std::vector<std::string>(argv + 2, argv + argc), root, std::cout, std::cerr);
  }

  std::string module_path = kestra::host::DefaultModulePath();
  std::string script, report_dir, command;
  bool list = false;
  for (int i = 1; i < argc; ++i) {
    std::string a = argv[i];
    auto value = [&](const char* option) -> std::string {
      if (i + 1 >= argc) {
        std::cerr << "kestra: " << option << " needs a value\n";
        std::exit(1);
      }
      return argv[++i];
    };
    if (a == "--version") {
      std::cout << kVersion << '\n';
      return 0;
    } else if (a == "--help" || a == "-h") {
      Usage(std::cout);
      return 0;
    } else if (a == "--script") {
      script = value("--script");
    } else if (a == "--report-dir") {
      report_dir = value("--report-dir");
    } else if (a == "--module") {
      module_path = value("--module");
    } else if (a == "--list-commands") {
      list = true;
    } else if (!a.empty() && a[0] == '-') {
      std::cerr << "kestra: unknown option " << a << '\n';
      Usage(std::cerr);
      return 1;
    } else if (command.empty()) {
      command = a;
    } else {
      std::cerr << "kestra: only one command can be given\n";
      return 1;
    }
  }

  if (list) return ListCommands(module_path);
  if (!script.empty()) return RunScript(module_path, script, report_dir);
  if (!report_dir.empty()) {
    std::cerr << "kestra: --report-dir goes with --script\n";
    return 1;
  }
#if defined(KESTRA_HAVE_QT)
  return kestra::qt::RunWindowMode(argc, argv, module_path, command);
#else
  std::cerr << "kestra: window mode is not built into this kestra (it needs the Qt window renderer at build time).\n"
               "Run the calculators headless instead: kestra --script FILE [--report-dir DIR]\n";
  return 1;
#endif
}

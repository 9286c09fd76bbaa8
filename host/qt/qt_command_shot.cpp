// Runs a command of the module in windows and saves screenshots on the way, to look at a
// calculator as the designer sees it (pages, chosen options, sub-dialogs):
//   qt_command_shot MODULE.so OUT_PREFIX COMMAND STEP...
// Steps act on the topmost dialog, one after another, each a moment after the last:
//   tab=N  select=ID:N  set=ID:TEXT  click=ID  shot=NAME  ok  cancel
// shot=NAME writes OUT_PREFIX NAME.png: the whole screen on a display (as `import -window
// root` would), the topmost dialog's window elsewhere. A click that opens a dialog leaves the
// next steps to that dialog. Dialogs still open after the last step are closed.
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <iostream>
#include <string>
#include <vector>

#include <QApplication>
#include <QDialog>
#include <QGuiApplication>
#include <QPixmap>
#include <QScreen>
#include <QTimer>

#include "host/core/host_session.h"
#include "host/qt/dialog_view.h"
#include "host/qt/qt_ui_host.h"
#include "ui/actions.h"
#include "ui/dialog.h"

namespace {

ui::Control& Find(ui::Dialog& d, const std::string& id) {
  ui::Control* c = ui::FindControl(d, std::atoi(id.c_str()));
  if (!c) throw ui::ActionError("no control " + id);
  return *c;
}

void Act(kestra::qt::QtUiHost& host, const std::string& step, const std::string& prefix) {
  kestra::qt::DialogView* view = host.TopView();
  if (!view) throw ui::ActionError("no dialog is open");
  const auto eq = step.find('=');
  const std::string verb = step.substr(0, eq);
  const std::string arg = eq == std::string::npos ? std::string() : step.substr(eq + 1);
  const auto colon = arg.find(':');
  const std::string first = arg.substr(0, colon), rest = colon == std::string::npos ? "" : arg.substr(colon + 1);
  // Through the window, so that it ends when the dialog does; its own errors are told here.
  auto on_dialog = [view](const std::function<void(ui::Dialog&)>& action) {
    std::string failure;
    view->ActOnDialog([&](ui::Dialog& d) {
      try {
        action(d);
      } catch (const std::exception& e) {
        failure = e.what();
      }
    });
    if (!failure.empty()) throw ui::ActionError(failure);
  };
  if (verb == "tab") on_dialog([&](ui::Dialog& d) { ui::act::Tab(d, std::atoi(arg.c_str())); });
  else if (verb == "select") on_dialog([&](ui::Dialog& d) { ui::act::Select(Find(d, first), std::atoi(rest.c_str())); });
  else if (verb == "set") on_dialog([&](ui::Dialog& d) { ui::act::SetText(Find(d, first), rest); });
  else if (verb == "click") on_dialog([&](ui::Dialog& d) { ui::act::Click(Find(d, arg)); });
  else if (verb == "ok") on_dialog([](ui::Dialog& d) { ui::act::Ok(d); });
  else if (verb == "cancel") on_dialog([](ui::Dialog& d) { ui::act::Cancel(d); });
  else if (verb == "shot") {
    const QString file = QString::fromStdString(prefix + arg + ".png");
    QPixmap shot = QGuiApplication::platformName() == "xcb" ? QGuiApplication::primaryScreen()->grabWindow(0)
                                                            : view->window()->grab();
    if (!shot.save(file)) throw ui::ActionError("cannot write " + file.toStdString());
  } else {
    throw ui::ActionError("unknown step " + step);
  }
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 4) {
    std::fprintf(stderr, "usage: %s MODULE.so OUT_PREFIX COMMAND STEP...\n", argv[0]);
    return 2;
  }
  QApplication app(argc, argv);
  kestra::qt::QtUiHost host;
  host.SetReportOpener([](const std::string&) { return true; });
  kestra::host::HostSession session(host);
  std::string error;
  if (!session.Load(argv[1], &error)) {
    std::fprintf(stderr, "cannot load %s: %s\n", argv[1], error.c_str());
    return 1;
  }
  const std::string prefix = argv[2];
  std::vector<std::string> steps(argv + 4, argv + argc);
  int status = 0;
  std::function<void(std::size_t)> run = [&](std::size_t i) {
    if (i >= steps.size()) {
      // Whatever is still open is closed, innermost first.
      if (auto* v = host.TopView()) {
        QTimer::singleShot(100, [&run, i] { run(i); });
        v->window()->close();
      }
      return;
    }
    // The next step is due before this one runs: a click that opens a dialog waits in it.
    QTimer::singleShot(300, [&run, i] { run(i + 1); });
    try {
      Act(host, steps[i], prefix);
    } catch (const std::exception& e) {
      std::fprintf(stderr, "step %zu (%s): %s\n", i + 1, steps[i].c_str(), e.what());
      status = 1;
    }
  };
  QTimer::singleShot(300, [&run] { run(0); });
  if (!session.RunCommand(argv[3])) {
    std::fprintf(stderr, "no command %s\n", argv[3]);
    return 1;
  }
  session.Unload();
  return status;
}

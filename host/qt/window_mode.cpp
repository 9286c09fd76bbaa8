#include "host/qt/window_mode.h"

#include <cstdlib>
#include <iostream>

#include <filesystem>

#include <QApplication>
#include <QGuiApplication>
#include <QMessageBox>
#include <QScreen>
#include <QTimer>

#include "host/core/host_session.h"
#include "host/qt/font_map.h"
#include "host/qt/main_window.h"
#include "host/qt/qt_ui_host.h"
#include "services/text/data_path.h"

namespace kestra::qt {

namespace {

// Qt gives up with a crash when it finds no display; say what to do instead.
bool HaveDisplay() {
  for (const char* var : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
    if (const char* v = std::getenv(var); v && *v) return true;
  return false;
}

}  // namespace

int RunWindowMode(int argc, char** argv, const std::string& module_path, const std::string& initial_command) {
  if (!HaveDisplay()) {
    std::cerr << "kestra: no display for the window mode (DISPLAY is not set).\n"
                 "Run the calculators headless instead: kestra --script FILE [--report-dir DIR]\n";
    return 1;
  }
  // Reports name the Chinese fonts of a Chinese Windows (宋体, 黑体); the data root's font
  // configuration maps them to the installed CJK fonts, for these windows and for the word
  // processor the reports are opened with. A configuration the user chose stays in force.
  const std::string fonts_conf = text::DataPath(text::DataRootOfModule(module_path), "fonts\\fonts.conf");
  if (!std::getenv("FONTCONFIG_FILE") && std::filesystem::exists(fonts_conf)) setenv("FONTCONFIG_FILE", fonts_conf.c_str(), 1);
  QApplication app(argc, argv);
  QApplication::setApplicationName(QStringLiteral("OrvelKestra"));
  QApplication::setStyle(QStringLiteral("Fusion"));
  // Menus, the command line and message boxes in the dialogs' own face.
  ui::Font shell;
  shell.face = "MS Shell Dlg";
  shell.height = -12;
  QApplication::setFont(FontFor(shell));

  QtUiHost ui;
  int status = 0;
  {
    kestra::host::HostSession session(ui);
    MainWindow window(session, ui);
    ui.SetMainWindow(&window);
    std::string error;
    if (!session.Load(module_path, &error)) {
      std::string text = "无法加载模块 " + module_path + ": " + error;
      std::cerr << "kestra: cannot load the module " << module_path << ": " << error << '\n';
      ui.MessageBox(text, "", ui::MB_OK | ui::MB_ICONERROR);
      return 1;
    }
    window.RefreshCommands();
    // In the middle of the screen, so that the dialogs centred over it are too.
    if (const QScreen* screen = QGuiApplication::primaryScreen()) {
      QRect frame = window.frameGeometry();
      frame.moveCenter(screen->availableGeometry().center());
      window.move(frame.topLeft());
    }
    window.show();
    if (!initial_command.empty())
      QTimer::singleShot(0, &window, [&window, initial_command] { window.RunTyped(initial_command); });
    status = QApplication::exec();
    ui.SetMainWindow(nullptr);
    session.Unload();
  }
  return status;
}

}  // namespace kestra::qt

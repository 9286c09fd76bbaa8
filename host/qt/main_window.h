#pragma once
// The main window of the window mode, laid out as the CAD programs designers work in: a menu
// and a toolbar with the calculators, a drawing area, and at the bottom the command history
// with the command line ("命令: ").
#include <string>

#include <QMainWindow>

class QLineEdit;
class QPlainTextEdit;
class QAction;

namespace kestra::host {
class HostSession;
}

namespace kestra::qt {

class QtUiHost;

class MainWindow : public QMainWindow {
 public:
  MainWindow(kestra::host::HostSession& session, QtUiHost& ui);
  ~MainWindow() override;

  // Runs a command as typed at the command line: echoed into the history, then run;
  // an unknown one gets a line saying so. An empty line repeats the last command.
  void RunTyped(const std::string& typed);
  // One line into the history (the module's output, notes of the host).
  void PrintLine(const std::string& line);
  // Enables the calculators the loaded module registered.
  void RefreshCommands();

  QLineEdit* command_line() const { return command_line_; }
  QPlainTextEdit* history() const { return history_; }
  QAction* project_action() const { return project_action_; }

 private:
  kestra::host::HostSession& session_;
  QtUiHost& ui_;
  QLineEdit* command_line_ = nullptr;
  QPlainTextEdit* history_ = nullptr;
  std::vector<std::pair<QAction*, std::string>> calculator_actions_;
  QAction* project_action_ = nullptr;
  std::string last_command_;
  bool running_ = false;
};

}  // namespace kestra::qt

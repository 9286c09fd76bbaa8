#include "host/qt/main_window.h"

#include <QAction>
#include <QDockWidget>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QStatusBar>
#include <QToolBar>
#include <QVBoxLayout>

#include "host/core/host_session.h"
#include "host/qt/project_dialog.h"
#include "host/qt/qt_ui_host.h"

namespace kestra::qt {

namespace {

struct Calculator {
  const char* command;
  const char* title;
};
constexpr Calculator kCalculators[] = {
    {"WGGL", "无功功率补偿"},
    {"DYSSCAL", "电压损失计算"},
    {"DJQDCAL", "电机启动计算"},
    {"OrvelDieselContentCal", "柴油发电机组容量计算"},
};

std::string Trimmed(const std::string& s) {
  std::size_t b = s.find_first_not_of(" \t\r\n");
  if (b == std::string::npos) return {};
  std::size_t e = s.find_last_not_of(" \t\r\n");
  return s.substr(b, e - b + 1);
}

}  // namespace

MainWindow::MainWindow(kestra::host::HostSession& session, QtUiHost& ui) : session_(session), ui_(ui) {
  setWindowTitle(QString::fromStdString(ui.AppTitle()));
  resize(1000, 680);

  QMenu* menu = menuBar()->addMenu(QStringLiteral("计算"));
  QToolBar* tools = addToolBar(QStringLiteral("计算"));
  tools->setObjectName(QStringLiteral("calculators"));
  tools->setToolButtonStyle(Qt::ToolButtonTextOnly);
  tools->setMovable(false);
  for (const Calculator& c : kCalculators) {
    QString title = QString::fromUtf8(c.title);
    auto* action = new QAction(title, this);
    action->setToolTip(QStringLiteral("%1 (%2)").arg(title, QString::fromUtf8(c.command)));
    action->setStatusTip(QStringLiteral("%1: %2").arg(QString::fromUtf8(c.command), title));
    std::string command = c.command;
    connect(action, &QAction::triggered, this, [this, command] { RunTyped(command); });
    menu->addAction(action);
    tools->addAction(action);
    calculator_actions_.emplace_back(action, command);
  }
  menu->addSeparator();
  // The title block of the reports, set once per project.
  project_action_ = menu->addAction(QStringLiteral("工程信息..."));
  project_action_->setStatusTip(QStringLiteral("计算书页眉中的工程名称、设计阶段、设计、校对和日期"));
  connect(project_action_, &QAction::triggered, this, [this] {
    if (EditProject(this, ui_, session_.ProjectFile())) PrintLine("工程信息已保存: " + session_.ProjectFile());
  });
  menu->addSeparator();
  QAction* quit = menu->addAction(QStringLiteral("退出"));
  connect(quit, &QAction::triggered, this, &QMainWindow::close);

  // The drawing area: the calculators draw nothing in it, but it is where a designer works.
  auto* drawing = new QWidget(this);
  drawing->setObjectName(QStringLiteral("drawing"));
  drawing->setAutoFillBackground(true);
  QPalette pal = drawing->palette();
  pal.setColor(QPalette::Window, QColor(33, 40, 48));
  drawing->setPalette(pal);
  setCentralWidget(drawing);

  auto* dock = new QDockWidget(QStringLiteral("命令行"), this);
  dock->setObjectName(QStringLiteral("command_dock"));
  dock->setFeatures(QDockWidget::NoDockWidgetFeatures);
  auto* panel = new QWidget(dock);
  auto* column = new QVBoxLayout(panel);
  column->setContentsMargins(4, 2, 4, 4);
  column->setSpacing(2);
  history_ = new QPlainTextEdit(panel);
  history_->setReadOnly(true);
  history_->setMaximumBlockCount(2000);
  history_->setFixedHeight(history_->fontMetrics().height() * 7 + 8);
  column->addWidget(history_);
  auto* row = new QHBoxLayout;
  row->setSpacing(0);
  row->addWidget(new QLabel(QStringLiteral("命令: "), panel));
  command_line_ = new QLineEdit(panel);
  command_line_->setObjectName(QStringLiteral("command_line"));
  row->addWidget(command_line_, 1);
  column->addLayout(row);
  dock->setWidget(panel);
  addDockWidget(Qt::BottomDockWidgetArea, dock);
  connect(command_line_, &QLineEdit::returnPressed, this, [this] {
    std::string typed = command_line_->text().toStdString();
    command_line_->clear();
    RunTyped(typed);
  });

  statusBar()->showMessage(QStringLiteral("就绪"));
  ui_.SetStatusSink([this](const std::string& line) {
    statusBar()->showMessage(QString::fromStdString(line));
    PrintLine(line);
  });
  session_.SetOutput([this](const std::string& line) { PrintLine(line); });
  session_.SetMainWindow(this);
  RefreshCommands();
  command_line_->setFocus();
}

MainWindow::~MainWindow() {
  // The session and the renderer outlive the window: they must not call into it any more.
  session_.SetOutput(nullptr);
  session_.SetMainWindow(nullptr);
  ui_.SetStatusSink(nullptr);
}

void MainWindow::RefreshCommands() {
  for (auto& [action, command] : calculator_actions_) action->setEnabled(session_.FindCommand(command) != nullptr);
  project_action_->setEnabled(!session_.ProjectFile().empty());
}

void MainWindow::PrintLine(const std::string& line) {
  history_->appendPlainText(QString::fromStdString(line));
  history_->verticalScrollBar()->setValue(history_->verticalScrollBar()->maximum());
}

void MainWindow::RunTyped(const std::string& typed) {
  if (running_) return;
  std::string command = Trimmed(typed);
  // An empty line repeats the last command, as at the CAD command line.
  if (command.empty()) command = last_command_;
  PrintLine("命令: " + command);
  if (command.empty()) return;
  running_ = true;
  bool known = session_.RunCommand(command);
  running_ = false;
  if (!known) {
    PrintLine("未知命令 \"" + command + "\"。");
    return;
  }
  last_command_ = command;
  command_line_->setFocus();
}

}  // namespace kestra::qt

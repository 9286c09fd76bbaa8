// The main window over a real host session: the command line, its history, the
// calculators' menu, and the module's own lines.
#include <gtest/gtest.h>

#include <filesystem>

#include <QAction>
#include <QDialog>
#include <QLineEdit>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QTest>
#include <QTimer>

#include "host/core/host_session.h"
#include "host/qt/main_window.h"
#include "qt_test_support.h"

namespace kestra::qt::testing {
namespace {

std::string ModulePath() { return std::string(KESTRA_ROOT_DIR) + "/bin/OrvelKestra.so"; }

std::string History(MainWindow& w) { return w.history()->toPlainText().toStdString(); }

QAction* MenuAction(MainWindow& w, const char* text) {
  for (QAction* a : w.menuBar()->actions().front()->menu()->actions())
    if (a->text() == QString::fromUtf8(text)) return a;
  return nullptr;
}

TEST(QtMainWindow, CommandsTypedOrPickedOpenTheirCalculators) {
  EnsureApp();
  QtUiHost ui;
  kestra::host::HostSession session(ui);
  MainWindow window(session, ui);
  ui.SetMainWindow(&window);
  QTest::keyClicks(window.command_line(), "XYZ");
  QTest::keyClick(window.command_line(), Qt::Key_Return);
  EXPECT_EQ(History(window), "命令: XYZ\n未知命令 \"XYZ\"。");
  EXPECT_TRUE(window.command_line()->text().isEmpty());
  // Without a module nothing can be run: the calculators are greyed.
  ASSERT_NE(MenuAction(window, "无功功率补偿"), nullptr);
  EXPECT_FALSE(MenuAction(window, "无功功率补偿")->isEnabled());
  // The session's lines go to the history.
  session.PrintLine("模块已加载");
  EXPECT_NE(History(window).find("模块已加载"), std::string::npos);

  if (!std::filesystem::exists(ModulePath())) GTEST_SKIP() << "no staged module at " << ModulePath();
  std::string error;
  ASSERT_TRUE(session.Load(ModulePath(), &error)) << error;
  window.RefreshCommands();
  window.history()->clear();
  std::vector<std::string> captions;
  auto close_next_dialog = [&] {
    QTimer::singleShot(0, [&] {
      if (DialogView* v = ui.TopView()) {
        captions.push_back(v->window()->windowTitle().toStdString());
        v->window()->close();
      }
    });
  };
  close_next_dialog();
  window.RunTyped("  wggl ");
  ASSERT_EQ(captions.size(), 1u);
  EXPECT_EQ(captions[0], "无功功率补偿");
  EXPECT_EQ(History(window).find("未知命令"), std::string::npos);

  // An empty line repeats the last command.
  close_next_dialog();
  window.RunTyped("");
  ASSERT_EQ(captions.size(), 2u);
  EXPECT_EQ(captions[1], "无功功率补偿");

  // "sample" does nothing and prints nothing.
  window.RunTyped("sample");
  EXPECT_EQ(captions.size(), 2u);
  EXPECT_EQ(History(window).find("未知命令"), std::string::npos);

  QAction* diesel = MenuAction(window, "柴油发电机组容量计算");
  ASSERT_NE(diesel, nullptr);
  if (!diesel->isEnabled()) GTEST_SKIP() << "the staged module has no diesel calculator yet";
  close_next_dialog();
  diesel->trigger();
  ASSERT_EQ(captions.size(), 3u);
  EXPECT_EQ(captions[2], "柴油发电机组容量计算");
  session.Unload();
}

}  // namespace
}  // namespace kestra::qt::testing

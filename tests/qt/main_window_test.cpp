// The main window over a real host session: the command line, its history, the
// calculators' menu, and the module's own lines.
#include <gtest/gtest.h>


#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include "host/core/host_session.h"
#include "host/qt/main_window.h"
#include "host/qt/project_dialog.h"
#include "services/report/project_info.h"
#include "qt_test_support.h"
#include "tests/support/temp_folder.h"

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

  QAction* diesel = MenuAction(window, "柴油发电机组容量计算");
  ASSERT_NE(diesel, nullptr);
  close_next_dialog();
  diesel->trigger();
  ASSERT_EQ(captions.size(), 3u);
  EXPECT_EQ(captions[2], "柴油发电机组容量计算");
  session.Unload();
}

// The title block dialog: what the designer types there is what the project file then holds;
// a field left as it was is not written.
TEST(QtMainWindow, ProjectDialogKeepsTheTitleBlock) {
  EnsureApp();
  QtUiHost ui;
  const kestra::testing::TempFolder dir;
  const std::string file = dir / "工程信息.idp";
  ASSERT_TRUE(kestra::report::SetProjectValue(file, "checker", "李工", nullptr));
  for (bool ok : {false, true}) {
    QTimer::singleShot(0, [ok] {
      for (QWidget* w : QApplication::topLevelWidgets()) {
        if (w->objectName() != QStringLiteral("kestra_project_dialog") || !w->isVisible()) continue;
        EXPECT_EQ(w->findChild<QLineEdit*>(QStringLiteral("checker"))->text().toStdString(), "李工");
        w->findChild<QLineEdit*>(QStringLiteral("project"))->setText(QStringLiteral(" 滨江花园二期 "));
        w->findChild<QLineEdit*>(QStringLiteral("stage"))->setText(QStringLiteral("施工图"));
        for (QPushButton* b : w->findChildren<QPushButton*>())
          if (b->text() == QString::fromUtf8(ok ? "确定" : "取消")) b->click();
      }
    });
    EXPECT_EQ(EditProject(nullptr, ui, file), ok);
    EXPECT_EQ(kestra::report::ReadProjectInfo(file),
              (kestra::report::ProjectInfo{{ok ? "滨江花园二期" : "", ok ? "施工图" : "", "", "李工", ""}}));
  }
}

}  // namespace
}  // namespace kestra::qt::testing

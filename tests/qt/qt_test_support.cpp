#include "qt_test_support.h"

#include <cstdlib>
#include <fstream>
#include <sstream>

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>

#include "ui/ui_host.h"

namespace kestra::qt::testing {

namespace {

QApplication* g_app = nullptr;

// The application goes when the tests are done, while Qt's own statics still stand.
class AppEnvironment : public ::testing::Environment {
 public:
  void TearDown() override {
    delete g_app;
    g_app = nullptr;
  }
};

[[maybe_unused]] ::testing::Environment* const kAppEnvironment =
    ::testing::AddGlobalTestEnvironment(new AppEnvironment);

}  // namespace

void EnsureApp() {
  if (QApplication::instance()) return;
  // No display in the test environment: draw offscreen unless told otherwise.
  setenv("QT_QPA_PLATFORM", "offscreen", 0);
  static int argc = 1;
  static char name[] = "test_qt";
  static char* argv[] = {name, nullptr};
  g_app = new QApplication(argc, argv);
}

QtScope::QtScope() {
  EnsureApp();
  std::ifstream in(std::string(KESTRA_SOURCE_DIR) + "/tests/qt/data/test_dialogs.rc", std::ios::binary);
  std::stringstream text;
  text << in.rdbuf();
  res_.Parse(text.str(), "test_dialogs.rc");
  ui::PushResources(&res_);
  ui::SetCurrentHost(&host_);
}

QtScope::~QtScope() {
  ui::SetCurrentHost(nullptr);
  ui::PopResources();
}

int RunWith(QtUiHost& host, ui::Dialog& dlg, const std::function<void(DialogView&)>& body) {
  QTimer::singleShot(0, [&host, &dlg, body] {
    DialogView* v = host.TopView();
    if (!v || &v->dialog() != &dlg) return;
    body(*v);
    if (!dlg.IsEnded() && host.TopView() == v) v->window()->close();
  });
  return host.RunModal(dlg);
}

void AnswerNextMessageBox(const std::string& button_text, SeenBox* seen) {
  QTimer::singleShot(0, [=] {
    for (QWidget* w : QApplication::topLevelWidgets()) {
      auto* box = qobject_cast<QMessageBox*>(w);
      if (!box || !box->isVisible()) continue;
      if (seen) {
        *seen = SeenBox{box->text().toStdString(), box->windowTitle().toStdString(),
                        box->defaultButton() ? box->defaultButton()->text().toStdString() : "", box->icon()};
      }
      if (button_text == "<default>" && box->defaultButton()) return box->defaultButton()->click();
      for (QAbstractButton* b : box->buttons())
        if (b->text().toStdString() == button_text) return b->click();
      box->close();
      return;
    }
  });
}

}  // namespace kestra::qt::testing

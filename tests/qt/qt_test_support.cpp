#include "qt_test_support.h"

#include <cstdlib>

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QMessageBox>
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

QtScope::QtScope(const std::string& rc_text) {
  EnsureApp();
  res_.Parse(rc_text, "test.rc");
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

void AnswerNextMessageBox(const std::string& button_text, std::string* seen_text, std::string* seen_title) {
  QTimer::singleShot(0, [=] {
    for (QWidget* w : QApplication::topLevelWidgets()) {
      auto* box = qobject_cast<QMessageBox*>(w);
      if (!box || !box->isVisible()) continue;
      if (seen_text) *seen_text = box->text().toStdString();
      if (seen_title) *seen_title = box->windowTitle().toStdString();
      for (QAbstractButton* b : box->buttons())
        if (b->text().toStdString() == button_text) {
          b->click();
          return;
        }
      box->close();
      return;
    }
  });
}

}  // namespace kestra::qt::testing

#include "qt_test_support.h"

#include <cstdlib>
#include <fstream>
#include <sstream>

#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QTimer>

#include "host/qt/message_box.h"
#include "tests/support/temp_folder.h"
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
  res_.Parse(kestra::testing::ReadFile(std::string(KESTRA_SOURCE_DIR) + "/tests/qt/data/test_dialogs.rc"),
             "test_dialogs.rc");
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
      auto* box = dynamic_cast<MessageBoxWindow*>(w);
      if (!box || !box->isVisible()) continue;
      if (seen) {
        QRect row;
        for (QPushButton* b : box->buttons()) row |= QRect(b->mapTo(box, QPoint(0, 0)), b->size());
        *seen = SeenBox{box->text_label()->text().toStdString(), box->windowTitle().toStdString(),
                        box->default_button() ? box->default_button()->text().toStdString() : "",
                        box->icon(),
                        box->icon_label() != nullptr,
                        std::abs(row.center().x() - box->width() / 2) <= 1,
                        box->text_label()->width()};
      }
      if (button_text == "<default>" && box->default_button()) return box->default_button()->click();
      for (QPushButton* b : box->buttons())
        if (b->text().toStdString() == button_text) return b->click();
      box->close();
      return;
    }
  });
}

}  // namespace kestra::qt::testing

// The renderer against the dialog model: every control shown where and as the model
// says, model changes followed, the designer's input reaching the model and its handlers,
// the dialog ending by a click, the close box or Escape, nested modal dialogs.
#include <gtest/gtest.h>

#include <vector>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QFocusEvent>
#include <QGroupBox>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QTimer>
#include <QToolButton>

#include "qt_test_support.h"
#include "ui/actions.h"
#include "ui/dialog.h"
#include "ui/focus.h"

namespace kestra::qt::testing {
namespace {

class TestDlg : public ui::Dialog {
 public:
  TestDlg() : Dialog(IDD_TEST), form(IDD_FORM) {
    On(IDC_COS1, ui::Notify::EditChange, [this] { edits.push_back(GetDlgItemText(IDC_COS1)); });
    On(IDC_COS1, ui::Notify::KillFocus, [this] { ++leaves; });
    OnArg(IDC_SPIN, ui::Notify::DeltaPos, [this](int d) { deltas.push_back(d); });
    On(IDC_RADIO2, ui::Notify::Clicked, [this] { ++radio2_clicks; });
    On(IDC_CHECK, ui::Notify::Clicked, [this] { GetDlgItem(IDC_RESULT)->EnableWindow(IsDlgButtonChecked(IDC_CHECK)); });
    OnArg(IDC_COMBO, ui::Notify::SelChange, [this](int i) { selections.push_back(i); });
    On(IDC_COMBO, ui::Notify::DropDown, [this] {
      // Lists filled when they open, as the catalogue combos are.
      if (GetDlgItem(IDC_COMBO)->GetCount() == 2) GetDlgItem(IDC_COMBO)->AddString("钢");
    });
    On(IDC_CALC, ui::Notify::Clicked, [this] { GetDlgItem(IDC_RESULT)->SetWindowText("412.5"); });
    On(IDC_REPORT, ui::Notify::Clicked, [this] { EndDialog(42); });
    // A sub-dialog from a button (its result and text shown after it) and from a radio.
    On(IDC_SUBDLG, ui::Notify::Clicked, [this] {
      ui::Dialog sub(IDD_SUB);
      sub_result = sub.DoModal();
      SetDlgItemText(IDC_RESULT, sub_text);
    });
    On(IDC_RADIO1, ui::Notify::Clicked, [] { ui::Dialog(IDD_SUB).DoModal(); });
  }
  bool OnInitDialog() override {
    Dialog::OnInitDialog();
    SetDlgItemText(IDC_COS1, "0.5");
    CheckRadioButton(IDC_RADIO1, IDC_RADIO2, IDC_RADIO1);
    form.Create(this);
    form.MoveWindow(GetDlgItem(IDC_FRAME)->GetWindowRect());
    form.ShowWindow(false);
    return true;
  }
  ui::Dialog form;
  std::vector<std::string> edits;
  std::vector<int> deltas, selections;
  int leaves = 0, radio2_clicks = 0, sub_result = 0;
  std::string sub_text;
};

QRect RectOf(const ui::Rect& r) { return QRect(r.left, r.top, r.Width(), r.Height()); }

TEST(QtRenderer, EveryControlHasAWidgetWhereAndAsTheModelSays) {
  QtScope scope;
  TestDlg dlg;
  int checked = 0;
  RunWith(scope.host(), dlg, [&](DialogView& v) {
    EXPECT_EQ(v.window()->windowTitle().toStdString(), "无功功率补偿测试");
    const ui::Rect& r = dlg.GetWindowRect();
    EXPECT_EQ(v.window()->size(), QSize(r.Width(), r.Height()));
    for (const auto& c : dlg.controls()) {
      QWidget* w = v.WidgetOf(*c);
      ASSERT_NE(w, nullptr) << "control " << c->id();
      QRect want = RectOf(c->GetWindowRect());
      if (c->kind() == ui::Kind::Combo) {
        // One line high: the template height holds the dropped list.
        EXPECT_EQ(w->geometry().topLeft(), want.topLeft());
        EXPECT_EQ(w->width(), want.width());
        EXPECT_LT(w->height(), want.height());
      } else {
        EXPECT_EQ(w->geometry(), want) << "control " << c->id();
      }
      EXPECT_EQ(w->isVisibleTo(v.window()), c->IsWindowVisible()) << "control " << c->id();
      EXPECT_EQ(w->isEnabled(), c->IsWindowEnabled()) << "control " << c->id();
      ++checked;
    }
    // Each kind as its widget: texts, checks, read-only, default button, list or editable list.
    auto* combo = WidgetAs<QComboBox>(v, dlg.GetDlgItem(IDC_COMBO));
    ASSERT_TRUE(combo && WidgetAs<QLabel>(v, dlg.controls()[1].get()) && WidgetAs<QGroupBox>(v, dlg.controls()[0].get()));
    EXPECT_EQ((std::vector<QString>{WidgetAs<QLabel>(v, dlg.controls()[1].get())->text(),
                                    WidgetAs<QGroupBox>(v, dlg.controls()[0].get())->title(),
                                    WidgetAs<QLineEdit>(v, dlg.GetDlgItem(IDC_COS1))->text(),
                                    WidgetAs<QPushButton>(v, dlg.GetDlgItem(IDC_REPORT))->text(), combo->itemText(1)}),
              (std::vector<QString>{"自然平均功率因数:", "参数输入", "0.5", "  输出\n计算文件", "铝"}));
    EXPECT_EQ((std::vector<bool>{WidgetAs<QRadioButton>(v, dlg.GetDlgItem(IDC_RADIO1))->isChecked(),
                                 WidgetAs<QRadioButton>(v, dlg.GetDlgItem(IDC_RADIO2))->isChecked(),
                                 WidgetAs<QLineEdit>(v, dlg.GetDlgItem(IDC_RESULT))->isReadOnly(),
                                 WidgetAs<QPushButton>(v, dlg.GetDlgItem(ui::IDOK))->isDefault(), combo->isEditable(),
                                 WidgetAs<QComboBox>(v, dlg.GetDlgItem(IDC_EDITCOMBO))->isEditable()}),
              (std::vector<bool>{true, false, true, true, false, true}));
    EXPECT_EQ(combo->count(), 2);
    // The child form lies at its rectangle inside the dialog, hidden as the model says.
    QWidget* pane = v.WidgetOf(dlg.form);
    ASSERT_NE(pane, nullptr);
    EXPECT_EQ(pane->parentWidget(), v.window());
    EXPECT_EQ(pane->geometry(), RectOf(dlg.form.GetWindowRect()));
    EXPECT_FALSE(pane->isVisibleTo(v.window()));
    ASSERT_NE(v.WidgetOf(*dlg.form.GetDlgItem(IDC_FORM_EDIT)), nullptr);
    EXPECT_EQ(v.WidgetOf(*dlg.form.GetDlgItem(IDC_FORM_EDIT))->parentWidget(), pane);

    // The window grabs to a picture with something drawn: the label's text is dark on the light face.
    QImage img = v.window()->grab().toImage();
    const ui::Rect& label = dlg.controls()[1]->GetWindowRect();
    int dark = 0;
    for (int y = label.top; y < label.bottom; ++y)
      for (int x = label.left; x < label.right; ++x) dark += qGray(img.pixel(x, y)) < 100;
    EXPECT_GT(dark, 50);
  });
  EXPECT_EQ(checked, static_cast<int>(dlg.controls().size()));
}

TEST(QtRenderer, ModelChangesShowInTheWidgets) {
  QtScope scope;
  TestDlg dlg;
  RunWith(scope.host(), dlg, [&](DialogView& v) {
    auto* result = WidgetAs<QLineEdit>(v, dlg.GetDlgItem(IDC_RESULT));
    dlg.GetDlgItem(IDC_RESULT)->SetWindowText("412.5");
    EXPECT_EQ(result->text().toStdString(), "412.5");
    dlg.GetDlgItem(IDC_CALC)->EnableWindow(false);
    EXPECT_FALSE(v.WidgetOf(*dlg.GetDlgItem(IDC_CALC))->isEnabled());
    dlg.GetDlgItem(IDC_HIDDEN)->ShowWindow(true);
    EXPECT_TRUE(v.WidgetOf(*dlg.GetDlgItem(IDC_HIDDEN))->isVisible());

    auto* combo = WidgetAs<QComboBox>(v, dlg.GetDlgItem(IDC_COMBO));
    dlg.GetDlgItem(IDC_COMBO)->AddString("钢");
    dlg.GetDlgItem(IDC_COMBO)->SetCurSel(2);
    EXPECT_EQ(combo->count(), 3);
    EXPECT_EQ(combo->currentText().toStdString(), "钢");
    dlg.GetDlgItem(IDC_COMBO)->ResetContent();
    EXPECT_EQ(combo->count(), 0);
    EXPECT_EQ(combo->currentIndex(), -1);

    dlg.SetWindowText("新标题");
    EXPECT_EQ(v.window()->windowTitle().toStdString(), "新标题");

    QWidget* pane = v.WidgetOf(dlg.form);
    dlg.form.ShowWindow(true);
    EXPECT_TRUE(pane->isVisible());
    dlg.form.EnableWindow(false);
    EXPECT_FALSE(pane->isEnabled());
    dlg.form.SetBackground(0xFFFFFF);
    EXPECT_TRUE(pane->autoFillBackground());
    EXPECT_EQ(pane->palette().color(QPalette::Window), QColor(255, 255, 255));
    dlg.form.MoveWindow(ui::Rect{10, 20, 110, 70});
    EXPECT_EQ(pane->geometry(), QRect(10, 20, 100, 50));

    // Controls made and destroyed at run time.
    ui::Control& extra = dlg.CreateControl(ui::Kind::Static, 1500, "运行时标签", ui::Rect{5, 5, 100, 25});
    QWidget* label = v.WidgetOf(extra);
    ASSERT_NE(label, nullptr);
    EXPECT_EQ(qobject_cast<QLabel*>(label)->text().toStdString(), "运行时标签");
    EXPECT_TRUE(label->isVisible());
    dlg.DestroyControl(&extra);
    EXPECT_FALSE(label->isVisible());

    // A form created again elsewhere is shown afresh.
    dlg.form.Create(&dlg);
    QWidget* again = v.WidgetOf(dlg.form);
    ASSERT_NE(again, nullptr);
    EXPECT_NE(v.WidgetOf(*dlg.form.GetDlgItem(IDC_FORM_EDIT)), nullptr);
  });
}

TEST(QtRenderer, TheDesignersInputReachesTheModelAndItsHandlers) {
  QtScope scope;
  TestDlg dlg;
  RunWith(scope.host(), dlg, [&](DialogView& v) {
    auto* cos1 = WidgetAs<QLineEdit>(v, dlg.GetDlgItem(IDC_COS1));
    cos1->clear();
    dlg.GetDlgItem(IDC_COS1)->SetWindowText("");
    QTest::keyClicks(cos1, "0.75");
    EXPECT_EQ(dlg.GetDlgItemText(IDC_COS1), "0.75");
    EXPECT_EQ(dlg.edits, (std::vector<std::string>{"0", "0.", "0.7", "0.75"}));
    // The real-number filter refuses letters and a second point: nothing reaches the model.
    QTest::keyClicks(cos1, "a.");
    EXPECT_EQ(cos1->text().toStdString(), "0.75");
    EXPECT_EQ(dlg.GetDlgItemText(IDC_COS1), "0.75");
    EXPECT_EQ(dlg.edits.size(), 4u);
    auto* count = WidgetAs<QLineEdit>(v, dlg.GetDlgItem(IDC_COUNT));
    QTest::keyClicks(count, "1-2");
    EXPECT_EQ(dlg.GetDlgItemText(IDC_COUNT), "12");

    // Focus moving on inside the dialog is focus loss; a message box taking it is not.
    QFocusEvent tab_out(QEvent::FocusOut, Qt::TabFocusReason);
    QApplication::sendEvent(cos1, &tab_out);
    EXPECT_EQ(dlg.leaves, 1);
    QFocusEvent window_out(QEvent::FocusOut, Qt::ActiveWindowFocusReason);
    QApplication::sendEvent(cos1, &window_out);
    EXPECT_EQ(dlg.leaves, 1);

    // The spin proposes -1 for the up arrow with the default range, as the model says.
    QWidget* spin = v.WidgetOf(*dlg.GetDlgItem(IDC_SPIN));
    QTest::mouseClick(spin->findChild<QToolButton*>(QStringLiteral("up")), Qt::LeftButton);
    QTest::mouseClick(spin->findChild<QToolButton*>(QStringLiteral("down")), Qt::LeftButton);
    EXPECT_EQ(dlg.deltas, (std::vector<int>{-1, 1}));
    // UDS_ARROWKEYS: the arrow keys in the buddy step too.
    QTest::keyClick(cos1, Qt::Key_Up);
    EXPECT_EQ(dlg.deltas, (std::vector<int>{-1, 1, -1}));
    QTest::keyClick(count, Qt::Key_Up);  // no up-down there: nothing steps
    EXPECT_EQ(dlg.deltas.size(), 3u);

    // An auto radio checks itself and clears its group; a click on it again still notifies.
    auto* radio2 = WidgetAs<QRadioButton>(v, dlg.GetDlgItem(IDC_RADIO2));
    QTest::mouseClick(radio2, Qt::LeftButton);
    QTest::mouseClick(radio2, Qt::LeftButton);
    EXPECT_EQ(dlg.radio2_clicks, 2);
    EXPECT_EQ(dlg.GetCheckedRadioButton(IDC_RADIO1, IDC_RADIO2), IDC_RADIO2);
    EXPECT_TRUE(radio2->isChecked());
    EXPECT_FALSE(WidgetAs<QRadioButton>(v, dlg.GetDlgItem(IDC_RADIO1))->isChecked());

    auto* check = WidgetAs<QCheckBox>(v, dlg.GetDlgItem(IDC_CHECK));
    QTest::mouseClick(check, Qt::LeftButton);
    EXPECT_EQ(dlg.IsDlgButtonChecked(IDC_CHECK), 1);
    EXPECT_TRUE(v.WidgetOf(*dlg.GetDlgItem(IDC_RESULT))->isEnabled());
    QTest::mouseClick(check, Qt::LeftButton);
    EXPECT_EQ(dlg.IsDlgButtonChecked(IDC_CHECK), 0);
    EXPECT_FALSE(v.WidgetOf(*dlg.GetDlgItem(IDC_RESULT))->isEnabled());

    // Opening the list tells the dialog first (it adds an item), picking notifies.
    auto* combo = WidgetAs<QComboBox>(v, dlg.GetDlgItem(IDC_COMBO));
    combo->showPopup();
    EXPECT_EQ(combo->count(), 3);
    combo->hidePopup();
    combo->setFocus();
    QTest::keyClick(combo, Qt::Key_Down);
    EXPECT_EQ(dlg.GetDlgItem(IDC_COMBO)->GetCurSel(), 0);
    EXPECT_EQ(dlg.selections, std::vector<int>{0});
    EXPECT_EQ(dlg.GetDlgItemText(IDC_COMBO), "铜");

    auto* editable = WidgetAs<QComboBox>(v, dlg.GetDlgItem(IDC_EDITCOMBO));
    QTest::keyClicks(editable->lineEdit(), "YJV");
    EXPECT_EQ(dlg.GetDlgItemText(IDC_EDITCOMBO), "YJV");

    QTest::mouseClick(WidgetAs<QPushButton>(v, dlg.GetDlgItem(IDC_CALC)), Qt::LeftButton);
    EXPECT_EQ(WidgetAs<QLineEdit>(v, dlg.GetDlgItem(IDC_RESULT))->text().toStdString(), "412.5");

    // A handler's exception is shown in a message box and the dialog goes on.
    dlg.On(IDC_CALC, ui::Notify::Clicked, [] { throw std::runtime_error("数据库无法打开"); });
    SeenBox box;
    AnswerNextMessageBox("确定", &box);
    QTest::mouseClick(WidgetAs<QPushButton>(v, dlg.GetDlgItem(IDC_CALC)), Qt::LeftButton);
    EXPECT_EQ(box.text, "数据库无法打开");
    EXPECT_FALSE(dlg.IsEnded());
  });
}

TEST(QtRenderer, DialogsEndByTheirButtonsTheCloseBoxAndEscape) {
  QtScope scope;
  auto click = [](int id) {
    return [id](TestDlg& d, DialogView& v) { QTest::mouseClick(WidgetAs<QPushButton>(v, d.GetDlgItem(id)), Qt::LeftButton); };
  };
  const struct {
    const char* what;
    std::function<void(TestDlg&, DialogView&)> act;
    int result;
  } cases[] = {
      {"OK button", click(ui::IDOK), ui::IDOK},
      {"a handler's own code", click(IDC_REPORT), 42},
      {"close box of the shown window",
       [](TestDlg&, DialogView& v) {
         EXPECT_TRUE(v.window()->isVisible());
         v.window()->close();
       },
       ui::IDCANCEL},
      {"Escape", [](TestDlg&, DialogView& v) { QTest::keyClick(v.window(), Qt::Key_Escape); }, ui::IDCANCEL},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    TestDlg dlg;
    EXPECT_EQ(RunWith(scope.host(), dlg, [&](DialogView& v) { c.act(dlg, v); }), c.result);
  }
  // A dialog that refuses to be cancelled stays open after the close box.
  struct Stubborn : TestDlg {
    void OnCancel() override { ++refusals; }
    int refusals = 0;
  } dlg;
  int r = RunWith(scope.host(), dlg, [&](DialogView& v) {
    v.window()->close();
    EXPECT_FALSE(dlg.IsEnded());
    EXPECT_TRUE(v.window()->isVisible());
    click(ui::IDOK)(dlg, v);
  });
  EXPECT_EQ(dlg.refusals, 1);
  EXPECT_EQ(r, ui::IDOK);
  EXPECT_EQ(scope.host().TopView(), nullptr);
}

TEST(QtRenderer, ASubDialogRunsModallyInsideItsOwner) {
  QtScope scope;
  TestDlg dlg;
  int depth = 0;
  QWidget* sub_parent = nullptr;
  QWidget* owner_window = nullptr;
  int r = RunWith(scope.host(), dlg, [&](DialogView& v) {
    owner_window = v.window();
    QTimer::singleShot(0, [&] {
      DialogView* sub = scope.host().TopView();
      depth = static_cast<int>(scope.host().views().size());
      sub_parent = sub->window()->parentWidget();
      auto* edit = WidgetAs<QLineEdit>(*sub, sub->dialog().GetDlgItem(3001));
      QTest::keyClicks(edit, "1200");
      dlg.sub_text = sub->dialog().GetDlgItemText(3001);
      QTest::mouseClick(WidgetAs<QPushButton>(*sub, sub->dialog().GetDlgItem(ui::IDOK)), Qt::LeftButton);
    });
    QTest::mouseClick(WidgetAs<QPushButton>(v, dlg.GetDlgItem(IDC_SUBDLG)), Qt::LeftButton);
    // Back in the owner, which shows what the handler did after the sub-dialog.
    EXPECT_EQ(WidgetAs<QLineEdit>(v, dlg.GetDlgItem(IDC_RESULT))->text().toStdString(), "1200");
  });
  EXPECT_EQ(depth, 2);
  EXPECT_EQ(sub_parent, owner_window);
  EXPECT_EQ(dlg.sub_result, ui::IDOK);
  EXPECT_EQ(r, ui::IDCANCEL);
}

// The keyboard as on a native dialog: the first tab stop has the focus with its text selected,
// a radio group is one tab stop whose arrow keys move and click within it, a program's long
// number shows its leading digits, and a checked radio stays checked while its click's
// sub-dialog is open.
TEST(QtRenderer, FocusTabStopsRadioGroupsAndTextsSetByTheProgram) {
  QtScope scope;
  TestDlg dlg;
  std::vector<int> stops;
  bool radio_checked_under_sub = false;
  RunWith(scope.host(), dlg, [&](DialogView& v) {
    for (ui::Control* c : ui::TabStops(dlg)) stops.push_back(c->id());
    auto* cos1 = WidgetAs<QLineEdit>(v, dlg.GetDlgItem(IDC_COS1));
    EXPECT_EQ(v.window()->focusWidget(), cos1);
    EXPECT_EQ(cos1->selectedText().toStdString(), "0.5");

    QTest::keyClick(cos1, Qt::Key_Tab);
    auto* radio1 = WidgetAs<QRadioButton>(v, dlg.GetDlgItem(IDC_RADIO1));
    auto* radio2 = WidgetAs<QRadioButton>(v, dlg.GetDlgItem(IDC_RADIO2));
    EXPECT_EQ(v.window()->focusWidget(), radio1);
    QTest::keyClick(radio1, Qt::Key_Down);
    EXPECT_EQ(v.window()->focusWidget(), radio2);
    EXPECT_TRUE(radio2->isChecked());
    EXPECT_FALSE(radio1->isChecked());
    EXPECT_EQ(dlg.radio2_clicks, 1);
    QTest::keyClick(radio2, Qt::Key_Tab, Qt::ShiftModifier);
    EXPECT_EQ(v.window()->focusWidget(), cos1);
    EXPECT_EQ(cos1->selectedText().toStdString(), "0.5");

    dlg.SetDlgItemText(IDC_RESULT, "179441.860123456789");
    EXPECT_EQ(WidgetAs<QLineEdit>(v, dlg.GetDlgItem(IDC_RESULT))->cursorPosition(), 0);

    // Clicking the checked radio again: its handler's sub-dialog opens over a checked button.
    dlg.CheckRadioButton(IDC_RADIO1, IDC_RADIO2, IDC_RADIO1);
    QTimer::singleShot(0, [&] {
      radio_checked_under_sub = radio1->isChecked();
      scope.host().TopView()->window()->close();
    });
    QTest::mouseClick(radio1, Qt::LeftButton, {}, QPoint(4, radio1->height() / 2));
    EXPECT_TRUE(radio1->isChecked());
  });
  // Tab order: the edit, the radio group once (its checked button), then the rest in template
  // order; the hidden form, the hidden and the disabled edit are passed over.
  EXPECT_EQ(stops, (std::vector<int>{IDC_COS1, IDC_RADIO1, IDC_CHECK, IDC_COMBO, IDC_RESULT, IDC_EDITCOMBO, IDC_COUNT,
                                     IDC_CALC, IDC_REPORT, IDC_SUBDLG, ui::IDOK, ui::IDCANCEL}));
  EXPECT_TRUE(radio_checked_under_sub);
}

}  // namespace
}  // namespace kestra::qt::testing

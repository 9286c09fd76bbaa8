#include "host/qt/qt_ui_host.h"

#include <QApplication>
#include <QDateTime>
#include <QDialog>
#include <QDesktopServices>
#include <QMessageBox>
#include <QPushButton>
#include <QUrl>

#include "host/qt/dialog_view.h"
#include "host/qt/font_map.h"
#include "host/qt/message_box.h"
#include "host/qt/report_path.h"
#include "ui/dialog.h"

namespace kestra::qt {

QtUiHost::QtUiHost() { InstallFontSubstitutions(); }

QtUiHost::~QtUiHost() {
  while (wait_depth_ > 0) EndWaitCursor();
}

QWidget* QtUiHost::ParentWindow() const {
  if (!views_.empty()) return views_.back()->window();
  return main_window_.data();
}

int QtUiHost::RunModal(ui::Dialog& dlg) {
  // The model first: CreateModal builds the controls and runs OnInitDialog, whose
  // changes the window then shows as they are.
  if (!dlg.CreateModal()) return -1;
  // A wait cursor does not belong over a dialog that waits for the designer.
  int waiting = wait_depth_;
  for (int i = 0; i < waiting; ++i) QApplication::restoreOverrideCursor();
  DialogView view(dlg, ParentWindow(), [this](const std::string& what) { MessageBox(what, {}, ui::MB_ICONERROR); });
  views_.push_back(&view);
  int result = view.Exec();
  views_.pop_back();
  for (int i = 0; i < waiting; ++i) QApplication::setOverrideCursor(Qt::WaitCursor);
  return result;
}

int QtUiHost::MessageBox(const std::string& text, const std::string& caption, unsigned type) {
  QMessageBox::Icon icon = QMessageBox::NoIcon;
  switch (type & 0xF0) {
    case ui::MB_ICONERROR: icon = QMessageBox::Critical; break;
    case ui::MB_ICONQUESTION: icon = QMessageBox::Question; break;
    case ui::MB_ICONWARNING: icon = QMessageBox::Warning; break;
    case ui::MB_ICONINFORMATION: icon = QMessageBox::Information; break;
    default: break;
  }
  MessageBoxWindow box(ParentWindow(), QString::fromStdString(caption.empty() ? title_ : caption),
                       QString::fromStdString(text), icon);
  // The buttons of each type with the captions a Chinese system gives them.
  struct Choice {
    const char* text;
    int answer;
  };
  std::vector<Choice> choices;
  switch (type & 0xF) {
    case ui::MB_OKCANCEL: choices = {{"确定", ui::IDOK}, {"取消", ui::IDCANCEL}}; break;
    case 0x2: choices = {{"中止(&A)", ui::IDABORT}, {"重试(&R)", ui::IDRETRY}, {"忽略(&I)", ui::IDIGNORE}}; break;
    case ui::MB_YESNOCANCEL: choices = {{"是(&Y)", ui::IDYES}, {"否(&N)", ui::IDNO}, {"取消", ui::IDCANCEL}}; break;
    case ui::MB_YESNO: choices = {{"是(&Y)", ui::IDYES}, {"否(&N)", ui::IDNO}}; break;
    case 0x5: choices = {{"重试(&R)", ui::IDRETRY}, {"取消", ui::IDCANCEL}}; break;
    default: choices = {{"确定", ui::IDOK}}; break;
  }
  std::vector<QPushButton*> buttons;
  for (const Choice& c : choices) buttons.push_back(box.AddButton(QString::fromUtf8(c.text)));
  std::size_t def = (type & 0x200) ? 2 : (type & ui::MB_DEFBUTTON2) ? 1 : 0;
  if (def >= buttons.size()) def = 0;
  box.SetDefaultButton(buttons[def]);
  // Escape answers as the window's close box: cancel where there is one, else the only button.
  for (std::size_t i = 0; i < choices.size(); ++i)
    if (choices[i].answer == ui::IDCANCEL || choices.size() == 1) box.SetEscapeButton(buttons[i]);
  int waiting = wait_depth_;
  for (int i = 0; i < waiting; ++i) QApplication::restoreOverrideCursor();
  box.exec();
  for (int i = 0; i < waiting; ++i) QApplication::setOverrideCursor(Qt::WaitCursor);
  for (std::size_t i = 0; i < buttons.size(); ++i)
    if (box.clicked_button() == buttons[i]) return choices[i].answer;
  // Ended without a button (the application is closing): the default answer.
  return choices[def].answer;
}

void QtUiHost::BeginWaitCursor() {
  ++wait_depth_;
  QApplication::setOverrideCursor(Qt::WaitCursor);
}

void QtUiHost::EndWaitCursor() {
  if (wait_depth_ == 0) return;
  --wait_depth_;
  QApplication::restoreOverrideCursor();
}

ui::Size QtUiHost::BaseUnits(const ui::Font& font) { return BaseUnitsOf(FontFor(font)); }

ui::Size QtUiHost::TextExtent(const std::string& text, const ui::Font& font) {
  QFontMetrics fm(FontFor(font));
  return ui::Size{fm.horizontalAdvance(QString::fromStdString(text)), fm.height()};
}

std::optional<std::string> QtUiHost::NewReportPath(std::string_view title) {
  std::string folder = report_folder_.empty() ? DefaultReportFolder() : report_folder_;
  std::string why;
  auto path = NewReportPathIn(folder, title, QDateTime::currentDateTime(), &why);
  if (!path) ShowFailureCause("cannot use the report folder " + folder + ": " + why);
  return path;
}

void QtUiHost::ShowFailureCause(const std::string& cause) {
  UiHost::ShowFailureCause(cause);
  if (status_) status_("计算书未写成: " + cause);
}

void QtUiHost::ShowReport(const std::string& path) {
  // The report is opened in front of the designer, as the word processor was left open.
  bool opened = open_report_ ? open_report_(path)
                             : QDesktopServices::openUrl(QUrl::fromLocalFile(QString::fromStdString(path)));
  if (status_) status_(opened ? "计算书已写入 " + path : "计算书已写入 " + path + " (没有可打开它的程序)");
  // With nothing to open it, the designer is told where to find it, in front of the dialog.
  if (!opened)
    MessageBox("计算书已写入:\n" + path + "\n\n本机没有可打开 .docx 文件的程序, 请用字处理程序打开它。", {},
               ui::MB_OK | ui::MB_ICONINFORMATION);
}

void QtUiHost::Redraw(ui::Dialog& dlg) {
  ui::Dialog* top = dlg.TopLevel();
  for (DialogView* v : views_)
    if (&v->dialog() == top) v->Repaint();
}

}  // namespace kestra::qt

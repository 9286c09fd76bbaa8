#include "host/qt/project_dialog.h"

#include <array>

#include <QDialog>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "host/qt/qt_ui_host.h"
#include "services/report/project_info.h"

namespace kestra::qt {

bool EditProject(QWidget* parent, QtUiHost& ui, const std::string& project_file) {
  using kestra::report::kProjectFields;
  const kestra::report::ProjectInfo before = kestra::report::ReadProjectInfo(project_file);
  QDialog dlg(parent);
  dlg.setObjectName(QStringLiteral("kestra_project_dialog"));
  dlg.setWindowTitle(QStringLiteral("工程信息"));
  auto* form = new QFormLayout(&dlg);
  auto* note = new QLabel(QStringLiteral("以下内容印在每份计算书的页眉中。"), &dlg);
  form->addRow(note);
  std::array<QLineEdit*, kProjectFields.size()> edits{};
  for (std::size_t i = 0; i < kProjectFields.size(); ++i) {
    edits[i] = new QLineEdit(QString::fromStdString(before.values[i]), &dlg);
    edits[i]->setObjectName(QString::fromUtf8(kProjectFields[i].alias));
    edits[i]->setMinimumWidth(i == 0 ? 320 : 160);
    form->addRow(QString::fromUtf8(kProjectFields[i].key) + QStringLiteral(":"), edits[i]);
  }
  auto* buttons = new QDialogButtonBox(&dlg);
  buttons->addButton(QStringLiteral("确定"), QDialogButtonBox::AcceptRole);
  buttons->addButton(QStringLiteral("取消"), QDialogButtonBox::RejectRole);
  form->addRow(buttons);
  bool written = false;
  QObject::connect(buttons, &QDialogButtonBox::rejected, &dlg, &QDialog::reject);
  QObject::connect(buttons, &QDialogButtonBox::accepted, &dlg, [&] {
    for (std::size_t i = 0; i < kProjectFields.size(); ++i) {
      const std::string value = edits[i]->text().trimmed().toStdString();
      if (value == before.values[i]) continue;
      std::string why;
      if (!kestra::report::SetProjectValue(project_file, kProjectFields[i].key, value, &why)) {
        ui.MessageBox("工程信息未能保存: " + why, "工程信息", ui::MB_OK | ui::MB_ICONERROR);
        return;
      }
      written = true;
    }
    dlg.accept();
  });
  dlg.exec();
  return written;
}

}  // namespace kestra::qt

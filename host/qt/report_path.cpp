#include "host/qt/report_path.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

namespace kestra::qt {

std::string DefaultReportFolder() {
  QString docs = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
  if (docs.isEmpty()) docs = QDir::homePath();
  return QDir(docs).filePath(QStringLiteral("OrvelKestra")).toStdString();
}

std::optional<std::string> NewReportPathIn(const std::string& folder, std::string_view title, const QDateTime& when) {
  QDir dir(QString::fromStdString(folder));
  if (!dir.mkpath(QStringLiteral("."))) return std::nullopt;
  QFileInfo info(dir.absolutePath());
  if (!info.isDir() || !info.isWritable()) return std::nullopt;
  // A title is a calculator's name; keep anything that would leave the folder out of it.
  QString base = QString::fromUtf8(title.data(), static_cast<qsizetype>(title.size())).trimmed();
  base.replace(QLatin1Char('/'), QLatin1Char('_'));
  base.replace(QChar(0), QLatin1Char('_'));
  if (base.isEmpty() || base == QLatin1String(".") || base == QLatin1String("..")) base = QStringLiteral("计算书");
  base += QLatin1Char(' ') + when.toString(QStringLiteral("yyyy-MM-dd HHmmss"));
  for (int n = 1; n < 10000; ++n) {
    QString name = base + (n == 1 ? QString() : QStringLiteral(" (%1)").arg(n)) + QStringLiteral(".docx");
    QString path = dir.absoluteFilePath(name);
    if (!QFileInfo::exists(path)) return path.toStdString();
  }
  return std::nullopt;
}

}  // namespace kestra::qt

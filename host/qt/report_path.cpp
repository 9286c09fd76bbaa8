#include "host/qt/report_path.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

#include "services/report/report_target.h"

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
  // The same readable, unique name as every report of the product (title, date and time).
  const QDate d = when.date();
  const QTime t = when.time();
  std::tm local{};
  local.tm_year = d.year() - 1900;
  local.tm_mon = d.month() - 1;
  local.tm_mday = d.day();
  local.tm_hour = t.hour();
  local.tm_min = t.minute();
  local.tm_sec = t.second();
  return kestra::report::UniqueReportPath(dir.absolutePath().toStdString(), title, local);
}

}  // namespace kestra::qt

#include "host/qt/report_path.h"

#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <system_error>

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

std::optional<std::string> NewReportPathIn(const std::string& folder, std::string_view title, const QDateTime& when,
                                           std::string* why) {
  std::error_code ec;
  std::filesystem::create_directories(folder, ec);
  if (!ec && !std::filesystem::is_directory(folder, ec) && !ec) ec = std::make_error_code(std::errc::not_a_directory);
  if (!ec && ::access(folder.c_str(), W_OK | X_OK) != 0) ec = std::error_code(errno, std::generic_category());
  if (ec) {
    if (why) *why = ec.message();
    return std::nullopt;
  }
  QDir dir(QString::fromStdString(folder));
  // The same readable, unique name as every other report (title, date and time).
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

#pragma once
// Where the window mode writes a new calculation report: a folder of its own in the
// designer's documents, one new file per report, never over an existing one.
#include <optional>
#include <string>
#include <string_view>

#include <QDateTime>

namespace kestra::qt {

// The default report folder: <documents>/OrvelKestra.
std::string DefaultReportFolder();

// "<folder>/<title> <YYYY-MM-DD HHMMSS>.docx", with " (2)", " (3)", ... before the
// extension when that name is taken. Creates the folder; nullopt when it cannot, with the
// system's reason in *why when given.
std::optional<std::string> NewReportPathIn(const std::string& folder, std::string_view title, const QDateTime& when,
                                           std::string* why = nullptr);

}  // namespace kestra::qt

#pragma once
// Where a report goes. The hosts decide: the window host writes into the user's documents
// folder (…/OrvelKestra/<title> <date time>.docx) and opens the file with the desktop's word
// processor; the script host writes into its --report-dir and records the file in its transcript.
#include <ctime>
#include <optional>
#include <string>
#include <string_view>

#include "services/report/project_info.h"

namespace kestra::report {

class ReportTarget {
 public:
  virtual ~ReportTarget() = default;
  // A path for a new report named after `title`, at which no file exists yet; nothing when the
  // report cannot be written anywhere (the report then fails as if Word could not be started).
  virtual std::optional<std::string> NewReportPath(std::string_view title) = 0;
  // Shows the written report to the designer.
  virtual void ShowReport(const std::string& path) = 0;
  // Why a report failed ("cannot write <path>: No space left on device"), told beside the
  // calculator's own message, which names no cause. By default on standard error; a window host
  // shows it in its status line as well.
  virtual void ShowFailureCause(const std::string& cause);

  // The project file whose title block heads the reports (none set: blank values).
  void SetProjectFile(std::string path) { project_file_ = std::move(path); }
  const std::string& project_file() const { return project_file_; }
  // The title block as the project file holds it now.
  ProjectInfo ReportProject() const { return project_file_.empty() ? ProjectInfo{} : ReadProjectInfo(project_file_); }

 private:
  std::string project_file_;
};

// "<dir>/<title> YYYY-MM-DD HHMMSS.docx" for a report written at `local_time`; when a file of
// that name exists, " (2)", " (3)", … is added before ".docx". Characters that file names on
// Windows or Linux do not take (\ / : * ? " < > | and controls) become "_"; a title that is
// empty after trimming blanks and dots is "计算书"; a long title is cut (at a character
// boundary) so that the name stays within 255 bytes.
std::string UniqueReportPath(const std::string& dir, std::string_view title, const std::tm& local_time);
// The same for a time, taken in the local time zone.
std::string UniqueReportPath(const std::string& dir, std::string_view title, std::time_t time);
// The name to try when a report's name was taken: "<stem>.docx" -> "<stem> (2).docx",
// "<stem> (n).docx" -> "<stem> (n+1).docx".
std::string NextFreeCandidate(const std::string& path);

}  // namespace kestra::report

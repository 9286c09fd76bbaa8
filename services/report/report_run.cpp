#include "services/report/report_run.h"

#include <optional>

#include "services/report/docx_package.h"
#include "services/report/new_file.h"
#include "services/report/report_errors.h"

namespace kestra::report {

bool RunReport(ReportTarget& target, const std::function<void(const std::string& message)>& show_message,
               const std::function<void(ReportWriter&)>& body, const ReportRunOptions& options) {
  std::optional<NewFile> file;
  try {
    if (const std::optional<std::string> path = target.NewReportPath(options.title)) file.emplace(*path);
  } catch (...) {
    // A target that cannot give a path, or a folder that takes no file: the document cannot be
    // created, which is what the designer has always been told when Word could not be started.
  }
  if (!file) {
    show_message(options.open_failure_message);
    return false;
  }

  ReportWriter writer;
  try {
    writer.OpenReport();
    body(writer);
    file->Commit(DocxBytes(writer.Document(), options.created != 0 ? options.created : std::time(nullptr),
                           target.ReportProject()));
  } catch (const COleDispatchException& e) {
    show_message(OleDispatchExceptionMessage(e));
    return false;
  } catch (const COleException& e) {
    show_message(OleExceptionMessage(e));
    return false;
  } catch (...) {
    const bool early = options.header_failure_message && !writer.HeaderDone();
    show_message(early ? *options.header_failure_message : std::string(kOtherErrorMessage));
    return false;
  }

  try {
    target.ShowReport(file->path());
  } catch (...) {
    show_message(kOtherErrorMessage);
  }
  return true;
}

}  // namespace kestra::report

#include "services/report/report_run.h"

#include <optional>

#include "services/report/docx_package.h"
#include "services/report/new_file.h"
#include "services/report/report_errors.h"

namespace kestra::report {
namespace {

std::string OtherErrorMessage(const ReportWriter& writer, const ReportRunOptions& options) {
  const bool early = options.header_failure_message && !writer.HeaderDone();
  return early ? *options.header_failure_message : std::string(kOtherErrorMessage);
}

}  // namespace

bool RunReport(ReportTarget& target, const std::function<void(const std::string& message)>& show_message,
               const std::function<void(ReportWriter&)>& body, const ReportRunOptions& options) {
  // The calculator's message for the designer, with the cause told beside it when there is one.
  const auto fail = [&](const std::string& message, const std::string& cause) {
    if (!cause.empty()) target.ShowFailureCause(cause);
    show_message(message);
    return false;
  };
  std::optional<NewFile> file;
  std::string cause;
  try {
    if (const std::optional<std::string> path = target.NewReportPath(options.title)) file.emplace(*path);
  } catch (const std::exception& e) {
    // A target that cannot give a path, or a folder that takes no file: the document cannot be
    // created, and the designer is told so with the open-failure message.
    cause = e.what();
  } catch (...) {
  }
  if (!file) return fail(options.open_failure_message, cause);

  ReportWriter writer;
  try {
    writer.OpenReport();
    body(writer);
    file->Commit(DocxBytes(writer.Document(), options.created != 0 ? options.created : std::time(nullptr),
                           target.ReportProject()));
  } catch (const COleDispatchException& e) {
    return fail(OleDispatchExceptionMessage(e), {});
  } catch (const COleException& e) {
    return fail(OleExceptionMessage(e), e.what());
  } catch (const std::exception& e) {
    return fail(OtherErrorMessage(writer, options), e.what());
  } catch (...) {
    return fail(OtherErrorMessage(writer, options), {});
  }

  try {
    target.ShowReport(file->path());
  } catch (...) {
    show_message(kOtherErrorMessage);
  }
  return true;
}

}  // namespace kestra::report

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

  // The body runs as far as it goes; a failure stops it where it happened.
  ReportWriter writer;
  std::optional<std::string> failure;
  std::string failure_cause;
  try {
    writer.OpenReport();
    body(writer);
  } catch (const COleDispatchException& e) {
    failure = OleDispatchExceptionMessage(e);
  } catch (const COleException& e) {
    failure = OleExceptionMessage(e);
    failure_cause = e.what();
  } catch (const std::exception& e) {
    failure = OtherErrorMessage(writer, options);
    failure_cause = e.what();
  } catch (...) {
    failure = OtherErrorMessage(writer, options);
  }

  // What was written stays in the document, finished or not: the designer sees how far the
  // report came. When the document itself cannot be stored, nothing stays and that is said,
  // unless the body had already failed: its failure is the one the designer is told.
  try {
    file->Commit(DocxBytes(writer.Document(), options.created != 0 ? options.created : std::time(nullptr),
                           target.ReportProject()));
  } catch (const COleException& e) {
    return failure ? fail(*failure, failure_cause) : fail(OleExceptionMessage(e), e.what());
  } catch (const std::exception& e) {
    return failure ? fail(*failure, failure_cause) : fail(OtherErrorMessage(writer, options), e.what());
  } catch (...) {
    return failure ? fail(*failure, failure_cause) : fail(OtherErrorMessage(writer, options), {});
  }

  try {
    target.ShowReport(file->path());
  } catch (...) {
    show_message(kOtherErrorMessage);
  }
  if (failure) return fail(*failure, failure_cause);
  return true;
}

}  // namespace kestra::report

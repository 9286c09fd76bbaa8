#pragma once
// The guard around the writing of one report: opens the document, runs the report's body,
// stores the document as a new .docx and has the host show it. Any failure is shown to the
// designer in one message; what the body wrote before it stays in the document.
#include <ctime>
#include <functional>
#include <optional>
#include <string>

#include "services/report/report_target.h"
#include "services/report/report_writer.h"

namespace kestra::report {

inline constexpr const char* kOpenFailureMessage = "Create Word Instance Failed!";
inline constexpr const char* kOtherErrorMessage = "Catch All Other ERROR";
// The diesel report's texts.
inline constexpr const char* kDieselOpenFailureMessage = "创建Word实例失败!";
inline constexpr const char* kDieselHeaderErrorMessage = "Catch All ERROR";

struct ReportRunOptions {
  std::string title;  // the report's title; the target names the file after it
  std::string open_failure_message = kOpenFailureMessage;
  // When set: the message for an exception (other than COleException and COleDispatchException)
  // raised before the body calls writer.MarkHeaderDone(); from then on kOtherErrorMessage.
  std::optional<std::string> header_failure_message;
  std::time_t created = 0;  // the document's creation time; 0: now
};

// 1. target.NewReportPath(title) and a new file there; when there is no path or the file cannot
//    be created: show_message(open_failure_message), return false.
// 2. writer.OpenReport(), body(writer). On an exception the body stops there; the message is
//      "COleException. SCODE: %08lx."                            for COleException,
//      "COleDispatchException. SCODE: %08lx,Description: \"%s\"." for COleDispatchException,
//      header_failure_message or "Catch All Other ERROR"          for any other.
// 3. The .docx of what was written, finished or not, at the path (atomically, never over
//    another file). When it cannot be stored: no file, and the body's message, or when the body
//    finished, the message of the storing failure (as above); return false.
// 4. target.ShowReport(path) (an exception from it shows "Catch All Other ERROR"; the report
//    stays written); then the body's message, if it failed. True when the body finished.
// show_message gets the text only: the host shows it with its default caption and an OK button.
// Before it, target.ShowFailureCause gets what the exception said (for a file: the path and the
// system's text), when there is such a text.
bool RunReport(ReportTarget& target, const std::function<void(const std::string& message)>& show_message,
               const std::function<void(ReportWriter&)>& body, const ReportRunOptions& options);

}  // namespace kestra::report

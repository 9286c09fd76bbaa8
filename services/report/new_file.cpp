#include "services/report/new_file.h"

#include <cerrno>

#include "services/report/report_errors.h"
#include "services/report/report_target.h"

namespace kestra::report {
namespace {

// Writers racing for names in one folder take one each; past this many, something else is wrong.
constexpr int kMaxNames = 10000;

// The cause (what, which file, the system's words) travels with the exception to the report
// target, which shows it beside the calculator's message.
[[noreturn]] void Fail(std::error_code e, const std::string& what, const std::string& path) {
  throw COleException(HresultFromErrno(e.value()), FileErrorText(what, path, e.value()));
}

}  // namespace

NewFile::NewFile(std::string path) : path_(std::move(path)), file_(path_) {
  if (file_.error()) Fail(file_.error(), "cannot create a file beside", path_);
}

void NewFile::Commit(std::string_view bytes) {
  if (const std::error_code e = file_.Write(bytes)) Fail(e, "cannot write", path_);
  for (int tries = 0; tries < kMaxNames; ++tries) {
    const std::error_code e = file_.PublishNew(path_);
    if (!e) return;
    if (e != std::errc::file_exists) Fail(e, "cannot create", path_);
    path_ = NextFreeCandidate(path_);
  }
  Fail(std::make_error_code(std::errc::file_exists), "cannot create", path_);
}

}  // namespace kestra::report

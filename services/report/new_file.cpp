#include "services/report/new_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <filesystem>

#include "services/report/report_errors.h"

namespace kestra::report {
namespace {

[[noreturn]] void Fail(int err, const std::string& what, const std::string& path) {
  throw COleException(HresultFromErrno(err), FileErrorText(what, path, err));
}

std::string FolderOf(const std::string& path) {
  const std::string folder = std::filesystem::path(path).parent_path().string();
  return folder.empty() ? "." : folder;
}

// The final name, refusing to replace an existing file.
int RenameNoReplace(const char* from, const char* to) {
  if (::renameat2(AT_FDCWD, from, AT_FDCWD, to, RENAME_NOREPLACE) == 0) return 0;
  if (errno != EINVAL && errno != ENOSYS && errno != ENOTSUP) return errno;
  if (::link(from, to) != 0) return errno;
  ::unlink(from);
  return 0;
}

}  // namespace

NewFile::NewFile(std::string path) : path_(std::move(path)) {
  struct stat st;
  if (::lstat(path_.c_str(), &st) == 0) Fail(EEXIST, "cannot create", path_);
  std::string templ = FolderOf(path_) + "/.~kestra-report-XXXXXX";
  fd_ = ::mkostemp(templ.data(), O_CLOEXEC);
  if (fd_ < 0) Fail(errno, "cannot create a file beside", path_);
  temp_path_ = std::move(templ);
  ::fchmod(fd_, 0644);  // mkostemp makes it private; a report is an ordinary document
}

NewFile::~NewFile() { Discard(); }

void NewFile::Discard() {
  if (fd_ >= 0) ::close(fd_);
  fd_ = -1;
  if (!committed_ && !temp_path_.empty()) ::unlink(temp_path_.c_str());
  temp_path_.clear();
}

void NewFile::Commit(std::string_view bytes) {
  if (fd_ < 0) Fail(EBADF, "cannot write", path_);
  const char* p = bytes.data();
  std::size_t left = bytes.size();
  while (left > 0) {
    const ssize_t n = ::write(fd_, p, left);
    if (n < 0 && errno == EINTR) continue;
    if (n < 0) {
      const int err = errno;
      Discard();
      Fail(err, "cannot write", path_);
    }
    p += n;
    left -= static_cast<std::size_t>(n);
  }
  int err = ::fsync(fd_) == 0 ? 0 : errno;
  if (::close(fd_) != 0 && err == 0) err = errno;
  fd_ = -1;
  if (err != 0) {
    Discard();
    Fail(err, "cannot write", path_);
  }
  if ((err = RenameNoReplace(temp_path_.c_str(), path_.c_str())) != 0) {
    Discard();
    Fail(err, "cannot create", path_);
  }
  committed_ = true;
  // The folder is not synced: after a crash the new name may be missing, but a file under it
  // is always complete, and syncing the folder would double the time a report takes.
  temp_path_.clear();
}

}  // namespace kestra::report

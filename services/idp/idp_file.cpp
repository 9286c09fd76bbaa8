#include "services/idp/idp_file.h"

#include <fcntl.h>
#include <stdio.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <ctime>

#include "services/fileio/atomic_file.h"

namespace kestra::idp {
namespace {

// "dir/name" -> "dir" ("." when there is no folder part).
std::string FolderOf(const std::string& path) {
  auto slash = path.find_last_of('/');
  if (slash == std::string::npos) return ".";
  if (slash == 0) return "/";
  return path.substr(0, slash);
}

// Flushes a folder's entries (the rename) to disk. Some file systems refuse fsync on folders;
// the file is in place by then, so that is not a failure of the write.
void SyncFolder(const std::string& folder) {
  int fd = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (fd < 0) return;
  ::fsync(fd);
  ::close(fd);
}

}  // namespace

ReadResult ReadWholeFile(const std::string& path, std::string& out, FileId* id) {
  out.clear();
  // Only a regular file is read: opening a FIFO or a device waits for a writer or reads
  // forever. The kind is checked before opening, and again on what was opened (without
  // waiting), in case something else took the name in between.
  struct stat st;
  if (::stat(path.c_str(), &st) != 0) return errno == ENOENT ? ReadResult::kMissing : ReadResult::kFailed;
  if (!S_ISREG(st.st_mode)) return ReadResult::kFailed;
  int fd = ::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
  if (fd < 0) return errno == ENOENT ? ReadResult::kMissing : ReadResult::kFailed;
  if (::fstat(fd, &st) != 0 || !S_ISREG(st.st_mode)) {
    ::close(fd);
    return ReadResult::kFailed;
  }
  if (id) *id = {static_cast<std::uint64_t>(st.st_dev), static_cast<std::uint64_t>(st.st_ino)};
  out.resize(static_cast<std::size_t>(st.st_size));
  std::size_t got = 0;
  while (true) {
    if (got == out.size()) out.resize(out.size() + 4096);  // the file may have grown
    ssize_t n = ::read(fd, out.data() + got, out.size() - got);
    if (n < 0) {
      if (errno == EINTR) continue;
      ::close(fd);
      out.clear();
      return ReadResult::kFailed;
    }
    if (n == 0) break;
    got += static_cast<std::size_t>(n);
  }
  ::close(fd);
  out.resize(got);
  return ReadResult::kOk;
}

bool MoveAside(const std::string& path, const FileId& expected, std::string* moved_to) {
  struct stat st;
  if (::stat(path.c_str(), &st) != 0 || static_cast<std::uint64_t>(st.st_dev) != expected.device ||
      static_cast<std::uint64_t>(st.st_ino) != expected.inode)
    return false;
  std::time_t now = std::time(nullptr);
  std::tm local{};
  ::localtime_r(&now, &local);
  char stamp[32];
  std::strftime(stamp, sizeof stamp, "%Y%m%d-%H%M%S", &local);
  std::string base = path + ".unreadable-" + stamp;
  for (int n = 1; n < 1000; ++n) {
    std::string name = n == 1 ? base : base + "-" + std::to_string(n);
    const std::error_code e = fileio::RenameNoReplace(path, name);
    if (!e) {
      if (moved_to) *moved_to = name;
      SyncFolder(FolderOf(path));
      return true;
    }
    if (e != std::errc::file_exists) return false;
  }
  return false;
}

}  // namespace kestra::idp

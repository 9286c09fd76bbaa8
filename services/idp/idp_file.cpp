#include "services/idp/idp_file.h"

#include <fcntl.h>
#include <stdio.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <mutex>

namespace kestra::idp {
namespace {

std::mutex g_hook_mutex;
std::function<bool(const std::string&)> g_before_rename;
std::atomic<unsigned> g_temp_counter{0};

// "dir/name" -> "dir" ("." when there is no folder part).
std::string FolderOf(const std::string& path) {
  auto slash = path.find_last_of('/');
  if (slash == std::string::npos) return ".";
  if (slash == 0) return "/";
  return path.substr(0, slash);
}

bool WriteAll(int fd, std::string_view data) {
  while (!data.empty()) {
    ssize_t n = ::write(fd, data.data(), data.size());
    if (n < 0) {
      if (errno == EINTR) continue;
      return false;
    }
    if (n == 0) return false;
    data.remove_prefix(static_cast<std::size_t>(n));
  }
  return true;
}

// Flushes a folder's entries (the rename) to disk. Some file systems refuse fsync on folders;
// the file is in place by then, so that is not a failure of the write.
void SyncFolder(const std::string& folder) {
  int fd = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (fd < 0) return;
  ::fsync(fd);
  ::close(fd);
}

// Writes go to the file a symbolic link points at, so the link itself stays a link.
std::string FollowLink(const std::string& path) {
  struct stat st;
  if (::lstat(path.c_str(), &st) != 0 || !S_ISLNK(st.st_mode)) return path;
  char* real = ::realpath(path.c_str(), nullptr);
  if (!real) return path;
  std::string out = real;
  std::free(real);
  return out;
}

// Creates a new temporary file next to target; returns its descriptor (-1 on failure).
int CreateTemp(const std::string& target, std::string& temp_path) {
  for (int attempt = 0; attempt < 100; ++attempt) {
    temp_path = target + ".tmp-" + std::to_string(::getpid()) + "-" +
                std::to_string(g_temp_counter.fetch_add(1));
    int fd = ::open(temp_path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (fd >= 0) return fd;
    if (errno != EEXIST) return -1;
  }
  return -1;
}

bool RenameNoReplace(const std::string& from, const std::string& to) {
  if (::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) return true;
  if (errno != EINVAL && errno != ENOSYS) return false;
  // File systems without RENAME_NOREPLACE: a hard link never replaces an existing name either.
  if (::link(from.c_str(), to.c_str()) != 0) return false;
  ::unlink(from.c_str());
  return true;
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
    if (RenameNoReplace(path, name)) {
      if (moved_to) *moved_to = name;
      SyncFolder(FolderOf(path));
      return true;
    }
    if (errno != EEXIST) return false;
  }
  return false;
}

bool WriteFileAtomically(const std::string& path_in, std::string_view content) {
  const std::string path = FollowLink(path_in);
  const std::string folder = FolderOf(path);
  std::error_code ec;
  std::filesystem::create_directories(folder, ec);  // a failure shows when the file is created

  std::string temp;
  int fd = CreateTemp(path, temp);
  if (fd < 0) return false;
  struct stat old;
  if (::stat(path.c_str(), &old) == 0) ::fchmod(fd, old.st_mode & 07777);  // keep the file's mode
  bool ok = WriteAll(fd, content) && ::fsync(fd) == 0;
  if (::close(fd) != 0) ok = false;
  if (ok) {
    std::lock_guard lock(g_hook_mutex);
    try {
      if (g_before_rename && !g_before_rename(temp)) ok = false;
    } catch (...) {
      ok = false;
    }
  }
  if (ok && ::rename(temp.c_str(), path.c_str()) != 0) ok = false;
  if (!ok) {
    ::unlink(temp.c_str());
    return false;
  }
  // The folder is not flushed after the rename: the new file's content is on disk before its
  // name replaces the old one, so after a crash the folder holds either the old file or the
  // new one, whole. Flushing the folder too would only make the new name durable sooner, at the
  // cost of a second disk wait on every OK.
  return true;
}

namespace testing {
void SetBeforeRenameHook(std::function<bool(const std::string& temp_path)> hook) {
  std::lock_guard lock(g_hook_mutex);
  g_before_rename = std::move(hook);
}
}  // namespace testing

}  // namespace kestra::idp

#include "services/fileio/atomic_file.h"

#include <dirent.h>
#include <fcntl.h>
#include <signal.h>
#include <stdio.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <filesystem>
#include <mutex>

namespace kestra::fileio {
namespace {

std::atomic<unsigned> g_temp_counter{0};
std::mutex g_hook_mutex;
std::function<bool(const std::string&)> g_before_publish;

std::error_code Errno(int err) { return {err, std::generic_category()}; }

std::string FolderOf(const std::string& path) {
  const auto slash = path.find_last_of('/');
  if (slash == std::string::npos) return ".";
  return slash == 0 ? "/" : path.substr(0, slash);
}

std::string NameOf(const std::string& path) {
  const auto slash = path.find_last_of('/');
  return slash == std::string::npos ? path : path.substr(slash + 1);
}

// "<path>.tmp-<pid>-<n>": the name a temporary of path's file has while it has a name.
std::string TempName(const std::string& path) {
  return path + ".tmp-" + std::to_string(::getpid()) + "-" + std::to_string(g_temp_counter.fetch_add(1));
}

// The process id of a temporary of `name` ("<name>.tmp-<pid>-<n>"), 0 when entry is none.
pid_t TempOwner(std::string_view entry, std::string_view name) {
  const std::string_view mark = ".tmp-";
  if (entry.size() <= name.size() + mark.size() || entry.substr(0, name.size()) != name ||
      entry.substr(name.size(), mark.size()) != mark)
    return 0;
  entry.remove_prefix(name.size() + mark.size());
  long long pid = 0;
  std::size_t i = 0;
  for (; i < entry.size() && entry[i] >= '0' && entry[i] <= '9' && pid < 1'000'000'000; ++i) pid = pid * 10 + (entry[i] - '0');
  if (i == 0 || i + 1 >= entry.size() || entry[i] != '-') return 0;
  for (++i; i < entry.size(); ++i)
    if (entry[i] < '0' || entry[i] > '9') return 0;
  return static_cast<pid_t>(pid);
}

// Removes the temporaries of path's file whose writers are gone (killed before they finished).
// A writer still running, in this process or another, keeps its own.
void RemoveDeadWritersTemps(const std::string& path) {
  const std::string folder = FolderOf(path);
  const std::string name = NameOf(path);
  DIR* dir = ::opendir(folder.c_str());
  if (!dir) return;
  while (const dirent* e = ::readdir(dir)) {
    const pid_t owner = TempOwner(e->d_name, name);
    if (owner <= 0 || owner == ::getpid()) continue;
    if (::kill(owner, 0) == -1 && errno == ESRCH) ::unlinkat(::dirfd(dir), e->d_name, 0);
  }
  ::closedir(dir);
}

bool WriteAll(int fd, std::string_view data, int& err) {
  while (!data.empty()) {
    const ssize_t n = ::write(fd, data.data(), data.size());
    if (n < 0 && errno == EINTR) continue;
    if (n <= 0) {
      err = n < 0 ? errno : EIO;
      return false;
    }
    data.remove_prefix(static_cast<std::size_t>(n));
  }
  return true;
}

// Gives an anonymous file a name; fails with EEXIST when the name is taken.
int LinkAnonymous(int fd, const std::string& path) {
  const std::string self = "/proc/self/fd/" + std::to_string(fd);
  return ::linkat(AT_FDCWD, self.c_str(), AT_FDCWD, path.c_str(), AT_SYMLINK_FOLLOW) == 0 ? 0 : errno;
}

}  // namespace

std::error_code RenameNoReplace(const std::string& from, const std::string& to) {
  if (::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) return {};
  if (errno != EINVAL && errno != ENOSYS && errno != ENOTSUP) return Errno(errno);
  // File systems without that rename: a hard link never replaces an existing name either.
  if (::link(from.c_str(), to.c_str()) != 0) return Errno(errno);
  ::unlink(from.c_str());
  return {};
}

std::string FollowLinks(const std::string& path) {
  std::string p = path;
  for (int hops = 0; hops < 40; ++hops) {
    struct stat st;
    if (::lstat(p.c_str(), &st) != 0 || !S_ISLNK(st.st_mode)) return p;
    std::string target(static_cast<std::size_t>(st.st_size > 0 ? st.st_size : 4095) + 1, '\0');
    const ssize_t n = ::readlink(p.c_str(), target.data(), target.size());
    if (n <= 0 || static_cast<std::size_t>(n) >= target.size()) return p;
    target.resize(static_cast<std::size_t>(n));
    p = target.front() == '/' ? target : FolderOf(p) + "/" + target;
  }
  return p;
}

PendingFile::PendingFile(const std::string& path) : folder_(FolderOf(path)) {
#ifdef O_TMPFILE
  // Without /proc an anonymous file could not be given its name later.
  if (::access("/proc/self/fd", X_OK) == 0) {
    fd_ = ::open(folder_.c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, 0666);
    if (fd_ >= 0) {
      anonymous_ = true;
      return;
    }
    // File systems without anonymous files say so in one of these ways; anything else is real.
    if (errno != EOPNOTSUPP && errno != EISDIR && errno != EINVAL) {
      error_ = Errno(errno);
      return;
    }
  }
#endif
  for (int attempt = 0; attempt < 100 && fd_ < 0; ++attempt) {
    temp_path_ = TempName(path);
    fd_ = ::open(temp_path_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (fd_ < 0 && errno != EEXIST) break;
  }
  if (fd_ < 0) {
    error_ = Errno(errno);
    temp_path_.clear();
  }
}

PendingFile::~PendingFile() {
  if (fd_ >= 0) ::close(fd_);
  if (!done_ && !temp_path_.empty()) ::unlink(temp_path_.c_str());
}

std::error_code PendingFile::Fail(int err) {
  if (fd_ >= 0) ::close(fd_);
  fd_ = -1;
  if (!temp_path_.empty()) ::unlink(temp_path_.c_str());
  temp_path_.clear();
  return error_ = Errno(err);
}

std::error_code PendingFile::Write(std::string_view bytes) {
  if (error_ || done_) return error_ ? error_ : Errno(EBADF);
  int err = 0;
  if (!WriteAll(fd_, bytes, err)) return Fail(err);
  flushed_ = false;
  return {};
}

// The bytes on disk before any name points at them; then the test hook.
std::error_code PendingFile::Flush(const std::string& target) {
  if (error_ || done_) return error_ ? error_ : Errno(EBADF);
  if (FolderOf(target) != folder_) return Errno(EXDEV);
  if (!flushed_) {
    if (::fsync(fd_) != 0) return Fail(errno);
    flushed_ = true;
  }
  std::lock_guard lock(g_hook_mutex);
  if (g_before_publish) {
    const std::string readable = anonymous_ ? "/proc/self/fd/" + std::to_string(fd_) : temp_path_;
    bool go = false;
    try {
      go = g_before_publish(readable);
    } catch (...) {
    }
    if (!go) return Fail(ECANCELED);
  }
  return {};
}

std::error_code PendingFile::PublishNew(const std::string& path) {
  if (std::error_code e = Flush(path)) return e;
  const int err = anonymous_ ? LinkAnonymous(fd_, path) : RenameNoReplace(temp_path_, path).value();
  if (err == EEXIST) return Errno(EEXIST);  // still waiting: another name may be free
  if (err != 0) return Fail(err);
  done_ = true;
  temp_path_.clear();
  RemoveDeadWritersTemps(path);
  return {};
}

std::error_code PendingFile::PublishReplacing(const std::string& path) {
  struct stat old;
  if (!flushed_ && fd_ >= 0 && ::lstat(path.c_str(), &old) == 0 && S_ISREG(old.st_mode))
    ::fchmod(fd_, old.st_mode & 07777);  // the file keeps its permissions
  if (std::error_code e = Flush(path)) return e;
  if (anonymous_) {
    // A name can only be given to an anonymous file where there is none: a temporary name
    // first, then the rename that replaces. Killed in between, the next write removes it.
    int err = EEXIST;
    for (int attempt = 0; attempt < 100 && err == EEXIST; ++attempt) err = LinkAnonymous(fd_, temp_path_ = TempName(path));
    if (err != 0) {
      temp_path_.clear();
      return Fail(err);
    }
  }
  if (::rename(temp_path_.c_str(), path.c_str()) != 0) return Fail(errno);
  done_ = true;
  temp_path_.clear();
  // The folder is not flushed after the rename: the content is on disk before the name moves,
  // so after a crash the folder holds the old file or the new one, whole; flushing the folder
  // too would only make the new name durable sooner, at the cost of a second disk wait.
  RemoveDeadWritersTemps(path);
  return {};
}

std::error_code ReplaceFile(const std::string& path, std::string_view bytes) {
  const std::string target = FollowLinks(path);
  std::error_code ignored;
  std::filesystem::create_directories(FolderOf(target), ignored);  // a failure shows just below
  PendingFile file(target);
  if (std::error_code e = file.error()) return e;
  if (std::error_code e = file.Write(bytes)) return e;
  return file.PublishReplacing(target);
}

std::error_code CreateNewFile(const std::string& path, std::string_view bytes) {
  PendingFile file(path);
  if (std::error_code e = file.error()) return e;
  if (std::error_code e = file.Write(bytes)) return e;
  return file.PublishNew(path);
}

namespace testing {
void SetBeforePublishHook(std::function<bool(const std::string& pending_path)> hook) {
  std::lock_guard lock(g_hook_mutex);
  g_before_publish = std::move(hook);
}
}  // namespace testing

}  // namespace kestra::fileio

#pragma once
// The one way the program writes a file: the bytes go to a file without a name in the target's
// folder, are flushed to disk, and only then get their name, so a reader, a crash or a killed
// writer sees the old file or the new one, whole, never a part of either. Parameter files,
// catalogues and reports are all written this way.
//
// The file without a name is an anonymous temporary file (O_TMPFILE) where the file system has
// them, linked into place; elsewhere it is "<name>.tmp-<pid>-<n>" beside the target, renamed into
// place. Such a temporary left by a writer that was killed is removed by the next successful
// write of the same file.
#include <functional>
#include <string>
#include <string_view>
#include <system_error>

namespace kestra::fileio {

// Replaces the file at path with bytes, or creates it.
// - A symbolic link at path stays a link: the file it points at is written, and created when
//   the link dangles.
// - A replaced file keeps its permission bits; a new file gets 0666 less the umask.
// - A missing folder is created.
// On failure the old file is as it was, no temporary file is left, and the error is returned.
std::error_code ReplaceFile(const std::string& path, std::string_view bytes);

// Creates a new file at path with bytes, never in place of anything that exists there
// (std::errc::file_exists then).
std::error_code CreateNewFile(const std::string& path, std::string_view bytes);

// Renames from to `to` unless something has that name (std::errc::file_exists then).
std::error_code RenameNoReplace(const std::string& from, const std::string& to);

// A file's bytes, written and flushed in a folder, waiting for their name. For writers that
// need the folder checked before they have their bytes, or that try several names.
class PendingFile {
 public:
  // A new file in the folder of `path`; error() tells when none can be made there.
  explicit PendingFile(const std::string& path);
  ~PendingFile();  // a file that never got its name is gone with it
  PendingFile(const PendingFile&) = delete;
  PendingFile& operator=(const PendingFile&) = delete;

  std::error_code error() const { return error_; }
  // Appends bytes.
  std::error_code Write(std::string_view bytes);
  // Gives the file the name `path` (in the same folder) unless something has that name:
  // std::errc::file_exists then, and the file keeps waiting, so another name can be tried.
  std::error_code PublishNew(const std::string& path);
  // Gives the file the name `path` (in the same folder) in place of the file there, whose
  // permission bits it takes; a symbolic link there is replaced, not followed.
  std::error_code PublishReplacing(const std::string& path);

 private:
  std::error_code Flush(const std::string& target);
  std::error_code Fail(int err);

  std::string folder_;
  std::string temp_path_;  // the temporary's name, when it has one
  int fd_ = -1;
  bool anonymous_ = false;
  bool flushed_ = false;
  bool done_ = false;
  std::error_code error_;
};

// The file a path names once symbolic links are followed (up to 40 of them), also when the
// last one dangles: the path the writers above write to.
std::string FollowLinks(const std::string& path);

namespace testing {
// Called after the bytes are flushed, before the file gets its name, with a path that reads the
// waiting bytes. Returning false makes the write fail there (std::errc::operation_canceled).
// For tests that interrupt a write; an empty function removes it.
void SetBeforePublishHook(std::function<bool(const std::string& pending_path)> hook);
}  // namespace testing

}  // namespace kestra::fileio

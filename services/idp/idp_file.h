#pragma once
// The file side of parameter files: whole-file reads and keeping an unreadable file aside, so
// that a designer's inputs are never lost. Files are written with kestra::fileio::ReplaceFile.
#include <cstdint>
#include <string>
#include <string_view>

namespace kestra::idp {

enum class ReadResult { kOk, kMissing, kFailed };

// Which file a read saw (device and inode), to tell whether a path still names it.
struct FileId {
  std::uint64_t device = 0;
  std::uint64_t inode = 0;
};

// Reads the whole file into out (and its identity into id). kMissing when there is no such file,
// kFailed for anything that is not a regular file (a FIFO, a device, a folder).
ReadResult ReadWholeFile(const std::string& path, std::string& out, FileId* id = nullptr);

// Renames path to "<path>.unreadable-<YYYYmmdd-HHMMSS>[-N]" in the same folder, never over an
// existing file; the new name goes to moved_to. Only moves the file when it is still the one
// that was read (same device and inode as `expected`, from ReadWholeFile's stat), so a good
// file that a writer has just put in its place stays. False when nothing was moved.
bool MoveAside(const std::string& path, const FileId& expected, std::string* moved_to);

}  // namespace kestra::idp

#pragma once
// A new report file: it appears complete or not at all, and never in place of another file.
// When its name is taken by the time the document is ready (another writer got there first),
// it takes the next free one: " (2)", " (3)", … before the extension.
#include <string>
#include <string_view>

#include "services/fileio/atomic_file.h"

namespace kestra::report {

class NewFile {
 public:
  // Prepares the file beside `path`. Throws COleException (the errno as status code) when the
  // folder does not take a new file.
  explicit NewFile(std::string path);

  // Writes the bytes and gives the file its name. Throws COleException on any error; nothing
  // is left then.
  void Commit(std::string_view bytes);

  // The name the file has (after Commit: the one it got).
  const std::string& path() const { return path_; }

 private:
  std::string path_;
  fileio::PendingFile file_;
};

}  // namespace kestra::report

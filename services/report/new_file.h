#pragma once
// A file that appears at its path complete or not at all, and never in place of another file:
// written to a temporary file in the same folder, flushed to disk, then given its name with a
// rename that refuses to replace (renameat2 RENAME_NOREPLACE; link + unlink where the file
// system has no such rename).
#include <string>
#include <string_view>

namespace kestra::report {

class NewFile {
 public:
  // Creates the temporary file beside `path`. Throws COleException (the errno as status code)
  // when `path` exists already (EEXIST) or the folder does not take a new file.
  explicit NewFile(std::string path);
  ~NewFile();  // removes the temporary file unless committed
  NewFile(const NewFile&) = delete;
  NewFile& operator=(const NewFile&) = delete;

  // Writes the bytes and gives the file its name. Throws COleException on any error (EEXIST when
  // the name was taken meanwhile); the temporary file is removed then, and nothing is left.
  void Commit(std::string_view bytes);

  const std::string& path() const { return path_; }

 private:
  void Discard();

  std::string path_;
  std::string temp_path_;
  int fd_ = -1;
  bool committed_ = false;
};

}  // namespace kestra::report

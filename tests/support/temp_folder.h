#pragma once
// A fresh folder for one test under the system's temporary folder, made by mkdtemp so that
// tests running at once (ctest -j, two checkouts) never share one, and removed with all it
// holds; and the small file helpers the tests use on it.
#include <stdlib.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <vector>

namespace kestra::testing {

class TempFolder {
 public:
  explicit TempFolder(const std::string& prefix = "kestra") {
    std::string pattern = (std::filesystem::temp_directory_path() / (prefix + "_XXXXXX")).string();
    if (!::mkdtemp(pattern.data())) throw std::runtime_error("cannot make a temporary folder " + pattern);
    path_ = pattern;
  }
  ~TempFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;

  const std::filesystem::path& path() const { return path_; }
  std::string operator/(const std::string& name) const { return (path_ / name).string(); }
  // Names of the folder's entries, sorted.
  std::vector<std::string> Entries() const {
    std::vector<std::string> names;
    for (const auto& e : std::filesystem::directory_iterator(path_)) names.push_back(e.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
  }

 private:
  std::filesystem::path path_;
};

// Writes bytes to a file, making its folder first.
inline void WriteFile(const std::filesystem::path& path, const std::string& bytes) {
  std::filesystem::create_directories(path.parent_path());
  std::ofstream(path, std::ios::binary | std::ios::trunc) << bytes;
}

inline std::string ReadFile(const std::filesystem::path& path) {
  std::ifstream in(path, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(in), {});
}

}  // namespace kestra::testing

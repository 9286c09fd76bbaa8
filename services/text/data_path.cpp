#include "services/text/data_path.h"

#include <dirent.h>
#include <sys/stat.h>

#include <filesystem>
#include <vector>

namespace kestra::text {
namespace {

bool IsSep(char c) { return c == '\\' || c == '/'; }

char Lower(char c) { return (c >= 'A' && c <= 'Z') ? static_cast<char>(c - 'A' + 'a') : c; }

bool Exists(const std::string& p) {
  struct stat st;
  return ::lstat(p.c_str(), &st) == 0;
}

// The entry of dir whose name equals name without regard to ASCII case; exact match first.
std::string FindEntry(const std::string& dir, const std::string& name) {
  std::string exact = dir.empty() ? name : (dir == "/" ? "/" + name : dir + "/" + name);
  if (Exists(exact)) return name;
  DIR* d = ::opendir(dir.empty() ? "." : dir.c_str());
  if (!d) return {};
  std::string found;
  while (dirent* e = ::readdir(d)) {
    if (EqualsNoCase(e->d_name, name)) {
      found = e->d_name;
      break;
    }
  }
  ::closedir(d);
  return found;
}

}  // namespace

bool EqualsNoCase(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i)
    if (Lower(a[i]) != Lower(b[i])) return false;
  return true;
}

std::string DataRootOfModule(std::string_view module_path) {
  std::string s(module_path);
  for (int cut = 0; cut < 2; ++cut) {
    auto pos = s.find_last_of("\\/");
    if (pos != std::string::npos) s.resize(pos);
  }
  return s;
}

std::string FullPath(std::string_view path) {
  if (path.empty()) return {};
  std::error_code e;
  const std::filesystem::path full = std::filesystem::absolute(std::filesystem::path(path), e);
  return e ? std::string(path) : full.lexically_normal().string();
}

std::string JoinDataRoot(std::string_view root, std::string_view rel) {
  std::string s(root);
  bool root_sep = !s.empty() && IsSep(s.back());
  bool rel_sep = !rel.empty() && IsSep(rel.front());
  if (!root_sep && !rel_sep) s += '\\';
  s += rel;
  return s;
}

std::string ResolvePath(std::string_view path) {
  std::vector<std::string> parts;
  std::string cur;
  for (char c : path) {
    if (IsSep(c)) {
      if (!cur.empty()) parts.push_back(cur);
      cur.clear();
    } else {
      cur += c;
    }
  }
  if (!cur.empty()) parts.push_back(cur);
  std::string out = (!path.empty() && IsSep(path.front())) ? "/" : "";
  bool on_disk = true;
  for (std::size_t i = 0; i < parts.size(); ++i) {
    std::string name = parts[i];
    if (on_disk) {
      std::string real = FindEntry(out.empty() ? std::string() : out, name);
      if (real.empty()) on_disk = false;
      else name = real;
    }
    if (!out.empty() && out.back() != '/') out += '/';
    out += name;
  }
  return out;
}

std::string DataPath(std::string_view root, std::string_view rel) { return ResolvePath(JoinDataRoot(root, rel)); }

bool IsSpecialFile(const std::string& path) {
  struct stat st;
  return ::stat(path.c_str(), &st) == 0 && !S_ISREG(st.st_mode);
}

}  // namespace kestra::text

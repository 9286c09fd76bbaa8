#include "services/report/report_target.h"

#include <sys/stat.h>

#include <iostream>
#include <string>

namespace kestra::report {
namespace {

// The longest title in bytes: the name also holds the date, a counter and ".docx".
constexpr std::size_t kMaxTitleBytes = 200;

std::string FileTitle(std::string_view title) {
  std::string s;
  for (const char c : title) {
    const auto u = static_cast<unsigned char>(c);
    const bool bad = u < 0x20 || u == 0x7F || std::string_view("\\/:*?\"<>|").find(c) != std::string_view::npos;
    s += bad ? '_' : c;
  }
  const auto blank_or_dot = [](char c) { return c == ' ' || c == '.'; };
  while (!s.empty() && blank_or_dot(s.back())) s.pop_back();
  std::size_t lead = 0;
  while (lead < s.size() && blank_or_dot(s[lead])) ++lead;
  s.erase(0, lead);
  if (s.size() > kMaxTitleBytes) {
    std::size_t cut = kMaxTitleBytes;
    while (cut > 0 && (static_cast<unsigned char>(s[cut]) & 0xC0) == 0x80) --cut;  // not inside a character
    s.resize(cut);
  }
  return s.empty() ? std::string("计算书") : s;
}

bool Exists(const std::string& path) {
  struct stat st;
  return ::lstat(path.c_str(), &st) == 0;
}

}  // namespace

std::string UniqueReportPath(const std::string& dir, std::string_view title, const std::tm& local_time) {
  char stamp[32];
  std::strftime(stamp, sizeof stamp, " %Y-%m-%d %H%M%S", &local_time);
  std::string base = dir;
  if (!base.empty() && base.back() != '/') base += '/';
  base += FileTitle(title);
  base += stamp;
  std::string path = base + ".docx";
  while (Exists(path)) path = NextFreeCandidate(path);
  return path;
}

std::string NextFreeCandidate(const std::string& path) {
  const std::size_t dot = path.rfind('.');
  const std::size_t slash = path.rfind('/');
  const bool has_ext = dot != std::string::npos && (slash == std::string::npos || dot > slash);
  std::string stem = has_ext ? path.substr(0, dot) : path;
  const std::string ext = has_ext ? path.substr(dot) : std::string();
  int n = 2;
  // " (n)" at the end of the stem is the counter of an earlier candidate.
  if (!stem.empty() && stem.back() == ')') {
    const std::size_t open = stem.rfind(" (");
    if (open != std::string::npos && open + 3 < stem.size()) {
      const std::string digits = stem.substr(open + 2, stem.size() - open - 3);
      if (digits.size() < 9 && digits.find_first_not_of("0123456789") == std::string::npos) {
        n = std::stoi(digits) + 1;
        stem.resize(open);
      }
    }
  }
  return stem + " (" + std::to_string(n) + ")" + ext;
}

std::string UniqueReportPath(const std::string& dir, std::string_view title, std::time_t time) {
  std::tm tm{};
  localtime_r(&time, &tm);
  return UniqueReportPath(dir, title, tm);
}

void ReportTarget::ShowFailureCause(const std::string& cause) {
  std::cerr << "kestra: the report was not written: " << cause << std::endl;
}

}  // namespace kestra::report

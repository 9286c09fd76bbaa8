#include "services/idp/idp_text.h"

#include <climits>
#include <cstdint>
#include <cstring>

namespace kestra::idp {
namespace {

// Length of the UTF-8 sequence that starts with b (0 when b cannot start one).
int SequenceLength(unsigned char b) {
  if (b < 0x80) return 1;
  if (b >= 0xC2 && b <= 0xDF) return 2;
  if (b >= 0xE0 && b <= 0xEF) return 3;
  if (b >= 0xF0 && b <= 0xF4) return 4;
  return 0;
}

}  // namespace

bool IsValidUtf8(std::string_view s) {
  const auto* p = reinterpret_cast<const unsigned char*>(s.data());
  std::size_t n = s.size();
  std::size_t i = 0;
  while (i < n) {
    // Runs of ASCII, eight bytes at a time.
    while (i + 8 <= n) {
      std::uint64_t word;
      std::memcpy(&word, p + i, 8);
      if (word & 0x8080808080808080ULL) break;
      i += 8;
    }
    if (i == n) break;
    unsigned char b = p[i];
    if (b < 0x80) {
      ++i;
      continue;
    }
    int len = SequenceLength(b);
    if (len == 0 || i + len > n) return false;
    for (int k = 1; k < len; ++k)
      if ((p[i + k] & 0xC0) != 0x80) return false;
    unsigned char b1 = p[i + 1];
    if (b == 0xE0 && b1 < 0xA0) return false;   // overlong
    if (b == 0xED && b1 >= 0xA0) return false;  // UTF-16 surrogate
    if (b == 0xF0 && b1 < 0x90) return false;   // overlong
    if (b == 0xF4 && b1 >= 0x90) return false;  // above U+10FFFF
    i += len;
  }
  return true;
}

std::size_t Utf16Units(std::string_view s) {
  std::size_t units = 0;
  for (unsigned char b : s) {
    if ((b & 0xC0) == 0x80) continue;  // continuation byte
    units += (b >= 0xF0) ? 2 : 1;      // four-byte sequences are surrogate pairs
  }
  return units;
}

short StoredLength(std::string_view text) {
  std::size_t len = Utf16Units(text) + 1;
  return len > SHRT_MAX ? SHRT_MAX : static_cast<short>(len);
}

bool IsKeyName(std::string_view name) {
  if (name.empty()) return false;
  for (unsigned char c : name)
    if (c == '=' || c == '\\' || c < 0x20 || c == 0x7F) return false;
  return true;
}

std::optional<std::vector<std::string_view>> SplitKeyPath(std::string_view key_path) {
  if (key_path.empty() || key_path.size() > kMaxKeyPathBytes || key_path.front() == ';' || !IsValidUtf8(key_path))
    return std::nullopt;
  std::vector<std::string_view> names;
  std::size_t start = 0;
  while (true) {
    std::size_t end = key_path.find('\\', start);
    std::string_view name = key_path.substr(start, end == std::string_view::npos ? end : end - start);
    if (!IsKeyName(name) || names.size() == kMaxKeyDepth) return std::nullopt;
    names.push_back(name);
    if (end == std::string_view::npos) break;
    start = end + 1;
  }
  return names;
}

void AppendEscaped(std::string& out, std::string_view value) {
  for (char c : value) {
    switch (c) {
      case '\\': out += "\\\\"; break;
      case '\n': out += "\\n"; break;
      case '\r': out += "\\r"; break;
      case '\t': out += "\\t"; break;
      default: out += c;
    }
  }
}

bool Unescape(std::string_view line_value, std::string& out) {
  if (line_value.find('\\') == std::string_view::npos) {
    out.assign(line_value);
    return true;
  }
  out.clear();
  out.reserve(line_value.size());
  for (std::size_t i = 0; i < line_value.size(); ++i) {
    char c = line_value[i];
    if (c != '\\') {
      out += c;
      continue;
    }
    if (++i == line_value.size()) return false;
    switch (line_value[i]) {
      case '\\': out += '\\'; break;
      case 'n': out += '\n'; break;
      case 'r': out += '\r'; break;
      case 't': out += '\t'; break;
      default: return false;
    }
  }
  return true;
}

}  // namespace kestra::idp

#include "services/report/xml_text.h"

namespace kestra::report {
namespace {

constexpr std::string_view kReplacement = "\xEF\xBF\xBD";

// The length of the well-formed UTF-8 sequence at s[i] and its code point; 0 when malformed.
std::size_t DecodeUtf8(std::string_view s, std::size_t i, char32_t& cp) {
  const auto b = [&](std::size_t k) { return static_cast<unsigned char>(s[i + k]); };
  const unsigned char c = b(0);
  std::size_t len;
  char32_t min;
  if (c < 0x80) {
    cp = c;
    return 1;
  } else if (c >= 0xC2 && c <= 0xDF) {
    len = 2, cp = c & 0x1F, min = 0x80;
  } else if (c >= 0xE0 && c <= 0xEF) {
    len = 3, cp = c & 0x0F, min = 0x800;
  } else if (c >= 0xF0 && c <= 0xF4) {
    len = 4, cp = c & 0x07, min = 0x10000;
  } else {
    return 0;
  }
  if (i + len > s.size()) return 0;
  for (std::size_t k = 1; k < len; ++k) {
    if ((b(k) & 0xC0) != 0x80) return 0;
    cp = (cp << 6) | (b(k) & 0x3F);
  }
  if (cp < min || cp > 0x10FFFF || (cp >= 0xD800 && cp <= 0xDFFF)) return 0;
  return len;
}

}  // namespace

void AppendXmlEscaped(std::string& out, std::string_view text) {
  for (std::size_t i = 0; i < text.size();) {
    const char c = text[i];
    if (static_cast<unsigned char>(c) < 0x80) {
      switch (c) {
        case '&': out += "&amp;"; break;
        case '<': out += "&lt;"; break;
        case '>': out += "&gt;"; break;
        case '"': out += "&quot;"; break;
        default:
          if (static_cast<unsigned char>(c) >= 0x20 || c == '\t' || c == '\n' || c == '\r') out += c;
      }
      ++i;
      continue;
    }
    char32_t cp = 0;
    const std::size_t len = DecodeUtf8(text, i, cp);
    if (len == 0) {
      out += kReplacement;
      ++i;
    } else {
      if (cp != 0xFFFE && cp != 0xFFFF) out.append(text.substr(i, len));
      i += len;
    }
  }
}

std::string XmlEscaped(std::string_view text) {
  std::string out;
  out.reserve(text.size());
  AppendXmlEscaped(out, text);
  return out;
}

}  // namespace kestra::report

#pragma once
// The text of a written report as a reader sees it: word/document.xml without its mark-up,
// tabs as "\t" and each paragraph on a line of its own.
#include <regex>
#include <string>
#include <utility>

#include "tests/report/zip_reader.h"

namespace kestra::report::testing {

inline std::string DocumentText(const std::string& docx) {
  const auto xml = ReadZipMember(docx, "word/document.xml");
  if (!xml) return "<unreadable>";
  static const std::regex piece("<w:t(?: [^>]*)?>([^<]*)</w:t>|<w:tab/>|</w:p>");
  static const std::pair<const char*, const char*> entities[] = {
      {"&quot;", "\""}, {"&apos;", "'"}, {"&lt;", "<"}, {"&gt;", ">"}, {"&amp;", "&"}};
  std::string out;
  for (std::sregex_iterator it(xml->begin(), xml->end(), piece), end; it != end; ++it) {
    std::string text = (*it)[0] == "<w:tab/>" ? "\t" : (*it)[0] == "</w:p>" ? "\n" : (*it)[1].str();
    for (const auto& [entity, c] : entities)
      for (std::size_t at; (at = text.find(entity)) != std::string::npos;) text.replace(at, std::string(entity).size(), c);
    out += text;
  }
  return out;
}

}  // namespace kestra::report::testing

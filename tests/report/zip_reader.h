#pragma once
// Reads the members of a zip package back, for checking what the report backend wrote.
#include <zip.h>

#include <optional>
#include <regex>
#include <string>
#include <utility>
#include <vector>

namespace kestra::report::testing {

inline std::optional<std::string> ReadZipMember(const std::string& zip_path, const std::string& name) {
  int err = 0;
  zip_t* za = zip_open(zip_path.c_str(), ZIP_RDONLY | ZIP_CHECKCONS, &err);
  if (za == nullptr) return std::nullopt;
  std::optional<std::string> out;
  zip_stat_t st;
  if (zip_stat(za, name.c_str(), 0, &st) == 0) {
    if (zip_file_t* f = zip_fopen(za, name.c_str(), 0)) {
      std::string data(static_cast<std::size_t>(st.size), '\0');
      if (zip_fread(f, data.data(), data.size()) == static_cast<zip_int64_t>(data.size())) out = std::move(data);
      zip_fclose(f);
    }
  }
  zip_close(za);
  return out;
}

inline std::vector<std::string> ZipMemberNames(const std::string& zip_path) {
  std::vector<std::string> names;
  int err = 0;
  zip_t* za = zip_open(zip_path.c_str(), ZIP_RDONLY | ZIP_CHECKCONS, &err);
  if (za == nullptr) return names;
  const zip_int64_t n = zip_get_num_entries(za, 0);
  for (zip_int64_t i = 0; i < n; ++i) names.emplace_back(zip_get_name(za, static_cast<zip_uint64_t>(i), 0));
  zip_close(za);
  return names;
}

// The text of a report's word/document.xml as a reader sees it: without its mark-up, entities
// decoded, tabs as "\t", each paragraph ended by a line feed.
inline std::string DocumentText(const std::string& docx) {
  const std::optional<std::string> xml = ReadZipMember(docx, "word/document.xml");
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

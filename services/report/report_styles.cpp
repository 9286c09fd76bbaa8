#include "services/report/report_styles.h"

#include <array>

#include "services/report/report_document.h"
#include "services/text/data_path.h"

namespace kestra::report {
namespace {

struct StyleEntry {
  StyleInfo info;
  std::string_view chinese_name;
};

constexpr std::array<StyleEntry, 3> kStyles{{
    {{"Normal", "Normal", "Normal", -1, kAlignJustify}, "正文"},
    {{"Heading1", "heading 1", "Normal", 0, kAlignCenter}, "标题 1"},
    {{"Heading2", "heading 2", "Normal", 1, kAlignLeft}, "标题 2"},
}};

}  // namespace

const StyleInfo* FindStyle(std::string_view name) {
  for (const StyleEntry& s : kStyles) {
    if (text::EqualsNoCase(name, s.info.name) || name == s.chinese_name ||
        text::EqualsNoCase(name, s.info.id)) {
      return &s.info;
    }
  }
  return nullptr;
}

const StyleInfo* StyleById(std::string_view id) {
  for (const StyleEntry& s : kStyles) {
    if (s.info.id == id) return &s.info;
  }
  return nullptr;
}

}  // namespace kestra::report

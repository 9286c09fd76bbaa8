#pragma once
// The XML parts of a report's WordprocessingML package (.docx).
#include <ctime>
#include <string>
#include <string_view>

#include "services/report/project_info.h"
#include "services/report/report_document.h"

namespace kestra::report {

// The East Asian font of a document that sets none: Word's Chinese body font.
inline constexpr std::string_view kDefaultEastAsianFont = "宋体";
// The East Asian font of the headings (by their style; a document font overrides it).
inline constexpr std::string_view kHeadingEastAsianFont = "黑体";

struct PackageInfo {
  std::string title;        // docProps/core.xml title
  std::time_t created = 0;  // creation time, written in UTC
};

std::string ContentTypesXml();
std::string PackageRelsXml();
std::string DocumentRelsXml();
std::string DocumentXml(const ReportDocument& doc);
std::string StylesXml(const ReportDocument& doc);
std::string SettingsXml();
// The page header: the project's title block as a small table, labels over values.
std::string HeaderXml(const ProjectInfo& project);
std::string FooterXml();
std::string CorePropertiesXml(const PackageInfo& info);
std::string AppPropertiesXml();

}  // namespace kestra::report

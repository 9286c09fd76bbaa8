#pragma once
// The project a designer works on, as a checker expects it on every calculation sheet: the
// project, the design stage, who designed, who checked, and the date. Kept once in a project
// file under the data root and printed in the page header of every report.
#include <array>
#include <string>
#include <string_view>

namespace kestra::report {

// The project file, under the data root.
inline constexpr const char* kProjectFile = "Kestra\\工程信息.idp";

// The fields in the order of the page header's table: the key in the project file (also the
// label in the header) and the short name `kestra project set` takes as well.
struct ProjectField {
  const char* key;
  const char* alias;
};
inline constexpr std::array<ProjectField, 5> kProjectFields{{
    {"工程名称", "project"},
    {"设计阶段", "stage"},
    {"设计", "designer"},
    {"校对", "checker"},
    {"日期", "date"},
}};

// One value per field of kProjectFields; empty when not set.
struct ProjectInfo {
  std::array<std::string, kProjectFields.size()> values;
  bool operator==(const ProjectInfo&) const = default;
};

// The field a key or short name names (ASCII case ignored), or -1.
int ProjectFieldIndex(std::string_view key);

// The project file's values; all blank when there is no file (or it cannot be read).
ProjectInfo ReadProjectInfo(const std::string& path);

// Stores one value in the project file, creating it (and its folder) when missing; the other
// values stay. False, with the reason in `error`, for an unknown key, a value that is not one
// line of UTF-8 text, or a file that cannot be written (the old one is then unchanged).
bool SetProjectValue(const std::string& path, std::string_view key, const std::string& value, std::string* error);

}  // namespace kestra::report

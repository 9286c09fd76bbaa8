#include "services/report/project_info.h"

#include "services/idp/idp_values.h"
#include "services/idp/inter_dp_data.h"
#include "services/text/data_path.h"

namespace kestra::report {

int ProjectFieldIndex(std::string_view key) {
  for (std::size_t i = 0; i < kProjectFields.size(); ++i)
    if (key == kProjectFields[i].key || text::EqualsNoCase(key, kProjectFields[i].alias)) return static_cast<int>(i);
  return -1;
}

ProjectInfo ReadProjectInfo(const std::string& path) {
  CInterDpData tree;
  tree.ReadDataFromIdpFile(path);
  ProjectInfo info;
  for (std::size_t i = 0; i < kProjectFields.size(); ++i)
    info.values[i] = kestra::idp::ValueOr(tree, kProjectFields[i].key, "");
  return info;
}

bool SetProjectValue(const std::string& path, std::string_view key, const std::string& value, std::string* error) {
  auto fail = [&](std::string why) {
    if (error) *error = std::move(why);
    return false;
  };
  const int field = ProjectFieldIndex(key);
  if (field < 0) {
    std::string known;
    for (const ProjectField& f : kProjectFields) known += std::string(known.empty() ? "" : ", ") + f.key + " (" + f.alias + ")";
    return fail("unknown project field \"" + std::string(key) + "\"; the fields are " + known);
  }
  if (value.find_first_of("\r\n") != std::string::npos) return fail("a project value is one line of text");
  CInterDpData tree;
  const short read = tree.ReadDataFromIdpFile(path);
  if (read == kestra::idp::kReadFailed) return fail("cannot read the project file " + path);
  if (kestra::idp::SetValue(tree, kProjectFields[static_cast<std::size_t>(field)].key, value) != kestra::idp::kOk)
    return fail("the value is not UTF-8 text");
  if (tree.WriteDataToIdpFile(path) != kestra::idp::kOk) return fail("cannot write the project file " + path);
  return true;
}

}  // namespace kestra::report

#include "host/core/project_command.h"

#include "services/report/project_info.h"
#include "services/text/data_path.h"

namespace kestra::host {

int RunProjectCommand(const std::vector<std::string>& args, const std::string& data_root, std::ostream& out,
                      std::ostream& err) {
  using namespace kestra::report;
  const std::string file = text::DataPath(data_root, kProjectFile);
  if (args.size() == 1 && args[0] == "show") {
    const ProjectInfo info = ReadProjectInfo(file);
    out << file << '\n';
    for (std::size_t i = 0; i < kProjectFields.size(); ++i) out << kProjectFields[i].key << " = " << info.values[i] << '\n';
    return 0;
  }
  if (args.size() == 3 && args[0] == "set") {
    std::string why;
    if (SetProjectValue(file, args[1], args[2], &why)) return 0;
    err << "kestra project: " << why << '\n';
    return 1;
  }
  err << "usage: kestra project show\n"
         "       kestra project set KEY VALUE    KEY: 工程名称 设计阶段 设计 校对 日期\n"
         "                                       (or project stage designer checker date)\n";
  return 1;
}

}  // namespace kestra::host

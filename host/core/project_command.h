#pragma once
// `kestra project ...`: the title block of the reports, set once from the command line.
//   kestra project show               the project file and its values, one "KEY = VALUE" a line
//   kestra project set KEY VALUE      KEY: 工程名称 设计阶段 设计 校对 日期 (or project stage
//                                     designer checker date); an empty VALUE clears it
#include <ostream>
#include <string>
#include <vector>

namespace kestra::host {

// Runs the words after "project" on the project file of a data root; 0, or 1 with a reason on
// `err`.
int RunProjectCommand(const std::vector<std::string>& args, const std::string& data_root, std::ostream& out,
                      std::ostream& err);

}  // namespace kestra::host

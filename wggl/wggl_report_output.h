#pragma once
// Hands the report blocks of the calculator to the report writer.
#include <functional>
#include <string>

#include "services/report/report_blocks.h"

namespace kestra::wggl {

// Writes the blocks as a new report titled "无功功率补偿计算书" in the place the current dialog
// host gives; failures reach the designer through show_message (default caption, OK button).
void OutputWgglReport(const report::Blocks& blocks, const std::function<void(const std::string&)>& show_message);

}  // namespace kestra::wggl

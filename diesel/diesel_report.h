#pragma once
// The generator-capacity calculation report: all three methods with the values of each page's
// last calculation, as report blocks for the report writer.
#include <string>

#include "diesel/diesel_formulas.h"
#include "services/report/report_blocks.h"

namespace kestra::diesel {

inline constexpr const char* kReportTitle = "柴油发电机组容量计算";

// results: Calculate(inputs). date: the day of the run as "%Y-%m-%d", shown after "计算时间: ".
report::Blocks BuildDieselReport(const DieselInputs& inputs, const DieselResults& results, const std::string& date);

// Today in local time as "%Y-%m-%d".
std::string TodayText();

}  // namespace kestra::diesel

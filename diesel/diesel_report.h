#pragma once
// The generator-capacity calculation report: all three methods with the values of each
// calculator's last calculation, as report blocks for the report writer.
#include <string>

#include "diesel/diesel_calculators.h"
#include "services/report/report_blocks.h"

namespace kestra::diesel {

inline constexpr const char* kReportTitle = "柴油发电机组容量计算";

// date: the day of the run as "%Y-%m-%d", shown after "计算时间: ".
kestra::report::Blocks BuildDieselReport(const ZoUiWDFHCal& steady, const ZoUiJFFHCal& peak,
                                         const ZoUiMXYXYJCal& bus_drop, const std::string& date);

// Today in local time as "%Y-%m-%d".
std::string TodayText();

}  // namespace kestra::diesel

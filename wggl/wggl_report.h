#pragma once
// The reactive compensation calculation report ("计算书") as report blocks.
#include <optional>

#include "services/report/report_blocks.h"
#include "wggl/wggl_formulas.h"

namespace kestra::wggl {

inline constexpr const char* kWgglReportTitle = "无功功率补偿计算书";

// Title, basis, given values, formulas with the derivation, results; the result block ends
// the report. results: a calculation that was not refused (the dialog writes no report
// otherwise). last_bank: the last capacitor count since the dialog opened; without one the
// count and the actual capacity are left blank, as the dialog leaves them.
report::Blocks BuildWgglReport(const WgglResults& results, const std::optional<CapacitorBank>& last_bank);

}  // namespace kestra::wggl

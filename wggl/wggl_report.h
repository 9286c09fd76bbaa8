#pragma once
// The reactive compensation calculation report ("计算书") as report blocks, from the values the
// dialog holds after its calculation.
#include <optional>

#include "services/report/report_blocks.h"

namespace kestra::wggl {

// Which source the natural power factor was derived from (the radio pair of the dialog).
enum class SystemKind { None = -1, Designing = 0, InUse = 1 };

struct WgglReportValues {
  double cos_phi1 = 0;  // natural average power factor
  double cos_phi2 = 0;  // power factor after compensation
  double alpha = 0;     // load coefficient α
  double p_js = 0;      // active calculated load, kW
  SystemKind system = SystemKind::None;
  double alpha_p = 0;   // active load coefficient α' of the design sub-dialog
  double beta_q = 0;    // reactive load coefficient β
  double q_js = 0;      // reactive calculated load, kVar
  double w_m = 0;       // a year's active energy, kW.h
  double w_rm = 0;      // a year's reactive energy, kVar.h
  double rating = 0;    // rating of one capacitor q, kVar
  // The last capacitor count since the dialog opened; empty while none was computed (the
  // dialog's edits are then empty too, and the report leaves the values blank as they are).
  std::optional<double> count;
  std::optional<double> actual_capacity;
};

inline constexpr const char* kWgglReportTitle = "无功功率补偿计算书";

// Title, basis, given values, formulas with the derivation, results; the result block ends
// the report.
report::Blocks BuildWgglReport(const WgglReportValues& v);

}  // namespace kestra::wggl

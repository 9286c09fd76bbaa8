#pragma once
// One circuit of a distribution board schedule: its voltage loss Δu by the voltage-loss page's
// formula (current moment I·l, or load moment P·l), the longest line that keeps the allowed loss
// by the line-length page's formula, and the verdict. The dialogs' own checks refuse what they
// would refuse, with their messages.
#include <array>
#include <optional>
#include <string>
#include <vector>

#include "batch/catalogues.h"
#include "batch/schedule.h"

namespace kestra::batch {

// The schedule's columns.
namespace loss_col {
inline constexpr const char* kName = "回路";
inline constexpr const char* kKind = "线路种类";
inline constexpr const char* kTable = "线路表";
inline constexpr const char* kIndex[3] = {"索引1", "索引2", "索引3"};
inline constexpr const char* kLine[3] = {"电阻Ω/km", "感抗Ω/km", "电压kV"};
inline constexpr const char* kCurrent = "电流A";
inline constexpr const char* kLoad = "有功kW";
inline constexpr const char* kLength = "长度km";
inline constexpr const char* kCosPhi = "功率因数";
inline constexpr const char* kAllowed = "允许压降%";
}  // namespace loss_col

// Columns every voltage-loss schedule must have (the others may be left out).
const std::vector<std::string>& LossRequiredColumns();

// The line kinds by their list texts (either page's spelling), position = kind.
const std::vector<std::vector<std::string>>& LineKindTexts();

struct LossRow {
  std::size_t line = 0;
  std::string name;
  std::optional<RowRefusal> refusal;  // set: nothing below was computed
  int kind = 0;
  std::string line_row;                // the catalogue row used, or "直接给定"
  std::array<std::string, 3> line_data{};  // R′, X′, U texts used
  std::string length;                  // l as given
  double du = 0;                       // Δu (%)
  double allowed = 0;                  // allowed Δu (%)
  std::optional<double> l_allowed;     // the permissible length (km), when finite
  bool pass = false;                   // Δu, as shown with three decimals, within the allowed loss
};

LossRow ComputeLossRow(const ScheduleRow& row, LineCatalogue& lines);

// The results file: a header and one line per row.
const std::vector<std::string>& LossResultHeader();
std::vector<std::string> LossResultCells(const LossRow& r);
// What a failing or refused row breaks, in one line ("" for a row that passes).
std::string LossFailureText(const LossRow& r);

}  // namespace kestra::batch

#pragma once
// One motor of a plant's motor list: the bus voltage, terminal voltage and starting current of its
// start by the motor-start page's formulas, the verdict against the required bus voltage, and for
// a failing full-voltage start the starting reactor (from the reactor catalogue) and the
// autotransformer ratio that would pass, by the back-calculations of the reactor and ratio pages.
#include <optional>
#include <string>
#include <vector>

#include "batch/catalogues.h"
#include "batch/schedule.h"

namespace kestra::batch {

namespace motor_col {
inline constexpr const char* kName = "电机";
inline constexpr const char* kSeries = "系列";
inline constexpr const char* kModel = "型号";
inline constexpr const char* kMotor[5] = {"功率kW", "转速r/min", "额定电流A", "起动电流A", "额定电压kV"};
inline constexpr const char* kMethod = "起动方式";
inline constexpr const char* kShortCircuit = "短路容量MVA";  // S" (全压起动) or the bus Skm (the others)
inline constexpr const char* kTransformer = "变压器容量MVA";
inline constexpr const char* kImpedance = "阻抗电压";       // relative, 0.045 for 4.5 %
inline constexpr const char* kReactance = "电抗Ω";
inline constexpr const char* kRatio = "变比";
inline constexpr const char* kLoad = "预接负荷MVA";
inline constexpr const char* kCosPhi = "功率因数";
inline constexpr const char* kBus = "母线电压kV";
inline constexpr const char* kCable = "线缆类型";
inline constexpr const char* kSection = "截面mm2";
inline constexpr const char* kLength = "长度km";
inline constexpr const char* kRequired = "要求Ustm";
}  // namespace motor_col

const std::vector<std::string>& MotorRequiredColumns();

// What would pass instead of a failing full-voltage start.
struct ReactorChoice {
  bool found = false;
  double xk = 0, xz = 0, ustm = 0, istm = 0;
  std::string model;  // empty when no reactor of reactance Xz carries the current
};
struct RatioChoice {
  bool found = false;   // a ratio exists (X > 0)
  double kz = 0;
  std::optional<double> kk;  // the largest standard tap not above Kz
  double ustm = 0;           // with Kk
};

struct MotorRow {
  std::size_t line = 0;
  std::string name;
  std::optional<RowRefusal> refusal;
  std::string motor_row;  // the catalogue row used, or "直接给定"
  int method = 0;
  double ustm = 0, ustm_motor = 0, istm = 0, required = 0;
  bool pass = false;  // Ustm, as shown with three decimals, not below the required value
  std::optional<ReactorChoice> reactor;  // failing full-voltage starts only
  std::optional<RatioChoice> ratio;
};

MotorRow ComputeMotorRow(const ScheduleRow& row, MotorCatalogue& motors, ReactorCatalogue& reactors);

const std::vector<std::string>& MotorResultHeader();
std::vector<std::string> MotorResultCells(const MotorRow& r);
std::string MotorFailureText(const MotorRow& r);
std::string ReactorText(const MotorRow& r);
std::string RatioText(const MotorRow& r);

// The standard autotransformer taps of the ratio page's list.
inline constexpr double kStandardRatios[] = {0.55, 0.6, 0.64, 0.65, 0.73, 0.8};

}  // namespace kestra::batch

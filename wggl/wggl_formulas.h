#pragma once
// The reactive compensation calculator's arithmetic, free of any dialog: the calculation that
// "计算" runs (inputs in, results out) and the formulas it is made of: two-decimal rounding,
// tangents with their two-decimal texts, the compensation capacity, the capacitor count, the
// natural power factor from loads or from a year's energy, and the spin steps.
#include <optional>
#include <string>

namespace kestra::wggl {

// Which source the natural power factor was derived from (the radio pair of the dialog).
enum class SystemKind { None = -1, Designing = 0, InUse = 1 };

// The numbers the calculator works with: what the dialog keeps beside its texts and stores.
struct WgglInputs {
  double cos_phi1 = 0;  // natural average power factor cosφ1
  double cos_phi2 = 0;  // power factor after compensation cosφ2
  double alpha = 0;     // load coefficient α
  double p_js = 0;      // active calculated load Pjs, kW
  SystemKind system = SystemKind::None;
  double alpha_p = 0;   // active load coefficient α' of the design sub-dialog
  double beta_q = 0;    // reactive load coefficient β
  double q_js = 0;      // reactive calculated load Qjs, kVar
  double w_m = 0;       // a year's active energy Wm, kW.h
  double w_rm = 0;      // a year's reactive energy Wrm, kVar.h
  bool count_capacitors = false;  // the check box "计算电容数量"
  double rating = 0;    // rating of one capacitor q, kVar
};

// The compensation rate from the two power factors, with the tangents taken as the
// designer reads them: each printed "%.2f" and read back.
struct CompensationRate {
  std::string tan1_text;  // "%.2f" of tanφ1
  std::string tan2_text;  // "%.2f" of tanφ2
  double qc = 0;          // tan1_text − tan2_text as numbers
};

struct CapacitorBank {
  double count = 0;     // n
  double capacity = 0;  // n·q, kVar
};

// Why a calculation gave nothing: a power factor without a finite tangent.
enum class Refusal { None, NaturalFactor, TargetFactor };
// Which derivation of cosφ1 the report shows: the one whose result is still within 0.01 of it.
enum class Derivation { None, FromLoads, FromEnergy };

struct WgglResults {
  // The inputs as calculated with: cosφ1, cosφ2, α and Pjs rounded to two decimals.
  WgglInputs used;
  Refusal refusal = Refusal::None;  // when set, nothing below was calculated
  CompensationRate rate;
  bool negative = false;        // Qc came out negative; the dialog shows its absolute value
  double qc = 0;                // Qc as the dialog shows it: Round2(|(α·Pjs)·qc|), kVar
  double report_capacity = 0;   // (α·qc)·Pjs with its sign, multiplied as the report's line reads
  Derivation derivation = Derivation::None;
  bool rating_missing = false;  // a count was asked for without a positive rating
  std::optional<CapacitorBank> bank;  // the count, when asked for and possible
};

// "计算": cosφ1, cosφ2, α, Pjs rounded to two decimals; the tangents as two-decimal texts;
// Qc; with the check box set, the capacitor count from Qc as the dialog shows it.
WgglResults Calculate(const WgglInputs& in);

// x·100 + 0.5 truncated towards zero, divided by 100 (−0.126 gives −0.12, 0.125 gives 0.13).
double Round2(double x);

// A power factor the tangent can be taken of: finite, not 0 and within −1…1.
bool IsUsablePowerFactor(double cos_phi);
// tanφ = √(1 − cos²φ) / cosφ; nullopt for a power factor that is not usable (0 gives an
// infinite tangent, |cosφ| > 1 the root of a negative number).
std::optional<double> Tangent(double cos_phi);

std::optional<CompensationRate> RateOf(double cos_phi1, double cos_phi2);

// Qc = (α·Pjs)·qc with its sign: negative when the target power factor is below the natural one.
double SignedCapacity(double alpha, double p_js, double qc);

// Number of capacitors of rating q for Qc: the integer part of Qc/q + 0.9998999834060669, so
// that a capacitor is added as soon as the fraction exceeds about 0.0001 (and a quotient that
// lands a hair above a whole number through rounding adds none). Requires q > 0.
int CapacitorCount(double qc, double q);

// Natural power factor of a system being designed: 1 / √(1 + (β·Qjs)² / (α'·Pjs)²).
double NaturalFactorFromLoads(double alpha_p, double beta_q, double p_js, double q_js);
// Natural power factor of a system in use for a year: 1 / √(1 + Wrm² / Wm²).
double NaturalFactorFromEnergy(double w_m, double w_rm);
// The smallest natural power factor the sub-dialogs accept.
inline constexpr double kMinNaturalFactor = 0.1;

// One spin step of an edit: v = value − delta·step, clamped, then Round2. delta is the
// position change the up-down control proposes (−1 for the up arrow).
enum class SpinKind {
  PowerFactor,  // cosφ1, cosφ2: step 0.05, below 0.05 gives 0.05, above 1 gives 1
  Coefficient,  // α, α', β: step 0.01, below 0 gives 0.01 (0 itself stays), above 1 gives 1
};
double SpinStep(SpinKind kind, double value, int delta);

}  // namespace kestra::wggl

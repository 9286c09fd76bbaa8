#pragma once
// The reactive compensation calculator's arithmetic, free of any dialog: two-decimal rounding,
// tangents with their two-decimal texts, the compensation capacity, the capacitor count, the
// natural power factor from loads or from a year's energy, and the spin steps.
#include <optional>
#include <string>

namespace kestra::wggl {

// x·100 + 0.5 truncated towards zero, divided by 100 (−0.126 gives −0.12, 0.125 gives 0.13).
double Round2(double x);

// A power factor the tangent can be taken of: finite, not 0 and within −1…1.
bool IsUsablePowerFactor(double cos_phi);
// tanφ = √(1 − cos²φ) / cosφ; nullopt for a power factor that is not usable (0 gives an
// infinite tangent, |cosφ| > 1 the root of a negative number).
std::optional<double> Tangent(double cos_phi);

// The compensation rate from the two power factors, with the tangents taken as the
// designer reads them: each printed "%.2f" and read back.
struct CompensationRate {
  std::string tan1_text;  // "%.2f" of tanφ1
  std::string tan2_text;  // "%.2f" of tanφ2
  double qc = 0;          // tan1_text − tan2_text as numbers
};
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

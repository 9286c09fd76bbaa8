#include "wggl/wggl_formulas.h"

#include <climits>
#include <cmath>

#include "services/text/number_text.h"

namespace kestra::wggl {

double Round2(double x) {
  const double scaled = x * 100 + 0.5;
  // The designer's values fit a 32-bit integer after scaling by far (21 474 836.47 kW);
  // beyond that the same rule is applied without the integer's limit rather than
  // producing a number that has nothing to do with the input.
  if (!std::isfinite(scaled)) return x;
  if (scaled > static_cast<double>(INT_MAX) || scaled < static_cast<double>(INT_MIN))
    return std::trunc(scaled) / 100;
  return static_cast<int>(scaled) / 100.0;
}

bool IsUsablePowerFactor(double cos_phi) {
  return std::isfinite(cos_phi) && cos_phi != 0 && cos_phi >= -1 && cos_phi <= 1;
}

std::optional<double> Tangent(double cos_phi) {
  if (!IsUsablePowerFactor(cos_phi)) return std::nullopt;
  return std::sqrt(1 - cos_phi * cos_phi) / cos_phi;
}

std::optional<CompensationRate> RateOf(double cos_phi1, double cos_phi2) {
  const auto t1 = Tangent(cos_phi1);
  const auto t2 = Tangent(cos_phi2);
  if (!t1 || !t2) return std::nullopt;
  CompensationRate r;
  r.tan1_text = text::Format2f(*t1);
  r.tan2_text = text::Format2f(*t2);
  r.qc = text::WcsToD(r.tan1_text) - text::WcsToD(r.tan2_text);
  return r;
}

double SignedCapacity(double alpha, double p_js, double qc) { return (alpha * p_js) * qc; }

int CapacitorCount(double qc, double q) {
  const double n = qc / q + 0.9998999834060669;
  if (!(n < static_cast<double>(INT_MAX))) return INT_MAX;
  if (!(n > static_cast<double>(INT_MIN))) return INT_MIN;
  return static_cast<int>(n);
}

double NaturalFactorFromLoads(double alpha_p, double beta_q, double p_js, double q_js) {
  return 1 / std::sqrt(1 + (beta_q * q_js) * (beta_q * q_js) / ((alpha_p * p_js) * (alpha_p * p_js)));
}

double NaturalFactorFromEnergy(double w_m, double w_rm) {
  return 1 / std::sqrt(1 + (w_rm * w_rm) / (w_m * w_m));
}

double SpinStep(SpinKind kind, double value, int delta) {
  const bool pf = kind == SpinKind::PowerFactor;
  double v = value - delta * (pf ? 0.05 : 0.01);
  if (pf) {
    if (v < 0.05) v = 0.05;
  } else if (v < 0) {
    v = 0.01;
  }
  if (v > 1) v = 1;
  return Round2(v);
}

}  // namespace kestra::wggl

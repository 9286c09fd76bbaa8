#include "wggl/wggl_formulas.h"

#include <climits>
#include <cmath>

#include "services/text/format.h"
#include "services/text/number_text.h"

namespace kestra::wggl {
namespace {

// The derivation of cosφ1 whose result still matches it: a factor typed by hand over a
// derived one gets none.
Derivation MatchingDerivation(const WgglInputs& in) {
  if (in.system == SystemKind::Designing) {
    if (std::fabs(in.p_js) > 1e-10 &&
        std::fabs(NaturalFactorFromLoads(in.alpha_p, in.beta_q, in.p_js, in.q_js) - in.cos_phi1) < 0.01)
      return Derivation::FromLoads;
  } else if (std::fabs(in.w_rm) > 1e-10 && std::fabs(NaturalFactorFromEnergy(in.w_m, in.w_rm) - in.cos_phi1) < 0.01) {
    return Derivation::FromEnergy;
  }
  return Derivation::None;
}

}  // namespace

WgglResults Calculate(const WgglInputs& in) {
  WgglResults r;
  r.used = in;
  r.used.cos_phi1 = Round2(in.cos_phi1);
  r.used.cos_phi2 = Round2(in.cos_phi2);
  r.used.alpha = Round2(in.alpha);
  r.used.p_js = Round2(in.p_js);
  const WgglInputs& u = r.used;

  // A power factor of 0 or beyond ±1 has no finite tangent, so no Qc can be given for it.
  const auto rate = RateOf(u.cos_phi1, u.cos_phi2);
  if (!rate) {
    r.refusal = IsUsablePowerFactor(u.cos_phi1) ? Refusal::TargetFactor : Refusal::NaturalFactor;
    return r;
  }
  r.rate = *rate;
  const double qc = SignedCapacity(u.alpha, u.p_js, r.rate.qc);
  r.negative = qc < 0;
  r.qc = Round2(r.negative ? -qc : qc);
  // The report's line reads "αqc Pjs" and multiplies in that order; it keeps the sign.
  r.report_capacity = (u.alpha * r.rate.qc) * u.p_js;
  r.derivation = MatchingDerivation(u);

  if (u.count_capacitors) {
    if (u.rating <= 0) {
      r.rating_missing = true;
    } else {
      // The count works from Qc as shown ("%g"), not from the unrounded product.
      const double n = CapacitorCount(text::WcsToD(text::Format("%g", r.qc)), u.rating);
      r.bank = CapacitorBank{n, n * u.rating};
    }
  }
  return r;
}

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
  r.tan1_text = text::Format("%.2f", *t1);
  r.tan2_text = text::Format("%.2f", *t2);
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

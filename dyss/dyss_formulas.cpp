#include "dyss/dyss_formulas.h"

#include <cmath>

#include "dyss/dyss_messages.h"
#include "services/text/number_text.h"

namespace kestra::dyss {
namespace {

double Num(std::string_view s) { return text::WcsToD(s); }

Outcome OutcomeOf(double v) { return std::isfinite(v) ? Outcome::kValue : Outcome::kNotFinite; }

// Δu of forms 0 to 3 once the terms are known; nullopt for a kind without that form.
// A = R′·cosφ + X′·sinφ (current moments), B = R′ + (X′·sinφ)/cosφ (load moments).
std::optional<double> LineLoss(const LossResult& v, int kind, int form) {
  const double u = v.u;
  const double a = v.r * v.cos_phi + v.x * v.sin_phi;
  const double b = v.r + (v.x * v.sin_phi) / v.cos_phi;
  const double i = v.current[0], l = v.length[0], p = v.load[0];
  double sum_ail = 0, sum_plb = 0;
  for (std::size_t k = 0; k < 6; ++k) {
    sum_ail += a * v.current[k] * v.length[k];
    sum_plb += v.load[k] * v.length[k] * b;
  }
  switch (kind * 10 + form) {  // kind·10 + form: the cells of the handbook's table
    case 0: return (a * i * l * 1.732) / (u * 10);
    case 1: return sum_ail * 1.732 / (u * 10);
    case 2: return (b * p * l * 1.0) / (u * 10 * u);
    case 3: return sum_plb * 1.0 / (u * 10 * u);
    case 10: return (a * i * l * 2.0) / (u * 10);
    case 11: return sum_ail * 2.0 / (u * 10);
    case 12: return (b * p * l * 2.0) / (u * 10 * u);
    case 13: return sum_plb * 2.0 / (u * 10 * u);
    case 20: return (a * i * l * 2.598) / (u * 10);
    case 22: return (b * p * l * 2.25) / (u * 10 * u);
    case 30: return (a * i * l * 2.0) / ((u * 10) / 1.732);
    case 32: return (b * p * l * 2.0) / ((u / 1.732) * 10 * (u / 1.732));
    default: return std::nullopt;
  }
}

const std::string kNoText;

}  // namespace

std::string ResultText(Outcome outcome, double value) {
  switch (outcome) {
    case Outcome::kNoLineData: return kNoLineDataText;
    case Outcome::kNoFormula: return kNoFormulaText;
    default: return text::Format3f(value);
  }
}

PhiTerms PhiTermsOf(double cos_phi) {
  const double sin_phi = std::sqrt(1 - cos_phi * cos_phi);
  return {cos_phi, sin_phi, sin_phi / cos_phi};
}

const std::string& TextOf(const LossInputs& in, FieldRef f) {
  const auto k = static_cast<std::size_t>(f.element);
  switch (f.field) {
    case Field::kCurrent: return k < 6 ? in.current[k] : kNoText;
    case Field::kLength: return k < 6 ? in.length[k] : kNoText;
    case Field::kLoad: return k < 6 ? in.load[k] : kNoText;
    case Field::kSection: return in.section;
    case Field::kCoefficient: return in.coefficient;
    default: return kNoText;
  }
}

const std::string& TextOf(const LengthInputs& in, FieldRef f) {
  switch (f.field) {
    case Field::kCurrent: return in.current;
    case Field::kLoad: return in.load;
    case Field::kRequire: return in.require;
    default: return kNoText;
  }
}

LossResult ComputeLoss(const LossInputs& in) {
  LossResult v;
  v.cos_phi = in.cos_phi;
  v.sin_phi = std::sqrt(1 - in.cos_phi * in.cos_phi);
  v.tan_phi = v.sin_phi / in.cos_phi;
  v.r = Num(in.line[0]);
  v.x = Num(in.line[1]);
  v.u = Num(in.line[2]);
  for (std::size_t k = 0; k < 6; ++k) {
    v.current[k] = Num(in.current[k]);
    v.length[k] = Num(in.length[k]);
    v.load[k] = Num(in.load[k]);
    v.sum_il += v.current[k] * v.length[k];
    v.sum_pl += v.load[k] * v.length[k];
  }
  v.c = Num(in.coefficient);
  v.s = Num(in.section);
  const bool kind_known = in.kind >= kThreePhase && in.kind <= kSinglePhaseOnPhase;
  if (!kind_known || in.form < 0 || in.form > 4) {
    v.outcome = Outcome::kNoFormula;
    return v;
  }
  if (in.form == 4) {
    const bool all_loads = in.kind == kThreePhase || in.kind == kSinglePhaseOnLine;
    const double moments = all_loads ? v.sum_pl : v.load[0] * v.length[0];
    v.du = in.kind == kSinglePhaseOnLine ? moments * 2.0 / (v.c * v.s) : moments / (v.c * v.s);
    v.outcome = OutcomeOf(v.du);
    return v;
  }
  const std::optional<double> du = LineLoss(v, in.kind, in.form);
  if (!du) {
    v.outcome = Outcome::kNoFormula;
  } else if (v.u == 0) {
    v.outcome = Outcome::kNoLineData;
  } else {
    v.du = *du;
    v.outcome = OutcomeOf(v.du);
  }
  return v;
}

LengthResult ComputeLength(const LengthInputs& in) {
  LengthResult v;
  v.cos_phi = Num(text::Format3f(in.cos_phi));
  v.sin_phi = std::sqrt(1 - v.cos_phi * v.cos_phi);
  v.tan_phi = v.sin_phi / v.cos_phi;
  v.r = Num(in.line[0]);
  v.x = Num(in.line[1]);
  v.u = Num(in.line[2]);
  v.du = Num(in.require);
  v.current = Num(in.current);
  v.load = Num(in.load);
  const double du = v.du, u = v.u, i = v.current, p = v.load;
  const double term = v.r * v.cos_phi + v.x * v.sin_phi;      // R′·cosφ + X′·sinφ
  const double b = v.r + v.x * v.sin_phi / v.cos_phi;         // R′ + X′·sinφ/cosφ
  const bool known = in.kind >= kThreePhase && in.kind <= kSinglePhaseOnPhase && (in.form == 0 || in.form == 1);
  if (!known) {
    v.outcome = Outcome::kNoFormula;
    return v;
  }
  if (u == 0 || (in.form == 0 ? term : b) == 0) {
    v.outcome = Outcome::kNoLineData;
    return v;
  }
  switch (in.kind * 10 + in.form) {  // kind·10 + form
    case 0: v.l = du * 10 * u / ((i * 1.732) * term); break;
    case 1: v.l = du * 10 * u * u / (b * p); break;
    case 10: v.l = du * 10 * u / ((i * 2.0) * term); break;
    case 11: v.l = du * 10 * u * u / (b * 2.0 * p); break;
    case 20: v.l = du * 10 * u / ((i * 1.5) * 1.732 * term); break;
    case 21: v.l = du * 10 * u * u / (b * 2.25 * p); break;
    case 30: v.l = du * 10 * (u / 1.732) / ((i * 2.0) * term); break;
    default: v.l = du * 10 * (u / 1.732) * (u / 1.732) / (b * 2.0 * p); break;  // kind 3, form 1
  }
  v.outcome = OutcomeOf(v.l);
  return v;
}

std::optional<HarmonicCurrent> HarmonicCurrentOf(int position, double i) {
  switch (position) {
    case 0: return HarmonicCurrent{"1.0", i, text::FormatG(i)};
    case 1: {
      const double ip = std::sqrt(i * i + (i * 0.2) * (i * 0.2)) / 0.86;
      return HarmonicCurrent{"0.86", ip, text::Format3f(ip)};
    }
    case 2: {
      const double ip = i * 0.4 * 3.0 / 0.86;
      return HarmonicCurrent{"0.86", ip, text::Format3f(ip)};
    }
    case 3: {
      const double ip = i * 0.5 * 3.0 / 1.0;
      return HarmonicCurrent{"1.0", ip, text::FormatG(ip)};
    }
    default: return std::nullopt;
  }
}

HarmonicLength ComputeHarmonicLength(const LengthResult& line, std::string_view i_prime_text,
                                     std::string_view rated_text) {
  HarmonicLength h;
  h.i_prime = Num(i_prime_text);
  h.rated = Num(rated_text);
  h.ampacity_short = h.rated < h.i_prime;
  if (h.ampacity_short) return h;
  const double term = line.r * line.cos_phi + line.x * line.sin_phi;
  if (line.u == 0 || term == 0) {
    h.outcome = Outcome::kNoLineData;
    return h;
  }
  h.l_prime = line.du * 10 * line.u / ((h.i_prime * 1.732) * term);
  h.outcome = OutcomeOf(h.l_prime);
  return h;
}

double SpinPowerFactor(double cos_phi, int delta) {
  double v = cos_phi - delta / 20.0;
  if (v < 0) v = 0;
  if (v > 1) v = 1;
  return v;
}

double NormalisedCurrent(std::string_view text) {
  const double v = Num(text);
  return text.empty() || v < 0 ? 1 : v;
}

double NormalisedRating(std::string_view text) {
  const double v = Num(text);
  return v < 0 ? 0 : v;
}

}  // namespace kestra::dyss

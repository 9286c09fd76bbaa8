#include "djqd/djqd_formulas.h"

#include <cmath>

#include "services/text/number_text.h"

namespace kestra::djqd {
namespace {

std::optional<double> Finite(double v) {
  if (!std::isfinite(v)) return std::nullopt;
  return v;
}

// Bus voltage from the bus short-circuit capacity, the reactive load and the starting circuit.
double BusVoltage(double skm, double qfh, double sst) { return (skm + qfh) / (skm + qfh + sst); }

}  // namespace

CableReactance CableReactanceOf(int type, double section, double length) {
  if (section == 0 || length == 0) return {};
  switch (type) {
    case kCopper:
      if (section > 150) return {CableFormula::CopperLarge, (0.08 + 6.1 / section) * length};
      return {CableFormula::CopperSmall, (0.08 + 18.3 / section) * length};
    case kAluminium:
      if (section > 240) return {CableFormula::AluminiumLarge, (0.08 + 10 / section) * length};
      return {CableFormula::AluminiumSmall, (0.08 + 30 / section) * length};
    case kPolyethylene:
      return {CableFormula::Polyethylene, 0.09 * length};
    case kPaperInsulated:
      return {CableFormula::PaperInsulated, 0.07 * length};
    default:
      return {};  // no type chosen: the checks stop a calculation before it gets here
  }
}

double RatioRecheckCableReactance(int type, double section, double length) {
  if (section == 0 || length == 0) return 0;
  switch (type) {
    case kCopper: return (0.07 + 6.3 / section) * length;
    case kAluminium: return (0.07 + 10 / section) * length;
    default: return CableReactanceOf(type, section, length).xl;
  }
}

std::optional<Basics> BasicsOf(const Motor& m, const Cable& c, double sfh, double cos_phi) {
  if (!(cos_phi <= 1)) return std::nullopt;
  Basics b;
  b.kst = m.iq / m.ir;
  b.srm = 1.732 * m.ur * m.ir / 1000;
  b.sstm = b.kst * b.srm;
  b.cable = CableReactanceOf(c.type, c.section, c.length);
  b.sin_phi = std::sqrt(1 - cos_phi * cos_phi);
  b.qfh = sfh * b.sin_phi;
  return b;
}

StartResults StartVoltageDrop(const StartInputs& in) {
  StartResults r;
  const auto basics = BasicsOf(in.motor, in.cable, in.sfh, in.cos_phi);
  if (!basics) {
    r.status = Status::PowerFactorAboveOne;
    return r;
  }
  r.basics = *basics;
  const double sstm = basics->sstm, xl = basics->cable.xl, um2 = in.um * in.um;
  double ustm_motor_divisor = sstm;
  bool current_at_motor_voltage = false;
  r.skm = in.sk;
  switch (in.method) {
    case StartMethod::FullVoltage:
      r.skm = in.srt / (in.ut + in.srt / in.sk);
      r.sst = 1 / (1 / sstm + xl / um2);
      break;
    case StartMethod::TransformerUnit:
      r.sst = 1 / (1 / sstm + in.ut / in.srt + xl / um2);
      current_at_motor_voltage = true;
      break;
    case StartMethod::Reactor:
      r.sst = 1 / (1 / sstm + in.xk / um2 + xl / um2);
      break;
    case StartMethod::Autotransformer:
      r.sst = 1 / (1 / (in.kz * in.kz * sstm) + xl / um2);
      ustm_motor_divisor = in.kz * sstm;
      current_at_motor_voltage = true;
      break;
  }
  r.ustm = BusVoltage(r.skm, basics->qfh, r.sst);
  r.ustm_motor = r.ustm * r.sst / ustm_motor_divisor;
  r.istm_at_bus = r.ustm * r.sst / (1.732 * in.um) * 1000;
  r.istm = current_at_motor_voltage ? r.ustm_motor * sstm / (1.732 * in.motor.ur) * 1000 : r.istm_at_bus;
  return r;
}

double RequiredStartingCapacity(double skm, double qfh, double ustm_required) {
  return (skm + qfh) / ustm_required - skm - qfh;
}

double ChooseActualReactance(const std::vector<double>& catalogue, double xk) {
  double best = -1;
  for (double v : catalogue)
    if (v >= xk && v < 10000 && (best < 0 || v < best)) best = v;
  return best;
}

ReactorResults ReactorForRequirement(const RequirementInputs& in, const std::vector<double>& catalogue) {
  ReactorResults r;
  const auto basics = BasicsOf(in.motor, in.cable, in.sfh, in.cos_phi);
  if (!basics) {
    r.status = Status::PowerFactorAboveOne;
    return r;
  }
  r.basics = *basics;
  const double um2 = in.um * in.um, xl = basics->cable.xl, sstm = basics->sstm;
  r.sst_required = RequiredStartingCapacity(in.skm, basics->qfh, in.ustm_required);
  r.xk = um2 * (1 / r.sst_required - xl / um2 - 1 / sstm);
  const double xz = ChooseActualReactance(catalogue, r.xk);
  if (xz < 0) {
    r.status = Status::NoReactance;
    return r;
  }
  r.xz = xz;
  r.sst = 1 / (1 / sstm + xz / um2 + xl / um2);
  r.ustm = BusVoltage(in.skm, basics->qfh, r.sst);
  r.ustm_motor = r.ustm * r.sst / sstm;
  r.istm = r.ustm * r.sst / (1.732 * in.um) * 1000;
  return r;
}

RatioResults RatioForRequirement(const RequirementInputs& in) {
  RatioResults r;
  const auto basics = BasicsOf(in.motor, in.cable, in.sfh, in.cos_phi);
  if (!basics) {
    r.status = Status::PowerFactorAboveOne;
    return r;
  }
  r.basics = *basics;
  r.sst_required = RequiredStartingCapacity(in.skm, basics->qfh, in.ustm_required);
  r.x = basics->sstm * (1 / r.sst_required - basics->cable.xl / (in.um * in.um));
  if (r.x > 0) {
    r.kz = 1 / std::sqrt(r.x);
  } else {
    r.status = Status::NoRatio;
  }
  return r;
}

RatioRecheck RecheckActualRatio(const RequirementInputs& in, double kk) {
  RatioRecheck r;
  auto basics = BasicsOf(in.motor, in.cable, in.sfh, in.cos_phi);
  if (!basics) {
    r.status = Status::PowerFactorAboveOne;
    return r;
  }
  basics->cable.xl = RatioRecheckCableReactance(in.cable.type, in.cable.section, in.cable.length);
  r.basics = *basics;
  const double sstm = basics->sstm;
  r.sst = 1 / (1 / (kk * kk * sstm) + basics->cable.xl / (in.um * in.um));
  r.ustm = BusVoltage(in.skm, basics->qfh, r.sst);
  r.ustm_motor = r.ustm * r.sst / (kk * sstm);
  r.istm = r.ustm_motor * sstm / (1.732 * in.motor.ur) * 1000;
  return r;
}

std::string TrimTrailingZeros(std::string_view text) {
  while (!text.empty() && text.back() == '0') text.remove_suffix(1);
  return std::string(text);
}

int ChooseStartingCurrent(const std::vector<double>& currents, double istm) {
  int chosen = -1;
  double smallest = 10000;
  for (int i = 0; i < static_cast<int>(currents.size()); ++i) {
    const double v = currents[static_cast<std::size_t>(i)];
    if (!(v >= istm)) continue;
    if (chosen < 0) chosen = i;
    if (v < smallest) {
      smallest = v;
      chosen = i;
    }
  }
  return chosen;
}

double RequiredTerminalVoltage(double mj, double mstm) { return std::sqrt(1.1 * mj / mstm); }

bool TorqueCheckPasses(double ustm_motor, double mj, double mstm) {
  return ustm_motor >= RequiredTerminalVoltage(mj, mstm);
}

std::optional<double> StartingTime(double j2, double nr, double prm, double ustm_motor, double mstp,
                                   double mj) {
  const double denominator = 365 * prm * (ustm_motor * ustm_motor * mstp - mj);
  if (denominator == 0) return std::nullopt;
  return Finite(j2 * nr * nr / denominator);
}

std::optional<double> OverloadTransformerUnit(double ustm_motor, double sstm, double srt) {
  return Finite(ustm_motor * sstm / srt);
}

std::optional<double> OverloadReactor(double istm, double t) { return Finite(istm / 1000 * t * 2 / 120); }

std::optional<double> OverloadAutotransformer(double ustm, double sst, double t) {
  return Finite(ustm * sst * t * 2 / 120);
}

std::optional<double> ResistingTorqueOfCell(std::string_view cell) {
  if (cell.empty()) return std::nullopt;
  const auto tilde = cell.find('~');
  if (tilde == std::string_view::npos) return text::WcsToD(cell);
  return (text::WcsToD(cell.substr(0, tilde)) + text::WcsToD(cell.substr(tilde + 1))) / 2;
}

SpinResult SpinPowerFactor(double cos_phi, int delta) {
  SpinResult r{cos_phi, false};
  if (!(cos_phi >= 0.01 && cos_phi <= 1)) {
    r.warned = true;
    r.cos_phi = 0.01;
  }
  r.cos_phi -= delta / 100.0;
  if (r.cos_phi < 0.01) r.cos_phi = 0.01;
  if (r.cos_phi > 1) r.cos_phi = 1;
  return r;
}

}  // namespace kestra::djqd

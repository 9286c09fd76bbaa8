#include "batch/motor_start.h"

#include "djqd/djqd_checks.h"
#include "djqd/djqd_formulas.h"
#include "djqd/djqd_messages.h"
#include "services/text/format.h"
#include "services/text/number_text.h"

namespace kestra::batch {
namespace {

using namespace motor_col;
using djqd::Field;

const char* ColumnOf(Field f) {
  switch (f) {
    case Field::CableType: return kCable;
    case Field::Section: return kSection;
    case Field::Length: return kLength;
    case Field::Power: return kMotor[0];
    case Field::Speed: return kMotor[1];
    case Field::RatedCurrent: return kMotor[2];
    case Field::StartingCurrent: return kMotor[3];
    case Field::RatedVoltage: return kMotor[4];
    case Field::ShortCircuit: return kShortCircuit;
    case Field::TransformerCapacity: return kTransformer;
    case Field::ImpedanceVoltage: return kImpedance;
    case Field::Reactance: return kReactance;
    case Field::Ratio: return kRatio;
    case Field::Load: return kLoad;
    case Field::PowerFactor: return kCosPhi;
    case Field::BusVoltage: return kBus;
    case Field::RequiredUstm: return kRequired;
    default: return "";
  }
}

std::vector<std::vector<std::string>> Names(const char* const (&names)[4]) {
  std::vector<std::vector<std::string>> t;
  for (const char* n : names) t.push_back({n});
  return t;
}

double Shown(double v) { return text::WcsToD(text::Format3f(v)); }

void SuggestReactor(MotorRow& r, const djqd::RequirementInputs& in, ReactorCatalogue& reactors) {
  const djqd::ReactorResults x = djqd::ReactorForRequirement(in, reactors.Reactances());
  ReactorChoice c;
  c.xk = x.xk;
  if (x.status == djqd::Status::Ok) {
    c.found = true;
    c.xz = x.xz;
    c.ustm = x.ustm;
    c.istm = x.istm;
    c.model = reactors.Model(text::Format3f(x.xz), x.istm);
  }
  r.reactor = c;
}

void SuggestRatio(MotorRow& r, const djqd::RequirementInputs& in) {
  const djqd::RatioResults k = djqd::RatioForRequirement(in);
  RatioChoice c;
  if (k.status == djqd::Status::Ok) {
    c.found = true;
    c.kz = k.kz;
    for (double tap : kStandardRatios)
      if (tap <= k.kz) c.kk = tap;
    if (c.kk) c.ustm = djqd::RecheckActualRatio(in, *c.kk).ustm;
  }
  r.ratio = c;
}

}  // namespace

const std::vector<std::string>& MotorRequiredColumns() {
  static const std::vector<std::string> c{kName, kMethod, kShortCircuit, kLoad, kCosPhi, kBus, kRequired};
  return c;
}

MotorRow ComputeMotorRow(const ScheduleRow& row, MotorCatalogue& motors, ReactorCatalogue& reactors) {
  MotorRow r;
  r.line = row.line();
  r.name = row.Text(kName);
  try {
    djqd::StartInputs in;
    double m[5];
    if (!row.Empty(kSeries) || !row.Empty(kModel)) {
      LookupError e;
      const auto data = motors.Find(row.Text(kSeries), row.Text(kModel), e);
      if (!data) throw Refused{e.column, e.message};
      for (std::size_t k = 0; k < 5; ++k) m[k] = text::WcsToD(data->values[k]);
      r.motor_row = row.Text(kSeries) + " " + row.Text(kModel);
    } else {
      for (std::size_t k = 0; k < 5; ++k) m[k] = row.OptionalNumber(kMotor[k]).value_or(0);
      r.motor_row = "直接给定";
    }
    in.motor = {m[0], m[1], m[2], m[3], m[4]};
    r.method = row.Choice(kMethod, Names(djqd::kMethodNames));
    in.method = static_cast<djqd::StartMethod>(r.method);
    // A schedule that names no cable leaves it out, as the page does when its fields stay empty.
    const bool no_cable = row.Empty(kCable) && row.Empty(kSection) && row.Empty(kLength);
    const int cable = no_cable ? djqd::kCopper : row.Empty(kCable) ? -1 : row.Choice(kCable, Names(djqd::kCableTypeNames));
    auto number = [&row](const char* column) { return row.OptionalNumber(column).value_or(0); };
    const auto value_of = [&](Field f) -> djqd::FieldValue {
      switch (f) {
        case Field::CableType: return {cable, {}, 0};
        case Field::Section: return {-1, row.Text(kSection), 0};
        case Field::Ratio: return {-1, row.Text(kRatio), 0};
        case Field::BusVoltage: return {-1, row.Text(kBus), 0};
        case Field::Power: return {-1, {}, in.motor.pr};
        case Field::Speed: return {-1, {}, in.motor.nr};
        case Field::RatedCurrent: return {-1, {}, in.motor.ir};
        case Field::StartingCurrent: return {-1, {}, in.motor.iq};
        case Field::RatedVoltage: return {-1, {}, in.motor.ur};
        default: return {-1, {}, number(ColumnOf(f))};
      }
    };
    // The page's checks in their order; the first refusal stops the row with its message.
    for (const djqd::InputCheck& c : djqd::StartChecks(in.method)) {
      if (!djqd::Passes(c.rule, value_of(c.field))) throw Refused{ColumnOf(c.field), c.message};
    }
    const djqd::FieldValue required = value_of(Field::RequiredUstm);
    if (!djqd::Passes(djqd::Rule::PositiveBelowOne, required)) throw Refused{kRequired, djqd::kMsgRequiredUstm};
    r.required = required.value;
    in.sk = number(kShortCircuit);
    in.srt = number(kTransformer);
    in.ut = number(kImpedance);
    in.xk = number(kReactance);
    in.kz = text::WcsToD(row.Text(kRatio));
    in.sfh = number(kLoad);
    in.cos_phi = number(kCosPhi);
    in.um = text::WcsToD(row.Text(kBus));
    in.cable = {cable, text::WcsToD(row.Text(kSection)), number(kLength)};

    const djqd::StartResults s = djqd::StartVoltageDrop(in);
    r.ustm = s.ustm;
    r.ustm_motor = s.ustm_motor;
    r.istm = s.istm;
    r.pass = Shown(s.ustm) >= r.required;
    const bool full_voltage =
        in.method == djqd::StartMethod::FullVoltage || in.method == djqd::StartMethod::TransformerUnit;
    if (!r.pass && full_voltage) {
      // The reactor and ratio pages work from the bus short-circuit capacity of this start.
      const djqd::RequirementInputs req{s.skm, in.sfh, in.cos_phi, in.um, r.required, in.cable, in.motor};
      SuggestReactor(r, req, reactors);
      SuggestRatio(r, req);
    }
  } catch (const Refused& e) {
    r.refusal = RowRefusal{r.line, e.column, e.message};
  }
  return r;
}

const std::vector<std::string>& MotorResultHeader() {
  static const std::vector<std::string> h{"电机", "行", "电机数据", "起动方式", "母线电压Ustm", "端子电压ustM",
                                          "起动电流A", "要求Ustm", "结论", "电抗器降压起动", "自耦变压器降压起动", "说明"};
  return h;
}

std::string ReactorText(const MotorRow& r) {
  if (!r.reactor) return {};
  const ReactorChoice& c = *r.reactor;
  if (!c.found) return text::Format("没有不小于计算电抗Xk=%.3fΩ的电抗器", c.xk);
  return (c.model.empty() ? std::string("无适当型号") : c.model) +
         text::Format(" Xz=%.3fΩ (Xk=%.3fΩ) Ustm=%.3f", c.xz, c.xk, c.ustm);
}

std::string RatioText(const MotorRow& r) {
  if (!r.ratio) return {};
  const RatioChoice& c = *r.ratio;
  if (!c.found) return "计算结果小于0, 不合理";
  if (!c.kk) return text::Format("Kz=%.3f, 小于最小抽头%g", c.kz, kStandardRatios[0]);
  return text::Format("Kz=%.3f, 选用%g: Ustm=%.3f", c.kz, *c.kk, c.ustm);
}

std::vector<std::string> MotorResultCells(const MotorRow& r) {
  if (r.refusal) return {r.name, std::to_string(r.line), "", "", "", "", "", "", "拒绝", "", "", r.refusal->Text()};
  return {r.name,
          std::to_string(r.line),
          r.motor_row,
          djqd::kMethodNames[r.method],
          text::Format3f(r.ustm),
          text::Format3f(r.ustm_motor),
          text::Format3f(r.istm),
          text::FormatG(r.required),
          r.pass ? "合格" : "不合格",
          ReactorText(r),
          RatioText(r),
          MotorFailureText(r)};
}

std::string MotorFailureText(const MotorRow& r) {
  if (r.refusal) return r.refusal->Text();
  if (r.pass) return {};
  return text::Format("起动时母线电压Ustm=%.3f低于要求值%g", r.ustm, r.required);
}

}  // namespace kestra::batch

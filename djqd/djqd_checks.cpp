#include "djqd/djqd_checks.h"

#include <initializer_list>

#include "djqd/djqd_messages.h"
#include "services/text/number_checks.h"
#include "services/text/number_text.h"

namespace kestra::djqd {
namespace {

using F = Field;
using R = Rule;

// The length is checked on its text as typed: an empty one leaves the cable out, one that
// is no number ("0,5") is refused rather than read as 0.
constexpr InputCheck kCableAndMotor[] = {
    {F::CableType, R::Selected, kMsgNoCableType},
    {F::Section, R::TextNonNegative, kMsgSection},
    {F::Length, R::TextNonNegative, kMsgLength},
    {F::Power, R::Positive, kMsgPower},
    {F::Speed, R::Positive, kMsgSpeed},
    {F::RatedCurrent, R::Positive, kMsgRatedCurrent},
    {F::StartingCurrent, R::Positive, kMsgStartingCurrent},
    {F::RatedVoltage, R::Positive, kMsgRatedVoltage},
};

constexpr InputCheck kTransformerForm[] = {
    {F::ShortCircuit, R::Positive, kMsgShortCircuit},
    {F::TransformerCapacity, R::Positive, kMsgTransformerCapacity},
    {F::ImpedanceVoltage, R::Positive, kMsgImpedanceVoltage},
};
constexpr InputCheck kReactorForm[] = {
    {F::ShortCircuit, R::Positive, kMsgShortCircuit},
    {F::Reactance, R::Positive, kMsgReactance},
};
constexpr InputCheck kAutotransformerForm[] = {
    {F::ShortCircuit, R::Positive, kMsgShortCircuit},
    {F::Ratio, R::TextPositive, kMsgRatio},
};
// The end of every form.
constexpr InputCheck kLoadAndBus[] = {
    {F::Load, R::Positive, kMsgLoad},
    {F::PowerFactor, R::Positive, kMsgPowerFactor},
    {F::BusVoltage, R::TextPositive, kMsgBusVoltage},
};
// A power factor above 1 passes the field checks (they ask for a positive number), so every
// other field is checked and taken over first; only then is it refused, because it has no sine.
constexpr InputCheck kPowerFactorAtMostOne[] = {{F::PowerFactor, R::AtMostOne, kMsgPowerFactorAboveOne}};

constexpr InputCheck kShortCircuit[] = {{F::ShortCircuit, R::Positive, kMsgShortCircuit}};
constexpr InputCheck kRequiredUstm[] = {{F::RequiredUstm, R::PositiveBelowOne, kMsgRequiredUstm}};

constexpr InputCheck kRatioRecheck[] = {
    {F::CableType, R::Selected, kMsgNoCableTypeRecheck},
    {F::Section, R::TextNonNegative, kMsgSection},
    {F::Length, R::NonNegative, kMsgLength},
    {F::Power, R::Positive, kMsgPower},
    {F::Speed, R::Positive, kMsgSpeed},
    {F::RatedCurrent, R::Positive, kMsgRatedCurrent},
    {F::StartingCurrent, R::Positive, kMsgStartingCurrent},
    {F::ShortCircuit, R::Positive, kMsgShortCircuit},
    {F::Load, R::Positive, kMsgLoad},
    {F::PowerFactor, R::Positive, kMsgPowerFactor},
    {F::BusVoltage, R::TextPositive, kMsgBusVoltage},
    {F::RatedVoltage, R::Positive, kMsgRatedVoltage},
    {F::RequiredUstm, R::PositiveBelowOne, kMsgRequiredUstmRecheck},
    {F::PowerFactor, R::AtMostOne, kMsgPowerFactorAboveOne},
};

constexpr InputCheck kTorque[] = {
    {F::Mstm, R::Positive, kMsgMstm},
    {F::Mj, R::Positive, kMsgMj},
};
constexpr InputCheck kTime[] = {
    {F::J2, R::Positive, kMsgJ2},
    {F::Mstp, R::Positive, kMsgMstp},
    {F::Mj, R::Positive, kMsgMj},
};

std::vector<InputCheck> Joined(std::initializer_list<std::span<const InputCheck>> parts) {
  std::vector<InputCheck> all;
  for (auto part : parts) all.insert(all.end(), part.begin(), part.end());
  return all;
}

}  // namespace

bool Passes(Rule rule, const FieldValue& v) {
  switch (rule) {
    case R::Selected: return v.selection >= 0;
    case R::TextNonNegative: return text::IsNonNegative(v.text);
    case R::TextPositive: return text::IsPositive(v.text);
    case R::NonNegative: return text::IsNonNegative(v.value);
    case R::Positive: return text::IsPositive(v.value);
    case R::PositiveBelowOne: return text::IsPositive(v.value) && v.value < 1;
    case R::AtMostOne: return v.value <= 1;
  }
  return false;
}

std::vector<InputCheck> StartChecks(StartMethod method) {
  std::span<const InputCheck> form;
  switch (method) {
    case StartMethod::FullVoltage:
    case StartMethod::TransformerUnit: form = kTransformerForm; break;
    case StartMethod::Reactor: form = kReactorForm; break;
    case StartMethod::Autotransformer: form = kAutotransformerForm; break;
  }
  return Joined({kCableAndMotor, form, kLoadAndBus, kPowerFactorAtMostOne});
}

std::span<const InputCheck> RequirementChecks() {
  // The inputs first, then cable and motor as on the first page, the requirement last.
  static const std::vector<InputCheck> checks =
      Joined({kShortCircuit, kLoadAndBus, kCableAndMotor, kRequiredUstm, kPowerFactorAtMostOne});
  return checks;
}

std::span<const InputCheck> RatioRecheckChecks() { return kRatioRecheck; }
std::span<const InputCheck> TorqueChecks() { return kTorque; }
std::span<const InputCheck> TimeChecks() { return kTime; }

const char* FirstFailure(std::span<const InputCheck> checks, const std::function<FieldValue(Field)>& value_of,
                         const std::function<void(Field)>& passed) {
  for (const InputCheck& c : checks) {
    if (!Passes(c.rule, value_of(c.field))) return c.message;
    if (passed) passed(c.field);
  }
  return nullptr;
}

ActualRatio ReadActualRatio(std::string_view text, bool typed, double calculated_ratio) {
  ActualRatio r;
  if (typed ? !text::IsNonNegative(text) : !text::IsPositive(text)) {
    r.verdict = ActualRatioVerdict::Invalid;
    return r;
  }
  r.kk = text::WcsToD(text);
  if (typed && r.kk < 1e-7) r.verdict = ActualRatioVerdict::Silent;
  else if (r.kk > calculated_ratio) r.verdict = ActualRatioVerdict::AboveCalculated;
  return r;
}

}  // namespace kestra::djqd

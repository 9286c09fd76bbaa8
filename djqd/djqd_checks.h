#pragma once
// The input checks of the motor-start dialogs as data: which field, which rule, which message,
// in the order they run. The first failing check stops the calculation with its message; a
// dialog copies each value that passes into its working values at once.
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "djqd/djqd_formulas.h"

namespace kestra::djqd {

enum class Field {
  CableType, Section, Length,
  Power, Speed, RatedCurrent, StartingCurrent, RatedVoltage,
  ShortCircuit,  // S" on the full-voltage form, Skm elsewhere
  TransformerCapacity, ImpedanceVoltage, Reactance, Ratio,
  Load, PowerFactor, BusVoltage, RequiredUstm,
  Mstm, Mj, J2, Mstp,  // torque and starting-time dialogs
};

enum class Rule {
  Selected,          // a drop-down list with a selection
  TextNonNegative,   // a combo's text: digits and points only (empty passes)
  TextPositive,      // a combo's text: positive
  NonNegative,       // a number, on its "%.3f" text
  Positive,          // a number, on its "%.3f" text
  PositiveBelowOne,  // positive, and the number below 1
  AtMostOne,         // the number not above 1
};

struct InputCheck {
  Field field;
  Rule rule;
  const char* message;
};

// A field as the check sees it: the selection of a list, the text of a combo, the number of
// an edit held as a double. Each rule looks at the one part it needs.
struct FieldValue {
  int selection = -1;
  std::string text;
  double value = 0;
};

bool Passes(Rule rule, const FieldValue& v);

// "计算" on the first page: cable and motor, then the fields of the shown form.
std::vector<InputCheck> StartChecks(StartMethod method);
// "计算" on the reactor and ratio pages.
std::span<const InputCheck> RequirementChecks();
// The ratio page's re-check before the results with an actual ratio.
std::span<const InputCheck> RatioRecheckChecks();
// "校验" of the torque dialog, "计算" of the starting-time dialog.
std::span<const InputCheck> TorqueChecks();
std::span<const InputCheck> TimeChecks();

// Runs the checks in order; value_of gives a field as it stands, passed is told of every
// check that passes. The message of the first failing check, or nullptr when all pass.
const char* FirstFailure(std::span<const InputCheck> checks, const std::function<FieldValue(Field)>& value_of,
                         const std::function<void(Field)>& passed = {});

// The actual ratio of the ratio page, from the combo: a picked item must be a positive
// number; a typed text only digits and points, and one below 1e-7 (such as an empty text)
// stops without a message; a ratio above the calculated one is refused.
enum class ActualRatioVerdict { Ok, Invalid, Silent, AboveCalculated };
struct ActualRatio {
  ActualRatioVerdict verdict = ActualRatioVerdict::Ok;
  double kk = 0;
};
ActualRatio ReadActualRatio(std::string_view text, bool typed, double calculated_ratio);

}  // namespace kestra::djqd

#pragma once
// The input checks of the voltage-loss calculator, in the order they run, with the message each
// shows (caption: the host application's title). The first refusal stops the calculation.
#include <optional>
#include <span>
#include <string>

#include "dyss/dyss_formulas.h"

namespace kestra::dyss {

enum class Rule {
  kPositive,        // the text is positive (services/text)
  kNonNegative,     // the text is non-negative (empty passes)
  kUnitClosed,      // cosφ: its "%.3f" text is positive, and 0 ≤ cosφ ≤ 1
  kUnitOpen,        // cosφ: its "%.3f" text is positive, and 0 < cosφ ≤ 1
  kUnitText,        // cosφ: its "%.3f" text is positive and reads as at most 1
};

struct FieldCheck {
  FieldRef field;
  Rule rule;
  std::string message;
  bool all_loads_only = false;  // form 4: only for kinds 0 and 1 (kinds 2 and 3 take P1, l1)
};

// The checks of a form of the voltage-loss page (0..4) and of the line-length page (0..1), in
// order; empty for another form.
std::span<const FieldCheck> LossChecks(int form);
std::span<const FieldCheck> LengthChecks(int form);

struct Refusal {
  FieldRef field;
  std::string message;
};
// The first check of the form that fails, or nullopt when all pass.
std::optional<Refusal> FirstRefusal(const LossInputs& in);
std::optional<Refusal> FirstRefusal(const LengthInputs& in);

}  // namespace kestra::dyss

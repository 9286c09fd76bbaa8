#include "dyss/dyss_checks.h"

#include <vector>

#include "services/text/number_checks.h"
#include "services/text/number_text.h"

namespace kestra::dyss {
namespace {

std::string Above0(const std::string& name) { return "'" + name + "'输入非法, 请输入大于0的实数!"; }

const char* const kUnitClosedMsg = "'功率因数'输入非法, 请输入[0, 1]之间实数!";
const char* const kUnitOpenMsg = "'功率因数'输入非法, 请输入(0, 1]之间实数!";

// The six-load fields: the first load must be positive, the others non-negative (empty adds nothing).
void SixLoads(std::vector<FieldCheck>& out, Field field, const char* name, bool all_loads_only) {
  for (int k = 0; k < 6; ++k)
    out.push_back({{field, k}, k == 0 ? Rule::kPositive : Rule::kNonNegative,
                   Above0(name + std::to_string(k + 1)), k > 0 && all_loads_only});
}

std::vector<std::vector<FieldCheck>> BuildLossChecks() {
  std::vector<std::vector<FieldCheck>> forms(5);
  forms[0] = {{{Field::kPowerFactor}, Rule::kUnitClosed, kUnitClosedMsg},
              {{Field::kCurrent}, Rule::kPositive, Above0("负荷计算电流")},
              {{Field::kLength}, Rule::kPositive, Above0("线路长度")}};
  forms[1] = {{{Field::kPowerFactor}, Rule::kUnitClosed, kUnitClosedMsg}};
  SixLoads(forms[1], Field::kCurrent, "负荷计算电流", false);
  SixLoads(forms[1], Field::kLength, "线路长度", false);
  forms[2] = {{{Field::kPowerFactor}, Rule::kUnitOpen, kUnitOpenMsg},
              {{Field::kLoad}, Rule::kPositive, Above0("有功负荷")},
              {{Field::kLength}, Rule::kPositive, Above0("线路长度")}};
  forms[3] = {{{Field::kPowerFactor}, Rule::kUnitOpen, kUnitOpenMsg}};
  SixLoads(forms[3], Field::kLoad, "有功负荷", false);
  SixLoads(forms[3], Field::kLength, "线路长度", false);
  forms[4] = {{{Field::kSection}, Rule::kPositive, "'线芯标称截面'输入非法, 请输入大于0的实数或从下拉列表中选择!"},
              {{Field::kCoefficient}, Rule::kPositive, "'计算系数C'输入非法, 请输入大于0的实数或从表中选择!"}};
  SixLoads(forms[4], Field::kLoad, "有功负荷", true);
  SixLoads(forms[4], Field::kLength, "线路长度", true);
  return forms;
}

std::vector<std::vector<FieldCheck>> BuildLengthChecks() {
  const FieldCheck cos{{Field::kPowerFactor}, Rule::kUnitText, "'功率因数'输入非法, 请输入[0, 1]之间的实数!"};
  const FieldCheck require{{Field::kRequire}, Rule::kPositive, Above0("线路电压损失")};
  return {{{{Field::kCurrent}, Rule::kPositive, Above0("负荷计算电流")}, cos, require},
          {{{Field::kLoad}, Rule::kPositive, Above0("有功负荷")}, cos, require}};
}

bool Passes(Rule rule, const std::string& text, double cos_phi) {
  switch (rule) {
    case Rule::kPositive: return text::IsPositive(text);
    case Rule::kNonNegative: return text::IsNonNegative(text);
    case Rule::kUnitClosed: return text::IsPositive(cos_phi) && cos_phi >= 0 && cos_phi <= 1;
    case Rule::kUnitOpen: return text::IsPositive(cos_phi) && cos_phi > 0 && cos_phi <= 1;
    case Rule::kUnitText: {
      const std::string t = text::Format3f(cos_phi);
      return text::IsPositive(t) && text::WcsToD(t) <= 1;
    }
  }
  return false;
}

template <class Inputs>
std::optional<Refusal> First(std::span<const FieldCheck> checks, const Inputs& in, bool all_loads) {
  for (const FieldCheck& c : checks) {
    if (c.all_loads_only && !all_loads) continue;
    if (!Passes(c.rule, TextOf(in, c.field), in.cos_phi)) return Refusal{c.field, c.message};
  }
  return std::nullopt;
}

}  // namespace

std::span<const FieldCheck> LossChecks(int form) {
  static const std::vector<std::vector<FieldCheck>> checks = BuildLossChecks();
  if (form < 0 || form >= static_cast<int>(checks.size())) return {};
  return checks[static_cast<std::size_t>(form)];
}

std::span<const FieldCheck> LengthChecks(int form) {
  static const std::vector<std::vector<FieldCheck>> checks = BuildLengthChecks();
  if (form < 0 || form >= static_cast<int>(checks.size())) return {};
  return checks[static_cast<std::size_t>(form)];
}

std::optional<Refusal> FirstRefusal(const LossInputs& in) {
  return First(LossChecks(in.form), in, in.kind == kThreePhase || in.kind == kSinglePhaseOnLine);
}

std::optional<Refusal> FirstRefusal(const LengthInputs& in) { return First(LengthChecks(in.form), in, true); }

}  // namespace kestra::dyss

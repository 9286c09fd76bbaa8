#include "dyss/dyss_params.h"

#include <vector>

#include "dyss/dyss_ids.h"

namespace kestra::dyss {
namespace {

ParamKey Key(std::string name, std::string default_text, Role role, int control = 0) {
  ParamKey k;
  k.name = std::move(name);
  k.default_text = std::move(default_text);
  k.role = role;
  k.control = control;
  return k;
}

ParamKey Written(std::string name, Role role, int control = 0, bool on_ok = true) {
  ParamKey k = Key(std::move(name), "", role, control);
  k.read = false;
  k.on_ok = on_ok;
  return k;
}

ParamKey FieldKey(std::string name, std::string default_text, FieldRef field, int control) {
  ParamKey k = Key("输入参数\\" + std::move(name), std::move(default_text), Role::kFieldText, control);
  k.field = field;
  return k;
}

// Line name, index positions, line-data text and cosφ of a line-data form. "确定" writes the
// line-data text on the loss page only.
void LineKeys(std::vector<ParamKey>& out, const LineFormIds& ids, const char* third_index_default,
              bool line_data_on_ok) {
  out.push_back(Key("输入参数\\线路名称", "0", Role::kLineName, ids.line_name));
  for (int i = 0; i < 3; ++i) {
    ParamKey k = Key("输入参数\\索引" + std::to_string(i + 1), i < 2 ? "0" : third_index_default, Role::kIndex,
                     ids.first_index + i);
    k.index = i;
    out.push_back(k);
  }
  out.push_back(Written("输入参数\\说明", Role::kLineData, ids.line_data, line_data_on_ok));
  out.push_back(Key("输入参数\\功率因数", "0.8", Role::kPowerFactor));
}

void SixLoads(std::vector<ParamKey>& out, const char* name, const char* default_text, Field field,
              const std::array<int, 6>& edits) {
  for (int k = 0; k < 6; ++k)
    out.push_back(FieldKey(name + std::to_string(k + 1), default_text, {field, k}, edits[static_cast<std::size_t>(k)]));
}

std::vector<std::vector<ParamKey>> BuildLossFormKeys() {
  std::vector<std::vector<ParamKey>> forms(5);
  // The loss page's forms keep an empty third index when none was stored (it reads as 0).
  for (std::size_t f = 0; f < 4; ++f) LineKeys(forms[f], kLossLineForms[f], "", true);
  forms[0].push_back(FieldKey("负荷计算电流", "1", {Field::kCurrent, 0}, IDC_DYSS_F0_I));
  forms[0].push_back(FieldKey("线路长度", "1", {Field::kLength, 0}, IDC_DYSS_F0_L));
  SixLoads(forms[1], "负荷计算电流", "1", Field::kCurrent, kF1Currents);
  SixLoads(forms[1], "线路长度", "1", Field::kLength, kF1Lengths);
  forms[2].push_back(FieldKey("有功负荷", "1000", {Field::kLoad, 0}, IDC_DYSS_F2_P));
  forms[2].push_back(FieldKey("线路长度", "1", {Field::kLength, 0}, IDC_DYSS_F2_L));
  SixLoads(forms[3], "有功负荷", "1000", Field::kLoad, kF3Loads);
  SixLoads(forms[3], "线路长度", "1", Field::kLength, kF3Lengths);
  SixLoads(forms[4], "有功负荷", "1000", Field::kLoad, kF4Loads);
  SixLoads(forms[4], "线路长度", "1", Field::kLength, kF4Lengths);
  forms[4].push_back(FieldKey("线芯标称截面", "120", {Field::kSection}, IDC_DYSS_F4_SECTION));
  forms[4].push_back(FieldKey("计算系数C", "7.66", {Field::kCoefficient}, IDC_DYSS_F4_C));
  for (auto& keys : forms) keys.push_back(Written("计算结果", Role::kResult, IDC_DYSS_RESULT));
  return forms;
}

std::vector<std::vector<ParamKey>> BuildLengthFormKeys() {
  std::vector<std::vector<ParamKey>> forms(2);
  for (std::size_t f = 0; f < 2; ++f) LineKeys(forms[f], kLengthLineForms[f], "0", false);
  forms[0].push_back(FieldKey("负荷计算电流", "1", {Field::kCurrent, 0}, IDC_DYSS_LF0_I));
  forms[1].push_back(FieldKey("有功负荷", "1000", {Field::kLoad, 0}, IDC_DYSS_LF1_P));
  const int lengths[] = {IDC_DYSS_LF0_L, IDC_DYSS_LF1_L};
  for (std::size_t f = 0; f < 2; ++f) {
    ParamKey length = FieldKey("线路长度", "1", {Field::kLength, 0}, lengths[f]);
    length.on_ok = false;  // kept for the hand-over between the forms; "确定" does not write it
    forms[f].push_back(length);
    forms[f].push_back(Key("输入参数\\要求", "0.2", Role::kRequire, IDC_DYSS_REQUIRE));
    forms[f].push_back(Written("计算结果", Role::kResult, IDC_DYSS_LEN_RESULT));
  }
  return forms;
}

template <class Tables>
std::span<const ParamKey> Pick(const Tables& tables, int form) {
  if (form < 0 || form >= static_cast<int>(tables.size())) return {};
  return tables[static_cast<std::size_t>(form)];
}

}  // namespace

const ParamKey& ActivePageKey() {
  static const ParamKey key = Key("Cal\\DyssCal\\当前页", "0", Role::kActivePage);
  return key;
}

std::span<const ParamKey> LossPageKeys() {
  static const std::vector<ParamKey> keys = {
      Key("Cal\\DyssCal\\Page1\\线路种类", "0", Role::kListPosition, IDC_DYSS_KIND),
      Key("Cal\\DyssCal\\Page1\\负荷情况", "0", Role::kListPosition, IDC_DYSS_CASE)};
  return keys;
}

std::span<const ParamKey> LengthPageKeys() {
  static const std::vector<ParamKey> keys = {
      Key("Cal\\DyssCal\\Page2\\线路种类", "0", Role::kListPosition, IDC_DYSS_LEN_KIND),
      Key("Cal\\DyssCal\\Page2\\负荷情况", "0", Role::kListPosition, IDC_DYSS_LEN_CASE),
      Written("Cal\\DyssCal\\Page2\\线路电压损失", Role::kRequire, IDC_DYSS_REQUIRE)};
  return keys;
}

std::span<const ParamKey> LossFormKeys(int form) {
  static const std::vector<std::vector<ParamKey>> keys = BuildLossFormKeys();
  return Pick(keys, form);
}

std::span<const ParamKey> LengthFormKeys(int form) {
  static const std::vector<std::vector<ParamKey>> keys = BuildLengthFormKeys();
  return Pick(keys, form);
}

std::string LossFormPrefix(int form) { return "Cal\\DyssCal\\Page1\\Input" + std::to_string(form + 1) + "\\"; }
std::string LengthFormPrefix(int form) { return "Cal\\DyssCal\\Page2\\Input" + std::to_string(form + 1) + "\\"; }

std::span<const ParamKey> HarmonicKeys() {
  static const std::vector<ParamKey> keys = {
      Key("PmData\\PdXBDL\\Check", "1", Role::kCheck, IDC_DYSS_HARM_CHECK),
      Key("PmData\\PdXBDL\\Box", "1", Role::kListPosition, IDC_DYSS_HARM_LIST),
      Key("PmData\\PdXBDL\\GeDing", "1.0", Role::kControlText, IDC_DYSS_RATED),
      Key("PmData\\PdXBDL\\XiaoZheng", "0.86", Role::kControlText, IDC_DYSS_K),
      Key("PmData\\PdXBDL\\JieMian", "1.0", Role::kControlText, IDC_DYSS_I_PRIME)};
  return keys;
}

}  // namespace kestra::dyss

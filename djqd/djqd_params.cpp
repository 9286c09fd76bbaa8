#include "djqd/djqd_params.h"

#include "services/idp/idp_values.h"
#include "services/idp/inter_dp_data.h"
#include "services/text/number_text.h"

namespace kestra::djqd {
namespace {

using W = WorkingValues;
using O = KeyOwner;

constexpr ParamKey Int(const char* key, const char* def, O owner, int W::*m) { return {key, def, owner, m, nullptr}; }
constexpr ParamKey Num(const char* key, const char* def, O owner, double W::*m) { return {key, def, owner, nullptr, m}; }

constexpr ParamKey kKeys[] = {
    Int(kKeyCurPage, "0", O::Dialog, &W::m_nCurPage),
    Int(kKeyCurInput, "0", O::Dialog, &W::m_nCurInput),
    Int("Page1\\线缆参数\\类型", "0", O::Dialog, &W::m_nCableType),
    Num("Page1\\线缆参数\\截面", "120", O::Dialog, &W::m_dSection),
    Num("Page1\\线缆参数\\长度", "0.025", O::Dialog, &W::m_dLength),
    Int("Page1\\电机选择\\系列名称", "0", O::Dialog, &W::m_nSeries),
    Int("Page1\\电机选择\\型号", "0", O::Dialog, &W::m_nModel),
    Num("Page1\\电机选择\\功率", "185", O::Dialog, &W::m_dPr),
    Num("Page1\\电机选择\\转速", "980", O::Dialog, &W::m_dNr),
    Num("Page1\\电机选择\\额定电流", "337", O::Dialog, &W::m_dIr),
    Num("Page1\\电机选择\\起动电流", "2025", O::Dialog, &W::m_dIq),
    Num("Page1\\电机选择\\额定电压", "0.38", O::Dialog, &W::m_dUr),
    Num("Page1\\Input1\\系统短路容量", "50", O::Form1, &W::m_dSk),
    Num("Page1\\Input1\\变压器额定容量", "0.63", O::Form1, &W::m_dSrT),
    Num("Page1\\Input1\\变压器阻抗电压相对值", "0.045", O::Form1, &W::m_dUT),
    Num("Page1\\Input1\\预接负荷", "0.4", O::Form1, &W::m_dSfh),
    Num("Page1\\Input1\\功率因数", "0.8", O::Form1, &W::m_dCosPhi),
    Num("Page1\\Input1\\母线标称电压", "0.38", O::Form1, &W::m_dUM),
    Num("Page1\\Input2\\系统短路容量", "50", O::Form2, &W::m_dSk),
    Num("Page1\\Input2\\变压器额定容量", "0.63", O::Form2, &W::m_dSrT),
    Num("Page1\\Input2\\变压器阻抗电压相对值", "0.045", O::Form2, &W::m_dUT),
    Num("Page1\\Input2\\预接负荷", "0.4", O::Form2, &W::m_dSfh),
    Num("Page1\\Input2\\功率因数", "0.8", O::Form2, &W::m_dCosPhi),
    Num("Page1\\Input2\\母线标称电压", "0.38", O::Form2, &W::m_dUM),
    Num("Page1\\Input3\\系统短路容量", "50", O::Form3, &W::m_dSk),
    Num("Page1\\Input3\\每相电抗器额定电抗", "1.05", O::Form3, &W::m_dXk),
    Num("Page1\\Input3\\预接负荷", "1.0", O::Form3, &W::m_dSfh),
    Num("Page1\\Input3\\功率因数", "0.8", O::Form3, &W::m_dCosPhi),
    Num("Page1\\Input3\\母线标称电压", "6", O::Form3, &W::m_dUM),
    Num("Page1\\Input4\\系统短路容量", "50", O::Form4, &W::m_dSk),
    Num("Page1\\Input4\\自耦变压器变压比", "0.55", O::Form4, &W::m_dKz),
    Num("Page1\\Input4\\预接负荷", "1.0", O::Form4, &W::m_dSfh),
    Num("Page1\\Input4\\功率因数", "0.8", O::Form4, &W::m_dCosPhi),
    Num("Page1\\Input4\\母线标称电压", "0.38", O::Form4, &W::m_dUM),
    Num("Page2\\输入参数\\系统短路容量", "50", O::Dialog, &W::m_dSk),
    Num("Page2\\输入参数\\预接负荷", "0.4", O::Dialog, &W::m_dSfh),
    Num("Page2\\输入参数\\功率因数", "0.8", O::Dialog, &W::m_dCosPhi),
    Num("Page2\\输入参数\\母线标称电压", "0.38", O::Dialog, &W::m_dUM),
    Int("Page2\\线缆参数\\类型", "0", O::Dialog, &W::m_nCableType),
    Num("Page2\\线缆参数\\截面", "120", O::Dialog, &W::m_dSection),
    Num("Page2\\线缆参数\\长度", "0.025", O::Dialog, &W::m_dLength),
    Int("Page2\\电机选择\\系列名称", "0", O::Dialog, &W::m_nSeries),
    Int("Page2\\电机选择\\型号", "0", O::Dialog, &W::m_nModel),
    Num("Page2\\电机选择\\功率", "185", O::Dialog, &W::m_dPr),
    Num("Page2\\电机选择\\转速", "980", O::Dialog, &W::m_dNr),
    Num("Page2\\电机选择\\额定电流", "337", O::Dialog, &W::m_dIr),
    Num("Page2\\电机选择\\起动电流", "2025", O::Dialog, &W::m_dIq),
    Num("Page2\\电机选择\\额定电压", "0.38", O::Dialog, &W::m_dUr),
    Num("Page2\\计算要求\\母线电压相对值", "0.9", O::Dialog, &W::m_dUstmReq),
    Num("Page3\\输入参数\\系统短路容量", "50", O::Dialog, &W::m_dSk),
    Num("Page3\\输入参数\\预接负荷", "0.4", O::Dialog, &W::m_dSfh),
    Num("Page3\\输入参数\\功率因数", "0.8", O::Dialog, &W::m_dCosPhi),
    Num("Page3\\输入参数\\母线标称电压", "0.38", O::Dialog, &W::m_dUM),
    Int("Page3\\线缆参数\\类型", "0", O::Dialog, &W::m_nCableType),
    Num("Page3\\线缆参数\\截面", "120", O::Dialog, &W::m_dSection),
    Num("Page3\\线缆参数\\长度", "0.025", O::Dialog, &W::m_dLength),
    Int("Page3\\电机选择\\系列名称", "0", O::Dialog, &W::m_nSeries),
    Int("Page3\\电机选择\\型号", "0", O::Dialog, &W::m_nModel),
    Num("Page3\\电机选择\\功率", "185", O::Dialog, &W::m_dPr),
    Num("Page3\\电机选择\\转速", "980", O::Dialog, &W::m_dNr),
    Num("Page3\\电机选择\\额定电流", "337", O::Dialog, &W::m_dIr),
    Num("Page3\\电机选择\\起动电流", "2025", O::Dialog, &W::m_dIq),
    Num("Page3\\电机选择\\额定电压", "0.38", O::Dialog, &W::m_dUr),
    Num("Page3\\计算要求\\母线电压相对值", "0.9", O::Dialog, &W::m_dUstmReq),
    Num(kKeyMstm, "1.1", O::SubDialogs, &W::m_dMstM),
    Num(kKeyMj, "0.3", O::SubDialogs, &W::m_dMj),
    Num(kKeyJ2, "8", O::SubDialogs, &W::m_dJ2),
    Num(kKeyMstp, "1.1", O::SubDialogs, &W::m_dMstp),
};

}  // namespace

std::span<const ParamKey> ParamKeys() { return kKeys; }

KeyOwner FormOwner(int form) {
  constexpr KeyOwner kOwners[4] = {O::Form1, O::Form2, O::Form3, O::Form4};
  return kOwners[form];
}

std::string FullKey(const char* key) { return std::string(kKeyRoot) + key; }

static void Write(CInterDpData& tree, const WorkingValues& v, const ParamKey& k) {
  idp::SetValue(tree, FullKey(k.key), k.integer ? text::FormatD(v.*k.integer) : text::Format3f(v.*k.number));
}

void ReadParams(const CInterDpData& tree, WorkingValues& v) {
  for (const ParamKey& k : kKeys) {
    const std::string text = idp::ValueOr(tree, FullKey(k.key), k.default_text);
    if (k.integer) v.*k.integer = text::WToI(text);
    else v.*k.number = text::WcsToD(text);
  }
}

void WriteParams(CInterDpData& tree, const WorkingValues& v, KeyOwner owner) {
  for (const ParamKey& k : kKeys)
    if (k.owner == owner) Write(tree, v, k);
}

void WriteInputParams(CInterDpData& tree, const WorkingValues& v) {
  for (const ParamKey& k : kKeys)
    if (k.owner != O::SubDialogs) Write(tree, v, k);
}

}  // namespace kestra::djqd

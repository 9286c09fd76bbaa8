#pragma once
// The calculator's parameter file "Kestra\电机启动计算.idp": its working values, every key
// with its default in the order the dialog reads them (several pages feed the same working
// value, so a later key overrides an earlier one), and the result keys that are only written.
// Keys are given under kKeyRoot.
#include <span>
#include <string>

class CInterDpData;

namespace kestra::djqd {

inline constexpr const char* kParamFile = "Kestra\\电机启动计算.idp";
inline constexpr const char* kKeyRoot = "Cal\\Djqdcal\\";

// One set of values shared by the three pages and the four forms, with the active page and
// starting method that are stored beside them.
struct WorkingValues {
  int m_nCurPage = 0;
  int m_nCurInput = 0;
  double m_dSk = 0;       // S" (form 0) or Skm, MVA
  double m_dSrT = 0;      // MVA
  double m_dUT = 0;
  double m_dSfh = 0;      // MVA
  double m_dCosPhi = 0;
  double m_dUM = 0;       // kV
  int m_nCableType = 0;
  double m_dSection = 0;  // mm²
  double m_dLength = 0;   // km
  int m_nSeries = 0;
  int m_nModel = 0;
  double m_dPr = 0;       // kW
  double m_dNr = 0;       // r/min
  double m_dIr = 0;       // A
  double m_dIq = 0;       // A
  double m_dUr = 0;       // kV
  double m_dXk = 0;       // Ω
  double m_dKz = 0;
  double m_dUstmReq = 0;
  double m_dMstM = 0;
  double m_dMj = 0;
  double m_dJ2 = 0;
  double m_dMstp = 0;
  // Results and intermediate values of the last calculation.
  double m_dUstm = 0, m_dustM = 0, m_dIstm = 0;
  double m_dXkCalc = 0, m_dXz = 0, m_dKzCalc = 0;
  double m_dSstm = 0, m_dSst = 0;
};

// Who stores a key: the dialog at "确定", a form of the first page when the method changes,
// or the torque and starting-time dialogs.
enum class KeyOwner { Dialog, Form1, Form2, Form3, Form4, SubDialogs };

struct ParamKey {
  const char* key;           // under kKeyRoot
  const char* default_text;  // for a missing key or an empty text
  KeyOwner owner;
  int WorkingValues::*integer;  // exactly one of the two is set
  double WorkingValues::*number;
};

// Every key, in reading order.
std::span<const ParamKey> ParamKeys();
// The owner of form k (0 to 3) of the first page.
KeyOwner FormOwner(int form);

// Reads every key in order into v: integers with _wtoi, numbers with wcstod.
void ReadParams(const CInterDpData& tree, WorkingValues& v);
// Writes the keys of one owner from v: integers in decimal, numbers with "%.3f".
void WriteParams(CInterDpData& tree, const WorkingValues& v, KeyOwner owner);
// What "确定" stores: every key but those of the torque and starting-time dialogs.
void WriteInputParams(CInterDpData& tree, const WorkingValues& v);
// kKeyRoot + key.
std::string FullKey(const char* key);

// Keys written by the torque and starting-time dialogs.
inline constexpr const char* kKeyMstm = "Testzj\\电机起动转矩相对值";
inline constexpr const char* kKeyMj = "校验\\电机静阻转矩相对值";
inline constexpr const char* kKeyJ2 = "Caltime\\机械转动惯量";
inline constexpr const char* kKeyMstp = "Caltime\\电机平均起动转矩相对值";
inline constexpr const char* kKeyCurPage = "当前页";
inline constexpr const char* kKeyCurInput = "当前输入对话框";

// Result keys, written only. The first page keeps the results of each form apart; forms 1
// to 3 also keep the overload check (name and value joined).
struct FormResultKeys {
  const char* ustm;
  const char* ustm_motor;
  const char* istm;
  const char* overload;  // nullptr on the full-voltage form
};
inline constexpr FormResultKeys kFormResultKeys[4] = {
    {"Page1\\Input1\\计算结果\\母线电压相对值", "Page1\\Input1\\计算结果\\电机端子电压相对值",
     "Page1\\Input1\\计算结果\\实际起动电流", nullptr},
    {"Page1\\Input2\\计算结果\\母线电压相对值", "Page1\\Input2\\计算结果\\电机端子电压相对值",
     "Page1\\Input2\\计算结果\\实际起动电流", "Page1\\Input2\\计算结果\\校验结果"},
    {"Page1\\Input3\\计算结果\\母线电压相对值", "Page1\\Input3\\计算结果\\电机端子电压相对值",
     "Page1\\Input3\\计算结果\\实际起动电流", "Page1\\Input3\\计算结果\\校验结果"},
    {"Page1\\Input4\\计算结果\\母线电压相对值", "Page1\\Input4\\计算结果\\电机端子电压相对值",
     "Page1\\Input4\\计算结果\\实际起动电流", "Page1\\Input4\\计算结果\\校验结果"},
};

// The reactor and ratio pages: five result texts each, in the order of the result group.
inline constexpr const char* kReactorResultKeys[5] = {
    "Page2\\计算结果\\计算电抗值", "Page2\\计算结果\\实际电抗值", "Page2\\计算结果\\母线电压相对值",
    "Page2\\计算结果\\电机端子电压相对值", "Page2\\计算结果\\实际起动电流"};
inline constexpr const char* kKeyReactorModel = "Page2\\电抗器型号选择";
inline constexpr const char* kRatioResultKeys[5] = {
    "Page3\\计算结果\\计算变压比", "Page3\\计算结果\\实际变压比", "Page3\\计算结果\\母线电压相对值",
    "Page3\\计算结果\\电机端子电压相对值", "Page3\\计算结果\\实际起动电流"};

inline constexpr const char* kKeyTorqueVerdict = "Testzj\\校验结果";
inline constexpr const char* kKeyStartingTime = "Caltime\\电机起动时间";

}  // namespace kestra::djqd

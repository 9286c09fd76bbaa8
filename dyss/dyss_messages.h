#pragma once
// What the voltage-loss calculator says to the designer outside its input checks (those are in
// dyss_checks.h; their caption is the host application's title).
namespace kestra::dyss {

inline constexpr const char* kDyssTitle = "电压损失计算";
// A power-factor spin on a value outside 0..1 (caption kDyssTitle); the value becomes 0.
inline constexpr const char* kMsgSpinRange = "请输入0 ～ 1之间的实数!";
// The rated ampacity is below the section current I′ under harmonics.
inline constexpr const char* kMsgAmpacityShort = "额定载流量小于导线截面电流\n错误!请重新设置";
inline constexpr const char* kAmpacityCaption = "提示";
inline constexpr const char* kMsgHelp = "HELP!";

// What a result edit (and the report, and the key "计算结果") holds when a calculation passed its
// checks but has no number: the line has no data (U = 0, no impedance), or the kind has no such
// form. A quotient that is not finite shows the words of services/text ("溢出", "无效").
inline constexpr const char* kNoLineDataText = "无线路数据";
inline constexpr const char* kNoFormulaText = "无计算公式";

}  // namespace kestra::dyss

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

}  // namespace kestra::dyss

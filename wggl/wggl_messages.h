#pragma once
// What the reactive compensation dialogs say to the designer; every box has the caption "警告".
namespace kestra::wggl {

inline constexpr const char* kWarningCaption = "警告";
inline constexpr const char* kMsgNegativeCapacity =
    "补偿容量结果不能为负,请查看自然平均功率因数和补偿后功率因数,单击确认,结果取绝对值";
inline constexpr const char* kMsgNoRating = "没有输入单个电容器额定容量或不能为零,无法计算单个电容器的数量!";
inline constexpr const char* kMsgActiveLoadZero = "有功计算负荷作为除数不能为零 !";
inline constexpr const char* kMsgActiveEnergyZero = "有功电能消耗量作为除数不能为零 !";
inline constexpr const char* kMsgNaturalFactorRange = "计算出的自然平均功率因数(范围从0.1到1.0)超出最小值范围";
// A power factor of 0, or one outside −1…1, has no finite tangent: nothing is calculated.
inline constexpr const char* kMsgBadNaturalFactor = "'自然平均功率因数'输入非法, 请输入[-1, 1]之间非零实数!";
inline constexpr const char* kMsgBadTargetFactor = "'补偿后功率因数'输入非法, 请输入[-1, 1]之间非零实数!";

}  // namespace kestra::wggl

#pragma once
// What the motor-start dialogs say to the designer, and the names they show. The input checks
// appear without a caption of their own (the application's title); the other captions are
// given beside their messages.
namespace kestra::djqd {

inline constexpr const char* kDialogTitle = "电机起动计算";
inline constexpr const char* kErrorCaption = "错误!";

// Starting methods in combo order, and the slide of each.
inline constexpr const char* kMethodNames[4] = {"全压起动", "变压器-电动机组(全压起动)", "电抗器降压起动",
                                                "自耦变压器降压起动"};
inline constexpr const char* kSlideNames[4] = {"Jsdl1", "Jsdl2", "Jsdl3", "Jsdl4"};
inline constexpr const char* kCableTypeNames[4] = {"铜", "铝", "聚乙烯", "纸绝缘"};

// Input checks of "计算", in the words of each field.
inline constexpr const char* kMsgNoCableType = "请选择线缆类型!";
inline constexpr const char* kMsgSection = "'线缆截面'输入非法, 请输入>=0的实数或从下拉列表中选择!";
inline constexpr const char* kMsgLength = "'线缆长度'输入非法, 请输入>=0的实数!";
inline constexpr const char* kMsgPower = "'电机功率'输入非法, 请输入>0的实数!";
inline constexpr const char* kMsgSpeed = "'电机转速'输入非法, 请输入>0的实数!";
inline constexpr const char* kMsgRatedCurrent = "'电机额定电流'输入非法, 请输入>0的实数!";
inline constexpr const char* kMsgStartingCurrent = "'电机起动电流'输入非法, 请输入>0的实数!";
inline constexpr const char* kMsgRatedVoltage = "'电机额定电压'输入非法, 请输入>0的实数!";
inline constexpr const char* kMsgShortCircuit = "'系统短路容量'输入非法, 请输入>0的实数!";
inline constexpr const char* kMsgTransformerCapacity = "'变压器额定容量'输入非法, 请输入>0的实数!";
inline constexpr const char* kMsgImpedanceVoltage = "'变压器阻抗电压相对值'输入非法, 请输入>0的实数!";
inline constexpr const char* kMsgReactance = "'每相电抗器额定电抗'输入非法, 请输入>0的实数!";
inline constexpr const char* kMsgRatio = "'自耦变压器变压比'输入非法, 请输入>0的实数!";
inline constexpr const char* kMsgLoad = "'预接负荷'输入非法, 请输入>0的实数!";
inline constexpr const char* kMsgPowerFactor = "'功率因数'输入非法, 请输入>0的实数!";
// A typed power factor above 1 has no sine: refused once every field check has passed, so
// that no calculation runs into the root of a negative number.
inline constexpr const char* kMsgPowerFactorAboveOne = "'功率因数'输入非法, 请输入(0, 1]之间的实数!";
inline constexpr const char* kMsgBusVoltage = "'母线标称电压'输入非法, 请输入>0的实数!";
inline constexpr const char* kMsgRequiredUstm = "'母线电压相对值计算要求'输入非法, 请输入(0, 1)之间的实数!";
// The re-check with an actual ratio words two of its messages differently.
inline constexpr const char* kMsgNoCableTypeRecheck = "'请选择线缆类型!";
inline constexpr const char* kMsgRequiredUstmRecheck = "'母线电压相对值'输入非法, 请输入>0的实数!";

// The power-factor spins (caption kDialogTitle).
inline constexpr const char* kMsgSpinPowerFactor = "请输入(0 ～1]之间的实数!";
// The slide library (caption kErrorCaption).
inline constexpr const char* kMsgNoSlideLibrary = "找不到文件Djqd.slb, 程序调用失败!";
inline constexpr const char* kMsgHelp = "HELP!";

// The motor catalogue.
inline constexpr const char* kMsgNoMotorTable = "Motor.Mdb 文件内容错误!\n 表名称应为'电机', 请更正!";
inline constexpr const char* kMsgNoMotorSearchColumns =
    "Motor.Mdb 文件内容错误!\n检索项应为 '￥系列名称' 和 '￥型号', 请更正!";

// The catalogue pick dialog: its modes and the source notes its callers give it.
inline constexpr const char* kTransformerTableLabel = "变压器系列名称:";
inline constexpr const char* kTransformerCaption = "变压器阻抗平均值";
inline constexpr const char* kReactorTableLabel = "起动电抗器:";
inline constexpr const char* kReactorCaption = "起动电抗器数据";
inline constexpr const char* kNoteTransformers =
    "以上数据摘自<<工业与民用配电设计手册>>P130~P132,数据库文件名为ByqZk.Mdb。";
inline constexpr const char* kNoteReactors = "以上数据摘自<<工业与民用配电设计手册>>P221,数据库文件名为QdDkq.Mdb。";

// The reactor and ratio pages.
inline constexpr const char* kMsgZeroReactance = "实际电抗值不能是0!\n请调整参数重新计算!";
inline constexpr const char* kMsgNoReactorModel = "没有适当的电抗器型号!";
inline constexpr const char* kMsgNoRatio = "计算结果小于0，不合理！\n请适当加大线缆截面S或减小线缆长度l!";
inline constexpr const char* kMsgBadActualRatio = "'实际变压比'输入非法, 请输入>0的实数或从下拉列表中选择!";
inline constexpr const char* kMsgActualRatioAbove = "'实际变压比'不能大于'计算变压比', 请重新选择或输入!";

// The torque and starting-time dialogs.
inline constexpr const char* kMsgMstm = "'电机起动转矩相对值'输入非法, 请输入>0的实数!";
inline constexpr const char* kMsgMj = "'电机静阻转矩相对值'输入非法, 请输入>0的实数或从表中选择!";
inline constexpr const char* kMsgJ2 = "'机械转动惯量'输入非法, 请输入>0的实数!";
inline constexpr const char* kMsgMstp = "'电机平均起动转矩相对值'输入非法, 请输入>0的实数!";
inline constexpr const char* kTorquePasses = "校验通过!";
inline constexpr const char* kTorqueFails = "校验不通过，请调整设计参数!";
inline constexpr const char* kNoCheckResult = "无校验结果!";
inline constexpr const char* kOverloadTitle = "校验起动电器过负荷能力:";
inline constexpr const char* kOverloadTransformerUnit = "KI =";
inline constexpr const char* kOverloadReactor = "Iqk >";
inline constexpr const char* kOverloadAutotransformer = "SrTz >";

}  // namespace kestra::djqd

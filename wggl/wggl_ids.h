#pragma once
// Template and control ids of the reactive compensation dialogs; res/wggl.rc defines the same
// numbers under the same names.
namespace kestra::wggl {

inline constexpr int IDD_WGGLBC = 30100;    // CWgglbcDlg "无功功率补偿"
inline constexpr int IDD_WGGADD = 30101;    // CWGGADDDLG "正在设计中的电气系统"
inline constexpr int IDD_WGGSYYN = 30102;   // CWGGSYYN "已使用一年的电气系统"
inline constexpr int IDD_WGGSMDLD = 30103;  // CWGGSMDLD "说明"

// CWgglbcDlg
inline constexpr int IDC_ZRGLYS = 1001;      // natural average power factor cosφ1
inline constexpr int IDC_ZRGLYS_SPIN = 1002;
inline constexpr int IDC_RADIO_DESIGN = 1003;  // "正在设计中的电气系统"
inline constexpr int IDC_RADIO_INUSE = 1004;   // "已使用一年的电气系统"
inline constexpr int IDC_BCHGLYS = 1005;     // power factor after compensation cosφ2
inline constexpr int IDC_BCHGLYS_SPIN = 1006;
inline constexpr int IDC_FHXS = 1007;        // load coefficient α
inline constexpr int IDC_FHXS_SPIN = 1008;
inline constexpr int IDC_YGJSFH = 1009;      // active calculated load Pjs
inline constexpr int IDC_QC = 1010;          // compensation capacity Qc
inline constexpr int IDC_SFDRSL = 1011;      // check box "计算电容数量"
inline constexpr int IDC_DRRL = 1012;        // rating of one capacitor q
inline constexpr int IDC_DRSL = 1013;        // number of capacitors n
inline constexpr int IDC_SJBCRL = 1014;      // actual compensation capacity
inline constexpr int IDC_CALC = 1015;        // "计算"
inline constexpr int IDC_REPORT = 1016;      // "  输出\n计算文件"
inline constexpr int IDC_EXPLAIN = 1017;     // "?说明"
inline constexpr int IDC_HELPBTN = 1018;     // "帮助"
inline constexpr int IDC_DRRL_LABEL = 1020;
inline constexpr int IDC_DRRL_UNIT = 1021;
inline constexpr int IDC_DRSL_LABEL = 1022;
inline constexpr int IDC_SJBCRL_LABEL = 1023;
inline constexpr int IDC_SJBCRL_UNIT = 1024;

// CWGGADDDLG
inline constexpr int IDC_ADD_YGFHXS = 1101;  // α'
inline constexpr int IDC_ADD_YGFHXS_SPIN = 1102;
inline constexpr int IDC_ADD_WGFHXS = 1103;  // β
inline constexpr int IDC_ADD_WGFHXS_SPIN = 1104;
inline constexpr int IDC_ADD_YGJSFH = 1105;  // Pjs
inline constexpr int IDC_ADD_WGJSFH = 1106;  // Qjs

// CWGGSYYN
inline constexpr int IDC_SYYN_YGDN = 1201;   // Wm
inline constexpr int IDC_SYYN_WGDN = 1202;   // Wrm

// CWGGSMDLD
inline constexpr int IDC_SM_FRAME = 1301;    // placeholder of the rich-text page
inline constexpr int IDC_SM_RTF = 1302;      // the rich-text control created over it

}  // namespace kestra::wggl

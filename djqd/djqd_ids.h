#pragma once
// Template and control ids of the motor-start dialogs; res/djqd.rc defines the same numbers
// under the same names. Every id is unique across the calculator's templates (IDOK and
// IDCANCEL aside), so a script reaches a control by its id whichever page or form holds it.
//
// The pages are named by their classes and parameter keys: PAGE1 is the first tab
// (CDjqdPage1dlg, keys "Page1\..."), PAGE2 the reactor page, PAGE3 the autotransformer page.
namespace kestra::djqd {

// Templates.
inline constexpr int IDD_DJQD_CAL = 20284;      // CDjqdCalDlg "电机起动计算"
inline constexpr int IDD_DJQD_CALTIME = 20285;  // CCaltimeDlg "计算电机起动时间"
inline constexpr int IDD_DJQD_INPUT1 = 20286;   // CDjqdInput1Dlg, full-voltage starting
inline constexpr int IDD_DJQD_INPUT2 = 20287;   // CDjqdInput2Dlg, transformer-motor unit
inline constexpr int IDD_DJQD_INPUT3 = 20288;   // CDjqdInput3Dlg, reactor starting
inline constexpr int IDD_DJQD_INPUT4 = 20289;   // CDjqdInput4Dlg, autotransformer starting
inline constexpr int IDD_DJQD_PAGE1 = 20290;    // CDjqdPage1dlg "电机起动时的压降计算"
inline constexpr int IDD_DJQD_PAGE2 = 20291;    // CDjqdPage2dlg "电抗器降压起动方式下电抗器计算"
inline constexpr int IDD_DJQD_QUERY = 20292;    // CDjqdQueryDlg, catalogue pick dialog
inline constexpr int IDD_DJQD_TESTZJ = 20293;   // CTestzjDlg "校验机械起动转矩"
inline constexpr int IDD_DJQD_ZHJ = 20294;      // CZhjDlg "电机静阻转矩相对值"
inline constexpr int IDD_DJQD_PAGE3 = 20283;    // CDjqdPage3dlg "降压起动方式下自耦变压器变压比计算"

// CDjqdCalDlg
inline constexpr int IDC_DJQD_CALC = 20327;         // "计算"
inline constexpr int IDC_DJQD_REPORT = 20328;       // "计算书"
inline constexpr int IDC_DJQD_HELP = 20336;         // "帮助"
inline constexpr int IDC_DJQD_SHEET_FRAME = 20346;  // hidden frame the tab sheet is placed by

// The four input forms. Each form's ids are its base (20400, 20420, 20440, 20460) plus the
// same offset for the same field; a label stands just before its edit or combo.
inline constexpr int IDC_DJQD_IN1_SK_LABEL = 20401;     // "系统短路容量S\"(MVA):"
inline constexpr int IDC_DJQD_IN1_SK = 20402;
inline constexpr int IDC_DJQD_IN1_SRT_LABEL = 20403;    // "变压器额定容量SrT(MVA):"
inline constexpr int IDC_DJQD_IN1_SRT = 20404;
inline constexpr int IDC_DJQD_IN1_SRT_PICK = 20405;     // "<" transformer catalogue
inline constexpr int IDC_DJQD_IN1_UT_LABEL = 20406;     // "变压器阻抗电压相对值UT:"
inline constexpr int IDC_DJQD_IN1_UT = 20407;
inline constexpr int IDC_DJQD_IN1_SFH_LABEL = 20408;    // "预接负荷Sfh(MVA):"
inline constexpr int IDC_DJQD_IN1_SFH = 20409;
inline constexpr int IDC_DJQD_IN1_COS_LABEL = 20410;    // "功率因数cosφ:"
inline constexpr int IDC_DJQD_IN1_COS = 20411;
inline constexpr int IDC_DJQD_IN1_COS_SPIN = 20412;
inline constexpr int IDC_DJQD_IN1_UM_LABEL = 20413;     // "母线标称电压UM(kV):"
inline constexpr int IDC_DJQD_IN1_UM = 20414;           // editable combo

inline constexpr int IDC_DJQD_IN2_SKM_LABEL = 20421;    // "母线短路容量Skm(MVA):"
inline constexpr int IDC_DJQD_IN2_SKM = 20422;
inline constexpr int IDC_DJQD_IN2_SRT_LABEL = 20423;
inline constexpr int IDC_DJQD_IN2_SRT = 20424;
inline constexpr int IDC_DJQD_IN2_SRT_PICK = 20425;
inline constexpr int IDC_DJQD_IN2_UT_LABEL = 20426;
inline constexpr int IDC_DJQD_IN2_UT = 20427;
inline constexpr int IDC_DJQD_IN2_SFH_LABEL = 20428;
inline constexpr int IDC_DJQD_IN2_SFH = 20429;
inline constexpr int IDC_DJQD_IN2_COS_LABEL = 20430;
inline constexpr int IDC_DJQD_IN2_COS = 20431;
inline constexpr int IDC_DJQD_IN2_COS_SPIN = 20432;
inline constexpr int IDC_DJQD_IN2_UM_LABEL = 20433;
inline constexpr int IDC_DJQD_IN2_UM = 20434;

inline constexpr int IDC_DJQD_IN3_SKM_LABEL = 20441;
inline constexpr int IDC_DJQD_IN3_SKM = 20442;
inline constexpr int IDC_DJQD_IN3_XK_LABEL = 20443;     // "每相电抗器额定电抗Xk(Ω):"
inline constexpr int IDC_DJQD_IN3_XK = 20444;
inline constexpr int IDC_DJQD_IN3_XK_PICK = 20445;      // "<" reactor catalogue
inline constexpr int IDC_DJQD_IN3_SFH_LABEL = 20448;
inline constexpr int IDC_DJQD_IN3_SFH = 20449;
inline constexpr int IDC_DJQD_IN3_COS_LABEL = 20450;
inline constexpr int IDC_DJQD_IN3_COS = 20451;
inline constexpr int IDC_DJQD_IN3_COS_SPIN = 20452;
inline constexpr int IDC_DJQD_IN3_UM_LABEL = 20453;
inline constexpr int IDC_DJQD_IN3_UM = 20454;

inline constexpr int IDC_DJQD_IN4_SKM_LABEL = 20461;
inline constexpr int IDC_DJQD_IN4_SKM = 20462;
inline constexpr int IDC_DJQD_IN4_KZ_LABEL = 20463;     // "自耦变压器变压比Kz:"
inline constexpr int IDC_DJQD_IN4_KZ = 20464;           // editable combo
inline constexpr int IDC_DJQD_IN4_SFH_LABEL = 20468;
inline constexpr int IDC_DJQD_IN4_SFH = 20469;
inline constexpr int IDC_DJQD_IN4_COS_LABEL = 20470;
inline constexpr int IDC_DJQD_IN4_COS = 20471;
inline constexpr int IDC_DJQD_IN4_COS_SPIN = 20472;
inline constexpr int IDC_DJQD_IN4_UM_LABEL = 20473;
inline constexpr int IDC_DJQD_IN4_UM = 20474;

// CDjqdPage1dlg: starting method, forms, picture, cable, motor, results.
inline constexpr int IDC_DJQD_P1_METHOD_LABEL = 20540;  // "起动方式:"
inline constexpr int IDC_DJQD_P1_METHOD = 20541;        // drop-down list of the four methods
inline constexpr int IDC_DJQD_P1_INPUT_GROUP = 20542;   // "输入参数"
inline constexpr int IDC_DJQD_P1_INPUT_FRAME = 20553;   // hidden frame the forms are placed in
inline constexpr int IDC_DJQD_P1_CABLE_GROUP = 20556;   // "线缆参数"
inline constexpr int IDC_DJQD_P1_CABLE_TYPE_LABEL = 20557;
inline constexpr int IDC_DJQD_P1_CABLE_TYPE = 20558;    // drop-down list "铜" … "纸绝缘"
inline constexpr int IDC_DJQD_P1_SECTION_LABEL = 20559;
inline constexpr int IDC_DJQD_P1_SECTION = 20560;       // editable combo of sections
inline constexpr int IDC_DJQD_P1_LENGTH_LABEL = 20561;
inline constexpr int IDC_DJQD_P1_LENGTH = 20562;
inline constexpr int IDC_DJQD_P1_CABLE_NOTE = 20563;
inline constexpr int IDC_DJQD_P1_METHOD_GROUP = 20588;  // caption: the method's name
inline constexpr int IDC_DJQD_P1_PICTURE = 20593;       // the method's slide
inline constexpr int IDC_DJQD_P1_MOTOR_GROUP = 20600;   // "电机选择"
inline constexpr int IDC_DJQD_P1_SERIES_LABEL = 20601;
inline constexpr int IDC_DJQD_P1_SERIES = 20602;
inline constexpr int IDC_DJQD_P1_MODEL_LABEL = 20603;
inline constexpr int IDC_DJQD_P1_MODEL = 20604;
inline constexpr int IDC_DJQD_P1_MOTOR_NOTE = 20605;
inline constexpr int IDC_DJQD_P1_POWER_LABEL = 20619;
inline constexpr int IDC_DJQD_P1_POWER = 20620;
inline constexpr int IDC_DJQD_P1_SPEED_LABEL = 20623;
inline constexpr int IDC_DJQD_P1_SPEED = 20624;
inline constexpr int IDC_DJQD_P1_IR_LABEL = 20627;
inline constexpr int IDC_DJQD_P1_IR = 20628;            // rated current
inline constexpr int IDC_DJQD_P1_IQ_LABEL = 20631;
inline constexpr int IDC_DJQD_P1_IQ = 20632;            // starting current
inline constexpr int IDC_DJQD_P1_UR_LABEL = 20635;
inline constexpr int IDC_DJQD_P1_UR = 20636;            // rated voltage
inline constexpr int IDC_DJQD_P1_RESULT_GROUP = 20637;  // "计算结果"
inline constexpr int IDC_DJQD_P1_USTM_LABEL = 20638;
inline constexpr int IDC_DJQD_P1_USTM = 20639;
inline constexpr int IDC_DJQD_P1_USTM_MOTOR_LABEL = 20640;
inline constexpr int IDC_DJQD_P1_USTM_MOTOR = 20641;    // ustM
inline constexpr int IDC_DJQD_P1_ISTM_LABEL = 20644;
inline constexpr int IDC_DJQD_P1_ISTM = 20645;
inline constexpr int IDC_DJQD_P1_TORQUE = 20651;        // "校验机械起动转矩"
inline constexpr int IDC_DJQD_P1_TIME = 20656;          // "计算电机起动时间"
inline constexpr int IDC_DJQD_P1_OVERLOAD_TITLE = 20661;
inline constexpr int IDC_DJQD_P1_OVERLOAD_NAME = 20666;
inline constexpr int IDC_DJQD_P1_OVERLOAD_VALUE = 20670;

// CDjqdPage2dlg: reactor back-calculation.
inline constexpr int IDC_DJQD_P2_INPUT_GROUP = 20675;   // "输入参数"
inline constexpr int IDC_DJQD_P2_SKM_LABEL = 20676;
inline constexpr int IDC_DJQD_P2_SKM = 20677;
inline constexpr int IDC_DJQD_P2_SFH_LABEL = 20678;
inline constexpr int IDC_DJQD_P2_SFH = 20679;
inline constexpr int IDC_DJQD_P2_COS_LABEL = 20680;
inline constexpr int IDC_DJQD_P2_COS = 20681;
inline constexpr int IDC_DJQD_P2_COS_SPIN = 20682;
inline constexpr int IDC_DJQD_P2_UM_LABEL = 20683;
inline constexpr int IDC_DJQD_P2_UM = 20684;
inline constexpr int IDC_DJQD_P2_REACTOR_GROUP = 20685; // "选择电抗器"
inline constexpr int IDC_DJQD_P2_CHOOSE_REACTOR = 20686;  // "根据实际电抗值和实际起动电流>"
inline constexpr int IDC_DJQD_P2_USER_REACTOR = 20691;    // "用户自定义选择"
inline constexpr int IDC_DJQD_P2_REQ_GROUP = 20694;     // "计算要求"
inline constexpr int IDC_DJQD_P2_USTM_REQ_LABEL = 20695;
inline constexpr int IDC_DJQD_P2_USTM_REQ = 20696;
inline constexpr int IDC_DJQD_P2_REQ_NOTE = 20697;
inline constexpr int IDC_DJQD_P2_CABLE_GROUP = 20700;
inline constexpr int IDC_DJQD_P2_CABLE_TYPE_LABEL = 20701;
inline constexpr int IDC_DJQD_P2_CABLE_TYPE = 20702;
inline constexpr int IDC_DJQD_P2_SECTION_LABEL = 20703;
inline constexpr int IDC_DJQD_P2_SECTION = 20704;       // its first item is "1."
inline constexpr int IDC_DJQD_P2_LENGTH_LABEL = 20705;
inline constexpr int IDC_DJQD_P2_LENGTH = 20706;
inline constexpr int IDC_DJQD_P2_CABLE_NOTE = 20707;
inline constexpr int IDC_DJQD_P2_RESULT_GROUP = 20710;
inline constexpr int IDC_DJQD_P2_XK_LABEL = 20711;
inline constexpr int IDC_DJQD_P2_XK = 20712;            // calculated reactance
inline constexpr int IDC_DJQD_P2_XZ_LABEL = 20713;
inline constexpr int IDC_DJQD_P2_XZ = 20714;            // actual reactance
inline constexpr int IDC_DJQD_P2_REACTOR_MODEL_LABEL = 20716;  // "起动电抗器型号："
inline constexpr int IDC_DJQD_P2_REACTOR_MODEL = 20717;
inline constexpr int IDC_DJQD_P2_MOTOR_GROUP = 20720;
inline constexpr int IDC_DJQD_P2_SERIES_LABEL = 20721;
inline constexpr int IDC_DJQD_P2_SERIES = 20722;
inline constexpr int IDC_DJQD_P2_MODEL_LABEL = 20723;
inline constexpr int IDC_DJQD_P2_MODEL = 20724;
inline constexpr int IDC_DJQD_P2_MOTOR_NOTE = 20725;
inline constexpr int IDC_DJQD_P2_POWER_LABEL = 20732;
inline constexpr int IDC_DJQD_P2_POWER = 20733;
inline constexpr int IDC_DJQD_P2_SPEED_LABEL = 20737;
inline constexpr int IDC_DJQD_P2_SPEED = 20738;
inline constexpr int IDC_DJQD_P2_IR_LABEL = 20741;
inline constexpr int IDC_DJQD_P2_IR = 20742;
inline constexpr int IDC_DJQD_P2_IQ_LABEL = 20745;
inline constexpr int IDC_DJQD_P2_IQ = 20746;
inline constexpr int IDC_DJQD_P2_UR_LABEL = 20749;
inline constexpr int IDC_DJQD_P2_UR = 20750;
inline constexpr int IDC_DJQD_P2_USTM_LABEL = 20752;
inline constexpr int IDC_DJQD_P2_USTM = 20753;
inline constexpr int IDC_DJQD_P2_USTM_MOTOR_LABEL = 20757;
inline constexpr int IDC_DJQD_P2_USTM_MOTOR = 20758;
inline constexpr int IDC_DJQD_P2_ISTM_LABEL = 20761;
inline constexpr int IDC_DJQD_P2_ISTM = 20762;
inline constexpr int IDC_DJQD_P2_OVERLOAD_TITLE = 20766;
inline constexpr int IDC_DJQD_P2_OVERLOAD_NAME = 20770;
inline constexpr int IDC_DJQD_P2_OVERLOAD_VALUE = 20774;
inline constexpr int IDC_DJQD_P2_TORQUE = 20889;
inline constexpr int IDC_DJQD_P2_TIME = 20892;

// CDjqdPage3dlg: autotransformer ratio.
inline constexpr int IDC_DJQD_P3_INPUT_GROUP = 20780;
inline constexpr int IDC_DJQD_P3_SKM_LABEL = 20781;
inline constexpr int IDC_DJQD_P3_SKM = 20782;
inline constexpr int IDC_DJQD_P3_SFH_LABEL = 20783;
inline constexpr int IDC_DJQD_P3_SFH = 20784;
inline constexpr int IDC_DJQD_P3_COS_LABEL = 20785;
inline constexpr int IDC_DJQD_P3_COS = 20786;
inline constexpr int IDC_DJQD_P3_COS_SPIN = 20787;
inline constexpr int IDC_DJQD_P3_UM_LABEL = 20788;
inline constexpr int IDC_DJQD_P3_UM = 20789;
inline constexpr int IDC_DJQD_P3_REQ_GROUP = 20790;
inline constexpr int IDC_DJQD_P3_USTM_REQ_LABEL = 20791;
inline constexpr int IDC_DJQD_P3_USTM_REQ = 20792;
inline constexpr int IDC_DJQD_P3_REQ_NOTE = 20793;
inline constexpr int IDC_DJQD_P3_CABLE_GROUP = 20800;
inline constexpr int IDC_DJQD_P3_CABLE_TYPE_LABEL = 20801;
inline constexpr int IDC_DJQD_P3_CABLE_TYPE = 20802;
inline constexpr int IDC_DJQD_P3_SECTION_LABEL = 20803;
inline constexpr int IDC_DJQD_P3_SECTION = 20804;
inline constexpr int IDC_DJQD_P3_LENGTH_LABEL = 20805;
inline constexpr int IDC_DJQD_P3_LENGTH = 20806;
inline constexpr int IDC_DJQD_P3_CABLE_NOTE = 20807;
inline constexpr int IDC_DJQD_P3_RESULT_GROUP = 20810;
inline constexpr int IDC_DJQD_P3_KZ_LABEL = 20811;
inline constexpr int IDC_DJQD_P3_KZ = 20812;            // calculated ratio
inline constexpr int IDC_DJQD_P3_MOTOR_GROUP = 20820;
inline constexpr int IDC_DJQD_P3_SERIES_LABEL = 20821;
inline constexpr int IDC_DJQD_P3_SERIES = 20822;
inline constexpr int IDC_DJQD_P3_MODEL_LABEL = 20823;
inline constexpr int IDC_DJQD_P3_MODEL = 20824;
inline constexpr int IDC_DJQD_P3_MOTOR_NOTE = 20825;
inline constexpr int IDC_DJQD_P3_POWER_LABEL = 20841;
inline constexpr int IDC_DJQD_P3_POWER = 20842;
inline constexpr int IDC_DJQD_P3_SPEED_LABEL = 20844;
inline constexpr int IDC_DJQD_P3_SPEED = 20845;
inline constexpr int IDC_DJQD_P3_IR_LABEL = 20848;
inline constexpr int IDC_DJQD_P3_IR = 20849;
inline constexpr int IDC_DJQD_P3_IQ_LABEL = 20852;
inline constexpr int IDC_DJQD_P3_IQ = 20853;
inline constexpr int IDC_DJQD_P3_UR_LABEL = 20856;
inline constexpr int IDC_DJQD_P3_UR = 20857;
inline constexpr int IDC_DJQD_P3_USTM_LABEL = 20860;
inline constexpr int IDC_DJQD_P3_USTM = 20861;
inline constexpr int IDC_DJQD_P3_USTM_MOTOR_LABEL = 20867;
inline constexpr int IDC_DJQD_P3_USTM_MOTOR = 20868;
inline constexpr int IDC_DJQD_P3_ISTM_LABEL = 20870;
inline constexpr int IDC_DJQD_P3_ISTM = 20871;
inline constexpr int IDC_DJQD_P3_OVERLOAD_NAME = 20872;
inline constexpr int IDC_DJQD_P3_OVERLOAD_VALUE = 20876;
inline constexpr int IDC_DJQD_P3_OVERLOAD_TITLE = 20880;
inline constexpr int IDC_DJQD_P3_TORQUE = 20883;
inline constexpr int IDC_DJQD_P3_TIME = 20886;
inline constexpr int IDC_DJQD_P3_KK_LABEL = 20893;      // "实际变压比Kk:"
inline constexpr int IDC_DJQD_P3_KK = 20894;            // editable combo of actual ratios
inline constexpr int IDC_DJQD_P3_KK_NOTE = 20895;

// CDjqdQueryDlg
inline constexpr int IDC_DJQD_QUERY_NOTE = 20554;         // source of the catalogue
inline constexpr int IDC_DJQD_QUERY_TABLE_LABEL = 20565;  // "变压器系列名称:" / "起动电抗器:"
inline constexpr int IDC_DJQD_QUERY_TABLE = 20570;        // the catalogue's tables
inline constexpr int IDC_DJQD_QUERY_SEARCH = 20575;       // "检索"
inline constexpr int IDC_DJQD_QUERY_SEARCH_ROW = 20579;   // where the search row is laid out
inline constexpr int IDC_DJQD_QUERY_LIST = 20584;
// The search row is made at run time: for search column k a label (all with one id) and the
// combo 1200 + k.
inline constexpr int IDC_DJQD_QUERY_SEARCH_LABEL = 1100;
inline constexpr int IDC_DJQD_QUERY_SEARCH_COMBO_BASE = 1200;

// CTestzjDlg
inline constexpr int IDC_DJQD_TZ_CHECK = 20896;           // "校验"
inline constexpr int IDC_DJQD_TZ_USTM_MOTOR_LABEL = 20898;
inline constexpr int IDC_DJQD_TZ_USTM_MOTOR = 20899;      // ustM
inline constexpr int IDC_DJQD_TZ_MSTM_LABEL = 20901;
inline constexpr int IDC_DJQD_TZ_MSTM = 20902;
inline constexpr int IDC_DJQD_TZ_MJ_LABEL = 20905;
inline constexpr int IDC_DJQD_TZ_MJ = 20906;
inline constexpr int IDC_DJQD_TZ_MJ_PICK = 20910;         // "<" table of resisting torques
inline constexpr int IDC_DJQD_TZ_PAGE_FRAME = 20914;      // where the description page is shown
inline constexpr int IDC_DJQD_TZ_PAGE = 20915;            // the rich-text control made over it
inline constexpr int IDC_DJQD_TZ_VERDICT_GROUP = 20916;   // "校验结果"
inline constexpr int IDC_DJQD_TZ_VERDICT = 20918;

// CCaltimeDlg
inline constexpr int IDC_DJQD_CT_CALC = 20921;            // "计算"
inline constexpr int IDC_DJQD_CT_J2_LABEL = 20923;
inline constexpr int IDC_DJQD_CT_J2 = 20924;
inline constexpr int IDC_DJQD_CT_MSTP_LABEL = 20926;
inline constexpr int IDC_DJQD_CT_MSTP = 20927;
inline constexpr int IDC_DJQD_CT_MJ_LABEL = 20928;
inline constexpr int IDC_DJQD_CT_MJ = 20929;
inline constexpr int IDC_DJQD_CT_MJ_PICK = 20931;
inline constexpr int IDC_DJQD_CT_TIME_LABEL = 20932;      // "电机起动时间(s):"
inline constexpr int IDC_DJQD_CT_PAGE_FRAME = 20933;
inline constexpr int IDC_DJQD_CT_PAGE = 20934;            // the rich-text control made over it
inline constexpr int IDC_DJQD_CT_TIME = 20935;            // the starting time

// CZhjDlg
inline constexpr int IDC_DJQD_ZHJ_FRAME = 20943;          // where the table display is made
inline constexpr int IDC_DJQD_ZHJ_TABLE = 20944;          // the table display made over it

// The controls every page has, so that page code and the sub-dialogs can work on "the
// active page" by index (0 to 2).
struct PageIds {
  int cable_type, section, length;
  int series, model, power, speed, rated_current, starting_current, rated_voltage;
  int ustm, ustm_motor, istm;
  int torque, time;
  int overload_title, overload_name, overload_value;
};
inline constexpr PageIds kPageIds[3] = {
    {IDC_DJQD_P1_CABLE_TYPE, IDC_DJQD_P1_SECTION, IDC_DJQD_P1_LENGTH, IDC_DJQD_P1_SERIES,
     IDC_DJQD_P1_MODEL, IDC_DJQD_P1_POWER, IDC_DJQD_P1_SPEED, IDC_DJQD_P1_IR, IDC_DJQD_P1_IQ,
     IDC_DJQD_P1_UR, IDC_DJQD_P1_USTM, IDC_DJQD_P1_USTM_MOTOR, IDC_DJQD_P1_ISTM, IDC_DJQD_P1_TORQUE,
     IDC_DJQD_P1_TIME, IDC_DJQD_P1_OVERLOAD_TITLE, IDC_DJQD_P1_OVERLOAD_NAME,
     IDC_DJQD_P1_OVERLOAD_VALUE},
    {IDC_DJQD_P2_CABLE_TYPE, IDC_DJQD_P2_SECTION, IDC_DJQD_P2_LENGTH, IDC_DJQD_P2_SERIES,
     IDC_DJQD_P2_MODEL, IDC_DJQD_P2_POWER, IDC_DJQD_P2_SPEED, IDC_DJQD_P2_IR, IDC_DJQD_P2_IQ,
     IDC_DJQD_P2_UR, IDC_DJQD_P2_USTM, IDC_DJQD_P2_USTM_MOTOR, IDC_DJQD_P2_ISTM, IDC_DJQD_P2_TORQUE,
     IDC_DJQD_P2_TIME, IDC_DJQD_P2_OVERLOAD_TITLE, IDC_DJQD_P2_OVERLOAD_NAME,
     IDC_DJQD_P2_OVERLOAD_VALUE},
    {IDC_DJQD_P3_CABLE_TYPE, IDC_DJQD_P3_SECTION, IDC_DJQD_P3_LENGTH, IDC_DJQD_P3_SERIES,
     IDC_DJQD_P3_MODEL, IDC_DJQD_P3_POWER, IDC_DJQD_P3_SPEED, IDC_DJQD_P3_IR, IDC_DJQD_P3_IQ,
     IDC_DJQD_P3_UR, IDC_DJQD_P3_USTM, IDC_DJQD_P3_USTM_MOTOR, IDC_DJQD_P3_ISTM, IDC_DJQD_P3_TORQUE,
     IDC_DJQD_P3_TIME, IDC_DJQD_P3_OVERLOAD_TITLE, IDC_DJQD_P3_OVERLOAD_NAME,
     IDC_DJQD_P3_OVERLOAD_VALUE},
};

// The fields of the four forms in method order; 0 where a form has no such field.
struct FormIds {
  int short_circuit;  // S" on form 0, Skm on the others
  int transformer_capacity, transformer_pick, impedance_voltage;
  int reactance, reactance_pick;
  int ratio;
  int load, cos_phi, cos_spin, bus_voltage;
};
inline constexpr FormIds kFormIds[4] = {
    {IDC_DJQD_IN1_SK, IDC_DJQD_IN1_SRT, IDC_DJQD_IN1_SRT_PICK, IDC_DJQD_IN1_UT, 0, 0, 0,
     IDC_DJQD_IN1_SFH, IDC_DJQD_IN1_COS, IDC_DJQD_IN1_COS_SPIN, IDC_DJQD_IN1_UM},
    {IDC_DJQD_IN2_SKM, IDC_DJQD_IN2_SRT, IDC_DJQD_IN2_SRT_PICK, IDC_DJQD_IN2_UT, 0, 0, 0,
     IDC_DJQD_IN2_SFH, IDC_DJQD_IN2_COS, IDC_DJQD_IN2_COS_SPIN, IDC_DJQD_IN2_UM},
    {IDC_DJQD_IN3_SKM, 0, 0, 0, IDC_DJQD_IN3_XK, IDC_DJQD_IN3_XK_PICK, 0, IDC_DJQD_IN3_SFH,
     IDC_DJQD_IN3_COS, IDC_DJQD_IN3_COS_SPIN, IDC_DJQD_IN3_UM},
    {IDC_DJQD_IN4_SKM, 0, 0, 0, 0, 0, IDC_DJQD_IN4_KZ, IDC_DJQD_IN4_SFH, IDC_DJQD_IN4_COS,
     IDC_DJQD_IN4_COS_SPIN, IDC_DJQD_IN4_UM},
};
inline constexpr int kFormTemplates[4] = {IDD_DJQD_INPUT1, IDD_DJQD_INPUT2, IDD_DJQD_INPUT3,
                                          IDD_DJQD_INPUT4};

}  // namespace kestra::djqd

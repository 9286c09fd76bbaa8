#pragma once
// Template and control ids of the voltage-loss calculator. res/dyss.rc defines the same numbers
// under the same names. Ids from 21000 up are ours (labels, group boxes, notes); the others are
// the calculator's own. The index lists of the line-data forms are created at run time with the
// ids of LineFormIds::first_index and the two after it; their labels get id −1.
#include <array>

namespace kestra::dyss {

inline constexpr int IDD_DYSSCAL = 20295;  // CDyssCalDlg "电压损失计算"
inline constexpr int IDD_DYSS_LOSS_PAGE = 20296;  // CDyssPage1, tab "计算电压损失百分比"
inline constexpr int IDD_DYSS_LENGTH_PAGE = 20300;  // CDyssPage2, tab "计算线路长度"
inline constexpr int IDD_DYSS_LOSS_FORM0 = 20227;  // CDyssPage1Input1: line, one load by current I
inline constexpr int IDD_DYSS_LOSS_FORM1 = 20297;  // CDyssPage1Input2: line, six loads by currents I1..I6
inline constexpr int IDD_DYSS_LOSS_FORM2 = 20253;  // CDyssPage1Input3: line, one load by active load P
inline constexpr int IDD_DYSS_LOSS_FORM3 = 20298;  // CDyssPage1Input4: line, six loads by active loads P1..P6
inline constexpr int IDD_DYSS_LOSS_FORM4 = 20299;  // CDyssPage1Input5: section S and coefficient C, six loads
inline constexpr int IDD_DYSS_LENGTH_FORM0 = 20301;  // CDyssPage2Input1: line, load current I
inline constexpr int IDD_DYSS_LENGTH_FORM1 = 20302;  // CDyssPage2Input2: line, active load P
inline constexpr int IDD_DYSS_QUERY = 20303;  // CDyssQueryDlg "线路电压损失的计算系数C值(cosφ=1)"

// Main dialog
inline constexpr int IDC_DYSS_SHEET_FRAME = 20394;  // hidden; the sheet is placed over it
inline constexpr int IDC_DYSS_CALC = 20734;  // "计算"
inline constexpr int IDC_DYSS_REPORT = 20747;  // "计算书"
inline constexpr int IDC_DYSS_HELP = 20739;  // "帮助", hidden

// Voltage-loss page
inline constexpr int IDC_DYSS_KIND_LABEL = 21020;
inline constexpr int IDC_DYSS_KIND = 20401;  // line kind, 4 template items
inline constexpr int IDC_DYSS_CASE_LABEL = 21021;
inline constexpr int IDC_DYSS_CASE = 20409;  // load situation, filled per kind
inline constexpr int IDC_DYSS_INPUT_GROUP = 21022;
inline constexpr int IDC_DYSS_FORM_FRAME = 20421;  // hidden; the five forms are placed in it
inline constexpr int IDC_DYSS_RESULT_GROUP = 21023;
inline constexpr int IDC_DYSS_RESULT_LABEL = 21024;
inline constexpr int IDC_DYSS_RESULT = 20745;  // Δu (%), read-only
inline constexpr int IDC_DYSS_NOTE_GROUP = 21025;
inline constexpr int IDC_DYSS_NOTE1 = 21026;
inline constexpr int IDC_DYSS_NOTE2 = 21027;

// Form 0: one load, current moment
inline constexpr int IDC_DYSS_F0_LINE_LABEL = 21100;
inline constexpr int IDC_DYSS_F0_LINE = 20328;  // line-name list (catalogue tables)
inline constexpr int IDC_DYSS_F0_INDEX_ANCHOR = 20372;  // hidden "Static": where the index lists start, and their font
inline constexpr int IDC_DYSS_F0_LINE_DATA = 20915;  // "电阻(Ω/km):…  感抗(Ω/km):…  电压(kV):…"
inline constexpr int IDC_DYSS_F0_SOURCE = 21101;  // "线路数据摘自<<…>>P547~555,…"
inline constexpr int IDC_DYSS_F0_I_LABEL = 21102;
inline constexpr int IDC_DYSS_F0_I = 20337;  // I (A)
inline constexpr int IDC_DYSS_F0_L_LABEL = 21103;
inline constexpr int IDC_DYSS_F0_L = 20347;  // l (km)
inline constexpr int IDC_DYSS_F0_COS_LABEL = 21104;
inline constexpr int IDC_DYSS_F0_COS = 20357;  // cosφ
inline constexpr int IDC_DYSS_F0_COS_SPIN = 20366;

// Form 1: six loads, current moments
inline constexpr int IDC_DYSS_F1_LINE_LABEL = 21150;
inline constexpr int IDC_DYSS_F1_LINE = 20433;
inline constexpr int IDC_DYSS_F1_INDEX_ANCHOR = 20506;
inline constexpr int IDC_DYSS_F1_LINE_DATA = 20514;
inline constexpr int IDC_DYSS_F1_SOURCE = 21151;
inline constexpr int IDC_DYSS_F1_COS_LABEL = 21152;
inline constexpr int IDC_DYSS_F1_COS = 20599;
inline constexpr int IDC_DYSS_F1_COS_SPIN = 20604;
inline constexpr int IDC_DYSS_F1_GROUP1 = 21153;
inline constexpr int IDC_DYSS_F1_GROUP2 = 21154;
inline constexpr int IDC_DYSS_F1_GROUP3 = 21155;
inline constexpr int IDC_DYSS_F1_GROUP4 = 21156;
inline constexpr int IDC_DYSS_F1_GROUP5 = 21157;
inline constexpr int IDC_DYSS_F1_GROUP6 = 21158;
inline constexpr int IDC_DYSS_F1_I1_LABEL = 21160;
inline constexpr int IDC_DYSS_F1_I2_LABEL = 21161;
inline constexpr int IDC_DYSS_F1_I3_LABEL = 21162;
inline constexpr int IDC_DYSS_F1_I4_LABEL = 21163;
inline constexpr int IDC_DYSS_F1_I5_LABEL = 21164;
inline constexpr int IDC_DYSS_F1_I6_LABEL = 21165;
inline constexpr int IDC_DYSS_F1_L1_LABEL = 21170;
inline constexpr int IDC_DYSS_F1_L2_LABEL = 21171;
inline constexpr int IDC_DYSS_F1_L3_LABEL = 21172;
inline constexpr int IDC_DYSS_F1_L4_LABEL = 21173;
inline constexpr int IDC_DYSS_F1_L5_LABEL = 21174;
inline constexpr int IDC_DYSS_F1_L6_LABEL = 21175;
inline constexpr int IDC_DYSS_F1_I1 = 20534;
inline constexpr int IDC_DYSS_F1_I2 = 20561;
inline constexpr int IDC_DYSS_F1_I3 = 20580;
inline constexpr int IDC_DYSS_F1_I4 = 20548;
inline constexpr int IDC_DYSS_F1_I5 = 20571;
inline constexpr int IDC_DYSS_F1_I6 = 20589;
inline constexpr int IDC_DYSS_F1_L1 = 20541;
inline constexpr int IDC_DYSS_F1_L2 = 20566;
inline constexpr int IDC_DYSS_F1_L3 = 20585;
inline constexpr int IDC_DYSS_F1_L4 = 20555;
inline constexpr int IDC_DYSS_F1_L5 = 20576;
inline constexpr int IDC_DYSS_F1_L6 = 20594;

// Form 2: one load, load moment
inline constexpr int IDC_DYSS_F2_LINE_LABEL = 21200;
inline constexpr int IDC_DYSS_F2_LINE = 20443;
inline constexpr int IDC_DYSS_F2_INDEX_ANCHOR = 20449;
inline constexpr int IDC_DYSS_F2_LINE_DATA = 20455;
inline constexpr int IDC_DYSS_F2_SOURCE = 21201;
inline constexpr int IDC_DYSS_F2_P_LABEL = 21202;
inline constexpr int IDC_DYSS_F2_P = 20462;  // P (kW)
inline constexpr int IDC_DYSS_F2_L_LABEL = 21203;
inline constexpr int IDC_DYSS_F2_L = 20468;  // l (km)
inline constexpr int IDC_DYSS_F2_COS_LABEL = 21204;
inline constexpr int IDC_DYSS_F2_COS = 20474;
inline constexpr int IDC_DYSS_F2_COS_SPIN = 20480;

// Form 3: six loads, load moments
inline constexpr int IDC_DYSS_F3_LINE_LABEL = 21250;
inline constexpr int IDC_DYSS_F3_LINE = 20487;
inline constexpr int IDC_DYSS_F3_INDEX_ANCHOR = 20520;
inline constexpr int IDC_DYSS_F3_LINE_DATA = 20527;
inline constexpr int IDC_DYSS_F3_SOURCE = 21251;
inline constexpr int IDC_DYSS_F3_COS_LABEL = 21252;
inline constexpr int IDC_DYSS_F3_COS = 20493;
inline constexpr int IDC_DYSS_F3_COS_SPIN = 20500;
inline constexpr int IDC_DYSS_F3_GROUP1 = 21253;
inline constexpr int IDC_DYSS_F3_GROUP2 = 21254;
inline constexpr int IDC_DYSS_F3_GROUP3 = 21255;
inline constexpr int IDC_DYSS_F3_GROUP4 = 21256;
inline constexpr int IDC_DYSS_F3_GROUP5 = 21257;
inline constexpr int IDC_DYSS_F3_GROUP6 = 21258;
inline constexpr int IDC_DYSS_F3_P1_LABEL = 21260;
inline constexpr int IDC_DYSS_F3_P2_LABEL = 21261;
inline constexpr int IDC_DYSS_F3_P3_LABEL = 21262;
inline constexpr int IDC_DYSS_F3_P4_LABEL = 21263;
inline constexpr int IDC_DYSS_F3_P5_LABEL = 21264;
inline constexpr int IDC_DYSS_F3_P6_LABEL = 21265;
inline constexpr int IDC_DYSS_F3_L1_LABEL = 21270;
inline constexpr int IDC_DYSS_F3_L2_LABEL = 21271;
inline constexpr int IDC_DYSS_F3_L3_LABEL = 21272;
inline constexpr int IDC_DYSS_F3_L4_LABEL = 21273;
inline constexpr int IDC_DYSS_F3_L5_LABEL = 21274;
inline constexpr int IDC_DYSS_F3_L6_LABEL = 21275;
inline constexpr int IDC_DYSS_F3_P1 = 20609;
inline constexpr int IDC_DYSS_F3_P2 = 20617;
inline constexpr int IDC_DYSS_F3_P3 = 20625;
inline constexpr int IDC_DYSS_F3_P4 = 20634;
inline constexpr int IDC_DYSS_F3_P5 = 20642;
inline constexpr int IDC_DYSS_F3_P6 = 20652;
inline constexpr int IDC_DYSS_F3_L1 = 20613;
inline constexpr int IDC_DYSS_F3_L2 = 20621;
inline constexpr int IDC_DYSS_F3_L3 = 20629;
inline constexpr int IDC_DYSS_F3_L4 = 20638;
inline constexpr int IDC_DYSS_F3_L5 = 20647;
inline constexpr int IDC_DYSS_F3_L6 = 20657;

// Form 4: section and coefficient C (cosφ = 1), six loads
inline constexpr int IDC_DYSS_F4_SECTION_LABEL = 21300;
inline constexpr int IDC_DYSS_F4_SECTION = 20662;  // editable drop-down, 20 template sections
inline constexpr int IDC_DYSS_F4_C_LABEL = 21301;
inline constexpr int IDC_DYSS_F4_C = 20667;  // coefficient C
inline constexpr int IDC_DYSS_F4_C_PICK = 20671;  // "<": the C pick dialog
inline constexpr int IDC_DYSS_F4_GROUP1 = 21303;
inline constexpr int IDC_DYSS_F4_GROUP2 = 21304;
inline constexpr int IDC_DYSS_F4_GROUP3 = 21305;
inline constexpr int IDC_DYSS_F4_GROUP4 = 21306;
inline constexpr int IDC_DYSS_F4_GROUP5 = 21307;
inline constexpr int IDC_DYSS_F4_GROUP6 = 21308;
inline constexpr int IDC_DYSS_F4_P1_LABEL = 21310;
inline constexpr int IDC_DYSS_F4_P2_LABEL = 21311;
inline constexpr int IDC_DYSS_F4_P3_LABEL = 21312;
inline constexpr int IDC_DYSS_F4_P4_LABEL = 21313;
inline constexpr int IDC_DYSS_F4_P5_LABEL = 21314;
inline constexpr int IDC_DYSS_F4_P6_LABEL = 21315;
inline constexpr int IDC_DYSS_F4_L1_LABEL = 21320;
inline constexpr int IDC_DYSS_F4_L2_LABEL = 21321;
inline constexpr int IDC_DYSS_F4_L3_LABEL = 21322;
inline constexpr int IDC_DYSS_F4_L4_LABEL = 21323;
inline constexpr int IDC_DYSS_F4_L5_LABEL = 21324;
inline constexpr int IDC_DYSS_F4_L6_LABEL = 21325;
inline constexpr int IDC_DYSS_F4_P1 = 20675;
inline constexpr int IDC_DYSS_F4_P2 = 20679;
inline constexpr int IDC_DYSS_F4_P3 = 20683;
inline constexpr int IDC_DYSS_F4_P4 = 20687;
inline constexpr int IDC_DYSS_F4_P5 = 20692;
inline constexpr int IDC_DYSS_F4_P6 = 20724;
inline constexpr int IDC_DYSS_F4_L1 = 20696;
inline constexpr int IDC_DYSS_F4_L2 = 20702;
inline constexpr int IDC_DYSS_F4_L3 = 20708;
inline constexpr int IDC_DYSS_F4_L4 = 20713;
inline constexpr int IDC_DYSS_F4_L5 = 20718;
inline constexpr int IDC_DYSS_F4_L6 = 20729;

// Line-length page
inline constexpr int IDC_DYSS_LEN_KIND_LABEL = 21400;
inline constexpr int IDC_DYSS_LEN_KIND = 20387;  // line kind, 4 template items
inline constexpr int IDC_DYSS_LEN_CASE_LABEL = 21401;
inline constexpr int IDC_DYSS_LEN_CASE = 20379;  // load situation, 2 template items
inline constexpr int IDC_DYSS_LEN_NOTE_GROUP = 21402;
inline constexpr int IDC_DYSS_LEN_NOTE1 = 21403;
inline constexpr int IDC_DYSS_LEN_NOTE2 = 21404;
inline constexpr int IDC_DYSS_LEN_NOTE3 = 21405;
inline constexpr int IDC_DYSS_LEN_INPUT_GROUP = 21406;
inline constexpr int IDC_DYSS_LEN_FORM_FRAME = 20925;  // hidden; the two forms are placed in it
inline constexpr int IDC_DYSS_REQUIRE_GROUP = 21407;
inline constexpr int IDC_DYSS_REQUIRE_LABEL = 21408;
inline constexpr int IDC_DYSS_REQUIRE = 20415;  // permitted voltage loss Δu (%)
inline constexpr int IDC_DYSS_LEN_RESULT_GROUP = 21409;
inline constexpr int IDC_DYSS_LEN_RESULT_LABEL = 21410;
inline constexpr int IDC_DYSS_LEN_RESULT = 20427;  // permissible length l (km), read-only
inline constexpr int IDC_DYSS_HARM_GROUP = 21411;
inline constexpr int IDC_DYSS_HARM_CHECK = 212;  // section selection under harmonics (text beside it)
inline constexpr int IDC_DYSS_HARM_CHECK_LABEL = 21412;
inline constexpr int IDC_DYSS_HARM_NOTE = 21413;
inline constexpr int IDC_DYSS_HARM_LIST_LABEL = 21414;
inline constexpr int IDC_DYSS_HARM_LIST = 205;  // third-harmonic share, 4 template items
inline constexpr int IDC_DYSS_RATED_LABEL = 21415;
inline constexpr int IDC_DYSS_RATED = 210;  // rated ampacity (A)
inline constexpr int IDC_DYSS_K_LABEL = 21416;
inline constexpr int IDC_DYSS_K = 209;  // correction factor K, read-only, no border
inline constexpr int IDC_DYSS_I_PRIME_LABEL = 21417;
inline constexpr int IDC_DYSS_I_PRIME = 208;  // I' (A)
inline constexpr int IDC_DYSS_L_PRIME_LABEL = 21418;
inline constexpr int IDC_DYSS_L_PRIME = 207;  // L' (km), read-only

// Line-length form 0: current moment
inline constexpr int IDC_DYSS_LF0_LINE_LABEL = 21450;
inline constexpr int IDC_DYSS_LF0_LINE = 20835;
inline constexpr int IDC_DYSS_LF0_INDEX_ANCHOR = 20839;
inline constexpr int IDC_DYSS_LF0_LINE_DATA = 20858;
inline constexpr int IDC_DYSS_LF0_SOURCE = 21451;
inline constexpr int IDC_DYSS_LF0_I_LABEL = 21452;
inline constexpr int IDC_DYSS_LF0_I = 20862;  // I (A)
inline constexpr int IDC_DYSS_LF0_L_LABEL = 21453;
inline constexpr int IDC_DYSS_LF0_L = 20865;  // l (km), hidden
inline constexpr int IDC_DYSS_LF0_COS_LABEL = 21454;
inline constexpr int IDC_DYSS_LF0_COS = 20869;
inline constexpr int IDC_DYSS_LF0_COS_SPIN = 20873;

// Line-length form 1: load moment
inline constexpr int IDC_DYSS_LF1_LINE_LABEL = 21500;
inline constexpr int IDC_DYSS_LF1_LINE = 20877;
inline constexpr int IDC_DYSS_LF1_INDEX_ANCHOR = 20881;
inline constexpr int IDC_DYSS_LF1_LINE_DATA = 20897;
inline constexpr int IDC_DYSS_LF1_SOURCE = 21501;
inline constexpr int IDC_DYSS_LF1_P_LABEL = 21502;
inline constexpr int IDC_DYSS_LF1_P = 20900;  // P (kW)
inline constexpr int IDC_DYSS_LF1_L_LABEL = 21503;
inline constexpr int IDC_DYSS_LF1_L = 20903;  // l (km), hidden
inline constexpr int IDC_DYSS_LF1_COS_LABEL = 21504;
inline constexpr int IDC_DYSS_LF1_COS = 20907;
inline constexpr int IDC_DYSS_LF1_COS_SPIN = 20911;

// C pick dialog
inline constexpr int IDC_DYSS_QUERY_FRAME = 20740;  // hidden; the table display is created over it
inline constexpr int IDC_DYSS_QUERY_NOTE = 21550;  // "以上数据摘自<<…>>P426。"

// The controls a line-data form (forms 0 to 3 of the voltage-loss page, both forms of the
// line-length page) works its catalogue lists with.
struct LineFormIds {
  int line_name;    // line-name list
  int anchor;       // placeholder label where the index row starts
  int line_data;    // line-data label
  int first_index;  // id of the first run-time index list
};
inline constexpr std::array<LineFormIds, 4> kLossLineForms = {{
    {IDC_DYSS_F0_LINE, IDC_DYSS_F0_INDEX_ANCHOR, IDC_DYSS_F0_LINE_DATA, 101},
    {IDC_DYSS_F1_LINE, IDC_DYSS_F1_INDEX_ANCHOR, IDC_DYSS_F1_LINE_DATA, 104},
    {IDC_DYSS_F2_LINE, IDC_DYSS_F2_INDEX_ANCHOR, IDC_DYSS_F2_LINE_DATA, 107},
    {IDC_DYSS_F3_LINE, IDC_DYSS_F3_INDEX_ANCHOR, IDC_DYSS_F3_LINE_DATA, 110},
}};
inline constexpr std::array<LineFormIds, 2> kLengthLineForms = {{
    {IDC_DYSS_LF0_LINE, IDC_DYSS_LF0_INDEX_ANCHOR, IDC_DYSS_LF0_LINE_DATA, 113},
    {IDC_DYSS_LF1_LINE, IDC_DYSS_LF1_INDEX_ANCHOR, IDC_DYSS_LF1_LINE_DATA, 116},
}};
// Index labels created at run time carry this id.
inline constexpr int kIndexLabelId = -1;

// The cosφ edits and their up-down controls, by form (the voltage-loss page's forms 0 to 3,
// the line-length page's forms 0 and 1).
inline constexpr std::array<int, 4> kLossCosEdits = {IDC_DYSS_F0_COS, IDC_DYSS_F1_COS, IDC_DYSS_F2_COS,
                                                     IDC_DYSS_F3_COS};
inline constexpr std::array<int, 4> kLossCosSpins = {IDC_DYSS_F0_COS_SPIN, IDC_DYSS_F1_COS_SPIN, IDC_DYSS_F2_COS_SPIN,
                                                     IDC_DYSS_F3_COS_SPIN};
inline constexpr std::array<int, 2> kLengthCosEdits = {IDC_DYSS_LF0_COS, IDC_DYSS_LF1_COS};
inline constexpr std::array<int, 2> kLengthCosSpins = {IDC_DYSS_LF0_COS_SPIN, IDC_DYSS_LF1_COS_SPIN};

// The form templates in form order.
inline constexpr std::array<int, 5> kLossFormTemplates = {IDD_DYSS_LOSS_FORM0, IDD_DYSS_LOSS_FORM1,
                                                          IDD_DYSS_LOSS_FORM2, IDD_DYSS_LOSS_FORM3,
                                                          IDD_DYSS_LOSS_FORM4};
inline constexpr std::array<int, 2> kLengthFormTemplates = {IDD_DYSS_LENGTH_FORM0, IDD_DYSS_LENGTH_FORM1};

// The edits of the six-load forms, load i at [i − 1]; the P2..P6 and l2..l6 edits of form 4 are
// the ones page 0 disables for kinds 2 and 3.
inline constexpr std::array<int, 6> kF1Currents = {IDC_DYSS_F1_I1, IDC_DYSS_F1_I2, IDC_DYSS_F1_I3,
                                                   IDC_DYSS_F1_I4, IDC_DYSS_F1_I5, IDC_DYSS_F1_I6};
inline constexpr std::array<int, 6> kF1Lengths = {IDC_DYSS_F1_L1, IDC_DYSS_F1_L2, IDC_DYSS_F1_L3,
                                                  IDC_DYSS_F1_L4, IDC_DYSS_F1_L5, IDC_DYSS_F1_L6};
inline constexpr std::array<int, 6> kF3Loads = {IDC_DYSS_F3_P1, IDC_DYSS_F3_P2, IDC_DYSS_F3_P3,
                                                IDC_DYSS_F3_P4, IDC_DYSS_F3_P5, IDC_DYSS_F3_P6};
inline constexpr std::array<int, 6> kF3Lengths = {IDC_DYSS_F3_L1, IDC_DYSS_F3_L2, IDC_DYSS_F3_L3,
                                                  IDC_DYSS_F3_L4, IDC_DYSS_F3_L5, IDC_DYSS_F3_L6};
inline constexpr std::array<int, 6> kF4Loads = {IDC_DYSS_F4_P1, IDC_DYSS_F4_P2, IDC_DYSS_F4_P3,
                                                IDC_DYSS_F4_P4, IDC_DYSS_F4_P5, IDC_DYSS_F4_P6};
inline constexpr std::array<int, 6> kF4Lengths = {IDC_DYSS_F4_L1, IDC_DYSS_F4_L2, IDC_DYSS_F4_L3,
                                                  IDC_DYSS_F4_L4, IDC_DYSS_F4_L5, IDC_DYSS_F4_L6};

}  // namespace kestra::dyss

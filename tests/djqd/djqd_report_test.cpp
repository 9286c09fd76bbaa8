// The six reports as written to the .docx, line by line, against lines built here from the
// report's format strings and hand-derived values (the dialog's defaults unless a case says
// otherwise: see djqd_dialog_test.cpp). A "<U>x</U>" superscript reads as "x " in the document.
#include <cstdarg>
#include <cstdio>
#include <sstream>

#include "tests/djqd/djqd_fixture.h"
#include "tests/report/zip_reader.h"

namespace kestra::djqd::test {
namespace {

// One report line from its format string.
std::string F(const char* format, ...) {
  char buf[1024];
  va_list args;
  va_start(args, format);
  std::vsnprintf(buf, sizeof buf, format, args);
  va_end(args);
  return buf;
}

// Marked text as the document shows it, one entry per paragraph.
Strings Lines(std::string marked) {
  for (const char* mark : {"<U>", "<L>"}) {
    const std::string close = std::string("</") + (mark + 1);
    for (std::size_t at; (at = marked.find(mark)) != std::string::npos;) {
      const std::size_t end = marked.find(close, at);
      marked = marked.substr(0, at) + marked.substr(at + 3, end - at - 3) + " " + marked.substr(end + 4);
    }
  }
  Strings out;
  std::istringstream in(marked);
  for (std::string line; std::getline(in, line);) out.push_back(line);
  return out;
}

class DjqdReport : public DjqdDialog {
 protected:
  // The report of the last "计算书", one entry per paragraph.
  Strings Written() {
    const std::string t = module_.transcript();
    const auto at = t.rfind("[report] ");
    if (at == std::string::npos) return {};
    return Lines(kestra::report::testing::DocumentText(t.substr(at + 9, t.find('\n', at) - at - 9)));
  }
  // Every expected line appears, in this order.
  static void ExpectInOrder(const Strings& written, const Strings& expected) {
    std::size_t at = 0;
    for (const std::string& line : expected) {
      if (line.empty()) continue;
      std::size_t found = at;
      while (found < written.size() && written[found] != line) ++found;
      EXPECT_LT(found, written.size()) << "missing or out of order: " << line;
      if (found < written.size()) at = found + 1;
    }
  }
};

TEST_F(DjqdReport, FullVoltageStartLineByLine) {
  Run([&](CDjqdCalDlg& d) {
    Click(d, IDC_DJQD_REPORT);
    ui::act::Cancel(d);
  });
  // Kst 2025/337 = 6.00890, Srm 0.221800, Sstm 1.332774, Xl 0.0058125, sinφ 0.6, Qfh 0.24,
  // Skm 10.9375, Sst 1.264911, Ustm 0.898343, ustM 0.852578, Istm 1726.512 (the result field too);
  // √(1.1·0.3/1.1) = 0.547723 ≤ 0.853; t = 8·980²/[365·185·(0.853²·1.1 − 0.3)] = 227.398.
  const std::string expected =
      std::string("全压起动时压降计算书\n计算依据\n\t《工业与民用配电设计手册》第三版中P270页表6-16的公式\n已知条件\n") +
      "\t线缆类型：铜" + F("\n\t线缆截面S(mm<U>2</U>)=%.3f", 120.0) + F("\n\t线缆长度L(km)=%.3f", 0.025) +
      F("\n\t电机名称：%s", "JS") + F("\n\t电机型号：%s", "JS-4/1") + F("\n\t电机功率(kw)：%.3f", 185.0) +
      F("\n\t电机转速(r/min)：%.3f", 980.0) + F("\n\t电机额定电流(A)：%.3f", 337.0) +
      F("\n\t电机起动电流(A)：%.3f", 2025.0) + F("\n\t电机额定电压(kV)：%.3f", 0.38) +
      F("\n\t系统短路容量S\"(MVA)=%.3f", 50.0) + F("\n\t变压器额定容量SrT(MVA)=%.3f", 0.63) +
      F("\n\t变压器阻抗电压相对值UT=%.3f", 0.045) + F("\n\t预接负荷Sfh(MVA)=%.3f", 0.4) +
      F("\n\t功率因数cosφ=%.3f", 0.8) + F("\n\t母线标称电压UM(kV)=%.3f", 0.38) + "\n计算公式和过程\n" +
      F("\t电动机起动电流倍数Kst=Iq/Ir=%.3fA/%.3fA=%.3f", 2025.0, 337.0, 6.0089) +
      F("\n\t电动机额定容量Srm=1.732UrIr=1.732*%.3fkV*%.3fA/1000=%.3fMVA", 0.38, 337.0, 0.2218) +
      F("\n\t电动机额定起动容量Sstm=KqSrm=%.3f*%.3fMVA=%.3fMVA", 6.0089, 0.2218, 1.332774) +
      F("\n\t铜线Xl=(0.08+18.3/S)L=(0.08+18.3/%.3fmm<U>2</U>)*%.3fkm=%.3fΩ", 120.0, 0.025, 0.0058125) +
      F("\n\t预接负荷Qfh=Sfh*SINφ=%.3fMKVA*%.3f=%.3fMVar", 0.4, 0.6, 0.24) +
      F("\n\t母线短路容量Skm\n\t=Srt/(Ut+Srt/Spp)\n\t=%.3fMVA/(%.3f+%.3fMVA/%.3fMVA)\n\t=%.3fMVA", 0.63, 0.045, 0.63,
        50.0, 10.9375) +
      F("\n\t起动回路的额定输入容量Sst\n\t=1/(1/Sstm+Xl/Um<U>2</U>)\n\t=1/(1/%.3fMVA+%.3fΩ/%.3fkV<U>2</U>)\n\t=%.3fMVA",
        1.332774, 0.0058125, 0.38, 1.264911) +
      F("\n\t母线电压相对值Ustm\n\t=(Skm+Qfh)/(Skm+Qfh+Sst)\n\t=(%.3fMVA+%.3fMVar)/(%.3fMVA+%.3fMVar+%.3fMVA)\n\t=%.3f",
        10.9375, 0.24, 10.9375, 0.24, 1.264911, 0.898343) +
      F("\n\t电动机端子电压相对值ustM\n\t=UstmSst/Sstm\n\t=%.3f*%.3fMVA/%.3fMVA\n\t=%.3f", 0.898343, 1.264911, 1.332774,
        0.852578) +
      F("\n\t实际起动电流Istm\n\t=UqmSq/1.732Um\n\t=%.3f*%.3fMVA/(1.732*%.3fKV)*1000\n\t=%.3fA", 0.898343, 1.264911,
        0.38, 1726.5117) +
      "\n计算结果\n" + F("\t母线电压相对值Ustm=%s", "0.898") + F("\n\t电动机端子电压相对值ustM=%s", "0.853") +
      F("\n\t实际起动电流Istm=%sA", "1726.512") + "\n校验机械起动转矩：" + F("\n\t电机端子电压相对值ustM=%.3f", 0.853) +
      F("\n\t电机起动转矩相对值MstM=%.3f", 1.1) + F("\n\t电机静阻转矩相对值Mj=%.3f", 0.3) +
      F("\n\t(1.1Mj/MstM)<U>0.5</U>=(1.1*%.3f/%.3f)<U>0.5</U>=%.3f", 0.3, 1.1, 0.547723) +
      "\n\t∵ustM>=(1.1Mj/MstM)<U>0.5</U>\n\t∴符合要求!" + "\n计算电机起动时间：" + F("\n\t机械转动惯量J^2=%.3f", 8.0) +
      F("\n\t电机平均起动转矩相对值Mstp=%.3f", 1.1) + F("\n\t电机静阻转矩相对值Mj=%.3f", 0.3) +
      F("\n\t电机转速Nr=%.3f", 980.0) + F("\n\t电机额定容量PrM=%.3f", 185.0) +
      F("\n\t电机起动时间\n\t=J<U>2</U>Nr<U>2</U>/[365Prm(ustM<U>2</U>Mstp-Mj)]\n\t=%.3f*%.3f<U>2</U>/"
        "[365*%.3f*(%.3f<U>2</U>*%.3f-%.3f)]\n\t=%.3f",
        8.0, 980.0, 185.0, 0.853, 1.1, 0.3, 227.3979);
  const Strings written = Written(), want = Lines(expected);
  EXPECT_EQ(written.size(), want.size());
  for (std::size_t i = 0; i < written.size() && i < want.size(); ++i) EXPECT_EQ(written[i], want[i]) << "line " << i;
}

TEST_F(DjqdReport, TheOtherStartingMethods) {
  Run([&](CDjqdCalDlg& d) {
    // Reactor 1.05 Ω: Sst = 1/(1/1.332774 + 1.055813/0.1444) = 0.124038, Ustm 0.997537.
    ui::act::Select(C(d, IDC_DJQD_P1_METHOD), 2);
    Click(d, IDC_DJQD_REPORT);
    ExpectInOrder(Written(),
                  Lines(std::string("电抗器降压起动时压降计算书\n") + F("\t每相电抗器额定电抗Xk(Ω)=%.3f", 1.05) +
                        F("\n\t起动回路的额定输入容量Sst\n\t=1/(1/Sqm+Xk/Um<U>2</U>+Xl/Um<U>2</U>)\n\t=1/(1/%.3fMVA+"
                          "%.3fΩ/%.3fkV<U>2</U>+%.3fΩ/%.3fkV<U>2</U>)\n\t=%.3fMVA",
                          1.332774, 1.05, 0.38, 0.0058125, 0.38, 0.124038) +
                        F("\n\t实际起动电流Istm=%sA", "187.998")));
    // Autotransformer 0.55: Sst = 1/(1/(0.3025·1.332774) + 0.040253) = 0.396726, Ustm 0.992165,
    // ustM = 0.992165·0.396726/(0.55·1.332774) = 0.536977; with the starting time (Mj 0.3):
    // t = 7683200/(67525·(0.537²·1.1 − 0.3)) = 6613.025 s, SrTz = 0.992·0.396726·6613.025/60 = 43.376.
    ui::act::Select(C(d, IDC_DJQD_P1_METHOD), 3);
    Click(d, IDC_DJQD_CALC);
    host_.QueueDriver([&](ui::Dialog& t) {
      Click(t, IDC_DJQD_CT_CALC);
      ui::act::Ok(t);
    });
    Click(d, IDC_DJQD_P1_TIME);
    Click(d, IDC_DJQD_REPORT);
    ExpectInOrder(Written(),
                  Lines(std::string("自耦变压器降压起动时压降计算书\n") + F("\t自耦变压器变压比Kz=%.3f", 0.55) +
                        F("\n\t起动回路的额定输入容量Sst\n\t=1/(1/k<U>2</U>Sstm+Xl/Um<U>2</U>)\n\t=1/(1/%.3f<U>2</U>*"
                          "%.3fMVA+%.3fΩ/%.3fkV<U>2</U>)\n\t=%.3fMVA",
                          0.55, 1.332774, 0.0058125, 0.38, 0.396726) +
                        F("\n\t电动机端子电压相对值ustM\n\t=UstmSst/kSstm\n\t=%.3f*%.3fMVA/(%.3f*%.3fMVA)\n\t=%.3f",
                          0.992165, 0.396726, 0.55, 1.332774, 0.536977) +
                        "\n\t∵ustM<(1.1Mj/MstM)<U>0.5</U>\n\t∴不符合要求!" + F("\n\t=%.3f", 6613.0248) +
                        "\n校验起动电器过负荷能力:SrTz >43.376"));
    // Last, as UM is shared by the forms. Transformer-motor unit at UM 0.4: Sst = 1/(1/1.332774 + 0.045/0.63 + 0.0058125/0.16) = 1.165404,
    // Ustm 0.977329; the formula's current at UM: 1644.029 A, the result field's at Ur: 1730.557 A.
    ui::act::Select(C(d, IDC_DJQD_P1_METHOD), 1);
    Set(d, IDC_DJQD_IN2_UM, "0.4");
    Click(d, IDC_DJQD_REPORT);
    ExpectInOrder(Written(),
                  Lines(std::string("变压器-电动机组起动时压降计算书\n") + F("\t母线短路容量Skm(MVA)=%.3f", 50.0) +
                        F("\n\t电动机额定起动容量Sstm=KstSrm=%.3f*%.3fMVA=%.3fMVA", 6.0089, 0.2218, 1.332774) +
                        F("\n\t起动回路的额定输入容量Sst\n\t=1/(1/Sstm+Xtm/Srtm+Xl/Um<U>2</U>))\n\t=1/(1/%.3fMVA+%.3f/"
                          "%.3fMVA+%.3fΩ/%.3fkV<U>2</U>)\n\t=%.3fMVA",
                          1.332774, 0.045, 0.63, 0.0058125, 0.4, 1.165404) +
                        F("\n\t实际起动电流Istm\n\t=UstmSst/1.732Um\n\t=%.3f*%.3fMVA/(1.732*%.3fKV)*1000\n\t=%.3fA",
                          0.977329, 1.165404, 0.4, 1644.0292) +
                        F("\n\t实际起动电流Istm=%sA", "1730.557")));
    ui::act::Cancel(d);
  });
}

TEST_F(DjqdReport, ReactorAndRatioPages) {
  Run([&](CDjqdCalDlg& d) {
    // The 6 kV motor, Ustm 0.95: Xk 4.732 and Xz 5.2 (see the dialog test), no cable.
    ui::act::Tab(d, 1);
    Enter6kV(d, IDC_DJQD_P2_SKM, IDC_DJQD_P2_SFH, IDC_DJQD_P2_COS, IDC_DJQD_P2_UM, 1);
    Set(d, IDC_DJQD_P2_USTM_REQ, "0.95");
    Click(d, IDC_DJQD_CALC);
    Click(d, IDC_DJQD_P2_CHOOSE_REACTOR);
    Click(d, IDC_DJQD_REPORT);
    ExpectInOrder(
        Written(),
        Lines(std::string("电抗器起动时电抗器的选定计算书\n") + F("\t母线短路容量Skm(MVA)=%.3f", 50.0) +
              F("\n\t预接负荷Sfh(MKVA)=%.3f", 0.4) + F("\n\t计算要求：母线电压相对值Ustm=%.3f", 0.95) +
              F("\n\t起动电抗器型号：%s", "QKSG-250") +
              F("\n\t电动机额定起动容量Sstm=KstSrm=%.3f*%.3fMVA=%.3fMVA", 6.5, 0.62352, 4.05288) + "\n\t铜线Xl=0Ω" +
              F("\n\t电抗值Xk\n\t=Um<U>2</U>/[(Qfh+Skm)(1/Ustm-1)]-Xl-Um<U>2</U>/Sstm\n\t=%.3fkV<U>2</U>/[(%.3fMVar+"
                "%.3fMVA)*(1/%.3f-1)]-%.3fΩ-%.3fkV<U>2</U>/%.3fMVA\n\t=%.3fΩ",
                6.0, 0.24, 50.0, 0.95, 0.0, 6.0, 4.05288, 4.732077) +
              "\n计算结果\n" + F("\t计算电抗值Xk(Ω)=%s", "4.732") + F("\n\t实际电抗值Xz(Ω)=%s", "5.200") +
              F("\n\t母线电压相对值Ustm=%s", "0.952") + F("\n\t电机端子电压相对值ustM=%s", "0.600") +
              F("\n\t实际起动电流(A)Istm=%s", "234.082")));
    // Kz = 0.808, then no ratio at all over 200 km of paper-insulated cable: no ratio line.
    ui::act::Tab(d, 2);
    Set(d, IDC_DJQD_P3_USTM_REQ, "0.95");
    Click(d, IDC_DJQD_REPORT);
    const std::string ratio_line = F(
        "\n\t变压比K\n\t=1/{Sstm/[(Skm+Qfh)(1/Ustm-1)]-XlSstm/Um<U>2</U>}<U>0.5</U>\n\t=1/{%.3fMVA/[(%.3fMVA+%.3fMVar)(1/"
        "%.3f-1)]-%.3fΩ*%.3fMVA/%.3fkV<U>2</U>}<U>0.5</U>\n\t=%.3f",
        4.05288, 50.0, 0.24, 0.95, 0.0, 4.05288, 6.0, 0.8077299);
    ExpectInOrder(Written(), Lines(std::string("降压起动自耦变压器变压比计算书\n") + ratio_line +
                                   "\n计算结果\n" + F("\t计算变压比Kz=%s", "0.808") + F("\n\t实际变压比Kk=%s", "")));
    ui::act::Select(C(d, IDC_DJQD_P3_CABLE_TYPE), 3);
    Set(d, IDC_DJQD_P3_LENGTH, "200");
    Click(d, IDC_DJQD_REPORT);
    const Strings written = Written();
    ExpectInOrder(written, Lines(F("\n\t纸绝缘Xl=0.07L=0.07*%.3fkm=%.3fΩ", 200.0, 14.0) +
                                 "\n\t预接负荷Qfh=Sfh*SINφ=0.400MKVA*0.600=0.240MVar\n计算结果\n\t计算变压比Kz="));
    EXPECT_EQ(std::find(written.begin(), written.end(), "\t变压比K"), written.end());
    ui::act::Cancel(d);
  });
}

}  // namespace
}  // namespace kestra::djqd::test

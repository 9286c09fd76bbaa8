#include "djqd/djqd_report.h"

#include <limits>

#include "services/text/format.h"
#include "services/text/number_text.h"

namespace kestra::djqd {
namespace {

using report::Block;
using report::BlockKind;
using text::Format;

constexpr double kNoNumber = std::numeric_limits<double>::infinity();  // prints as the overflow text

// The short-circuit, transformer and load lines of the first page, by method.
std::string StartConditions(const WorkingValues& w, StartMethod method) {
  std::string out;
  if (method == StartMethod::FullVoltage) out += Format("\n\t系统短路容量S\"(MVA)=%.3f", w.m_dSk);
  else out += Format("\n\t母线短路容量Skm(MVA)=%.3f", w.m_dSk);
  if (method == StartMethod::FullVoltage || method == StartMethod::TransformerUnit) {
    out += Format("\n\t变压器额定容量SrT(MVA)=%.3f", w.m_dSrT);
    out += Format("\n\t变压器阻抗电压相对值UT=%.3f", w.m_dUT);
  } else if (method == StartMethod::Reactor) {
    out += Format("\n\t每相电抗器额定电抗Xk(Ω)=%.3f", w.m_dXk);
  } else {
    out += Format("\n\t自耦变压器变压比Kz=%.3f", w.m_dKz);
  }
  out += Format("\n\t预接负荷Sfh(MVA)=%.3f", w.m_dSfh);
  out += Format("\n\t功率因数cosφ=%.3f", w.m_dCosPhi);
  out += Format("\n\t母线标称电压UM(kV)=%.3f", w.m_dUM);
  return out;
}

std::string Known(const ReportData& d) {
  const WorkingValues& w = d.values;
  static const char* const kCableTypes[4] = {"\t线缆类型：铜", "\t线缆类型：铝", "\t线缆类型：聚乙烯",
                                             "\t线缆类型：纸绝缘"};
  std::string out = d.texts.cable_type >= 0 && d.texts.cable_type < 4 ? kCableTypes[d.texts.cable_type] : "";
  out += Format("\n\t线缆截面S(mm<U>2</U>)=%.3f", w.m_dSection);
  out += Format("\n\t线缆长度L(km)=%.3f", w.m_dLength);
  out += Format("\n\t电机名称：%s", d.texts.series);
  out += Format("\n\t电机型号：%s", d.texts.model);
  out += Format("\n\t电机功率(kw)：%.3f", w.m_dPr);
  out += Format("\n\t电机转速(r/min)：%.3f", w.m_dNr);
  out += Format("\n\t电机额定电流(A)：%.3f", w.m_dIr);
  out += Format("\n\t电机起动电流(A)：%.3f", w.m_dIq);
  out += Format("\n\t电机额定电压(kV)：%.3f", w.m_dUr);
  if (d.page == 0) return out + StartConditions(w, d.method);
  out += Format("\n\t母线短路容量Skm(MVA)=%.3f", w.m_dSk);
  out += Format("\n\t预接负荷Sfh(MKVA)=%.3f", w.m_dSfh);
  out += Format("\n\t功率因数cosφ=%.3f", w.m_dCosPhi);
  out += Format("\n\t母线标称电压UM(kV)=%.3f", w.m_dUM);
  out += Format("\n\t计算要求：母线电压相对值Ustm=%.3f", w.m_dUstmReq);
  if (d.page == 1) out += Format("\n\t起动电抗器型号：%s", d.texts.reactor_model);
  return out;
}

std::string CableLine(const CableReactance& c, int type, double s, double l) {
  switch (c.formula) {
    case CableFormula::Omitted: {
      static const char* const kOmitted[4] = {"\n\t铜线Xl=0Ω", "\n\t铝线Xl=0Ω", "\n\t交联聚乙烯电缆Xl=0Ω",
                                              "\n\t纸绝缘Xl=0Ω"};
      return type >= 0 && type < 4 ? kOmitted[type] : "";
    }
    case CableFormula::CopperLarge:
      return Format("\n\t铜线Xl=(0.08+6.1/S)L=(0.08+6.1/%.3fmm<U>2</U>)*%.3fkm=%.3fΩ", s, l, c.xl);
    case CableFormula::CopperSmall:
      return Format("\n\t铜线Xl=(0.08+18.3/S)L=(0.08+18.3/%.3fmm<U>2</U>)*%.3fkm=%.3fΩ", s, l, c.xl);
    case CableFormula::AluminiumLarge:
      return Format("\n\t铝线Xl=(0.08+10/S)L=(0.08+10/%.3fmm<U>2</U>)*%.3fkm=%.3fΩ", s, l, c.xl);
    case CableFormula::AluminiumSmall:
      return Format("\n\t铝线Xl=(0.08+30/S)L=(0.08+30/%.3fmm<U>2</U>)*%.3fkm=%.3fΩ", s, l, c.xl);
    case CableFormula::Polyethylene: return Format("\n\t聚乙烯Xl=0.09L=0.09*%.3fkm=%.3fΩ", l, c.xl);
    case CableFormula::PaperInsulated: return Format("\n\t纸绝缘Xl=0.07L=0.07*%.3fkm=%.3fΩ", l, c.xl);
  }
  return "";
}

std::string UstmLine(double skm, double qfh, double sst, double ustm) {
  return Format(
      "\n\t母线电压相对值Ustm\n\t=(Skm+Qfh)/(Skm+Qfh+Sst)\n\t=(%.3fMVA+%.3fMVar)/(%.3fMVA+%.3fMVar+%.3fMVA)\n\t=%.3f",
      skm, qfh, skm, qfh, sst, ustm);
}

// The voltage-drop formulas of the first page after the common lines.
std::string StartFormulas(const WorkingValues& w, StartMethod method, const StartResults& r) {
  const double sstm = r.basics.sstm, xl = r.basics.cable.xl, qfh = r.basics.qfh;
  std::string out;
  switch (method) {
    case StartMethod::FullVoltage:
      out += Format("\n\t母线短路容量Skm\n\t=Srt/(Ut+Srt/Spp)\n\t=%.3fMVA/(%.3f+%.3fMVA/%.3fMVA)\n\t=%.3fMVA", w.m_dSrT,
                    w.m_dUT, w.m_dSrT, w.m_dSk, r.skm);
      out += Format(
          "\n\t起动回路的额定输入容量Sst\n\t=1/(1/Sstm+Xl/Um<U>2</U>)\n\t=1/(1/%.3fMVA+%.3fΩ/%.3fkV<U>2</U>)\n\t=%.3fMVA",
          sstm, xl, w.m_dUM, r.sst);
      break;
    case StartMethod::TransformerUnit:
      out += Format(
          "\n\t起动回路的额定输入容量Sst\n\t=1/(1/Sstm+Xtm/Srtm+Xl/Um<U>2</U>))\n\t=1/(1/%.3fMVA+%.3f/%.3fMVA+%.3fΩ/"
          "%.3fkV<U>2</U>)\n\t=%.3fMVA",
          sstm, w.m_dUT, w.m_dSrT, xl, w.m_dUM, r.sst);
      break;
    case StartMethod::Reactor:
      out += Format(
          "\n\t起动回路的额定输入容量Sst\n\t=1/(1/Sqm+Xk/Um<U>2</U>+Xl/Um<U>2</U>)\n\t=1/(1/%.3fMVA+%.3fΩ/%.3fkV<U>2</U>+"
          "%.3fΩ/%.3fkV<U>2</U>)\n\t=%.3fMVA",
          sstm, w.m_dXk, w.m_dUM, xl, w.m_dUM, r.sst);
      break;
    case StartMethod::Autotransformer:
      out += Format(
          "\n\t起动回路的额定输入容量Sst\n\t=1/(1/k<U>2</U>Sstm+Xl/Um<U>2</U>)\n\t=1/(1/%.3f<U>2</U>*%.3fMVA+%.3fΩ/"
          "%.3fkV<U>2</U>)\n\t=%.3fMVA",
          w.m_dKz, sstm, xl, w.m_dUM, r.sst);
      break;
  }
  out += UstmLine(r.skm, qfh, r.sst, r.ustm);
  if (method == StartMethod::Autotransformer) {
    out += Format("\n\t电动机端子电压相对值ustM\n\t=UstmSst/kSstm\n\t=%.3f*%.3fMVA/(%.3f*%.3fMVA)\n\t=%.3f", r.ustm, r.sst,
                  w.m_dKz, sstm, r.ustm_motor);
  } else {
    out += Format("\n\t电动机端子电压相对值ustM\n\t=UstmSst/Sstm\n\t=%.3f*%.3fMVA/%.3fMVA\n\t=%.3f", r.ustm, r.sst, sstm,
                  r.ustm_motor);
  }
  // Every method prints the current at the bus voltage.
  if (method == StartMethod::FullVoltage) {
    out += Format("\n\t实际起动电流Istm\n\t=UqmSq/1.732Um\n\t=%.3f*%.3fMVA/(1.732*%.3fKV)*1000\n\t=%.3fA", r.ustm, r.sst,
                  w.m_dUM, r.istm_at_bus);
  } else {
    out += Format("\n\t实际起动电流Istm\n\t=UstmSst/1.732Um\n\t=%.3f*%.3fMVA/(1.732*%.3fKV)*1000\n\t=%.3fA", r.ustm,
                  r.sst, w.m_dUM, r.istm_at_bus);
  }
  return out;
}

std::string Formulas(const ReportData& d) {
  const WorkingValues& w = d.values;
  const Basics& b = d.page == 0 ? d.start.basics : d.page == 1 ? d.reactor.basics : d.ratio.basics;
  std::string out = Format("\t电动机起动电流倍数Kst=Iq/Ir=%.3fA/%.3fA=%.3f", w.m_dIq, w.m_dIr, b.kst);
  out += Format("\n\t电动机额定容量Srm=1.732UrIr=1.732*%.3fkV*%.3fA/1000=%.3fMVA", w.m_dUr, w.m_dIr, b.srm);
  if (d.page == 0 && d.method == StartMethod::FullVoltage)
    out += Format("\n\t电动机额定起动容量Sstm=KqSrm=%.3f*%.3fMVA=%.3fMVA", b.kst, b.srm, b.sstm);
  else
    out += Format("\n\t电动机额定起动容量Sstm=KstSrm=%.3f*%.3fMVA=%.3fMVA", b.kst, b.srm, b.sstm);
  out += CableLine(b.cable, w.m_nCableType, w.m_dSection, w.m_dLength);
  out += Format("\n\t预接负荷Qfh=Sfh*SINφ=%.3fMKVA*%.3f=%.3fMVar", w.m_dSfh, b.sin_phi, b.qfh);
  if (d.page == 0) return out + StartFormulas(w, d.method, d.start);
  if (d.page == 1) {
    return out + Format(
                     "\n\t电抗值Xk\n\t=Um<U>2</U>/[(Qfh+Skm)(1/Ustm-1)]-Xl-Um<U>2</U>/Sstm\n\t=%.3fkV<U>2</U>/[(%.3fMVar+"
                     "%.3fMVA)*(1/%.3f-1)]-%.3fΩ-%.3fkV<U>2</U>/%.3fMVA\n\t=%.3fΩ",
                     w.m_dUM, b.qfh, w.m_dSk, w.m_dUstmReq, b.cable.xl, w.m_dUM, b.sstm, d.reactor.xk);
  }
  // A required voltage the cable does not allow has no ratio to show.
  if (d.ratio.x > 0) {
    out += Format(
        "\n\t变压比K\n\t=1/{Sstm/[(Skm+Qfh)(1/Ustm-1)]-XlSstm/Um<U>2</U>}<U>0.5</U>\n\t=1/{%.3fMVA/[(%.3fMVA+%.3fMVar)(1/"
        "%.3f-1)]-%.3fΩ*%.3fMVA/%.3fkV<U>2</U>}<U>0.5</U>\n\t=%.3f",
        b.sstm, w.m_dSk, b.qfh, w.m_dUstmReq, b.cable.xl, b.sstm, w.m_dUM, d.ratio.kz);
  }
  return out;
}

std::string Results(const ReportData& d) {
  const ReportTexts& t = d.texts;
  if (d.page == 0) {
    return Format("\t母线电压相对值Ustm=%s", t.ustm) + Format("\n\t电动机端子电压相对值ustM=%s", t.ustm_motor) +
           Format("\n\t实际起动电流Istm=%sA", t.istm);
  }
  std::string out = d.page == 1 ? Format("\t计算电抗值Xk(Ω)=%s", t.xk) + Format("\n\t实际电抗值Xz(Ω)=%s", t.xz)
                                : Format("\t计算变压比Kz=%s", t.kz) + Format("\n\t实际变压比Kk=%s", t.kk);
  out += Format("\n\t母线电压相对值Ustm=%s", t.ustm);
  out += Format("\n\t电机端子电压相对值ustM=%s", t.ustm_motor);
  out += Format("\n\t实际起动电流(A)Istm=%s", t.istm);
  return out;
}

std::string Torque(const ReportData& d) {
  const WorkingValues& w = d.values;
  const double ustm_motor = text::WcsToD(d.texts.ustm_motor);
  std::string out = "\n校验机械起动转矩：";
  out += Format("\n\t电机端子电压相对值ustM=%.3f", ustm_motor);
  out += Format("\n\t电机起动转矩相对值MstM=%.3f", w.m_dMstM);
  out += Format("\n\t电机静阻转矩相对值Mj=%.3f", w.m_dMj);
  out += Format("\n\t(1.1Mj/MstM)<U>0.5</U>=(1.1*%.3f/%.3f)<U>0.5</U>=%.3f", w.m_dMj, w.m_dMstM,
                RequiredTerminalVoltage(w.m_dMj, w.m_dMstM));
  out += TorqueCheckPasses(ustm_motor, w.m_dMj, w.m_dMstM) ? "\n\t∵ustM>=(1.1Mj/MstM)<U>0.5</U>\n\t∴符合要求!"
                                                           : "\n\t∵ustM<(1.1Mj/MstM)<U>0.5</U>\n\t∴不符合要求!";
  return out;
}

std::string Time(const ReportData& d) {
  const WorkingValues& w = d.values;
  const ReportTexts& t = d.texts;
  const double ustm_motor = text::WcsToD(t.ustm_motor);
  const auto time = StartingTime(w.m_dJ2, t.speed, t.power, ustm_motor, w.m_dMstp, w.m_dMj);
  std::string out = "\n计算电机起动时间：";
  out += Format("\n\t机械转动惯量J^2=%.3f", w.m_dJ2);
  out += Format("\n\t电机平均起动转矩相对值Mstp=%.3f", w.m_dMstp);
  out += Format("\n\t电机静阻转矩相对值Mj=%.3f", w.m_dMj);
  out += Format("\n\t电机转速Nr=%.3f", t.speed);
  out += Format("\n\t电机额定容量PrM=%.3f", t.power);
  out += Format(
      "\n\t电机起动时间\n\t=J<U>2</U>Nr<U>2</U>/[365Prm(ustM<U>2</U>Mstp-Mj)]\n\t=%.3f*%.3f<U>2</U>/"
      "[365*%.3f*(%.3f<U>2</U>*%.3f-%.3f)]\n\t=%.3f",
      w.m_dJ2, t.speed, t.power, ustm_motor, w.m_dMstp, w.m_dMj, time.value_or(kNoNumber));
  // The overload check as the page shows it.
  if (t.overload_title.visible) out += "\n" + t.overload_title.text;
  if (t.overload_name.visible) out += t.overload_name.text;
  if (t.overload_value.visible) out += t.overload_value.text;
  return out;
}

}  // namespace

const char* DjqdReportTitle(int page, StartMethod method) {
  if (page == 1) return "电抗器起动时电抗器的选定计算书";
  if (page == 2) return "降压起动自耦变压器变压比计算书";
  switch (method) {
    case StartMethod::FullVoltage: return "全压起动时压降计算书";
    case StartMethod::TransformerUnit: return "变压器-电动机组起动时压降计算书";
    case StartMethod::Reactor: return "电抗器降压起动时压降计算书";
    case StartMethod::Autotransformer: return "自耦变压器降压起动时压降计算书";
  }
  return "";
}

report::Blocks BuildDjqdReport(const ReportData& d) {
  return {
      Block{BlockKind::Title, DjqdReportTitle(d.page, d.method)},
      Block{BlockKind::Heading, "计算依据"},
      Block{BlockKind::Body, "\t《工业与民用配电设计手册》第三版中P270页表6-16的公式"},
      Block{BlockKind::Heading, "已知条件"},
      Block{BlockKind::Body, Known(d)},
      Block{BlockKind::Heading, "计算公式和过程"},
      Block{BlockKind::Body, Formulas(d)},
      Block{BlockKind::Heading, "计算结果"},
      // The results, the torque and the time follow one another in one paragraph; the time
      // ends the report.
      Block{BlockKind::BodyEnd, Results(d)},
      Block{BlockKind::BodyEnd, Torque(d)},
      Block{BlockKind::BodyEnd, Time(d)},
  };
}

}  // namespace kestra::djqd

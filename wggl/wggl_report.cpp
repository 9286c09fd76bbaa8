#include "wggl/wggl_report.h"

#include <cmath>
#include <string>

#include "services/text/format.h"
#include "services/text/number_text.h"
#include "wggl/wggl_formulas.h"

namespace kestra::wggl {
namespace {

using report::Block;
using report::BlockKind;
using text::Format;

// The derivation of cosφ1, shown only when the dialog's value still matches its source (a
// power factor typed by hand over a derived one gets none).
std::string Derivation(const WgglReportValues& v) {
  std::string out;
  if (v.system == SystemKind::Designing) {
    if (std::fabs(v.p_js) > 1e-10) {
      const double c = NaturalFactorFromLoads(v.alpha_p, v.beta_q, v.p_js, v.q_js);
      if (std::fabs(c - v.cos_phi1) < 0.01) {
        out += "\t补偿前企业自然平均功率因数(正在设计中)";
        out += "\n\tcosφ1=[1/(1+(βQjs/αPjs)<U>2</U>)]<U>0.5</U>={1/[1+((" + Format("%.2f", v.beta_q) + "*" +
               Format("%.2f", v.q_js) + ")/(" + Format("%.2f", v.alpha_p) + "*" + Format("%.2f", v.p_js) +
               "))<U>2</U>]}<U>0.5</U>=" + Format("%.2f", v.cos_phi1) + "\n";
      }
    }
  } else if (std::fabs(v.w_rm) > 1e-10) {
    const double c = NaturalFactorFromEnergy(v.w_m, v.w_rm);
    if (std::fabs(c - v.cos_phi1) < 0.01) {
      out += "\t补偿前企业自然平均功率因数(已生产企业)";
      out += "\n\tcosφ1=[1/(1+(Wrm/Wm)<U>2</U>)]<U>0.5</U>=[1/(1+(" + Format("%.2f", v.w_rm) + "/" +
             Format("%.2f", v.w_m) + ")<U>2</U>)]<U>0.5</U>=" + Format("%.2f", v.cos_phi1) + "\n";
    }
  }
  return out;
}

std::string Formulas(const WgglReportValues& v) {
  std::string out = Derivation(v);
  // The dialog refuses to calculate with a power factor that has no finite tangent, so the
  // report never gets one from it; should it get one anyway, the tangents print as what they
  // are rather than as a made-up number.
  CompensationRate rate;
  if (auto r = RateOf(v.cos_phi1, v.cos_phi2)) {
    rate = *r;
  } else {
    rate.tan1_text = Format("%.2f", Tangent(v.cos_phi1).value_or(NAN));
    rate.tan2_text = Format("%.2f", Tangent(v.cos_phi2).value_or(NAN));
    rate.qc = NAN;
  }
  out += "\t补偿系数 qc=TANφ1-TANφ2=" + rate.tan1_text + "-" + rate.tan2_text + "=" + Format("%.2f", rate.qc);
  out += "\n\t计算补偿容量 Qc=αqc Pjs=" + Format("%.2f", v.alpha) + "*" + Format("%.2f", rate.qc) + "*" +
         Format("%.2f", v.p_js) + "=" + Format("%.2f", SignedCapacity(v.alpha, v.p_js, rate.qc)) + "kVar";
  return out;
}

std::string Results(const WgglReportValues& v) {
  std::string out = "\t单个电容器额定容量=" + Format("%.2f", v.rating) + "kVar";
  out += "\n\t实际补偿容量=" + (v.actual_capacity ? Format("%.2f", *v.actual_capacity) + "kVar" : std::string());
  out += "\n\t并联电容器数量=" + (v.count ? Format("%.0f", *v.count) : std::string());
  return out;
}

}  // namespace

report::Blocks BuildWgglReport(const WgglReportValues& v) {
  std::string given = "\t自然平均功率因数cosφ1=" + Format("%.2f", v.cos_phi1);
  given += "\n\t补偿后功率因数cosφ2=" + Format("%.2f", v.cos_phi2);
  given += "\n\t负荷系数α=" + Format("%.2f", v.alpha);
  given += "\n\t有功计算负荷Pjs=" + Format("%.2f", v.p_js) + "kW";
  return {
      Block{BlockKind::Title, kWgglReportTitle},
      Block{BlockKind::Heading, "计算依据"},
      Block{BlockKind::Body, "\t《民用建筑电气设计手册》（湖南电气情报网编）p94 公式2.6.2-4,2.6.2-5"},
      Block{BlockKind::Heading, "已知条件"},
      Block{BlockKind::Body, given},
      Block{BlockKind::Heading, "计算公式和过程"},
      Block{BlockKind::Body, Formulas(v)},
      Block{BlockKind::Heading, "计算结果"},
      Block{BlockKind::BodyEnd, Results(v)},
  };
}

}  // namespace kestra::wggl

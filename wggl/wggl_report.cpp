#include "wggl/wggl_report.h"

#include <string>

#include "services/text/format.h"

namespace kestra::wggl {
namespace {

using report::Block;
using report::BlockKind;
using text::Format;

std::string Given(const WgglInputs& u) {
  std::string out = Format("\t自然平均功率因数cosφ1=%.2f", u.cos_phi1);
  out += Format("\n\t补偿后功率因数cosφ2=%.2f", u.cos_phi2);
  out += Format("\n\t负荷系数α=%.2f", u.alpha);
  out += Format("\n\t有功计算负荷Pjs=%.2fkW", u.p_js);
  return out;
}

std::string Formulas(const WgglResults& r) {
  const WgglInputs& u = r.used;
  std::string out;
  if (r.derivation == Derivation::FromLoads) {
    out += "\t补偿前企业自然平均功率因数(正在设计中)";
    out += Format(
        "\n\tcosφ1=[1/(1+(βQjs/αPjs)<U>2</U>)]<U>0.5</U>={1/[1+((%.2f*%.2f)/(%.2f*%.2f))<U>2</U>]}<U>0.5</U>=%.2f\n",
        u.beta_q, u.q_js, u.alpha_p, u.p_js, u.cos_phi1);
  } else if (r.derivation == Derivation::FromEnergy) {
    out += "\t补偿前企业自然平均功率因数(已生产企业)";
    out += Format("\n\tcosφ1=[1/(1+(Wrm/Wm)<U>2</U>)]<U>0.5</U>=[1/(1+(%.2f/%.2f)<U>2</U>)]<U>0.5</U>=%.2f\n", u.w_rm,
                  u.w_m, u.cos_phi1);
  }
  out += Format("\t补偿系数 qc=TANφ1-TANφ2=%s-%s=%.2f", r.rate.tan1_text, r.rate.tan2_text, r.rate.qc);
  out += Format("\n\t计算补偿容量 Qc=αqc Pjs=%.2f*%.2f*%.2f=%.2fkVar", u.alpha, r.rate.qc, u.p_js, r.report_capacity);
  return out;
}

std::string Results(const WgglResults& r, const std::optional<CapacitorBank>& bank) {
  std::string out = Format("\t单个电容器额定容量=%.2fkVar", r.used.rating);
  // Before any count the values are left blank, as the dialog leaves them; the units stay.
  out += Format("\n\t实际补偿容量=%.2fkVar", bank ? std::optional(bank->capacity) : std::nullopt);
  out += Format("\n\t并联电容器数量=%.0f", bank ? std::optional(bank->count) : std::nullopt);
  return out;
}

}  // namespace

report::Blocks BuildWgglReport(const WgglResults& results, const std::optional<CapacitorBank>& last_bank) {
  return {
      Block{BlockKind::Title, kWgglReportTitle},
      Block{BlockKind::Heading, "计算依据"},
      Block{BlockKind::Body, "\t《民用建筑电气设计手册》（湖南电气情报网编）p94 公式2.6.2-4,2.6.2-5"},
      Block{BlockKind::Heading, "已知条件"},
      Block{BlockKind::Body, Given(results.used)},
      Block{BlockKind::Heading, "计算公式和过程"},
      Block{BlockKind::Body, Formulas(results)},
      Block{BlockKind::Heading, "计算结果"},
      Block{BlockKind::BodyEnd, Results(results, last_bank)},
  };
}

}  // namespace kestra::wggl

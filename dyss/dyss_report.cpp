#include "dyss/dyss_report.h"

#include <cmath>

#include "services/text/format.h"

namespace kestra::dyss {
namespace {

using report::Block;
using report::BlockKind;
using text::Format;

constexpr const char* kBasis = "\t《工厂和民用配电设计手册》第三版（水利电力出版社）的p542表9-63中的公式";

// A load is listed when both its numbers are other than 0.
bool Listed(double a, double b) { return std::fabs(a) > 1e-10 && std::fabs(b) > 1e-10; }

// The line-name line, the index line (each index label, its list's text and a tab) and the
// line-data line of a line-data form.
std::string LineLines(const ShownLine& line) {
  std::string t = Format("\n\t线路名称：%s", line.name);
  t += "\n\t";
  for (const auto& [label, value] : line.indexes) t += label + value + "\t";
  t += Format("\n\t%s", line.data);
  return t;
}

std::string LossKnown(const LossReportData& d) {
  const LossInputs& in = d.inputs;
  const LossResult& r = d.result;
  const ShownInputs& s = d.shown;
  std::string t = Format("\t线路种类：%s", s.kind_text);
  t += Format("\n\t负荷情况：%s", s.case_text);
  if (in.form < 4) t += LineLines(s.line);
  switch (in.form) {
    case 0:
      t += Format("\n\t负荷计算电流I(A)=%s", in.current[0]);
      t += Format("\n\t线路长度l(km)=%s", in.length[0]);
      t += Format("\n\t功率因数cosφ=%s", s.cos_text);
      break;
    case 1:
      t += Format("\n\t功率因数cosφ=%s", s.cos_text);
      for (std::size_t i = 0; i < 6; ++i) {
        if (!Listed(r.current[i], r.length[i])) continue;
        t += Format("\n\t负荷计算电流I%d(A)=%s", i + 1, in.current[i]);
        t += Format("\n\t线路长度l%d(km)=%s", i + 1, in.length[i]);
      }
      break;
    case 2:
      t += Format("\n\t有功负荷P(kW)=%s", in.load[0]);
      t += Format("\n\t线路长度l(km)=%s", in.length[0]);
      t += Format("\n\t功率因数cosφ=%s", s.cos_text);
      break;
    case 3:
      t += Format("\n\t功率因数cosφ=%s", s.cos_text);
      for (std::size_t i = 0; i < 6; ++i) {
        if (!Listed(r.load[i], r.length[i])) continue;
        t += Format("\n\t有功负荷P%d(kW)=%s", i + 1, in.load[i]);
        t += Format("\n\t线路长度l%d(km)=%s", i + 1, in.length[i]);
      }
      break;
    case 4: {
      t += Format("\n\t线芯标称截面S(mm2)=%s", in.section);
      t += Format("\n\t功率因数为1时的计算系数C=%s", in.coefficient);
      const bool all_loads = in.kind == kThreePhase || in.kind == kSinglePhaseOnLine;
      for (std::size_t i = 0; i < (all_loads ? 6u : 1u); ++i) {
        if (all_loads && !Listed(r.load[i], r.length[i])) continue;
        t += Format("\n\t有功负荷P%d(kW)=%s", i + 1, in.load[i]);
        t += Format("\n\t线路长度l%d(km)=%s", i + 1, in.length[i]);
      }
      break;
    }
    default: break;
  }
  return t;
}

std::string SumIL(const LossResult& r) {
  const auto& i = r.current;
  const auto& l = r.length;
  return Format("\tΣIL\n\t=%g*%g+%g*%g+%g*%g+%g*%g+%g*%g+%g*%g\n\t=%.3f", i[0], l[0], i[1], l[1], i[2], l[2], i[3],
                l[3], i[4], l[4], i[5], l[5], r.sum_il);
}

std::string SumPL(const LossResult& r) {
  const auto& p = r.load;
  const auto& l = r.length;
  return Format("\tΣpL\n\t=%g*%g+%g*%g+%g*%g+%g*%g+%g*%g+%g*%g\n\t=%.3f", p[0], l[0], p[1], l[1], p[2], l[2], p[3],
                l[3], p[4], l[4], p[5], l[5], r.sum_pl);
}

std::string LossFormula(const LossReportData& d) {
  const LossResult& r = d.result;
  const std::string& res = d.result_text;
  const double cos = r.cos_phi, sin = r.sin_phi, tg = r.tan_phi;
  const double i = r.current[0], l = r.length[0], p = r.load[0];
  switch (d.inputs.kind * 10 + d.inputs.form) {  // kind·10 + form
    case 0:
      return Format("\tSINφ=(1-%g<U>2</U>)<U>0.5</U>=%g", cos, sin) +
             Format("\n\tΔu(%%)\n\t=1.732(R' COSφ+X' SINφ)IL/10Un\n\t=1.732*(%g*%g+%g*%g)*%g*%g/(10*%g)\n\t=%s", r.r,
                    cos, r.x, sin, i, l, r.u, res);
    case 1:
      return SumIL(r) +
             Format("\n\tΔu(%%)\n\t=1.732(R' COSφ+X' SINφ)ΣIL/10Un\n\t=1.732*%g*(%g*%g+%g*%g)/(10*%g)\n\t=%s",
                    r.sum_il, r.r, cos, r.x, sin, r.u, res);
    case 2:
      return Format("\ttgφ=%.3f", tg) +
             Format("\n\tΔu(%%)\n\t=(R'+X'tgφ)pL/10Un<U>2</U>\n\t=(%g+%g*%.3f)*%g*%g/(10*%g<U>2</U>)\n\t=%s", r.r, r.x,
                    tg, p, l, r.u, res);
    case 3:
      return SumPL(r) +
             Format("\n\tΔu(%%)\n\t=Σ(R'+X'tgφ)pL/(10Un<U>2</U>)\n\t=%g*(%g+%g*%.3f)/(10*%g<U>2</U>)\n\t=%s", r.sum_pl,
                    r.r, r.x, tg, r.u, res);
    case 4: return SumPL(r) + Format("\n\tΔu(%%)\n\t=ΣpL/CS=%.3f/(%g*%g)\n\t=%s", r.sum_pl, r.c, r.s, res);
    case 10:
      return Format("\tΔu(%%)\n\t=2(R'COSφ+X'SINφ)IL/10Un\n\t=2*(%g*%.3f+%g*%.3f)*%g*%g/(10*%g)\n\t=%s", r.r, cos, r.x,
                    sin, i, l, r.u, res);
    case 11:
      return SumIL(r) + Format("\n\tΔu(%%)\n\t=Σ2(R'COSφ+X'SINφ)IL/10Un\n\t=2*%.3f*(%g*%.3f+%g*%.3f)/(10*%g)\n\t=%s",
                               r.sum_il, r.r, cos, r.x, sin, r.u, res);
    case 12:
      return Format("\ttgφ=%.3f", tg) +
             Format("\n\tΔu(%%)\n\t=2(R'+X'tgφ)pL/10Un<U>2</U>\n\t=2*(%g+%g*%.3f)*%g*%g/(10*%g<U>2</U>)\n\t=%s", r.r,
                    r.x, tg, p, l, r.u, res);
    case 13:
      return SumPL(r) +
             Format("\n\tΔu(%%)\n\t=2Σ(R'+X'tgφ)pL/10Un<U>2</U>\n\t=2*%.3f*(%g+%g*%.3f)/(10*%g<U>2</U>)\n\t=%s",
                    r.sum_pl, r.r, r.x, tg, r.u, res);
    case 14: return SumPL(r) + Format("\n\tΔu(%%)\n\t=2ΣpL/CS\n\t=2*%.3f/(%g*%g)\n\t=%s", r.sum_pl, r.c, r.s, res);
    case 20:
      return Format(
          "\tΔu(%%)\n\t=1.5*1.732*(R'COSφ+X'SINφ)IL/10Un\n\t=1.5*1.732*(%g*%.3f+%g*%.3f)*%g*%g/(10*%g)\n\t=%s", r.r,
          cos, r.x, sin, i, l, r.u, res);
    case 22:
      return Format("\ttgφ=%.3f", tg) +
             Format("\n\tΔu(%%)\n\t=2.25(R'+X'tgφ)pL/10Un<U>2</U>\n\t=2.25*(%g+%g*%.3f)*%g*%g/(10*%g<U>2</U>)\n\t=%s",
                    r.r, r.x, tg, p, l, r.u, res);
    case 24: return Format("\n\tΔu(%%)\n\t=ΣpL/CS\n\t=%g*%g/(%g*%g)\n\t=%s", p, l, r.c, r.s, res);
    case 30:
      return Format("\tΔu(%%)\n\t=2*1.732(R'COSφ+X'SINφ)IL/10Un\n\t=2*1.732*(%g*%.3f+%g*%.3f)*%g*%g/(10*%g)\n\t=%s",
                    r.r, cos, r.x, sin, i, l, r.u, res);
    case 32:
      return Format("\ttgφ=%.3f", tg) +
             Format("\n\tΔu(%%)\n\t=6(R'+X'tgφ)pL/10Un<U>2</U>\n\t=6*(%g+%g*%.3f)*%g*%g/(10*%g<U>2</U>)\n\t=%s", r.r,
                    r.x, tg, p, l, r.u, res);
    case 34: return Format("\tΔu(%%)\n\t=ΣpL/CS\n\t=%g*%g/(%g*%g)\n\t=%s", p, l, r.c, r.s, res);
    default: return {};  // no formula for this kind and form
  }
}

std::string LengthKnown(const LengthReportData& d) {
  const ShownInputs& s = d.shown;
  std::string t = Format("\n\t线路种类：%s", s.kind_text);
  t += Format("\n\t负荷情况：%s", s.case_text);
  t += LineLines(s.line);
  if (d.inputs.form == 0) {
    t += Format("\n\t负荷计算电流I(A)=%s", d.inputs.current);
  } else {
    t += Format("\n\t有功负荷P(kw)=%s", d.inputs.load);
  }
  t += Format("\n\t功率因数cosφ=%s", s.cos_text);
  t += Format("\n\t要求线路电压损失Δu(%%)=%s", d.inputs.require);
  return t;
}

// The length lines write cosφ as the form holds it, with its own sinφ and tgφ.
std::string LengthFormula(const LengthReportData& d) {
  const LengthResult& r = d.result;
  const PhiTerms phi = PhiTermsOf(d.inputs.cos_phi);
  const double cos = phi.cos_phi, sin = phi.sin_phi, tg = phi.tan_phi;
  const std::string& res = d.result_text;
  switch (d.inputs.kind * 10 + d.inputs.form) {  // kind·10 + form
    case 0:
      return Format("\tL=10UnΔu(%%)/1.732I(R'COSφ+X'SINφ)\n\t=10*%g*%.3f/[1.732*%g*(%g*%.3f+%g*%.3f)]\n\t=%s", r.u,
                    r.du, r.current, r.r, cos, r.x, sin, res);
    case 1:
      return Format("\tL=10Un<U>2</U>Δu(%%)/p(R'+X'tgφ)\n\t=10*%g<U>2</U>*%g/[%g*(%g+%g*%.3f)]\n\t=%s", r.u, r.du,
                    r.load, r.r, r.x, tg, res);
    case 10:
      return Format("\tL=10UnΔu(%%)/2I(R'COSφ+X'SINφ)\n\t=10*%g*%g/[2*%g*(%g*%.3f+%g*%.3f)]\n\t=%s", r.u, r.du,
                    r.current, r.r, cos, r.x, sin, res);
    case 11:
      return Format("\tL=10Un<U>2</U>Δu(%%)/2p(R'+X'tgφ)\n\t=10*%g<U>2</U>*%g/[2*%g*(%g+%g*%.3f)]\n\t=%s", r.u, r.du,
                    r.load, r.r, r.x, tg, res);
    case 20:
      return Format(
          "\tL=10UnΔu(%%)/1.5*1.732I(R'COSφ+X'SINφ)\n\t=10*%g*%g/[1.5*1.732*%g*(%g*%.3f+%g*%.3f)]\n\t=%s", r.u,
          r.du, r.current, r.r, cos, r.x, sin, res);
    case 21:
      return Format("\tL=10Un<U>2</U>Δu(%%)/2.25p(R'+X'tgφ)\n\t=10*%g<U>2</U>*%g/[2.25*%g*(%g+%g*%.3f)]\n\t=%s", r.u,
                    r.du, r.load, r.r, r.x, tg, res);
    case 30:
      return Format("\tL=10UnΔu(%%)/2*1.732I(R'COSφ+X'SINφ)\n\t=10*%g*%g/[2*1.732*%g*(%g*%.3f+%g*%.3f)]\n\t=%s",
                    r.u, r.du, r.current, r.r, cos, r.x, sin, res);
    case 31:
      return Format("\tL=10Un<U>2</U>Δu(%%)/6p(R'+X'tgφ)\n\t=10*%g<U>2</U>*%g/[6*%g*(%g+%g*%.3f)]\n\t=%s", r.u, r.du,
                    r.load, r.r, r.x, tg, res);
    default: return {};
  }
}

// How the section current I′ was found, by the harmonic list's text.
const char* SectionCurrentLabel(const std::string& harmonic) {
  if (harmonic == "无谐波") return "= I";
  if (harmonic == "20%三次谐波") return "= I√(1 + 20%<U>2</U>) / K";
  if (harmonic == "40%三次谐波") return "= I × 40% × 3 / K";
  if (harmonic == "50%三次谐波") return "= I × 50% × 3 / K";
  return "";
}

std::string HarmonicText(const LengthReportData& d, const HarmonicShown& h) {
  const LengthResult& r = d.result;
  const PhiTerms phi = PhiTermsOf(d.inputs.cos_phi);
  std::string t = Format("\t相电流中三次谐波分量= %s", h.list_text);
  t += Format("\n\t谐波电流校正系数= %s", h.k_text);
  t += Format("\n\t负荷计算电流= %sA", h.current_text);
  t += Format("\n    截面的计算电流I' %s = %sA", SectionCurrentLabel(h.list_text), h.i_prime_text);
  t += "\n    谐波下最大允许线路长度";
  t += Format("\n       L' = 10UnΔu(%%)/1.732I'(R'COSφ+X'SINφ)\n\t=10*%g*%.3f/[1.732*%s*(%g*%.3f+%g*%.3f)]\n\t=%s(km)",
              r.u, r.du, h.i_prime_text, r.r, phi.cos_phi, r.x, phi.sin_phi, h.l_prime_text);
  return t;
}

// Title, basis, known conditions, formulas: the same four parts on both pages.
report::Blocks Head(const char* title, std::string known, std::string formula) {
  return {
      {BlockKind::PlainTitle, title},
      {BlockKind::PlainHeading, "计算依据"},
      {BlockKind::Plain, kBasis},
      {BlockKind::NewParagraph, ""},
      {BlockKind::PlainHeading, "已知条件"},
      {BlockKind::Body, std::move(known)},
      {BlockKind::PlainHeading, "计算公式和过程"},
      {BlockKind::Body, std::move(formula)},
      {BlockKind::PlainHeading, "计算结果"},
  };
}

}  // namespace

report::Blocks BuildLossReport(const LossReportData& d) {
  report::Blocks b = Head(kLossReportTitle, LossKnown(d), LossFormula(d));
  // The result line ends the report.
  b.push_back({BlockKind::Plain, Format("\t线路电压损失Δu(%%)=%s", d.result_text)});
  return b;
}

report::Blocks BuildLengthReport(const LengthReportData& d) {
  report::Blocks b = Head(kLengthReportTitle, LengthKnown(d), LengthFormula(d));
  b.push_back({BlockKind::Plain, Format("\t最大允许线路长度l(km)=%s", d.result_text)});
  if (d.inputs.kind == kThreePhase && d.harmonic) {
    b.push_back({BlockKind::NewParagraph, ""});
    b.push_back({BlockKind::PlainHeading, "谐波下导线截面选择及线路长度计算"});
    b.push_back({BlockKind::BodyEnd, HarmonicText(d, *d.harmonic)});
  }
  return b;
}

}  // namespace kestra::dyss

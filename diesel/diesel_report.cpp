#include "diesel/diesel_report.h"

#include <ctime>

#include "services/text/format.h"

namespace kestra::diesel {
namespace {

using text::Format;

// One line naming the program that wrote the report, then an empty line.
constexpr const char* kNotice = "本计算书由 OrvelKestra 柴油发电机组容量计算程序生成。\n\n";
constexpr const char* kBasis =
    "\t根据《工业与民用配电设计手册》第三版66页柴油发电机组容量选择计算公式（2-6）（2-7）（2-8）";

constexpr const char* kSteadyHead = "1）\t按稳定负荷计算发电机容量：\n";
constexpr const char* kPeakHead = "2）\t按尖峰负荷计算发电机容量：\n";
constexpr const char* kBusDropHead = "3）\t按发电机母线允许压降计算发电机容量：\n";

// Each method's parameter paragraph: every number "%.3f".
std::string Parameters(const DieselInputs& in) {
  std::string t = kSteadyHead;
  t += Format("      发电机总负荷计算功率P<L>∑</L>=%.3f（kW）；\n", in.steady.p_sum);
  t += Format("      所带负荷的综合效率η<L>∑</L>=%.3f，一般取=0.82~0.88；\n", in.steady.eta_sum);
  t += Format("      发电机额定功率因数cosφ= %.3f，一般取cosφ=0.8。\n", in.steady.cos_phi);
  t += kPeakHead;
  t += Format("      因尖峰负荷造成电压、频率降低而导致电动机功率下降的系数K<L>j</L>= %.3f，一般取K<L>j</L>=0.9~0.95；\n",
              in.peak.kj);
  t += Format("      发电机允许短时过载系数K<L>G</L>=%.3f，一般取K<L>G</L>=1.4~1.6；\n", in.peak.kg);
  t += Format("      最大的单台电动机或成组电动机的起动容量S<L>m</L>= %.3f（kVA）；\n", in.peak.sm);
  t += Format("      S<L>m</L>的有功功率P<L>m</L>=%.3f（kW）；\n", in.peak.pm);
  t += Format("      S<L>m</L>的无功功率Q<L>m</L>=%.3f（kvar）。\n", in.peak.qm);
  t += kBusDropHead;
  t += Format("      发电机母线允许电压降△U= %.3f，一般取△U=0.2；\n", in.bus_drop.delta_u);
  t += Format("      发电机瞬态电抗X’<L>d</L>= %.3f，一般取X’<L>d</L>=0.2；\n", in.bus_drop.xd);
  t += Format("      导致发电机最大电压降的电动机的最大起动容量S<L>st△</L>= %.3f（kVA）。\n", in.bus_drop.sst);
  return t;
}

// Each method's formula and result. The bus-drop line is written like the peak-load line:
// the ratio in ASCII parentheses, then the factors.
std::string Results(const DieselResults& r) {
  std::string t = kSteadyHead;
  t += Format("           S<L>G1</L>=P<L>∑</L>/（η<L>∑</L>cosφ）=%.3f\n", r.sg1);
  t += kPeakHead;
  t += Format("           S<L>G2</L>=(K<L>j</L>/K<L>G</L>)S<L>m</L>= (K<L>j</L>/K<L>G</L>)√(P<L>2m</L>+Q<L>2m</L>)=%.3f\n",
              r.sg2);
  t += kBusDropHead;
  t += Format("           S<L>G3</L>=((1-△U)/△U)X’<L>d</L>S<L>st△</L>=%.3f\n", r.sg3);
  return t;
}

}  // namespace

report::Blocks BuildDieselReport(const DieselInputs& inputs, const DieselResults& results, const std::string& date) {
  using report::BlockKind;
  return {
      {BlockKind::Title, kReportTitle},
      {BlockKind::Plain, kNotice},
      {BlockKind::Plain, Format("计算时间: %s\n", date)},
      {BlockKind::Plain, "设 计 院:\n"},
      {BlockKind::Plain, "工    程:\n"},
      {BlockKind::Plain, "计 算 者:"},
      // A failure from the paragraph break that closes the header on is one of the body.
      {BlockKind::HeaderDone, ""},
      {BlockKind::NewParagraph, ""},
      {BlockKind::Heading, "计算依据"},
      {BlockKind::Body, kBasis},
      {BlockKind::Heading, "计算参数"},
      {BlockKind::Body, Parameters(inputs)},
      {BlockKind::Heading, "计算结果"},
      {BlockKind::BodyEnd, Results(results)},
      {BlockKind::DocumentFont, "宋体"},
  };
}

std::string TodayText() {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  char buf[16];
  const std::size_t n = std::strftime(buf, sizeof buf, "%Y-%m-%d", &local);
  return std::string(buf, n);
}

}  // namespace kestra::diesel

#include "diesel/diesel_calculators.h"

#include <cmath>

#include "services/text/number_text.h"

namespace kestra::diesel {
bool NearZero(double x) { return x > -1e-6 && x < 1e-6; }
}  // namespace kestra::diesel

using kestra::diesel::NearZero;

double ZoUiDieselContentCalBase::Calculate() const { return 0.0; }
std::string ZoUiDieselContentCalBase::GetParamText() const { return {}; }
std::string ZoUiDieselContentCalBase::GetResultText() const { return {}; }

std::string ZoUiDieselContentCalBase::FormatValue(double value) const { return kestra::text::Format3f(value); }

// Steady load.

void ZoUiWDFHCal::SetParams(double p_sum, double eta_sum, double cos_phi) {
  m_dPSum = p_sum;
  m_dEtaSum = eta_sum;
  m_dCosPhi = cos_phi;
}

double ZoUiWDFHCal::Calculate() const {
  if (NearZero(m_dCosPhi)) return 0.0;
  if (NearZero(m_dEtaSum)) return 0.0;
  return m_dPSum / (m_dEtaSum * m_dCosPhi);
}

std::string ZoUiWDFHCal::GetParamText() const {
  std::string t = "1）\t按稳定负荷计算发电机容量：\n";
  t += "      发电机总负荷计算功率P<L>∑</L>=" + FormatValue(m_dPSum) + "（kW）；\n";
  t += "      所带负荷的综合效率η<L>∑</L>=" + FormatValue(m_dEtaSum) + "，一般取=0.82~0.88；\n";
  t += "      发电机额定功率因数cosφ= " + FormatValue(m_dCosPhi) + "，一般取cosφ=0.8。\n";
  return t;
}

std::string ZoUiWDFHCal::GetResultText() const {
  return "1）\t按稳定负荷计算发电机容量：\n"
         "           S<L>G1</L>=P<L>∑</L>/（η<L>∑</L>cosφ）=" +
         FormatValue(Calculate()) + "\n";
}

// Peak load.

void ZoUiJFFHCal::SetParams(double kj, double kg, double sm, double pm, double qm) {
  m_dKj = kj;
  m_dKG = kg;
  m_dSm = sm;
  m_dPm = pm;
  m_dQm = qm;
}

double ZoUiJFFHCal::Calculate() const {
  if (NearZero(m_dKG)) return 0.0;
  return (m_dKj / m_dKG) * m_dSm;
}

double ZoUiJFFHCal::CalculateFromPQ() const {
  if (NearZero(m_dKG)) return 0.0;
  return (m_dKj / m_dKG) * std::sqrt(m_dPm * m_dPm + m_dQm * m_dQm);
}

std::string ZoUiJFFHCal::GetParamText() const {
  std::string t = "2）\t按尖峰负荷计算发电机容量：\n";
  t += "      因尖峰负荷造成电压、频率降低而导致电动机功率下降的系数K<L>j</L>= " + FormatValue(m_dKj) +
       "，一般取K<L>j</L>=0.9~0.95；\n";
  t += "      发电机允许短时过载系数K<L>G</L>=" + FormatValue(m_dKG) + "，一般取K<L>G</L>=1.4~1.6；\n";
  t += "      最大的单台电动机或成组电动机的起动容量S<L>m</L>= " + FormatValue(m_dSm) + "（kVA）；\n";
  t += "      S<L>m</L>的有功功率P<L>m</L>=" + FormatValue(m_dPm) + "（kW）；\n";
  t += "      S<L>m</L>的无功功率Q<L>m</L>=" + FormatValue(m_dQm) + "（kvar）。\n";
  return t;
}

std::string ZoUiJFFHCal::GetResultText() const {
  // Without a starting capacity the designer gave its active and reactive power instead.
  const double sg2 = NearZero(m_dSm) ? CalculateFromPQ() : Calculate();
  return "2）\t按尖峰负荷计算发电机容量：\n"
         "           S<L>G2</L>=(K<L>j</L>/K<L>G</L>)S<L>m</L>= (K<L>j</L>/K<L>G</L>)√(P<L>2m</L>+Q<L>2m</L>)=" +
         FormatValue(sg2) + "\n";
}

// Permitted bus voltage drop.

void ZoUiMXYXYJCal::SetParams(double delta_u, double xd, double sst) {
  m_dDeltaU = delta_u;
  m_dXd = xd;
  m_dSst = sst;
}

double ZoUiMXYXYJCal::Calculate() const {
  if (NearZero(m_dDeltaU)) return 0.0;
  return ((1.0 - m_dDeltaU) / m_dDeltaU) * m_dXd * m_dSst;
}

std::string ZoUiMXYXYJCal::GetParamText() const {
  std::string t = "3）\t按发电机母线允许压降计算发电机容量：\n";
  t += "      发电机母线允许电压降△U= " + FormatValue(m_dDeltaU) + "，一般取△U=0.2；\n";
  t += "      发电机瞬态电抗X’<L>d</L>= " + FormatValue(m_dXd) + "，一般取X’<L>d</L>=0.2；\n";
  t += "      导致发电机最大电压降的电动机的最大起动容量S<L>st△</L>= " + FormatValue(m_dSst) + "（kVA）。\n";
  return t;
}

std::string ZoUiMXYXYJCal::GetResultText() const {
  // Written like the peak-load line: the ratio in ASCII parentheses, then the factors.
  return "3）\t按发电机母线允许压降计算发电机容量：\n"
         "           S<L>G3</L>=((1-△U)/△U)X’<L>d</L>S<L>st△</L>=" +
         FormatValue(Calculate()) + "\n";
}

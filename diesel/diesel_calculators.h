#pragma once
// The three methods of choosing a diesel generator set's apparent power (kVA): by the
// steady load, by the peak load and by the permitted voltage drop of the generator bus.
// Each calculator holds its inputs, computes its capacity and writes its two report
// paragraphs (marked text: <L>..</L> around a subscript). They know nothing of dialogs.
#include <string>

// The interface the tab pages and the report use. The calculators live by value inside
// their pages and are never deleted through this base, so it has no virtual destructor;
// the protected one keeps anyone from trying.
class ZoUiDieselContentCalBase {
 public:
  // The generator's apparent power in kVA.
  virtual double Calculate() const;
  // The method's parameter paragraph.
  virtual std::string GetParamText() const;
  // The method's formula and result paragraph.
  virtual std::string GetResultText() const;

  // Every number a calculator writes into its texts: "%.3f".
  std::string FormatValue(double value) const;

 protected:
  ZoUiDieselContentCalBase() = default;
  ZoUiDieselContentCalBase(const ZoUiDieselContentCalBase&) = default;
  ZoUiDieselContentCalBase& operator=(const ZoUiDieselContentCalBase&) = default;
  ~ZoUiDieselContentCalBase() = default;
};

// Steady load (formula 2-6): SG1 = P∑ / (η∑ cosφ).
class ZoUiWDFHCal final : public ZoUiDieselContentCalBase {
 public:
  void SetParams(double p_sum, double eta_sum, double cos_phi);
  double Calculate() const override;
  std::string GetParamText() const override;
  std::string GetResultText() const override;

  double m_dPSum = 0.0;    // P∑, kW
  double m_dEtaSum = 0.0;  // η∑
  double m_dCosPhi = 0.0;  // cosφ
};

// Peak load (formula 2-7): SG2 = (Kj / KG) Sm, or from the active and reactive power of Sm.
class ZoUiJFFHCal final : public ZoUiDieselContentCalBase {
 public:
  void SetParams(double kj, double kg, double sm, double pm, double qm);
  double Calculate() const override;
  // SG2 = (Kj / KG) √(Pm² + Qm²).
  double CalculateFromPQ() const;
  std::string GetParamText() const override;
  // Uses CalculateFromPQ when Sm is near zero, Calculate otherwise.
  std::string GetResultText() const override;

  double m_dKj = 0.0;  // Kj
  double m_dKG = 0.0;  // KG
  double m_dSm = 0.0;  // Sm, kVA
  double m_dPm = 0.0;  // Pm, kW
  double m_dQm = 0.0;  // Qm, kvar
};

// Permitted bus voltage drop (formula 2-8): SG3 = ((1 − △U) / △U) X'd Sst△.
class ZoUiMXYXYJCal final : public ZoUiDieselContentCalBase {
 public:
  void SetParams(double delta_u, double xd, double sst);
  double Calculate() const override;
  std::string GetParamText() const override;
  std::string GetResultText() const override;

  double m_dDeltaU = 0.0;  // △U, per unit
  double m_dXd = 0.0;      // X'd, per unit
  double m_dSst = 0.0;     // Sst△, kVA
};

namespace kestra::diesel {
// A divisor strictly between -1e-6 and 1e-6 makes a formula give 0; NaN is not near zero.
bool NearZero(double x);
}  // namespace kestra::diesel

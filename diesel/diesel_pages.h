#pragma once
// The three tab pages of the generator-capacity dialog, one per method. Each holds its
// calculator by value; "计算" of the main dialog runs the shown page's DoCalculate, which
// reads the edits (_wtof: a text without a number is 0, nothing is checked), sets the
// calculator and shows the capacity with "%.3f".
#include "diesel/diesel_calculators.h"
#include "diesel/zo_ui_dialog.h"

// Steady load (template 201): 216 P∑, 217 η∑, 218 cosφ, 219 SG1 (read-only).
class ZoUiWdfhCalDlg : public ZoUiDialog {
 public:
  explicit ZoUiWdfhCalDlg(ui::Dialog* parent = nullptr);
  bool OnInitDialog() override;
  void DoCalculate();
  const ZoUiWDFHCal& Calculator() const { return m_cal; }

 private:
  ZoUiWDFHCal m_cal;
};

// Peak load (template 202): 216 Kj, 217 KG, 218 Sm, 219 Pm, 220 Qm, 221 SG2 (read-only).
class ZoUiJffhCalDlg : public ZoUiDialog {
 public:
  explicit ZoUiJffhCalDlg(ui::Dialog* parent = nullptr);
  bool OnInitDialog() override;
  // With Sm left empty the capacity comes from Pm and Qm, and their √(Pm²+Qm²) is written
  // into the Sm edit ("%.2f") unless both are empty; the calculator keeps Sm = 0 until the
  // next calculation reads the written value.
  void DoCalculate();
  const ZoUiJFFHCal& Calculator() const { return m_cal; }

 private:
  ZoUiJFFHCal m_cal;
};

// Permitted bus voltage drop (template 203): 217 △U, 218 X'd, 219 Sst△, 216 SG3 (read-only).
class ZoUiMxyxyjCalDlg : public ZoUiDialog {
 public:
  explicit ZoUiMxyxyjCalDlg(ui::Dialog* parent = nullptr);
  bool OnInitDialog() override;
  void DoCalculate();
  const ZoUiMXYXYJCal& Calculator() const { return m_cal; }

 private:
  ZoUiMXYXYJCal m_cal;
};

#pragma once
// CWgglbcDlg "无功功率补偿": the reactive power compensation calculator.
#include <optional>
#include <string>

#include "ui/dialog.h"
#include "wggl/wggl_params.h"
#include "wggl/wggl_report.h"

class CWgglbcDlg : public ui::CAcUiDialog {
 public:
  // parent_window: the host's main window (opaque; the dialog is modal over it).
  explicit CWgglbcDlg(void* parent_window);

  bool OnInitDialog() override;
  void DoDataExchange(ui::DataExchange& dx) override;
  void OnOK() override;

  // "计算": Qc and, with the check box set, the capacitor count. Sets the calculated flag
  // unless a power factor has no finite tangent.
  void OnCalc();
  bool calculated() const { return m_bCalculated; }
  // The numbers as they stand (what "确定" would store).
  const kestra::wggl::WgglNumbers& numbers() const { return m_num; }
  // The report's values: the numbers of the last calculation and the last capacitor count.
  kestra::wggl::WgglReportValues ReportValues() const;

 private:
  void OnReport();
  void OnExplain();
  void OnRadioDesign();
  void OnRadioInUse();
  void OnCountBox();
  void OnSpin(int edit_id, int delta);
  void EnableCountControls();
  void SetEditText(int id, std::string& member, const std::string& text);

  void* parent_window_;
  // Texts of the edits, apart from the numbers beside them.
  std::string m_strZrglys, m_strBchglys, m_strFhxs, m_strYgjsfh, m_strQc, m_strDrrl, m_strDrsl, m_strSjbcrl;
  int m_nRadio = -1;
  int m_nCheck = 0;
  kestra::wggl::WgglNumbers m_num;
  double m_dQc = 0;
  std::optional<double> m_count, m_actual;
  bool m_bCalculated = false;
};

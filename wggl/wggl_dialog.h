#pragma once
// CWgglbcDlg "无功功率补偿": the reactive compensation calculator.
#include <optional>
#include <string>

#include "ui/dialog.h"
#include "wggl/wggl_formulas.h"

namespace kestra::shell {
class ModuleContext;
}

namespace kestra::wggl {

class CWgglbcDlg : public ui::CAcUiDialog {
 public:
  // The parameter file and the description page are found under the module's data root.
  explicit CWgglbcDlg(const shell::ModuleContext& module);

  bool OnInitDialog() override;
  void DoDataExchange(ui::DataExchange& dx) override;
  void OnOK() override;

  // "计算": Qc and, with the check box set, the capacitor count. Sets the calculated flag
  // unless a power factor has no finite tangent.
  void OnCalc();
  bool calculated() const { return m_bCalculated; }
  // The numbers as they stand (what "确定" would store).
  const WgglInputs& numbers() const { return m_num; }
  // The last calculation and the last capacitor count since the dialog opened: what the
  // report shows.
  const WgglResults& last_results() const { return m_results; }
  const std::optional<CapacitorBank>& last_bank() const { return m_bank; }

 private:
  void OnReport();
  void OnExplain();
  void OnRadioDesign();
  void OnRadioInUse();
  void OnCountBox();
  void OnSpin(int edit_id, int delta);
  void EnableCountControls();
  void SetEditText(int id, std::string& member, const std::string& text);

  const shell::ModuleContext& module_;
  // Texts of the edits, apart from the numbers beside them.
  std::string m_strZrglys, m_strBchglys, m_strFhxs, m_strYgjsfh, m_strQc, m_strDrrl, m_strDrsl, m_strSjbcrl;
  int m_nRadio = -1;
  int m_nCheck = 0;
  WgglInputs m_num;
  WgglResults m_results;
  std::optional<CapacitorBank> m_bank;
  bool m_bCalculated = false;
};

}  // namespace kestra::wggl

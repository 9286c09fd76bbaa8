#pragma once
// The generator-capacity dialog "柴油发电机组容量计算": a tab control with one page per
// method, "计算" for the shown page, "计算书" for the report of all three (greyed until
// the first "计算"), "关闭". Nothing is kept between uses.
#include <cstdint>
#include <string>

#include "diesel/diesel_pages.h"
#include "diesel/zo_ui_dialog.h"
#include "services/report/report_blocks.h"

namespace kestra::shell {
class ModuleContext;
}

namespace kestra::diesel {

class ZoUiCyfdjzrlCalDlg : public ZoUiDialog {
 public:
  explicit ZoUiCyfdjzrlCalDlg(const shell::ModuleContext& module);
  bool OnInitDialog() override;

  // What the report states: each page's last calculation.
  DieselInputs Inputs() const;

  const ZoUiWdfhCalDlg& SteadyLoadPage() const { return m_wdfhDlg; }
  const ZoUiJffhCalDlg& PeakLoadPage() const { return m_jffhDlg; }
  const ZoUiMxyxyjCalDlg& BusDropPage() const { return m_mxyxyjDlg; }
  int CurrentPage() const { return m_nCurPage; }

 private:
  void OnSelchangeTab();
  void OnCalculate();
  void OnReport();
  ui::Dialog& Page(int index);

  const shell::ModuleContext& module_;
  ZoUiWdfhCalDlg m_wdfhDlg;
  ZoUiJffhCalDlg m_jffhDlg;
  ZoUiMxyxyjCalDlg m_mxyxyjDlg;
  ui::Control* m_tabCtrl = nullptr;  // found when the dialog is built
  std::int32_t m_nCurPage = 0;
};

}  // namespace kestra::diesel

#pragma once
// CDjqdCalDlg "电机起动计算": the motor-start calculator, a tab sheet of three pages (the
// voltage drop of a start by one of four methods, the reactor and the autotransformer ratio
// that meet a required bus voltage) sharing one set of working values, kept in the parameter
// file "Kestra\电机启动计算.idp" when the dialog closes with "确定".
#include <memory>
#include <string>

#include "djqd/djqd_page_requirement.h"
#include "djqd/djqd_page_start.h"
#include "djqd/djqd_params.h"
#include "forms/database_errors.h"
#include "ui/dialog.h"
#include "ui/property_sheet.h"

class CADODatabase;
class CInterDpData;

namespace kestra::shell {
class ModuleContext;
}

namespace kestra::djqd {

class CDjqdCalDlg : public ui::CAcUiDialog {
 public:
  // Reads the parameter file and opens the motor catalogue; usable() tells whether the
  // catalogue opened (the command shows the dialog only then).
  explicit CDjqdCalDlg(const shell::ModuleContext& module);
  ~CDjqdCalDlg() override;

  bool usable() const { return m_bDbOpen; }
  bool OnInitDialog() override;
  void OnOK() override;

  // "计算" on the active page; calculated() tells whether it ran to its end.
  void OnCalc();
  // "计算书": the calculation, then the report of the active page.
  void OnReport();
  bool calculated() const { return m_bCalculated; }

  // Shared with the pages and the dialogs they open.
  const shell::ModuleContext& module() const { return module_; }
  WorkingValues& values() { return m_w; }
  const WorkingValues& values() const { return m_w; }
  CInterDpData* idp() const { return m_pIdp.get(); }
  // The motor catalogue and its table "电机"; null when the table was not found.
  CADODatabase* motor_db() const;
  const std::string& motor_table() const { return m_strMotorTable; }
  int active_page() const { return m_sheet.GetActiveIndex(); }
  CDjqdPageBase& page(int index);
  CDjqdPageBase& ActivePage() { return page(active_page() < 0 ? 0 : active_page()); }
  CDjqdPage1dlg& start_page() { return m_page1; }
  CDjqdPage2dlg& reactor_page() { return m_page2; }
  CDjqdPage3dlg& ratio_page() { return m_page3; }

 private:
  void OpenMotorCatalogue();

  const shell::ModuleContext& module_;
  // Catalogue errors are shown to the designer for the dialog's life.
  forms::DatabaseErrorsShown db_errors_;
  ui::PropertySheet m_sheet;
  CDjqdPage1dlg m_page1;
  CDjqdPage2dlg m_page2;
  CDjqdPage3dlg m_page3;
  std::unique_ptr<CInterDpData> m_pIdp;
  std::string m_strIdpPath;
  std::string m_strDataRoot;
  std::string m_strMdbPath;
  std::unique_ptr<CADODatabase> m_pMotorDb;
  bool m_bDbOpen = true;
  bool m_bMotorTableOk = true;
  std::string m_strMotorTable;
  WorkingValues m_w;
  bool m_bCalculated = false;
};

}  // namespace kestra::djqd

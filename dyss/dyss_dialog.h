#pragma once
// CDyssCalDlg "电压损失计算": the voltage-loss calculator. A sheet of two pages (the voltage loss
// of a line, the permissible line length), "计算" and "计算书" for the active page, "确定" that
// stores the active page's inputs in "Kestra\电压损失计算.idp", "取消" that stores nothing.
// The dialog opens the line catalogue "datcom\DyssCal.Mdb" when it is constructed; when that
// fails (the catalogue service reports why) it is not shown.
#include <memory>
#include <string>

#include "dyss/dyss_length_page.h"
#include "dyss/dyss_loss_page.h"
#include "dyss/dyss_state.h"
#include "forms/database_errors.h"
#include "ui/dialog.h"
#include "ui/property_sheet.h"

class CADODatabase;
class CInterDpData;

namespace kestra::dyss {

class CDyssCalDlg : public ui::CAcUiDialog {
 public:
  explicit CDyssCalDlg(const shell::ModuleContext& module);
  ~CDyssCalDlg() override;

  // False when the catalogue could not be opened: the command then does not show the dialog.
  bool db_open() const { return m_bDbOpen != 0; }

  bool OnInitDialog() override;
  // Stores the active page's keys, writes the file, then the line-length page's harmonic
  // settings, and closes.
  void OnOK() override;
  void OnCancel() override;

  CDyssPage1& loss_page() { return m_page1; }
  CDyssPage2& length_page() { return m_page2; }
  int active_page() const { return m_sheet.GetActiveIndex(); }
  CADODatabase* line_catalogue() { return m_pLineDb.get(); }

 private:
  void OnCalculate();
  void OnReport();

  const shell::ModuleContext& module_;
  forms::DatabaseErrorsShown m_errors;
  std::string m_strIdpPath;
  std::string m_strMdbPath;
  int m_nCurPage = -1;
  int m_bDbOpen = 1;
  std::unique_ptr<CInterDpData> m_pIdp;
  std::unique_ptr<CADODatabase> m_pLineDb;
  DyssState m_state;
  ui::PropertySheet m_sheet;
  CDyssPage1 m_page1;
  CDyssPage2 m_page2;
};

}  // namespace kestra::dyss

#pragma once
// The dialogs a page opens after a calculation: the check of the starting torque
// "校验机械起动转矩", the starting time "计算电机起动时间", and the table of typical static
// resisting torques "电机静阻转矩相对值" they both pick from. The first two work on the
// calculator's working values and parameter tree, and read the active page's results.
#include <optional>
#include <string>

#include "forms/tab_disp.h"
#include "ui/dialog.h"

namespace kestra::djqd {

class CDjqdCalDlg;

class CTestzjDlg : public ui::CAcUiDialog {
 public:
  explicit CTestzjDlg(CDjqdCalDlg& dlg);
  bool OnInitDialog() override;
  void DoDataExchange(ui::DataExchange& dx) override;
  // Keeps MstM and Mj with the verdict shown.
  void OnOK() override;

 private:
  void OnCheck();

  CDjqdCalDlg& dlg_;
  double m_dMstM = 0, m_dMj = 0, m_dustM = 0;
};

class CCaltimeDlg : public ui::CAcUiDialog {
 public:
  explicit CCaltimeDlg(CDjqdCalDlg& dlg);
  bool OnInitDialog() override;
  void DoDataExchange(ui::DataExchange& dx) override;
  // Keeps J², Mstp and Mj with the time shown; has_result() tells the page whether there is a
  // time to check the starting apparatus with.
  void OnOK() override;

  // The last time computed: 0 before the first, nullopt when there was none (the motor's
  // torque only equals the resisting torque, or a power of 0).
  const std::optional<double>& time() const { return t_; }
  bool has_result() const { return has_result_; }

 private:
  void OnCalc();

  CDjqdCalDlg& dlg_;
  double m_dJ2 = 0, m_dMstp = 0, m_dMj = 0;
  std::string m_strTime;
  std::optional<double> t_ = 0.0;
  bool has_result_ = true;
};

class CZhjDlg : public ui::CAcUiDialog {
 public:
  // tabdata: the table file holding "DjJzZj".
  explicit CZhjDlg(std::string tabdata);
  bool OnInitDialog() override;
  void OnOK() override;
  void OnCancel() override;
  // The text of the picked cell after OK ("" when none was picked).
  const std::string& picked() const { return picked_; }

 private:
  std::string tabdata_;
  forms::CTabDisp table_;
  std::string picked_;
};

}  // namespace kestra::djqd

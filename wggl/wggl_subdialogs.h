#pragma once
// The dialogs "正在设计中的电气系统", "已使用一年的电气系统" and "说明" that the reactive
// compensation dialog opens.
#include <string>

#include "ui/dialog.h"

namespace kestra::wggl {

// Natural power factor of a system being designed, from the calculated loads.
class CWGGADDDLG : public ui::CAcUiDialog {
 public:
  // α', β, Pjs and Qjs of the main dialog, shown with "%g".
  CWGGADDDLG(double alpha_p, double beta_q, double p_js, double q_js);
  bool OnInitDialog() override;
  void DoDataExchange(ui::DataExchange& dx) override;
  void OnOK() override;

  // After "确认": the values read, each rounded to two decimals, and the power factor.
  double cos_phi1() const { return cos_phi1_; }
  double alpha_p() const { return alpha_p_; }
  double beta_q() const { return beta_q_; }
  double p_js() const { return p_js_; }
  double q_js() const { return q_js_; }

 private:
  void OnSpin(int edit_id, int delta);

  double alpha_p_, beta_q_, p_js_, q_js_;
  double cos_phi1_ = 0;
  std::string m_strYgfhxs, m_strWgfhxs, m_strYgjsfh, m_strWgjsfh;
};

// Natural power factor of a system in use for a year, from its energy consumption.
class CWGGSYYN : public ui::CAcUiDialog {
 public:
  CWGGSYYN(double w_m, double w_rm);
  bool OnInitDialog() override;
  void DoDataExchange(ui::DataExchange& dx) override;
  void OnOK() override;

  double cos_phi1() const { return cos_phi1_; }
  double w_m() const { return w_m_; }
  double w_rm() const { return w_rm_; }

 private:
  double w_m_, w_rm_;
  double cos_phi1_ = 0;
  std::string m_strYgdn, m_strWgdn;
};

// The description page of the calculator ("\Image\Wgglbc.RTF" under the data root).
class CWGGSMDLD : public ui::CAcUiDialog {
 public:
  CWGGSMDLD(ui::Dialog* parent, std::string page_path);
  bool OnInitDialog() override;
  // Reads the page again (the page is read whenever the dialog is shown or repainted).
  void ReloadPage();

 private:
  std::string page_path_;
  ui::Control* rtf_ = nullptr;
};

}  // namespace kestra::wggl

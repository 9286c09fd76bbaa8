#pragma once
// The first page "电机起动时的压降计算": the starting method, its input form in the frame with
// the method's slide beside it, and the voltage drop of the start.
#include <array>
#include <string>

#include "djqd/djqd_formulas.h"
#include "djqd/djqd_page.h"
#include "forms/form_frame.h"
#include "ui/dialog.h"
#include "ui/slide_library.h"

namespace kestra::djqd {

// One input form of the first page: the inputs of one starting method (ids kFormIds[method];
// a form has only the fields its method uses).
class CDjqdInputDlg : public ui::CAcUiDialog {
 public:
  CDjqdInputDlg(CDjqdCalDlg& dlg, int method);
  bool OnInitDialog() override;
  void DoDataExchange(ui::DataExchange& dx) override;

  // The working values into the fields and the controls, and the fields back.
  void Load(const WorkingValues& w);
  void Store(WorkingValues& w) const;
  FieldValue FieldOf(Field f) const;
  // The field's value into the working values once it passed its check.
  void TakeOver(Field f, WorkingValues& w) const;
  int method() const { return method_; }
  double transformer_capacity() const { return m_dSrT; }

 private:
  void OnPickTransformer();
  void OnPickReactor();
  void SetReal(int id, double& member, double value);

  CDjqdCalDlg& dlg_;
  int method_;
  const FormIds& ids_;
  double m_dSk = 0, m_dSrT = 0, m_dUT = 0, m_dXk = 0, m_dSfh = 0, m_dCosPhi = 0;
  std::string m_strKz, m_strUM;
};

// The four forms under their own names, in method order.
class CDjqdInput1Dlg : public CDjqdInputDlg {
 public:
  explicit CDjqdInput1Dlg(CDjqdCalDlg& dlg) : CDjqdInputDlg(dlg, 0) {}
};
class CDjqdInput2Dlg : public CDjqdInputDlg {
 public:
  explicit CDjqdInput2Dlg(CDjqdCalDlg& dlg) : CDjqdInputDlg(dlg, 1) {}
};
class CDjqdInput3Dlg : public CDjqdInputDlg {
 public:
  explicit CDjqdInput3Dlg(CDjqdCalDlg& dlg) : CDjqdInputDlg(dlg, 2) {}
};
class CDjqdInput4Dlg : public CDjqdInputDlg {
 public:
  explicit CDjqdInput4Dlg(CDjqdCalDlg& dlg) : CDjqdInputDlg(dlg, 3) {}
};

class CDjqdPage1dlg : public CDjqdPageBase {
 public:
  explicit CDjqdPage1dlg(CDjqdCalDlg& dlg);
  bool OnInitDialog() override;
  void DoDataExchange(ui::DataExchange& dx) override;

  bool Calculate() override;
  void WriteResultKeys(CInterDpData& tree) const override;

  StartMethod method() const { return static_cast<StartMethod>(shown_); }
  CDjqdInputDlg& form(int method);
  const CDjqdInputDlg& form(int method) const;
  bool SaveControls() override;
  // The last voltage-drop calculation of this page.
  const StartResults& last() const { return last_; }

 protected:
  void LoadInputs(const WorkingValues& w) override;
  void StoreInputs(WorkingValues& w) const override;
  FieldValue InputField(Field f) const override;
  void TakeOverInput(Field f, WorkingValues& w) const override;
  std::optional<Overload> OverloadAfter(double t) const override;
  bool ShowsMissingCheck() const override { return shown_ != 0; }

 private:
  void OnMethodChange();
  void ShowSlide(int method);
  void WriteFormResultKeys(CInterDpData& tree, int form, bool with_overload) const;

  CDjqdInput1Dlg m_input1;
  CDjqdInput2Dlg m_input2;
  CDjqdInput3Dlg m_input3;
  CDjqdInput4Dlg m_input4;
  forms::FormFrame frame_;
  int m_nMethod = 0;  // the method combo's selection
  int shown_ = 0;     // the method of the shown form
  ui::CSlideLibraryData slides_;
  bool slides_read_ = false;
  StartResults last_;
};

}  // namespace kestra::djqd

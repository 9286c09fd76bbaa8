#pragma once
// Page 0 of the voltage-loss dialog, CDyssPage1 "计算电压损失百分比": the line kind and the load
// situation choose one of five input forms in the page's frame; "计算" checks the shown form
// and computes the voltage loss Δu (%).
#include <string>

#include "dyss/dyss_form.h"
#include "dyss/dyss_report.h"
#include "forms/form_frame.h"
#include "ui/property_sheet.h"

namespace kestra::dyss {

// The five forms: line and one load by current I; line and six currents; line and one active
// load P; line and six active loads; section S and coefficient C with six active loads.
class CDyssPage1Input1 : public CDyssForm {
 public:
  CDyssPage1Input1(DyssState& state, std::function<void()> on_line_chosen);
};
class CDyssPage1Input2 : public CDyssForm {
 public:
  CDyssPage1Input2(DyssState& state, std::function<void()> on_line_chosen);
};
class CDyssPage1Input3 : public CDyssForm {
 public:
  CDyssPage1Input3(DyssState& state, std::function<void()> on_line_chosen);
};
class CDyssPage1Input4 : public CDyssForm {
 public:
  CDyssPage1Input4(DyssState& state, std::function<void()> on_line_chosen);
};
class CDyssPage1Input5 : public CDyssForm {
 public:
  explicit CDyssPage1Input5(DyssState& state);
  // P2..P6 and l2..l6 (kinds 2 and 3 take the first load only).
  void EnableOtherLoads(bool enable);

 private:
  // "<": the C pick dialog; on "确定" a picked number becomes the coefficient.
  void OnPickCoefficient();
  DyssState& state_;
};

class CDyssPage1 : public ui::PropertyPage {
 public:
  explicit CDyssPage1(DyssState& state);

  bool OnInitDialog() override;
  void DoDataExchange(ui::DataExchange& dx) override;
  // Stores the line kind, the load situation and the chosen form in the tree; always allowed.
  bool OnKillActive() override;

  // "计算": the chosen form's checks, then Δu into the result edit. False when a check refused
  // the inputs (the result text is then empty; the edit keeps what it showed).
  bool Calculate();
  // "确定" on this page: the positions and the chosen form's keys, working values untouched.
  void StoreForOk();
  // What the report of the last calculation prints; call after Calculate returned true.
  LossReportData ReportData() const;

  // Form 0..4 (another index: form 0).
  CDyssForm& Form(int index) const;
  const std::string& result() const { return m_strResult; }
  int current_form() const { return m_nCurForm; }

 private:
  int Kind() const;
  int Item() const;
  // The form the kind and item choose (the shown one when they choose none).
  int ChosenForm() const;
  void FillLoadCases(int kind);
  void OnKindChange();
  void OnCaseChange();
  void ApplyEnableRule(int kind, int item);
  void StorePositions();
  void EmptyResult();

  DyssState& state_;
  CDyssPage1Input1 m_form0;
  CDyssPage1Input2 m_form1;
  CDyssPage1Input3 m_form2;
  CDyssPage1Input4 m_form3;
  CDyssPage1Input5 m_form4;
  std::array<CDyssForm*, 5> forms_;
  forms::FormFrame frame_;
  int m_nCurForm = -1;
  std::string m_strResult;
  LossInputs last_inputs_;
  LossResult last_result_;
};

}  // namespace kestra::dyss

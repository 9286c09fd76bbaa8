#pragma once
// Page 1 of the voltage-loss dialog, CDyssPage2 "计算线路长度": the longest line that keeps a
// required voltage loss for one terminal load, by current (form 0) or by active load (form 1),
// and for a three-phase balanced line the section current I′ under third harmonics with the
// rated-ampacity check and the length L′ for it.
#include <array>
#include <string>

#include "dyss/dyss_form.h"
#include "dyss/dyss_report.h"
#include "forms/form_frame.h"
#include "ui/property_sheet.h"

namespace kestra::dyss {

class CDyssPage2Input1 : public CDyssForm {
 public:
  CDyssPage2Input1(DyssState& state, std::function<void()> on_line_chosen);
};
class CDyssPage2Input2 : public CDyssForm {
 public:
  CDyssPage2Input2(DyssState& state, std::function<void()> on_line_chosen);
};

class CDyssPage2 : public ui::PropertyPage {
 public:
  explicit CDyssPage2(DyssState& state);

  bool OnInitDialog() override;
  void DoDataExchange(ui::DataExchange& dx) override;
  // Stores the kind, the situation and the shown form in the tree, and writes the harmonic
  // settings into the file at once; always allowed.
  bool OnKillActive() override;

  // "计算" (CalculateLength): the checks of the form, l into the result edit, and for kind 0
  // with the section selection on K, I′ and L′. False when a check or the rated ampacity
  // refused the inputs: nothing shown changes but K and I′. A refused check leaves result()
  // as its edit shows it; a refused rated ampacity leaves it the length just computed.
  bool Calculate();
  // "确定" on this page: its keys in the tree, the form's for "确定" only.
  void StoreForOk();
  // The harmonic settings into the file itself (read, set, written); nothing before the page
  // has been shown.
  void SaveHarmonicSettings();
  // What the report of the last calculation prints (its inputs as they stood, and result()).
  LengthReportData ReportData() const;

  CDyssForm& Form(int index) const;  // 0 or 1 (another index: form 0)
  const std::string& result() const { return m_strResult; }

 private:
  int Kind() const;
  int Situation() const;
  int ShownForm() const;
  void LoadHarmonicSettings();
  void EnableSectionControls(int kind);
  // K and I′ from the current-moment form's current for the harmonic list's position.
  void UpdateHarmonicCurrent();
  void SetHarmonicCurrent(double i);
  void OnCaseChange();
  void OnCurrentLeft();
  void OnSectionCurrentLeft();
  void OnRatedLeft();
  void StoreShownForm(StoreMode mode);
  void EmptyResult();

  DyssState& state_;
  CDyssPage2Input1 m_form0;
  CDyssPage2Input2 m_form1;
  std::array<CDyssForm*, 2> forms_;
  forms::FormFrame frame_;
  int m_nCurForm = 0;
  std::string m_strRequire, m_strResult;
  int m_bSection = 0;
  LengthInputs last_inputs_;
  LengthResult last_result_;
};

}  // namespace kestra::dyss

#pragma once
// The two pages that work back from a required relative bus voltage: the starting reactor
// "电抗器降压起动方式下电抗器计算" and the autotransformer ratio
// "降压起动方式下自耦变压器变压比计算". Both take the bus short-circuit capacity, the
// pre-connected load with its power factor, the bus voltage and the requirement.
#include <string>
#include <vector>

#include "djqd/djqd_formulas.h"
#include "djqd/djqd_page.h"

namespace kestra::djqd {

// The ids of a page's input and requirement groups.
struct RequirementIds {
  int skm, sfh, cos_phi, cos_spin, um, ustm_required;
};

class CDjqdRequirementPage : public CDjqdPageBase {
 public:
  CDjqdRequirementPage(CDjqdCalDlg& dlg, int index, int template_id, std::string tab_text, const RequirementIds& ids);
  bool OnInitDialog() override;
  void DoDataExchange(ui::DataExchange& dx) override;

 protected:
  void LoadInputs(const WorkingValues& w) override;
  void StoreInputs(WorkingValues& w) const override;
  FieldValue InputField(Field f) const override;
  void TakeOverInput(Field f, WorkingValues& w) const override;
  // The inputs of the calculation from the page's fields.
  RequirementInputs InputsOfFields() const;

  const RequirementIds& req_ids_;
  double m_dSkm = 0, m_dSfh = 0, m_dCosPhi = 0, m_dUstmReq = 0;
  std::string m_strUM;
};

// The reactor page: the reactance that meets the requirement, the catalogue reactance at or
// above it, the results with it, and the reactor model for it.
class CDjqdPage2dlg : public CDjqdRequirementPage {
 public:
  explicit CDjqdPage2dlg(CDjqdCalDlg& dlg);
  void DoDataExchange(ui::DataExchange& dx) override;

  bool Calculate() override;
  void WriteResultKeys(CInterDpData& tree) const override;
  void FillReportTexts(ReportTexts& texts) const override;
  const ReactorResults& last() const { return last_; }
  const std::string& reactor_model() const { return m_strReactorModel; }

 protected:
  std::optional<Overload> OverloadAfter(double t) const override;

 private:
  // The reactances of the starting-reactor catalogue; nullopt after a catalogue error.
  std::optional<std::vector<double>> CatalogueReactances();
  void OnChooseReactor();
  void OnUserReactor();

  std::string m_strXk, m_strXz, m_strReactorModel;
  ReactorResults last_;
};

// The autotransformer page: the ratio that meets the requirement, and the results with an
// actual ratio picked or typed.
class CDjqdPage3dlg : public CDjqdRequirementPage {
 public:
  explicit CDjqdPage3dlg(CDjqdCalDlg& dlg);
  void DoDataExchange(ui::DataExchange& dx) override;

  bool Calculate() override;
  void WriteResultKeys(CInterDpData& tree) const override;
  void FillReportTexts(ReportTexts& texts) const override;
  const RatioResults& last() const { return last_; }

 protected:
  std::optional<Overload> OverloadAfter(double t) const override;

 private:
  // A change of the actual ratio: picked from the list (typed false) or typed.
  void OnActualRatio(bool typed);

  std::string m_strKz, m_strKk;
  RatioResults last_;
};

}  // namespace kestra::djqd

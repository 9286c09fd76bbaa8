#pragma once
// What the three pages of the motor-start dialog have in common: the cable group, the motor
// group with its catalogue combos, the result group with the torque and starting-time buttons
// and the overload check of the starting apparatus. Each page shows the dialog's working
// values when it is activated and takes its inputs back into them when it is left.
#include <optional>
#include <string>

#include "djqd/djqd_checks.h"
#include "djqd/djqd_ids.h"
#include "djqd/djqd_params.h"
#include "forms/key_lists.h"
#include "ui/property_sheet.h"

class CInterDpData;

namespace kestra::djqd {

class CDjqdCalDlg;
struct ReportTexts;

// One step of a power-factor spin on a form or page whose member cos_phi holds the edit: the
// controls into the fields, the step (a value outside [0.01, 1] is said and starts from 0.01),
// the fields back into the controls.
void SpinPowerFactorEdit(ui::Dialog& dialog, double& cos_phi, int delta);

class CDjqdPageBase : public ui::PropertyPage {
 public:
  // index: 0 the voltage-drop page, 1 the reactor page, 2 the autotransformer page.
  CDjqdPageBase(CDjqdCalDlg& dlg, int index, int template_id, std::string tab_text);

  bool OnInitDialog() override;
  void DoDataExchange(ui::DataExchange& dx) override;
  bool OnSetActive() override;
  // Leaving never refuses: the inputs go back into the working values unchecked.
  bool OnKillActive() override;

  // "计算" on this page: the checks, then the calculation; true when it ran to its end.
  virtual bool Calculate() = 0;
  // The page's controls into its fields and its inputs into the working values.
  void TakeIntoValues();
  // The page's controls (and those of a form it shows) into its fields.
  virtual bool SaveControls() { return UpdateData(true); }
  // The page's result texts under its result keys.
  virtual void WriteResultKeys(CInterDpData& tree) const = 0;
  // What the report prints as the page shows it.
  virtual void FillReportTexts(ReportTexts& texts) const;

  int index() const { return index_; }
  const PageIds& ids() const { return kPageIds[index_]; }
  // The number in a result or motor edit as the page shows it.
  double ShownNumber(int id) const;

 protected:
  // The page's own inputs: from the working values into the fields, and back.
  virtual void LoadInputs(const WorkingValues& w) = 0;
  virtual void StoreInputs(WorkingValues& w) const = 0;
  // A field as the checks see it and the working value it goes to once it passed.
  virtual FieldValue InputField(Field f) const = 0;
  virtual void TakeOverInput(Field f, WorkingValues& w) const = 0;
  // The name and value of the overload check after a starting time t; nullopt leaves the
  // labels as they are.
  struct Overload {
    const char* name;
    std::optional<double> value;
  };
  virtual std::optional<Overload> OverloadAfter(double t) const = 0;
  // A page without a time shows "无校验结果!" (the first page not with full-voltage starting).
  virtual bool ShowsMissingCheck() const { return true; }

  // The end of every page's initialisation, after its own steps: the working values into the
  // fields and controls, then the motor combos.
  void FinishInit();
  void LoadCommon(const WorkingValues& w);
  void StoreCommon(WorkingValues& w) const;

  // Runs the checks in order, copying each value that passes into the working values; shows
  // the message of the first failure and returns false.
  bool RunChecks(std::span<const InputCheck> checks);
  // Runs them on the page's fields only, changing no working value.
  bool RunChecksOnFields(std::span<const InputCheck> checks);
  FieldValue FieldOf(Field f) const;
  void TakeOver(Field f, WorkingValues& w) const;
  Motor MotorOfFields() const;
  Cable CableOfFields() const;

  // Sets a text member and its control, leaving every other control as the designer left it.
  void ShowText(int id, std::string& member, const std::string& text);
  void ShowResults(double ustm, double ustm_motor, double istm);
  void ClearResults();
  void EnableResultButtons(bool enable);
  void HideOverload();

  CDjqdCalDlg& dlg_;
  int m_nCableType = 0;
  std::string m_strSection, m_strLength;
  int m_nSeries = 0, m_nModel = 0;
  double m_dPr = 0, m_dNr = 0, m_dIr = 0, m_dIq = 0, m_dUr = 0;
  std::string m_strUstm, m_strUstmMotor, m_strIstm;
  std::string m_strOverloadName, m_strOverloadValue;

 private:
  void InitMotorCombos();
  void FetchMotorData();
  void OnTorque();
  void OnTime();
  void ShowOverload(bool has_result, double t);

  int index_;
  forms::KeyLists motor_;
  bool table_def_opened_ = true;
  bool search_columns_found_ = true;
};

}  // namespace kestra::djqd

#include "djqd/djqd_page.h"

#include <algorithm>
#include <limits>

#include "djqd/djqd_dialog.h"
#include "djqd/djqd_messages.h"
#include "djqd/djqd_report.h"
#include "djqd/djqd_subdialogs.h"
#include "services/idp/inter_dp_data.h"
#include "services/text/number_text.h"
#include "shell/module_context.h"
#include "ui/data_exchange.h"

namespace kestra::djqd {
namespace {

using text::Format3f;
using text::WcsToD;

// The motor catalogue's data columns in the order of the page's motor edits.
const std::vector<std::string> kMotorColumns = {"功率kW", "转速r/min", "额定电流A", "起动电流A", "额定电压kV"};

// An edit held as a double shows its value the way the data exchange prints it.
std::string EditText(double v) { return text::FormatDouble("%.15g", v); }

}  // namespace

void SpinPowerFactorEdit(ui::Dialog& dialog, double& cos_phi, int delta) {
  if (!dialog.UpdateData(true)) return;
  const SpinResult r = SpinPowerFactor(cos_phi, delta);
  if (r.warned) dialog.MessageBox(kMsgSpinPowerFactor, kDialogTitle);
  cos_phi = r.cos_phi;
  dialog.UpdateData(false);
}

CDjqdPageBase::CDjqdPageBase(CDjqdCalDlg& dlg, int index, int template_id, std::string tab_text)
    : PropertyPage(template_id, std::move(tab_text)),
      dlg_(dlg),
      index_(index),
      motor_(*this, {text::ValueOrder::Catalogue, true, {}, {}}) {
  On(ids().torque, ui::Notify::Clicked, [this] { OnTorque(); });
  On(ids().time, ui::Notify::Clicked, [this] { OnTime(); });
}

bool CDjqdPageBase::OnInitDialog() {
  PropertyPage::OnInitDialog();
  return true;
}

void CDjqdPageBase::FinishInit() {
  const WorkingValues& w = dlg_.values();
  LoadCommon(w);
  LoadInputs(w);
  UpdateData(false);
  InitMotorCombos();
}

void CDjqdPageBase::DoDataExchange(ui::DataExchange& dx) {
  const PageIds& id = ids();
  dx.ComboIndex(id.cable_type, m_nCableType);
  dx.Text(id.section, m_strSection);
  // The length is a text: an empty one leaves the cable out.
  dx.Text(id.length, m_strLength);
  dx.ComboIndex(id.series, m_nSeries);
  dx.ComboIndex(id.model, m_nModel);
  dx.Real(id.power, m_dPr);
  dx.Real(id.speed, m_dNr);
  dx.Real(id.rated_current, m_dIr);
  dx.Real(id.starting_current, m_dIq);
  dx.Real(id.rated_voltage, m_dUr);
  dx.Text(id.ustm, m_strUstm);
  dx.Text(id.ustm_motor, m_strUstmMotor);
  dx.Text(id.istm, m_strIstm);
  dx.Text(id.overload_name, m_strOverloadName);
  dx.Text(id.overload_value, m_strOverloadValue);
}

void CDjqdPageBase::LoadCommon(const WorkingValues& w) {
  m_nCableType = w.m_nCableType;
  m_strSection = Format3f(w.m_dSection);
  m_strLength = EditText(w.m_dLength);
  m_nSeries = w.m_nSeries;
  m_nModel = w.m_nModel;
  m_dPr = w.m_dPr;
  m_dNr = w.m_dNr;
  m_dIr = w.m_dIr;
  m_dIq = w.m_dIq;
  m_dUr = w.m_dUr;
}

void CDjqdPageBase::StoreCommon(WorkingValues& w) const {
  w.m_nCableType = m_nCableType;
  w.m_dSection = WcsToD(m_strSection);
  w.m_dLength = WcsToD(m_strLength);
  w.m_nSeries = m_nSeries;
  w.m_nModel = m_nModel;
  w.m_dPr = m_dPr;
  w.m_dNr = m_dNr;
  w.m_dIr = m_dIr;
  w.m_dIq = m_dIq;
  w.m_dUr = m_dUr;
}

bool CDjqdPageBase::OnSetActive() {
  const WorkingValues& w = dlg_.values();
  LoadCommon(w);
  LoadInputs(w);
  UpdateData(false);
  motor_.RefreshSecond();
  return true;
}

bool CDjqdPageBase::OnKillActive() {
  if (CInterDpData* tree = dlg_.idp()) {
    TakeIntoValues();
    WriteResultKeys(*tree);
  }
  return true;
}

void CDjqdPageBase::TakeIntoValues() {
  SaveControls();
  WorkingValues& w = dlg_.values();
  StoreCommon(w);
  StoreInputs(w);
}

void CDjqdPageBase::FillReportTexts(ReportTexts& t) const {
  const PageIds& id = ids();
  t.cable_type = m_nCableType;
  t.series = GetDlgItemText(id.series);
  t.model = GetDlgItemText(id.model);
  t.speed = ShownNumber(id.speed);
  t.power = ShownNumber(id.power);
  t.ustm = GetDlgItemText(id.ustm);
  t.ustm_motor = GetDlgItemText(id.ustm_motor);
  t.istm = GetDlgItemText(id.istm);
  auto label = [this](int label_id) {
    const ui::Control* c = GetDlgItem(label_id);
    return c ? ShownLabel{c->IsWindowVisible(), c->GetWindowText()} : ShownLabel{};
  };
  t.overload_title = label(id.overload_title);
  t.overload_name = label(id.overload_name);
  t.overload_value = label(id.overload_value);
}

double CDjqdPageBase::ShownNumber(int id) const { return WcsToD(GetDlgItemText(id)); }

// ---- Checks ----

FieldValue CDjqdPageBase::FieldOf(Field f) const {
  switch (f) {
    case Field::CableType: return {m_nCableType, {}, 0};
    case Field::Section: return {-1, m_strSection, WcsToD(m_strSection)};
    case Field::Length: return {-1, m_strLength, WcsToD(m_strLength)};
    case Field::Power: return {-1, {}, m_dPr};
    case Field::Speed: return {-1, {}, m_dNr};
    case Field::RatedCurrent: return {-1, {}, m_dIr};
    case Field::StartingCurrent: return {-1, {}, m_dIq};
    case Field::RatedVoltage: return {-1, {}, m_dUr};
    default: return InputField(f);
  }
}

void CDjqdPageBase::TakeOver(Field f, WorkingValues& w) const {
  switch (f) {
    case Field::CableType: w.m_nCableType = m_nCableType; break;
    case Field::Section: w.m_dSection = WcsToD(m_strSection); break;
    case Field::Length: w.m_dLength = WcsToD(m_strLength); break;
    case Field::Power: w.m_dPr = m_dPr; break;
    case Field::Speed: w.m_dNr = m_dNr; break;
    case Field::RatedCurrent: w.m_dIr = m_dIr; break;
    case Field::StartingCurrent: w.m_dIq = m_dIq; break;
    case Field::RatedVoltage: w.m_dUr = m_dUr; break;
    default: TakeOverInput(f, w); break;
  }
}

bool CDjqdPageBase::RunChecks(std::span<const InputCheck> checks) {
  WorkingValues& w = dlg_.values();
  const char* failure =
      FirstFailure(checks, [this](Field f) { return FieldOf(f); }, [&](Field f) { TakeOver(f, w); });
  if (!failure) return true;
  MessageBox(failure);
  return false;
}

bool CDjqdPageBase::RunChecksOnFields(std::span<const InputCheck> checks) {
  const char* failure = FirstFailure(checks, [this](Field f) { return FieldOf(f); });
  if (!failure) return true;
  MessageBox(failure);
  return false;
}

Motor CDjqdPageBase::MotorOfFields() const { return {m_dPr, m_dNr, m_dIr, m_dIq, m_dUr}; }

Cable CDjqdPageBase::CableOfFields() const { return {m_nCableType, WcsToD(m_strSection), WcsToD(m_strLength)}; }

// ---- Showing results ----

void CDjqdPageBase::ShowText(int id, std::string& member, const std::string& text) {
  member = text;
  SetDlgItemText(id, text);
}

void CDjqdPageBase::ShowResults(double ustm, double ustm_motor, double istm) {
  ShowText(ids().ustm, m_strUstm, Format3f(ustm));
  ShowText(ids().ustm_motor, m_strUstmMotor, Format3f(ustm_motor));
  ShowText(ids().istm, m_strIstm, Format3f(istm));
}

void CDjqdPageBase::ClearResults() {
  ShowText(ids().ustm, m_strUstm, "");
  ShowText(ids().ustm_motor, m_strUstmMotor, "");
  ShowText(ids().istm, m_strIstm, "");
}

void CDjqdPageBase::EnableResultButtons(bool enable) {
  for (int id : {ids().torque, ids().time})
    if (ui::Control* c = GetDlgItem(id)) c->EnableWindow(enable);
}

void CDjqdPageBase::HideOverload() {
  for (int id : {ids().overload_title, ids().overload_name, ids().overload_value})
    if (ui::Control* c = GetDlgItem(id)) c->ShowWindow(false);
}

// ---- Motor catalogue ----

void CDjqdPageBase::InitMotorCombos() {
  CADODatabase* db = dlg_.motor_db();
  if (!db) return;
  motor_.SetTable(db, dlg_.motor_table());
  if (!motor_.Scan()) {
    table_def_opened_ = false;
    return;
  }
  const std::vector<std::string>& keys = motor_.columns().keys;
  auto has = [&keys](const char* name) { return std::find(keys.begin(), keys.end(), name) != keys.end(); };
  if (!has("系列名称") || !has("型号")) {
    MessageBox(kMsgNoMotorSearchColumns);
    search_columns_found_ = false;
    return;
  }
  ui::Control* series = GetDlgItem(ids().series);
  motor_.Bind({{series, "系列名称"}, {GetDlgItem(ids().model), "型号"}});
  motor_.Wire([this] { FetchMotorData(); });
  if (!motor_.Fill(0)) return;
  series->SetCurSel(0);
  if (!motor_.RefreshSecond()) return;
  // The stored selections, then the models of the selected series.
  UpdateData(false);
  motor_.RefreshSecond();
}

void CDjqdPageBase::FetchMotorData() {
  // A column whose query finds no row (a series or model typed by hand) keeps what the
  // designer typed.
  const std::string kept = "\x01";
  std::vector<std::string> texts(kMotorColumns.size(), kept);
  if (!motor_.FetchValues(kMotorColumns, texts)) return;
  const PageIds& id = ids();
  double* members[] = {&m_dPr, &m_dNr, &m_dIr, &m_dIq, &m_dUr};
  const int edits[] = {id.power, id.speed, id.rated_current, id.starting_current, id.rated_voltage};
  for (std::size_t k = 0; k < texts.size(); ++k) {
    if (texts[k] == kept) continue;
    *members[k] = WcsToD(texts[k]);
    SetDlgItemText(edits[k], EditText(*members[k]));
  }
}

// ---- Torque, starting time and the overload check ----

void CDjqdPageBase::OnTorque() {
  shell::ModuleScope scope(dlg_.module());
  CTestzjDlg check(dlg_);
  check.DoModal();
}

void CDjqdPageBase::OnTime() {
  bool has_result = false;
  double t = 0;
  {
    shell::ModuleScope scope(dlg_.module());
    CCaltimeDlg time(dlg_);
    if (time.DoModal() != ui::IDOK) return;
    has_result = time.has_result();
    t = time.time().value_or(0);
  }
  ShowOverload(has_result, t);
}

void CDjqdPageBase::ShowOverload(bool has_result, double t) {
  const PageIds& id = ids();
  ui::Control* title = GetDlgItem(id.overload_title);
  ui::Control* name = GetDlgItem(id.overload_name);
  ui::Control* value = GetDlgItem(id.overload_value);
  if (!title || !name || !value) return;
  if (!has_result) {
    if (!ShowsMissingCheck()) return;
    title->SetWindowText(kNoCheckResult);
    title->ShowWindow(true);
    ShowText(id.overload_name, m_strOverloadName, "");
    ShowText(id.overload_value, m_strOverloadValue, "");
    return;
  }
  const std::optional<Overload> overload = OverloadAfter(t);
  if (!overload) return;
  title->SetWindowText(kOverloadTitle);
  ShowText(id.overload_name, m_strOverloadName, overload->name);
  // A value that is no finite number (a capacity of 0 typed after the calculation) says so.
  ShowText(id.overload_value, m_strOverloadValue,
           Format3f(overload->value.value_or(std::numeric_limits<double>::infinity())));
  for (ui::Control* c : {title, name, value}) c->ShowWindow(true);
}

}  // namespace kestra::djqd

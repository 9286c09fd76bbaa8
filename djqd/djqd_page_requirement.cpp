#include "djqd/djqd_page_requirement.h"

#include <cmath>

#include "djqd/djqd_dialog.h"
#include "djqd/djqd_messages.h"
#include "djqd/djqd_query.h"
#include "djqd/djqd_reactor_queries.h"
#include "djqd/djqd_report.h"
#include "forms/catalogue_read.h"
#include "services/idp/idp_values.h"
#include "services/text/number_text.h"
#include "shell/module_context.h"
#include "ui/data_exchange.h"

namespace kestra::djqd {
namespace {

using text::Format3f;
using text::WcsToD;

constexpr RequirementIds kReactorPageIds{IDC_DJQD_P2_SKM, IDC_DJQD_P2_SFH, IDC_DJQD_P2_COS,
                                         IDC_DJQD_P2_COS_SPIN, IDC_DJQD_P2_UM, IDC_DJQD_P2_USTM_REQ};
constexpr RequirementIds kRatioPageIds{IDC_DJQD_P3_SKM, IDC_DJQD_P3_SFH, IDC_DJQD_P3_COS,
                                       IDC_DJQD_P3_COS_SPIN, IDC_DJQD_P3_UM, IDC_DJQD_P3_USTM_REQ};

RequirementInputs InputsOf(const WorkingValues& w) {
  return {w.m_dSk, w.m_dSfh, w.m_dCosPhi, w.m_dUM, w.m_dUstmReq, {w.m_nCableType, w.m_dSection, w.m_dLength},
          {w.m_dPr, w.m_dNr, w.m_dIr, w.m_dIq, w.m_dUr}};
}

void Enable(ui::Dialog& page, int id, bool enable) {
  if (ui::Control* c = page.GetDlgItem(id)) c->EnableWindow(enable);
}

}  // namespace

// ---- Shared by both pages ----

CDjqdRequirementPage::CDjqdRequirementPage(CDjqdCalDlg& dlg, int index, int template_id, std::string tab_text,
                                           const RequirementIds& ids)
    : CDjqdPageBase(dlg, index, template_id, std::move(tab_text)), req_ids_(ids) {
  OnArg(ids.cos_spin, ui::Notify::DeltaPos, [this](int delta) { SpinPowerFactorEdit(*this, m_dCosPhi, delta); });
}

bool CDjqdRequirementPage::OnInitDialog() {
  CDjqdPageBase::OnInitDialog();
  FinishInit();
  return true;
}

void CDjqdRequirementPage::DoDataExchange(ui::DataExchange& dx) {
  dx.Real(req_ids_.skm, m_dSkm);
  dx.Real(req_ids_.sfh, m_dSfh);
  dx.Real(req_ids_.cos_phi, m_dCosPhi);
  dx.Text(req_ids_.um, m_strUM);
  dx.Real(req_ids_.ustm_required, m_dUstmReq);
  CDjqdPageBase::DoDataExchange(dx);
}

void CDjqdRequirementPage::LoadInputs(const WorkingValues& w) {
  m_dSkm = w.m_dSk;
  m_dSfh = w.m_dSfh;
  m_dCosPhi = w.m_dCosPhi;
  m_strUM = Format3f(w.m_dUM);
  m_dUstmReq = w.m_dUstmReq;
}

void CDjqdRequirementPage::StoreInputs(WorkingValues& w) const {
  w.m_dSk = m_dSkm;
  w.m_dSfh = m_dSfh;
  w.m_dCosPhi = m_dCosPhi;
  w.m_dUM = WcsToD(m_strUM);
  w.m_dUstmReq = m_dUstmReq;
}

FieldValue CDjqdRequirementPage::InputField(Field f) const {
  switch (f) {
    case Field::ShortCircuit: return {-1, {}, m_dSkm};
    case Field::Load: return {-1, {}, m_dSfh};
    case Field::PowerFactor: return {-1, {}, m_dCosPhi};
    case Field::BusVoltage: return {-1, m_strUM, WcsToD(m_strUM)};
    case Field::RequiredUstm: return {-1, {}, m_dUstmReq};
    default: return {};
  }
}

void CDjqdRequirementPage::TakeOverInput(Field f, WorkingValues& w) const {
  switch (f) {
    case Field::ShortCircuit: w.m_dSk = m_dSkm; break;
    case Field::Load: w.m_dSfh = m_dSfh; break;
    case Field::PowerFactor: w.m_dCosPhi = m_dCosPhi; break;
    case Field::BusVoltage: w.m_dUM = WcsToD(m_strUM); break;
    case Field::RequiredUstm: w.m_dUstmReq = m_dUstmReq; break;
    default: break;
  }
}

RequirementInputs CDjqdRequirementPage::InputsOfFields() const {
  return {m_dSkm, m_dSfh, m_dCosPhi, WcsToD(m_strUM), m_dUstmReq, CableOfFields(), MotorOfFields()};
}


// ---- The reactor page ----

CDjqdPage2dlg::CDjqdPage2dlg(CDjqdCalDlg& dlg)
    : CDjqdRequirementPage(dlg, 1, IDD_DJQD_PAGE2, "电抗器降压起动方式下电抗器计算", kReactorPageIds) {
  On(IDC_DJQD_P2_CHOOSE_REACTOR, ui::Notify::Clicked, [this] { OnChooseReactor(); });
  On(IDC_DJQD_P2_USER_REACTOR, ui::Notify::Clicked, [this] { OnUserReactor(); });
}

void CDjqdPage2dlg::DoDataExchange(ui::DataExchange& dx) {
  CDjqdRequirementPage::DoDataExchange(dx);
  dx.Text(IDC_DJQD_P2_XK, m_strXk);
  dx.Text(IDC_DJQD_P2_XZ, m_strXz);
  dx.Text(IDC_DJQD_P2_REACTOR_MODEL, m_strReactorModel);
}

std::optional<std::vector<double>> CDjqdPage2dlg::CatalogueReactances() {
  forms::Catalogue db(dlg_.module().DataFile(kReactorCatalogue));
  if (!db.ok()) return std::nullopt;
  const auto texts = db.ReadColumn(ReactancesQuery());
  if (!texts) return std::nullopt;
  std::vector<double> values;
  for (const std::string& t : *texts) values.push_back(WcsToD(t));
  return values;
}

bool CDjqdPage2dlg::Calculate() {
  if (!SaveControls()) return false;
  if (!RunChecks(RequirementChecks())) return false;
  WorkingValues& w = dlg_.values();
  // A catalogue that cannot be read (reported) chooses no reactance, like one without a fit.
  last_ = ReactorForRequirement(InputsOf(w), CatalogueReactances().value_or(std::vector<double>{}));
  if (last_.status == Status::PowerFactorAboveOne) return false;
  w.m_dSstm = last_.basics.sstm;
  w.m_dSst = last_.sst_required;
  w.m_dXkCalc = last_.xk;
  ShowText(IDC_DJQD_P2_XK, m_strXk, Format3f(last_.xk));
  if (last_.status != Status::Ok) return false;  // no catalogue reactance at or above Xk
  w.m_dXz = last_.xz;
  w.m_dSst = last_.sst;
  w.m_dUstm = last_.ustm;
  w.m_dustM = last_.ustm_motor;
  w.m_dIstm = last_.istm;
  ShowText(IDC_DJQD_P2_XZ, m_strXz, Format3f(last_.xz));
  ShowResults(last_.ustm, last_.ustm_motor, last_.istm);
  UpdateData(false);
  EnableResultButtons(true);
  Enable(*this, IDC_DJQD_P2_CHOOSE_REACTOR, true);
  return true;
}

void CDjqdPage2dlg::OnChooseReactor() {
  UpdateData(true);
  if (m_strXz.empty() || std::fabs(WcsToD(m_strXz)) < 1e-8) {
    MessageBox(kMsgZeroReactance);
    return;
  }
  // The catalogue holds the reactance without the zeros the result field prints.
  const std::string reactance = TrimTrailingZeros(m_strXz);
  if (reactance.empty()) {
    MessageBox(kMsgZeroReactance);
    return;
  }
  const double istm = WcsToD(m_strIstm);
  forms::Catalogue db(dlg_.module().DataFile(kReactorCatalogue));
  if (!db.ok()) return;
  const auto currents = db.ReadColumn(ReactorCurrentsQuery(reactance));
  if (!currents) return;
  std::vector<double> values;
  for (const std::string& t : *currents) values.push_back(WcsToD(t));
  const int chosen = ChooseStartingCurrent(values, istm);
  if (chosen < 0) {
    MessageBox(kMsgNoReactorModel);
    ShowText(IDC_DJQD_P2_REACTOR_MODEL, m_strReactorModel, "");
    return;
  }
  const auto models = db.ReadColumn(ReactorModelQuery((*currents)[static_cast<std::size_t>(chosen)], reactance));
  if (!models) return;
  ShowText(IDC_DJQD_P2_REACTOR_MODEL, m_strReactorModel, models->empty() ? std::string() : models->back());
}

void CDjqdPage2dlg::OnUserReactor() {
  std::string model;
  {
    shell::ModuleScope scope(dlg_.module());
    CDjqdQueryDlg pick(dlg_.module(), QueryMode::Reactor, kNoteReactors);
    if (pick.DoModal() != ui::IDOK) return;
    model = pick.model();
  }
  ShowText(IDC_DJQD_P2_REACTOR_MODEL, m_strReactorModel, model);
}

void CDjqdPage2dlg::WriteResultKeys(CInterDpData& tree) const {
  const std::string* texts[5] = {&m_strXk, &m_strXz, &m_strUstm, &m_strUstmMotor, &m_strIstm};
  for (int k = 0; k < 5; ++k) idp::SetValue(tree, FullKey(kReactorResultKeys[k]), *texts[k]);
  idp::SetValue(tree, FullKey(kKeyReactorModel), m_strReactorModel);
}

void CDjqdPage2dlg::FillReportTexts(ReportTexts& t) const {
  CDjqdPageBase::FillReportTexts(t);
  t.xk = GetDlgItemText(IDC_DJQD_P2_XK);
  t.xz = GetDlgItemText(IDC_DJQD_P2_XZ);
  t.reactor_model = GetDlgItemText(IDC_DJQD_P2_REACTOR_MODEL);
}

std::optional<CDjqdPageBase::Overload> CDjqdPage2dlg::OverloadAfter(double t) const {
  return Overload{kOverloadReactor, OverloadReactor(ShownNumber(ids().istm), t)};
}

// ---- The autotransformer page ----

CDjqdPage3dlg::CDjqdPage3dlg(CDjqdCalDlg& dlg)
    : CDjqdRequirementPage(dlg, 2, IDD_DJQD_PAGE3, "降压起动方式下自耦变压器变压比计算", kRatioPageIds) {
  On(IDC_DJQD_P3_KK, ui::Notify::SelChange, [this] { OnActualRatio(false); });
  On(IDC_DJQD_P3_KK, ui::Notify::EditChange, [this] { OnActualRatio(true); });
}

void CDjqdPage3dlg::DoDataExchange(ui::DataExchange& dx) {
  CDjqdRequirementPage::DoDataExchange(dx);
  dx.Text(IDC_DJQD_P3_KZ, m_strKz);
  dx.Text(IDC_DJQD_P3_KK, m_strKk);
}

bool CDjqdPage3dlg::Calculate() {
  if (!SaveControls()) return false;
  if (!RunChecks(RequirementChecks())) return false;
  WorkingValues& w = dlg_.values();
  last_ = RatioForRequirement(InputsOf(w));
  if (last_.status == Status::PowerFactorAboveOne) return false;
  w.m_dSstm = last_.basics.sstm;
  w.m_dSst = last_.sst_required;
  if (last_.status == Status::Ok) {
    w.m_dKzCalc = last_.kz;
    ShowText(IDC_DJQD_P3_KZ, m_strKz, Format3f(last_.kz));
    Enable(*this, IDC_DJQD_P3_KK, true);
    UpdateData(false);
    EnableResultButtons(true);
    return true;
  }
  // No ratio meets the requirement with this cable; the calculation still counts as done.
  MessageBox(kMsgNoRatio);
  ShowText(IDC_DJQD_P3_KZ, m_strKz, "");
  ShowText(IDC_DJQD_P3_KK, m_strKk, "");
  Enable(*this, IDC_DJQD_P3_KK, false);
  ClearResults();
  UpdateData(false);
  return true;
}

void CDjqdPage3dlg::OnActualRatio(bool typed) {
  const ui::Control* combo = GetDlgItem(IDC_DJQD_P3_KK);
  if (!combo) return;
  // A pick is read from the list, a typed ratio as it stands in the combo.
  std::string kk = combo->GetWindowText();
  if (!typed) kk = combo->GetCurSel() >= 0 ? combo->GetLBText(combo->GetCurSel()) : std::string();
  if (!UpdateData(true)) return;
  const ActualRatio ratio = ReadActualRatio(kk, typed, WcsToD(m_strKz));
  switch (ratio.verdict) {
    case ActualRatioVerdict::Invalid: MessageBox(kMsgBadActualRatio); return;
    case ActualRatioVerdict::Silent: return;
    case ActualRatioVerdict::AboveCalculated:
      MessageBox(kMsgActualRatioAbove);
      ClearResults();
      return;
    case ActualRatioVerdict::Ok: break;
  }
  if (!RunChecksOnFields(RatioRecheckChecks())) return;
  const RatioRecheck r = RecheckActualRatio(InputsOfFields(), ratio.kk);
  if (r.status != Status::Ok) return;
  ShowResults(r.ustm, r.ustm_motor, r.istm);
}

void CDjqdPage3dlg::WriteResultKeys(CInterDpData& tree) const {
  const std::string* texts[5] = {&m_strKz, &m_strKk, &m_strUstm, &m_strUstmMotor, &m_strIstm};
  for (int k = 0; k < 5; ++k) idp::SetValue(tree, FullKey(kRatioResultKeys[k]), *texts[k]);
}

void CDjqdPage3dlg::FillReportTexts(ReportTexts& t) const {
  CDjqdPageBase::FillReportTexts(t);
  t.kz = GetDlgItemText(IDC_DJQD_P3_KZ);
  t.kk = GetDlgItemText(IDC_DJQD_P3_KK);
}

std::optional<CDjqdPageBase::Overload> CDjqdPage3dlg::OverloadAfter(double t) const {
  return Overload{kOverloadAutotransformer,
                  OverloadAutotransformer(ShownNumber(ids().ustm), dlg_.values().m_dSst, t)};
}

}  // namespace kestra::djqd

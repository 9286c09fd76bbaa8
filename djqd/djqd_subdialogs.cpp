#include "djqd/djqd_subdialogs.h"

#include "djqd/djqd_checks.h"
#include "djqd/djqd_dialog.h"
#include "djqd/djqd_formulas.h"
#include "djqd/djqd_ids.h"
#include "djqd/djqd_messages.h"
#include "services/idp/idp_values.h"
#include "services/text/number_text.h"
#include "shell/module_context.h"
#include "ui/data_exchange.h"
#include "ui/rtf_reader.h"

namespace kestra::djqd {
namespace {

using text::Format3f;

// The description page over the frame of the template.
void ShowPage(ui::Dialog& d, int frame_id, int page_id, const std::string& path) {
  const ui::Control* frame = d.GetDlgItem(frame_id);
  if (!frame) return;
  d.CreateControl(ui::Kind::RichText, page_id, "", frame->GetWindowRect()).SetRichDocument(ui::ReadRtfPage(path));
}

// The "<" of either dialog: Mj from a picked cell of the table of typical values.
void PickResistingTorque(ui::Dialog& d, const shell::ModuleContext& module, double& mj) {
  d.UpdateData(true);
  {
    shell::ModuleScope scope(module);
    CZhjDlg table(module.DataFile("datcom\\tabdata.idp"));
    if (table.DoModal() != ui::IDOK) return;
    if (const auto v = ResistingTorqueOfCell(table.picked())) mj = *v;
  }
  d.UpdateData(false);
}

// Runs the checks on the dialog's numbers; the message of the first failure is shown.
bool Passed(ui::Dialog& d, std::span<const InputCheck> checks, double mstm, double mj, double j2, double mstp) {
  const char* failure = FirstFailure(checks, [&](Field f) {
    switch (f) {
      case Field::Mstm: return FieldValue{-1, {}, mstm};
      case Field::Mj: return FieldValue{-1, {}, mj};
      case Field::J2: return FieldValue{-1, {}, j2};
      case Field::Mstp: return FieldValue{-1, {}, mstp};
      default: return FieldValue{};
    }
  });
  if (failure) d.MessageBox(failure);
  return !failure;
}

void Store(CDjqdCalDlg& dlg, const char* key, const std::string& text) {
  if (CInterDpData* tree = dlg.idp()) idp::SetValue(*tree, FullKey(key), text);
}

}  // namespace

// ---- Starting torque ----

CTestzjDlg::CTestzjDlg(CDjqdCalDlg& dlg) : CAcUiDialog(IDD_DJQD_TESTZJ), dlg_(dlg) {
  On(IDC_DJQD_TZ_CHECK, ui::Notify::Clicked, [this] { OnCheck(); });
  On(IDC_DJQD_TZ_MJ_PICK, ui::Notify::Clicked, [this] { PickResistingTorque(*this, dlg_.module(), m_dMj); });
}

bool CTestzjDlg::OnInitDialog() {
  CAcUiDialog::OnInitDialog();
  ShowPage(*this, IDC_DJQD_TZ_PAGE_FRAME, IDC_DJQD_TZ_PAGE, dlg_.module().DataFile("Image\\JxQdZj.Rtf"));
  CDjqdPageBase& page = dlg_.ActivePage();
  m_dustM = page.ShownNumber(page.ids().ustm_motor);
  m_dMstM = dlg_.values().m_dMstM;
  m_dMj = dlg_.values().m_dMj;
  UpdateData(false);
  return true;
}

void CTestzjDlg::DoDataExchange(ui::DataExchange& dx) {
  dx.Real(IDC_DJQD_TZ_MSTM, m_dMstM);
  dx.Real(IDC_DJQD_TZ_MJ, m_dMj);
  dx.Real(IDC_DJQD_TZ_USTM_MOTOR, m_dustM);
}

void CTestzjDlg::OnCheck() {
  if (!UpdateData(true)) return;
  if (!Passed(*this, TorqueChecks(), m_dMstM, m_dMj, 0, 0)) return;
  SetDlgItemText(IDC_DJQD_TZ_VERDICT, TorqueCheckPasses(m_dustM, m_dMj, m_dMstM) ? kTorquePasses : kTorqueFails);
}

void CTestzjDlg::OnOK() {
  if (!UpdateData(true)) return;
  dlg_.values().m_dMstM = m_dMstM;
  dlg_.values().m_dMj = m_dMj;
  Store(dlg_, kKeyMstm, Format3f(m_dMstM));
  Store(dlg_, kKeyMj, Format3f(m_dMj));
  Store(dlg_, kKeyTorqueVerdict, GetDlgItemText(IDC_DJQD_TZ_VERDICT));
  EndDialog(ui::IDOK);
}

// ---- Starting time ----

CCaltimeDlg::CCaltimeDlg(CDjqdCalDlg& dlg) : CAcUiDialog(IDD_DJQD_CALTIME), dlg_(dlg) {
  On(IDC_DJQD_CT_CALC, ui::Notify::Clicked, [this] { OnCalc(); });
  On(IDC_DJQD_CT_MJ_PICK, ui::Notify::Clicked, [this] { PickResistingTorque(*this, dlg_.module(), m_dMj); });
}

bool CCaltimeDlg::OnInitDialog() {
  CAcUiDialog::OnInitDialog();
  ShowPage(*this, IDC_DJQD_CT_PAGE_FRAME, IDC_DJQD_CT_PAGE, dlg_.module().DataFile("Image\\Djqdsj.Rtf"));
  m_dJ2 = dlg_.values().m_dJ2;
  m_dMstp = dlg_.values().m_dMstp;
  m_dMj = dlg_.values().m_dMj;
  UpdateData(false);
  return true;
}

void CCaltimeDlg::DoDataExchange(ui::DataExchange& dx) {
  dx.Real(IDC_DJQD_CT_J2, m_dJ2);
  dx.Real(IDC_DJQD_CT_MSTP, m_dMstp);
  dx.Real(IDC_DJQD_CT_MJ, m_dMj);
}

void CCaltimeDlg::OnCalc() {
  if (!UpdateData(true)) return;
  CDjqdPageBase& page = dlg_.ActivePage();
  const double nr = page.ShownNumber(page.ids().speed);
  const double prm = page.ShownNumber(page.ids().power);
  const double ustm_motor = page.ShownNumber(page.ids().ustm_motor);
  if (!Passed(*this, TimeChecks(), 0, m_dMj, m_dJ2, m_dMstp)) return;
  t_ = StartingTime(m_dJ2, nr, prm, ustm_motor, m_dMstp, m_dMj);
  // No finite time: the motor never gets up to speed; said as the overflow it is.
  m_strTime = t_ ? Format3f(*t_) : std::string(text::kOverflowText);
  SetDlgItemText(IDC_DJQD_CT_TIME, m_strTime);
}

void CCaltimeDlg::OnOK() {
  if (!UpdateData(true)) return;
  has_result_ = HasStartingTime(t_) && !m_strTime.empty();
  WorkingValues& w = dlg_.values();
  w.m_dMj = m_dMj;
  w.m_dJ2 = m_dJ2;
  w.m_dMstp = m_dMstp;
  Store(dlg_, kKeyJ2, Format3f(m_dJ2));
  Store(dlg_, kKeyMstp, Format3f(m_dMstp));
  Store(dlg_, kKeyMj, Format3f(m_dMj));
  Store(dlg_, kKeyStartingTime, m_strTime);
  EndDialog(ui::IDOK);
}

// ---- The table of resisting torques ----

CZhjDlg::CZhjDlg(std::string tabdata) : CAcUiDialog(IDD_DJQD_ZHJ), tabdata_(std::move(tabdata)) {}

bool CZhjDlg::OnInitDialog() {
  CAcUiDialog::OnInitDialog();
  const ui::Control* frame = GetDlgItem(IDC_DJQD_ZHJ_FRAME);
  if (!frame) return true;
  // A table file without the table is told in a message box and leaves nothing to pick.
  table_.Create(frame->GetWindowRect(), this, IDC_DJQD_ZHJ_TABLE);
  table_.Open(tabdata_, "DjJzZj");
  return true;
}

void CZhjDlg::OnOK() {
  picked_ = table_.GetPickedText();
  table_.Close();
  EndDialog(ui::IDOK);
}

void CZhjDlg::OnCancel() {
  table_.Close();
  EndDialog(ui::IDCANCEL);
}

}  // namespace kestra::djqd

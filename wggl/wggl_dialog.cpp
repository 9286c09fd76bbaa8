#include "wggl/wggl_dialog.h"

#include <cmath>

#include "services/report/report_blocks_writer.h"
#include "services/text/number_text.h"
#include "shell/module_state.h"
#include "ui/data_exchange.h"
#include "wggl/wggl_formulas.h"
#include "wggl/wggl_ids.h"
#include "wggl/wggl_messages.h"
#include "wggl/wggl_subdialogs.h"

using namespace kestra::wggl;
using kestra::text::FormatG;
using kestra::text::WcsToD;

namespace {

std::string ParamPath() { return kestra::shell::DataFile(kWgglParamFile); }

// The controls that belong to the capacitor count, enabled with the check box.
constexpr int kCountControls[] = {IDC_DRRL_LABEL, IDC_DRRL,         IDC_DRRL_UNIT,  IDC_DRSL_LABEL,
                                  IDC_DRSL,       IDC_SJBCRL_LABEL, IDC_SJBCRL,     IDC_SJBCRL_UNIT};

}  // namespace

CWgglbcDlg::CWgglbcDlg(void* parent_window) : CAcUiDialog(IDD_WGGLBC), parent_window_(parent_window) {
  On(IDC_CALC, ui::Notify::Clicked, [this] { OnCalc(); });
  On(IDC_REPORT, ui::Notify::Clicked, [this] { OnReport(); });
  On(IDC_EXPLAIN, ui::Notify::Clicked, [this] { OnExplain(); });
  On(IDC_RADIO_DESIGN, ui::Notify::Clicked, [this] { OnRadioDesign(); });
  On(IDC_RADIO_INUSE, ui::Notify::Clicked, [this] { OnRadioInUse(); });
  On(IDC_SFDRSL, ui::Notify::Clicked, [this] { OnCountBox(); });
  On(IDC_HELPBTN, ui::Notify::Clicked, [] {});
  OnArg(IDC_ZRGLYS_SPIN, ui::Notify::DeltaPos, [this](int d) { OnSpin(IDC_ZRGLYS, d); });
  OnArg(IDC_BCHGLYS_SPIN, ui::Notify::DeltaPos, [this](int d) { OnSpin(IDC_BCHGLYS, d); });
  OnArg(IDC_FHXS_SPIN, ui::Notify::DeltaPos, [this](int d) { OnSpin(IDC_FHXS, d); });
}

bool CWgglbcDlg::OnInitDialog() {
  CAcUiDialog::OnInitDialog();
  const WgglParamTexts stored = ReadWgglParams(ParamPath());
  m_num = NumbersOf(stored);
  m_strZrglys = stored.zrglys;
  m_strBchglys = stored.bchglys;
  m_strFhxs = stored.fhxs;
  m_strYgjsfh = stored.ygjsfh;
  m_strDrrl = stored.drrl;
  m_nRadio = m_num.system;
  m_nCheck = m_num.count_box;
  UpdateData(false);
  EnableCountControls();
  return true;
}

void CWgglbcDlg::DoDataExchange(ui::DataExchange& dx) {
  dx.Text(IDC_ZRGLYS, m_strZrglys);
  dx.Text(IDC_BCHGLYS, m_strBchglys);
  dx.Text(IDC_FHXS, m_strFhxs);
  dx.Text(IDC_YGJSFH, m_strYgjsfh);
  dx.Text(IDC_QC, m_strQc);
  dx.Text(IDC_DRRL, m_strDrrl);
  dx.Text(IDC_DRSL, m_strDrsl);
  dx.Text(IDC_SJBCRL, m_strSjbcrl);
  dx.Radio(IDC_RADIO_DESIGN, m_nRadio);
  dx.Check(IDC_SFDRSL, m_nCheck);
}

void CWgglbcDlg::OnCalc() {
  m_bCalculated = false;
  UpdateData(true);
  m_num.cos_phi1 = Round2(WcsToD(m_strZrglys));
  m_num.cos_phi2 = Round2(WcsToD(m_strBchglys));
  m_num.alpha = Round2(WcsToD(m_strFhxs));
  m_num.p_js = Round2(WcsToD(m_strYgjsfh));

  // A power factor of 0 or beyond ±1 has no finite tangent, so no Qc can be given for it;
  // the designer is told which value to correct and nothing is computed.
  if (!IsUsablePowerFactor(m_num.cos_phi1)) {
    MessageBox(kMsgBadNaturalFactor, kWarningCaption, ui::MB_OK);
    return;
  }
  if (!IsUsablePowerFactor(m_num.cos_phi2)) {
    MessageBox(kMsgBadTargetFactor, kWarningCaption, ui::MB_OK);
    return;
  }
  const CompensationRate rate = *RateOf(m_num.cos_phi1, m_num.cos_phi2);

  double qc = SignedCapacity(m_num.alpha, m_num.p_js, rate.qc);
  if (qc < 0) {
    MessageBox(kMsgNegativeCapacity, kWarningCaption, ui::MB_OK);
    qc = -qc;
  }
  m_dQc = Round2(qc);
  m_strQc = FormatG(m_dQc);
  UpdateData(false);
  RedrawWindow();

  if (m_nCheck) {
    m_num.rating = WcsToD(m_strDrrl);
    if (m_num.rating <= 0) {
      MessageBox(kMsgNoRating, kWarningCaption, ui::MB_OK);
    } else {
      // The count works from Qc as shown, not from the unrounded product.
      const double shown_qc = WcsToD(m_strQc);
      const double n = CapacitorCount(shown_qc, m_num.rating);
      m_count = n;
      m_actual = n * m_num.rating;
      m_strDrsl = FormatG(n);
      m_strSjbcrl = FormatG(*m_actual);
      UpdateData(false);
      RedrawWindow();
    }
  }
  m_bCalculated = true;
}

WgglReportValues CWgglbcDlg::ReportValues() const {
  WgglReportValues v;
  v.cos_phi1 = m_num.cos_phi1;
  v.cos_phi2 = m_num.cos_phi2;
  v.alpha = m_num.alpha;
  v.p_js = m_num.p_js;
  v.system = m_nRadio == 0 ? SystemKind::Designing : m_nRadio == 1 ? SystemKind::InUse : SystemKind::None;
  v.alpha_p = m_num.alpha_p;
  v.beta_q = m_num.beta_q;
  v.q_js = m_num.q_js;
  v.w_m = m_num.w_m;
  v.w_rm = m_num.w_rm;
  v.rating = m_num.rating;
  v.count = m_count;
  v.actual_capacity = m_actual;
  return v;
}

void CWgglbcDlg::OnReport() {
  OnCalc();
  if (!m_bCalculated) return;
  const kestra::report::Blocks blocks = BuildWgglReport(ReportValues());
  ui::UiHost* host = ui::CurrentHost();
  if (!host) return;
  kestra::report::ReportRunOptions options;
  options.title = kWgglReportTitle;
  ui::WaitCursor wait;
  kestra::report::WriteReport(*host, [this](const std::string& message) { MessageBox(message); }, blocks, options);
}

void CWgglbcDlg::OnExplain() {
  kestra::shell::ModuleResourceScope resources;
  CWGGSMDLD dlg(this);
  dlg.DoModal();
}

// Sets one edit and its text member, leaving every other control as the designer left it
// (the radio button just clicked stays selected whatever the sub-dialog's outcome).
void CWgglbcDlg::SetEditText(int id, std::string& member, const std::string& text) {
  member = text;
  SetDlgItemText(id, text);
}

void CWgglbcDlg::OnRadioDesign() {
  {
    kestra::shell::ModuleResourceScope resources;
    CWGGADDDLG sub(m_num.alpha_p, m_num.beta_q, m_num.p_js, m_num.q_js);
    if (sub.DoModal() != ui::IDOK) return;
    m_num.cos_phi1 = Round2(sub.cos_phi1());
    m_num.alpha_p = Round2(sub.alpha_p());
    m_num.beta_q = Round2(sub.beta_q());
    m_num.p_js = Round2(sub.p_js());
    m_num.q_js = Round2(sub.q_js());
  }
  SetEditText(IDC_ZRGLYS, m_strZrglys, FormatG(m_num.cos_phi1));
  SetEditText(IDC_YGJSFH, m_strYgjsfh, FormatG(m_num.p_js));
  RedrawWindow();
}

void CWgglbcDlg::OnRadioInUse() {
  {
    kestra::shell::ModuleResourceScope resources;
    CWGGSYYN sub(m_num.w_m, m_num.w_rm);
    if (sub.DoModal() != ui::IDOK) return;
    m_num.cos_phi1 = Round2(sub.cos_phi1());
    m_num.w_m = Round2(sub.w_m());
    m_num.w_rm = Round2(sub.w_rm());
  }
  SetEditText(IDC_ZRGLYS, m_strZrglys, FormatG(m_num.cos_phi1));
  RedrawWindow();
}

void CWgglbcDlg::OnCountBox() {
  m_nCheck = IsDlgButtonChecked(IDC_SFDRSL) ? 1 : 0;
  EnableCountControls();
}

void CWgglbcDlg::EnableCountControls() {
  const bool on = IsDlgButtonChecked(IDC_SFDRSL) != 0;
  for (int id : kCountControls)
    if (ui::Control* c = GetDlgItem(id)) c->EnableWindow(on);
}

void CWgglbcDlg::OnSpin(int edit_id, int delta) {
  UpdateData(true);
  std::string* text = nullptr;
  double* number = nullptr;
  SpinKind kind = SpinKind::PowerFactor;
  if (edit_id == IDC_ZRGLYS) {
    text = &m_strZrglys;
    number = &m_num.cos_phi1;
  } else if (edit_id == IDC_BCHGLYS) {
    text = &m_strBchglys;
    number = &m_num.cos_phi2;
  } else {
    text = &m_strFhxs;
    number = &m_num.alpha;
    kind = SpinKind::Coefficient;
  }
  *number = SpinStep(kind, WcsToD(*text), delta);
  *text = FormatG(*number);
  UpdateData(false);
  RedrawWindow();
}

void CWgglbcDlg::OnOK() {
  UpdateData(true);
  m_num.system = m_nRadio;
  m_num.count_box = m_nCheck;
  WriteWgglParams(ParamPath(), m_num);
  EndDialog(ui::IDOK);
}

#include "wggl/wggl_dialog.h"

#include "services/report/report_blocks_writer.h"
#include "services/text/number_text.h"
#include "shell/module_context.h"
#include "ui/data_exchange.h"
#include "wggl/wggl_ids.h"
#include "wggl/wggl_messages.h"
#include "wggl/wggl_params.h"
#include "wggl/wggl_report.h"
#include "wggl/wggl_subdialogs.h"

namespace kestra::wggl {
namespace {

using text::FormatG;
using text::WcsToD;

SystemKind SystemOf(int radio) {
  return radio == 0 ? SystemKind::Designing : radio == 1 ? SystemKind::InUse : SystemKind::None;
}

// The controls that belong to the capacitor count, enabled with the check box.
constexpr int kCountControls[] = {IDC_DRRL_LABEL, IDC_DRRL,         IDC_DRRL_UNIT,  IDC_DRSL_LABEL,
                                  IDC_DRSL,       IDC_SJBCRL_LABEL, IDC_SJBCRL,     IDC_SJBCRL_UNIT};

}  // namespace

CWgglbcDlg::CWgglbcDlg(const shell::ModuleContext& module) : CAcUiDialog(IDD_WGGLBC), module_(module) {
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
  const WgglParamTexts stored = ReadWgglParams(module_.DataFile(kWgglParamFile));
  m_num = InputsOf(stored);
  m_strZrglys = stored.zrglys;
  m_strBchglys = stored.bchglys;
  m_strFhxs = stored.fhxs;
  m_strYgjsfh = stored.ygjsfh;
  m_strDrrl = stored.drrl;
  m_nRadio = static_cast<int>(m_num.system);
  m_nCheck = m_num.count_capacitors ? 1 : 0;
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
  WgglInputs in = m_num;
  in.cos_phi1 = WcsToD(m_strZrglys);
  in.cos_phi2 = WcsToD(m_strBchglys);
  in.alpha = WcsToD(m_strFhxs);
  in.p_js = WcsToD(m_strYgjsfh);
  in.system = SystemOf(m_nRadio);
  in.count_capacitors = m_nCheck != 0;
  if (in.count_capacitors) in.rating = WcsToD(m_strDrrl);
  const WgglResults r = Calculate(in);
  m_num.cos_phi1 = r.used.cos_phi1;
  m_num.cos_phi2 = r.used.cos_phi2;
  m_num.alpha = r.used.alpha;
  m_num.p_js = r.used.p_js;

  // The designer is told which value to correct, and nothing is computed.
  if (r.refusal != Refusal::None) {
    MessageBox(r.refusal == Refusal::NaturalFactor ? kMsgBadNaturalFactor : kMsgBadTargetFactor, kWarningCaption,
               ui::MB_OK);
    return;
  }
  if (r.negative) MessageBox(kMsgNegativeCapacity, kWarningCaption, ui::MB_OK);
  m_strQc = FormatG(r.qc);
  UpdateData(false);
  RedrawWindow();

  if (in.count_capacitors) {
    m_num.rating = r.used.rating;
    if (r.rating_missing) {
      MessageBox(kMsgNoRating, kWarningCaption, ui::MB_OK);
    } else {
      m_bank = r.bank;
      m_strDrsl = FormatG(r.bank->count);
      m_strSjbcrl = FormatG(r.bank->capacity);
      UpdateData(false);
      RedrawWindow();
    }
  }
  m_results = r;
  m_bCalculated = true;
}

void CWgglbcDlg::OnReport() {
  OnCalc();
  if (!m_bCalculated) return;
  const report::Blocks blocks = BuildWgglReport(m_results, m_bank);
  ui::UiHost* host = module_.ui();
  if (!host) return;
  report::ReportRunOptions options;
  options.title = kWgglReportTitle;
  ui::WaitCursor wait;
  report::WriteReport(*host, [this](const std::string& message) { MessageBox(message); }, blocks, options);
}

void CWgglbcDlg::OnExplain() {
  shell::ModuleScope scope(module_);
  CWGGSMDLD dlg(this, module_.DataFile("\\Image\\Wgglbc.RTF"));
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
    shell::ModuleScope scope(module_);
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
    shell::ModuleScope scope(module_);
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
  m_num.system = SystemOf(m_nRadio);
  m_num.count_capacitors = m_nCheck != 0;
  WriteWgglParams(module_.DataFile(kWgglParamFile), m_num);
  EndDialog(ui::IDOK);
}

}  // namespace kestra::wggl

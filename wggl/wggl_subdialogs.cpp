#include "wggl/wggl_subdialogs.h"

#include "services/text/number_text.h"
#include "ui/data_exchange.h"
#include "ui/rtf_reader.h"
#include "wggl/wggl_formulas.h"
#include "wggl/wggl_ids.h"
#include "wggl/wggl_messages.h"

namespace kestra::wggl {

using text::FormatG;
using text::WcsToD;

CWGGADDDLG::CWGGADDDLG(double alpha_p, double beta_q, double p_js, double q_js)
    : CAcUiDialog(IDD_WGGADD), alpha_p_(alpha_p), beta_q_(beta_q), p_js_(p_js), q_js_(q_js) {
  OnArg(IDC_ADD_YGFHXS_SPIN, ui::Notify::DeltaPos, [this](int d) { OnSpin(IDC_ADD_YGFHXS, d); });
  OnArg(IDC_ADD_WGFHXS_SPIN, ui::Notify::DeltaPos, [this](int d) { OnSpin(IDC_ADD_WGFHXS, d); });
}

bool CWGGADDDLG::OnInitDialog() {
  CAcUiDialog::OnInitDialog();
  m_strYgfhxs = FormatG(alpha_p_);
  m_strWgfhxs = FormatG(beta_q_);
  m_strYgjsfh = FormatG(p_js_);
  m_strWgjsfh = FormatG(q_js_);
  UpdateData(false);
  return true;
}

void CWGGADDDLG::DoDataExchange(ui::DataExchange& dx) {
  dx.Text(IDC_ADD_YGFHXS, m_strYgfhxs);
  dx.Text(IDC_ADD_WGFHXS, m_strWgfhxs);
  dx.Text(IDC_ADD_YGJSFH, m_strYgjsfh);
  dx.Text(IDC_ADD_WGJSFH, m_strWgjsfh);
}

void CWGGADDDLG::OnSpin(int edit_id, int delta) {
  UpdateData(true);
  std::string& text = edit_id == IDC_ADD_YGFHXS ? m_strYgfhxs : m_strWgfhxs;
  text = FormatG(SpinStep(SpinKind::Coefficient, WcsToD(text), delta));
  UpdateData(false);
  RedrawWindow();
}

void CWGGADDDLG::OnOK() {
  UpdateData(true);
  const double alpha_p = Round2(WcsToD(m_strYgfhxs));
  const double beta_q = Round2(WcsToD(m_strWgfhxs));
  const double p_js = Round2(WcsToD(m_strYgjsfh));
  const double q_js = Round2(WcsToD(m_strWgjsfh));
  if (p_js == 0) {
    MessageBox(kMsgActiveLoadZero, kWarningCaption, ui::MB_OK);
    return;
  }
  const double c = NaturalFactorFromLoads(alpha_p, beta_q, p_js, q_js);
  // α' = 0 with β·Qjs = 0 gives no number at all; it is refused with the range message
  // like any other power factor that is not at least 0.1.
  if (!(c >= kMinNaturalFactor)) {
    MessageBox(kMsgNaturalFactorRange, kWarningCaption, ui::MB_OK);
    return;
  }
  alpha_p_ = alpha_p;
  beta_q_ = beta_q;
  p_js_ = p_js;
  q_js_ = q_js;
  cos_phi1_ = c;
  EndDialog(ui::IDOK);
}

CWGGSYYN::CWGGSYYN(double w_m, double w_rm) : CAcUiDialog(IDD_WGGSYYN), w_m_(w_m), w_rm_(w_rm) {}

bool CWGGSYYN::OnInitDialog() {
  CAcUiDialog::OnInitDialog();
  m_strYgdn = FormatG(w_m_);
  m_strWgdn = FormatG(w_rm_);
  UpdateData(false);
  return true;
}

void CWGGSYYN::DoDataExchange(ui::DataExchange& dx) {
  dx.Text(IDC_SYYN_YGDN, m_strYgdn);
  dx.Text(IDC_SYYN_WGDN, m_strWgdn);
}

void CWGGSYYN::OnOK() {
  UpdateData(true);
  const double w_m = Round2(WcsToD(m_strYgdn));
  const double w_rm = Round2(WcsToD(m_strWgdn));
  if (w_m == 0) {
    MessageBox(kMsgActiveEnergyZero, kWarningCaption, ui::MB_OK);
    return;
  }
  const double c = NaturalFactorFromEnergy(w_m, w_rm);
  if (!(c >= kMinNaturalFactor)) {
    MessageBox(kMsgNaturalFactorRange, kWarningCaption, ui::MB_OK);
    return;
  }
  w_m_ = w_m;
  w_rm_ = w_rm;
  cos_phi1_ = c;
  EndDialog(ui::IDOK);
}

CWGGSMDLD::CWGGSMDLD(ui::Dialog* parent, std::string page_path)
    : CAcUiDialog(IDD_WGGSMDLD, parent), page_path_(std::move(page_path)) {}

bool CWGGSMDLD::OnInitDialog() {
  CAcUiDialog::OnInitDialog();
  // The page takes the place of the framed area of the template.
  ui::Rect area = GetDlgItem(IDC_SM_FRAME)->GetWindowRect();
  rtf_ = &CreateControl(ui::Kind::RichText, IDC_SM_RTF, "", area);
  ReloadPage();
  return true;
}

void CWGGSMDLD::ReloadPage() {
  if (!rtf_) return;
  rtf_->SetRichDocument(ui::ReadRtfPage(page_path_));
  RedrawWindow();
}

}  // namespace kestra::wggl

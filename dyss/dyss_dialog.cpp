#include "dyss/dyss_dialog.h"

#include "dyss/dyss_ids.h"
#include "dyss/dyss_messages.h"
#include "dyss/dyss_params.h"
#include "dyss/dyss_report.h"
#include "services/idp/idp_values.h"
#include "services/idp/inter_dp_data.h"
#include "services/report/report_blocks_writer.h"
#include "services/tabledb/ado.h"
#include "services/text/number_text.h"
#include "shell/module_context.h"

namespace kestra::dyss {

CDyssCalDlg::CDyssCalDlg(const shell::ModuleContext& module)
    : CAcUiDialog(IDD_DYSSCAL),
      module_(module),
      m_strIdpPath(module.DataFile(kParamFile)),
      m_strMdbPath(module.DataFile(kLineCatalogue)),
      m_state(module),
      m_page1(m_state),
      m_page2(m_state) {
  m_state.idp_path = m_strIdpPath;
  On(IDC_DYSS_CALC, ui::Notify::Clicked, [this] { OnCalculate(); });
  On(IDC_DYSS_REPORT, ui::Notify::Clicked, [this] { OnReport(); });
  On(IDC_DYSS_HELP, ui::Notify::Clicked, [this] { MessageBox(kMsgHelp); });
  m_pLineDb = std::make_unique<CADODatabase>();
  try {
    m_pLineDb->Open(tabledb::ConnectionText(m_strMdbPath), "", "");
  } catch (const CADOException& e) {
    m_bDbOpen = 0;
    e.ReportError();
    return;
  }
  m_state.db = m_pLineDb.get();
  m_pIdp = std::make_unique<CInterDpData>();
  m_pIdp->ReadDataFromIdpFile(m_strIdpPath);
  m_state.idp = m_pIdp.get();
}

CDyssCalDlg::~CDyssCalDlg() {
  m_pIdp.reset();
  if (m_pLineDb && m_pLineDb->IsOpen()) m_pLineDb->Close();
}

bool CDyssCalDlg::OnInitDialog() {
  CAcUiDialog::OnInitDialog();
  const ParamKey& page_key = ActivePageKey();
  m_nCurPage = text::WToI(m_pIdp ? idp::ValueOr(*m_pIdp, page_key.name, page_key.default_text) : page_key.default_text);
  m_sheet.AddPage(&m_page1);
  m_sheet.AddPage(&m_page2);
  // The sheet lies over its frame, above the buttons.
  const ui::Control* frame = GetDlgItem(IDC_DYSS_SHEET_FRAME);
  m_sheet.Create(this, frame ? frame->GetWindowRect() : ui::Rect{}, m_nCurPage);
  return true;
}

void CDyssCalDlg::OnCalculate() {
  if (active_page() == 0) m_page1.Calculate();
  else if (active_page() == 1) m_page2.Calculate();
}

void CDyssCalDlg::OnReport() {
  report::Blocks blocks;
  report::ReportRunOptions options;
  // The calculation first, with its checks and messages; then a report whenever the page has a
  // result. A refused calculation empties the voltage-loss result but not the line length: a
  // length shown before (or computed before the rated ampacity refused it) is still reported.
  if (active_page() == 0) {
    m_page1.Calculate();
    if (m_page1.result().empty()) return;
    blocks = BuildLossReport(m_page1.ReportData());
    options.title = kLossReportTitle;
  } else if (active_page() == 1) {
    m_page2.Calculate();
    if (m_page2.result().empty()) return;
    blocks = BuildLengthReport(m_page2.ReportData());
    options.title = kLengthReportTitle;
  } else {
    return;
  }
  ui::UiHost* host = module_.ui();
  if (!host) return;
  ui::WaitCursor wait;
  report::WriteReport(*host, [this](const std::string& message) { MessageBox(message); }, blocks, options);
}

void CDyssCalDlg::OnOK() {
  const int page = active_page();
  if (m_pIdp) {
    idp::SetValue(*m_pIdp, ActivePageKey().name, text::FormatD(page));
    if (page == 0) m_page1.StoreForOk();
    else if (page == 1) m_page2.StoreForOk();
    m_pIdp->WriteDataToIdpFile(m_strIdpPath);
  }
  // After the tree: the harmonic keys end with the page's values, whichever page is active.
  m_page2.SaveHarmonicSettings();
  EndDialog(ui::IDOK);
}

void CDyssCalDlg::OnCancel() { EndDialog(ui::IDCANCEL); }

}  // namespace kestra::dyss

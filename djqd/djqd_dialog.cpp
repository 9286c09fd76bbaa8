#include "djqd/djqd_dialog.h"

#include <algorithm>

#include "djqd/djqd_ids.h"
#include "djqd/djqd_messages.h"
#include "djqd/djqd_report.h"
#include "forms/catalogue_read.h"
#include "services/idp/idp_values.h"
#include "services/idp/inter_dp_data.h"
#include "services/report/report_blocks_writer.h"
#include "services/tabledb/ado.h"
#include "shell/module_context.h"

namespace kestra::djqd {

CDjqdCalDlg::CDjqdCalDlg(const shell::ModuleContext& module)
    : CAcUiDialog(IDD_DJQD_CAL), module_(module), m_page1(*this), m_page2(*this), m_page3(*this) {
  m_strDataRoot = module.data_root();
  m_strIdpPath = module.DataFile(kParamFile);
  m_strMdbPath = module.DataFile("datcom\\Motor.Mdb");
  m_pIdp = std::make_unique<CInterDpData>();
  m_pIdp->ReadDataFromIdpFile(m_strIdpPath);
  OpenMotorCatalogue();
  On(IDC_DJQD_CALC, ui::Notify::Clicked, [this] { OnCalc(); });
  On(IDC_DJQD_REPORT, ui::Notify::Clicked, [this] { OnReport(); });
  On(IDC_DJQD_HELP, ui::Notify::Clicked, [this] { MessageBox(kMsgHelp); });
}

CDjqdCalDlg::~CDjqdCalDlg() {
  if (m_pMotorDb && m_pMotorDb->IsOpen()) m_pMotorDb->Close();
}

void CDjqdCalDlg::OpenMotorCatalogue() {
  m_pMotorDb = std::make_unique<CADODatabase>();
  try {
    m_pMotorDb->Open(tabledb::ConnectionText(m_strMdbPath), "", "");
  } catch (const CADOException& e) {
    e.ReportError();
    m_bDbOpen = false;
    return;
  }
  const auto tables = forms::UserTables(*m_pMotorDb);
  if (!tables) {
    m_bDbOpen = false;
    return;
  }
  if (std::find(tables->begin(), tables->end(), "电机") != tables->end()) m_strMotorTable = "电机";
  if (m_strMotorTable.empty()) {
    MessageBox(kMsgNoMotorTable);
    m_bMotorTableOk = false;
  }
}

CADODatabase* CDjqdCalDlg::motor_db() const {
  return m_bDbOpen && m_bMotorTableOk ? m_pMotorDb.get() : nullptr;
}

CDjqdPageBase& CDjqdCalDlg::page(int index) {
  switch (index) {
    case 1: return m_page2;
    case 2: return m_page3;
    default: return m_page1;
  }
}

bool CDjqdCalDlg::OnInitDialog() {
  CAcUiDialog::OnInitDialog();
  ReadParams(*m_pIdp, m_w);
  m_sheet.AddPage(&m_page1);
  m_sheet.AddPage(&m_page2);
  m_sheet.AddPage(&m_page3);
  // The sheet stands over the hidden frame, reaching 10 pixels beyond it on every side.
  ui::Rect at = GetClientRect();
  if (const ui::Control* frame = GetDlgItem(IDC_DJQD_SHEET_FRAME)) {
    const ui::Rect r = frame->GetWindowRect();
    at = ui::Rect{r.left - 10, r.top - 10, r.left - 10 + r.right + 10, r.top - 10 + r.bottom + 10};
  }
  m_sheet.Create(this, at, std::clamp(m_w.m_nCurPage, 0, 2));
  return true;
}

void CDjqdCalDlg::OnCalc() {
  m_bCalculated = false;
  m_w.m_nCurPage = active_page();
  m_bCalculated = ActivePage().Calculate();
}

void CDjqdCalDlg::OnReport() {
  OnCalc();
  if (!m_bCalculated) return;
  ReportData data;
  data.page = active_page();
  data.method = m_page1.method();
  data.start = m_page1.last();
  data.reactor = m_page2.last();
  data.ratio = m_page3.last();
  // The report's current of the first page is taken at the bus voltage for every method.
  if (data.page == 0) m_w.m_dIstm = data.start.istm_at_bus;
  data.values = m_w;
  ActivePage().FillReportTexts(data.texts);
  const report::Blocks blocks = BuildDjqdReport(data);
  ui::UiHost* host = module_.ui();
  if (!host) return;
  report::ReportRunOptions options;
  options.title = DjqdReportTitle(data.page, data.method);
  ui::WaitCursor wait;
  report::WriteReport(*host, [this](const std::string& message) { MessageBox(message); }, blocks, options);
}

void CDjqdCalDlg::OnOK() {
  if (m_pIdp) {
    m_w.m_nCurPage = active_page();
    CDjqdPageBase& active = ActivePage();
    active.TakeIntoValues();
    active.WriteResultKeys(*m_pIdp);
    WriteInputParams(*m_pIdp, m_w);
    idp::SetValue(*m_pIdp, FullKey(kKeyReactorModel), m_page2.reactor_model());
    m_pIdp->WriteDataToIdpFile(m_strIdpPath);
  }
  EndDialog(ui::IDOK);
}

}  // namespace kestra::djqd

#include "diesel/diesel_dialog.h"

#include "diesel/diesel_ids.h"
#include "diesel/diesel_report.h"
#include "services/report/report_blocks_writer.h"
#include "shell/module_context.h"
#include "ui/ui_host.h"

namespace kestra::diesel {

ZoUiCyfdjzrlCalDlg::ZoUiCyfdjzrlCalDlg(const shell::ModuleContext& module)
    : ZoUiDialog(ids::kMainDialog), module_(module), m_wdfhDlg(this), m_jffhDlg(this), m_mxyxyjDlg(this) {
  On(ids::kTab, ui::Notify::SelChange, [this] { OnSelchangeTab(); });
  On(ids::kCalculate, ui::Notify::Clicked, [this] { OnCalculate(); });
  On(ids::kReport, ui::Notify::Clicked, [this] { OnReport(); });
}

bool ZoUiCyfdjzrlCalDlg::OnInitDialog() {
  ZoUiDialog::OnInitDialog();
  m_tabCtrl = GetDlgItem(ids::kTab);
  if (m_tabCtrl) {
    m_tabCtrl->ResetContent();
    m_tabCtrl->AddString("按稳定负荷计算");
    m_tabCtrl->AddString("按尖峰负荷计算");
    m_tabCtrl->AddString("按发电机母线允许压降计算");
  }

  m_wdfhDlg.Create(this);
  m_jffhDlg.Create(this);
  m_mxyxyjDlg.Create(this);

  // The pages cover the tab control's client area below the tab strip. They lie in this
  // dialog, so the tab control's own position is added.
  if (m_tabCtrl) {
    const ui::Rect tab = m_tabCtrl->GetWindowRect();
    const ui::Rect page{tab.left + 2, tab.top + 22, tab.right - 2, tab.bottom - 2};
    for (int i = 0; i < 3; ++i) Page(i).MoveWindow(page);
  }

  m_nCurPage = 0;
  for (int i = 0; i < 3; ++i) Page(i).ShowWindow(i == 0);
  if (m_tabCtrl) m_tabCtrl->SetCurSel(0);
  if (ui::Control* report = GetDlgItem(ids::kReport)) report->EnableWindow(false);
  return true;
}

ui::Dialog& ZoUiCyfdjzrlCalDlg::Page(int index) {
  switch (index) {
    case 1: return m_jffhDlg;
    case 2: return m_mxyxyjDlg;
    default: return m_wdfhDlg;
  }
}

void ZoUiCyfdjzrlCalDlg::OnSelchangeTab() {
  if (!m_tabCtrl) return;
  m_nCurPage = m_tabCtrl->GetCurSel();
  for (int i = 0; i < 3; ++i) Page(i).ShowWindow(i == m_nCurPage);
}

void ZoUiCyfdjzrlCalDlg::OnCalculate() {
  switch (m_nCurPage) {
    case 0: m_wdfhDlg.DoCalculate(); break;
    case 1: m_jffhDlg.DoCalculate(); break;
    case 2: m_mxyxyjDlg.DoCalculate(); break;
    default: break;
  }
  if (ui::Control* report = GetDlgItem(ids::kReport)) report->EnableWindow(true);
}

DieselInputs ZoUiCyfdjzrlCalDlg::Inputs() const {
  return {m_wdfhDlg.Inputs(), m_jffhDlg.Inputs(), m_mxyxyjDlg.Inputs()};
}

void ZoUiCyfdjzrlCalDlg::OnReport() {
  ui::UiHost* host = module_.ui();
  if (!host) return;
  report::ReportRunOptions options;
  options.title = kReportTitle;
  options.open_failure_message = report::kDieselOpenFailureMessage;
  options.header_failure_message = report::kDieselHeaderErrorMessage;
  // No calculation here, and no wait cursor: the report shows what each page last calculated.
  const DieselInputs inputs = Inputs();
  report::WriteReport(
      *host, [this](const std::string& message) { MessageBox(message); },
      BuildDieselReport(inputs, Calculate(inputs), TodayText()), options);
}

}  // namespace kestra::diesel

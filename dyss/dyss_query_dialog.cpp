#include "dyss/dyss_query_dialog.h"

#include "dyss/dyss_ids.h"
#include "dyss/dyss_params.h"

namespace kestra::dyss {

CDyssQueryDlg::CDyssQueryDlg(std::string table_file)
    : CAcUiDialog(IDD_DYSS_QUERY), table_file_(std::move(table_file)) {}

bool CDyssQueryDlg::OnInitDialog() {
  CAcUiDialog::OnInitDialog();
  // The table lies over the (hidden) frame and answers to its id.
  if (const ui::Control* frame = GetDlgItem(IDC_DYSS_QUERY_FRAME)) {
    m_tab.Create(frame->GetWindowRect(), this, IDC_DYSS_QUERY_FRAME);
    m_tab.Open(table_file_, kCoefficientTable);
  }
  return true;
}

void CDyssQueryDlg::OnOK() {
  m_strPicked = m_tab.GetPickedText();
  m_tab.Close();
  EndDialog(ui::IDOK);
}

void CDyssQueryDlg::OnCancel() {
  m_tab.Close();
  EndDialog(ui::IDCANCEL);
}

}  // namespace kestra::dyss

#pragma once
// CDyssQueryDlg "线路电压损失的计算系数C值(cosφ=1)": the table "jsxsc" of the table file shown
// in a table display; "确定" gives the picked cell's text, "取消" nothing.
#include <string>

#include "forms/tab_disp.h"
#include "ui/dialog.h"

namespace kestra::dyss {

class CDyssQueryDlg : public ui::CAcUiDialog {
 public:
  // table_file: data root + "datcom\tabdata.idp".
  explicit CDyssQueryDlg(std::string table_file);

  bool OnInitDialog() override;
  void OnOK() override;
  void OnCancel() override;
  // The picked cell's text after "确定"; empty when nothing was picked.
  const std::string& picked() const { return m_strPicked; }

 private:
  std::string table_file_;
  forms::CTabDisp m_tab;
  std::string m_strPicked;
};

}  // namespace kestra::dyss

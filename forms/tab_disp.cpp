#include "forms/tab_disp.h"

#include "services/idp/idp_table.h"

namespace kestra::forms {

bool CTabDisp::Create(const ui::Rect& rect, ui::Dialog* parent, int id) {
  if (!parent) return false;
  control_ = &parent->CreateControl(ui::Kind::Table, id, "", rect);
  return true;
}

bool CTabDisp::Open(const std::string& file_path, const std::string& table_key) {
  if (!control_) return false;
  std::string error;
  const auto table = idp::ReadTable(file_path, table_key, &error);
  if (!table) {
    control_->ClearTable();
    control_->owner()->MessageBox(error, {}, ui::MB_OK | ui::MB_ICONERROR);
    return false;
  }
  control_->SetTable(ui::TableData{table->title, table->headers, table->rows, table->note});
  return true;
}

std::string CTabDisp::GetPickedText() const { return control_ ? control_->PickedText() : std::string(); }

void CTabDisp::Close() {
  if (control_) control_->ClearTable();
}

}  // namespace kestra::forms

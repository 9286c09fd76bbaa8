#include "djqd/djqd_query.h"

#include <algorithm>

#include "djqd/djqd_ids.h"
#include "djqd/djqd_messages.h"
#include "forms/catalogue_read.h"
#include "services/tabledb/ado.h"
#include "services/text/number_text.h"
#include "shell/module_context.h"

namespace kestra::djqd {
namespace {

// The search row: a label and an editable combo for each search column, combos 1200 + k.
forms::KeyListStyle SearchRowStyle() {
  forms::KeyListStyle style{text::ValueOrder::Catalogue, false, {}, {}};
  style.layout.first_id = IDC_DJQD_QUERY_SEARCH_COMBO_BASE;
  style.layout.max_lists = 99;
  style.layout.label_id = IDC_DJQD_QUERY_SEARCH_LABEL;
  style.layout.drop_list = false;
  return style;
}

int Position(const std::vector<std::string>& fields, const char* name) {
  const auto it = std::find(fields.begin(), fields.end(), name);
  return it == fields.end() ? -1 : static_cast<int>(it - fields.begin());
}

}  // namespace

CDjqdQueryDlg::CDjqdQueryDlg(const shell::ModuleContext& module, QueryMode mode, std::string note)
    : CAcUiDialog(IDD_DJQD_QUERY), module_(module), mode_(mode), note_(std::move(note)), search_(*this, SearchRowStyle()) {
  On(IDC_DJQD_QUERY_TABLE, ui::Notify::SelChange, [this] { OnTableChange(); });
  On(IDC_DJQD_QUERY_SEARCH, ui::Notify::Clicked, [this] { OnSearch(); });
  OnArg(IDC_DJQD_QUERY_LIST, ui::Notify::HeaderClick, [this](int column) { OnHeaderClick(column); });
}

CDjqdQueryDlg::~CDjqdQueryDlg() {
  if (db_ && db_->IsOpen()) db_->Close();
}

bool CDjqdQueryDlg::OnInitDialog() {
  CAcUiDialog::OnInitDialog();
  ui::WaitCursor wait;
  const bool transformers = mode_ == QueryMode::Transformer;
  SetDlgItemText(IDC_DJQD_QUERY_TABLE_LABEL, transformers ? kTransformerTableLabel : kReactorTableLabel);
  SetWindowText(transformers ? kTransformerCaption : kReactorCaption);
  SetDlgItemText(IDC_DJQD_QUERY_NOTE, note_);
  // The file is named under the data root with a leading backslash, as the callers know it.
  const std::string path = module_.DataFile(transformers ? "\\Datcom\\ByqZK.mdb" : "\\Datcom\\QdDkq.mdb");
  db_ = std::make_unique<CADODatabase>();
  try {
    db_->Open(tabledb::ConnectionText(path), "", "");
  } catch (const CADOException& e) {
    e.ReportError();
    return true;  // an empty dialog: nothing to pick
  }
  ui::Control* tables = GetDlgItem(IDC_DJQD_QUERY_TABLE);
  if (!tables) return true;
  if (const auto names = forms::UserTables(*db_))
    for (const std::string& name : *names) tables->AddString(name);
  if (tables->GetCount() > 0) tables->SetCurSel(0);
  OnTableChange();
  return true;
}

void CDjqdQueryDlg::OnTableChange() {
  ui::Control* tables = GetDlgItem(IDC_DJQD_QUERY_TABLE);
  ui::Control* list = GetDlgItem(IDC_DJQD_QUERY_LIST);
  ui::Control* search = GetDlgItem(IDC_DJQD_QUERY_SEARCH);
  if (!tables || !list || !search) return;
  const int sel = tables->GetCurSel();
  // The table shown already: nothing to search afresh until another one is chosen.
  if (sel == last_table_) {
    search->EnableWindow(false);
    return;
  }
  search->EnableWindow(true);
  last_table_ = sel;
  list->DeleteAllItems();
  while (list->DeleteColumn(0)) {
  }
  col_capacity_ = col_impedance_ = col_reactance_ = col_model_ = -1;
  if (sel < 0 || !db_ || !db_->IsOpen()) return;
  search_.SetTable(db_.get(), tables->GetLBText(sel));
  if (!search_.Scan()) return;
  const std::vector<std::string> fields = search_.columns().fields;
  if (fields.empty()) return;
  const int width = (list->GetWindowRect().Width() - 20) / static_cast<int>(fields.size());
  for (std::size_t i = 0; i < fields.size(); ++i)
    list->InsertColumn(static_cast<int>(i), fields[i], width, ui::Align::Center);
  col_capacity_ = Position(fields, "容量kVA");
  col_impedance_ = Position(fields, "短路电压%");
  if (mode_ == QueryMode::Reactor) {
    col_reactance_ = Position(fields, "每相额定电抗Ω");
    col_model_ = Position(fields, "型 号");
  }
  if (const ui::Control* row = GetDlgItem(IDC_DJQD_QUERY_SEARCH_ROW)) search_.Build(*row);
}

void CDjqdQueryDlg::OnSearch() {
  ui::Control* list = GetDlgItem(IDC_DJQD_QUERY_LIST);
  if (!list || !db_ || !db_->IsOpen() || search_.table().empty()) return;
  list->DeleteAllItems();
  const int columns = static_cast<int>(list->columns().size());
  const auto rows = forms::ReadRows(*db_, search_.SearchQuery(), 1, columns);
  if (!rows) return;
  for (const auto& row : *rows) {
    const int r = list->InsertItem(list->GetItemCount(), row.front());
    for (int c = 1; c < columns; ++c) list->SetItemText(r, c, row[static_cast<std::size_t>(c)]);
  }
}

void CDjqdQueryDlg::OnHeaderClick(int column) {
  ui::Control* list = GetDlgItem(IDC_DJQD_QUERY_LIST);
  if (!list) return;
  std::vector<std::string> texts;
  for (int r = 0; r < list->GetItemCount(); ++r) texts.push_back(list->GetItemText(r, column));
  list->SortRows(text::SortedPositions(texts, text::ValueOrder::Catalogue));
}

void CDjqdQueryDlg::OnOK() {
  const ui::Control* list = GetDlgItem(IDC_DJQD_QUERY_LIST);
  const int row = list ? list->GetCurSel() : -1;
  if (row < 0) {
    EndDialog(ui::IDCANCEL);
    return;
  }
  auto number = [&](int column) { return column < 0 ? 0 : text::WcsToD(list->GetItemText(row, column)); };
  srt_ = number(col_capacity_) / 1000;
  ut_ = number(col_impedance_) / 100;
  if (mode_ == QueryMode::Reactor) {
    xk_ = number(col_reactance_);
    model_ = col_model_ < 0 ? std::string() : list->GetItemText(row, col_model_);
  }
  if (db_ && db_->IsOpen()) db_->Close();
  EndDialog(ui::IDOK);
}

}  // namespace kestra::djqd

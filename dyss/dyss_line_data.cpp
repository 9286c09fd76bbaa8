#include "dyss/dyss_line_data.h"

#include "services/tabledb/ado.h"
#include "services/text/data_path.h"

namespace kestra::dyss {
namespace {

forms::KeyListStyle LineFormStyle(int first_index) {
  // Index values in the natural value order, the second list under the first list's text; the
  // row query names its table without brackets, writes "Like" and leaves out empty keys.
  forms::KeyListStyle style{text::ValueOrder::Natural, true, {false, "Like", true}, {}};
  style.layout.first_id = first_index;
  return style;
}

}  // namespace

std::string LineDataText(const std::array<std::string, 3>& v) {
  return "电阻(Ω/km):" + v[0] + "  " + "感抗(Ω/km):" + v[1] + "  " + "电压(kV):" + v[2];
}

LineData::LineData(ui::Dialog& form, const LineFormIds& ids, const DyssState& state)
    : form_(form), ids_(ids), state_(state), lists_(form, LineFormStyle(ids.first_index)) {
  lists_.Wire([this] { Show(); });
  // A new first index also refreshes the form's controls from its members.
  form_.On(ids_.first_index, ui::Notify::SelChange, [this] {
    if (!lists_.RefreshSecondKeepingText()) return;
    Show();
    form_.UpdateData(false);
  });
}

std::string LineData::LineName() const {
  const ui::Control* list = form_.GetDlgItem(ids_.line_name);
  return list ? list->GetWindowText() : std::string();
}

void LineData::FillLineNames() {
  CADODatabase* db = state_.db;
  ui::Control* list = form_.GetDlgItem(ids_.line_name);
  if (!db || !db->IsOpen() || !list) return;
  try {
    for (int i = 0; i < db->GetTableDefCount(); ++i) {
      CADOTableDefInfo info;
      db->GetTableDefInfo(i, info, 1);
      if (text::EqualsNoCase(info.m_strType, "TABLE")) list->AddString(info.m_strName);
    }
  } catch (const CADOException& e) {
    e.ReportError();
  }
}

bool LineData::Scan(int first, int second) {
  const ui::Control* anchor = form_.GetDlgItem(ids_.anchor);
  if (!anchor) return false;
  lists_.SetTable(state_.db, LineName());
  return lists_.Build(*anchor, first, second);
}

void LineData::Open(int& line_sel, const LinePositions& at) {
  if (ui::Control* list = form_.GetDlgItem(ids_.line_name)) list->SetCurSel(at.line_name);
  line_sel = at.line_name;
  if (!Scan(at.index[0], at.index[1])) return;
  for (std::size_t i = 0; i < lists_.size(); ++i) lists_.list(i)->SetCurSel(at.index[i]);
}

void LineData::Choose(int& line_sel, LinePositions& working) {
  const ui::Control* list = form_.GetDlgItem(ids_.line_name);
  line_sel = list ? list->GetCurSel() : -1;
  working.index = {0, 0, 0};
  if (!Scan(0, 0)) return;
  for (std::size_t i = 0; i < lists_.size(); ++i) lists_.list(i)->SetCurSel(0);
  Show();
}

void LineData::Show() {
  if (!state_.db || !state_.db->IsOpen()) return;
  form_.UpdateData(true);
  lists_.SetTable(state_.db, LineName());
  std::vector<std::string> texts(values_.begin(), values_.end());
  lists_.FetchValues(lists_.columns().values, texts);
  for (std::size_t k = 0; k < values_.size(); ++k) values_[k] = texts[k];
  form_.SetDlgItemText(ids_.line_data, LineDataText(values_));
}

std::optional<int> LineData::IndexPosition(int i) const {
  const ui::Control* list = lists_.list(static_cast<std::size_t>(i));
  if (!list) return std::nullopt;
  return list->GetCurSel();
}

std::string LineData::LabelText() const { return form_.GetDlgItemText(ids_.line_data); }

ShownLine LineData::Shown() const {
  ShownLine s{LineName(), {}, LabelText()};
  for (std::size_t i = 0; i < lists_.size(); ++i)
    s.indexes.emplace_back(lists_.label(i)->GetWindowText(), lists_.list(i)->GetWindowText());
  return s;
}

}  // namespace kestra::dyss

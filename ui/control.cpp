#include "ui/control.h"

#include <algorithm>

#include "ui/dialog.h"

namespace ui {

const char* KindName(Kind k) {
  switch (k) {
    case Kind::Static: return "static";
    case Kind::Edit: return "edit";
    case Kind::Button: return "button";
    case Kind::CheckBox: return "check box";
    case Kind::Radio: return "radio button";
    case Kind::Combo: return "combo box";
    case Kind::ListBox: return "list box";
    case Kind::ListView: return "list view";
    case Kind::UpDown: return "up-down";
    case Kind::GroupBox: return "group box";
    case Kind::Frame: return "frame";
    case Kind::Tab: return "tab control";
    case Kind::RichText: return "rich text";
    case Kind::Table: return "table display";
  }
  return "control";
}

Control::Control(Dialog* owner, Kind kind, int id) : owner_(owner), kind_(kind), id_(id) {
  if (kind == Kind::Combo) drop_list_ = true;
}

void Control::Changed() {
  if (owner_) owner_->NotifyControlChanged(*this);
}

void Control::SetWindowText(const std::string& text) {
  if (text_ == text) return;
  text_ = text;
  Changed();
}

void Control::EnableWindow(bool enable) {
  if (enabled_ == enable) return;
  enabled_ = enable;
  Changed();
}

void Control::ShowWindow(bool show) {
  if (visible_ == show) return;
  visible_ = show;
  Changed();
}

void Control::MoveWindow(const Rect& r) {
  if (rect_ == r) return;
  rect_ = r;
  Changed();
}

void Control::SetReadOnly(bool ro) {
  if (read_only_ == ro) return;
  read_only_ = ro;
  Changed();
}

void Control::SetFont(const Font& f) {
  font_ = std::make_unique<Font>(f);
  Changed();
}

int Control::AddString(const std::string& item) {
  if (sorted_) {
    auto it = std::upper_bound(items_.begin(), items_.end(), item);
    int index = static_cast<int>(it - items_.begin());
    items_.insert(it, item);
    Changed();
    return index;
  }
  items_.push_back(item);
  Changed();
  return static_cast<int>(items_.size()) - 1;
}

int Control::InsertString(int index, const std::string& item) {
  if (index < 0 || index > GetCount()) index = GetCount();
  items_.insert(items_.begin() + index, item);
  if (cur_sel_ >= index) ++cur_sel_;
  Changed();
  return index;
}

void Control::ResetContent() {
  items_.clear();
  cur_sel_ = -1;
  if (kind_ == Kind::Combo) text_.clear();
  Changed();
}

std::string Control::GetLBText(int index) const {
  if (index < 0 || index >= GetCount()) return {};
  return items_[static_cast<std::size_t>(index)];
}

int Control::SetCurSel(int index) {
  // A list view selects among its rows, the other lists among their items.
  int count = kind_ == Kind::ListView ? GetItemCount() : GetCount();
  if (index < -1 || index >= count) {
    // Out of range clears the selection, as the combo box does, and reports an error.
    cur_sel_ = -1;
    if (kind_ == Kind::Combo) text_.clear();
    Changed();
    return -1;
  }
  cur_sel_ = index;
  if (kind_ == Kind::Combo) text_ = index >= 0 ? items_[static_cast<std::size_t>(index)] : std::string();
  Changed();
  return index;
}

namespace {
char Lower(char c) { return (c >= 'A' && c <= 'Z') ? static_cast<char>(c - 'A' + 'a') : c; }
bool StartsNoCase(const std::string& s, const std::string& prefix) {
  if (prefix.size() > s.size()) return false;
  for (std::size_t i = 0; i < prefix.size(); ++i)
    if (Lower(s[i]) != Lower(prefix[i])) return false;
  return true;
}
bool EqualsNoCase(const std::string& a, const std::string& b) { return a.size() == b.size() && StartsNoCase(a, b); }
}  // namespace

int Control::FindString(int start, const std::string& prefix) const {
  int n = GetCount();
  for (int k = 1; k <= n; ++k) {
    int i = (start + k) % n;
    if (i < 0) i += n;
    if (StartsNoCase(items_[static_cast<std::size_t>(i)], prefix)) return i;
  }
  return -1;
}

int Control::FindStringExact(int start, const std::string& text) const {
  int n = GetCount();
  for (int k = 1; k <= n; ++k) {
    int i = (start + k) % n;
    if (i < 0) i += n;
    if (EqualsNoCase(items_[static_cast<std::size_t>(i)], text)) return i;
  }
  return -1;
}

void Control::SetCheck(int state) {
  if (check_ == state) return;
  check_ = state;
  Changed();
}

void Control::SetRange(int lower, int upper) {
  lower_ = lower;
  upper_ = upper;
  Changed();
}

void Control::SetPos(int pos) {
  int lo = std::min(lower_, upper_), hi = std::max(lower_, upper_);
  pos_ = std::clamp(pos, lo, hi);
  Changed();
}

int Control::InsertColumn(int index, const std::string& title, int width, Align align) {
  if (index < 0 || index > static_cast<int>(columns_.size())) index = static_cast<int>(columns_.size());
  columns_.insert(columns_.begin() + index, title);
  column_widths_.insert(column_widths_.begin() + index, width);
  column_align_.insert(column_align_.begin() + index, align);
  for (auto& row : rows_)
    if (static_cast<int>(row.size()) > index) row.insert(row.begin() + index, std::string());
  Changed();
  return index;
}

bool Control::DeleteColumn(int index) {
  if (index < 0 || index >= static_cast<int>(columns_.size())) return false;
  columns_.erase(columns_.begin() + index);
  column_widths_.erase(column_widths_.begin() + index);
  column_align_.erase(column_align_.begin() + index);
  for (auto& row : rows_)
    if (static_cast<int>(row.size()) > index) row.erase(row.begin() + index);
  Changed();
  return true;
}

int Control::InsertItem(int index, const std::string& text) {
  if (index < 0 || index > GetItemCount()) index = GetItemCount();
  std::vector<std::string> row(std::max<std::size_t>(1, columns_.size()));
  row[0] = text;
  rows_.insert(rows_.begin() + index, std::move(row));
  if (cur_sel_ >= index) ++cur_sel_;
  Changed();
  return index;
}

bool Control::SetItemText(int row, int column, const std::string& text) {
  if (row < 0 || row >= GetItemCount() || column < 0) return false;
  auto& r = rows_[static_cast<std::size_t>(row)];
  if (static_cast<int>(r.size()) <= column) r.resize(static_cast<std::size_t>(column) + 1);
  r[static_cast<std::size_t>(column)] = text;
  Changed();
  return true;
}

std::string Control::GetItemText(int row, int column) const {
  if (row < 0 || row >= GetItemCount() || column < 0) return {};
  const auto& r = rows_[static_cast<std::size_t>(row)];
  return column < static_cast<int>(r.size()) ? r[static_cast<std::size_t>(column)] : std::string();
}

bool Control::DeleteAllItems() {
  rows_.clear();
  cur_sel_ = -1;
  Changed();
  return true;
}

void Control::SortRows(const std::vector<int>& order) {
  std::vector<std::vector<std::string>> sorted;
  sorted.reserve(order.size());
  int new_sel = -1;
  for (std::size_t i = 0; i < order.size(); ++i) {
    sorted.push_back(rows_[static_cast<std::size_t>(order[i])]);
    if (order[i] == cur_sel_) new_sel = static_cast<int>(i);
  }
  rows_ = std::move(sorted);
  cur_sel_ = new_sel;
  Changed();
}

void Control::SetRichDocument(RichDocument doc) {
  rich_ = std::make_unique<RichDocument>(std::move(doc));
  Changed();
}

void Control::SetTable(TableData t) {
  table_ = std::make_unique<TableData>(std::move(t));
  picked_row_ = picked_col_ = -1;
  Changed();
}

void Control::ClearTable() {
  table_.reset();
  picked_row_ = picked_col_ = -1;
  Changed();
}

void Control::PickCell(int row, int column) {
  picked_row_ = row;
  picked_col_ = column;
  Changed();
}

std::string Control::PickedText() const {
  if (!table_ || picked_row_ < 0 || picked_col_ < 0) return {};
  if (picked_row_ >= static_cast<int>(table_->rows.size())) return {};
  const auto& r = table_->rows[static_cast<std::size_t>(picked_row_)];
  return picked_col_ < static_cast<int>(r.size()) ? r[static_cast<std::size_t>(picked_col_)] : std::string();
}

void Control::SetPicture(VectorPicture p) {
  picture_ = std::make_unique<VectorPicture>(std::move(p));
  Changed();
}

void Control::ApplyTemplateStyles(const std::string& class_name, const std::vector<std::string>& styles) {
  class_name_ = class_name;
  auto has = [&](const char* s) { return std::find(styles.begin(), styles.end(), s) != styles.end(); };
  read_only_ = has("ES_READONLY");
  multiline_ = has("ES_MULTILINE") || has("BS_MULTILINE");
  if (kind_ == Kind::Combo) drop_list_ = has("CBS_DROPDOWNLIST");
  sorted_ = has("CBS_SORT") || has("LBS_SORT");
  group_start_ = has("WS_GROUP");
  tab_stop_ = has("WS_TABSTOP");
  auto_button_ = has("BS_AUTOCHECKBOX") || has("BS_AUTORADIOBUTTON") || has("BS_AUTO3STATE");
  default_button_ = has("BS_DEFPUSHBUTTON");
  set_buddy_int_ = has("UDS_SETBUDDYINT");
  if (has("ES_NUMBER")) filter_ = CharFilter::Digits;
  // Our own markers for the numeric edits of the calculators.
  if (has("KS_DOUBLE")) filter_ = CharFilter::Double;
  if (has("KS_UDOUBLE")) filter_ = CharFilter::UnsignedDouble;
  if (has("SS_RIGHT") || has("ES_RIGHT") || has("BS_RIGHT")) align_ = Align::Right;
  if (has("SS_CENTER") || has("ES_CENTER") || has("BS_CENTER")) align_ = Align::Center;
  visible_ = !has("NOT WS_VISIBLE");
  enabled_ = !has("WS_DISABLED");
}

bool FilterAccepts(CharFilter f, const std::string& text) {
  switch (f) {
    case CharFilter::None:
      return true;
    case CharFilter::Digits:
      return std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
    case CharFilter::Double:
    case CharFilter::UnsignedDouble: {
      // What can stand on the way to a real number while it is typed: sign (first),
      // digits, one point before the exponent, one exponent with its own sign.
      bool point = false, exp = false, digit = false;
      for (std::size_t i = 0; i < text.size(); ++i) {
        char c = text[i];
        if (c >= '0' && c <= '9') {
          digit = true;
        } else if (c == '-' || c == '+') {
          bool at_start = i == 0;
          bool after_exp = i > 0 && (text[i - 1] == 'e' || text[i - 1] == 'E');
          if (!after_exp && !(at_start && (f == CharFilter::Double || c == '+'))) return false;
        } else if (c == '.') {
          if (point || exp) return false;
          point = true;
        } else if (c == 'e' || c == 'E') {
          if (exp || !digit) return false;
          exp = true;
        } else {
          return false;
        }
      }
      return true;
    }
  }
  return true;
}

}  // namespace ui

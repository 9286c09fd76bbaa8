#include "forms/key_lists.h"

#include <algorithm>

#include "forms/catalogue_read.h"
#include "services/tabledb/ado.h"
#include "services/tabledb/cell_text.h"
#include "services/tabledb/key_indexes.h"

namespace kestra::forms {

KeyLists::KeyLists(ui::Dialog& owner, KeyListStyle style) : owner_(owner), style_(std::move(style)) {}

void KeyLists::SetTable(CADODatabase* db, std::string table) {
  db_ = db;
  table_ = std::move(table);
}

// A catalogue without tables leaves the table name empty: nothing to ask, nothing to report.
bool KeyLists::Usable() const { return db_ && db_->IsOpen() && !table_.empty(); }

std::string KeyLists::Text(std::size_t i) const {
  return i < lists_.size() ? lists_[i].list->GetWindowText() : std::string();
}

bool KeyLists::Scan() {
  columns_ = {};
  if (!Usable()) return true;
  const std::string mark = kestra::tabledb::kKeyMark;
  try {
    CADOTableDef def(db_);
    def.Open(table_);
    TableColumns found;
    for (int j = 1; j < def.GetFieldCount(); ++j) {
      CADOFieldInfo info;
      def.GetFieldInfo(j, info, 1);
      if (kestra::tabledb::IsKeyColumn(info.m_strName)) {
        found.keys.push_back(info.m_strName.substr(mark.size()));
        found.fields.push_back(found.keys.back());
      } else {
        found.values.push_back(info.m_strName);
        found.fields.push_back(info.m_strName);
      }
    }
    def.Close();
    columns_ = std::move(found);
    return true;
  } catch (const CADOException& e) {
    e.ReportError();
    return false;
  }
}

std::optional<std::vector<std::string>> KeyLists::Read(const std::string& query) {
  return ReadColumn(*db_, query);
}

void KeyLists::AddSorted(ui::Control& list, std::vector<std::string> values) {
  text::SortValues(values, style_.order);
  for (const std::string& v : values) list.AddString(v);
}

void KeyLists::DestroyRunTimeControls() {
  if (run_time_) {
    // Only controls the owner still holds: a dialog created again has dropped them already.
    auto destroy = [this](ui::Control* c) {
      for (const auto& k : owner_.controls()) {
        if (k.get() == c && c->template_index() < 0) {
          owner_.DestroyControl(c);
          return;
        }
      }
    };
    for (Entry& e : lists_) {
      destroy(e.label);
      destroy(e.list);
    }
  }
  lists_.clear();
  run_time_ = false;
}

bool KeyLists::Build(const ui::Control& placeholder, int first_pos, int second_pos) {
  if (!Usable()) return true;
  if (!Scan()) return false;
  DestroyRunTimeControls();
  run_time_ = true;
  const KeyRowLayout& lay = style_.layout;
  const ui::Font* font = placeholder.font();  // null: the dialog's font
  const std::size_t n = std::min(columns_.keys.size(), static_cast<std::size_t>(std::max(lay.max_lists, 0)));
  for (std::size_t i = 0; i < n; ++i) {
    Entry e;
    e.column = columns_.keys[i];
    e.label = &owner_.CreateControl(ui::Kind::Static, lay.label_id, e.column + ":", ui::Rect{}, false);
    e.label->ApplyTemplateStyles("Static", {"SS_LEFTNOWORDWRAP", "NOT WS_VISIBLE"});
    e.list = &owner_.CreateControl(ui::Kind::Combo, lay.first_id + static_cast<int>(i), "", ui::Rect{}, false);
    e.list->ApplyTemplateStyles(
        "ComboBox", {lay.drop_list ? "CBS_DROPDOWNLIST" : "CBS_DROPDOWN", "WS_VSCROLL", "WS_TABSTOP", "NOT WS_VISIBLE"});
    if (font) {
      e.label->SetFont(*font);
      e.list->SetFont(*font);
    }
    lists_.push_back(std::move(e));
  }

  // Sizes: each label's text, each list's widest value and its values' heights together.
  std::vector<ui::Size> label_size(n);
  std::vector<int> widest(n, 0), heights(n, 0);
  for (std::size_t i = 0; i < n; ++i) {
    ui::Control& list = *lists_[i].list;
    label_size[i] = owner_.GetTextExtent(lists_[i].label->GetWindowText(), font);
    auto values = Read(KeyValuesQuery(lists_[i].column, table_));
    if (!values) return false;
    for (const std::string& v : *values) {
      const ui::Size s = owner_.GetTextExtent(v, font);
      widest[i] = std::max(widest[i], s.cx);
      heights[i] += s.cy;
    }
    AddSorted(list, std::move(*values));
    if (i == 0) list.SetCurSel(first_pos);
    if (i == 1 && style_.chained) {
      if (!RefreshSecond()) return false;
      list.SetCurSel(second_pos);
    }
  }

  const ui::Rect at = placeholder.GetWindowRect();
  int x = at.left;
  const int y = at.top;
  for (std::size_t i = 0; i < n; ++i) {
    lists_[i].label->MoveWindow(ui::Rect{x, y, x + label_size[i].cx, y + label_size[i].cy});
    x += label_size[i].cx + lay.label_gap;
    const int top = y - lay.list_raise;
    lists_[i].list->MoveWindow(ui::Rect{x, top, x + widest[i] + lay.width_extra, top + heights[i] + lay.height_extra});
    x += widest[i] + lay.next_gap;
  }
  for (Entry& e : lists_) {
    e.label->ShowWindow(true);
    e.list->ShowWindow(true);
  }
  return true;
}

void KeyLists::Bind(std::vector<std::pair<ui::Control*, std::string>> lists) {
  DestroyRunTimeControls();
  for (auto& [control, column] : lists) {
    if (control) lists_.push_back(Entry{nullptr, control, std::move(column)});
  }
}

bool KeyLists::Fill(std::size_t i) {
  if (!Usable() || i >= lists_.size()) return true;
  ui::Control& list = *lists_[i].list;
  list.ResetContent();
  auto values = Read(KeyValuesQuery(lists_[i].column, table_));
  if (!values) return false;
  AddSorted(list, std::move(*values));
  return true;
}

bool KeyLists::RefreshSecond() {
  if (!Usable() || !style_.chained || lists_.size() < 2) return true;
  ui::Control& second = *lists_[1].list;
  const int keep = second.GetCurSel();
  second.ResetContent();
  auto values = Read(KeyValuesUnderQuery(lists_[1].column, table_, KeyText{lists_[0].column, Text(0)}));
  if (!values) return false;
  AddSorted(second, std::move(*values));
  second.SetCurSel(keep);
  return true;
}

bool KeyLists::RefreshSecondKeepingText() {
  if (!style_.chained || lists_.size() < 2) return true;
  const std::string old = Text(1);
  if (!RefreshSecond()) return false;
  ui::Control& second = *lists_[1].list;
  const int found = second.FindString(-1, old);
  second.SetCurSel(found < 0 ? 0 : found);
  return true;
}

std::vector<KeyText> KeyLists::Keys() const {
  std::vector<KeyText> keys;
  for (std::size_t i = 0; i < lists_.size(); ++i) keys.push_back(KeyText{lists_[i].column, Text(i)});
  return keys;
}

bool KeyLists::FetchValues(const std::vector<std::string>& value_columns, std::vector<std::string>& texts) {
  if (!Usable()) return true;
  const std::vector<KeyText> keys = Keys();
  for (std::size_t k = 0; k < value_columns.size() && k < texts.size(); ++k) {
    auto rows = Read(RowValueQuery(value_columns[k], table_, keys, style_.row_query));
    if (!rows) return false;
    if (!rows->empty()) texts[k] = tabledb::NumberCellText(rows->back());
  }
  return true;
}

std::string KeyLists::SearchQuery() const { return forms::SearchQuery(table_, Keys()); }

void KeyLists::Wire(std::function<void()> on_row_changed) {
  on_row_changed_ = std::move(on_row_changed);
  std::vector<int> ids;
  if (!run_time_ && !lists_.empty()) {
    for (const Entry& e : lists_) ids.push_back(e.list->id());
  } else {
    for (int i = 0; i < style_.layout.max_lists; ++i) ids.push_back(style_.layout.first_id + i);
  }
  for (std::size_t i = 0; i < ids.size(); ++i) {
    owner_.On(ids[i], ui::Notify::SelChange, [this, i] {
      if (i == 0) RefreshSecondKeepingText();
      if (on_row_changed_) on_row_changed_();
    });
  }
  if (ids.size() > 1) owner_.On(ids[1], ui::Notify::DropDown, [this] { RefreshSecond(); });
}

}  // namespace kestra::forms

#pragma once
// Catalogue key lists: the drop-down lists by which a designer narrows a catalogue table to
// one row, and the values read from that row.
//
// A catalogue table marks its key columns with a leading "￥" ("￥截面"); its first column is
// never shown or searched. Each list shows the distinct values of one key column, sorted in
// the form's order; in a chained row the second list holds only the values under the first
// list's text. The value columns of the selected row are read one query each, the last row
// read winning.
//
// Why forms/: the lists join the dialog framework (ui/) with the table database
// (services/tabledb/), which know nothing of each other, and every calculator with a
// catalogue uses them. forms/ is the small library of dialog parts the calculators share.
//
// Usage, one object per form:
//   Line-data form: index lists made at run time (ids 101.. in form 0), natural order.
//     KeyLists lists(*this, {ValueOrder::Natural, true, {false, "Like", true}, {.first_id = 101}});
//     lists.Wire([this] { ShowLineData(); });              // constructor
//     lists.SetTable(db, line_name);                       // line-name change, then
//     lists.Build(*GetDlgItem(placeholder), index1, index2);
//     lists.FetchValues(lists.columns().values, values);   // show line data (R', X', U)
//   Motor combos: the template's fixed combos, catalogue order.
//     KeyLists lists(*this, {ValueOrder::Catalogue, true, {}, {}});
//     lists.SetTable(db, "电机"); lists.Scan();             // then check the key names
//     lists.Bind({{GetDlgItem(series), "系列名称"}, {GetDlgItem(model), "型号"}});
//     lists.Wire([this] { FetchMotorData(); });
//     lists.Fill(0); lists.list(0)->SetCurSel(0); lists.RefreshSecond();
//     lists.FetchValues({"功率kW", "转速r/min", "额定电流A", "起动电流A", "额定电压kV"}, texts);
//   Pick dialog search row: editable combos 1200+k, catalogue order, not chained.
//     KeyLists row(*this, {ValueOrder::Catalogue, false, {}, {.first_id = 1200, .max_lists = 99, .drop_list = false}});
//     row.SetTable(db, table); row.Build(*GetDlgItem(placeholder));   // row.columns().fields: list columns
//     run row.SearchQuery() on "检索".
//
// Every operation does nothing without an open catalogue. A database error is shown with the
// service's own report (CADOException::ReportError), the open query is closed, the rest of
// that operation is skipped and the operation returns false.
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "forms/catalogue_queries.h"
#include "services/text/value_order.h"
#include "ui/dialog.h"

class CADODatabase;

namespace kestra::forms {

// The columns after the first one of a catalogue table, names without the "￥" mark.
struct TableColumns {
  std::vector<std::string> fields;  // all of them, in table order
  std::vector<std::string> keys;    // the key columns ("￥" names), in table order
  std::vector<std::string> values;  // the others, in table order
};

// Where run-time lists go: one row from the placeholder's top-left corner, in its font.
struct KeyRowLayout {
  int first_id = 0;         // list i gets the id first_id + i
  int max_lists = 3;        // key columns beyond this many get no list
  int label_id = -1;        // the labels are static texts "name:" with this id
  bool drop_list = true;    // drop-down lists, or drop-downs the designer may type into
  int label_gap = 10;       // from a label's right edge to its list
  int list_raise = 3;       // a list stands this much higher than its label
  int width_extra = 30;     // list width: its widest value + width_extra
  int height_extra = 50;    // dropped height: its summed value heights + height_extra
  int next_gap = 40;        // next label: list's left edge + its widest value + next_gap
};

struct KeyListStyle {
  text::ValueOrder order = text::ValueOrder::Natural;
  bool chained = true;  // the second list holds the values under the first list's text
  RowQueryStyle row_query;
  KeyRowLayout layout;
};

class KeyLists {
 public:
  KeyLists(ui::Dialog& owner, KeyListStyle style);
  KeyLists(const KeyLists&) = delete;
  KeyLists& operator=(const KeyLists&) = delete;

  // The catalogue (may be null or closed) and the table the lists narrow.
  void SetTable(CADODatabase* db, std::string table);
  const std::string& table() const { return table_; }

  // Column scan: reads the table's columns after the first into columns().
  bool Scan();
  const TableColumns& columns() const { return columns_; }

  // Run-time lists: scan; destroy the lists of the last Build; create a hidden label and list
  // per key column in the placeholder's font; fill each (then select first_pos in the first
  // list; chained: refresh the second and select second_pos in it); lay them out; show them.
  bool Build(const ui::Control& placeholder, int first_pos = -1, int second_pos = -1);
  // Fixed lists of the template, each bound to a key column (name without "￥").
  void Bind(std::vector<std::pair<ui::Control*, std::string>> lists);

  std::size_t size() const { return lists_.size(); }
  ui::Control* list(std::size_t i) const { return i < lists_.size() ? lists_[i].list : nullptr; }
  ui::Control* label(std::size_t i) const { return i < lists_.size() ? lists_[i].label : nullptr; }
  // The text of list i ("" when there is no list i).
  std::string Text(std::size_t i) const;

  // Empties list i and fills it with all values of its key column, sorted.
  bool Fill(std::size_t i);
  // Chained rows: refills the second list with the values under the first list's text and
  // selects the position it had (none when the new list is shorter).
  bool RefreshSecond();
  // The first list changed: refreshes the second list and selects its first entry that begins
  // with the text it had (the list's prefix search, without regard to case), else entry 0.
  bool RefreshSecondKeepingText();
  // For each column k (as many as texts holds), the text of the selected row's cell; a column
  // whose query finds no row keeps its text.
  bool FetchValues(const std::vector<std::string>& value_columns, std::vector<std::string>& texts);
  // The pick dialog's search query over the lists' texts.
  std::string SearchQuery() const;

  // Registers the owner's handlers of a chained row: a change of the first list refreshes the
  // second keeping its text, then calls on_row_changed; a change of any later list calls it;
  // the second list's drop-down refreshes it. Fixed lists: call after Bind.
  void Wire(std::function<void()> on_row_changed);

 private:
  struct Entry {
    ui::Control* label = nullptr;  // null for fixed lists
    ui::Control* list = nullptr;
    std::string column;
  };

  bool Usable() const;
  void DestroyRunTimeControls();
  // Field 0 of every row as text; nullopt when the catalogue raised an error (reported).
  std::optional<std::vector<std::string>> Read(const std::string& query);
  void AddSorted(ui::Control& list, std::vector<std::string> values);
  std::vector<KeyText> Keys() const;

  ui::Dialog& owner_;
  KeyListStyle style_;
  CADODatabase* db_ = nullptr;
  std::string table_;
  TableColumns columns_;
  std::vector<Entry> lists_;
  bool run_time_ = false;
  std::function<void()> on_row_changed_;
};

}  // namespace kestra::forms

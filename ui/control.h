#pragma once
// One control of a dialog: the state a designer sees (text, items, selection, check,
// enabled, visible, position) with the classic Win32 operations on it. Every change
// goes through these operations so that a renderer showing the dialog stays in step.
#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "ui/geometry.h"
#include "ui/rich_text.h"

namespace ui {

class Dialog;

enum class Kind {
  Static,    // label
  Edit,
  Button,    // push button
  CheckBox,
  Radio,
  Combo,     // drop-down list or editable drop-down
  ListBox,
  ListView,  // report-style list with columns
  UpDown,
  GroupBox,
  Frame,     // frame or picture placeholder
  Tab,       // tab strip
  RichText,
  Table,     // table display with a picked cell
};

const char* KindName(Kind k);

// What a numeric edit lets a designer type.
enum class CharFilter {
  None,
  Digits,          // digits only
  Double,          // a real number: digits, one point, a leading minus, an exponent
  UnsignedDouble,  // as Double without the minus
};

enum class Align { Left, Center, Right };

// A table shown by a table display control, with the cell the designer picked.
struct TableData {
  std::string title;
  std::vector<std::string> headers;
  std::vector<std::vector<std::string>> rows;
  std::string note;
};

// A vector picture (a slide): lines and filled polygons in picture coordinates (y downwards)
// with their CAD colour index, drawn in file order: a fill comes after its first_line lines.
struct VectorPicture {
  struct Line {
    int x1, y1, x2, y2;
    int color;
    bool operator==(const Line&) const = default;
  };
  struct Point {
    int x, y;
    bool operator==(const Point&) const = default;
  };
  struct Fill {
    std::vector<Point> points;
    int color;
    std::size_t first_line;
    bool operator==(const Fill&) const = default;
  };
  std::string name;  // the slide's name in its library, so that a transcript can tell which is shown
  int width = 0, height = 0;
  double aspect = 0;  // width / height of the screen it was made on; 0: square pixels
  std::vector<Line> lines;
  std::vector<Fill> fills;
  bool operator==(const VectorPicture&) const = default;
};

class Control {
 public:
  Control(Dialog* owner, Kind kind, int id);

  Dialog* owner() const { return owner_; }
  Kind kind() const { return kind_; }
  int id() const { return id_; }
  int template_index() const { return template_index_; }  // order in the template, -1 when created at run time
  void set_template_index(int i) { template_index_ = i; }

  // Text (caption of buttons and labels, content of edits and editable combos).
  const std::string& GetWindowText() const { return text_; }
  void SetWindowText(const std::string& text);

  bool IsWindowEnabled() const { return enabled_; }
  void EnableWindow(bool enable);
  bool IsWindowVisible() const { return visible_; }
  void ShowWindow(bool show);

  const Rect& GetWindowRect() const { return rect_; }
  void MoveWindow(const Rect& r);

  // Style facts the behaviour depends on.
  bool read_only() const { return read_only_; }
  void SetReadOnly(bool ro);
  bool multiline() const { return multiline_; }
  bool drop_list() const { return drop_list_; }   // combo without an edit part
  bool sorted() const { return sorted_; }
  bool group_start() const { return group_start_; }
  bool auto_button() const { return auto_button_; }  // auto check box / auto radio
  bool default_button() const { return default_button_; }
  bool tab_stop() const { return tab_stop_; }
  Align align() const { return align_; }
  CharFilter filter() const { return filter_; }
  void SetCharFilter(CharFilter f) { filter_ = f; }
  const std::string& class_name() const { return class_name_; }

  // Fonts: empty means the dialog font.
  const Font* font() const { return font_.get(); }
  void SetFont(const Font& f);

  // Combo boxes, list boxes and tab strips: items and selection (-1 none).
  int AddString(const std::string& item);
  int InsertString(int index, const std::string& item);
  void ResetContent();
  int GetCount() const { return static_cast<int>(items_.size()); }
  const std::vector<std::string>& items() const { return items_; }
  std::string GetLBText(int index) const;
  int GetCurSel() const { return cur_sel_; }
  int SetCurSel(int index);  // -1 clears; returns -1 (CB_ERR) for an index out of range
  // First item, after start, that begins with prefix without regard to ASCII case,
  // wrapping round to the top; -1 when none. start -1 searches from the top.
  int FindString(int start, const std::string& prefix) const;
  int FindStringExact(int start, const std::string& text) const;

  // Check boxes and radio buttons.
  int GetCheck() const { return check_; }
  void SetCheck(int state);

  // Up-down controls.
  int buddy_id() const { return buddy_id_; }
  void SetBuddy(int id) { buddy_id_ = id; }
  bool set_buddy_int() const { return set_buddy_int_; }
  int range_lower() const { return lower_; }
  int range_upper() const { return upper_; }
  void SetRange(int lower, int upper);
  int GetPos() const { return pos_; }
  void SetPos(int pos);

  // List views: columns and rows of texts.
  int InsertColumn(int index, const std::string& title, int width, Align align = Align::Left);
  bool DeleteColumn(int index);
  const std::vector<std::string>& columns() const { return columns_; }
  const std::vector<int>& column_widths() const { return column_widths_; }
  int InsertItem(int index, const std::string& text);
  bool SetItemText(int row, int column, const std::string& text);
  std::string GetItemText(int row, int column) const;
  bool DeleteAllItems();
  int GetItemCount() const { return static_cast<int>(rows_.size()); }
  const std::vector<std::vector<std::string>>& rows() const { return rows_; }
  void SortRows(const std::vector<int>& order);  // new order of the current rows

  // Rich text.
  const RichDocument* rich() const { return rich_.get(); }
  void SetRichDocument(RichDocument doc);

  // Table display: the table and the picked cell (-1 none).
  const TableData* table() const { return table_.get(); }
  void SetTable(TableData t);
  void ClearTable();
  int picked_row() const { return picked_row_; }
  int picked_column() const { return picked_col_; }
  void PickCell(int row, int column);
  std::string PickedText() const;

  // Pictures.
  const VectorPicture* picture() const { return picture_.get(); }
  void SetPicture(VectorPicture p);

  // Set from the template; not for calculators.
  void ApplyTemplateStyles(const std::string& class_name, const std::vector<std::string>& styles);

 private:
  void Changed();

  Dialog* owner_;
  Kind kind_;
  int id_;
  int template_index_ = -1;
  std::string class_name_;
  std::string text_;
  bool enabled_ = true;
  bool visible_ = true;
  Rect rect_;
  bool read_only_ = false, multiline_ = false, drop_list_ = false, sorted_ = false;
  bool group_start_ = false, auto_button_ = false, default_button_ = false, tab_stop_ = false;
  bool set_buddy_int_ = false;
  Align align_ = Align::Left;
  CharFilter filter_ = CharFilter::None;
  std::unique_ptr<Font> font_;
  std::vector<std::string> items_;
  int cur_sel_ = -1;
  int check_ = 0;
  int buddy_id_ = 0;
  int lower_ = 100, upper_ = 0, pos_ = 0;  // the up-down control's default range runs downwards
  std::vector<std::string> columns_;
  std::vector<int> column_widths_;
  std::vector<Align> column_align_;
  std::vector<std::vector<std::string>> rows_;
  std::unique_ptr<RichDocument> rich_;
  std::unique_ptr<TableData> table_;
  int picked_row_ = -1, picked_col_ = -1;
  std::unique_ptr<VectorPicture> picture_;
};

// Does text pass the filter of a numeric edit (the whole text, as typed)?
bool FilterAccepts(CharFilter f, const std::string& text);

}  // namespace ui

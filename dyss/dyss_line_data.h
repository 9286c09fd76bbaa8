#pragma once
// The line catalogue on a line-data form (forms 0 to 3 of the voltage-loss page, both forms of
// the line-length page): the line-name list holding the catalogue's tables, the index lists made
// at run time from the chosen table's "￥" columns, and the line's R′, X′ and U read from the
// row the lists select and shown in the line-data label.
#include <array>
#include <optional>
#include <string>
#include <vector>

#include "dyss/dyss_ids.h"
#include "dyss/dyss_report.h"
#include "dyss/dyss_state.h"
#include "forms/key_lists.h"

namespace kestra::dyss {

class LineData {
 public:
  // form: the form the lists lie in. Nothing is asked of the catalogue before FillLineNames.
  LineData(ui::Dialog& form, const LineFormIds& ids, const DyssState& state);
  LineData(const LineData&) = delete;
  LineData& operator=(const LineData&) = delete;

  // The catalogue's tables of type "TABLE" (without regard to case), in the catalogue's order.
  void FillLineNames();
  // Selects the line at.line_name (and sets line_sel, the form's member of that list), builds
  // the index lists for it with the first two positions of `at`, then selects all three
  // positions in the lists that exist. Form initialisation and loading a form.
  void Open(int& line_sel, const LinePositions& at);
  // The designer chose a line: the working index positions become 0, the index lists are built
  // anew with their first entries selected, and the line data are shown.
  void Choose(int& line_sel, LinePositions& working);
  // Reads the form's controls, queries R′, X′ and U for the row the lists select (a value
  // whose query finds no row keeps its text) and shows them in the line-data label.
  void Show();

  // The selection of index list i (0..2), or nullopt when the table has no such list.
  std::optional<int> IndexPosition(int i) const;
  // R′ (Ω/km), X′ (Ω/km) and U (kV) as read; empty before the first row is found.
  const std::array<std::string, 3>& values() const { return values_; }
  std::string LabelText() const;
  ShownLine Shown() const;

 private:
  // Column scan for the line-name list's table; false when the catalogue raised an error.
  bool Scan(int first, int second);
  std::string LineName() const;

  ui::Dialog& form_;
  LineFormIds ids_;
  const DyssState& state_;
  forms::KeyLists lists_;
  std::array<std::string, 3> values_;
};

// "电阻(Ω/km):R′  感抗(Ω/km):X′  电压(kV):U".
std::string LineDataText(const std::array<std::string, 3>& values);

}  // namespace kestra::dyss

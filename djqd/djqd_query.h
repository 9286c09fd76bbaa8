#pragma once
// CDjqdQueryDlg: picks a row of the transformer catalogue (the rated capacity and impedance
// voltage of a transformer) or of the starting-reactor catalogue (a reactor's reactance and
// model). The designer chooses a table, narrows it by its search columns with "检索", sorts
// it by a column header and picks a row.
#include <memory>
#include <string>

#include "forms/key_lists.h"
#include "ui/dialog.h"

class CADODatabase;

namespace kestra::shell {
class ModuleContext;
}

namespace kestra::djqd {

enum class QueryMode { Transformer = 0, Reactor = 1 };

class CDjqdQueryDlg : public ui::CAcUiDialog {
 public:
  // note: where the catalogue's figures come from, shown under the list.
  CDjqdQueryDlg(const shell::ModuleContext& module, QueryMode mode, std::string note);
  ~CDjqdQueryDlg() override;

  bool OnInitDialog() override;
  // Without a picked row the dialog ends as if cancelled.
  void OnOK() override;

  // The picked row, after OK: SrT in MVA, UT relative, the reactance per phase in Ω and the
  // reactor's model.
  double srt() const { return srt_; }
  double ut() const { return ut_; }
  double xk() const { return xk_; }
  const std::string& model() const { return model_; }

 private:
  void OnTableChange();
  void OnSearch();
  void OnHeaderClick(int column);

  const shell::ModuleContext& module_;
  QueryMode mode_;
  std::string note_;
  std::unique_ptr<CADODatabase> db_;
  forms::KeyLists search_;
  int last_table_ = -1;
  // Positions of the columns read at OK (-1: the table has none).
  int col_capacity_ = -1, col_impedance_ = -1, col_reactance_ = -1, col_model_ = -1;
  double srt_ = 0, ut_ = 0, xk_ = 0;
  std::string model_;
};

}  // namespace kestra::djqd

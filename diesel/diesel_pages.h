#pragma once
// The three tab pages of the generator-capacity dialog, one per method. "计算" of the main
// dialog runs the shown page's DoCalculate: it reads the edits (_wtof: a text without a number
// is 0, nothing is checked), keeps them as the page's inputs, and shows the capacity ("%.3f").
#include "diesel/diesel_formulas.h"
#include "diesel/zo_ui_dialog.h"

namespace kestra::diesel {

// Steady load (template 201).
class ZoUiWdfhCalDlg : public ZoUiDialog {
 public:
  explicit ZoUiWdfhCalDlg(ui::Dialog* parent = nullptr);
  bool OnInitDialog() override;
  void DoCalculate();
  // The values of the last calculation (all 0 before it).
  const SteadyLoadInputs& Inputs() const { return inputs_; }

 private:
  SteadyLoadInputs inputs_;
};

// Peak load (template 202).
class ZoUiJffhCalDlg : public ZoUiDialog {
 public:
  explicit ZoUiJffhCalDlg(ui::Dialog* parent = nullptr);
  bool OnInitDialog() override;
  // With Sm left empty the capacity comes from Pm and Qm, and their √(Pm²+Qm²) is written
  // into the Sm edit ("%.2f") unless both are empty; the inputs keep Sm = 0 until the next
  // calculation reads the written value.
  void DoCalculate();
  const PeakLoadInputs& Inputs() const { return inputs_; }

 private:
  PeakLoadInputs inputs_;
};

// Permitted bus voltage drop (template 203).
class ZoUiMxyxyjCalDlg : public ZoUiDialog {
 public:
  explicit ZoUiMxyxyjCalDlg(ui::Dialog* parent = nullptr);
  bool OnInitDialog() override;
  void DoCalculate();
  const BusDropInputs& Inputs() const { return inputs_; }

 private:
  BusDropInputs inputs_;
};

}  // namespace kestra::diesel

#pragma once
// An input form of the voltage-loss dialog (five on the voltage-loss page, two on the line-length
// page): its field texts and cosφ exchanged with its edits, its line catalogue when it has one,
// and its keys in the parameter tree. A form reads its keys when it is created, stores them (and
// hands its values to the page's working values) when it is left, and takes the working values
// when it is shown. What differs between the forms is data: their keys, ids and working values.
#include <array>
#include <functional>
#include <optional>
#include <span>
#include <string>

#include "dyss/dyss_line_data.h"
#include "dyss/dyss_params.h"
#include "dyss/dyss_state.h"
#include "ui/dialog.h"

namespace kestra::dyss {

// The texts of a form's fields as typed (a single load is load 1) and its cosφ.
struct FormTexts {
  std::array<std::string, 6> current, length, load;
  std::string section, coefficient;
  double cos_phi = 0;
  // The text of a field; null for one the form holds as a number (cosφ) or not at all.
  std::string* At(FieldRef f);
};

struct FormDefinition {
  int template_id = 0;
  std::span<const ParamKey> keys;  // LossFormKeys(n) or LengthFormKeys(n)
  std::string prefix;              // the form's key prefix
  std::optional<LineFormIds> line;  // line-data forms
  int cos_edit = 0, cos_spin = 0;   // forms with a power factor
  // Whether the form's creation puts its length into the working values (the line-length
  // page's load-moment form leaves there what the current-moment form read).
  bool length_to_working_at_start = true;
};

// Where a form's values go when it is left and come from when it is shown.
struct FormWorking {
  LinePositions* line = nullptr;
  double* cos_phi = nullptr;
  std::function<double*(FieldRef)> field;  // null for a field without a working value
  std::string* require = nullptr;          // the line-length page's required loss
};

// The texts of the page that a form stores with its own keys.
struct PageTexts {
  std::string require;  // "输入参数\要求" (line-length page)
  std::string result;   // "计算结果"
};

enum class StoreMode {
  kLeave,  // every key, and the values into the working values (form switch, leaving the page)
  kOk,     // the keys "确定" writes, working values untouched
};

class CDyssForm : public ui::Dialog {
 public:
  // on_line_chosen: the designer chose another line (the page empties its result).
  CDyssForm(FormDefinition def, DyssState& state, FormWorking working, std::function<void()> on_line_chosen);

  bool OnInitDialog() override;
  void DoDataExchange(ui::DataExchange& dx) override;

  // Reads the form's controls, then sets its keys in the parameter tree (and, leaving, copies
  // the values into the working values).
  void Store(const PageTexts& page, StoreMode mode);
  // Takes the working values: the line and its index positions, cosφ, and each field's working
  // value written with "%.3f"; then refreshes the controls. *require gets the working required loss.
  void Load(std::string* require);

  FormTexts& texts() { return m_texts; }
  const FormTexts& texts() const { return m_texts; }
  LineData* line() { return line_ ? &*line_ : nullptr; }
  const LineData* line() const { return line_ ? &*line_ : nullptr; }
  // R′, X′, U as read from the catalogue (empty for a form without a line).
  std::array<std::string, 3> LineValues() const;
  // The cosφ edit as shown.
  std::string CosText() const;
  // What the page (with its line-kind and load-situation lists) shows around this form.
  ShownInputs Shown(const ui::Dialog& page, int kind_list, int case_list) const;

 private:
  std::string Key(const ParamKey& k) const { return def_.prefix + k.name; }

  FormDefinition def_;
  DyssState& state_;
  FormWorking working_;
  std::optional<LineData> line_;
  FormTexts m_texts;
  int m_nLineSel = -1;
};

}  // namespace kestra::dyss

#pragma once
// The calculator's files and its parameter file "Kestra\电压损失计算.idp": every key of both
// pages with its default, whether initialisation reads it, whether "确定" writes it, and what
// it holds, as tables the dialogs iterate.
#include <span>
#include <string>

#include "dyss/dyss_formulas.h"

namespace kestra::dyss {

inline constexpr const char* kParamFile = "Kestra\\电压损失计算.idp";
inline constexpr const char* kLineCatalogue = "datcom\\DyssCal.Mdb";
inline constexpr const char* kTableFile = "datcom\\tabdata.idp";
inline constexpr const char* kCoefficientTable = "jsxsc";  // C for cosφ = 1

// What a stored value stands for. Positions and check states are stored as decimal text, cosφ
// as "%.3f", every other value as the text its control holds.
enum class Role {
  kActivePage,    // the sheet's active page
  kListPosition,  // selection of the list `control`
  kLineName,      // position in the form's line-name list
  kIndex,         // position in the form's index list `index` (0..2), when that list exists
  kLineData,      // the text of the form's line-data label
  kPowerFactor,   // the form's cosφ (a working value)
  kFieldText,     // the text of the field `field` in the edit (or section box) `control`
  kRequire,       // the required voltage loss of the line-length page (edit `control`)
  kResult,        // the page's result text (edit `control`)
  kCheck,         // state of the check box `control`
  kControlText,   // the text of `control`
};

struct ParamKey {
  std::string name;          // the key path; for form keys the part after the form's prefix
  std::string default_text;  // what a missing or empty key reads as
  bool read = true;          // false: written only
  bool on_ok = true;         // written by "确定" (on the active page's form)
  Role role = Role::kFieldText;
  int control = 0;
  FieldRef field{Field::kCurrent};
  int index = 0;
};

// "Cal\DyssCal\当前页".
const ParamKey& ActivePageKey();
// Page keys under "Cal\DyssCal\Page1\" and "Cal\DyssCal\Page2\" (full paths).
std::span<const ParamKey> LossPageKeys();
std::span<const ParamKey> LengthPageKeys();

// The keys of each form, in the order a form is stored, after the form's prefix; empty for a
// form that does not exist. The required loss of the line-length forms ("输入参数\要求") is read
// by the page for the form of the stored load situation, not by the form.
std::span<const ParamKey> LossFormKeys(int form);    // forms 0..4
std::span<const ParamKey> LengthFormKeys(int form);  // forms 0..1
// "Cal\DyssCal\Page1\Input1\" for form 0 … "Input5\" for form 4; "Cal\DyssCal\Page2\Input1\",
// "Input2\" for the line-length forms.
std::string LossFormPrefix(int form);
std::string LengthFormPrefix(int form);

// The harmonic settings of the line-length page, read and written in the file directly (full paths).
std::span<const ParamKey> HarmonicKeys();

}  // namespace kestra::dyss

#pragma once
// Template and control ids of the generator-capacity dialog (res/diesel.rc).

namespace kestra::diesel {

enum : int {
  kIddMain = 200,   // ZoUiCyfdjzrlCalDlg
  kIddWdfh = 201,   // steady-load page
  kIddJffh = 202,   // peak-load page
  kIddMxyxyj = 203, // bus-voltage-drop page

  kIdcReport = 213,     // "计算书"
  kIdcCalculate = 214,  // "计算"
  kIdcTab = 215,

  // Page edits; what each holds differs per page (see the pages).
  kIdcEdit216 = 216,
  kIdcEdit217 = 217,
  kIdcEdit218 = 218,
  kIdcEdit219 = 219,
  kIdcEdit220 = 220,
  kIdcEdit221 = 221,

  // Subscript labels that take the small subscript font.
  kIdcSubscript225 = 225,
  kIdcSubscript229 = 229,
  kIdcSubscript231 = 231,
};

}  // namespace kestra::diesel

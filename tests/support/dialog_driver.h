#pragma once
// Controls named as a designer names them, for the dialog tests: by id on the shown page, or by
// caption or label. A missing control throws, which fails the test with the name asked for.
#include <initializer_list>
#include <stdexcept>
#include <string>
#include <vector>

#include "ui/actions.h"

namespace kestra::testing {

inline ui::Control& Ctl(ui::Dialog& d, int id) {
  ui::Control* c = ui::FindControl(d, id);
  return c ? *c : throw std::runtime_error("no control " + std::to_string(id));
}
inline ui::Control& Labelled(ui::Dialog& d, const std::string& label) {
  ui::Control* c = ui::FindControlByLabel(d, label);
  return c ? *c : throw std::runtime_error("no control " + label);
}
inline std::string Text(ui::Dialog& d, int id) { return Ctl(d, id).GetWindowText(); }
inline std::vector<std::string> Texts(ui::Dialog& d, std::initializer_list<int> ids) {
  std::vector<std::string> out;
  for (int id : ids) out.push_back(Text(d, id));
  return out;
}
inline void Type(ui::Dialog& d, int id, const std::string& text) { ui::act::SetText(Ctl(d, id), text); }
inline void Press(ui::Dialog& d, const std::string& caption) { ui::act::Click(Labelled(d, caption)); }

}  // namespace kestra::testing

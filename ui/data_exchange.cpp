#include "ui/data_exchange.h"

#include <cstdlib>

#include "services/text/number_text.h"
#include "ui/dialog.h"

namespace ui {
namespace {

std::size_t SkipSpaces(const std::string& s, std::size_t i) {
  while (i < s.size() && (s[i] == ' ' || s[i] == '\t')) ++i;
  return i;
}

}  // namespace

// The framework's reading: blanks, a number, blanks, nothing else. A result of 0 counts
// only when the text starts with the digit 0, so "", ".0" and "-0" are refused as well.
bool ParseWholeReal(const std::string& text, double* out) {
  std::size_t i = SkipSpaces(text, 0);
  char first = i < text.size() ? text[i] : '\0';
  std::size_t used = 0;
  double d = kestra::text::WcsToD(std::string_view(text).substr(i), &used);
  if (d == 0.0 && first != '0') return false;
  i = SkipSpaces(text, i + used);
  if (i != text.size()) return false;
  *out = d;
  return true;
}

bool ParseWholeInt(const std::string& text, int* out) {
  std::size_t i = SkipSpaces(text, 0);
  char first = i < text.size() ? text[i] : '\0';
  std::string rest = text.substr(i);
  char* end = nullptr;
  long v = std::strtol(rest.c_str(), &end, 10);
  if (v == 0 && first != '0') return false;
  std::size_t j = SkipSpaces(rest, static_cast<std::size_t>(end - rest.c_str()));
  if (j != rest.size()) return false;
  *out = static_cast<int>(v);
  return true;
}

void DataExchange::Fail(const char* message, int /*id*/) {
  failed_ = true;
  ui::MessageBox(message, {}, MB_OK | MB_ICONWARNING);
}

void DataExchange::Text(int id, std::string& value) {
  if (Skip()) return;
  Control* c = dlg_.GetDlgItem(id);
  if (!c) return;
  if (save_) value = c->GetWindowText();
  else c->SetWindowText(value);
}

void DataExchange::Real(int id, double& value) {
  if (Skip()) return;
  Control* c = dlg_.GetDlgItem(id);
  if (!c) return;
  if (!save_) {
    c->SetWindowText(kestra::text::FormatDouble("%.15g", value));
    return;
  }
  double d = 0;
  if (!ParseWholeReal(c->GetWindowText(), &d)) {
    Fail(kRefuseReal, id);
    return;
  }
  value = d;
}

void DataExchange::Int(int id, int& value) {
  if (Skip()) return;
  Control* c = dlg_.GetDlgItem(id);
  if (!c) return;
  if (!save_) {
    c->SetWindowText(kestra::text::FormatD(value));
    return;
  }
  int v = 0;
  if (!ParseWholeInt(c->GetWindowText(), &v)) {
    Fail(kRefuseInt, id);
    return;
  }
  value = v;
}

void DataExchange::ComboIndex(int id, int& value) {
  if (Skip()) return;
  Control* c = dlg_.GetDlgItem(id);
  if (!c) return;
  if (save_) value = c->GetCurSel();
  else c->SetCurSel(value);
}

void DataExchange::Check(int id, int& value) {
  if (Skip()) return;
  Control* c = dlg_.GetDlgItem(id);
  if (!c) return;
  if (save_) value = c->GetCheck();
  else c->SetCheck(value);
}

void DataExchange::Radio(int first_id, int& value) {
  if (Skip()) return;
  const auto& controls = dlg_.controls();
  std::size_t start = controls.size();
  for (std::size_t i = 0; i < controls.size(); ++i)
    if (controls[i]->id() == first_id) start = i;
  if (start == controls.size()) return;
  if (save_) value = -1;
  int index = 0;
  for (std::size_t i = start; i < controls.size(); ++i) {
    Control& c = *controls[i];
    if (i != start && c.group_start()) break;
    if (c.kind() != Kind::Radio) continue;
    if (save_) {
      if (c.GetCheck()) value = index;
    } else {
      c.SetCheck(index == value ? 1 : 0);
    }
    ++index;
  }
}

}  // namespace ui

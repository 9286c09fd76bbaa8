#include "ui/data_exchange.h"

#include <climits>

#include "services/text/number_text.h"
#include "ui/dialog.h"

namespace ui {

// The framework's reading: blanks, a number, blanks, nothing else (blanks as the number
// conversions skip them). A result of 0 counts only when the text starts with the digit 0, so
// "", ".0" and "-0" are refused as well, and so is a number beyond the range of a double,
// which reads as no number.
bool ParseWholeReal(const std::string& text, double* out) {
  using kestra::text::BlanksAt;
  std::size_t i = BlanksAt(text);
  char first = i < text.size() ? text[i] : '\0';
  std::size_t used = 0;
  double d = kestra::text::WcsToD(std::string_view(text).substr(i), &used);
  if (d == 0.0 && first != '0') return false;
  i += used;
  if (i + BlanksAt(text, i) != text.size()) return false;
  *out = d;
  return true;
}

// An integer beyond the range of int is refused rather than cut to some other number.
bool ParseWholeInt(const std::string& text, int* out) {
  using kestra::text::BlanksAt;
  std::size_t i = BlanksAt(text);
  std::size_t j = i;
  if (j < text.size() && (text[j] == '+' || text[j] == '-')) ++j;
  const std::size_t digits_from = j;
  while (j < text.size() && text[j] >= '0' && text[j] <= '9') ++j;
  if (j == digits_from || j + BlanksAt(text, j) != text.size()) return false;
  long long v = 0;
  for (std::size_t k = digits_from; k < j; ++k) {
    v = v * 10 + (text[k] - '0');
    if (v > static_cast<long long>(INT_MAX) + 1) return false;
  }
  if (text[i] == '-') v = -v;
  if (v > INT_MAX || (v == 0 && text[i] != '0')) return false;
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

#include "dyss/dyss_power_factor.h"

#include <string>

#include "dyss/dyss_formulas.h"
#include "dyss/dyss_messages.h"
#include "services/text/number_text.h"
#include "ui/dialog.h"

namespace kestra::dyss {
namespace {

// As the framework's exchange shows a double.
void ShowPowerFactor(ui::Dialog& form, int cos_edit, double cos_phi) {
  form.SetDlgItemText(cos_edit, text::FormatDouble("%.15g", cos_phi));
}

bool DigitsAndPoints(const std::string& s) {
  for (char c : s)
    if ((c < '0' || c > '9') && c != '.') return false;
  return true;
}

}  // namespace

void StepPowerFactor(ui::Dialog& form, int cos_edit, double& cos_phi, int delta) {
  const std::string typed = form.GetDlgItemText(cos_edit);
  if (typed.empty() || !DigitsAndPoints(typed)) {
    cos_phi = 0;
    ShowPowerFactor(form, cos_edit, cos_phi);
  }
  form.UpdateData(true);
  if (cos_phi < 0 || cos_phi > 1) {
    form.MessageBox(kMsgSpinRange, kDyssTitle, ui::MB_OK);
    cos_phi = 0;
  }
  cos_phi = SpinPowerFactor(cos_phi, delta);
  ShowPowerFactor(form, cos_edit, cos_phi);
}

}  // namespace kestra::dyss

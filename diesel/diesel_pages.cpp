#include "diesel/diesel_pages.h"

#include <initializer_list>
#include <span>
#include <utility>

#include "diesel/diesel_ids.h"
#include "services/text/format.h"
#include "services/text/number_text.h"

namespace kestra::diesel {
namespace {

// White pages on the tab control, so the labels stand on the same white as the group boxes.
constexpr unsigned kWhite = 0xFFFFFF;

// The subscript labels' font: the font of the page's first subscript label a little smaller
// (its logical height raised by 2, i.e. towards zero), with the Chinese character set and the
// pitch-and-family byte the labels were drawn with.
ui::Font SubscriptFont(const ui::Dialog& page, int model_id) {
  const ui::Control* model = page.GetDlgItem(model_id);
  ui::Font f = model && model->font() ? *model->font() : page.GetFont();
  f.height += 2;
  f.charset = 136;
  f.pitch_family = 0x36;
  return f;
}

// What every page does after the base initialisation: its initial texts, its white
// background and the subscript font on its subscript labels.
void PreparePage(ui::Dialog& page, std::initializer_list<std::pair<int, const char*>> initial_texts,
                 std::span<const int> subscripts) {
  for (const auto& [id, text] : initial_texts) page.SetDlgItemText(id, text);
  page.SetBackground(kWhite);
  const ui::Font sub = SubscriptFont(page, subscripts.front());
  for (int id : subscripts)
    if (ui::Control* c = page.GetDlgItem(id)) c->SetFont(sub);
}

double ReadNumber(const ui::Dialog& page, int id) { return text::WToF(page.GetDlgItemText(id)); }

void ShowCapacity(ui::Dialog& page, int id, double kva) { page.SetDlgItemText(id, text::Format("%.3f", kva)); }

}  // namespace

// Steady load.

ZoUiWdfhCalDlg::ZoUiWdfhCalDlg(ui::Dialog* parent) : ZoUiDialog(ids::kSteadyLoadPage, parent) {}

bool ZoUiWdfhCalDlg::OnInitDialog() {
  using namespace steady_ids;
  ZoUiDialog::OnInitDialog();
  PreparePage(*this, {{kPSum, ""}, {kEtaSum, "0.85"}, {kCosPhi, "0.8"}}, kSubscripts);
  return true;
}

void ZoUiWdfhCalDlg::DoCalculate() {
  using namespace steady_ids;
  inputs_ = {ReadNumber(*this, kPSum), ReadNumber(*this, kEtaSum), ReadNumber(*this, kCosPhi)};
  ShowCapacity(*this, kSg1, SteadyLoadCapacity(inputs_));
}

// Peak load.

ZoUiJffhCalDlg::ZoUiJffhCalDlg(ui::Dialog* parent) : ZoUiDialog(ids::kPeakLoadPage, parent) {}

bool ZoUiJffhCalDlg::OnInitDialog() {
  using namespace peak_ids;
  ZoUiDialog::OnInitDialog();
  PreparePage(*this, {{kKj, "0.9"}, {kKg, "1.5"}, {kSm, ""}, {kPm, ""}, {kQm, ""}}, kSubscripts);
  return true;
}

void ZoUiJffhCalDlg::DoCalculate() {
  using namespace peak_ids;
  const std::string sm_text = GetDlgItemText(kSm);
  const std::string pm_text = GetDlgItemText(kPm);
  const std::string qm_text = GetDlgItemText(kQm);
  inputs_ = {ReadNumber(*this, kKj), ReadNumber(*this, kKg), text::WToF(sm_text), text::WToF(pm_text),
             text::WToF(qm_text)};
  // Only a truly empty Sm means "not given": a text of blanks counts as given (and is 0).
  if (!sm_text.empty()) {
    ShowCapacity(*this, kSg2, PeakLoadCapacity(inputs_));
    return;
  }
  if (!(pm_text.empty() && qm_text.empty()))
    SetDlgItemText(kSm, text::Format("%.2f", StartingCapacityFromPQ(inputs_)));
  ShowCapacity(*this, kSg2, PeakLoadCapacityFromPQ(inputs_));
}

// Permitted bus voltage drop.

ZoUiMxyxyjCalDlg::ZoUiMxyxyjCalDlg(ui::Dialog* parent) : ZoUiDialog(ids::kBusDropPage, parent) {}

bool ZoUiMxyxyjCalDlg::OnInitDialog() {
  using namespace bus_drop_ids;
  ZoUiDialog::OnInitDialog();
  PreparePage(*this, {{kDeltaU, "0.2"}, {kXd, "0.2"}, {kSst, ""}}, kSubscripts);
  return true;
}

void ZoUiMxyxyjCalDlg::DoCalculate() {
  using namespace bus_drop_ids;
  inputs_ = {ReadNumber(*this, kDeltaU), ReadNumber(*this, kXd), ReadNumber(*this, kSst)};
  ShowCapacity(*this, kSg3, BusDropCapacity(inputs_));
}

}  // namespace kestra::diesel

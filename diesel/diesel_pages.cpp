#include "diesel/diesel_pages.h"

#include <cmath>
#include <initializer_list>
#include <utility>

#include "diesel/diesel_ids.h"
#include "services/text/number_text.h"

using namespace kestra::diesel;

namespace {

// White pages on the tab control, so the labels stand on the same white as the group boxes.
constexpr unsigned kWhite = 0xFFFFFF;

// The subscript labels' font: the font of label 225 a little smaller (its logical height
// raised by 2, i.e. towards zero), with the Chinese character set and the pitch-and-family
// byte the labels were drawn with.
ui::Font SubscriptFont(const ui::Dialog& page) {
  const ui::Control* model = page.GetDlgItem(kIdcSubscript225);
  ui::Font f = model && model->font() ? *model->font() : page.GetFont();
  f.height += 2;
  f.charset = 136;
  f.pitch_family = 0x36;
  return f;
}

// What every page does after the base initialisation: its initial texts, its white
// background and the subscript font on the subscript labels it has.
void PreparePage(ui::Dialog& page, std::initializer_list<std::pair<int, const char*>> initial_texts) {
  for (const auto& [id, text] : initial_texts) page.SetDlgItemText(id, text);
  page.SetBackground(kWhite);
  const ui::Font sub = SubscriptFont(page);
  for (int id : {kIdcSubscript225, kIdcSubscript229, kIdcSubscript231})
    if (ui::Control* c = page.GetDlgItem(id)) c->SetFont(sub);
}

double ReadNumber(const ui::Dialog& page, int id) { return kestra::text::WToF(page.GetDlgItemText(id)); }

}  // namespace

// Steady load.

ZoUiWdfhCalDlg::ZoUiWdfhCalDlg(ui::Dialog* parent) : ZoUiDialog(kIddWdfh, parent) {}

bool ZoUiWdfhCalDlg::OnInitDialog() {
  ZoUiDialog::OnInitDialog();
  PreparePage(*this, {{kIdcEdit216, ""}, {kIdcEdit217, "0.85"}, {kIdcEdit218, "0.8"}});
  return true;
}

void ZoUiWdfhCalDlg::DoCalculate() {
  const double p_sum = ReadNumber(*this, kIdcEdit216);
  const double eta_sum = ReadNumber(*this, kIdcEdit217);
  const double cos_phi = ReadNumber(*this, kIdcEdit218);
  m_cal.SetParams(p_sum, eta_sum, cos_phi);
  SetDlgItemText(kIdcEdit219, kestra::text::Format3f(m_cal.Calculate()));
}

// Peak load.

ZoUiJffhCalDlg::ZoUiJffhCalDlg(ui::Dialog* parent) : ZoUiDialog(kIddJffh, parent) {}

bool ZoUiJffhCalDlg::OnInitDialog() {
  ZoUiDialog::OnInitDialog();
  PreparePage(*this, {{kIdcEdit216, "0.9"}, {kIdcEdit217, "1.5"}, {kIdcEdit218, ""}, {kIdcEdit219, ""},
                      {kIdcEdit220, ""}});
  return true;
}

void ZoUiJffhCalDlg::DoCalculate() {
  const std::string sm_text = GetDlgItemText(kIdcEdit218);
  const std::string pm_text = GetDlgItemText(kIdcEdit219);
  const std::string qm_text = GetDlgItemText(kIdcEdit220);
  const double kj = ReadNumber(*this, kIdcEdit216);
  const double kg = ReadNumber(*this, kIdcEdit217);
  const double sm = kestra::text::WToF(sm_text);
  const double pm = kestra::text::WToF(pm_text);
  const double qm = kestra::text::WToF(qm_text);
  m_cal.SetParams(kj, kg, sm, pm, qm);

  double sg2 = 0.0;
  // Only a truly empty Sm means "not given": a text of blanks counts as given (and is 0).
  if (!sm_text.empty()) {
    sg2 = m_cal.Calculate();
  } else {
    sg2 = m_cal.CalculateFromPQ();
    if (!(pm_text.empty() && qm_text.empty()))
      SetDlgItemText(kIdcEdit218, kestra::text::Format2f(std::sqrt(pm * pm + qm * qm)));
  }
  SetDlgItemText(kIdcEdit221, kestra::text::Format3f(sg2));
}

// Permitted bus voltage drop.

ZoUiMxyxyjCalDlg::ZoUiMxyxyjCalDlg(ui::Dialog* parent) : ZoUiDialog(kIddMxyxyj, parent) {}

bool ZoUiMxyxyjCalDlg::OnInitDialog() {
  ZoUiDialog::OnInitDialog();
  PreparePage(*this, {{kIdcEdit217, "0.2"}, {kIdcEdit218, "0.2"}, {kIdcEdit219, ""}});
  return true;
}

void ZoUiMxyxyjCalDlg::DoCalculate() {
  const double delta_u = ReadNumber(*this, kIdcEdit217);
  const double xd = ReadNumber(*this, kIdcEdit218);
  const double sst = ReadNumber(*this, kIdcEdit219);
  m_cal.SetParams(delta_u, xd, sst);
  SetDlgItemText(kIdcEdit216, kestra::text::Format3f(m_cal.Calculate()));
}

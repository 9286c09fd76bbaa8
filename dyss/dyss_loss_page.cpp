#include "dyss/dyss_loss_page.h"

#include "dyss/dyss_checks.h"
#include "dyss/dyss_choices.h"
#include "dyss/dyss_ids.h"
#include "dyss/dyss_query_dialog.h"
#include "services/idp/idp_values.h"
#include "services/idp/inter_dp_data.h"
#include "services/text/number_checks.h"
#include "services/text/number_text.h"
#include "shell/module_context.h"
#include "ui/data_exchange.h"

namespace kestra::dyss {
namespace {

FormDefinition LossDefinition(int form) {
  FormDefinition s;
  const auto f = static_cast<std::size_t>(form);
  s.template_id = kLossFormTemplates[f];
  s.keys = LossFormKeys(form);
  s.prefix = LossFormPrefix(form);
  if (form < 4) {
    s.line = kLossLineForms[f];
    s.cos_edit = kLossCosEdits[f];
    s.cos_spin = kLossCosSpins[f];
  }
  return s;
}

// The five forms hand over the line, cosφ, and the currents, lengths and loads load by load.
FormWorking LossWorking(DyssState& state) {
  LossWorkingValues& w = state.loss;
  return {&w.line, &w.cos_phi, [&w](FieldRef f) -> double* {
            const auto k = static_cast<std::size_t>(f.element);
            if (k >= 6) return nullptr;
            switch (f.field) {
              case Field::kCurrent: return &w.current[k];
              case Field::kLength: return &w.length[k];
              case Field::kLoad: return &w.load[k];
              default: return nullptr;
            }
          }};
}

int ReadPosition(const DyssState& state, const ParamKey& key) {
  return text::WToI(state.idp ? idp::ValueOr(*state.idp, key.name, key.default_text) : key.default_text);
}

}  // namespace

CDyssPage1Input1::CDyssPage1Input1(DyssState& state, std::function<void()> on_line_chosen)
    : CDyssForm(LossDefinition(0), state, LossWorking(state), std::move(on_line_chosen)) {}
CDyssPage1Input2::CDyssPage1Input2(DyssState& state, std::function<void()> on_line_chosen)
    : CDyssForm(LossDefinition(1), state, LossWorking(state), std::move(on_line_chosen)) {}
CDyssPage1Input3::CDyssPage1Input3(DyssState& state, std::function<void()> on_line_chosen)
    : CDyssForm(LossDefinition(2), state, LossWorking(state), std::move(on_line_chosen)) {}
CDyssPage1Input4::CDyssPage1Input4(DyssState& state, std::function<void()> on_line_chosen)
    : CDyssForm(LossDefinition(3), state, LossWorking(state), std::move(on_line_chosen)) {}

CDyssPage1Input5::CDyssPage1Input5(DyssState& state)
    : CDyssForm(LossDefinition(4), state, LossWorking(state), nullptr), state_(state) {
  On(IDC_DYSS_F4_C_PICK, ui::Notify::Clicked, [this] { OnPickCoefficient(); });
}

void CDyssPage1Input5::EnableOtherLoads(bool enable) {
  for (std::size_t k = 1; k < 6; ++k) {
    if (ui::Control* p = GetDlgItem(kF4Loads[k])) p->EnableWindow(enable);
    if (ui::Control* l = GetDlgItem(kF4Lengths[k])) l->EnableWindow(enable);
  }
}

void CDyssPage1Input5::OnPickCoefficient() {
  // What was typed so far stays: the controls are read before they are refreshed below.
  UpdateData(true);
  std::string picked;
  {
    shell::ModuleScope scope(state_.module);
    CDyssQueryDlg dlg(state_.module.DataFile(kTableFile));
    if (dlg.DoModal() != ui::IDOK) return;
    picked = dlg.picked();
  }
  // Only a coefficient is taken: a picked name or heading, or no pick, keeps C as it was.
  if (!text::IsPositive(picked)) return;
  texts().coefficient = picked;
  UpdateData(false);
}

CDyssPage1::CDyssPage1(DyssState& state)
    : ui::PropertyPage(IDD_DYSS_LOSS_PAGE, "计算电压损失百分比"),
      state_(state),
      m_form0(state, [this] { EmptyResult(); }),
      m_form1(state, [this] { EmptyResult(); }),
      m_form2(state, [this] { EmptyResult(); }),
      m_form3(state, [this] { EmptyResult(); }),
      m_form4(state),
      forms_{&m_form0, &m_form1, &m_form2, &m_form3, &m_form4} {
  On(IDC_DYSS_KIND, ui::Notify::SelChange, [this] { OnKindChange(); });
  On(IDC_DYSS_CASE, ui::Notify::SelChange, [this] { OnCaseChange(); });
}

CDyssForm& CDyssPage1::Form(int index) const {
  return *forms_[index >= 0 && index < 5 ? static_cast<std::size_t>(index) : 0];
}

void CDyssPage1::DoDataExchange(ui::DataExchange& dx) { dx.Text(IDC_DYSS_RESULT, m_strResult); }

int CDyssPage1::Kind() const {
  const ui::Control* c = GetDlgItem(IDC_DYSS_KIND);
  return c ? c->GetCurSel() : -1;
}

int CDyssPage1::Item() const {
  const ui::Control* c = GetDlgItem(IDC_DYSS_CASE);
  return c ? c->GetCurSel() : -1;
}

int CDyssPage1::ChosenForm() const { return FormOf(Kind(), Item()).value_or(m_nCurForm < 0 ? 0 : m_nCurForm); }

void CDyssPage1::FillLoadCases(int kind) {
  const std::span<const LoadCase> cases = LoadCasesOf(kind);
  ui::Control* list = GetDlgItem(IDC_DYSS_CASE);
  if (cases.empty() || !list) return;  // a kind outside the list leaves it as it is
  list->ResetContent();
  for (const LoadCase& c : cases) list->AddString(c.text);
}

void CDyssPage1::ApplyEnableRule(int kind, int item) {
  if (const std::optional<bool> on = OtherLoadsEnabled(kind, item)) m_form4.EnableOtherLoads(*on);
}

bool CDyssPage1::OnInitDialog() {
  ui::PropertyPage::OnInitDialog();
  frame_.Create(*this, IDC_DYSS_FORM_FRAME, {forms_.begin(), forms_.end()});
  const std::span<const ParamKey> keys = LossPageKeys();
  const int kind = ReadPosition(state_, keys[0]);
  if (ui::Control* list = GetDlgItem(IDC_DYSS_KIND)) list->SetCurSel(kind);
  FillLoadCases(kind);
  if (ui::Control* list = GetDlgItem(IDC_DYSS_CASE)) list->SetCurSel(ReadPosition(state_, keys[1]));
  // A stored kind or item that chooses no form shows form 0.
  m_nCurForm = ChosenForm();
  frame_.Show(m_nCurForm);
  ApplyEnableRule(Kind(), Item());
  return true;
}

void CDyssPage1::OnKindChange() {
  FillLoadCases(Kind());
  if (ui::Control* list = GetDlgItem(IDC_DYSS_CASE)) list->SetCurSel(0);
  OnCaseChange();
}

void CDyssPage1::OnCaseChange() {
  ApplyEnableRule(Kind(), Item());
  const int next = ChosenForm();
  if (next != m_nCurForm) frame_.Show(next);
  // The form is stored and loaded even when it stays: its numbers come back as "%.3f" texts.
  Form(m_nCurForm).Store({{}, m_strResult}, StoreMode::kLeave);
  Form(next).Load(nullptr);
  m_nCurForm = next;
  EmptyResult();
}

// The result edit is emptied, and so is the text stored with a form, so that no form keeps a
// result the designer no longer sees.
void CDyssPage1::EmptyResult() {
  m_strResult.clear();
  SetDlgItemText(IDC_DYSS_RESULT, "");
}

void CDyssPage1::StorePositions() {
  if (!state_.idp) return;
  const std::span<const ParamKey> keys = LossPageKeys();
  idp::SetValue(*state_.idp, keys[0].name, text::FormatD(Kind()));
  idp::SetValue(*state_.idp, keys[1].name, text::FormatD(Item()));
}

bool CDyssPage1::OnKillActive() {
  StorePositions();
  Form(ChosenForm()).Store({{}, m_strResult}, StoreMode::kLeave);
  ui::PropertyPage::OnKillActive();
  return true;
}

void CDyssPage1::StoreForOk() {
  UpdateData(true);
  StorePositions();
  Form(ChosenForm()).Store({{}, m_strResult}, StoreMode::kOk);
}

bool CDyssPage1::Calculate() {
  UpdateData(true);
  m_strResult.clear();
  const int kind = Kind();
  CDyssForm& form = Form(ChosenForm());
  // A cosφ that is not a number is refused by the exchange; the calculation goes on with the
  // values the form held before.
  form.UpdateData(true);
  const FormTexts& t = form.texts();
  LossInputs in;
  in.kind = kind;
  in.form = ChosenForm();
  in.cos_phi = t.cos_phi;
  in.current = t.current;
  in.length = t.length;
  in.load = t.load;
  in.section = t.section;
  in.coefficient = t.coefficient;
  in.line = form.LineValues();
  if (const std::optional<Refusal> refusal = FirstRefusal(in)) {
    MessageBox(refusal->message, {}, ui::MB_OK);
    return false;
  }
  last_inputs_ = in;
  last_result_ = ComputeLoss(in);
  m_strResult = ResultText(last_result_.outcome, last_result_.du);
  UpdateData(false);
  return true;
}

LossReportData CDyssPage1::ReportData() const {
  return {Form(last_inputs_.form).Shown(*this, IDC_DYSS_KIND, IDC_DYSS_CASE), last_inputs_, last_result_, m_strResult};
}

}  // namespace kestra::dyss

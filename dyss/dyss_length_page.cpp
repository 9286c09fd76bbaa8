#include "dyss/dyss_length_page.h"

#include "dyss/dyss_checks.h"
#include "dyss/dyss_ids.h"
#include "dyss/dyss_messages.h"
#include "services/idp/idp_values.h"
#include "services/idp/inter_dp_data.h"
#include "services/text/number_text.h"
#include "ui/data_exchange.h"

namespace kestra::dyss {
namespace {

FormDefinition LengthDefinition(int form) {
  FormDefinition s;
  const auto f = static_cast<std::size_t>(form);
  s.template_id = kLengthFormTemplates[f];
  s.keys = LengthFormKeys(form);
  s.prefix = LengthFormPrefix(form);
  s.line = kLengthLineForms[f];
  s.cos_edit = kLengthCosEdits[f];
  s.cos_spin = kLengthCosSpins[f];
  s.length_to_working_at_start = form == 0;
  return s;
}

FormWorking LengthWorking(DyssState& state) {
  LengthWorkingValues& w = state.length;
  return {&w.line, &w.cos_phi,
          [&w](FieldRef f) -> double* {
            if (f.element != 0) return nullptr;
            switch (f.field) {
              case Field::kCurrent: return &w.current;
              case Field::kLoad: return &w.load;
              case Field::kLength: return &w.length;
              default: return nullptr;
            }
          },
          &w.require};
}

// The edits the section selection switches (K is never switched).
constexpr int kSectionControls[] = {IDC_DYSS_HARM_LIST, IDC_DYSS_I_PRIME, IDC_DYSS_RATED, IDC_DYSS_L_PRIME};

}  // namespace

CDyssPage2Input1::CDyssPage2Input1(DyssState& state, std::function<void()> on_line_chosen)
    : CDyssForm(LengthDefinition(0), state, LengthWorking(state), std::move(on_line_chosen)) {}
CDyssPage2Input2::CDyssPage2Input2(DyssState& state, std::function<void()> on_line_chosen)
    : CDyssForm(LengthDefinition(1), state, LengthWorking(state), std::move(on_line_chosen)) {}

CDyssPage2::CDyssPage2(DyssState& state)
    : ui::PropertyPage(IDD_DYSS_LENGTH_PAGE, "计算线路长度"),
      state_(state),
      m_form0(state, [this] { EmptyResult(); }),
      m_form1(state, [this] { EmptyResult(); }),
      forms_{&m_form0, &m_form1} {
  On(IDC_DYSS_LEN_KIND, ui::Notify::SelChange, [this] { EnableSectionControls(Kind()); });
  On(IDC_DYSS_HARM_CHECK, ui::Notify::Clicked, [this] { EnableSectionControls(Kind()); });
  On(IDC_DYSS_LEN_CASE, ui::Notify::SelChange, [this] { OnCaseChange(); });
  On(IDC_DYSS_HARM_LIST, ui::Notify::SelChange, [this] { UpdateHarmonicCurrent(); });
  On(IDC_DYSS_I_PRIME, ui::Notify::KillFocus, [this] { OnSectionCurrentLeft(); });
  On(IDC_DYSS_RATED, ui::Notify::KillFocus, [this] { OnRatedLeft(); });
  m_form0.On(IDC_DYSS_LF0_I, ui::Notify::KillFocus, [this] { OnCurrentLeft(); });
}

CDyssForm& CDyssPage2::Form(int index) const { return *forms_[index == 1 ? 1 : 0]; }

void CDyssPage2::DoDataExchange(ui::DataExchange& dx) {
  dx.Text(IDC_DYSS_REQUIRE, m_strRequire);
  dx.Text(IDC_DYSS_LEN_RESULT, m_strResult);
  dx.Check(IDC_DYSS_HARM_CHECK, m_bSection);
}

int CDyssPage2::Kind() const {
  const ui::Control* c = GetDlgItem(IDC_DYSS_LEN_KIND);
  return c ? c->GetCurSel() : -1;
}

int CDyssPage2::Situation() const {
  const ui::Control* c = GetDlgItem(IDC_DYSS_LEN_CASE);
  return c ? c->GetCurSel() : -1;
}

// The form of the load situation; with none chosen, the form shown.
int CDyssPage2::ShownForm() const {
  const int n = Situation();
  return n == 0 || n == 1 ? n : m_nCurForm;
}

bool CDyssPage2::OnInitDialog() {
  ui::PropertyPage::OnInitDialog();
  SetDlgItemText(IDC_DYSS_L_PRIME, "");
  frame_.Create(*this, IDC_DYSS_LEN_FORM_FRAME, {forms_.begin(), forms_.end()});
  if (const CInterDpData* tree = state_.idp) {
    const std::span<const ParamKey> keys = LengthPageKeys();
    if (ui::Control* list = GetDlgItem(IDC_DYSS_LEN_KIND))
      list->SetCurSel(text::WToI(idp::ValueOr(*tree, keys[0].name, keys[0].default_text)));
    const int situation = text::WToI(idp::ValueOr(*tree, keys[1].name, keys[1].default_text));
    if (ui::Control* list = GetDlgItem(IDC_DYSS_LEN_CASE)) list->SetCurSel(situation);
    // A stored situation outside the list selects nothing and shows form 0.
    m_nCurForm = situation == 1 ? 1 : 0;
    for (const ParamKey& k : LengthFormKeys(situation == 0 ? 0 : 1))
      if (k.role == Role::kRequire) m_strRequire = idp::ValueOr(*tree, LengthFormPrefix(situation == 0 ? 0 : 1) + k.name, k.default_text);
  }
  frame_.Show(m_nCurForm);
  UpdateData(false);
  LoadHarmonicSettings();
  EnableSectionControls(Kind());
  return true;
}

void CDyssPage2::LoadHarmonicSettings() {
  CInterDpData tree;
  tree.ReadDataFromIdpFile(state_.idp_path);
  for (const ParamKey& k : HarmonicKeys()) {
    const std::string t = idp::ValueOr(tree, k.name, k.default_text);
    if (k.role == Role::kCheck) {
      m_bSection = text::WToI(t);
    } else if (k.role == Role::kListPosition) {
      if (ui::Control* list = GetDlgItem(k.control)) list->SetCurSel(text::WToI(t));
    } else {
      // A damaged file's text these numeric edits could never hold ("nan", "-inf", letters)
      // would be shown and stored again as it is: the key's default stands in for it.
      const ui::Control* edit = GetDlgItem(k.control);
      SetDlgItemText(k.control, !edit || ui::FilterAccepts(edit->filter(), t) ? t : k.default_text);
    }
  }
  UpdateData(false);
}

void CDyssPage2::SaveHarmonicSettings() {
  if (!IsCreated()) return;
  UpdateData(true);
  CInterDpData tree;
  tree.ReadDataFromIdpFile(state_.idp_path);
  for (const ParamKey& k : HarmonicKeys()) {
    std::string t;
    if (k.role == Role::kCheck) {
      t = text::FormatD(m_bSection);
    } else if (k.role == Role::kListPosition) {
      const ui::Control* list = GetDlgItem(k.control);
      t = text::FormatD(list ? list->GetCurSel() : -1);
    } else {
      t = GetDlgItemText(k.control);
    }
    idp::SetValue(tree, k.name, t);
  }
  tree.WriteDataToIdpFile(state_.idp_path);
}

void CDyssPage2::EnableSectionControls(int kind) {
  UpdateData(true);
  const bool on = kind == kThreePhase && m_bSection == 1;
  for (int id : kSectionControls)
    if (ui::Control* c = GetDlgItem(id)) c->EnableWindow(on);
}

void CDyssPage2::SetHarmonicCurrent(double i) {
  const ui::Control* list = GetDlgItem(IDC_DYSS_HARM_LIST);
  if (const auto h = HarmonicCurrentOf(list ? list->GetCurSel() : -1, i)) SetDlgItemText(IDC_DYSS_I_PRIME, h->i_prime_text);
}

void CDyssPage2::UpdateHarmonicCurrent() {
  const ui::Control* list = GetDlgItem(IDC_DYSS_HARM_LIST);
  const double i = text::WcsToD(m_form0.texts().current[0]);
  if (const auto h = HarmonicCurrentOf(list ? list->GetCurSel() : -1, i)) {
    SetDlgItemText(IDC_DYSS_K, h->k_text);
    SetDlgItemText(IDC_DYSS_I_PRIME, h->i_prime_text);
  }
}

void CDyssPage2::OnCurrentLeft() {
  m_form0.UpdateData(true);
  std::string& text = m_form0.texts().current[0];
  const double i = NormalisedCurrent(text);
  text = text::FormatG(i);
  m_form0.UpdateData(false);
  SetHarmonicCurrent(i);
}

// The page's other controls are not refreshed from its members here: that would undo what was
// typed into them since they were last read.
void CDyssPage2::OnSectionCurrentLeft() {
  SetDlgItemText(IDC_DYSS_I_PRIME, text::FormatG(NormalisedCurrent(GetDlgItemText(IDC_DYSS_I_PRIME))));
}

void CDyssPage2::OnRatedLeft() {
  SetDlgItemText(IDC_DYSS_RATED, text::FormatG(NormalisedRating(GetDlgItemText(IDC_DYSS_RATED))));
}

void CDyssPage2::EmptyResult() {
  m_strResult.clear();
  SetDlgItemText(IDC_DYSS_LEN_RESULT, "");
}

void CDyssPage2::StoreShownForm(StoreMode mode) {
  UpdateData(true);
  Form(ShownForm()).Store({m_strRequire, m_strResult}, mode);
}

void CDyssPage2::OnCaseChange() {
  const int n = Situation();
  if (n != m_nCurForm && (n == 0 || n == 1)) {
    frame_.Show(n);
    if (state_.idp) {
      UpdateData(true);  // the required loss as shown goes with the form
      Form(m_nCurForm).Store({m_strRequire, m_strResult}, StoreMode::kLeave);
      Form(n).Load(&m_strRequire);
    }
    m_nCurForm = n;
  }
  EmptyResult();
}

bool CDyssPage2::OnKillActive() {
  if (CInterDpData* tree = state_.idp) {
    const std::span<const ParamKey> keys = LengthPageKeys();
    idp::SetValue(*tree, keys[0].name, text::FormatD(Kind()));
    idp::SetValue(*tree, keys[1].name, text::FormatD(Situation()));
    StoreShownForm(StoreMode::kLeave);
  }
  SaveHarmonicSettings();
  ui::PropertyPage::OnKillActive();
  return true;
}

void CDyssPage2::StoreForOk() {
  UpdateData(true);
  if (CInterDpData* tree = state_.idp) {
    const std::span<const ParamKey> keys = LengthPageKeys();
    idp::SetValue(*tree, keys[0].name, text::FormatD(Kind()));
    idp::SetValue(*tree, keys[1].name, text::FormatD(Situation()));
    idp::SetValue(*tree, keys[2].name, m_strRequire);
  }
  StoreShownForm(StoreMode::kOk);
}

bool CDyssPage2::Calculate() {
  UpdateData(true);
  const int kind = Kind();
  const int f = ShownForm();
  CDyssForm& form = Form(f);
  form.UpdateData(true);
  LengthInputs in;
  in.kind = kind;
  in.form = f;
  in.current = form.texts().current[0];
  in.load = form.texts().load[0];
  in.cos_phi = form.texts().cos_phi;
  in.require = m_strRequire;
  in.line = form.LineValues();
  // The report prints the inputs as they stand, whether or not they pass.
  last_inputs_ = in;
  last_result_ = ComputeLength(in);
  if (const std::optional<Refusal> refusal = FirstRefusal(in)) {
    // The result keeps the text its edit shows, so "计算书" still reports an earlier length.
    MessageBox(refusal->message, {}, ui::MB_OK);
    return false;
  }
  const LengthResult& r = last_result_;
  m_strResult = ResultText(r.outcome, r.l);
  if (kind == kThreePhase && m_bSection == 1) {
    UpdateHarmonicCurrent();
    const HarmonicLength h =
        ComputeHarmonicLength(r, GetDlgItemText(IDC_DYSS_I_PRIME), GetDlgItemText(IDC_DYSS_RATED));
    if (h.ampacity_short) {
      // The length is the page's result (the report prints it), but nothing more is shown:
      // the result edit and L′ keep their earlier texts.
      MessageBox(kMsgAmpacityShort, kAmpacityCaption, ui::MB_OK);
      return false;
    }
    SetDlgItemText(IDC_DYSS_L_PRIME, ResultText(h.outcome, h.l_prime));
  }
  UpdateData(false);
  return true;
}

LengthReportData CDyssPage2::ReportData() const {
  LengthReportData d{Form(last_inputs_.form).Shown(*this, IDC_DYSS_LEN_KIND, IDC_DYSS_LEN_CASE), last_inputs_,
                     last_result_, m_strResult, std::nullopt};
  if (last_inputs_.kind == kThreePhase && m_bSection == 1)
    d.harmonic = HarmonicShown{GetDlgItemText(IDC_DYSS_HARM_LIST), GetDlgItemText(IDC_DYSS_K),
                               m_form0.texts().current[0], GetDlgItemText(IDC_DYSS_I_PRIME),
                               GetDlgItemText(IDC_DYSS_L_PRIME)};
  return d;
}

}  // namespace kestra::dyss

#include "dyss/dyss_form.h"

#include "dyss/dyss_power_factor.h"
#include "services/idp/idp_values.h"
#include "services/idp/inter_dp_data.h"
#include "services/text/number_text.h"
#include "ui/data_exchange.h"

namespace kestra::dyss {

std::string* FormTexts::At(FieldRef f) {
  const auto k = static_cast<std::size_t>(f.element);
  switch (f.field) {
    case Field::kCurrent: return k < 6 ? &current[k] : nullptr;
    case Field::kLength: return k < 6 ? &length[k] : nullptr;
    case Field::kLoad: return k < 6 ? &load[k] : nullptr;
    case Field::kSection: return &section;
    case Field::kCoefficient: return &coefficient;
    default: return nullptr;
  }
}

CDyssForm::CDyssForm(FormDefinition def, DyssState& state, FormWorking working, std::function<void()> on_line_chosen)
    : ui::Dialog(def.template_id), def_(std::move(def)), state_(state), working_(std::move(working)) {
  if (def_.line) {
    line_.emplace(*this, *def_.line, state_);
    On(def_.line->line_name, ui::Notify::SelChange, [this, chosen = std::move(on_line_chosen)] {
      line_->Choose(m_nLineSel, *working_.line);
      if (chosen) chosen();
    });
  }
  if (def_.cos_spin)
    OnArg(def_.cos_spin, ui::Notify::DeltaPos,
          [this](int delta) { StepPowerFactor(*this, def_.cos_edit, m_texts.cos_phi, delta); });
}

void CDyssForm::DoDataExchange(ui::DataExchange& dx) {
  // cosφ before the loads and lengths: a cosφ that is not a number stops the exchange there.
  if (def_.line) dx.ComboIndex(def_.line->line_name, m_nLineSel);
  if (def_.cos_edit) dx.Real(def_.cos_edit, m_texts.cos_phi);
  for (const ParamKey& k : def_.keys)
    if (std::string* t = k.role == Role::kFieldText ? m_texts.At(k.field) : nullptr) dx.Text(k.control, *t);
}

bool CDyssForm::OnInitDialog() {
  ui::Dialog::OnInitDialog();
  if (line_) line_->FillLineNames();
  if (CInterDpData* tree = state_.idp) {
    for (const ParamKey& k : def_.keys) {
      if (!k.read) continue;
      const std::string t = idp::ValueOr(*tree, Key(k), k.default_text);
      switch (k.role) {
        case Role::kLineName: working_.line->line_name = text::WToI(t); break;
        case Role::kIndex: working_.line->index[static_cast<std::size_t>(k.index)] = text::WToI(t); break;
        case Role::kPowerFactor: m_texts.cos_phi = *working_.cos_phi = text::WcsToD(t); break;
        case Role::kFieldText: {
          if (std::string* field = m_texts.At(k.field)) *field = t;
          const bool to_working = k.field.field != Field::kLength || def_.length_to_working_at_start;
          if (double* w = working_.field ? working_.field(k.field) : nullptr; w && to_working) *w = text::WcsToD(t);
          break;
        }
        default: break;  // the required loss is the page's to read
      }
    }
    if (line_) line_->Open(m_nLineSel, *working_.line);
  }
  UpdateData(false);
  if (line_) line_->Show();
  return true;
}

void CDyssForm::Store(const PageTexts& page, StoreMode mode) {
  UpdateData(true);
  const bool leave = mode == StoreMode::kLeave;
  CInterDpData* tree = state_.idp;
  for (const ParamKey& k : def_.keys) {
    if (!leave && !k.on_ok) continue;
    std::optional<std::string> text;
    switch (k.role) {
      case Role::kLineName:
        text = text::FormatD(m_nLineSel);
        if (leave) working_.line->line_name = m_nLineSel;
        break;
      case Role::kIndex:
        if (const auto at = line_ ? line_->IndexPosition(k.index) : std::nullopt) {
          text = text::FormatD(*at);
          if (leave) working_.line->index[static_cast<std::size_t>(k.index)] = *at;
        }
        break;
      case Role::kLineData: text = line_ ? line_->LabelText() : std::string(); break;
      case Role::kPowerFactor:
        text = text::Format3f(m_texts.cos_phi);
        if (leave) *working_.cos_phi = m_texts.cos_phi;
        break;
      case Role::kFieldText:
        text = m_texts.At(k.field) ? *m_texts.At(k.field) : std::string();
        if (double* w = working_.field ? working_.field(k.field) : nullptr; w && leave) *w = text::WcsToD(*text);
        break;
      case Role::kRequire:
        text = page.require;
        if (leave && working_.require) *working_.require = page.require;
        break;
      case Role::kResult: text = page.result; break;
      default: break;
    }
    if (text && tree) idp::SetValue(*tree, Key(k), *text);
  }
}

void CDyssForm::Load(std::string* require) {
  if (line_) {
    line_->Open(m_nLineSel, *working_.line);
    line_->Show();
  }
  if (def_.cos_edit) m_texts.cos_phi = *working_.cos_phi;
  for (const ParamKey& k : def_.keys)
    if (double* w = k.role == Role::kFieldText && working_.field ? working_.field(k.field) : nullptr)
      if (std::string* t = m_texts.At(k.field)) *t = text::Format3f(*w);
  if (require && working_.require) *require = *working_.require;
  UpdateData(false);
}

std::array<std::string, 3> CDyssForm::LineValues() const {
  return line_ ? line_->values() : std::array<std::string, 3>{};
}

ShownInputs CDyssForm::Shown(const ui::Dialog& page, int kind_list, int case_list) const {
  ShownInputs s{page.GetDlgItemText(kind_list), page.GetDlgItemText(case_list), {}, CosText()};
  if (line_) s.line = line_->Shown();
  return s;
}

std::string CDyssForm::CosText() const { return def_.cos_edit ? GetDlgItemText(def_.cos_edit) : std::string(); }

}  // namespace kestra::dyss

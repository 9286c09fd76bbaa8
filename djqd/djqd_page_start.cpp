#include "djqd/djqd_page_start.h"

#include <algorithm>

#include "djqd/djqd_dialog.h"
#include "djqd/djqd_messages.h"
#include "djqd/djqd_query.h"
#include "djqd/djqd_report.h"
#include "services/idp/idp_values.h"
#include "services/text/number_text.h"
#include "shell/module_context.h"
#include "ui/data_exchange.h"

namespace kestra::djqd {
namespace {

using text::Format3f;
using text::WcsToD;

}  // namespace

// ---- The input forms ----

CDjqdInputDlg::CDjqdInputDlg(CDjqdCalDlg& dlg, int method)
    : CAcUiDialog(kFormTemplates[method]), dlg_(dlg), method_(method), ids_(kFormIds[method]) {
  OnArg(ids_.cos_spin, ui::Notify::DeltaPos, [this](int delta) { SpinPowerFactorEdit(*this, m_dCosPhi, delta); });
  if (ids_.transformer_pick) On(ids_.transformer_pick, ui::Notify::Clicked, [this] { OnPickTransformer(); });
  if (ids_.reactance_pick) On(ids_.reactance_pick, ui::Notify::Clicked, [this] { OnPickReactor(); });
}

bool CDjqdInputDlg::OnInitDialog() {
  CAcUiDialog::OnInitDialog();
  return true;
}

void CDjqdInputDlg::DoDataExchange(ui::DataExchange& dx) {
  dx.Real(ids_.short_circuit, m_dSk);
  if (ids_.transformer_capacity) dx.Real(ids_.transformer_capacity, m_dSrT);
  if (ids_.impedance_voltage) dx.Real(ids_.impedance_voltage, m_dUT);
  if (ids_.reactance) dx.Real(ids_.reactance, m_dXk);
  if (ids_.ratio) dx.Text(ids_.ratio, m_strKz);
  dx.Real(ids_.load, m_dSfh);
  dx.Real(ids_.cos_phi, m_dCosPhi);
  dx.Text(ids_.bus_voltage, m_strUM);
}

void CDjqdInputDlg::Load(const WorkingValues& w) {
  m_dSk = w.m_dSk;
  m_dSrT = w.m_dSrT;
  m_dUT = w.m_dUT;
  m_dXk = w.m_dXk;
  m_strKz = Format3f(w.m_dKz);
  m_dSfh = w.m_dSfh;
  m_dCosPhi = w.m_dCosPhi;
  m_strUM = Format3f(w.m_dUM);
  UpdateData(false);
}

void CDjqdInputDlg::Store(WorkingValues& w) const {
  w.m_dSk = m_dSk;
  if (ids_.transformer_capacity) w.m_dSrT = m_dSrT;
  if (ids_.impedance_voltage) w.m_dUT = m_dUT;
  if (ids_.reactance) w.m_dXk = m_dXk;
  if (ids_.ratio) w.m_dKz = WcsToD(m_strKz);
  w.m_dSfh = m_dSfh;
  w.m_dCosPhi = m_dCosPhi;
  w.m_dUM = WcsToD(m_strUM);
}

FieldValue CDjqdInputDlg::FieldOf(Field f) const {
  switch (f) {
    case Field::ShortCircuit: return {-1, {}, m_dSk};
    case Field::TransformerCapacity: return {-1, {}, m_dSrT};
    case Field::ImpedanceVoltage: return {-1, {}, m_dUT};
    case Field::Reactance: return {-1, {}, m_dXk};
    case Field::Ratio: return {-1, m_strKz, WcsToD(m_strKz)};
    case Field::Load: return {-1, {}, m_dSfh};
    case Field::PowerFactor: return {-1, {}, m_dCosPhi};
    case Field::BusVoltage: return {-1, m_strUM, WcsToD(m_strUM)};
    default: return {};
  }
}

void CDjqdInputDlg::TakeOver(Field f, WorkingValues& w) const {
  switch (f) {
    case Field::ShortCircuit: w.m_dSk = m_dSk; break;
    case Field::TransformerCapacity: w.m_dSrT = m_dSrT; break;
    case Field::ImpedanceVoltage: w.m_dUT = m_dUT; break;
    case Field::Reactance: w.m_dXk = m_dXk; break;
    case Field::Ratio: w.m_dKz = WcsToD(m_strKz); break;
    case Field::Load: w.m_dSfh = m_dSfh; break;
    case Field::PowerFactor: w.m_dCosPhi = m_dCosPhi; break;
    case Field::BusVoltage: w.m_dUM = WcsToD(m_strUM); break;
    default: break;
  }
}


void CDjqdInputDlg::SetReal(int id, double& member, double value) {
  member = value;
  SetDlgItemText(id, text::FormatDouble("%.15g", value));
}

void CDjqdInputDlg::OnPickTransformer() {
  shell::ModuleScope scope(dlg_.module());
  CDjqdQueryDlg pick(dlg_.module(), QueryMode::Transformer, kNoteTransformers);
  if (pick.DoModal() != ui::IDOK) return;
  SetReal(ids_.transformer_capacity, m_dSrT, pick.srt());
  SetReal(ids_.impedance_voltage, m_dUT, pick.ut());
}

void CDjqdInputDlg::OnPickReactor() {
  shell::ModuleScope scope(dlg_.module());
  CDjqdQueryDlg pick(dlg_.module(), QueryMode::Reactor, kNoteReactors);
  if (pick.DoModal() != ui::IDOK) return;
  SetReal(ids_.reactance, m_dXk, pick.xk());
}

// ---- The page ----

CDjqdPage1dlg::CDjqdPage1dlg(CDjqdCalDlg& dlg)
    : CDjqdPageBase(dlg, 0, IDD_DJQD_PAGE1, "电机起动时的压降计算"),
      m_input1(dlg),
      m_input2(dlg),
      m_input3(dlg),
      m_input4(dlg) {
  On(IDC_DJQD_P1_METHOD, ui::Notify::SelChange, [this] { OnMethodChange(); });
}

CDjqdInputDlg& CDjqdPage1dlg::form(int method) {
  switch (method) {
    case 1: return m_input2;
    case 2: return m_input3;
    case 3: return m_input4;
    default: return m_input1;
  }
}

const CDjqdInputDlg& CDjqdPage1dlg::form(int method) const { return const_cast<CDjqdPage1dlg*>(this)->form(method); }

bool CDjqdPage1dlg::OnInitDialog() {
  CDjqdPageBase::OnInitDialog();
  frame_.Create(*this, IDC_DJQD_P1_INPUT_FRAME, {&m_input1, &m_input2, &m_input3, &m_input4});
  shown_ = std::clamp(dlg_.values().m_nCurInput, 0, 3);
  m_nMethod = shown_;
  frame_.Show(shown_);
  slides_read_ = slides_.Read(dlg_.module().DataFile("image\\djqd.slb")) >= 1;
  if (slides_read_) ShowSlide(shown_);
  else MessageBox(kMsgNoSlideLibrary, kErrorCaption, ui::MB_OK | ui::MB_ICONINFORMATION);
  FinishInit();
  return true;
}

void CDjqdPage1dlg::DoDataExchange(ui::DataExchange& dx) {
  dx.ComboIndex(IDC_DJQD_P1_METHOD, m_nMethod);
  CDjqdPageBase::DoDataExchange(dx);
}

bool CDjqdPage1dlg::SaveControls() {
  const bool page = UpdateData(true);
  return form(shown_).UpdateData(true) && page;
}

void CDjqdPage1dlg::ShowSlide(int method) {
  SetDlgItemText(IDC_DJQD_P1_METHOD_GROUP, kMethodNames[method]);
  ui::Control* picture = GetDlgItem(IDC_DJQD_P1_PICTURE);
  const ui::VectorPicture* slide = slides_.GetPicture(slides_.FindSlide(kSlideNames[method]));
  if (picture && slide) picture->SetPicture(*slide);
}

void CDjqdPage1dlg::OnMethodChange() {
  const ui::Control* combo = GetDlgItem(IDC_DJQD_P1_METHOD);
  const int k = combo ? combo->GetCurSel() : -1;
  if (k < 0 || k > 3) return;
  m_nMethod = k;
  if (slides_read_) ShowSlide(k);
  WorkingValues& w = dlg_.values();
  if (k != shown_) {
    // The form that is left keeps its inputs and results under its own keys.
    CDjqdInputDlg& old = form(shown_);
    old.UpdateData(true);
    old.Store(w);
    if (CInterDpData* tree = dlg_.idp()) {
      WriteParams(*tree, w, FormOwner(shown_));
      WriteFormResultKeys(*tree, shown_, true);
    }
    frame_.Show(k);
    ClearResults();
    ShowText(ids().overload_name, m_strOverloadName, "");
    ShowText(ids().overload_value, m_strOverloadValue, "");
    form(k).Load(w);
  }
  shown_ = k;
  w.m_nCurInput = k;
  // Also when the shown method is chosen again: the results then stand, but the torque and
  // time of a calculation are asked for afresh after a new one.
  EnableResultButtons(false);
  HideOverload();
}

void CDjqdPage1dlg::LoadInputs(const WorkingValues& w) { form(shown_).Load(w); }

void CDjqdPage1dlg::StoreInputs(WorkingValues& w) const { form(shown_).Store(w); }

FieldValue CDjqdPage1dlg::InputField(Field f) const { return form(shown_).FieldOf(f); }

void CDjqdPage1dlg::TakeOverInput(Field f, WorkingValues& w) const { form(shown_).TakeOver(f, w); }

bool CDjqdPage1dlg::Calculate() {
  if (!SaveControls()) return false;
  if (!RunChecks(StartChecks(method()))) return false;
  WorkingValues& w = dlg_.values();
  StartInputs in;
  in.method = method();
  in.sk = w.m_dSk;
  in.srt = w.m_dSrT;
  in.ut = w.m_dUT;
  in.xk = w.m_dXk;
  in.kz = w.m_dKz;
  in.sfh = w.m_dSfh;
  in.cos_phi = w.m_dCosPhi;
  in.um = w.m_dUM;
  in.cable = {w.m_nCableType, w.m_dSection, w.m_dLength};
  in.motor = {w.m_dPr, w.m_dNr, w.m_dIr, w.m_dIq, w.m_dUr};
  last_ = StartVoltageDrop(in);
  if (last_.status != Status::Ok) return false;
  w.m_dSstm = last_.basics.sstm;
  w.m_dSst = last_.sst;
  w.m_dUstm = last_.ustm;
  w.m_dustM = last_.ustm_motor;
  w.m_dIstm = last_.istm;
  ShowResults(last_.ustm, last_.ustm_motor, last_.istm);
  UpdateData(false);
  EnableResultButtons(true);
  return true;
}

void CDjqdPage1dlg::WriteFormResultKeys(CInterDpData& tree, int form_index, bool with_overload) const {
  const FormResultKeys& keys = kFormResultKeys[form_index];
  idp::SetValue(tree, FullKey(keys.ustm), m_strUstm);
  idp::SetValue(tree, FullKey(keys.ustm_motor), m_strUstmMotor);
  idp::SetValue(tree, FullKey(keys.istm), m_strIstm);
  if (with_overload && keys.overload)
    idp::SetValue(tree, FullKey(keys.overload), m_strOverloadName + m_strOverloadValue);
}

// Leaving the page and "确定" keep the three results of the shown form; its overload check is
// kept only when the designer turns to another method.
void CDjqdPage1dlg::WriteResultKeys(CInterDpData& tree) const { WriteFormResultKeys(tree, shown_, false); }

std::optional<CDjqdPageBase::Overload> CDjqdPage1dlg::OverloadAfter(double t) const {
  const WorkingValues& w = dlg_.values();
  switch (method()) {
    case StartMethod::FullVoltage: return std::nullopt;
    case StartMethod::TransformerUnit:
      return Overload{kOverloadTransformerUnit,
                      OverloadTransformerUnit(ShownNumber(ids().ustm_motor), w.m_dSstm, m_input2.transformer_capacity())};
    case StartMethod::Reactor: return Overload{kOverloadReactor, OverloadReactor(ShownNumber(ids().istm), t)};
    case StartMethod::Autotransformer:
      return Overload{kOverloadAutotransformer, OverloadAutotransformer(ShownNumber(ids().ustm), w.m_dSst, t)};
  }
  return std::nullopt;
}

}  // namespace kestra::djqd

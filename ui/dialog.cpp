#include "ui/dialog.h"

#include <algorithm>

#include "ui/data_exchange.h"

namespace ui {

const char* NotifyName(Notify n) {
  switch (n) {
    case Notify::Clicked: return "click";
    case Notify::SelChange: return "selection change";
    case Notify::EditChange: return "edit change";
    case Notify::KillFocus: return "focus loss";
    case Notify::DropDown: return "drop-down";
    case Notify::DeltaPos: return "up-down step";
    case Notify::HeaderClick: return "header click";
    case Notify::DblClk: return "double click";
  }
  return "notification";
}

namespace {

bool HasAny(const std::vector<std::string>& styles, std::initializer_list<const char*> names) {
  for (const char* n : names)
    if (std::find(styles.begin(), styles.end(), n) != styles.end()) return true;
  return false;
}

Kind KindOf(const ControlTemplate& t, const std::vector<std::string>& styles) {
  std::string cls = t.class_name;
  std::transform(cls.begin(), cls.end(), cls.begin(), [](char c) { return static_cast<char>(std::tolower(c)); });
  if (cls == "static") {
    if (HasAny(styles, {"SS_BLACKFRAME", "SS_GRAYFRAME", "SS_WHITEFRAME", "SS_ETCHEDFRAME", "SS_BLACKRECT",
                        "SS_GRAYRECT", "SS_WHITERECT", "SS_BITMAP", "SS_ICON", "SS_ENHMETAFILE", "SS_OWNERDRAW"}))
      return Kind::Frame;
    return Kind::Static;
  }
  if (cls == "button") {
    if (HasAny(styles, {"BS_GROUPBOX"})) return Kind::GroupBox;
    if (HasAny(styles, {"BS_CHECKBOX", "BS_AUTOCHECKBOX", "BS_3STATE", "BS_AUTO3STATE"})) return Kind::CheckBox;
    if (HasAny(styles, {"BS_RADIOBUTTON", "BS_AUTORADIOBUTTON"})) return Kind::Radio;
    return Kind::Button;
  }
  if (cls == "edit") return Kind::Edit;
  if (cls == "combobox") return Kind::Combo;
  if (cls == "listbox") return Kind::ListBox;
  if (cls == "syslistview32") return Kind::ListView;
  if (cls == "msctls_updown32") return Kind::UpDown;
  if (cls == "systabcontrol32") return Kind::Tab;
  if (cls == "richedit20w" || cls == "richedit50w" || cls == "kestrarichtext") return Kind::RichText;
  if (cls == "kestratable") return Kind::Table;
  return Kind::Static;
}

}  // namespace

Dialog::Dialog(int template_id, Dialog* /*owner*/) : template_id_(template_id), parent_(nullptr) {
  if (const ResourceSet* res = CurrentResources()) template_ = res->FindDialog(template_id);
}

Dialog::~Dialog() {
  for (Dialog* child : children_) child->parent_ = nullptr;
  if (parent_) parent_->DetachChild(this);
}

void Dialog::SetTemplateId(int id) {
  template_id_ = id;
  template_ = nullptr;
  if (const ResourceSet* res = CurrentResources()) template_ = res->FindDialog(id);
}

Dialog* Dialog::TopLevel() {
  Dialog* d = this;
  while (d->parent_) d = d->parent_;
  return d;
}

DialogObserver* Dialog::observer() { return TopLevel()->observer_; }

void Dialog::NotifyControlChanged(Control& c) {
  if (DialogObserver* o = observer()) o->ControlChanged(c);
}

void Dialog::BuildFromTemplate() {
  if (!template_)
    if (const ResourceSet* res = CurrentResources()) template_ = res->FindDialog(template_id_);
  controls_.clear();
  if (!template_) return;
  const DialogTemplate& t = *template_;
  caption_ = t.caption;
  font_ = Font{};
  font_.face = t.font_face;
  font_.height = HeightFromPoints(t.font_points);
  rect_ = MapDialogRect(Rect{t.x, t.y, t.x + t.cx, t.y + t.cy});
  if (!parent_) rect_ = Rect{0, 0, rect_.Width(), rect_.Height()};
  visible_ = parent_ ? t.Has("WS_VISIBLE") : true;
  enabled_ = !t.Has("WS_DISABLED");
  int index = 0;
  int previous_id = 0;
  for (const ControlTemplate& ct : t.controls) {
    std::vector<std::string> styles(ct.styles.begin(), ct.styles.end());
    for (const auto& n : ct.not_styles) styles.push_back("NOT " + n);
    // The statements whose controls are tab stops unless written with NOT WS_TABSTOP.
    if (HasAny({ct.kind}, {"EDITTEXT", "COMBOBOX", "PUSHBUTTON", "DEFPUSHBUTTON", "CHECKBOX", "AUTOCHECKBOX",
                           "AUTO3STATE", "STATE3", "RADIOBUTTON", "AUTORADIOBUTTON"}) &&
        !ct.not_styles.count("WS_TABSTOP"))
      styles.push_back("WS_TABSTOP");
    Kind kind = KindOf(ct, styles);
    auto c = std::make_unique<Control>(this, kind, ct.id);
    c->ApplyTemplateStyles(ct.class_name, styles);
    c->set_template_index(index++);
    c->SetWindowText(ct.text);
    c->MoveWindow(MapDialogRect(Rect{ct.x, ct.y, ct.x + ct.cx, ct.y + ct.cy}));
    if (kind == Kind::UpDown && HasAny(styles, {"UDS_AUTOBUDDY"})) c->SetBuddy(previous_id);
    if (auto it = t.initial_items.find(ct.id); it != t.initial_items.end())
      for (const auto& item : it->second) c->AddString(item);
    previous_id = ct.id;
    controls_.push_back(std::move(c));
  }
}

int Dialog::DoModal() {
  if (!template_)
    if (const ResourceSet* res = CurrentResources()) template_ = res->FindDialog(template_id_);
  UiHost* host = CurrentHost();
  if (!template_ || !host) return -1;
  return host->RunModal(*this);
}

bool Dialog::CreateModal() {
  parent_ = nullptr;
  BuildFromTemplate();
  if (!template_) return false;
  created_ = true;
  ended_ = false;
  result_ = 0;
  OnInitDialog();
  return true;
}

bool Dialog::Create(Dialog* parent) {
  if (parent_ && parent_ != parent) parent_->DetachChild(this);
  parent_ = parent;
  if (parent) parent->AttachChild(this);
  BuildFromTemplate();
  if (!template_) return false;
  created_ = true;
  if (DialogObserver* o = observer()) o->ChildCreated(*this);
  OnInitDialog();
  return true;
}

void Dialog::AttachChild(Dialog* child) {
  if (std::find(children_.begin(), children_.end(), child) == children_.end()) children_.push_back(child);
}

void Dialog::DetachChild(Dialog* child) {
  auto it = std::find(children_.begin(), children_.end(), child);
  if (it == children_.end()) return;
  if (DialogObserver* o = observer()) o->ChildDestroyed(*child);
  children_.erase(it);
}

bool Dialog::OnInitDialog() {
  UpdateData(false);
  return true;
}

void Dialog::OnOK() {
  if (!UpdateData(true)) return;
  EndDialog(IDOK);
}

void Dialog::OnCancel() { EndDialog(IDCANCEL); }

void Dialog::DoDataExchange(DataExchange&) {}

bool Dialog::UpdateData(bool save_and_validate) {
  DataExchange dx(*this, save_and_validate);
  DoDataExchange(dx);
  return !dx.failed();
}

void Dialog::EndDialog(int result) {
  ended_ = true;
  result_ = result;
}

Control* Dialog::GetDlgItem(int id) {
  for (auto& c : controls_)
    if (c->id() == id) return c.get();
  return nullptr;
}

const Control* Dialog::GetDlgItem(int id) const {
  for (const auto& c : controls_)
    if (c->id() == id) return c.get();
  return nullptr;
}

std::string Dialog::GetDlgItemText(int id) const {
  const Control* c = GetDlgItem(id);
  return c ? c->GetWindowText() : std::string();
}

void Dialog::SetDlgItemText(int id, const std::string& text) {
  if (Control* c = GetDlgItem(id)) c->SetWindowText(text);
}

void Dialog::CheckRadioButton(int first_id, int last_id, int check_id) {
  for (auto& c : controls_)
    if (c->id() >= first_id && c->id() <= last_id) c->SetCheck(c->id() == check_id ? 1 : 0);
}

int Dialog::GetCheckedRadioButton(int first_id, int last_id) const {
  for (const auto& c : controls_)
    if (c->id() >= first_id && c->id() <= last_id && c->GetCheck()) return c->id();
  return 0;
}

void Dialog::CheckDlgButton(int id, int check) {
  if (Control* c = GetDlgItem(id)) c->SetCheck(check);
}

int Dialog::IsDlgButtonChecked(int id) const {
  const Control* c = GetDlgItem(id);
  return c ? c->GetCheck() : 0;
}

Control& Dialog::CreateControl(Kind kind, int id, const std::string& text, const Rect& rect, bool visible) {
  auto c = std::make_unique<Control>(this, kind, id);
  c->SetWindowText(text);
  c->MoveWindow(rect);
  c->ShowWindow(visible);
  Control& ref = *c;
  controls_.push_back(std::move(c));
  if (DialogObserver* o = observer()) o->ControlCreated(ref);
  return ref;
}

void Dialog::DestroyControl(Control* c) {
  auto it = std::find_if(controls_.begin(), controls_.end(), [c](const auto& p) { return p.get() == c; });
  if (it == controls_.end()) return;
  if (DialogObserver* o = observer()) o->ControlDestroyed(*c);
  controls_.erase(it);
}

void Dialog::SetWindowText(const std::string& caption) {
  caption_ = caption;
  if (DialogObserver* o = observer()) o->DialogChanged(*this);
}

void Dialog::ShowWindow(bool show) {
  if (visible_ == show) return;
  visible_ = show;
  if (DialogObserver* o = observer()) o->DialogChanged(*this);
}

void Dialog::EnableWindow(bool enable) {
  if (enabled_ == enable) return;
  enabled_ = enable;
  if (DialogObserver* o = observer()) o->DialogChanged(*this);
}

void Dialog::MoveWindow(const Rect& r) {
  rect_ = r;
  if (DialogObserver* o = observer()) o->DialogChanged(*this);
}

void Dialog::SetBackground(std::optional<unsigned> rgb) {
  background_ = rgb;
  if (DialogObserver* o = observer()) o->DialogChanged(*this);
}

Rect Dialog::MapDialogRect(const Rect& dlu) const {
  Size base{6, 12};
  if (UiHost* h = CurrentHost()) base = h->BaseUnits(font_);
  auto mx = [&](int v) { return (v * base.cx + (v >= 0 ? 2 : -2)) / 4; };
  auto my = [&](int v) { return (v * base.cy + (v >= 0 ? 4 : -4)) / 8; };
  return Rect{mx(dlu.left), my(dlu.top), mx(dlu.right), my(dlu.bottom)};
}

Size Dialog::GetTextExtent(const std::string& text, const Font* font) const {
  UiHost* h = CurrentHost();
  const Font& f = font ? *font : font_;
  if (!h) return Size{static_cast<int>(text.size()) * 6, 12};
  return h->TextExtent(text, f);
}

void Dialog::RedrawWindow() {
  if (UiHost* h = CurrentHost()) h->Redraw(*this);
}

int Dialog::MessageBox(const std::string& text, const std::string& caption, unsigned type) {
  return ui::MessageBox(text, caption, type);
}

void Dialog::On(int id, Notify code, Handler h) {
  handlers_[{id, code}] = [h = std::move(h)](int) { h(); };
}

void Dialog::OnArg(int id, Notify code, ArgHandler h) { handlers_[{id, code}] = std::move(h); }

bool Dialog::SendNotify(int id, Notify code, int arg) {
  auto it = handlers_.find({id, code});
  if (it != handlers_.end()) {
    auto handler = it->second;  // a handler may replace itself
    handler(arg);
    return true;
  }
  if (code == Notify::Clicked && id == IDOK) {
    OnOK();
    return true;
  }
  if (code == Notify::Clicked && id == IDCANCEL) {
    OnCancel();
    return true;
  }
  return false;
}

}  // namespace ui

#include "ui/actions.h"

#include <string>
#include <vector>

#include "ui/focus.h"
#include "ui/property_sheet.h"

namespace ui {
namespace {

void MustBeUsable(const Control& c) {
  if (!c.IsWindowVisible()) throw ActionError(std::string("the ") + KindName(c.kind()) + " " + std::to_string(c.id()) + " is hidden");
  if (!c.IsWindowEnabled()) throw ActionError(std::string("the ") + KindName(c.kind()) + " " + std::to_string(c.id()) + " is disabled");
  for (Dialog* d = c.owner(); d; d = d->GetParent())
    if (!d->IsWindowVisible() || !d->IsWindowEnabled())
      throw ActionError("control " + std::to_string(c.id()) + " lies in a hidden or disabled page");
}

Control* FindIn(Dialog& d, int id, bool visible_only) {
  if (visible_only && !d.IsWindowVisible()) return nullptr;
  for (auto& c : d.controls())
    if (c->id() == id && (!visible_only || c->IsWindowVisible())) return c.get();
  for (Dialog* child : d.children())
    if (Control* c = FindIn(*child, id, visible_only)) return c;
  return nullptr;
}

// The static label standing just before c in template order, if any.
const Control* LabelBefore(Dialog& d, const Control& c) {
  // A control created at run time has no place in the template and so no label.
  if (c.template_index() < 0) return nullptr;
  const Control* prev = nullptr;
  for (auto& k : d.controls()) {
    if (k.get() == &c) return prev && prev->kind() == Kind::Static ? prev : nullptr;
    if (k->template_index() >= 0) prev = k.get();
  }
  return nullptr;
}

Control* FindLabelIn(Dialog& d, const std::string& label, bool visible_only) {
  if (visible_only && !d.IsWindowVisible()) return nullptr;
  for (auto& c : d.controls()) {
    if (visible_only && !c->IsWindowVisible()) continue;
    Kind k = c->kind();
    if ((k == Kind::Button || k == Kind::CheckBox || k == Kind::Radio) && c->GetWindowText() == label) return c.get();
    if (k == Kind::Edit || k == Kind::Combo) {
      const Control* l = LabelBefore(d, *c);
      if (l && l->GetWindowText() == label) return c.get();
    }
  }
  for (Dialog* child : d.children())
    if (Control* c = FindLabelIn(*child, label, visible_only)) return c;
  return nullptr;
}

}  // namespace

Control* FindControl(Dialog& d, int id) {
  if (Control* c = FindIn(d, id, true)) return c;
  return FindIn(d, id, false);
}

Control* FindControlByLabel(Dialog& d, const std::string& label) {
  if (Control* c = FindLabelIn(d, label, true)) return c;
  return FindLabelIn(d, label, false);
}

namespace act {

void SetText(Control& c, const std::string& text) {
  MustBeUsable(c);
  if (c.kind() == Kind::Edit) {
    if (c.read_only()) throw ActionError("the edit " + std::to_string(c.id()) + " is read-only");
    if (!FilterAccepts(c.filter(), text))
      throw ActionError("the edit " + std::to_string(c.id()) + " does not take the text \"" + text + "\"");
    c.SetWindowText(text);
    c.owner()->SendNotify(c.id(), Notify::EditChange);
    return;
  }
  if (c.kind() == Kind::Combo && !c.drop_list()) {
    c.SetWindowText(text);
    c.owner()->SendNotify(c.id(), Notify::EditChange);
    return;
  }
  throw ActionError(std::string("cannot type into a ") + KindName(c.kind()));
}

void Leave(Control& c) {
  MustBeUsable(c);
  c.owner()->SendNotify(c.id(), Notify::KillFocus);
}

void Select(Control& c, int index) {
  MustBeUsable(c);
  Kind k = c.kind();
  if (k == Kind::Combo || k == Kind::ListBox || k == Kind::Tab) {
    if (index < 0 || index >= c.GetCount())
      throw ActionError("item " + std::to_string(index) + " does not exist (" + std::to_string(c.GetCount()) + " items)");
    c.SetCurSel(index);
  } else if (k == Kind::ListView) {
    if (index < 0 || index >= c.GetItemCount())
      throw ActionError("row " + std::to_string(index) + " does not exist (" + std::to_string(c.GetItemCount()) + " rows)");
    c.SetCurSel(index);
  } else {
    throw ActionError(std::string("cannot select in a ") + KindName(k));
  }
  c.owner()->SendNotify(c.id(), Notify::SelChange, index);
}

void Select(Control& c, const std::string& item) {
  int index = -1;
  if (c.kind() == Kind::ListView) {
    for (int r = 0; r < c.GetItemCount() && index < 0; ++r)
      if (c.GetItemText(r, 0) == item) index = r;
  } else {
    for (int i = 0; i < c.GetCount() && index < 0; ++i)
      if (c.GetLBText(i) == item) index = i;
  }
  if (index < 0) throw ActionError("no item \"" + item + "\"");
  Select(c, index);
}

void Click(Control& c) {
  MustBeUsable(c);
  switch (c.kind()) {
    case Kind::Button:
      break;
    case Kind::CheckBox:
      if (c.auto_button()) c.SetCheck(c.GetCheck() ? 0 : 1);
      break;
    case Kind::Radio:
      if (c.auto_button()) {
        // An automatic radio button checks itself and clears the others of its group.
        for (Control* r : RadioGroup(c)) r->SetCheck(r == &c ? 1 : 0);
      }
      break;
    default:
      throw ActionError(std::string("cannot click a ") + KindName(c.kind()));
  }
  c.owner()->SendNotify(c.id(), Notify::Clicked);
}

Control* UpDownOf(Control& edit) {
  for (auto& k : edit.owner()->controls())
    if (k->kind() == Kind::UpDown && k->buddy_id() == edit.id()) return k.get();
  return nullptr;
}

// What a spin step can change: the texts of the dialog's controls and the up-down's position.
std::vector<std::string> SpinState(const Control& ud) {
  std::vector<std::string> state{std::to_string(ud.GetPos())};
  for (const auto& k : ud.owner()->controls()) state.push_back(k->GetWindowText());
  return state;
}

void Spin(Control& c, bool up, int count) {
  Control* ud = c.kind() == Kind::UpDown ? &c : UpDownOf(c);
  if (!ud) throw ActionError("control " + std::to_string(c.id()) + " has no up-down control");
  MustBeUsable(*ud);
  // A value at its limit stays there: once a step changes nothing, neither would the rest,
  // so a count of a billion ends as soon as the value does.
  std::vector<std::string> before = SpinState(*ud);
  for (int i = 0; i < count; ++i) {
    // The up arrow moves towards the upper end of the range; the default range runs
    // from 100 down to 0, so there the proposed change is -1.
    int delta = (ud->range_upper() >= ud->range_lower()) == up ? 1 : -1;
    ud->owner()->SendNotify(ud->id(), Notify::DeltaPos, delta);
    ud->SetPos(ud->GetPos() + delta);
    if (ud->set_buddy_int())
      if (Control* buddy = ud->owner()->GetDlgItem(ud->buddy_id())) buddy->SetWindowText(std::to_string(ud->GetPos()));
    std::vector<std::string> after = SpinState(*ud);
    if (after == before) break;
    before = std::move(after);
  }
}

void Drop(Control& c) {
  MustBeUsable(c);
  if (c.kind() != Kind::Combo) throw ActionError(std::string("cannot drop down a ") + KindName(c.kind()));
  c.owner()->SendNotify(c.id(), Notify::DropDown);
}

void HeaderClick(Control& c, int column) {
  MustBeUsable(c);
  if (c.kind() != Kind::ListView) throw ActionError(std::string("a ") + KindName(c.kind()) + " has no header");
  if (column < 0 || column >= static_cast<int>(c.columns().size()))
    throw ActionError("column " + std::to_string(column) + " does not exist");
  c.owner()->SendNotify(c.id(), Notify::HeaderClick, column);
}

void PickCell(Control& c, int row, int column) {
  MustBeUsable(c);
  const TableData* t = c.table();
  if (c.kind() != Kind::Table || !t) throw ActionError("control " + std::to_string(c.id()) + " shows no table");
  if (row < 0 || row >= static_cast<int>(t->rows.size()) || column < 0 ||
      column >= static_cast<int>(t->headers.size()))
    throw ActionError("cell " + std::to_string(row) + "," + std::to_string(column) + " does not exist");
  c.PickCell(row, column);
  c.owner()->SendNotify(c.id(), Notify::SelChange);
}

void Tab(Dialog& d, int n) {
  if (PropertySheet* sheet = d.sheet()) {
    if (n < 0 || n >= sheet->GetPageCount()) throw ActionError("page " + std::to_string(n) + " does not exist");
    Select(*sheet->tab(), n);
    return;
  }
  for (auto& c : d.controls())
    if (c->kind() == Kind::Tab) {
      Select(*c, n);
      return;
    }
  throw ActionError("the dialog has no pages");
}

void Ok(Dialog& d) { d.SendNotify(IDOK, Notify::Clicked); }
void Cancel(Dialog& d) { d.SendNotify(IDCANCEL, Notify::Clicked); }

}  // namespace act
}  // namespace ui

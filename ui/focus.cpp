#include "ui/focus.h"

#include <algorithm>

namespace ui {

bool Reachable(const Control& c) {
  if (!c.IsWindowVisible() || !c.IsWindowEnabled()) return false;
  for (const Dialog* d = c.owner(); d; d = d->GetParent())
    if (!d->IsWindowVisible() || !d->IsWindowEnabled()) return false;
  return true;
}

std::vector<Control*> RadioGroup(Control& c) {
  const auto& all = c.owner()->controls();
  std::size_t me = 0;
  while (me < all.size() && all[me].get() != &c) ++me;
  if (me == all.size()) return {};
  std::size_t first = me;
  while (first > 0 && !all[first]->group_start()) --first;
  std::vector<Control*> group;
  for (std::size_t i = first; i < all.size(); ++i) {
    if (i != first && all[i]->group_start()) break;
    if (all[i]->kind() == Kind::Radio) group.push_back(all[i].get());
  }
  return group;
}

namespace {

// The stop of c's radio group: the checked reachable button, else the first reachable one
// marked as a tab stop.
Control* GroupStop(Control& c) {
  Control* first_stop = nullptr;
  for (Control* r : RadioGroup(c)) {
    if (!Reachable(*r)) continue;
    if (r->GetCheck()) return r;
    if (!first_stop && r->tab_stop()) first_stop = r;
  }
  return first_stop;
}

void AddStops(Dialog& d, std::vector<Control*>& out) {
  if (!d.IsWindowVisible() || !d.IsWindowEnabled()) return;
  for (Dialog* child : d.children())
    if (child->IsCreated()) AddStops(*child, out);
  for (const auto& c : d.controls()) {
    if (!Reachable(*c)) continue;
    if (c->kind() == Kind::Radio) {
      if (GroupStop(*c) == c.get()) out.push_back(c.get());
    } else if (c->tab_stop()) {
      out.push_back(c.get());
    }
  }
}

}  // namespace

std::vector<Control*> TabStops(Dialog& d) {
  std::vector<Control*> stops;
  AddStops(d, stops);
  return stops;
}

Control* FirstTabStop(Dialog& d) {
  std::vector<Control*> stops = TabStops(d);
  return stops.empty() ? nullptr : stops.front();
}

Control* NextInGroup(Control& radio, bool forward) {
  std::vector<Control*> group = RadioGroup(radio);
  auto me = std::find(group.begin(), group.end(), &radio);
  if (me == group.end()) return &radio;
  const std::size_t n = group.size(), at = static_cast<std::size_t>(me - group.begin());
  for (std::size_t step = 1; step < n; ++step) {
    Control* r = group[(forward ? at + step : at + n - step) % n];
    if (Reachable(*r)) return r;
  }
  return &radio;
}

}  // namespace ui

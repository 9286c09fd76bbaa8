// The motor-start templates as a designer and a script meet them: every id of the header is the
// template's, every control has its own id, and nothing covers anything else.
#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <regex>
#include <sstream>

#include "djqd/djqd_ids.h"
#include "res/embedded.h"

namespace {
using namespace kestra::djqd;

struct Box {
  int l, t, r, b;
};

Box BoxOf(const ui::ControlTemplate& c) {
  // A combo's template height includes its dropped list; the box itself is one line.
  const int h = c.class_name == "ComboBox" ? 13 : c.cy;
  return {c.x, c.y, c.x + c.cx, c.y + h};
}
bool Overlap(const Box& a, const Box& b) { return a.l < b.r && b.l < a.r && a.t < b.b && b.t < a.b; }
bool Inside(const Box& in, const Box& out) { return in.l >= out.l && in.r <= out.r && in.t >= out.t && in.b <= out.b; }

const ui::ResourceSet& Res() { return kestra::res::ModuleResources(); }

std::map<std::string, int> HeaderIds() {
  std::ifstream in(std::string(KESTRA_SOURCE_DIR) + "/djqd/djqd_ids.h");
  std::stringstream text;
  text << in.rdbuf();
  const std::string s = text.str();
  std::map<std::string, int> ids;
  const std::regex def(R"(inline constexpr int (ID[DC]_DJQD_\w+) = (\d+);)");
  for (auto it = std::sregex_iterator(s.begin(), s.end(), def); it != std::sregex_iterator(); ++it)
    ids[(*it)[1]] = std::stoi((*it)[2]);
  return ids;
}

std::vector<const ui::DialogTemplate*> Templates() {
  std::vector<const ui::DialogTemplate*> all;
  for (const auto& [name, id] : HeaderIds())
    if (name.rfind("IDD_", 0) == 0) all.push_back(Res().FindDialog(id));
  return all;
}

TEST(DjqdTemplates, HeaderAndTemplatesNameTheSameIds) {
  const auto ids = HeaderIds();
  ASSERT_GT(ids.size(), 250u);
  for (const auto& [name, id] : ids) EXPECT_EQ(Res().Symbol(name, -1), id) << name;
  for (const auto* t : Templates()) ASSERT_NE(t, nullptr);
  for (const FormIds& f : kFormIds)
    for (int id : {f.short_circuit, f.load, f.cos_phi, f.cos_spin, f.bus_voltage}) EXPECT_GT(id, 0);
}

TEST(DjqdTemplates, EveryControlHasItsOwnId) {
  std::map<int, int> dialog_of;
  for (const auto* t : Templates()) {
    ASSERT_NE(t, nullptr);
    for (const auto& c : t->controls) {
      EXPECT_NE(c.id, -1) << t->id << " \"" << c.text << "\"";
      if (c.id == 1 || c.id == 2) continue;  // IDOK, IDCANCEL
      auto [it, fresh] = dialog_of.emplace(c.id, t->id);
      EXPECT_TRUE(fresh) << c.id << " in " << t->id << " and " << it->second;
    }
  }
}

TEST(DjqdTemplates, NothingCoversAnythingElse) {
  for (const auto* t : Templates()) {
    ASSERT_NE(t, nullptr);
    const Box dialog{0, 0, t->cx, t->cy};
    const auto& cs = t->controls;
    for (std::size_t i = 0; i < cs.size(); ++i) {
      const Box a = BoxOf(cs[i]);
      const bool a_group = cs[i].Has("BS_GROUPBOX");
      EXPECT_TRUE(Inside(a, dialog)) << t->id << ": " << cs[i].id;
      for (std::size_t j = i + 1; j < cs.size(); ++j) {
        const Box b = BoxOf(cs[j]);
        const bool b_group = cs[j].Has("BS_GROUPBOX");
        if (!a_group && !b_group) {
          EXPECT_FALSE(Overlap(a, b)) << t->id << ": " << cs[i].id << " and " << cs[j].id;
        } else if (Overlap(a, b)) {  // a control or group lies wholly inside a group or outside it
          EXPECT_TRUE(Inside(a, b) || Inside(b, a)) << t->id << ": " << cs[i].id << " and " << cs[j].id;
        }
      }
    }
  }
  // The forms fit the frame of the first page, which places them 2 pixels inside its edges.
  const auto* frame = Res().FindDialog(IDD_DJQD_PAGE1)->Find(IDC_DJQD_P1_INPUT_FRAME);
  for (int id : kFormTemplates) {
    const auto* form = Res().FindDialog(id);
    EXPECT_LE(form->cx, frame->cx - 2) << id;
    EXPECT_LE(form->cy, frame->cy - 2) << id;
  }
}

}  // namespace

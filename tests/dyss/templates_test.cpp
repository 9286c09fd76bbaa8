// The calculator's templates as the dialogs will use them: ids named alike in code and script,
// every control inside its dialog, nothing on top of another, labels wide enough for their text,
// the index row of each line form free, the forms inside their frames and the pages inside the
// sheet, and every stored field bound to an edit of its form.
#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <sstream>

#include "dyss/dyss_checks.h"
#include "dyss/dyss_ids.h"
#include "dyss/dyss_params.h"
#include "res/embedded.h"
#include "services/text/number_text.h"

namespace {
using namespace kestra::dyss;

std::map<std::string, int> Names(const char* file, const char* pattern) {
  std::ifstream in(std::string(KESTRA_SOURCE_DIR) + "/" + file);
  std::stringstream text;
  text << in.rdbuf();
  std::map<std::string, int> names;
  const std::string s = text.str();
  const std::regex re(pattern);
  for (auto it = std::sregex_iterator(s.begin(), s.end(), re); it != std::sregex_iterator(); ++it)
    names[(*it)[1]] = std::stoi((*it)[2]);
  return names;
}

const ui::DialogTemplate& Dlg(int id) {
  const ui::DialogTemplate* t = kestra::res::ModuleResources().FindDialog(id);
  if (!t) throw std::runtime_error("no template " + std::to_string(id));
  return *t;
}

struct Box {
  int l, t, r, b;
};
bool Overlap(const Box& a, const Box& b) { return a.l < b.r && b.l < a.r && a.t < b.b && b.t < a.b; }
bool Inside(const Box& in, const Box& out) { return in.l >= out.l && in.t >= out.t && in.r <= out.r && in.b <= out.b; }
// A combo's template height includes its dropped list; closed it is one line.
Box BoxOf(const ui::ControlTemplate& c) {
  return {c.x, c.y, c.x + c.cx, c.y + (c.class_name == "ComboBox" ? 14 : c.cy)};
}
// Text width in dialog units of a 9-point CJK font: 8 for a CJK character, 4 for a narrow one.
int TextWidth(const std::string& s) {
  int w = 0;
  for (std::size_t i = 0; i < s.size();) {
    const auto c = static_cast<unsigned char>(s[i]);
    const std::size_t len = c < 0x80 ? 1 : c < 0xE0 ? 2 : c < 0xF0 ? 3 : 4;
    w += len >= 3 ? 8 : 4;
    i += len;
  }
  return w;
}

const int kTemplates[] = {IDD_DYSSCAL,          IDD_DYSS_LOSS_PAGE,    IDD_DYSS_LENGTH_PAGE, IDD_DYSS_LOSS_FORM0,
                          IDD_DYSS_LOSS_FORM1,  IDD_DYSS_LOSS_FORM2,   IDD_DYSS_LOSS_FORM3,  IDD_DYSS_LOSS_FORM4,
                          IDD_DYSS_LENGTH_FORM0, IDD_DYSS_LENGTH_FORM1, IDD_DYSS_QUERY};

TEST(DyssTemplates, CodeAndScriptNameTheSameIds) {
  const auto header = Names("dyss/dyss_ids.h", R"(inline constexpr int (ID[DC]_\w+) = (\d+);)");
  const auto script = Names("res/dyss.rc", R"(#define\s+(ID[DC]_\w+)\s+(\d+))");
  EXPECT_EQ(header, script);
  EXPECT_GT(header.size(), 200u);
  // Within a template no id is used twice (labels and group boxes included).
  for (int id : kTemplates) {
    std::set<int> seen;
    for (const auto& c : Dlg(id).controls) EXPECT_TRUE(seen.insert(c.id).second) << id << ": " << c.id;
    EXPECT_FALSE(seen.count(-1)) << id << ": every control has an id";
  }
}

TEST(DyssTemplates, LaidOutWithoutOverlapsAndWithReadableLabels) {
  for (int id : kTemplates) {
    const ui::DialogTemplate& d = Dlg(id);
    std::vector<const ui::ControlTemplate*> shown;
    for (const auto& c : d.controls) {
      const std::string what = std::to_string(id) + " " + std::to_string(c.id) + " \"" + c.text + "\"";
      EXPECT_TRUE(Inside(BoxOf(c), {0, 0, d.cx, d.cy})) << what;
      if (c.not_styles.count("WS_VISIBLE")) continue;
      shown.push_back(&c);
      if (c.class_name == "Static" && c.cy < 16) {
        EXPECT_LE(TextWidth(c.text), c.cx) << what;
      }
    }
    for (const auto* a : shown) {
      for (const auto* b : shown) {
        if (a == b) continue;
        const bool group = b->Has("BS_GROUPBOX");  // other controls sit in it or clear of it, never across it
        EXPECT_TRUE(group ? Inside(BoxOf(*a), BoxOf(*b)) || !Overlap(BoxOf(*a), BoxOf(*b))
                          : a->Has("BS_GROUPBOX") || !Overlap(BoxOf(*a), BoxOf(*b)))
            << id << ": " << a->id << " / " << b->id;
      }
    }
  }
}

TEST(DyssTemplates, IndexRowsFormsAndPagesHaveTheirRoom) {
  // The index lists are laid out from the hidden placeholder to the form's right edge.
  auto row_is_free = [](int form, const LineFormIds& ids) {
    const ui::DialogTemplate& d = Dlg(form);
    const ui::ControlTemplate* anchor = d.Find(ids.anchor);
    ASSERT_NE(anchor, nullptr) << form;
    EXPECT_TRUE(anchor->not_styles.count("WS_VISIBLE")) << form;
    const Box row{anchor->x, anchor->y - 2, d.cx, anchor->y + 12};
    EXPECT_GE(row.r - row.l, 360) << form;  // three labels and lists of catalogue values
    for (const auto& c : d.controls)
      if (!c.not_styles.count("WS_VISIBLE")) {
        EXPECT_FALSE(Overlap(BoxOf(c), row)) << form << ": " << c.id;
      }
    EXPECT_NE(d.Find(ids.line_name), nullptr);
    EXPECT_NE(d.Find(ids.line_data), nullptr);
  };
  for (std::size_t f = 0; f < 4; ++f) row_is_free(kLossFormTemplates[f], kLossLineForms[f]);
  for (std::size_t f = 0; f < 2; ++f) row_is_free(kLengthFormTemplates[f], kLengthLineForms[f]);
  // Forms go into their frame shrunk by 2 pixels a side; pages into the sheet below its tabs
  // (24 pixels; 1.5 pixels a unit with the dialog font).
  auto fits = [](int holder, int frame_id, int child, int extra_w, int extra_h) {
    const ui::ControlTemplate* frame = Dlg(holder).Find(frame_id);
    ASSERT_NE(frame, nullptr);
    EXPECT_LE(Dlg(child).cx + extra_w, frame->cx) << child;
    EXPECT_LE(Dlg(child).cy + extra_h, frame->cy) << child;
    EXPECT_TRUE(Dlg(child).Has("WS_CHILD") && !Dlg(child).Has("WS_VISIBLE") && Dlg(child).Has("WS_DISABLED"))
        << child;
  };
  for (int form : kLossFormTemplates) fits(IDD_DYSS_LOSS_PAGE, IDC_DYSS_FORM_FRAME, form, 3, 3);
  for (int form : kLengthFormTemplates) fits(IDD_DYSS_LENGTH_PAGE, IDC_DYSS_LEN_FORM_FRAME, form, 3, 3);
  for (int page : {IDD_DYSS_LOSS_PAGE, IDD_DYSS_LENGTH_PAGE}) fits(IDD_DYSSCAL, IDC_DYSS_SHEET_FRAME, page, 6, 19);
}

TEST(DyssTemplates, StoredFieldsAndChecksMeetTheirEdits) {
  for (int form = 0; form < 5; ++form) {
    const ui::DialogTemplate& d = Dlg(kLossFormTemplates[static_cast<std::size_t>(form)]);
    std::set<std::pair<int, int>> stored, checked;
    for (const ParamKey& k : LossFormKeys(form)) {
      if (k.role != Role::kFieldText) continue;
      const ui::ControlTemplate* c = d.Find(k.control);
      ASSERT_NE(c, nullptr) << form << " " << k.name;
      EXPECT_EQ(c->class_name, k.field.field == Field::kSection ? "ComboBox" : "Edit") << form << " " << k.name;
      stored.insert({static_cast<int>(k.field.field), k.field.element});
    }
    for (const FieldCheck& c : LossChecks(form))
      if (c.field.field != Field::kPowerFactor) checked.insert({static_cast<int>(c.field.field), c.field.element});
    EXPECT_EQ(stored, checked) << form;  // every stored field is checked, and nothing else
  }
  // The full key of a form names it by its number from 1.
  EXPECT_EQ(LossFormPrefix(2) + LossFormKeys(2).back().name, "Cal\\DyssCal\\Page1\\Input3\\计算结果");
  // The section box offers the sections from the smallest up.
  const auto& sections = Dlg(IDD_DYSS_LOSS_FORM4).initial_items.at(IDC_DYSS_F4_SECTION);
  ASSERT_EQ(sections.size(), 20u);
  for (std::size_t i = 1; i < sections.size(); ++i) EXPECT_LT(kestra::text::WcsToD(sections[i - 1]), kestra::text::WcsToD(sections[i]));
}

}  // namespace

// The input checks: which field is refused first, with which message, and what passes.
#include "dyss/dyss_checks.h"

#include <gtest/gtest.h>

#include "dyss/dyss_choices.h"

namespace {
using namespace kestra::dyss;

// A valid form of the voltage-loss page: cosφ 0.8, every load and length filled.
LossInputs Valid(int kind, int form) {
  LossInputs in;
  in.kind = kind;
  in.form = form;
  in.cos_phi = 0.8;
  in.current.fill("10");
  in.length.fill("0.5");
  in.load.fill("100");
  in.section = "120";
  in.coefficient = "7.66";
  return in;
}

std::string MessageOf(const std::optional<Refusal>& r) { return r ? r->message : "accepted"; }

TEST(DyssChecks, VoltageLossFormsInOrder) {
  struct Case {
    int kind, form;
    void (*change)(LossInputs&);
    const char* message;
  };
  const Case cases[] = {
      // cosφ is judged on its "%.3f" text: 0 and 0.0004 print 0.000; 1.0004 prints 1.000 but is above 1.
      {0, 0, [](LossInputs& in) { in.cos_phi = 0; }, "'功率因数'输入非法, 请输入[0, 1]之间实数!"},
      {1, 0, [](LossInputs& in) { in.cos_phi = 0.0004; }, "'功率因数'输入非法, 请输入[0, 1]之间实数!"},
      {0, 1, [](LossInputs& in) { in.cos_phi = 1.0004; }, "'功率因数'输入非法, 请输入[0, 1]之间实数!"},
      {0, 2, [](LossInputs& in) { in.cos_phi = -0.5; }, "'功率因数'输入非法, 请输入(0, 1]之间实数!"},
      {0, 3, [](LossInputs& in) { in.cos_phi = 0.0004; }, "'功率因数'输入非法, 请输入(0, 1]之间实数!"},
      // Order: cosφ before the load, the load before the length.
      {0, 0, [](LossInputs& in) { in.current[0] = in.length[0] = ""; }, "'负荷计算电流'输入非法, 请输入大于0的实数!"},
      {0, 0, [](LossInputs& in) { in.length[0] = "1e3"; }, "'线路长度'输入非法, 请输入大于0的实数!"},
      {0, 2, [](LossInputs& in) { in.load[0] = "0"; }, "'有功负荷'输入非法, 请输入大于0的实数!"},
      // Six loads: the first positive, the others digits only; all currents before the lengths.
      {0, 1, [](LossInputs& in) { in.current[1] = in.length[1] = ""; }, "accepted"},
      {0, 1, [](LossInputs& in) { in.current[1] = "-5"; }, "'负荷计算电流2'输入非法, 请输入大于0的实数!"},
      {1, 1, [](LossInputs& in) { in.length[0] = "", in.current[5] = "6A"; }, "'负荷计算电流6'输入非法, 请输入大于0的实数!"},
      {0, 1, [](LossInputs& in) { in.length[0] = "0.00000001"; }, "'线路长度1'输入非法, 请输入大于0的实数!"},
      {0, 3, [](LossInputs& in) { in.load[1] = "x", in.length[1] = "-1"; }, "'有功负荷2'输入非法, 请输入大于0的实数!"},
      {1, 3, [](LossInputs& in) { in.length[5] = "-1"; }, "'线路长度6'输入非法, 请输入大于0的实数!"},
      // Form 4: section, then C, then the loads; cosφ is not asked for.
      {0, 4, [](LossInputs& in) { in.section = in.coefficient = ""; in.cos_phi = 0; },
       "'线芯标称截面'输入非法, 请输入大于0的实数或从下拉列表中选择!"},
      {0, 4, [](LossInputs& in) { in.coefficient = "abc"; }, "'计算系数C'输入非法, 请输入大于0的实数或从表中选择!"},
      {1, 4, [](LossInputs& in) { in.load[2] = "-1"; }, "'有功负荷3'输入非法, 请输入大于0的实数!"},
      // Kinds 2 and 3 take P1 and l1 only: the other loads are not looked at.
      {2, 4, [](LossInputs& in) { in.load[2] = "-1", in.length[5] = "?"; }, "accepted"},
      {3, 4, [](LossInputs& in) { in.length[0] = ""; }, "'线路长度1'输入非法, 请输入大于0的实数!"},
  };
  for (const Case& c : cases) {
    LossInputs in = Valid(c.kind, c.form);
    c.change(in);
    EXPECT_EQ(MessageOf(FirstRefusal(in)), c.message) << c.kind << "/" << c.form;
  }
  LossInputs in = Valid(0, 1);
  in.current[3] = "-";
  EXPECT_EQ(FirstRefusal(in)->field, (FieldRef{Field::kCurrent, 3}));  // the dialog can name the edit
}

TEST(DyssChecks, LineLengthForms) {
  struct Case {
    int form;
    const char* load;
    double cos_phi;
    const char* require;
    const char* message;
  };
  const char* bad_cos = "'功率因数'输入非法, 请输入[0, 1]之间的实数!";
  const Case cases[] = {
      {0, "100", 0.8, "5", "accepted"},
      {0, "", 5, "", "'负荷计算电流'输入非法, 请输入大于0的实数!"},  // the load first
      {1, "1a", 0.8, "5", "'有功负荷'输入非法, 请输入大于0的实数!"},
      {0, "100", 1.2, "", bad_cos},
      {1, "100", 0.0004, "5", bad_cos},
      {0, "100", 1.0004, "5", "accepted"},  // its "%.3f" text reads 1.000
      {1, "100", 0.8, "-5", "'线路电压损失'输入非法, 请输入大于0的实数!"},
  };
  for (const Case& c : cases) {
    LengthInputs in;
    in.form = c.form;
    (c.form == 0 ? in.current : in.load) = c.load;
    (c.form == 0 ? in.load : in.current) = "x";  // the other form's field plays no part
    in.cos_phi = c.cos_phi;
    in.require = c.require;
    EXPECT_EQ(MessageOf(FirstRefusal(in)), c.message) << c.form << " " << c.load << " " << c.cos_phi;
  }
}

TEST(DyssChoices, LoadSituationsSelectForms) {
  // Kinds 0 and 1: the form is the item; kinds 2 and 3: twice the item.
  const int forms[][3] = {{0, 4, 4}, {1, 1, 1}, {2, 1, 2}, {2, 2, 4}, {3, 0, 0}, {3, 2, 4}};
  for (const auto& [kind, item, form] : forms) EXPECT_EQ(FormOf(kind, item), form) << kind << "/" << item;
  for (auto [kind, item] : {std::pair{2, 3}, {0, 5}, {4, 0}, {-1, 0}, {0, -1}})
    EXPECT_FALSE(FormOf(kind, item)) << kind << "/" << item;
  EXPECT_STREQ(LoadCasesOf(3)[2].text, "终端负荷且cosφ=1或直流线路用负荷矩(kW.km)表示");
  EXPECT_TRUE(LoadCasesOf(7).empty());
  // Form 4 takes six loads for kinds 0 and 1, one for kinds 2 and 3; other items leave it alone.
  EXPECT_EQ(OtherLoadsEnabled(2, 2), false);
  EXPECT_EQ(OtherLoadsEnabled(3, 2), false);
  EXPECT_EQ(OtherLoadsEnabled(1, 4), true);
  EXPECT_EQ(OtherLoadsEnabled(0, 2), std::nullopt);
  EXPECT_EQ(OtherLoadsEnabled(2, 0), std::nullopt);
}

}  // namespace

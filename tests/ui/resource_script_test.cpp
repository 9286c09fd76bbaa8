#include <gtest/gtest.h>

#include <string>

#include "ui/resource_script.h"

using ui::ResourceError;
using ui::ResourceSet;

namespace {
const char* kScript = R"rc(
// A dialog with the statements the calculators use.
#define IDD_T 300
#define IDC_EDIT 1001
STRINGTABLE
BEGIN
    100 "OrvelKestra"
    101, "带""引号""的文字"
END
IDD_T DIALOGEX 0, 0, 200, 120
STYLE DS_MODALFRAME | WS_POPUP | WS_CAPTION | WS_SYSMENU
CAPTION "测试"
FONT 9, "宋体", 400, 0, 0x86
BEGIN
    LTEXT "自然平均功率因数:", IDC_STATIC, 10, 12, 70, 10
    EDITTEXT IDC_EDIT, 80, 10, 40, 12, ES_AUTOHSCROLL | KS_DOUBLE
    CONTROL "", 1002, "msctls_updown32", UDS_AUTOBUDDY | UDS_ARROWKEYS, 120, 10, 10, 12
    PUSHBUTTON "  输出\n计算文件", 1003, 150, 40, 40, 24, BS_MULTILINE
    COMBOBOX 1004, 10, 40, 60, 80, CBS_DROPDOWNLIST | WS_VSCROLL | NOT WS_VISIBLE
    /* block comment */ DEFPUSHBUTTON "确定", IDOK, 40, 100, 50, 14
    CONTROL "x", 1005, "Button", BS_AUTORADIOBUTTON | WS_GROUP, 10, 60, 40, 10, WS_EX_TRANSPARENT
END
IDD_T DLGINIT
BEGIN
    1004, "铜"
    1004, "铝"
END
)rc";
}  // namespace

TEST(ResourceScript, ReadsDialogsStringsAndListItems) {
  ResourceSet set;
  set.Parse(kScript, "t.rc");
  ASSERT_NE(set.FindString(100), nullptr);
  EXPECT_EQ(*set.FindString(100), "OrvelKestra");
  EXPECT_EQ(*set.FindString(101), "带\"引号\"的文字");
  const ui::DialogTemplate* d = set.FindDialog(300);
  ASSERT_NE(d, nullptr);
  EXPECT_EQ(d->caption, "测试");
  EXPECT_EQ(d->font_face, "宋体");
  EXPECT_EQ(d->font_points, 9);
  EXPECT_EQ(d->cx, 200);
  ASSERT_EQ(d->controls.size(), 7u);
  EXPECT_EQ(d->controls[0].id, -1);
  EXPECT_EQ(d->controls[0].class_name, "Static");
  EXPECT_EQ(d->controls[1].id, 1001);
  EXPECT_TRUE(d->controls[1].Has("KS_DOUBLE"));
  EXPECT_EQ(d->controls[2].class_name, "msctls_updown32");
  EXPECT_EQ(d->controls[3].text, "  输出\n计算文件");
  EXPECT_TRUE(d->controls[4].not_styles.count("WS_VISIBLE"));
  EXPECT_EQ(d->controls[5].id, 1);
  EXPECT_TRUE(d->controls[6].Has("WS_GROUP"));
  EXPECT_TRUE(d->controls[6].Has("WS_EX_TRANSPARENT"));
  EXPECT_EQ(d->initial_items.at(1004), (std::vector<std::string>{"铜", "铝"}));
  EXPECT_EQ(set.Symbol("IDC_EDIT"), 1001);
}

TEST(ResourceScript, SyntaxErrorsNameFileAndLine) {
  const std::string deep(200000, '(');
  struct Case {
    std::string text;
    const char* expect;
  } cases[] = {
      {"1 DIALOGEX 0,0,10,10\nBEGIN\n  LTEXT \"a\", 5, 1, 2, 3\nEND\n", "x.rc:4:"},
      {"1 DIALOGEX 0,0,10,10\nBEGIN\n  EDITTEXT IDC_NOPE, 1, 2, 3, 4\nEND\n", "unknown symbol 'IDC_NOPE'"},
      {"1 DIALOGEX 0,0,10,10\nCAPTION \"open\nBEGIN\nEND\n", "unterminated string"},
      {"1 DIALOGEX 0,0,10,10\nBEGIN\n  FANCYBOX 1, 2, 3, 4, 5\nEND\n", "unknown control statement"},
      {"1 DIALOGEX 0,0,10,10\nBEGIN\nEND\n1 DIALOGEX 0,0,5,5\nBEGIN\nEND\n", "defined twice"},
      {"7 DLGINIT\nBEGIN\n 1, \"a\"\nEND\n", "unknown dialog 7"},
      {"1 DIALOGEX 0,0,10,10\nBEGIN\n", "without END"},
      // Bounded: no endless loop, no integer overflow, no stack overflow.
      {"STRINGTABLE\n", "STRINGTABLE without BEGIN"},
      {"STRINGTABLE DISCARDABLE 100 \"a\"\n", "STRINGTABLE without BEGIN"},
      {"1 DIALOGEX 0,0,9223372036854775807,10\nBEGIN\nEND\n", "bad number"},
      {"#define IDD_X 99999999999999999999\n", "bad number"},
      {"STRINGTABLE\nBEGIN\n 4294967295 \"a\"\nEND\n", "out of range"},
      {"1 DIALOGEX 0,0,2147483647+1,10\nBEGIN\nEND\n", "out of range"},
      {"1 DIALOGEX 0,0,-2147483647-2,10\nBEGIN\nEND\n", "out of range"},
      {"1 DIALOGEX 0,0," + deep + "1,10\nBEGIN\nEND\n", "nested too deeply"},
      {"1 DIALOGEX 0,0," + std::string(200000, '-') + "1,10\nBEGIN\nEND\n", "nested too deeply"},
      {"1 DIALOGEX 0,0,10,10\nSTYLE " + deep + "WS_POPUP\nBEGIN\nEND\n", "nested too deeply"},
  };
  for (const auto& c : cases) {
    ResourceSet set;
    try {
      set.Parse(c.text, "x.rc");
      ADD_FAILURE() << "accepted: " << c.text.substr(0, 80);
    } catch (const ResourceError& e) {
      EXPECT_NE(std::string(e.what()).find(c.expect), std::string::npos) << e.what();
    }
  }
}

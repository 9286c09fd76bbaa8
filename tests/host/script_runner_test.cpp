// The script runner against small test dialogs: the script language, its errors, and the
// dialog framework's behaviour as a designer meets it.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "tests/host/test_dialogs.h"

namespace {

using kestra::testing::Log;
using kestra::testing::ScriptHarness;
using ::testing::HasSubstr;

// ---- errors -------------------------------------------------------------------------------

TEST(ScriptErrors, UnknownCommandStopsTheRunWithStatus2) {
  ScriptHarness h;
  EXPECT_EQ(h.Run("; first\n\nNOSUCH\nTMAIN\n"), 2);
  EXPECT_EQ(h.err(), "[error] line 3: unknown command NOSUCH\n");
  EXPECT_EQ(h.out(), "") << "nothing after the failing line runs";
}

TEST(ScriptErrors, ActionsNeedAnOpenDialog) {
  ScriptHarness h;
  EXPECT_EQ(h.Run("click 1\n"), 2);
  EXPECT_EQ(h.err(), "[error] line 1: no dialog is open for 'click'\n");
}

TEST(ScriptErrors, UnknownControlCancelsTheOpenDialogs) {
  ScriptHarness h;
  EXPECT_EQ(h.Run("TMAIN\nclick \"子对话框\"\n  ; comment\nset 999 1\nok\n"), 2);
  EXPECT_EQ(h.err(), "[error] line 4: no control 999 in the dialog 子对话框\n");
  EXPECT_EQ(h.out(),
            "[dialog] 测试对话框\n[dialog] 子对话框\n[closed] 子对话框 Cancel\n[closed] 测试对话框 Cancel\n");
}

TEST(ScriptErrors, BadSyntaxIsReportedWithItsLine) {
  struct Case {
    const char* script;
    const char* reason;
  } cases[] = {
      {"TMAIN\nset 101\n", "line 2: bad syntax: write set CTL TEXT"},
      {"TMAIN\nspin 110 sideways\n", "line 2: bad syntax: spin goes up or down"},
      {"TMAIN\nspin 110 up -2\n", "line 2: bad syntax: the count must be a number"},
      {"TMAIN\nclick 确定\n", "line 2: bad syntax: a control is an id or a quoted caption"},
      {"TMAIN\nclick \"确定\n", "line 2: bad syntax: a quoted word is not closed"},
      {"TMAIN\ntab x\n", "line 2: bad syntax: the page must be a number"},
      {"TMAIN\nok now\n", "line 2: bad syntax: write ok"},
      {"TMAIN\njump 101\n", "line 2: unknown action jump"},
      {"TMAIN\nTSHEET\n", "line 2: the command TSHEET cannot run while the dialog 测试对话框 is open"},
      {"TMAIN extra\n", "line 1: bad syntax: a command line holds only the command name"},
      {"TMAIN\nselect 107 钢\n", "line 2: no item \"钢\""},
      {"TMAIN\nset 113 1\n", "line 2: the edit 113 is disabled"},
      {"TMAIN\nprint-items 101\n", "line 2: a "},
      {"TMAIN\nset 110 1a\n", "line 2: the edit 110 does not take the text \"1a\""},
  };
  for (const Case& c : cases) {
    ScriptHarness h;
    EXPECT_EQ(h.Run(c.script), 2) << c.script;
    EXPECT_THAT(h.err(), HasSubstr(std::string("[error] ") + c.reason)) << c.script;
  }
}

TEST(ScriptErrors, DialogsLeftOpenAtTheEndAreCancelled) {
  ScriptHarness h;
  EXPECT_EQ(h.Run("TMAIN\nset 101 2\nclick \"子对话框\"\nset \"备注:\" x"), 0);  // no final line feed
  EXPECT_EQ(h.err(), "");
  EXPECT_THAT(h.out(), HasSubstr("[closed] 子对话框 Cancel\n[closed] 测试对话框 Cancel\n"));
  EXPECT_EQ(Log().events.back(), "sub 2 ") << "the sub-dialog's exchange did not run";
  EXPECT_EQ(Log().a, 0) << "a cancelled dialog exchanges nothing";
}

// ---- transcript and print formats --------------------------------------------------------

TEST(ScriptTranscript, PrintsControlsAsTheDesignerSeesThem) {
  ScriptHarness h;
  const char* script =
      "TMAIN\n"
      "click \"计算电容数量\"\n"
      "click \"铝芯\"\n"
      "select \"材料:\" 铝\n"
      "select 111 0\n"
      "print \"计算电容数量\"\n"
      "print 105\n"
      "print \"铝芯\"\n"
      "print \"材料:\"\n"
      "print 108\n"
      "print 111\n"
      "print 112\n"
      "print 113\n"
      "print \"  输出\\n计算文件\"\n"
      "print-items 107\n"
      "click \"  输出\\n计算文件\"\n"
      "cancel\n";
  ASSERT_EQ(h.Run(script), 0) << h.err();
  EXPECT_EQ(h.out(),
            "[dialog] 测试对话框\n"
            "\"计算电容数量\" = 计算电容数量 [checked]\n"
            "105 = 铜芯\n"
            "\"铝芯\" = 铝芯 [checked]\n"
            "\"材料:\" = 铝 #1\n"
            "108 =  #-1\n"
            "111 = 甲 #0\n"
            "112 =  [hidden]\n"
            "113 =  [disabled]\n"
            "\"  输出\\n计算文件\" =   输出\\n计算文件\n"
            "铜\n铝\n"
            "[message] 提示: 第一行\\n第二行\n"
            "[closed] 测试对话框 Cancel\n");
  EXPECT_EQ(Log().events, (std::vector<std::string>{"check 1", "material 1"}));
}

TEST(ScriptTranscript, ReportsAreListed) {
  namespace fs = std::filesystem;
  fs::path dir = fs::temp_directory_path() / "kestra_script_test";
  fs::remove_all(dir);
  ScriptHarness h;
  ASSERT_EQ(h.Run("TMAIN\nclick \"计算书\"\ncancel\n"), 0) << h.err();
  // The host names the file after the report's title.
  std::string out = h.out();
  std::string tag = "[report] " + (dir / "测试计算书").string();
  auto at = out.find(tag);
  ASSERT_NE(at, std::string::npos) << out;
  std::string path = out.substr(at + 9, out.find('\n', at) - at - 9);
  EXPECT_TRUE(path.ends_with(".docx")) << path;
  EXPECT_TRUE(fs::exists(path)) << path;
  fs::remove_all(dir);
}

// ---- dialog semantics --------------------------------------------------------------------

TEST(ScriptDialogs, ExchangeStopsAtTheFirstRefusedField) {
  ScriptHarness h;
  ASSERT_EQ(h.Run("TMAIN\nset 101 1.5\nset \"数值B:\" 2x\nset \"名称:\" 线路\nok\nprint 101\n"
                  "set 102 \" 2.5 \"\nok\n"),
            0)
      << h.err();
  EXPECT_EQ(h.out(),
            "[dialog] 测试对话框\n"
            "[message] OrvelKestra: 请输入一个数字。\n"
            "101 = 1.5\n"
            "[closed] 测试对话框 OK\n");
  EXPECT_EQ(Log().a, 1.5);
  EXPECT_EQ(Log().b, 2.5);
  EXPECT_EQ(Log().name, "线路");
}

TEST(ScriptDialogs, RefusedFieldLeavesLaterFieldsUntouched) {
  ScriptHarness h;
  // The refusal at 102 ends the exchange before 103; the dialog is then cancelled.
  ASSERT_EQ(h.Run("TMAIN\nset 101 4\nset 102 x\nset 103 名\nok\ncancel\n"), 0) << h.err();
  EXPECT_EQ(Log().a, 4) << "earlier fields already exchanged";
  EXPECT_EQ(Log().name, "") << "later fields not exchanged";
}

TEST(ScriptDialogs, ComboPrefixSearchSpinDropAndFocus) {
  ScriptHarness h;
  ASSERT_EQ(h.Run("TMAIN\nset \"型号:\" vv\nset 108 bv-4\nset 108 X\ndrop 107\nspin 110 up 2\nspin 109 down\n"
                  "print 110\nset 103 名称\nleave 103\ncancel\n"),
            0)
      << h.err();
  EXPECT_EQ(Log().events, (std::vector<std::string>{"prefix 1", "prefix 2", "prefix -1", "drop 107", "delta 1",
                                                    "delta 1", "delta -1", "left 103 名称"}));
  EXPECT_THAT(h.out(), HasSubstr("110 = 4\n"));
}

TEST(ScriptDialogs, SubDialogIsTheTopmostUntilItCloses) {
  ScriptHarness h;
  ASSERT_EQ(h.Run("TMAIN\nclick \"子对话框\"\nset \"备注:\" 已检查\nprint 201\nok\nset 101 3\nok\n"), 0) << h.err();
  EXPECT_EQ(h.out(),
            "[dialog] 测试对话框\n[dialog] 子对话框\n201 = 已检查\n[closed] 子对话框 OK\n[closed] 测试对话框 OK\n");
  EXPECT_EQ(Log().events, (std::vector<std::string>{"sub 1 已检查"}));
  EXPECT_EQ(Log().a, 3);
}

TEST(ScriptDialogs, ControlsCreatedAtRunTime) {
  ScriptHarness h;
  ASSERT_EQ(h.Run("TMAIN\nclick \"添加\"\nset 120 新值\nprint 120\nselect 121 1\nprint 121\nselect 121 甲行\n"
                  "print-items 121\nheader 121 1\npick 122 1 0\nprint 122\nprint-items 122\ncancel\n"),
            0)
      << h.err();
  EXPECT_THAT(h.out(), HasSubstr("120 = 新值\n121 = 乙行 #1\n甲行 | 1\n乙行 | 2\n122 = 0.3\n0.1 | 0.2\n0.3 | 0.4\n"));
  EXPECT_EQ(Log().events, (std::vector<std::string>{"header 1", "picked 0.3"}));
}

TEST(ScriptDialogs, RunTimeControlsHaveNoLabel) {
  ScriptHarness h;
  // The runtime edit 120 follows the template's last control, the label "附加:", in the
  // dialog's list of controls; that label is not the edit's.
  EXPECT_EQ(h.Run("TMAIN\nclick \"添加\"\nset \"附加:\" x\n"), 2);
  EXPECT_THAT(h.err(), HasSubstr("[error] line 3: no control \"附加:\""));
}

TEST(ScriptDialogs, PropertySheetActivationAndKillActive) {
  ScriptHarness h;
  ASSERT_EQ(h.Run("TSHEET\nset \"长度:\" abc\ntab 1\nprint 12320\nset 301 2\ntab 1\nprint 12320\n"
                  "set \"长度:\" 7\nprint 302\ncancel\n"),
            0)
      << h.err();
  EXPECT_EQ(Log().events, (std::vector<std::string>{"set 0", "kill 0 refused", "kill 0 ok", "set 1"}));
  EXPECT_EQ(h.out(),
            "[dialog] 分页对话框\n"
            "[message] OrvelKestra: 请输入一个数字。\n"
            "12320 = 第一页\n"
            "12320 = 第二页\n"
            "302 =  [hidden]\n"
            "[closed] 分页对话框 Cancel\n");
  EXPECT_EQ(Log().page1_len, "2");
  EXPECT_EQ(Log().page2_len, "7") << "the id on the shown page wins";
}

TEST(ScriptDialogs, ControlsOfHiddenPagesCannotBeUsed) {
  ScriptHarness h;
  EXPECT_EQ(h.Run("TSHEET\ntab 1\nset 302 5\n"), 2);
  EXPECT_THAT(h.err(), HasSubstr("[error] line 3: control 302 lies in a hidden or disabled page"));
}

TEST(ScriptDialogs, OneInputFormShownAndEnabledAtATime) {
  ScriptHarness h;
  ASSERT_EQ(h.Run("TSHEET\ntab 1\nset \"参数:\" 1\nclick \"电缆\"\nset 401 2\nprint 401\ncancel\n"), 0) << h.err();
  EXPECT_EQ(Log().form1, "1");
  EXPECT_EQ(Log().form2, "2");
  EXPECT_FALSE(Log().form1_shown);
  EXPECT_FALSE(Log().form1_enabled);
  EXPECT_TRUE(Log().form2_shown);
  EXPECT_TRUE(Log().form2_enabled);
  EXPECT_THAT(h.out(), HasSubstr("401 = 2\n"));
}

}  // namespace

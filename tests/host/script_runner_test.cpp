// The script runner against small test dialogs (tests/host/data/test_dialogs.rc): the script
// language, its errors, and the dialog framework's behaviour as a designer meets it.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "host/core/host_session.h"
#include "host/script/script_runner.h"
#include "tests/support/temp_folder.h"
#include "ui/data_exchange.h"
#include "ui/headless_host.h"
#include "ui/property_sheet.h"
#include "ui/resource_script.h"

namespace {

namespace fs = std::filesystem;
using ::testing::HasSubstr;
using Events = std::vector<std::string>;

// What the test dialogs saw: handler calls in order, and the main dialog's first value and
// the sheet's pages when they closed.
struct DialogLog {
  Events events;
  double a = 0;
  std::string sheet;
} g_log;

void Event(std::string e) { g_log.events.push_back(std::move(e)); }

class SubDlg : public ui::Dialog {
 public:
  SubDlg() : Dialog(901) {}
  void DoDataExchange(ui::DataExchange& dx) override { dx.Text(201, note); }
  std::string note;
};

// Dialog 900: one control of each kind with a handler that logs, a sub-dialog (901) and
// controls added at run time.
class MainDlg : public ui::Dialog {
 public:
  MainDlg() : Dialog(900) {
    On(107, ui::Notify::SelChange, [this] { Event("material " + std::to_string(GetDlgItem(107)->GetCurSel())); });
    On(107, ui::Notify::DropDown, [] { Event("drop 107"); });
    On(108, ui::Notify::EditChange, [this] {
      ui::Control* c = GetDlgItem(108);
      Event("prefix " + std::to_string(c->FindString(-1, c->GetWindowText())));
    });
    On(103, ui::Notify::KillFocus, [this] { Event("left 103 " + GetDlgItemText(103)); });
    OnArg(109, ui::Notify::DeltaPos, [](int d) { Event("delta " + std::to_string(d)); });
    On(104, ui::Notify::Clicked, [this] { Event("check " + std::to_string(IsDlgButtonChecked(104))); });
    On(114, ui::Notify::Clicked, [] {
      SubDlg sub;
      int r = sub.DoModal();
      Event("sub " + std::to_string(r) + " " + sub.note);
    });
    On(115, ui::Notify::Clicked, [this] { AddRuntimeControls(); });
    On(116, ui::Notify::Clicked, [this] { MessageBox("第一行\n第二行", "提示"); });
    On(118, ui::Notify::Clicked, [] {
      auto path = ui::CurrentHost()->NewReportPath("测试计算书");
      if (!path) return;
      std::ofstream(*path) << "report";
      ui::CurrentHost()->ShowReport(*path);
    });
    OnArg(121, ui::Notify::HeaderClick, [](int col) { Event("header " + std::to_string(col)); });
    On(122, ui::Notify::SelChange, [this] { Event("picked " + GetDlgItem(122)->PickedText()); });
  }
  ~MainDlg() override { g_log.a = a; }
  bool OnInitDialog() override {
    Dialog::OnInitDialog();
    GetDlgItem(109)->SetRange(0, 10);
    GetDlgItem(109)->SetPos(3);
    SetDlgItemText(110, "3");
    return true;
  }
  void DoDataExchange(ui::DataExchange& dx) override { dx.Real(101, a); }
  double a = 0;

 private:
  void AddRuntimeControls() {
    if (GetDlgItem(120)) return;
    CreateControl(ui::Kind::Edit, 120, "运行时", ui::Rect{0, 0, 50, 12});
    ui::Control& list = CreateControl(ui::Kind::ListView, 121, "", ui::Rect{0, 20, 100, 80});
    list.InsertColumn(0, "名称", 40);
    list.InsertColumn(1, "数量", 40);
    list.InsertItem(0, "甲行");
    list.SetItemText(0, 1, "1");
    list.InsertItem(1, "乙行");
    list.SetItemText(1, 1, "2");
    CreateControl(ui::Kind::Table, 122, "", ui::Rect{0, 100, 100, 80})
        .SetTable(ui::TableData{"系数", {"A", "B"}, {{"0.1", "0.2"}, {"0.3", "0.4"}}, ""});
    ui::VectorPicture slide{"Jsdl2", 40, 30, 0, {{0, 0, 10, 0, 7}, {10, 0, 10, 10, 7}}, {{{{1, 1}, {2, 1}, {2, 2}}, 2, 1}}};
    CreateControl(ui::Kind::Frame, 123, "", ui::Rect{0, 180, 40, 210}).SetPicture(slide);
  }
};

class Page1 : public ui::PropertyPage {
 public:
  Page1() : PropertyPage(903, "第一页") {}
  void DoDataExchange(ui::DataExchange& dx) override { dx.Real(301, len); }
  double len = 0;
};

// Page 904 holds two input forms (905, 906) in one frame, switched by two radios.
class Page2 : public ui::PropertyPage {
 public:
  Page2() : PropertyPage(904, "第二页") {
    On(402, ui::Notify::Clicked, [this] { ShowForm(0); });
    On(403, ui::Notify::Clicked, [this] { ShowForm(1); });
  }
  bool OnInitDialog() override {
    PropertyPage::OnInitDialog();
    ui::Rect frame = GetDlgItem(404)->GetWindowRect();
    for (ui::Dialog* f : {&form1, &form2}) {
      f->Create(this);
      f->MoveWindow(frame);
    }
    CheckRadioButton(402, 403, 402);
    ShowForm(0);
    return true;
  }
  void ShowForm(int n) {
    form1.ShowWindow(n == 0);
    form1.EnableWindow(n == 0);
    form2.ShowWindow(n == 1);
    form2.EnableWindow(n == 1);
  }
  ui::Dialog form1{905}, form2{906};
};

class SheetDlg : public ui::Dialog {
 public:
  SheetDlg() : Dialog(902) {}
  // The lengths on both pages, then each input form's value, visibility and state.
  ~SheetDlg() override {
    if (!page2.IsCreated()) return;
    auto form = [](ui::Dialog& f) {
      return f.GetDlgItemText(401) + (f.IsWindowVisible() ? " shown" : " hidden") +
             (f.IsWindowEnabled() ? " enabled" : " disabled");
    };
    g_log.sheet = page1.GetDlgItemText(301) + " " + page2.GetDlgItemText(301) + " | " + form(page2.form1) + " | " +
                  form(page2.form2);
  }
  bool OnInitDialog() override {
    Dialog::OnInitDialog();
    sheet.AddPage(&page1);
    sheet.AddPage(&page2);
    sheet.Create(this, ui::Rect{5, 5, 380, 280});
    return true;
  }
  ui::PropertySheet sheet;
  Page1 page1;
  Page2 page2;
};

const ui::ResourceSet& TestResources() {
  static const ui::ResourceSet set = [] {
    ui::ResourceSet s;
    s.Parse(kestra::testing::ReadFile(std::string(KESTRA_SOURCE_DIR) + "/tests/host/data/test_dialogs.rc"),
            "test_dialogs.rc");
    return s;
  }();
  return set;
}

// A headless session with the commands TMAIN (dialog 900) and TSHEET (902) and a runner.
class ScriptHarness {
 public:
  ScriptHarness() : ui_(out_), session_(ui_), runner_(session_, ui_, out_, err_) {
    g_log = DialogLog{};
    ui::PushResources(&TestResources());
    session_.AddCommand("Test", "TMAIN", [] { MainDlg().DoModal(); }, 2);
    session_.AddCommand("Test", "TSHEET", [] { SheetDlg().DoModal(); }, 2);
    ui_.SetReportDir(reports_.path().string());
  }
  ~ScriptHarness() { ui::PopResources(); }
  int Run(const std::string& script) { return runner_.Run(script); }
  std::string out() const { return out_.str(); }
  std::string err() const { return err_.str(); }
  const kestra::testing::TempFolder reports_;

 private:
  std::ostringstream out_, err_;
  ui::HeadlessHost ui_;
  kestra::host::HostSession session_;
  kestra::script::ScriptRunner runner_;
};

// ---- errors -------------------------------------------------------------------------------

// A line that cannot be carried out: its number and reason, status 2, nothing after it runs,
// open dialogs cancelled innermost first.
TEST(ScriptErrors, AreReportedWithTheirLineAndEndTheRun) {
  const struct {
    const char* script;
    const char* error;
    const char* transcript = nullptr;  // checked when given
  } cases[] = {
      {"; first\n\nNOSUCH\nTMAIN\n", "line 3: unknown command NOSUCH", ""},
      {"click 1\n", "line 1: no dialog is open for 'click'", ""},
      {"TMAIN\nclick \"子对话框\"\n  ; comment\nset 999 1\nok\n", "line 4: no control 999 in the dialog 子对话框",
       "[dialog] 测试对话框\n[dialog] 子对话框\n[closed] 子对话框 Cancel\n[closed] 测试对话框 Cancel\n"},
      {"TMAIN\nset 101\n", "line 2: bad syntax: write set CTL TEXT",
       "[dialog] 测试对话框\n[closed] 测试对话框 Cancel\n"},
      {"TMAIN\nspin 110 sideways\n", "line 2: bad syntax: spin goes up or down, not sideways"},
      {"TMAIN\nspin 110 up -2\n", "line 2: bad syntax: the count must be a number, not -2"},
      {"TMAIN\nclick 确定\n", "line 2: bad syntax: a control is an id or a quoted caption or label, not 确定"},
      {"TMAIN\nclick \"确定\n", "line 2: bad syntax: a quoted word is not closed"},
      {"TMAIN\ntab x\n", "line 2: bad syntax: the page must be a number, not x"},
      {"TMAIN\nok now\n", "line 2: bad syntax: write ok"},
      {"TMAIN\njump 101\n", "line 2: unknown action jump"},
      {"TMAIN\nTSHEET\n", "line 2: the command TSHEET cannot run while the dialog 测试对话框 is open"},
      {"TMAIN extra\n", "line 1: bad syntax: a command line holds only the command name", ""},
      {"TMAIN\nselect 107 钢\n", "line 2: no item \"钢\""},
      {"TMAIN\nset 113 1\n", "line 2: the edit 113 is disabled"},
      {"TMAIN\nprint-items 101\n", "line 2: a edit has no items"},
      {"TMAIN\nset 110 1a\n", "line 2: the edit 110 does not take the text \"1a\""},
      // The runtime edit 120 follows the template's last control, the label "附加:", in the
      // dialog's list of controls; that label is not the edit's.
      {"TMAIN\nclick \"添加\"\nset \"附加:\" x\n", "line 3: no control \"附加:\" in the dialog 测试对话框"},
      {"TSHEET\ntab 1\nset 302 5\n", "line 3: control 302 lies in a hidden or disabled page"},
  };
  for (const auto& c : cases) {
    ScriptHarness h;
    EXPECT_EQ(h.Run(c.script), 2) << c.script;
    EXPECT_EQ(h.err(), std::string("[error] ") + c.error + "\n") << c.script;
    if (c.transcript) {
      EXPECT_EQ(h.out(), c.transcript) << c.script;
    }
  }
}

TEST(ScriptErrors, DialogsLeftOpenAtTheEndAreCancelled) {
  ScriptHarness h;
  EXPECT_EQ(h.Run("TMAIN\nset 101 2\nclick \"子对话框\"\nset \"备注:\" x"), 0);  // no final line feed
  EXPECT_EQ(h.err(), "");
  EXPECT_THAT(h.out(), HasSubstr("[closed] 子对话框 Cancel\n[closed] 测试对话框 Cancel\n"));
  EXPECT_EQ(g_log.events.back(), "sub 2 ") << "the sub-dialog's exchange did not run";
  EXPECT_EQ(g_log.a, 0) << "a cancelled dialog exchanges nothing";
}

// ---- transcripts and handlers -------------------------------------------------------------

// Each designer action reaches its handler and each print shows the control as the designer
// sees it.
TEST(ScriptDialogs, ActionsReachTheirHandlersAndPrintsShowTheControls) {
  const struct {
    const char* what;
    const char* script;
    const char* transcript;
    bool whole;  // the transcript is the whole output, not a part of it
    Events events;
    double a;  // the main dialog's first value when it closed
  } cases[] = {
      {"print formats",
       "TMAIN\nclick \"计算电容数量\"\nclick \"铝芯\"\nselect \"材料:\" 铝\nselect 111 0\nprint \"计算电容数量\"\n"
       "print 105\nprint \"铝芯\"\nprint \"材料:\"\nprint 108\nprint 111\nprint 112\nprint 113\n"
       "print \"  输出\\n计算文件\"\nprint-items 107\nclick \"  输出\\n计算文件\"\ncancel\n",
       "[dialog] 测试对话框\n\"计算电容数量\" = 计算电容数量 [checked]\n105 = 铜芯\n\"铝芯\" = 铝芯 [checked]\n"
       "\"材料:\" = 铝 #1\n108 =  #-1\n111 = 甲 #0\n112 =  [hidden]\n113 =  [disabled]\n"
       "\"  输出\\n计算文件\" =   输出\\n计算文件\n铜\n铝\n[message] 提示: 第一行\\n第二行\n[closed] 测试对话框 Cancel\n",
       true, {"check 1", "material 1"}, 0},
      {"combo prefix search (any case), drop, spin by arrow and buddy, focus leaving",
       "TMAIN\nset \"型号:\" vv\nset 108 bv-4\nset 108 X\ndrop 107\nspin 110 up 2\nspin 109 down\nprint 110\n"
       "set 103 名称\nleave 103\ncancel\n",
       "110 = 4\n", false,
       {"prefix 1", "prefix 2", "prefix -1", "drop 107", "delta 1", "delta 1", "delta -1", "left 103 名称"}, 0},
      {"a sub-dialog is the topmost until it closes",
       "TMAIN\nclick \"子对话框\"\nset \"备注:\" 已检查\nprint 201\nok\nset 101 3\nok\n",
       "[dialog] 测试对话框\n[dialog] 子对话框\n201 = 已检查\n[closed] 子对话框 OK\n[closed] 测试对话框 OK\n", true,
       {"sub 1 已检查"}, 3},
      {"controls created at run time",
       "TMAIN\nclick \"添加\"\nset 120 新值\nprint 120\nselect 121 1\nprint 121\nselect 121 甲行\nprint-items 121\n"
       "header 121 1\npick 122 1 0\nprint 122\nprint-items 122\nprint 123\ncancel\n",
       "120 = 新值\n121 = 乙行 #1\n甲行 | 1\n乙行 | 2\n122 = 0.3\n0.1 | 0.2\n0.3 | 0.4\n"
       "123 =  [slide Jsdl2, 2 vectors, 1 fill]\n", false,
       {"header 1", "picked 0.3"}, 0},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    ScriptHarness h;
    ASSERT_EQ(h.Run(c.script), 0) << h.err();
    if (c.whole)
      EXPECT_EQ(h.out(), c.transcript);
    else
      EXPECT_THAT(h.out(), HasSubstr(c.transcript));
    EXPECT_EQ(g_log.events, c.events);
    EXPECT_EQ(g_log.a, c.a);
  }
}

TEST(ScriptTranscript, ReportsAreListed) {
  ScriptHarness h;
  ASSERT_EQ(h.Run("TMAIN\nclick \"计算书\"\ncancel\n"), 0) << h.err();
  // The host names the file after the report's title.
  std::string out = h.out();
  std::string tag = "[report] " + h.reports_ / "测试计算书";
  auto at = out.find(tag);
  ASSERT_NE(at, std::string::npos) << out;
  std::string path = out.substr(at + 9, out.find('\n', at) - at - 9);
  EXPECT_TRUE(path.ends_with(".docx")) << path;
  EXPECT_TRUE(fs::exists(path)) << path;
}

// ---- dialog semantics --------------------------------------------------------------------

// "tab" goes to a page only when the shown one takes its value; on the second page exactly one
// of its two input forms is shown and enabled at a time, each keeping its own value, and a
// label or an id names the control on the shown page or form.
TEST(ScriptDialogs, PagesAndInputForms) {
  ScriptHarness h;
  ASSERT_EQ(h.Run("TSHEET\nset \"长度:\" abc\ntab 1\nprint 12320\nset 301 2\ntab 1\nprint 12320\n"
                  "set \"长度:\" 7\nprint 302\nset \"参数:\" 1\nclick \"电缆\"\nset 401 2\nprint 401\ncancel\n"),
            0)
      << h.err();
  EXPECT_EQ(h.out(),
            "[dialog] 分页对话框\n"
            "[message] OrvelKestra: 请输入一个数字。\n"
            "12320 = 第一页\n"
            "12320 = 第二页\n"
            "302 =  [hidden]\n"
            "401 = 2\n"
            "[closed] 分页对话框 Cancel\n");
  // "长度:" went to the shown page's 301.
  EXPECT_EQ(g_log.sheet, "2 7 | 1 hidden disabled | 2 shown enabled");
}

}  // namespace

#include "tests/host/test_dialogs.h"

#include <filesystem>
#include <fstream>

#include "ui/data_exchange.h"
#include "ui/property_sheet.h"
#include "ui/resource_script.h"

namespace kestra::testing {
namespace {

const ui::ResourceSet& TestResources() {
  static const ui::ResourceSet set = [] {
    std::ifstream in(std::string(KESTRA_SOURCE_DIR) + "/tests/host/data/test_dialogs.rc", std::ios::binary);
    std::stringstream text;
    text << in.rdbuf();
    ui::ResourceSet s;
    s.Parse(text.str(), "test_dialogs.rc");
    return s;
  }();
  return set;
}

void Event(std::string e) { Log().events.push_back(std::move(e)); }

class SubDlg : public ui::Dialog {
 public:
  SubDlg() : Dialog(901) {}
  void DoDataExchange(ui::DataExchange& dx) override { dx.Text(201, note); }
  std::string note;
};

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
    On(114, ui::Notify::Clicked, [this] {
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
  ~MainDlg() override {
    Log().a = a;
    Log().b = b;
    Log().name = name;
    Log().check = check;
    Log().radio = radio;
  }
  bool OnInitDialog() override {
    Dialog::OnInitDialog();
    GetDlgItem(109)->SetRange(0, 10);
    GetDlgItem(109)->SetPos(3);
    SetDlgItemText(110, "3");
    return true;
  }
  void DoDataExchange(ui::DataExchange& dx) override {
    dx.Real(101, a);
    dx.Real(102, b);
    dx.Text(103, name);
    dx.Check(104, check);
    dx.Radio(105, radio);
  }
  double a = 0, b = 0;
  std::string name;
  int check = 0, radio = -1;

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
    ui::Control& table = CreateControl(ui::Kind::Table, 122, "", ui::Rect{0, 100, 100, 80});
    table.SetTable(ui::TableData{"系数", {"A", "B"}, {{"0.1", "0.2"}, {"0.3", "0.4"}}, ""});
  }
};

class Page1 : public ui::PropertyPage {
 public:
  Page1() : PropertyPage(903, "第一页") {}
  void DoDataExchange(ui::DataExchange& dx) override { dx.Real(301, len); }
  bool OnSetActive() override {
    Event("set 0");
    return PropertyPage::OnSetActive();
  }
  bool OnKillActive() override {
    bool ok = PropertyPage::OnKillActive();
    Event(std::string("kill 0 ") + (ok ? "ok" : "refused"));
    return ok;
  }
  double len = 0;
};

class Form : public ui::Dialog {
 public:
  explicit Form(int id) : Dialog(id) {}
};

class Page2 : public ui::PropertyPage {
 public:
  Page2() : PropertyPage(904, "第二页") {
    On(402, ui::Notify::Clicked, [this] { ShowForm(0); });
    On(403, ui::Notify::Clicked, [this] { ShowForm(1); });
  }
  bool OnInitDialog() override {
    PropertyPage::OnInitDialog();
    ui::Rect frame = GetDlgItem(404)->GetWindowRect();
    for (Form* f : {&form1, &form2}) {
      f->Create(this);
      f->MoveWindow(frame);
    }
    CheckRadioButton(402, 403, 402);
    ShowForm(0);
    return true;
  }
  bool OnSetActive() override {
    Event("set 1");
    return PropertyPage::OnSetActive();
  }
  // Exactly one input form is shown and enabled at a time.
  void ShowForm(int n) {
    form1.ShowWindow(n == 0);
    form1.EnableWindow(n == 0);
    form2.ShowWindow(n == 1);
    form2.EnableWindow(n == 1);
  }
  Form form1{905}, form2{906};
};

class SheetDlg : public ui::Dialog {
 public:
  SheetDlg() : Dialog(902) {}
  ~SheetDlg() override {
    Log().page1_len = page1.IsCreated() ? page1.GetDlgItemText(301) : "";
    Log().page2_len = page2.IsCreated() ? page2.GetDlgItemText(301) : "";
    if (page2.IsCreated()) {
      Log().form1 = page2.form1.GetDlgItemText(401);
      Log().form2 = page2.form2.GetDlgItemText(401);
      Log().form1_shown = page2.form1.IsWindowVisible();
      Log().form2_shown = page2.form2.IsWindowVisible();
      Log().form1_enabled = page2.form1.IsWindowEnabled();
      Log().form2_enabled = page2.form2.IsWindowEnabled();
    }
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

void RunMain() {
  MainDlg dlg;
  dlg.DoModal();
}

void RunSheet() {
  SheetDlg dlg;
  dlg.DoModal();
}

}  // namespace

DialogLog& Log() {
  static DialogLog log;
  return log;
}

ScriptHarness::ScriptHarness() : ui_(out_), session_(ui_), runner_(session_, ui_, out_, err_) {
  Log() = DialogLog{};
  ui::PushResources(&TestResources());
  session_.AddCommand("Test", "TMAIN", &RunMain, 2);
  session_.AddCommand("Test", "TSHEET", &RunSheet, 2);
  ui_.SetReportDir((std::filesystem::temp_directory_path() / "kestra_script_test").string());
}

ScriptHarness::~ScriptHarness() { ui::PopResources(); }

}  // namespace kestra::testing

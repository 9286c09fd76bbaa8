// The entry messages and command handlers of the module, driven in this process, and the
// module context that carries host, data root and resources to the commands.
#include <gtest/gtest.h>

#include <algorithm>
#include <tuple>

#include "res/embedded.h"
#include "services/idp/idp_values.h"
#include "services/idp/inter_dp_data.h"
#include "shell/host_api.h"
#include "shell/module_commands.h"
#include "shell/module_context.h"
#include "shell/module_entry.h"
#include "shell/module_language.h"
#include "tests/shell/fake_host.h"
#include "tests/shell/test_module.h"
#include "ui/actions.h"
#include "wggl/wggl_command.h"

namespace {

using kestra::shell::AppPackage;
using kestra::shell::LoadedModule;
using kestra::testing::RecordingHost;
using kestra::testing::TestModule;
using Strings = std::vector<std::string>;

class ModuleEntry : public ::testing::Test {
 protected:
  void TearDown() override { acrxEntryPoint(kestra::shell::kUnloadAppMsg, &pkg_); }
  void Init() {
    pkg_.api = &host_;
    ASSERT_EQ(acrxEntryPoint(kestra::shell::kInitAppMsg, &pkg_), 0);
  }
  RecordingHost host_;
  AppPackage pkg_;
};

TEST_F(ModuleEntry, InitialisationRunsItsStepsInOrder) {
  Init();
  Strings want = {"unlock",
                  "document-mode",
                  "add OrvelKestra sample",
                  "add OrvelKestra WGGL",
                  "add OrvelKestra DYSSCAL",
                  "add OrvelKestra DJQDCAL",
                  "add OrvelKestra OrvelDieselContentCal",
                  "main-window"};
  EXPECT_EQ(host_.calls, want);
  ASSERT_NE(LoadedModule(), nullptr);
  EXPECT_EQ(LoadedModule()->host(), &host_);
  EXPECT_EQ(LoadedModule()->main_window(), &host_.window_tag);
  EXPECT_EQ(LoadedModule()->resources(), &kestra::res::ModuleResources());

  host_.calls.clear();
  EXPECT_EQ(acrxEntryPoint(kestra::shell::kUnloadAppMsg, &pkg_), 0);
  EXPECT_EQ(host_.calls, Strings{"remove OrvelKestra"});
  EXPECT_TRUE(host_.commands.empty());
  EXPECT_EQ(LoadedModule(), nullptr);
}

// Other messages and the "sample" command do nothing at all.
TEST_F(ModuleEntry, OtherMessagesDoNothingAndEverythingSucceeds) {
  Init();
  host_.calls.clear();
  for (int msg : {3, 4, 5, 0, 99, -1}) EXPECT_EQ(acrxEntryPoint(msg, &pkg_), 0) << msg;
  host_.Run("sample");
  EXPECT_TRUE(host_.calls.empty());
  EXPECT_TRUE(host_.lines.empty());
  EXPECT_EQ(acrxEntryPoint(kestra::shell::kInitAppMsg, nullptr), 0);  // no package: nothing to call
  EXPECT_GT(acrxGetApiVersion(), 0);
}

TEST_F(ModuleEntry, UnreadableResourcesStillRegisterTheCommands) {
  pkg_.api = &host_;
  kestra::shell::InitApplication(&pkg_, nullptr);
  ASSERT_EQ(host_.commands.size(), 5u);
  EXPECT_EQ(host_.calls.front(), "unlock");
  EXPECT_EQ(host_.commands[0].group, "OrvelKestra");  // the group's name does not need them
  host_.calls.clear();
  host_.Run("WGGL");  // nothing to show: the command only switches and restores
  EXPECT_EQ(host_.calls, (Strings{"push", "pop"}));
  EXPECT_EQ(host_.pushed, std::vector<const ui::ResourceSet*>{nullptr});
}

TEST_F(ModuleEntry, CommandsPushAndPopResourcesAndReturnVoidWhereDue) {
  Init();
  const ui::ResourceSet* before = ui::CurrentResources();
  for (const char* name : {"WGGL", "DYSSCAL", "DJQDCAL", "OrvelDieselContentCal"}) {
    host_.calls.clear();
    host_.Run(name);
    ASSERT_FALSE(host_.calls.empty());
    EXPECT_EQ(host_.calls.front(), "push") << name;
    EXPECT_EQ(host_.calls.back(), "pop") << name;
    const bool ret_void = std::find(host_.calls.begin(), host_.calls.end(), "ret-void") != host_.calls.end();
    EXPECT_EQ(ret_void, std::string(name) == "DYSSCAL" || std::string(name) == "DJQDCAL") << name;
    EXPECT_EQ(ui::CurrentResources(), before);
  }
  EXPECT_EQ(host_.ret_void, 2);
}

// Two hosts in one process, each with its own data root and dialog host; the second host's
// command runs while the first one's dialog is open, as two programs' commands would never
// meet. Each dialog shows in its own host, each parameter file goes to its own root, and the
// first dialog finds its own host and resources again afterwards.
TEST(ModuleContext, TwoHostsInOneProcessKeepTheirDialogsFilesAndResources) {
  RecordingHost host_a, host_b;
  TestModule a(&host_a), b(&host_b);
  const auto type_cos_phi1_and_ok = [](const char* text) {
    return [text](ui::Dialog& d) {
      ui::act::SetText(*ui::FindControl(d, 1001), text);
      ui::act::Click(*ui::FindControlByLabel(d, "计算"));
      ui::act::Ok(d);
    };
  };
  b.ui().SetDriver(type_cos_phi1_and_ok("0.9"));
  a.ui().SetDriver([&](ui::Dialog& d) {
    const ui::ResourceSet* inside_a = ui::CurrentResources();
    kestra::shell::RunInModule(b.context(), &kestra::wggl::RunWgglCommand, false);
    EXPECT_EQ(ui::CurrentHost(), &a.ui());
    EXPECT_EQ(ui::CurrentResources(), inside_a);
    type_cos_phi1_and_ok("0.8")(d);
  });
  const ui::UiHost* host_before = ui::CurrentHost();
  kestra::shell::RunInModule(a.context(), &kestra::wggl::RunWgglCommand, true);
  EXPECT_EQ(ui::CurrentHost(), host_before);

  for (auto [module, host, cos_phi1] : {std::tuple{&a, &host_a, "0.8"}, std::tuple{&b, &host_b, "0.9"}}) {
    EXPECT_EQ(module->transcript(), "[dialog] 无功功率补偿\n[closed] 无功功率补偿 OK\n");
    CInterDpData tree;
    tree.ReadDataFromIdpFile((module->root() / "Kestra/无功功率补偿计算.idp").string());
    EXPECT_EQ(kestra::idp::ValueOr(tree, "Wgglbc\\Zrglys", "<none>"), cos_phi1);
    EXPECT_EQ(host->pushed, std::vector<const ui::ResourceSet*>{&kestra::res::ModuleResources()});
  }
  EXPECT_EQ(host_a.calls, (Strings{"push", "ret-void", "pop"}));
  EXPECT_EQ(host_b.calls, (Strings{"push", "pop"}));
}

// A language-switch service that hands out one dictionary (after `none_first` questions
// answered with none) and records the questions.
class OneDictionary : public ZoLangSwitch {
 public:
  ZoDtDictionary dict;
  Strings asked;
  int none_first = 0;
  ZoDtDictionary* GetModuleDictionary(const std::string& key) override {
    asked.push_back(key);
    if (static_cast<int>(asked.size()) <= none_first) return nullptr;
    dict.key = key;
    return &dict;
  }
};

TEST(ModuleContext, ScopeMakesTheModulesLanguageCurrentAskingOnce) {
  OneDictionary service;
  ZoDtDictionary outer{"OUTER"};
  g_pQuendaLangSwitch = &service;
  g_pCurModuleLang = &outer;
  const kestra::shell::ModuleContext module(nullptr, nullptr, "D:\\Prog\\Sys\\OrvelKestra18.arx",
                                            &kestra::res::ModuleResources());
  EXPECT_EQ(module.data_root(), "D:\\Prog");
  for (int run = 0; run < 2; ++run) {
    kestra::shell::ModuleScope scope(module);
    EXPECT_EQ(ui::CurrentResources(), &kestra::res::ModuleResources());
    EXPECT_EQ(g_pCurModuleLang, &service.dict);
  }
  EXPECT_EQ(g_pCurModuleLang, &outer);
  EXPECT_EQ(service.asked, Strings{"ORVELKESTRA1"});

  // A service that has no dictionary for the key yet is asked again at the next switch; the
  // switch makes "none" current meanwhile.
  OneDictionary late;
  late.none_first = 2;
  g_pQuendaLangSwitch = &late;
  const kestra::shell::ModuleContext other(nullptr, nullptr, "/opt/kestra/bin/Kestra7.so",
                                           &kestra::res::ModuleResources());
  const ZoDtDictionary* seen[4] = {};
  for (const ZoDtDictionary*& s : seen) {
    kestra::shell::ModuleScope scope(other);
    s = g_pCurModuleLang;
  }
  EXPECT_EQ(seen[0], nullptr);
  EXPECT_EQ(seen[1], nullptr);
  EXPECT_EQ(seen[2], &late.dict);
  EXPECT_EQ(seen[3], &late.dict);
  EXPECT_EQ(late.asked, (Strings{"KESTRA", "KESTRA", "KESTRA"}));
  EXPECT_EQ(g_pCurModuleLang, &outer);
  g_pQuendaLangSwitch = nullptr;
  g_pCurModuleLang = nullptr;
}

// The key is the file name up to its point, without its last character, in capitals; a name
// without a trailing digit, a separator or a point, or with either at an end, has none.
TEST(ModuleLanguageKey, CutsTheFileNameByTheRules) {
  const std::pair<const char*, const char*> cases[] = {
      {"D:\\Prog\\Sys\\OrvelKestra18.arx", "ORVELKESTRA1"}, {"/opt/kestra/bin/orvelkestra18.so", "ORVELKESTRA1"},
      {"D:\\a\\Mod7.x.y", "MOD"}, {"D:\\a\\OrvelKestra.arx", ""}, {"OrvelKestra18.arx", ""},
      {"\\OrvelKestra18.arx", ""}, {"D:\\Prog\\", ""}, {"D:\\Prog\\.Kestra18", ""}, {"D:\\Prog\\Kestra18", ""},
      {"D:\\Prog\\1.arx", ""}};
  for (const auto& [path, key] : cases) EXPECT_EQ(kestra::shell::ModuleLanguageKey(path), key) << path;
}

}  // namespace

// The entry messages and command handlers of the module, driven in this process.
#include <gtest/gtest.h>

#include "res/embedded.h"
#include "shell/extension_module.h"
#include "shell/host_api.h"
#include "shell/module_commands.h"
#include "shell/module_state.h"
#include "shell/resource_guard.h"
#include "tests/shell/fake_host.h"

namespace {

using kestra::shell::AppPackage;
using kestra::testing::RecordingHost;

class ModuleEntry : public ::testing::Test {
 protected:
  void TearDown() override {
    acrxEntryPoint(kestra::shell::kUnloadAppMsg, &pkg_);
    kestra::shell::SetExtensionInitFailsForTesting(false);
  }
  void Init() {
    pkg_.api = &host_;
    ASSERT_EQ(acrxEntryPoint(kestra::shell::kInitAppMsg, &pkg_), 0);
  }
  RecordingHost host_;
  AppPackage pkg_;
};

TEST_F(ModuleEntry, InitialisationRunsItsStepsInOrder) {
  ASSERT_NE(kestra::shell::RecordedInstance(), nullptr) << "the start-up records the instance";
  Init();
  std::vector<std::string> want = {"unlock",
                                   "document-mode",
                                   "add OrvelKestra sample",
                                   "add OrvelKestra WGGL",
                                   "add OrvelKestra DYSSCAL",
                                   "add OrvelKestra DJQDCAL",
                                   "add OrvelKestra OrvelDieselContentCal",
                                   "main-window"};
  EXPECT_EQ(host_.calls, want);
  for (const auto& c : host_.commands) EXPECT_EQ(c.flags, 2) << c.name;
  EXPECT_EQ(kestra::shell::HostMainWindow(), &host_.window_tag);
  EXPECT_TRUE(kestra::shell::TheExtensionModule().initialised());
  EXPECT_NE(kestra::shell::TheExtensionModule().guard_instance(), nullptr);
  EXPECT_EQ(kestra::shell::ModuleName(), "OrvelKestra");

  host_.calls.clear();
  EXPECT_EQ(acrxEntryPoint(kestra::shell::kUnloadAppMsg, &pkg_), 0);
  EXPECT_EQ(host_.calls, std::vector<std::string>{"remove OrvelKestra"});
  EXPECT_TRUE(host_.commands.empty());
  EXPECT_FALSE(kestra::shell::TheExtensionModule().initialised());
}

TEST_F(ModuleEntry, OtherMessagesDoNothingAndEverythingSucceeds) {
  Init();
  host_.calls.clear();
  for (int msg : {3, 4, 5, 0, 99, -1}) EXPECT_EQ(acrxEntryPoint(msg, &pkg_), 0) << msg;
  EXPECT_TRUE(host_.calls.empty());
  EXPECT_EQ(acrxEntryPoint(kestra::shell::kInitAppMsg, nullptr), 0);  // no package: nothing to call
  EXPECT_GT(acrxGetApiVersion(), 0);
}

TEST_F(ModuleEntry, FailedExtensionRecordStillRegistersTheCommands) {
  kestra::shell::SetExtensionInitFailsForTesting(true);
  Init();
  EXPECT_FALSE(kestra::shell::TheExtensionModule().initialised());
  EXPECT_EQ(kestra::shell::TheExtensionModule().guard_instance(), nullptr);
  ASSERT_EQ(host_.commands.size(), 5u);
  EXPECT_EQ(host_.calls.front(), "unlock");
  EXPECT_EQ(host_.commands[0].group, "OrvelKestra");
  // The commands still find the module's resources through the recorded instance.
  host_.calls.clear();
  host_.Run("WGGL");
  ASSERT_FALSE(host_.pushed.empty());
  for (const ui::ResourceSet* r : host_.pushed) EXPECT_EQ(r, &kestra::res::ModuleResources());
}

TEST_F(ModuleEntry, SamplePrintsNothingAndTouchesNothing) {
  Init();
  host_.calls.clear();
  host_.Run("sample");
  EXPECT_TRUE(host_.calls.empty());
  EXPECT_TRUE(host_.lines.empty());
}

TEST_F(ModuleEntry, CommandsPushAndPopResourcesAndReturnVoidWhereDue) {
  Init();
  const ui::ResourceSet* before = ui::CurrentResources();
  for (const char* name : {"WGGL", "DYSSCAL", "DJQDCAL"}) {
    host_.calls.clear();
    host_.Run(name);
    ASSERT_FALSE(host_.calls.empty());
    EXPECT_EQ(host_.calls.front(), "push") << name;
    EXPECT_EQ(host_.calls.back(), "pop") << name;
    bool ret_void = std::find(host_.calls.begin(), host_.calls.end(), "ret-void") != host_.calls.end();
    EXPECT_EQ(ret_void, std::string(name) != "WGGL") << name;
    EXPECT_EQ(ui::CurrentResources(), before);
  }
  EXPECT_EQ(host_.ret_void, 2);
#if !defined(KESTRA_HAVE_DYSS)
  EXPECT_NE(std::find(host_.lines.begin(), host_.lines.end(),
                      "DYSSCAL: 电压损失计算尚未提供 (this calculator is not available yet)"),
            host_.lines.end());
#endif
}

// A language-switch service that hands out one dictionary and counts the questions.
class OneDictionary : public ZoLangSwitch {
 public:
  ZoDtDictionary dict;
  std::vector<std::string> asked;
  ZoDtDictionary* GetModuleDictionary(const std::string& key) override {
    asked.push_back(key);
    dict.key = key;
    return &dict;
  }
};

TEST_F(ModuleEntry, DieselGuardSwitchesResourcesAndLanguageAndRestoresThem) {
  Init();
  OneDictionary service;
  ZoDtDictionary outer{"OUTER"};
  g_pQuendaLangSwitch = &service;
  g_pCurModuleLang = &outer;
  kestra::shell::ForgetModuleDictionaryForTesting();
  kestra::shell::SetModulePathForTesting("D:\\Prog\\Sys\\OrvelKestra18.arx");
  const ui::ResourceSet* before = ui::CurrentResources();
  {
    ZoUtPushResource guard(kestra::shell::TheExtensionModule().guard_instance());
    EXPECT_EQ(ui::CurrentResources(), &kestra::res::ModuleResources());
    ASSERT_EQ(g_pCurModuleLang, &service.dict);
    EXPECT_EQ(service.dict.key, "ORVELKESTRA1");
    ZoUtPushResource again(nullptr);  // nested, and with no instance at all
    EXPECT_EQ(ui::CurrentResources(), nullptr);
  }
  EXPECT_EQ(ui::CurrentResources(), before);
  EXPECT_EQ(g_pCurModuleLang, &outer);
  EXPECT_EQ(service.asked.size(), 1u) << "the dictionary is cached after the first question";

  host_.calls.clear();
  host_.Run("OrvelDieselContentCal");
  EXPECT_EQ(g_pCurModuleLang, &outer);
  EXPECT_TRUE(host_.calls.empty()) << "the guard works on the framework, not through the host";

  g_pQuendaLangSwitch = nullptr;
  g_pCurModuleLang = nullptr;
  kestra::shell::ForgetModuleDictionaryForTesting();
  kestra::shell::SetModulePathForTesting("");
}

TEST(ModuleLanguageKey, CutsTheFileNameByTheRules) {
  using kestra::shell::ModuleLanguageKey;
  EXPECT_EQ(ModuleLanguageKey("D:\\Prog\\Sys\\OrvelKestra18.arx"), "ORVELKESTRA1");
  EXPECT_EQ(ModuleLanguageKey("/opt/kestra/bin/orvelkestra18.so"), "ORVELKESTRA1");
  EXPECT_EQ(ModuleLanguageKey("D:\\a\\Mod7.x.y"), "MOD");
  EXPECT_EQ(ModuleLanguageKey("D:\\a\\OrvelKestra.arx"), "") << "no trailing digit";
  EXPECT_EQ(ModuleLanguageKey("OrvelKestra18.arx"), "") << "no separator";
  EXPECT_EQ(ModuleLanguageKey("\\OrvelKestra18.arx"), "") << "the separator is the first character";
  EXPECT_EQ(ModuleLanguageKey("D:\\Prog\\"), "") << "the separator is the last character";
  EXPECT_EQ(ModuleLanguageKey("D:\\Prog\\.Kestra18"), "") << "the point is the first character";
  EXPECT_EQ(ModuleLanguageKey("D:\\Prog\\Kestra18"), "") << "no point";
  EXPECT_EQ(ModuleLanguageKey("D:\\Prog\\1.arx"), "");
}

TEST(DataRoot, IsTwoLevelsAboveTheModuleFile) {
  using kestra::shell::DataRoot;
  using kestra::shell::SetModulePathForTesting;
  SetModulePathForTesting("D:\\Prog\\Sys\\module.arx");
  EXPECT_EQ(DataRoot(), "D:\\Prog");
  SetModulePathForTesting("D:\\module.arx");
  EXPECT_EQ(DataRoot(), "D:") << "a module in a drive's root folder";
  SetModulePathForTesting("module.arx");
  EXPECT_EQ(DataRoot(), "module.arx") << "no backslash leaves the path";
  SetModulePathForTesting("/srv/kestra/bin/OrvelKestra.so");
  EXPECT_EQ(DataRoot(), "/srv/kestra");
  SetModulePathForTesting("");
}

}  // namespace

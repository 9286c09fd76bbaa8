// The real module file, loaded by the host session as kestra loads it.
#include <dlfcn.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>

#include "host/core/host_session.h"
#include "tests/support/temp_folder.h"
#include "ui/headless_host.h"

namespace {

const std::string kModule = std::string(KESTRA_ROOT_DIR) + "/bin/OrvelKestra.so";

std::vector<std::string> Names(const kestra::host::HostSession& s) {
  std::vector<std::string> v;
  for (const auto& c : s.Commands()) v.push_back(c.group + "/" + c.name + "/" + std::to_string(c.flags));
  return v;
}

TEST(ModuleLoad, LoadUnloadLoadRegistersTheSameGroupAgain) {
  std::ostringstream transcript;
  ui::HeadlessHost ui(transcript);
  kestra::host::HostSession session(ui);
  const std::vector<std::string> want = {"OrvelKestra/sample/2", "OrvelKestra/WGGL/2", "OrvelKestra/DYSSCAL/2",
                                         "OrvelKestra/DJQDCAL/2", "OrvelKestra/OrvelDieselContentCal/2"};
  for (int round = 0; round < 2; ++round) {
    std::string error;
    ASSERT_TRUE(session.Load(kModule, &error)) << error;
    EXPECT_EQ(session.last_entry_result(), 0);
    EXPECT_TRUE(session.unlocked());
    EXPECT_TRUE(session.document_mode_registered());
    EXPECT_EQ(Names(session), want) << "round " << round;
    EXPECT_TRUE(session.RunCommand("  SAMPLE "));
    session.Unload();
    EXPECT_EQ(dlopen(kModule.c_str(), RTLD_NOW | RTLD_NOLOAD), nullptr) << "the module file really went";
    EXPECT_EQ(session.last_entry_result(), 0);
    EXPECT_TRUE(session.Commands().empty());
    EXPECT_FALSE(session.RunCommand("sample"));
  }
}

// A module loaded by a name relative to the current folder has its data root two folders above
// the file all the same, also once the program has gone to another folder.
TEST(ModuleLoad, ARelativeNameFindsTheDataRootAboveTheFile) {
  namespace fs = std::filesystem;
  const kestra::testing::TempFolder folder("kestra_relative");
  const fs::path root = fs::canonical(folder.path()) / "root";
  fs::create_directories(root / "bin");
  for (const char* file : {"OrvelKestra.so", "libkestra_ui.so"})
    fs::copy_file(fs::path(KESTRA_ROOT_DIR) / "bin" / file, root / "bin" / file);
  std::ostringstream transcript;
  {
    ui::HeadlessHost ui(transcript);
    kestra::host::HostSession session(ui);
    const fs::path was = fs::current_path();
    fs::current_path(root);
    std::string error;
    const bool loaded = session.Load("bin/OrvelKestra.so", &error);
    fs::current_path(was);
    ASSERT_TRUE(loaded) << error;
    EXPECT_EQ(session.data_root(), root.string());
    // The line catalogue is looked for under that root (which has none).
    EXPECT_TRUE(session.RunCommand("DYSSCAL"));
  }
  EXPECT_NE(transcript.str().find((root / "datcom" / "DyssCal.Mdb").string()), std::string::npos) << transcript.str();
}

TEST(ModuleLoad, ShowsOnlyItsEntryPoints) {
  void* h = dlopen(kModule.c_str(), RTLD_NOW | RTLD_LOCAL);
  ASSERT_NE(h, nullptr) << dlerror();
  EXPECT_NE(dlsym(h, "acrxEntryPoint"), nullptr);
  EXPECT_NE(dlsym(h, "acrxGetApiVersion"), nullptr);
  EXPECT_EQ(dlsym(h, "ZoDefineCommand"), nullptr);
  EXPECT_EQ(dlsym(h, "g_pCurModuleLang"), nullptr);
  dlclose(h);
}

TEST(ModuleLoad, ReportsFilesThatAreNotModules) {
  std::ostringstream transcript;
  ui::HeadlessHost ui(transcript);
  kestra::host::HostSession session(ui);
  std::string error;
  EXPECT_FALSE(session.Load(std::string(KESTRA_ROOT_DIR) + "/bin/no-such-module.so", &error));
  EXPECT_FALSE(error.empty());
  EXPECT_FALSE(session.Load(std::string(KESTRA_ROOT_DIR) + "/bin/libkestra_ui.so", &error));
  EXPECT_NE(error.find("acrxEntryPoint"), std::string::npos) << error;
  EXPECT_FALSE(session.loaded());
}

}  // namespace

// The host session's command stack and resource stack, without a module; the project command.
#include <gtest/gtest.h>

#include <sstream>

#include "host/core/host_session.h"
#include "host/core/project_command.h"
#include "tests/support/temp_folder.h"
#include "ui/headless_host.h"
#include "ui/resource_script.h"

namespace {

int g_runs = 0;
void CountRun() { ++g_runs; }
void Other() { g_runs += 100; }

TEST(HostSession, CommandsResourcesAndOutput) {
  std::ostringstream t;
  ui::HeadlessHost ui(t);
  kestra::host::HostSession s(ui);
  EXPECT_EQ(ui::CurrentHost(), &ui);
  EXPECT_TRUE(s.AddCommand("A", "First", &CountRun, 2));
  EXPECT_TRUE(s.AddCommand("B", "Second", &Other, 0));
  EXPECT_FALSE(s.AddCommand("A", "", &CountRun, 2));
  EXPECT_FALSE(s.AddCommand("A", "NoFn", nullptr, 2));
  g_runs = 0;
  EXPECT_TRUE(s.RunCommand(" \tfirst \r\n"));
  EXPECT_FALSE(s.RunCommand("firs"));
  EXPECT_FALSE(s.RunCommand("   "));
  EXPECT_EQ(g_runs, 1);

  // A newer registration of a name takes it over, whatever its case.
  EXPECT_TRUE(s.AddCommand("B", "FIRST", &Other, 0));
  ASSERT_EQ(s.Commands().size(), 2u);
  EXPECT_EQ(s.Commands()[1].group, "B");
  s.RemoveGroup("B");
  EXPECT_TRUE(s.Commands().empty());
  EXPECT_FALSE(s.RunCommand("first"));

  // The last set pushed is current; a module popping once too often never reaches below what it
  // pushed.
  ui::ResourceSet mine, module;
  ui::PushResources(&mine);
  s.PushResources(&module);
  EXPECT_EQ(ui::CurrentResources(), &module);
  s.PopResources();
  s.PopResources();
  EXPECT_EQ(ui::CurrentResources(), &mine);
  ui::PopResources();
  ui::PopResources();  // popping an empty stack is harmless
  EXPECT_EQ(ui::CurrentResources(), nullptr);

  // The module's lines go where the program says.
  std::vector<std::string> lines;
  s.SetOutput([&](const std::string& l) { lines.push_back(l); });
  s.PrintLine("一行");
  EXPECT_EQ(lines, std::vector<std::string>{"一行"});
}

// `kestra project`: what a designer types and what it answers, on a data root of its own.
TEST(ProjectCommand, SetsAndShowsTheTitleBlock) {
  const kestra::testing::TempFolder folder;
  const std::filesystem::path& root = folder.path();
  auto run = [&](std::vector<std::string> args, std::string* out_text = nullptr) {
    std::ostringstream out, err;
    const int rc = kestra::host::RunProjectCommand(args, root.string(), out, err);
    if (out_text) *out_text = out.str();
    return std::to_string(rc) + (err.str().empty() ? "" : " " + err.str().substr(0, err.str().find('\n')));
  };
  EXPECT_EQ(run({"set", "project", "滨江花园 10kV 变电所"}), "0");
  EXPECT_EQ(run({"set", "校对", "李工"}), "0");
  EXPECT_EQ(run({"set", "reviewer", "王工"}).substr(0, 45), "1 kestra project: unknown project field \"revi");
  EXPECT_EQ(run({"set", "project"}), "1 usage: kestra project show");
  EXPECT_EQ(run({"list"}), "1 usage: kestra project show");
  std::string shown;
  EXPECT_EQ(run({"show"}, &shown), "0");
  EXPECT_EQ(shown, (root / "Kestra" / "工程信息.idp").string() +
                       "\n工程名称 = 滨江花园 10kV 变电所\n设计阶段 = \n设计 = \n校对 = 李工\n日期 = \n");
}

}  // namespace

// The calculator driven by script text, as the script host runs a designer's session.
#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <sstream>

#include "host/core/host_session.h"
#include "host/script/script_runner.h"
#include "res/embedded.h"
#include "shell/module_context.h"
#include "ui/headless_host.h"
#include "wggl/wggl_command.h"

namespace fs = std::filesystem;

namespace {

// The module of the running test, for the command the session calls without arguments.
const kestra::shell::ModuleContext* g_module = nullptr;

class WgglScript : public ::testing::Test {
 protected:
  void SetUp() override {
    char tmpl[] = "/tmp/wggl-script-XXXXXX";
    ASSERT_NE(mkdtemp(tmpl), nullptr);
    root_ = tmpl;
    for (const char* d : {"bin", "Kestra", "Image"}) fs::create_directories(root_ / d);
    module_ = std::make_unique<kestra::shell::ModuleContext>(&session_, &ui_, (root_ / "bin/OrvelKestra.so").string(),
                                                             &kestra::res::ModuleResources());
    g_module = module_.get();
    session_.AddCommand("OrvelKestra", "WGGL", [] {
      kestra::shell::ModuleScope scope(*g_module);
      kestra::wggl::RunWgglCommand(*g_module);
    }, 2);
  }
  void TearDown() override {
    g_module = nullptr;
    fs::remove_all(root_);
  }
  int Run(const std::string& script) { return runner_.Run(script); }

  fs::path root_;
  std::ostringstream out_, err_;
  ui::HeadlessHost ui_{out_};
  kestra::host::HostSession session_{ui_};
  kestra::script::ScriptRunner runner_{session_, ui_, out_, err_};
  std::unique_ptr<kestra::shell::ModuleContext> module_;
};

TEST_F(WgglScript, WorkedExampleAndTheDesignSubDialog) {
  EXPECT_EQ(Run("WGGL\n"
                "set \"自然平均功率因数:\" 0.75\n"
                "set \"补偿后功率因数:\" 0.95\n"
                "set \"负荷系数qc:\" 0.75\n"
                "set \"有功计算负荷:\" 1000\n"
                "click \"计算\"\n"
                "print \"计算补偿容量Qc:\"\n"
                "print \"并联电容器数量:\"\n"
                "print \"实际补偿容量:\"\n"
                "spin \"负荷系数qc:\" down 2\n"
                "print \"负荷系数qc:\"\n"
                "click \"正在设计中的电气系统\"\n"
                "set \"有功计算负荷：\" 0\n"
                "click \"确认\"\n"
                "cancel\n"
                "click \"计算电容数量\"\n"
                "print \"单个电容器额定容量:\"\n"
                "ok\n"),
            0)
      << err_.str();
  EXPECT_EQ(err_.str(), "");
  EXPECT_EQ(out_.str(),
            "[dialog] 无功功率补偿\n"
            "\"计算补偿容量Qc:\" = 412.5\n"
            "\"并联电容器数量:\" = 14\n"
            "\"实际补偿容量:\" = 420\n"
            "\"负荷系数qc:\" = 0.73\n"
            "[dialog] 正在设计中的电气系统\n"
            "[message] 警告: 有功计算负荷作为除数不能为零 !\n"
            "[closed] 正在设计中的电气系统 Cancel\n"
            "\"单个电容器额定容量:\" = 30 [disabled]\n"
            "[closed] 无功功率补偿 OK\n");
}

TEST_F(WgglScript, ADisabledRatingCannotBeTyped) {
  EXPECT_EQ(Run("WGGL\nclick \"计算电容数量\"\nset \"单个电容器额定容量:\" 40\nok\n"), 2);
  EXPECT_NE(err_.str().find("line 3"), std::string::npos) << err_.str();
  EXPECT_FALSE(fs::exists(root_ / "Kestra/无功功率补偿计算.idp"));  // the run was cancelled
}

}  // namespace

#pragma once
// A module of its own for a test: a data root in a fresh temporary folder, a dialog host
// without windows with its transcript, and the context the calculators run with.
#include <filesystem>
#include <memory>
#include <sstream>
#include <string>

#include "res/embedded.h"
#include "shell/module_context.h"
#include "tests/support/temp_folder.h"
#include "ui/headless_host.h"

namespace kestra::testing {

class TestModule {
 public:
  // host: the module's host (null: a program that runs the dialogs without loading the module).
  explicit TestModule(kestra::shell::HostApi* host = nullptr) {
    for (const char* d : {"bin", "Kestra", "Image", "datcom", "reports"}) std::filesystem::create_directories(root_ / d);
    ui_.SetReportDir((root_ / "reports").string());
    context_ = std::make_unique<kestra::shell::ModuleContext>(host, &ui_, (root_ / "bin/OrvelKestra.so").string(),
                                                              &kestra::res::ModuleResources());
  }
  const std::filesystem::path& root() const { return root_; }
  ui::HeadlessHost& ui() { return ui_; }
  std::string transcript() const { return transcript_.str(); }
  const kestra::shell::ModuleContext& context() const { return *context_; }

 private:
  kestra::testing::TempFolder folder_{"kestra_module"};
  const std::filesystem::path& root_ = folder_.path();
  std::ostringstream transcript_;
  ui::HeadlessHost ui_{transcript_};
  std::unique_ptr<kestra::shell::ModuleContext> context_;
};

}  // namespace kestra::testing

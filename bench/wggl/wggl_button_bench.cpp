// From the click on "  输出\n计算文件" to the closed .docx: the calculation, the blocks, the
// document and its file, in a host without windows.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <filesystem>
#include <sstream>

#include "res/embedded.h"
#include "shell/module_context.h"
#include "ui/actions.h"
#include "ui/headless_host.h"
#include "wggl/wggl_command.h"

namespace {

void BM_WgglReportButtonToDocx(benchmark::State& state) {
  namespace fs = std::filesystem;
  const fs::path root = fs::temp_directory_path() / ("wggl-bench-" + std::to_string(::getpid()));
  for (const char* d : {"bin", "Kestra", "Image", "reports"}) fs::create_directories(root / d);
  std::ostringstream transcript;
  ui::HeadlessHost host(transcript);
  host.SetReportDir((root / "reports").string());
  const kestra::shell::ModuleContext module(nullptr, &host, (root / "bin/OrvelKestra.so").string(),
                                            &kestra::res::ModuleResources());
  host.SetDriver([&](ui::Dialog& d) {
    ui::act::SetText(*ui::FindControl(d, 1001), "0.75");
    ui::act::SetText(*ui::FindControl(d, 1005), "0.95");
    ui::act::SetText(*ui::FindControl(d, 1009), "1000");
    ui::Control& button = *ui::FindControlByLabel(d, "  输出\n计算文件");
    for (auto _ : state) {
      ui::act::Click(button);
      state.PauseTiming();
      for (const auto& e : fs::directory_iterator(root / "reports")) fs::remove(e.path());
      transcript.str({});
      state.ResumeTiming();
    }
  });
  {
    kestra::shell::ModuleScope scope(module);
    kestra::wggl::RunWgglCommand(module);
  }
  if (!host.messages().empty()) state.SkipWithError(host.messages().front().c_str());
  fs::remove_all(root);
}
BENCHMARK(BM_WgglReportButtonToDocx)->Unit(benchmark::kMillisecond);

}  // namespace

// The motor-start dialog in a host without windows on the staged catalogues, slides and pages:
// opening it (parameter file, motor catalogue, first page with its forms, slide and motor
// combos) with one calculation, and the report button to the closed .docx.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <filesystem>
#include <functional>
#include <sstream>

#include "djqd/djqd_command.h"
#include "djqd/djqd_ids.h"
#include "res/embedded.h"
#include "shell/module_context.h"
#include "ui/actions.h"
#include "ui/headless_host.h"

namespace {

namespace fs = std::filesystem;

// A data root of its own with the staged data files; removed at the end.
class BenchRoot {
 public:
  BenchRoot() : root_(fs::temp_directory_path() / ("djqd-bench-" + std::to_string(::getpid()))) {
    for (const char* d : {"bin", "Kestra", "Image", "datcom", "reports"}) fs::create_directories(root_ / d);
    const fs::path staged = KESTRA_ROOT_DIR;
    for (const char* f : {"datcom/Motor.Mdb", "datcom/ByqZK.mdb", "datcom/QdDkq.mdb", "datcom/tabdata.idp",
                          "Image/djqd.slb", "Image/JxQdZj.Rtf", "Image/Djqdsj.Rtf"})
      fs::copy_file(staged / f, root_ / f, fs::copy_options::overwrite_existing);
    host_.SetReportDir((root_ / "reports").string());
  }
  ~BenchRoot() { fs::remove_all(root_); }

  // Runs the command once with a driver for the dialog.
  void Run(const std::function<void(ui::Dialog&)>& drive) {
    host_.SetDriver(drive);
    kestra::shell::ModuleScope scope(module_);
    kestra::djqd::RunDjqdCommand(module_);
  }
  ui::HeadlessHost& host() { return host_; }
  const fs::path& root() const { return root_; }
  void ClearTranscript() { transcript_.str({}); }

 private:
  fs::path root_;
  std::ostringstream transcript_;
  ui::HeadlessHost host_{transcript_};
  kestra::shell::ModuleContext module_{nullptr, &host_, (root_ / "bin/OrvelKestra.so").string(),
                                       &kestra::res::ModuleResources()};
};

void BM_DjqdOpenAndCalculate(benchmark::State& state) {
  BenchRoot root;
  for (auto _ : state) {
    root.Run([](ui::Dialog& d) {
      ui::act::Click(*ui::FindControl(d, kestra::djqd::IDC_DJQD_CALC));
      ui::act::Cancel(d);
    });
    state.PauseTiming();
    root.ClearTranscript();
    state.ResumeTiming();
  }
  if (!root.host().messages().empty()) state.SkipWithError(root.host().messages().front().c_str());
}
BENCHMARK(BM_DjqdOpenAndCalculate)->Unit(benchmark::kMillisecond);

void BM_DjqdReportButtonToDocx(benchmark::State& state) {
  BenchRoot root;
  root.Run([&](ui::Dialog& d) {
    ui::Control& button = *ui::FindControl(d, kestra::djqd::IDC_DJQD_REPORT);
    for (auto _ : state) {
      ui::act::Click(button);
      state.PauseTiming();
      for (const auto& e : fs::directory_iterator(root.root() / "reports")) fs::remove(e.path());
      root.ClearTranscript();
      state.ResumeTiming();
    }
    ui::act::Cancel(d);
  });
  if (!root.host().messages().empty()) state.SkipWithError(root.host().messages().front().c_str());
}
BENCHMARK(BM_DjqdReportButtonToDocx)->Unit(benchmark::kMillisecond);

}  // namespace

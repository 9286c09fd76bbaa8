// The voltage-loss dialog in a host without windows, on a copy of the staged line catalogue:
// from the command to the dialog ready (catalogue opened, parameter file read, the five forms
// created with their line lists scanned and filled) and one calculation; and the line-length
// page's "计算书" to the closed .docx.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <filesystem>
#include <sstream>

#include "dyss/dyss_command.h"
#include "dyss/dyss_ids.h"
#include "res/embedded.h"
#include "shell/module_context.h"
#include "ui/actions.h"
#include "ui/headless_host.h"

namespace {

namespace fs = std::filesystem;

// A data root with the staged catalogue and table file, removed at the end.
struct BenchRoot {
  BenchRoot() : path(fs::temp_directory_path() / ("dyss-bench-" + std::to_string(::getpid()))) {
    for (const char* d : {"bin", "Kestra", "datcom", "reports"}) fs::create_directories(path / d);
    for (const char* f : {"DyssCal.Mdb", "tabdata.idp"})
      fs::copy_file(fs::path(KESTRA_ROOT_DIR) / "datcom" / f, path / "datcom" / f, fs::copy_options::overwrite_existing);
  }
  ~BenchRoot() { fs::remove_all(path); }
  fs::path path;
};

void BM_DyssOpenAndCalculate(benchmark::State& state) {
  const BenchRoot root;
  std::ostringstream transcript;
  ui::HeadlessHost host(transcript);
  const kestra::shell::ModuleContext module(nullptr, &host, (root.path / "bin/OrvelKestra.so").string(),
                                            &kestra::res::ModuleResources());
  std::string result;
  host.SetDriver([&](ui::Dialog& d) {
    ui::act::Click(*ui::FindControlByLabel(d, "计算"));
    result = ui::FindControl(d, kestra::dyss::IDC_DYSS_RESULT)->GetWindowText();
  });
  kestra::shell::ModuleScope scope(module);
  for (auto _ : state) {
    kestra::dyss::RunDyssCommand(module);
    state.PauseTiming();
    transcript.str({});
    state.ResumeTiming();
  }
  if (result.empty() || !host.messages().empty()) state.SkipWithError("no result");
}
BENCHMARK(BM_DyssOpenAndCalculate)->Unit(benchmark::kMillisecond);

// The calculation with its harmonic part, the blocks, the document and its file.
void BM_DyssLengthReportToDocx(benchmark::State& state) {
  using namespace kestra::dyss;
  const BenchRoot root;
  std::ostringstream transcript;
  ui::HeadlessHost host(transcript);
  host.SetReportDir((root.path / "reports").string());
  const kestra::shell::ModuleContext module(nullptr, &host, (root.path / "bin/OrvelKestra.so").string(),
                                            &kestra::res::ModuleResources());
  host.SetDriver([&](ui::Dialog& d) {
    ui::act::Tab(d, 1);
    ui::act::Select(*ui::FindControl(d, 114), 10);  // copper 95 mm² of the first cable table
    ui::act::SetText(*ui::FindControl(d, IDC_DYSS_LF0_I), "160");
    ui::act::Leave(*ui::FindControl(d, IDC_DYSS_LF0_I));
    ui::act::SetText(*ui::FindControl(d, IDC_DYSS_REQUIRE), "5");
    ui::act::Select(*ui::FindControl(d, IDC_DYSS_HARM_LIST), 2);
    ui::act::SetText(*ui::FindControl(d, IDC_DYSS_RATED), "265");
    ui::Control& button = *ui::FindControlByLabel(d, "计算书");
    for (auto _ : state) {
      ui::act::Click(button);
      state.PauseTiming();
      for (const auto& e : fs::directory_iterator(root.path / "reports")) fs::remove(e.path());
      state.ResumeTiming();
    }
  });
  {
    kestra::shell::ModuleScope scope(module);
    RunDyssCommand(module);
  }
  if (!host.messages().empty()) state.SkipWithError(host.messages().front().c_str());
  if (transcript.str().find("[report]") == std::string::npos) state.SkipWithError("no report");
}
BENCHMARK(BM_DyssLengthReportToDocx)->Unit(benchmark::kMillisecond);

}  // namespace

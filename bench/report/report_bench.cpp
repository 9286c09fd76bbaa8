// Writing a reactive-compensation-sized report (title, four headings, six body blocks with
// superscripts and subscripts) from the first writer call to the closed .docx file.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <filesystem>

#include "services/report/docx_package.h"
#include "services/report/report_run.h"
#include "tests/report/sample_report.h"

namespace {

class CountingTarget : public kestra::report::ReportTarget {
 public:
  explicit CountingTarget(std::filesystem::path dir) : dir_(std::move(dir)) {}
  std::optional<std::string> NewReportPath(std::string_view) override {
    return (dir_ / ("r" + std::to_string(n_++) + ".docx")).string();
  }
  void ShowReport(const std::string& path) override { std::filesystem::remove(path); }

 private:
  std::filesystem::path dir_;
  int n_ = 0;
};

void BM_WriteReactiveCompensationReport(benchmark::State& state) {
  const auto dir = std::filesystem::temp_directory_path() / ("kestra_report_bench_" + std::to_string(::getpid()));
  std::filesystem::create_directories(dir);
  CountingTarget target(dir);
  kestra::report::ReportRunOptions options;
  options.title = "无功功率补偿计算书";
  bool ok = true;
  for (auto _ : state) {
    ok &= kestra::report::RunReport(target, [](const std::string&) {}, kestra::report::testing::WriteSampleReport,
                                    options);
  }
  std::filesystem::remove_all(dir);
  if (!ok) state.SkipWithError("a report failed");
}
BENCHMARK(BM_WriteReactiveCompensationReport)->Unit(benchmark::kMillisecond)->Repetitions(5)->ReportAggregatesOnly();

// The same without the file: the writer and the package in memory (what is left is the disk).
void BM_BuildReportPackageInMemory(benchmark::State& state) {
  for (auto _ : state) {
    ReportWriter w;
    w.OpenReport();
    kestra::report::testing::WriteSampleReport(w);
    benchmark::DoNotOptimize(kestra::report::DocxBytes(w.Document(), 1));
  }
}
BENCHMARK(BM_BuildReportPackageInMemory)->Unit(benchmark::kMicrosecond)->Repetitions(5)->ReportAggregatesOnly();

}  // namespace

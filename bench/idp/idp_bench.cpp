// What a calculator's OK costs: read its parameter file (500 keys), set the 50 keys of the
// active page, write the file back (atomic replace with fsync). Target: under 2 ms median.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <filesystem>

#include "services/idp/idp_file.h"
#include "services/idp/idp_format.h"
#include "services/idp/idp_node.h"
#include "services/idp/idp_values.h"
#include "services/idp/inter_dp_data.h"

namespace {

namespace fs = std::filesystem;
using kestra::idp::SetValue;

std::string KeyOf(int i) {
  return "Cal\\DyssCal\\Page" + std::to_string(i % 2 + 1) + "\\Input" + std::to_string(i % 8 + 1) +
         "\\输入参数\\参数" + std::to_string(i);
}

struct BenchFile {
  explicit BenchFile(const fs::path& base = fs::temp_directory_path()) {
    folder = base / ("kestra_idp_bench_" + std::to_string(::getpid()));
    fs::create_directories(folder);
    path = (folder / "电压损失计算.idp").string();
    CInterDpData tree;
    for (int i = 0; i < 500; ++i) SetValue(tree, KeyOf(i), std::to_string(i * 0.37 + 0.05));
    tree.WriteDataToIdpFile(path);
  }
  ~BenchFile() { fs::remove_all(folder); }
  fs::path folder;
  std::string path;
};

void ReadSet50Write(benchmark::State& state, const fs::path& base) {
  BenchFile file(base);
  int round = 0;
  for (auto _ : state) {
    CInterDpData tree;
    tree.ReadDataFromIdpFile(file.path);
    ++round;  // new texts each time, so every write really changes the file
    for (int i = 0; i < 50; ++i) SetValue(tree, KeyOf(i * 10), std::to_string(round + i * 0.5));
    if (tree.WriteDataToIdpFile(file.path) != kestra::idp::kOk) state.SkipWithError("write failed");
  }
}
// On the disk (two fsyncs per write: the file, then its folder after the rename).
void BM_ReadSet50Write(benchmark::State& state) { ReadSet50Write(state, fs::temp_directory_path()); }
// On a memory file system (fsync returns at once): the program's own share of the work.
void BM_ReadSet50WriteNoDiskWait(benchmark::State& state) { ReadSet50Write(state, "/dev/shm"); }
// Single-iteration repetitions, so the median is the median of single OK presses.
BENCHMARK(BM_ReadSet50Write)->Unit(benchmark::kMicrosecond)->Iterations(1)->Repetitions(400)
    ->ReportAggregatesOnly(true);
BENCHMARK(BM_ReadSet50WriteNoDiskWait)->Unit(benchmark::kMicrosecond)->Iterations(1)->Repetitions(400)
    ->ReportAggregatesOnly(true);

// Parsing and formatting the text of the 500-key file, without any file.
void BM_Parse500Keys(benchmark::State& state) {
  BenchFile file;
  std::string text;
  kestra::idp::ReadWholeFile(file.path, text);
  for (auto _ : state) {
    IdpNode parsed;
    kestra::idp::ParseIdpText(text, parsed, nullptr);
    benchmark::DoNotOptimize(parsed);
  }
  state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(text.size()));
}
BENCHMARK(BM_Parse500Keys)->Unit(benchmark::kMicrosecond);

void BM_Format500Keys(benchmark::State& state) {
  BenchFile file;
  std::string text;
  kestra::idp::ReadWholeFile(file.path, text);
  IdpNode parsed;
  kestra::idp::ParseIdpText(text, parsed, nullptr);
  for (auto _ : state) {
    std::string out = kestra::idp::FormatIdpText(parsed);
    benchmark::DoNotOptimize(out);
  }
}
BENCHMARK(BM_Format500Keys)->Unit(benchmark::kMicrosecond);

}  // namespace

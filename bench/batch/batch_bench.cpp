// A distribution board schedule of 10 000 circuits through "kestra batch voltage-loss" with the
// data root's line catalogue (CSV in, CSV out), and the formula path alone, per circuit.
#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <unistd.h>

#include "batch/batch_command.h"
#include "dyss/dyss_checks.h"
#include "dyss/dyss_formulas.h"

namespace {

namespace fs = std::filesystem;

// 10 000 circuits over the catalogue's 0.6/1 kV cables and wires in conduit, copper and
// aluminium, every section, by current and by load: a few hundred distinct catalogue rows.
const std::string& Schedule() {
  static const std::string path = [] {
    const fs::path p = fs::temp_directory_path() / ("kestra_batch_bench_" + std::to_string(::getpid()) + ".csv");
    std::ofstream csv(p, std::ios::binary);
    csv << "回路,线路种类,线路表,索引1,索引2,索引3,电阻Ω/km,感抗Ω/km,电压kV,电流A,有功kW,长度km,功率因数,允许压降%\n";
    const char* tables[] = {"0.6/1kV VV/VLV聚氯乙烯绝缘电缆(70℃)", "0.6/1kV YJV/YJLV交联聚乙烯绝缘电缆(90℃)",
                            "BV/BLV绝缘导线穿管敷设(70℃)"};
    const char* sections[] = {"10", "16", "25", "35", "50", "70", "95", "120", "150", "185", "240"};
    for (int i = 0; i < 10000; ++i) {
      const bool by_current = i % 2 == 0;
      csv << "WP" << i << "," << (i % 4 == 3 ? 3 : 0) << "," << tables[i % 3] << "," << (i % 5 ? "铜" : "铝") << ","
          << sections[i % 11] << ",,,,," << (by_current ? std::to_string(10 + i % 200) : "") << ","
          << (by_current ? "" : std::to_string(5 + i % 90)) << ",0." << 100 + i % 400 << ",0.85,5\n";
    }
    static const fs::path cleanup = p;
    std::atexit([] { fs::remove(cleanup); });
    return p.string();
  }();
  return path;
}

void BM_VoltageLossSchedule(benchmark::State& state) {
  const std::string in = Schedule();
  const std::string out = in + ".out.csv";
  for (auto _ : state) {
    std::ostringstream o, e;
    const int status = kestra::batch::RunBatchCommand({"voltage-loss", in, "--out", out}, KESTRA_ROOT_DIR, o, e);
    if (status == kestra::batch::kNotRun) state.SkipWithError(e.str().c_str());
    benchmark::DoNotOptimize(status);
  }
  fs::remove(out);
  state.SetItemsProcessed(state.iterations() * 10000);
}
BENCHMARK(BM_VoltageLossSchedule)->Unit(benchmark::kMillisecond)->Repetitions(5)->ReportAggregatesOnly();

std::vector<std::pair<kestra::dyss::LossInputs, kestra::dyss::LengthInputs>> Circuits() {
  std::vector<std::pair<kestra::dyss::LossInputs, kestra::dyss::LengthInputs>> circuits(1024);
  for (std::size_t i = 0; i < circuits.size(); ++i) {
    auto& [loss, length] = circuits[i];
    loss.kind = length.kind = static_cast<int>(i % 4);
    loss.form = 0;
    loss.cos_phi = length.cos_phi = 0.8 + 0.0001 * static_cast<double>(i % 100);
    loss.current[0] = length.current = std::to_string(10 + i % 200);
    loss.length[0] = "0." + std::to_string(100 + i % 400);
    loss.line = length.line = {"0.4935", "0.083", "0.38"};
    length.require = "5";
  }
  return circuits;
}

// The formula path of one circuit: Δu and the permissible length (target: 1 million a second).
void BM_LossFormulaPath(benchmark::State& state) {
  const auto circuits = Circuits();
  std::size_t k = 0;
  for (auto _ : state) {
    const auto& [loss, length] = circuits[k++ & 1023];
    benchmark::DoNotOptimize(kestra::dyss::ComputeLoss(loss).du);
    benchmark::DoNotOptimize(kestra::dyss::ComputeLength(length).l);
  }
  state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_LossFormulaPath);

// The same with the pages' input checks first, as every batch row runs them.
void BM_LossChecksAndFormulas(benchmark::State& state) {
  const auto circuits = Circuits();
  std::size_t k = 0;
  for (auto _ : state) {
    const auto& [loss, length] = circuits[k++ & 1023];
    const bool refused = kestra::dyss::FirstRefusal(loss).has_value() || kestra::dyss::FirstRefusal(length).has_value();
    benchmark::DoNotOptimize(refused);
    benchmark::DoNotOptimize(kestra::dyss::ComputeLoss(loss).du);
    benchmark::DoNotOptimize(kestra::dyss::ComputeLength(length).l);
  }
  state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_LossChecksAndFormulas);

}  // namespace


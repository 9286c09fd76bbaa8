// The catalogue lookups of the line-data forms on a large generated line table, and the
// import of a real Access file.
#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <unistd.h>

#include "services/tabledb/ado.h"
#include "services/tabledb/catalog.h"
#include "services/tabledb/engine.h"
#include "services/tabledb/mdb_import.h"

namespace {

namespace fs = std::filesystem;

constexpr int kRows = 10000;
const char* const kTable = "VV/VLV 电缆";

// 20 models x 25 sections x 20 core counts = 10 000 distinct key triples, in a scrambled order.
const std::string& LineCatalogue() {
  static const std::string path = [] {
    const fs::path dir = fs::temp_directory_path() / ("kestra_tabledb_bench_" + std::to_string(::getpid()));
    fs::create_directories(dir / "src");
    std::ofstream csv(dir / "src/vv.csv", std::ios::binary);
    csv << "序号,￥型号,￥截面,￥芯数,R,X,U\n";
    for (int i = 0; i < kRows; ++i) {
      const int k = (i * 7919) % kRows;  // 7919 is prime to 10 000: a permutation
      const int model = k % 20, section = (k / 20) % 25, cores = k / 500;
      csv << i + 1 << ",YJV-" << model << "," << 10 * (section + 1) << "," << cores + 1 << ","
          << 18.1 / (section + 1) << "," << 0.06 + 0.001 * cores << ",0.4\n";
    }
    csv.close();
    std::ofstream(dir / "src/tables.txt") << "vv.csv\t" << kTable << "\n";
    static const fs::path cleanup = dir;
    std::atexit([] {
      std::error_code ec;
      fs::remove_all(cleanup, ec);
    });
    const std::string out = (dir / "line.db").string();
    const std::string error = kestra::catalog::BuildCatalogue((dir / "src").string(), out);
    if (!error.empty()) {
      std::fprintf(stderr, "%s\n", error.c_str());
      std::abort();
    }
    return out;
  }();
  return path;
}

std::size_t ReadAll(CADODatabase& db, const std::string& query) {
  CADORecordset rs(&db);
  rs.Open(query, 0);
  std::size_t n = 0;
  while (!rs.IsEOF()) {
    Variant v;
    rs.GetFieldValue(0, v);
    n += CCrack::strVARIANT(v).size();
    rs.MoveNext();
  }
  rs.Close();
  return n;
}

void RunQuery(benchmark::State& state, const std::string& query) {
  CADODatabase db;
  db.Open(kestra::tabledb::ConnectionText(LineCatalogue()));
  if (ReadAll(db, query) == 0) state.SkipWithError("the query found nothing");
  for (auto _ : state) benchmark::DoNotOptimize(ReadAll(db, query));
}

void BM_KeyValues(benchmark::State& state) {
  RunQuery(state, "SELECT DISTINCT [￥截面] FROM [" + std::string(kTable) + "]");
}
void BM_KeyValuesUnderAKey(benchmark::State& state) {
  RunQuery(state, "SELECT DISTINCT [￥截面] FROM [" + std::string(kTable) + "] WHERE ￥型号 LIKE \"YJV-7\"");
}
void BM_ValueByThreeKeys(benchmark::State& state) {
  RunQuery(state, "SELECT [R] FROM " + std::string(kTable) +
                      " WHERE ￥型号 Like \"yjv-7\" AND ￥截面 Like \"120\" AND ￥芯数 Like \"13\"");
}
// For comparison: a pattern with a wildcard cannot use an index and reads every row.
void BM_ValueByThreeKeysWildcardScan(benchmark::State& state) {
  RunQuery(state, "SELECT [R] FROM " + std::string(kTable) +
                      " WHERE ￥型号 Like \"yjv-7%\" AND ￥截面 Like \"120%\" AND ￥芯数 Like \"13%\"");
}

// The fixture file of the tests, or "" (and the benchmark stopped with the reason) without it.
std::string Sample(benchmark::State& state, const std::string& name) {
  const std::string path = KESTRA_SOURCE_DIR "/tests/fixtures/access/" + name;
  if (!fs::exists(path)) {
    state.SkipWithError(("no " + path).c_str());
    return "";
  }
  return path;
}

void BM_ImportNodeAdodbSample(benchmark::State& state) {
  const std::string path = Sample(state, "node-adodb.mdb");
  if (path.empty()) return;
  for (auto _ : state) {
    CADODatabase db;
    db.Open(kestra::tabledb::ConnectionText(path));
    benchmark::DoNotOptimize(db.GetTableDefCount());
    db.Close();
  }
}

// Damaged Access files, from the open to the designer's message (at most 2 s): a file cut
// inside a page, one whose pages the reading child gives up on, and a child that never finishes.
void OpenDamaged(benchmark::State& state, const std::string& bytes) {
  const fs::path file = fs::temp_directory_path() / ("kestra_damaged_" + std::to_string(::getpid()) + ".mdb");
  std::ofstream(file, std::ios::binary) << bytes;
  for (auto _ : state) {
    try {
      kestra::tabledb::Engine::Open(file.string());
      state.SkipWithError("the damaged file was read");
      break;
    } catch (const CADOException&) {
    }
  }
  fs::remove(file);
}
std::string SampleBytes(benchmark::State& state) {
  const std::string path = Sample(state, "node-adodb.mdb");
  std::ifstream in(path, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(in), {});
}
void BM_ImportCutFile(benchmark::State& state) {
  const std::string bytes = SampleBytes(state);
  if (!bytes.empty()) OpenDamaged(state, bytes.substr(0, 110000));
}
void BM_ImportGarbagePages(benchmark::State& state) {
  OpenDamaged(state, std::string("\0\1\0\0Standard Jet DB", 19) + std::string(3 * 4096 - 19, 'x'));
}
void BM_ImportReaderThatNeverEnds(benchmark::State& state) {
  const std::string bytes = SampleBytes(state);
  if (bytes.empty()) return;
  kestra::tabledb::testing::SetImportChildHook([] {
    for (;;) ::pause();
  });
  OpenDamaged(state, bytes);
  kestra::tabledb::testing::SetImportChildHook({});
}

BENCHMARK(BM_KeyValues)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_KeyValuesUnderAKey)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_ValueByThreeKeys)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_ValueByThreeKeysWildcardScan)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_ImportNodeAdodbSample)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ImportCutFile)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ImportGarbagePages)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ImportReaderThatNeverEnds)->Unit(benchmark::kMillisecond)->Iterations(3);

}  // namespace

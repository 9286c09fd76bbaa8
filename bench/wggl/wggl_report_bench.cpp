// Building the reactive compensation report's blocks from a calculation.
#include <benchmark/benchmark.h>

#include "wggl/wggl_report.h"

namespace {

void BM_BuildWgglReport(benchmark::State& state) {
  kestra::wggl::WgglInputs v;
  v.cos_phi1 = 0.75;
  v.cos_phi2 = 0.95;
  v.alpha = 0.75;
  v.p_js = 1000;
  v.system = kestra::wggl::SystemKind::Designing;
  v.alpha_p = 0.75;
  v.beta_q = 0.75;
  v.q_js = 882;  // the derivation lines are written too
  v.count_capacitors = true;
  v.rating = 30;
  const kestra::wggl::WgglResults r = kestra::wggl::Calculate(v);
  for (auto _ : state) {
    auto blocks = kestra::wggl::BuildWgglReport(r, r.bank);
    benchmark::DoNotOptimize(blocks);
  }
}
BENCHMARK(BM_BuildWgglReport);

}  // namespace

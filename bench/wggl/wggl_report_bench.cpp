// Building the reactive compensation report's blocks from the dialog's values.
#include <benchmark/benchmark.h>

#include "wggl/wggl_report.h"

namespace {

void BM_BuildWgglReport(benchmark::State& state) {
  kestra::wggl::WgglReportValues v;
  v.cos_phi1 = 0.75;
  v.cos_phi2 = 0.95;
  v.alpha = 0.75;
  v.p_js = 1000;
  v.system = kestra::wggl::SystemKind::Designing;
  v.alpha_p = 0.75;
  v.beta_q = 0.75;
  v.q_js = 882;  // the derivation lines are written too
  v.rating = 30;
  v.count = 14;
  v.actual_capacity = 420;
  for (auto _ : state) {
    auto blocks = kestra::wggl::BuildWgglReport(v);
    benchmark::DoNotOptimize(blocks);
  }
}
BENCHMARK(BM_BuildWgglReport);

}  // namespace

// Start of `kestra --script` on a one-line script, to its exit: process start, loading the
// module, registering the commands, reading and running the script, unloading.
#include <benchmark/benchmark.h>
#include <spawn.h>
#include <sys/wait.h>

#include <cstdio>
#include <fstream>
#include <string>

extern char** environ;

namespace {

void BM_KestraScriptStart(benchmark::State& state) {
  const std::string kestra = KESTRA_BIN_DIR "/kestra";
  const std::string script = "/tmp/kestra_bench_one_line.scr";
  std::ofstream(script) << "sample\n";
  std::string a0 = kestra, a1 = "--script", a2 = script;
  char* argv[] = {a0.data(), a1.data(), a2.data(), nullptr};
  for (auto _ : state) {
    pid_t pid = 0;
    if (posix_spawn(&pid, kestra.c_str(), nullptr, nullptr, argv, environ) != 0) {
      state.SkipWithError("cannot start kestra");
      break;
    }
    int status = 0;
    waitpid(pid, &status, 0);
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) {
      state.SkipWithError("kestra failed");
      break;
    }
  }
  std::remove(script.c_str());
}
BENCHMARK(BM_KestraScriptStart)->Unit(benchmark::kMillisecond)->UseRealTime()->Repetitions(5)->ReportAggregatesOnly(true);

}  // namespace

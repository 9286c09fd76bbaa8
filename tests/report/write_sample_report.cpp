// Writes the sample report to the path given, through the same guard as the calculators, for
// the checks by independent readers (check_docx_readers.sh).
#include <cstdio>
#include <string>

#include "services/report/report_run.h"
#include "tests/report/sample_report.h"

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fprintf(stderr, "usage: %s OUT.docx\n", argv[0]);
    return 2;
  }
  kestra::report::testing::FixedTarget target;
  target.path = argv[1];
  kestra::report::ReportRunOptions options;
  options.title = "无功功率补偿计算书";
  const bool ok = kestra::report::RunReport(
      target, [](const std::string& m) { std::fprintf(stderr, "%s\n", m.c_str()); },
      kestra::report::testing::WriteSampleReport, options);
  for (const auto& shown : target.shown) std::printf("%s\n", shown.c_str());
  return ok ? 0 : 1;
}

#pragma once
// "kestra batch …": whole schedules at once.
//   kestra batch voltage-loss SCHEDULE.csv [--out RESULTS.csv] [--report SUMMARY.docx]
//   kestra batch motor-start MOTORS.csv [--out RESULTS.csv] [--report SUMMARY.docx]
// Each row is computed by the calculator's own formulas and checks, with the catalogues of the
// data root; a bad row is refused with its line and column and the run goes on.
#include <ostream>
#include <string>
#include <vector>

namespace kestra::batch {

// Exit status: every row passed.
inline constexpr int kAllPassed = 0;
// Every row was computed, and at least one breaks its limit.
inline constexpr int kSomeFailed = 1;
// At least one row was refused (bad input); the others were computed.
inline constexpr int kSomeRefused = 2;
// Nothing was computed, or the results could not be written: usage, unreadable schedule,
// header without a required column, output or report not written.
inline constexpr int kNotRun = 3;

// args: the words after "batch"; data_root: the folder holding datcom/.
int RunBatchCommand(const std::vector<std::string>& args, const std::string& data_root, std::ostream& out,
                    std::ostream& err);

}  // namespace kestra::batch

#include "batch/batch_command.h"

#include <ctime>
#include <filesystem>
#include <functional>

#include "batch/motor_start.h"
#include "batch/summary_report.h"
#include "batch/voltage_loss.h"
#include "djqd/djqd_reactor_queries.h"
#include "services/fileio/atomic_file.h"
#include "services/report/report_run.h"
#include "services/text/data_path.h"
#include "services/text/number_text.h"

namespace kestra::batch {
namespace {

void Usage(std::ostream& err) {
  err << "usage: kestra batch voltage-loss SCHEDULE.csv [--out RESULTS.csv] [--report SUMMARY.docx]\n"
         "       kestra batch motor-start MOTORS.csv [--out RESULTS.csv] [--report SUMMARY.docx]\n";
}

// One computed or refused row, as every output shows it.
struct Outcome {
  std::size_t line = 0;
  std::string name;
  bool refused = false, passed = false;
  std::vector<std::string> cells;         // the results file
  std::vector<std::string> report_cells;  // the report's table
  std::string failure;                    // what it breaks ("" when it passes)
  std::string verdict;                    // one line on standard output
};

struct Job {
  const char* title;
  const char* items;  // "个回路", "台电机"
  std::vector<std::string> required, header, report_header;
  std::vector<int> report_widths;
  std::function<Outcome(const ScheduleRow&)> compute;
};

// A report written where the designer asked: the name given, or with " (2)"… when a file has it
// (a report never replaces a file).
class FileTarget : public report::ReportTarget {
 public:
  FileTarget(std::string path, std::ostream& out, std::ostream& err) : path_(std::move(path)), out_(out), err_(err) {}
  std::optional<std::string> NewReportPath(std::string_view) override {
    std::string p = path_;
    std::error_code ec;
    while (std::filesystem::exists(std::filesystem::symlink_status(p, ec))) p = report::NextFreeCandidate(p);
    return p;
  }
  void ShowReport(const std::string& path) override { out_ << "[report] " << path << '\n'; }
  void ShowFailureCause(const std::string& cause) override { err_ << cause << '\n'; }

 private:
  std::string path_;
  std::ostream& out_;
  std::ostream& err_;
};

Job VoltageLossJob(LineCatalogue& lines) {
  Job j{"电压损失批量计算书", "个回路", LossRequiredColumns(), LossResultHeader(),
        {"行", "回路", "线路", "长度km", "Δu%", "允许压降%", "允许长度km", "结论"},
        {4, 13, 28, 7, 7, 7, 9, 6}, {}};
  j.compute = [&lines](const ScheduleRow& row) {
    const LossRow r = ComputeLossRow(row, lines);
    Outcome o{r.line, r.name, r.refusal.has_value(), !r.refusal && r.pass, LossResultCells(r), {}, LossFailureText(r), {}};
    const auto& c = o.cells;  // 回路 行 种类 线路 R X U 长度 Δu 允许 允许长度 结论 说明
    o.report_cells = {c[1], c[0], c[3], c[7], c[8], c[9], c[10], c[11]};
    o.verdict = r.refusal ? "拒绝" : c[11] + " Δu=" + c[8] + "% 允许长度=" + c[10] + "km";
    return o;
  };
  return j;
}

Job MotorStartJob(MotorCatalogue& motors, ReactorCatalogue& reactors) {
  Job j{"电机起动批量计算书", "台电机", MotorRequiredColumns(), MotorResultHeader(),
        {"行", "电机", "电机数据", "起动方式", "Ustm", "ustM", "起动电流A", "要求Ustm", "结论"},
        {4, 13, 19, 15, 7, 7, 10, 7, 8}, {}};
  j.compute = [&motors, &reactors](const ScheduleRow& row) {
    const MotorRow r = ComputeMotorRow(row, motors, reactors);
    Outcome o{r.line, r.name, r.refusal.has_value(), !r.refusal && r.pass, MotorResultCells(r), {}, MotorFailureText(r), {}};
    const auto& c = o.cells;  // 电机 行 数据 方式 Ustm ustM Istm 要求 结论 电抗器 自耦 说明
    o.report_cells = {c[1], c[0], c[2], c[3], c[4], c[5], c[6], c[7], c[8]};
    if (!r.refusal && !r.pass && r.reactor) {
      o.failure += "; 电抗器降压起动: " + ReactorText(r) + "; 自耦变压器降压起动: " + RatioText(r);
    }
    o.verdict = r.refusal ? "拒绝" : c[8] + " Ustm=" + c[4] + " ustM=" + c[5] + " Istm=" + c[6] + "A";
    return o;
  };
  return j;
}

std::string Today() {
  const std::time_t now = std::time(nullptr);
  std::tm tm{};
  localtime_r(&now, &tm);
  char buf[16];
  std::strftime(buf, sizeof buf, "%Y-%m-%d", &tm);
  return buf;
}

int Run(const Job& job, const std::string& schedule_path, const std::string& out_path, const std::string& report_path,
        std::ostream& out, std::ostream& err) {
  std::string error;
  const auto schedule = ReadSchedule(schedule_path, job.required, error);
  if (!schedule) {
    err << error << '\n';
    return kNotRun;
  }
  std::vector<Outcome> outcomes;
  outcomes.reserve(schedule->rows.size());
  for (const catalog::CsvRecord& record : schedule->rows) {
    if (const auto shape = ShapeRefusal(*schedule, record)) {
      Outcome o{record.line, {}, true, false, {}, {}, shape->Text(), "拒绝"};
      const ScheduleRow row(schedule->columns, record);
      o.name = row.Text(job.header.front());
      o.cells.assign(job.header.size(), "");
      o.cells[0] = o.name;
      o.cells[1] = std::to_string(record.line);
      o.cells[o.cells.size() - 2] = "拒绝";
      o.cells.back() = o.failure;
      outcomes.push_back(std::move(o));
    } else {
      outcomes.push_back(job.compute(ScheduleRow(schedule->columns, record)));
    }
  }

  std::size_t passed = 0, refused = 0;
  std::vector<std::vector<std::string>> rows;
  Summary summary;
  summary.title = job.title;
  summary.input_file = std::filesystem::path(schedule_path).filename().string();
  summary.date = Today();
  summary.header = job.report_header;
  summary.widths = job.report_widths;
  for (Outcome& o : outcomes) {
    passed += o.passed;
    refused += o.refused;
    out << o.line << ' ' << (o.name.empty() ? "-" : o.name) << ": " << o.verdict << '\n';
    if (o.refused) err << schedule_path << ':' << o.failure << '\n';
    if (o.report_cells.empty()) {
      o.report_cells.assign(job.report_header.size(), "");
      o.report_cells[0] = std::to_string(o.line);
      o.report_cells[1] = o.name;
      o.report_cells.back() = "拒绝";
    }
    summary.rows.push_back(o.report_cells);
    summary.marked.push_back(!o.passed);
    if (!o.passed) summary.failures.push_back((o.name.empty() ? std::string() : o.name + "：") + o.failure);
    rows.push_back(std::move(o.cells));
  }
  const std::size_t failed = outcomes.size() - passed - refused;
  summary.counts = "共" + std::to_string(outcomes.size()) + job.items + ": 合格" + std::to_string(passed) +
                   "个, 不合格" + std::to_string(failed) + "个, 拒绝" + std::to_string(refused) + "个。";
  out << outcomes.size() << " rows: " << passed << " passed, " << failed << " failed, " << refused << " refused\n";

  int status = refused ? kSomeRefused : failed ? kSomeFailed : kAllPassed;
  if (!out_path.empty()) {
    if (const std::error_code e = fileio::ReplaceFile(out_path, ResultsCsv(job.header, rows))) {
      err << "cannot write " << out_path << ": " << e.message() << '\n';
      status = kNotRun;
    }
  }
  if (!report_path.empty()) {
    FileTarget target(report_path, out, err);
    report::ReportRunOptions options;
    options.title = job.title;
    const bool written = report::RunReport(
        target, [&err](const std::string& message) { err << message << '\n'; },
        [&summary](ReportWriter& w) { WriteSummary(w, summary); }, options);
    if (!written) status = kNotRun;
  }
  return status;
}

}  // namespace

int RunBatchCommand(const std::vector<std::string>& args, const std::string& data_root, std::ostream& out,
                    std::ostream& err) {
  if (args.size() < 2) {
    Usage(err);
    return kNotRun;
  }
  std::string out_path, report_path;
  for (std::size_t i = 2; i < args.size(); ++i) {
    if ((args[i] == "--out" || args[i] == "--report") && i + 1 < args.size()) {
      (args[i] == "--out" ? out_path : report_path) = args[i + 1];
      ++i;
    } else {
      err << "kestra batch: unexpected argument " << args[i] << '\n';
      Usage(err);
      return kNotRun;
    }
  }
  // Results written over the schedule would lose the designer's own file.
  std::error_code same_ec;
  if (!out_path.empty() && std::filesystem::equivalent(out_path, args[1], same_ec)) {
    err << "kestra batch: --out " << out_path << " is the schedule itself; give the results a file of their own\n";
    return kNotRun;
  }
  // A folder is no report name (the next free name after "." would be " (2).").
  if (!report_path.empty() && std::filesystem::is_directory(report_path, same_ec)) {
    err << "kestra batch: --report " << report_path << " is a folder; name the report's file (SUMMARY.docx)\n";
    return kNotRun;
  }
  if (args[0] == "voltage-loss") {
    Catalogue catalogue(text::DataPath(data_root, "datcom\\DyssCal.Mdb"));
    LineCatalogue lines(catalogue);
    return Run(VoltageLossJob(lines), args[1], out_path, report_path, out, err);
  }
  if (args[0] == "motor-start") {
    Catalogue motor_file(text::DataPath(data_root, "datcom\\Motor.Mdb"));
    Catalogue reactor_file(text::DataPath(data_root, djqd::kReactorCatalogue));
    MotorCatalogue motors(motor_file);
    ReactorCatalogue reactors(reactor_file);
    return Run(MotorStartJob(motors, reactors), args[1], out_path, report_path, out, err);
  }
  Usage(err);
  return kNotRun;
}

}  // namespace kestra::batch

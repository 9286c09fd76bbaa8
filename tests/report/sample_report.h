#pragma once
// A report shaped like the reactive-compensation report (title, four section headings, body
// blocks with superscripts and subscripts, tabs and line feeds), for the package tests, the
// independent readers and the benchmark; and a target with one fixed path to write it to.
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "services/report/report_target.h"
#include "services/report/report_writer.h"

namespace kestra::report::testing {

void WriteSampleReport(ReportWriter& w);

// Hands out one fixed path and records what it is asked to show.
class FixedTarget : public ReportTarget {
 public:
  std::optional<std::string> path;
  std::vector<std::string> titles, shown, causes;
  bool throw_on_show = false;
  std::optional<std::string> NewReportPath(std::string_view title) override {
    titles.emplace_back(title);
    return path;
  }
  void ShowReport(const std::string& p) override {
    shown.push_back(p);
    if (throw_on_show) throw std::runtime_error("no word processor");
  }
  void ShowFailureCause(const std::string& cause) override { causes.push_back(cause); }
};

}  // namespace kestra::report::testing

#pragma once
// The summary report of a batch run: a title, the schedule's file name and the date, one table
// with a row per circuit or motor (failing and refused rows marked), and a line per failure
// naming the limit it breaks.
#include <string>
#include <vector>

#include "services/report/report_writer.h"

namespace kestra::batch {

struct Summary {
  std::string title;       // "电压损失批量计算书"
  std::string input_file;  // the schedule's file name, without its folder
  std::string date;        // "2025-03-01"
  std::string counts;      // "共24个回路: 合格19个, 超限4个, 拒绝1个。"
  std::vector<std::string> header;
  std::vector<int> widths;
  std::vector<std::vector<std::string>> rows;
  std::vector<bool> marked;            // per row
  std::vector<std::string> failures;   // one line each
};

void WriteSummary(ReportWriter& w, const Summary& s);

}  // namespace kestra::batch

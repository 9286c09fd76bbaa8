#include "batch/summary_report.h"

namespace kestra::batch {

void WriteSummary(ReportWriter& w, const Summary& s) {
  using kestra::report::BlockEnd;
  w.TitleBlock(s.title, kestra::report::TextMode::kPlain);
  w.PlainBlock("输入文件：" + s.input_file);
  w.PlainBlock("计算日期：" + s.date);
  w.PlainBlock(s.counts);
  w.SectionHeading("计算结果");
  kestra::report::ReportTable table;
  table.rows.push_back(s.header);
  table.rows.insert(table.rows.end(), s.rows.begin(), s.rows.end());
  table.marked.push_back(false);
  table.marked.insert(table.marked.end(), s.marked.begin(), s.marked.end());
  table.widths = s.widths;
  w.TableBlock(table);
  if (s.failures.empty()) {
    w.PlainBlock("所有项目均满足要求。", BlockEnd::kEndsReport);
    return;
  }
  w.SectionHeading("不满足要求的项目");
  for (std::size_t i = 0; i < s.failures.size(); ++i) {
    w.PlainBlock(std::to_string(i + 1) + ". " + s.failures[i],
                 i + 1 == s.failures.size() ? BlockEnd::kEndsReport : BlockEnd::kNewParagraph);
  }
}

}  // namespace kestra::batch

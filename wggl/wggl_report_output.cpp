#include "wggl/wggl_report_output.h"

#include "wggl/wggl_report.h"

namespace kestra::wggl {

void OutputWgglReport(const report::Blocks& blocks, const std::function<void(const std::string&)>& show_message) {
  (void)blocks;
  // ==== REPORT WRITER CALL SITE =============================================================
  // The one place the calculator hands its report to the report writer of services/report:
  //   kestra::report::WriteReport(<ReportTarget over ui::CurrentHost()>, show_message, blocks);
  // The writer is not part of this build yet, so no document can be created; the designer
  // gets the writer's own message for that case and nothing is written.
  // ==========================================================================================
  show_message("Create Word Instance Failed!");
}

}  // namespace kestra::wggl

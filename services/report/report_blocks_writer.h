#pragma once
// Writes a calculator's report blocks with the report writer, under the report guard.
#include <functional>
#include <string>

#include "services/report/report_blocks.h"
#include "services/report/report_run.h"

namespace kestra::report {

// Each block as its writing operations (title block, section heading, body block, plain
// run, paragraph end, document font, header mark).
void WriteBlocks(ReportWriter& writer, const Blocks& blocks);

// RunReport with WriteBlocks as the body.
bool WriteReport(ReportTarget& target, const std::function<void(const std::string& message)>& show_message,
                 const Blocks& blocks, const ReportRunOptions& options);

}  // namespace kestra::report

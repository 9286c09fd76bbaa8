#pragma once
// A report shaped like the reactive-compensation report (title, four section headings, body
// blocks with superscripts and subscripts, tabs and line feeds), for the package tests, the
// independent readers and the benchmark.
#include "services/report/report_writer.h"

namespace kestra::report::testing {

void WriteSampleReport(ReportWriter& w);

}  // namespace kestra::report::testing

#pragma once
// The motor-start calculation reports: one per starting method of the first page, one for the
// reactor page and one for the autotransformer page. The formula lines print the values of the
// calculation that the report has just run; the results, the torque and time sections print
// what the page shows.
#include <string>

#include "djqd/djqd_formulas.h"
#include "djqd/djqd_params.h"
#include "services/report/report_blocks.h"

namespace kestra::djqd {

// A label of the page's overload check as it stands on screen.
struct ShownLabel {
  bool visible = false;
  std::string text;
};

// What the report takes from the page's controls.
struct ReportTexts {
  int cable_type = -1;  // the cable-type selection
  std::string series, model;
  double speed = 0, power = 0;  // the numbers in the speed and power edits
  std::string ustm, ustm_motor, istm;
  std::string xk, xz, reactor_model;  // the reactor page
  std::string kz, kk;                 // the autotransformer page
  ShownLabel overload_title, overload_name, overload_value;
};

struct ReportData {
  int page = 0;  // 0 voltage drop, 1 reactor, 2 autotransformer ratio
  StartMethod method = StartMethod::FullVoltage;
  WorkingValues values;  // after the calculation
  StartResults start;     // page 0
  ReactorResults reactor; // page 1
  RatioResults ratio;     // page 2
  ReportTexts texts;
};

// The report's title for the page and method.
const char* DjqdReportTitle(int page, StartMethod method);
report::Blocks BuildDjqdReport(const ReportData& data);

}  // namespace kestra::djqd

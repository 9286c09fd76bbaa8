#pragma once
// The calculation report ("计算书") of the active page: "电压损失计算书" for the voltage-loss
// page, "线路长度计算书" for the line-length page, as report blocks. The dialog calculates first
// and writes no report when the page then has no result; the blocks take the calculation's
// numbers and what the dialog shows (list texts, the line data, cosφ as typed).
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "dyss/dyss_formulas.h"
#include "services/report/report_blocks.h"

namespace kestra::dyss {

inline constexpr const char* kLossReportTitle = "电压损失计算书";
inline constexpr const char* kLengthReportTitle = "线路长度计算书";

// What a line-data form shows of its line.
struct ShownLine {
  std::string name;                                          // the line-name list's text
  std::vector<std::pair<std::string, std::string>> indexes;  // each index label's and list's text
  std::string data;                                          // the line-data label
};

// What a page shows around its calculation.
struct ShownInputs {
  std::string kind_text, case_text;  // the page's two lists
  ShownLine line;                    // the line of a line-data form
  std::string cos_text;              // the cosφ edit of a form with a power factor
};

struct LossReportData {
  ShownInputs shown;
  LossInputs inputs;                 // the form's texts as calculated
  LossResult result;                 // ComputeLoss(inputs)
  std::string result_text;           // the result as shown
};

// The harmonic part of the line-length report (kind 0 with the section selection on): the texts shown.
struct HarmonicShown {
  std::string list_text;     // the harmonic list
  std::string k_text;        // K
  std::string current_text;  // I of the current-moment form, whichever form is shown
  std::string i_prime_text;  // I′
  std::string l_prime_text;  // L′
};

struct LengthReportData {
  ShownInputs shown;
  LengthInputs inputs;  // cos_phi: the form's power factor as held (the report's cosφ)
  LengthResult result;
  std::string result_text;
  std::optional<HarmonicShown> harmonic;
};

report::Blocks BuildLossReport(const LossReportData& d);
report::Blocks BuildLengthReport(const LengthReportData& d);

}  // namespace kestra::dyss

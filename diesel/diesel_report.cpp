#include "diesel/diesel_report.h"

#include <ctime>

namespace kestra::diesel {

namespace {
// One line naming the program that wrote the report, then an empty line.
constexpr const char* kNotice =
    "本计算书由 OrvelKestra 柴油发电机组容量计算程序生成。\n\n";
constexpr const char* kBasis =
    "\t根据《工业与民用配电设计手册》第三版66页柴油发电机组容量选择计算公式（2-6）（2-7）（2-8）";
}  // namespace

kestra::report::Blocks BuildDieselReport(const ZoUiWDFHCal& steady, const ZoUiJFFHCal& peak,
                                         const ZoUiMXYXYJCal& bus_drop, const std::string& date) {
  using kestra::report::BlockKind;
  return {
      {BlockKind::Title, kReportTitle},
      {BlockKind::Plain, kNotice},
      {BlockKind::Plain, "计算时间: " + date + "\n"},
      {BlockKind::Plain, "设 计 院:\n"},
      {BlockKind::Plain, "工    程:\n"},
      {BlockKind::Plain, "计 算 者:"},
      // A failure from the paragraph break that closes the header on is one of the body.
      {BlockKind::HeaderDone, ""},
      {BlockKind::NewParagraph, ""},
      {BlockKind::Heading, "计算依据"},
      {BlockKind::Body, kBasis},
      {BlockKind::Heading, "计算参数"},
      {BlockKind::Body, steady.GetParamText() + peak.GetParamText() + bus_drop.GetParamText()},
      {BlockKind::Heading, "计算结果"},
      {BlockKind::BodyEnd, steady.GetResultText() + peak.GetResultText() + bus_drop.GetResultText()},
      {BlockKind::DocumentFont, "宋体"},
  };
}

std::string TodayText() {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  char buf[16];
  const std::size_t n = std::strftime(buf, sizeof buf, "%Y-%m-%d", &local);
  return std::string(buf, n);
}

}  // namespace kestra::diesel

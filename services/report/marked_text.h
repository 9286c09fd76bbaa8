#pragma once
// Formula texts of the reports carry their superscripts and subscripts as mark pairs:
// "<U>2</U>" (superscript) and "<L>js</L>" (subscript).
#include <string_view>
#include <vector>

#include "services/report/report_document.h"

namespace kestra::report {

// Splits a marked text into runs, left to right, by these rules, on which every report line
// is written:
// marks do not nest (an inner mark stays literal text of its run), an empty pair gives no run,
// an opening mark without its closing one is dropped and the rest read on as ordinary text, and
// a "<" that opens no mark is literal and joins the last run made so far, whatever its kind.
// Texts between marks are kept as they are (not trimmed); tabs and line feeds pass unchanged.
std::vector<Run> SplitMarkedText(std::string_view text);

}  // namespace kestra::report

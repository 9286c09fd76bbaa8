#pragma once
// A report document as a .docx file (WordprocessingML package, zipped with libzip).
#include <ctime>
#include <string>

#include "services/report/project_info.h"
#include "services/report/report_document.h"

namespace kestra::report {

// The package bytes. The title of the document properties is the text of the first "heading 1"
// paragraph; `created` is the creation time in its properties; every page's header holds the
// project's title block. Throws COleException (kHresultFail) when libzip fails.
std::string DocxBytes(const ReportDocument& doc, std::time_t created, const ProjectInfo& project = {});

// The text of the first paragraph in "heading 1" (empty when there is none).
std::string DocumentTitle(const ReportDocument& doc);

}  // namespace kestra::report

#include "services/report/report_document.h"

namespace kestra::report {

std::string Paragraph::Text() const {
  std::string s;
  for (const Run& r : runs) s += r.text;
  return s;
}

}  // namespace kestra::report

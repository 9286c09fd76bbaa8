// Compiled, not run: CASE 0 is a call that must compile; each other CASE a call that must not.
#include <string>

#include "services/text/format.h"

std::string Line() {
#if CASE == 0
  return kestra::text::Format("%.2f*%d=%s", 0.75, 2, std::string("1.50"));
#elif CASE == 1
  return kestra::text::Format("%d kW", 1.5);
#elif CASE == 2
  return kestra::text::Format("%.2f*%.2f", 0.75);
#elif CASE == 3
  return kestra::text::Format("%.2f", 0.75, 1.0);
#elif CASE == 4
  return kestra::text::Format("%n", 1);
#endif
}

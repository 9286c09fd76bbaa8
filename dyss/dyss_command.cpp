#include "dyss/dyss_command.h"

#include "dyss/dyss_dialog.h"

namespace kestra::dyss {

void RunDyssCommand(const shell::ModuleContext& module) {
  CDyssCalDlg dlg(module);
  if (dlg.db_open()) dlg.DoModal();
}

}  // namespace kestra::dyss

#include "diesel/diesel_command.h"

#include "diesel/diesel_dialog.h"

namespace kestra::diesel {

void RunDieselCommand(const shell::ModuleContext& module) {
  // Constructed, run and destroyed within the command; nothing of it is kept.
  ZoUiCyfdjzrlCalDlg dlg(module);
  dlg.DoModal();
}

}  // namespace kestra::diesel

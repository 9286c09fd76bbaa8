#include "diesel/diesel_command.h"

#include "diesel/diesel_dialog.h"

namespace kestra::diesel {

void RunDieselCommand() {
  // Constructed, run and destroyed within the command; nothing of it is kept.
  ZoUiCyfdjzrlCalDlg dlg(nullptr);
  dlg.DoModal();
}

}  // namespace kestra::diesel

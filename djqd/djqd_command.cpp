#include "djqd/djqd_command.h"

#include "djqd/djqd_dialog.h"

namespace kestra::djqd {

void RunDjqdCommand(const shell::ModuleContext& module) {
  CDjqdCalDlg dlg(module);
  if (dlg.usable()) dlg.DoModal();
}

}  // namespace kestra::djqd

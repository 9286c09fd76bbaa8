#include "wggl/wggl_command.h"

#include "wggl/wggl_dialog.h"

namespace kestra::wggl {

void RunWgglCommand(const shell::ModuleContext& module) {
  CWgglbcDlg dlg(module);
  dlg.DoModal();
}

}  // namespace kestra::wggl

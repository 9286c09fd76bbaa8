#include "wggl/wggl_command.h"

#include "shell/module_state.h"
#include "wggl/wggl_dialog.h"

namespace kestra::wggl {

void RunWgglCommand() {
  shell::ModuleResourceScope resources;
  void* main_window = shell::Host() ? shell::Host()->MainWindow() : nullptr;
  CWgglbcDlg dlg(main_window);
  dlg.DoModal();
}

}  // namespace kestra::wggl

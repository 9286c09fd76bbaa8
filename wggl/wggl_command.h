#pragma once
// The command "WGGL": the reactive power compensation calculator.

namespace kestra::shell {
class ModuleContext;
}

namespace kestra::wggl {

// Runs CWgglbcDlg modally and destroys it. The shell calls it with the module's resources current.
void RunWgglCommand(const shell::ModuleContext& module);

}  // namespace kestra::wggl

#pragma once
// The command "WGGL": the reactive power compensation calculator.
namespace kestra::wggl {

// Makes the module's resources current, runs CWgglbcDlg modally over the host's main window
// (no parent without a host), destroys it and restores the previous resources.
void RunWgglCommand();

}  // namespace kestra::wggl

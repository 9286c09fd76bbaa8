#pragma once
// The command "DJQDCAL": the motor starting calculator.

namespace kestra::shell {
class ModuleContext;
}

namespace kestra::djqd {

// Constructs CDjqdCalDlg, runs it modally when its catalogues opened, and destroys it. The shell
// calls it with the module's resources current and returns the empty command result after it.
void RunDjqdCommand(const shell::ModuleContext& module);

}  // namespace kestra::djqd

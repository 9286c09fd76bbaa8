#pragma once
// The command "DYSSCAL": the voltage loss and permissible line length calculator.

namespace kestra::shell {
class ModuleContext;
}

namespace kestra::dyss {

// Constructs CDyssCalDlg, runs it modally when its catalogue opened, and destroys it. The shell
// calls it with the module's resources current and returns the empty command result after it.
void RunDyssCommand(const shell::ModuleContext& module);

}  // namespace kestra::dyss

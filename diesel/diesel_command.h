#pragma once
// The command "OrvelDieselContentCal": runs the generator-capacity dialog. The shell calls
// it with the module's resources current.

namespace kestra::shell {
class ModuleContext;
}

namespace kestra::diesel {

void RunDieselCommand(const shell::ModuleContext& module);

}  // namespace kestra::diesel

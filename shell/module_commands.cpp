#include "shell/module_commands.h"

#include "diesel/diesel_command.h"
#include "djqd/djqd_command.h"
#include "dyss/dyss_command.h"
#include "shell/module_context.h"
#include "wggl/wggl_command.h"

// Each calculator gives the shell one entry function that constructs its dialog, runs it
// modally (the voltage-loss and motor-start dialogs only when their catalogue opened) and
// destroys it. The handler makes the module current around it.
namespace kestra::shell {

void RunInModule(const ModuleContext& module, CalculatorEntry entry, bool ret_void) {
  ModuleScope scope(module);
  entry(module);
  if (ret_void)
    if (HostApi* host = module.host()) host->RetVoid();
}

namespace {

template <CalculatorEntry entry, bool ret_void>
void Command() {
  if (const ModuleContext* module = LoadedModule()) RunInModule(*module, entry, ret_void);
}

void CmdSample() {}

constexpr ZoCmdTable kCommands[kCommandCount] = {
    {"sample", &CmdSample, 2},
    {"WGGL", &Command<&wggl::RunWgglCommand, false>, 2},
    {"DYSSCAL", &Command<&dyss::RunDyssCommand, true>, 2},
    {"DJQDCAL", &Command<&djqd::RunDjqdCommand, true>, 2},
    {"OrvelDieselContentCal", &Command<&diesel::RunDieselCommand, false>, 2},
};

}  // namespace

const ZoCmdTable* CommandTable() { return kCommands; }

}  // namespace kestra::shell

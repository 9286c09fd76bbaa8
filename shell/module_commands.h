#pragma once
// The module's command group and its command handlers.
#include "shell/command_table.h"

namespace kestra::shell {

class ModuleContext;

// A calculator's command entry: constructs its dialog, runs it, destroys it.
using CalculatorEntry = void (*)(const ModuleContext&);

// What each calculator's command does in a module: the module's resources, dialog host and
// language current around the entry; with ret_void (DYSSCAL, DJQDCAL) an empty result to the
// host's command line after it, whether or not the dialog ran.
void RunInModule(const ModuleContext& module, CalculatorEntry entry, bool ret_void);

// The five commands in registration order: sample, WGGL, DYSSCAL, DJQDCAL, OrvelDieselContentCal.
inline constexpr int kCommandCount = 5;
const ZoCmdTable* CommandTable();

}  // namespace kestra::shell

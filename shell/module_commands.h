#pragma once
// The module's command group and its command handlers.
#include <string>

#include "shell/command_table.h"

namespace kestra::shell {

// The group name: string 100 of the module's resources ("OrvelKestra").
std::string ModuleName();

// The five commands in registration order: sample, WGGL, DYSSCAL, DJQDCAL, OrvelDieselContentCal.
inline constexpr int kCommandCount = 5;
const ZoCmdTable* CommandTable();

}  // namespace kestra::shell

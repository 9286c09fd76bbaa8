#include "djqd/djqd_command.h"

#include "shell/module_context.h"

namespace kestra::djqd {

void RunDjqdCommand(const shell::ModuleContext& module) {
  if (shell::HostApi* host = module.host())
    host->PrintLine("DJQDCAL: 电机启动计算尚未提供 (this calculator is not available yet)");
}

}  // namespace kestra::djqd

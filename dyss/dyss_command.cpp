#include "dyss/dyss_command.h"

#include "shell/module_context.h"

namespace kestra::dyss {

void RunDyssCommand(const shell::ModuleContext& module) {
  if (shell::HostApi* host = module.host())
    host->PrintLine("DYSSCAL: 电压损失计算尚未提供 (this calculator is not available yet)");
}

}  // namespace kestra::dyss

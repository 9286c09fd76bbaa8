#include "shell/command_table.h"

#include "shell/module_context.h"

int ZoDefineCommand(const std::string& group, const ZoCmdTable* table, int count, int /*reserved*/) {
  const kestra::shell::ModuleContext* module = kestra::shell::LoadedModule();
  kestra::shell::HostApi* host = module ? module->host() : nullptr;
  if (!host || !table) return 0;
  int taken = 0;
  for (int i = 0; i < count; ++i)
    if (host->AddCommand(group, table[i].name, table[i].fn, table[i].flags)) ++taken;
  return taken;
}

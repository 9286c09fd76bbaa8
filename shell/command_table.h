#pragma once
// The module's command registration: one table row per command, registered under a
// group on the host's command stack.
#include <string>

#include "shell/host_api.h"

struct ZoCmdTable {
  const char* name;
  kestra::shell::CommandFn fn;
  int flags;
};

// Registers count rows of table under group with the host; the last argument is reserved (0).
// Returns the number of commands the host took.
int ZoDefineCommand(const std::string& group, const ZoCmdTable* table, int count, int reserved);

#pragma once
// Module-wide state the commands share: the host, the data root, the module's resources.
#include <string>
#include <string_view>

#include "shell/host_api.h"

namespace kestra::shell {

// The host that initialised the module (null before the initialisation message).
HostApi* Host();
void SetHost(HostApi* api);

// Full path of the module file, found at run time.
std::string ModulePath();
// For tests that link the module's code into their own program.
void SetModulePathForTesting(std::string path);

// The data root: the folder two levels above the module file.
std::string DataRoot();
// A data file named the module's way ("Kestra\x.idp", "\Image\Wgglbc.RTF") as a real path.
std::string DataFile(std::string_view relative);

// The module's resources current for the life of the object, through the host's
// resource push and pop (directly on the framework's stack when no host is there).
class ModuleResourceScope {
 public:
  ModuleResourceScope();
  ~ModuleResourceScope();
  ModuleResourceScope(const ModuleResourceScope&) = delete;
  ModuleResourceScope& operator=(const ModuleResourceScope&) = delete;
};

}  // namespace kestra::shell

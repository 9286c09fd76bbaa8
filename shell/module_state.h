#pragma once
// Module-wide state the commands share: the host, the module instance, the host's main
// window, the data root, the module's resources.
#include <string>
#include <string_view>

#include "shell/host_api.h"

namespace ui {
class ResourceSet;
}

namespace kestra::shell {

// The host that initialised the module (null before the initialisation message).
HostApi* Host();
void SetHost(HostApi* api);

// The loaded module file, as the library's start-up finds it.
struct ModuleInstance {
  void* handle = nullptr;  // the dynamic linker's handle of the module file
  std::string path;        // its full path
};
// Null until the start-up has recorded the instance.
const ModuleInstance* RecordedInstance();
void RecordInstance(ModuleInstance instance);
void ForgetInstanceForTesting();

// The module's own resources carried by an instance (null when they cannot be read).
const ui::ResourceSet* ResourcesOf(const ModuleInstance& instance);

// The host's main window, recorded at command registration (opaque; may be null).
void* HostMainWindow();
void SetHostMainWindow(void* window);

// Full path of the module file, found at run time.
std::string ModulePath();
// For tests that link the module's code into their own program.
void SetModulePathForTesting(std::string path);

// The data root: the folder two levels above the module file.
std::string DataRoot();
// A data file named the module's way ("Kestra\x.idp", "\Image\Wgglbc.RTF") as a real path.
std::string DataFile(std::string_view relative);

// The resources a command makes current: the recorded instance's, else those of the
// framework's extension record. Programs that link the module's code without loading it
// (tests) have neither and get the module's own resources.
const ui::ResourceSet* CommandResources();

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

#pragma once
// The module file as the library's start-up finds it, and the resources it carries.
#include <string>

namespace ui {
class ResourceSet;
}

namespace kestra::shell {

// The loaded module file.
struct ModuleInstance {
  void* handle = nullptr;  // the dynamic linker's handle of the module file
  std::string path;        // its full path
};
// Null until the start-up has recorded the instance.
const ModuleInstance* RecordedInstance();
void RecordInstance(ModuleInstance instance);

// The module's own resources carried by an instance (null when they cannot be read).
const ui::ResourceSet* ResourcesOf(const ModuleInstance& instance);

// Full path of the module file: the recorded instance's, else the file this code was loaded from.
std::string ModulePath();

}  // namespace kestra::shell

#include "shell/module_state.h"

#include <dlfcn.h>

#include <optional>

#include "res/embedded.h"
#include "services/text/data_path.h"
#include "shell/extension_module.h"
#include "ui/resource_script.h"

namespace kestra::shell {
namespace {
HostApi* g_api = nullptr;
void* g_main_window = nullptr;
std::optional<ModuleInstance>& Instance() {
  static std::optional<ModuleInstance> instance;
  return instance;
}
std::string& ModulePathOverride() {
  static std::string path;
  return path;
}
}  // namespace

HostApi* Host() { return g_api; }
void SetHost(HostApi* api) { g_api = api; }

const ModuleInstance* RecordedInstance() { return Instance() ? &*Instance() : nullptr; }
void RecordInstance(ModuleInstance instance) { Instance() = std::move(instance); }
void ForgetInstanceForTesting() { Instance().reset(); }

const ui::ResourceSet* ResourcesOf(const ModuleInstance&) {
  // Every instance of this module carries the same embedded resources.
  try {
    return &res::ModuleResources();
  } catch (const ui::ResourceError&) {
    return nullptr;
  }
}

void* HostMainWindow() { return g_main_window; }
void SetHostMainWindow(void* window) { g_main_window = window; }

std::string ModulePath() {
  if (!ModulePathOverride().empty()) return ModulePathOverride();
  if (Instance() && !Instance()->path.empty()) return Instance()->path;
  Dl_info info{};
  if (dladdr(reinterpret_cast<void*>(&ModulePath), &info) && info.dli_fname) return info.dli_fname;
  return {};
}

void SetModulePathForTesting(std::string path) { ModulePathOverride() = std::move(path); }

std::string DataRoot() { return text::DataRootOfModule(ModulePath()); }

std::string DataFile(std::string_view relative) { return text::DataPath(DataRoot(), relative); }

const ui::ResourceSet* CommandResources() {
  if (const ModuleInstance* inst = RecordedInstance()) return ResourcesOf(*inst);
  if (TheExtensionModule().initialised()) return TheExtensionModule().resources();
  return ResourcesOf(ModuleInstance{});
}

ModuleResourceScope::ModuleResourceScope() {
  const ui::ResourceSet* res = CommandResources();
  if (g_api) g_api->PushResources(res);
  else ui::PushResources(res);
}

ModuleResourceScope::~ModuleResourceScope() {
  if (g_api) g_api->PopResources();
  else ui::PopResources();
}

}  // namespace kestra::shell

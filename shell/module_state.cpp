#include "shell/module_state.h"

#include <dlfcn.h>

#include "res/embedded.h"
#include "services/text/data_path.h"
#include "ui/resource_script.h"

namespace kestra::shell {
namespace {
HostApi* g_api = nullptr;
std::string& ModulePathOverride() {
  static std::string path;
  return path;
}
}  // namespace

HostApi* Host() { return g_api; }
void SetHost(HostApi* api) { g_api = api; }

std::string ModulePath() {
  if (!ModulePathOverride().empty()) return ModulePathOverride();
  Dl_info info{};
  if (dladdr(reinterpret_cast<void*>(&ModulePath), &info) && info.dli_fname) return info.dli_fname;
  return {};
}

void SetModulePathForTesting(std::string path) { ModulePathOverride() = std::move(path); }

std::string DataRoot() { return text::DataRootOfModule(ModulePath()); }

std::string DataFile(std::string_view relative) { return text::DataPath(DataRoot(), relative); }

ModuleResourceScope::ModuleResourceScope() {
  const ui::ResourceSet* res = &res::ModuleResources();
  if (g_api) g_api->PushResources(res);
  else ui::PushResources(res);
}

ModuleResourceScope::~ModuleResourceScope() {
  if (g_api) g_api->PopResources();
  else ui::PopResources();
}

}  // namespace kestra::shell

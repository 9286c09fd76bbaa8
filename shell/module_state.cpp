#include "shell/module_state.h"

#include <dlfcn.h>

#include <optional>

#include "res/embedded.h"
#include "services/text/data_path.h"
#include "ui/resource_script.h"

namespace kestra::shell {
namespace {
std::optional<ModuleInstance>& Instance() {
  static std::optional<ModuleInstance> instance;
  return instance;
}
}  // namespace

const ModuleInstance* RecordedInstance() { return Instance() ? &*Instance() : nullptr; }
void RecordInstance(ModuleInstance instance) { Instance() = std::move(instance); }

const ui::ResourceSet* ResourcesOf(const ModuleInstance&) {
  // Every instance of this module carries the same embedded resources.
  try {
    return &res::ModuleResources();
  } catch (const ui::ResourceError&) {
    return nullptr;
  }
}

std::string ModulePath() {
  if (Instance() && !Instance()->path.empty()) return Instance()->path;
  Dl_info info{};
  if (dladdr(reinterpret_cast<void*>(&ModulePath), &info) && info.dli_fname) return text::FullPath(info.dli_fname);
  return {};
}

}  // namespace kestra::shell

#include "shell/extension_module.h"

namespace kestra::shell {
namespace {
bool g_init_fails = false;
}

bool ExtensionModule::Init(const ModuleInstance& instance) {
  has_guard_ = false;
  const ui::ResourceSet* res = g_init_fails ? nullptr : ResourcesOf(instance);
  if (!res) return false;
  resources_ = res;
  guard_ = instance;
  has_guard_ = true;
  return true;
}

void ExtensionModule::Term() {
  // The guard's instance stays recorded, as the module's other handles do; only the
  // framework's view of the resources ends.
  resources_ = nullptr;
}

ExtensionModule& TheExtensionModule() {
  static ExtensionModule record;
  return record;
}

void SetExtensionInitFailsForTesting(bool fails) { g_init_fails = fails; }

}  // namespace kestra::shell

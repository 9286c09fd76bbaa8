// The module's entry points: what the host calls when it loads and unloads the module.
#include <dlfcn.h>

#include "shell/extension_module.h"
#include "shell/host_api.h"
#include "shell/module_commands.h"
#include "shell/module_state.h"

namespace kestra::shell {
namespace {

// The library's start-up: records the module instance and nothing else.
__attribute__((constructor)) void RecordModuleInstance() {
  Dl_info info{};
  if (!dladdr(reinterpret_cast<void*>(&RecordModuleInstance), &info)) return;
  ModuleInstance inst;
  inst.path = info.dli_fname ? info.dli_fname : "";
  // The handle of the file already loaded, without a reference of our own.
  inst.handle = dlopen(inst.path.c_str(), RTLD_NOW | RTLD_NOLOAD);
  if (inst.handle) dlclose(inst.handle);
  RecordInstance(std::move(inst));
}

void InitApplication(void* pkt) {
  HostApi* api = pkt ? static_cast<AppPackage*>(pkt)->api : nullptr;
  SetHost(api);
  // (1) The framework's extension record; its failure stops nothing else.
  if (const ModuleInstance* inst = RecordedInstance()) TheExtensionModule().Init(*inst);
  if (!api) return;
  // (2) The host may unload the module; (3) the dynamic linker learns its document mode.
  api->UnlockApplication(pkt);
  api->RegisterDocumentMode(pkt, true);
  // (4) The command group; (5) the main window, the parent of the reactive compensation dialog.
  ZoDefineCommand(ModuleName(), CommandTable(), kCommandCount, 0);
  SetHostMainWindow(api->MainWindow());
}

void UnloadApplication() {
  if (HostApi* api = Host()) api->RemoveGroup(ModuleName());
  TheExtensionModule().Term();
  SetHost(nullptr);
}

}  // namespace
}  // namespace kestra::shell

extern "C" {

__attribute__((visibility("default"))) int acrxEntryPoint(int msg, void* pkt) {
  switch (msg) {
    case kestra::shell::kInitAppMsg:
      kestra::shell::InitApplication(pkt);
      break;
    case kestra::shell::kUnloadAppMsg:
      kestra::shell::UnloadApplication();
      break;
    default:
      break;
  }
  return 0;
}

// The interface release the module was built for (the host's "18" series).
__attribute__((visibility("default"))) int acrxGetApiVersion() { return 18; }
}

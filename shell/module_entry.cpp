// The module's entry points: what the host calls when it loads and unloads the module.
#include "shell/module_entry.h"

#include <dlfcn.h>

#include <memory>

#include "services/text/data_path.h"
#include "shell/host_api.h"
#include "shell/module_commands.h"
#include "shell/module_context.h"
#include "shell/module_state.h"

namespace kestra::shell {
namespace {

// The library's start-up: records the module instance and nothing else.
__attribute__((constructor)) void RecordModuleInstance() {
  Dl_info info{};
  if (!dladdr(reinterpret_cast<void*>(&RecordModuleInstance), &info)) return;
  ModuleInstance inst;
  const std::string loaded_as = info.dli_fname ? info.dli_fname : "";
  // The dynamic linker keeps the name the host loaded the file by, which may be relative to
  // the folder the host is in now; the data root is found from the full path.
  inst.path = text::FullPath(loaded_as);
  // The handle of the file already loaded, without a reference of our own.
  inst.handle = dlopen(loaded_as.c_str(), RTLD_NOW | RTLD_NOLOAD);
  if (inst.handle) dlclose(inst.handle);
  RecordInstance(std::move(inst));
}

}  // namespace

void InitApplication(void* pkt, const ui::ResourceSet* resources) {
  HostApi* api = pkt ? static_cast<AppPackage*>(pkt)->api : nullptr;
  // (1) What every command will reach the host, the data and the resources through.
  auto module = std::make_unique<ModuleContext>(api, nullptr, ModulePath(), resources);
  ModuleContext& m = *module;
  SetLoadedModule(std::move(module));
  if (!api) return;
  // (2) The host may unload the module; (3) the dynamic linker learns its document mode.
  api->UnlockApplication(pkt);
  api->RegisterDocumentMode(pkt, true);
  // (4) The command group; (5) the main window, the parent of the reactive compensation dialog.
  ZoDefineCommand(m.ModuleName(), CommandTable(), kCommandCount, 0);
  m.set_main_window(api->MainWindow());
}

void UnloadApplication() {
  if (const ModuleContext* m = LoadedModule())
    if (HostApi* api = m->host()) api->RemoveGroup(m->ModuleName());
  SetLoadedModule(nullptr);
}

}  // namespace kestra::shell

extern "C" {

__attribute__((visibility("default"))) int acrxEntryPoint(int msg, void* pkt) {
  switch (msg) {
    case kestra::shell::kInitAppMsg: {
      const kestra::shell::ModuleInstance* inst = kestra::shell::RecordedInstance();
      kestra::shell::InitApplication(pkt, inst ? kestra::shell::ResourcesOf(*inst) : nullptr);
      break;
    }
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

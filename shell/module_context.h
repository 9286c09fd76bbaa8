#pragma once
// Everything a command and its dialogs reach beyond themselves, as one object: the host that
// loaded the module, the dialog host the dialogs run in, the data root, and the module's
// resources. The entry point creates it when the host initialises the module and hands it to
// each command; a test creates its own, as many as it likes, each with its own host and root.
#include <memory>
#include <string>
#include <string_view>

#include "shell/host_api.h"

struct ZoDtDictionary;

namespace ui {
class ResourceSet;
class UiHost;
}  // namespace ui

namespace kestra::shell {

class ModuleContext {
 public:
  // host: may be null (a program that runs the module's dialogs without loading it).
  // ui: the dialog host; null takes the host's. module_path: the module file, whose folder's
  // parent is the data root. resources: the module's own (null when they cannot be read: the
  // commands then find no dialog to show).
  ModuleContext(HostApi* host, ui::UiHost* ui, std::string module_path, const ui::ResourceSet* resources);
  ModuleContext(const ModuleContext&) = delete;
  ModuleContext& operator=(const ModuleContext&) = delete;

  HostApi* host() const { return host_; }
  ui::UiHost* ui() const { return ui_; }
  const ui::ResourceSet* resources() const { return resources_; }
  const std::string& module_path() const { return module_path_; }
  // The folder two levels above the module file.
  const std::string& data_root() const { return data_root_; }
  // A data file named the module's way ("Kestra\x.idp", "\Image\Wgglbc.RTF") as a real path.
  std::string DataFile(std::string_view relative) const;

  // The host's main window, recorded when the commands are registered (opaque; may be null).
  void* main_window() const { return main_window_; }
  void set_main_window(void* window) { main_window_ = window; }

  // The group name: string 100 of the resources ("OrvelKestra").
  std::string ModuleName() const;

  // The module's language dictionary from the language-switch service (null: none yet); once
  // the service has given one it is kept, until then it is asked at each call.
  ZoDtDictionary* Dictionary() const;

 private:
  HostApi* host_;
  ui::UiHost* ui_;
  std::string module_path_;
  std::string data_root_;
  const ui::ResourceSet* resources_;
  void* main_window_ = nullptr;
  mutable ZoDtDictionary* dictionary_ = nullptr;
};

// The one resource switch of every command and of every dialog a dialog opens: for the life
// of the object the context's resources are current (through the host's resource push and
// pop; straight on the dialog framework's stack when there is no host), its dialog host is the
// one dialogs run in, and the module's language dictionary is the current one. Everything is
// restored as it was at the end, so a command may run inside another host's command.
class ModuleScope {
 public:
  explicit ModuleScope(const ModuleContext& context);
  ~ModuleScope();
  ModuleScope(const ModuleScope&) = delete;
  ModuleScope& operator=(const ModuleScope&) = delete;

 private:
  const ModuleContext& context_;
  ui::UiHost* saved_ui_;
  ZoDtDictionary* saved_dictionary_;
};

// The context of the loaded module: null before the initialisation message and after unload.
const ModuleContext* LoadedModule();
// The entry point's: the context it created at the initialisation message, or null at unload.
void SetLoadedModule(std::unique_ptr<ModuleContext> module);

}  // namespace kestra::shell

#pragma once
// The dialog framework's extension-module record of the module: between the host's
// initialisation and unload messages it holds the resources in which the framework finds
// the module's dialogs and strings, and it remembers the instance the diesel command's
// resource guard switches to.
#include "shell/module_state.h"

namespace kestra::shell {

class ExtensionModule {
 public:
  // Registers the instance's resources; false when they cannot be registered (the record
  // then stays uninitialised and the guard's resource instance unset).
  bool Init(const ModuleInstance& instance);
  // Ends the record: only this module's framework objects go.
  void Term();

  bool initialised() const { return resources_ != nullptr; }
  const ui::ResourceSet* resources() const { return resources_; }
  // The resource instance of ZoUtPushResource (null unless Init succeeded).
  const ModuleInstance* guard_instance() const { return has_guard_ ? &guard_ : nullptr; }

 private:
  const ui::ResourceSet* resources_ = nullptr;
  ModuleInstance guard_;
  bool has_guard_ = false;
};

ExtensionModule& TheExtensionModule();

// Tests: the next initialisations fail, as a module with an unreadable resource section.
void SetExtensionInitFailsForTesting(bool fails);

}  // namespace kestra::shell

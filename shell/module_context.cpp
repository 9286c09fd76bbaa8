#include "shell/module_context.h"

#include "services/text/data_path.h"
#include "shell/module_language.h"
#include "ui/resource_script.h"
#include "ui/ui_host.h"

namespace kestra::shell {
namespace {
std::unique_ptr<ModuleContext>& Loaded() {
  static std::unique_ptr<ModuleContext> module;
  return module;
}
}  // namespace

const ModuleContext* LoadedModule() { return Loaded().get(); }
void SetLoadedModule(std::unique_ptr<ModuleContext> module) { Loaded() = std::move(module); }

ModuleContext::ModuleContext(HostApi* host, ui::UiHost* ui, std::string module_path, const ui::ResourceSet* resources)
    : host_(host),
      ui_(ui ? ui : host ? host->Ui() : nullptr),
      module_path_(std::move(module_path)),
      data_root_(text::DataRootOfModule(module_path_)),
      resources_(resources) {}

std::string ModuleContext::DataFile(std::string_view relative) const { return text::DataPath(data_root_, relative); }

std::string ModuleContext::ModuleName() const {
  constexpr int kModuleNameString = 100;
  if (resources_)
    if (const std::string* name = resources_->FindString(kModuleNameString)) return *name;
  return "OrvelKestra";
}

ZoDtDictionary* ModuleContext::Dictionary() const {
  // A dictionary the service gave is kept; until it gives one, every switch asks again. A key
  // that cannot be made asks nothing.
  if (!dictionary_ && g_pQuendaLangSwitch) {
    const std::string key = ModuleLanguageKey(module_path_);
    if (!key.empty()) dictionary_ = g_pQuendaLangSwitch->GetModuleDictionary(key);
  }
  return dictionary_;
}

ModuleScope::ModuleScope(const ModuleContext& context)
    : context_(context), saved_ui_(ui::CurrentHost()), saved_dictionary_(g_pCurModuleLang) {
  if (HostApi* host = context_.host()) host->PushResources(context_.resources());
  else ui::PushResources(context_.resources());
  if (context_.ui()) ui::SetCurrentHost(context_.ui());
  g_pCurModuleLang = context_.Dictionary();
}

ModuleScope::~ModuleScope() {
  g_pCurModuleLang = saved_dictionary_;
  ui::SetCurrentHost(saved_ui_);
  if (HostApi* host = context_.host()) host->PopResources();
  else ui::PopResources();
}

}  // namespace kestra::shell

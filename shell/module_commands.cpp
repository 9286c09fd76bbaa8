#include "shell/module_commands.h"

#include "shell/extension_module.h"
#include "shell/module_state.h"
#include "shell/resource_guard.h"
#include "ui/resource_script.h"

// Each calculator gives the shell one entry function that constructs its dialog, runs it
// modally (the voltage-loss and motor-start dialogs only when their catalogue opened) and
// destroys it. The build defines KESTRA_HAVE_<X> when a calculator is there.
#if defined(KESTRA_HAVE_WGGL)
#include "wggl/wggl_command.h"
#endif
#if defined(KESTRA_HAVE_DYSS)
#include "dyss/dyss_command.h"
#endif
#if defined(KESTRA_HAVE_DJQD)
#include "djqd/djqd_command.h"
#endif
#if defined(KESTRA_HAVE_DIESEL)
#include "diesel/diesel_command.h"
#endif

namespace kestra::shell {
namespace {

constexpr int kModuleNameString = 100;

[[maybe_unused]] void NotAvailable(const char* command, const char* title) {
  if (HostApi* host = Host())
    host->PrintLine(std::string(command) + ": " + title + "尚未提供 (this calculator is not available yet)");
}

void CmdSample() {}

void CmdWggl() {
  ModuleResourceScope resources;
#if defined(KESTRA_HAVE_WGGL)
  kestra::wggl::RunWgglCommand();
#else
  NotAvailable("WGGL", "无功功率补偿计算");
#endif
}

void CmdDyss() {
  ModuleResourceScope resources;
#if defined(KESTRA_HAVE_DYSS)
  kestra::dyss::RunDyssCommand();
#else
  NotAvailable("DYSSCAL", "电压损失计算");
#endif
  if (HostApi* host = Host()) host->RetVoid();
}

void CmdDjqd() {
  ModuleResourceScope resources;
#if defined(KESTRA_HAVE_DJQD)
  kestra::djqd::RunDjqdCommand();
#else
  NotAvailable("DJQDCAL", "电机启动计算");
#endif
  if (HostApi* host = Host()) host->RetVoid();
}

void CmdDiesel() {
  ZoUtPushResource guard(TheExtensionModule().guard_instance());
#if defined(KESTRA_HAVE_DIESEL)
  kestra::diesel::RunDieselCommand();
#else
  NotAvailable("OrvelDieselContentCal", "柴油发电机组容量计算");
#endif
}

constexpr ZoCmdTable kCommands[kCommandCount] = {
    {"sample", &CmdSample, 2},
    {"WGGL", &CmdWggl, 2},
    {"DYSSCAL", &CmdDyss, 2},
    {"DJQDCAL", &CmdDjqd, 2},
    {"OrvelDieselContentCal", &CmdDiesel, 2},
};

}  // namespace

std::string ModuleName() {
  const ui::ResourceSet* res = TheExtensionModule().resources();
  if (!res) res = CommandResources();
  if (res)
    if (const std::string* name = res->FindString(kModuleNameString)) return *name;
  return "OrvelKestra";
}

const ZoCmdTable* CommandTable() { return kCommands; }

}  // namespace kestra::shell

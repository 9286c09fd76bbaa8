#include "host/core/host_session.h"

#include <dlfcn.h>
#include <unistd.h>

#include <cstdio>
#include <string_view>

#include "services/report/project_info.h"
#include "services/text/data_path.h"
#include "ui/resource_script.h"
#include "ui/ui_host.h"

namespace kestra::host {
namespace {

std::string_view Trim(std::string_view s) {
  while (!s.empty() && (s.front() == ' ' || s.front() == '\t' || s.front() == '\r' || s.front() == '\n')) s.remove_prefix(1);
  while (!s.empty() && (s.back() == ' ' || s.back() == '\t' || s.back() == '\r' || s.back() == '\n')) s.remove_suffix(1);
  return s;
}

}  // namespace

HostSession::HostSession(ui::UiHost& ui) : ui_(ui) {
  package_.api = this;
  ui::SetCurrentHost(&ui_);
}

HostSession::~HostSession() {
  Unload();
  if (ui::CurrentHost() == &ui_) ui::SetCurrentHost(nullptr);
}

bool HostSession::Load(const std::string& module_path, std::string* error) {
  auto fail = [&](std::string why) {
    if (error) *error = std::move(why);
    return false;
  };
  if (handle_) return fail("a module is already loaded");
  void* h = dlopen(module_path.c_str(), RTLD_NOW | RTLD_LOCAL);
  if (!h) {
    const char* e = dlerror();
    return fail(e ? e : "cannot load " + module_path);
  }
  auto entry = reinterpret_cast<int (*)(int, void*)>(dlsym(h, "acrxEntryPoint"));
  if (!entry) {
    dlclose(h);
    return fail(module_path + " is not a module (no acrxEntryPoint)");
  }
  handle_ = h;
  entry_ = entry;
  // The module's data root holds the project whose title block heads every report.
  data_root_ = text::DataRootOfModule(text::FullPath(module_path));
  ui_.SetProjectFile(ProjectFile());
  last_entry_result_ = entry_(kestra::shell::kInitAppMsg, &package_);
  return true;
}

void HostSession::Unload() {
  if (!handle_) return;
  last_entry_result_ = entry_(kestra::shell::kUnloadAppMsg, &package_);
  // A module that left its resources current must not leave them on the stack it no
  // longer backs.
  for (; resource_depth_ > 0; --resource_depth_) ui::PopResources();
  dlclose(handle_);
  handle_ = nullptr;
  entry_ = nullptr;
  unlocked_ = false;
  document_mode_registered_ = false;
}

const HostSession::Command* HostSession::FindCommand(const std::string& typed) const {
  std::string_view name = Trim(typed);
  if (name.empty()) return nullptr;
  for (const Command& c : commands_)
    if (text::EqualsNoCase(c.name, name)) return &c;
  return nullptr;
}

bool HostSession::RunCommand(const std::string& typed) {
  const Command* c = FindCommand(typed);
  if (!c || !c->fn) return false;
  // The table may change while the command runs; call through a copy.
  kestra::shell::CommandFn fn = c->fn;
  fn();
  return true;
}

void HostSession::UnlockApplication(void* pkt) {
  if (pkt == &package_) unlocked_ = true;
}

void HostSession::RegisterDocumentMode(void* pkt, bool) {
  if (pkt == &package_) document_mode_registered_ = true;
}

bool HostSession::AddCommand(const std::string& group, const std::string& name, kestra::shell::CommandFn fn, int flags) {
  if (name.empty() || !fn) return false;
  // A name is one command on the stack: a newer registration takes it over.
  for (auto it = commands_.begin(); it != commands_.end(); ++it)
    if (text::EqualsNoCase(it->name, name)) {
      commands_.erase(it);
      break;
    }
  commands_.push_back(Command{group, name, fn, flags});
  return true;
}

void HostSession::RemoveGroup(const std::string& group) {
  std::erase_if(commands_, [&](const Command& c) { return c.group == group; });
}

void HostSession::PushResources(const ui::ResourceSet* resources) {
  ui::PushResources(resources);
  ++resource_depth_;
}

void HostSession::PopResources() {
  if (resource_depth_ == 0) return;
  ui::PopResources();
  --resource_depth_;
}

void HostSession::PrintLine(const std::string& text) {
  if (output_) {
    output_(text);
    return;
  }
  std::fwrite(text.data(), 1, text.size(), stdout);
  std::fputc('\n', stdout);
  std::fflush(stdout);
}

std::string HostSession::ProjectFile() const {
  return data_root_.empty() ? std::string() : text::DataPath(data_root_, kestra::report::kProjectFile);
}

std::string DefaultModulePath() {
  std::string exe(4096, '\0');
  ssize_t n = readlink("/proc/self/exe", exe.data(), exe.size() - 1);
  if (n <= 0) return "OrvelKestra.so";
  exe.resize(static_cast<std::size_t>(n));
  auto slash = exe.find_last_of('/');
  return (slash == std::string::npos ? std::string(".") : exe.substr(0, slash)) + "/OrvelKestra.so";
}

}  // namespace kestra::host

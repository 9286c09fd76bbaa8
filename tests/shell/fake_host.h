#pragma once
// A host that records every call the module makes, in order.
#include <string>
#include <vector>

#include "shell/host_api.h"
#include "ui/resource_script.h"

namespace kestra::testing {

class RecordingHost : public kestra::shell::HostApi {
 public:
  struct Cmd {
    std::string group, name;
    kestra::shell::CommandFn fn;
    int flags;
  };
  std::vector<std::string> calls;
  std::vector<Cmd> commands;
  std::vector<std::string> lines;
  std::vector<const ui::ResourceSet*> pushed;
  int ret_void = 0;
  int window_tag = 0;
  ui::UiHost* ui = nullptr;

  void UnlockApplication(void*) override { calls.push_back("unlock"); }
  void RegisterDocumentMode(void*, bool) override { calls.push_back("document-mode"); }
  bool AddCommand(const std::string& g, const std::string& n, kestra::shell::CommandFn fn, int flags) override {
    calls.push_back("add " + g + " " + n);
    commands.push_back({g, n, fn, flags});
    return true;
  }
  void RemoveGroup(const std::string& g) override {
    calls.push_back("remove " + g);
    std::erase_if(commands, [&](const Cmd& c) { return c.group == g; });
  }
  void PushResources(const ui::ResourceSet* r) override {
    calls.push_back("push");
    pushed.push_back(r);
    ui::PushResources(r);
  }
  void PopResources() override {
    calls.push_back("pop");
    ui::PopResources();
  }
  void* MainWindow() override {
    calls.push_back("main-window");
    return &window_tag;
  }
  void RetVoid() override {
    calls.push_back("ret-void");
    ++ret_void;
  }
  ui::UiHost* Ui() override { return ui; }
  void PrintLine(const std::string& t) override { lines.push_back(t); }

  void Run(const std::string& name) {
    for (const Cmd& c : commands)
      if (c.name == name) return c.fn();
  }
};

}  // namespace kestra::testing

#pragma once
// The program's side of the module interface: loads the module, answers its host calls,
// keeps the command stack, runs commands typed at the command line.
#include <functional>
#include <string>
#include <vector>

#include "shell/host_api.h"

namespace ui {
class UiHost;
}

namespace kestra::host {

class HostSession : public kestra::shell::HostApi {
 public:
  explicit HostSession(ui::UiHost& ui);  // also makes `ui` the current ui::UiHost
  ~HostSession() override;
  HostSession(const HostSession&) = delete;
  HostSession& operator=(const HostSession&) = delete;

  // dlopen + the initialisation message. False with a reason when the file cannot be
  // loaded or is not a module; a session holds one module at a time.
  bool Load(const std::string& module_path, std::string* error);
  // The unload message + dlclose; nothing when no module is loaded.
  void Unload();
  bool loaded() const { return handle_ != nullptr; }
  // The data root of the module loaded last (two folders above it) and its project file.
  const std::string& data_root() const { return data_root_; }
  std::string ProjectFile() const;

  struct Command {
    std::string group;
    std::string name;
    kestra::shell::CommandFn fn;
    int flags;
  };
  const std::vector<Command>& Commands() const { return commands_; }  // registration order
  // A command as typed at the command line (case-insensitive, blanks trimmed).
  // Unknown: returns false and does nothing.
  bool RunCommand(const std::string& typed);
  // The command a typed text names, or null.
  const Command* FindCommand(const std::string& typed) const;

  bool unlocked() const { return unlocked_; }
  bool document_mode_registered() const { return document_mode_registered_; }
  int ret_void_count() const { return ret_void_count_; }
  // Entry point results of the last Load / Unload (the module reports 0).
  int last_entry_result() const { return last_entry_result_; }

  // What the module sees as the host's main window (opaque; the window mode sets it).
  void SetMainWindow(void* window) { main_window_ = window; }
  // Where the module's command-line lines go (default: standard output).
  void SetOutput(std::function<void(const std::string&)> out) { output_ = std::move(out); }

  // HostApi.
  void UnlockApplication(void* pkt) override;
  void RegisterDocumentMode(void* pkt, bool multiple_documents) override;
  bool AddCommand(const std::string& group, const std::string& name, kestra::shell::CommandFn fn, int flags) override;
  void RemoveGroup(const std::string& group) override;
  void PushResources(const ui::ResourceSet* resources) override;
  void PopResources() override;
  void* MainWindow() override { return main_window_; }
  void RetVoid() override { ++ret_void_count_; }
  ui::UiHost* Ui() override { return &ui_; }
  void PrintLine(const std::string& text) override;

 private:
  ui::UiHost& ui_;
  void* handle_ = nullptr;
  int (*entry_)(int, void*) = nullptr;
  kestra::shell::AppPackage package_;
  std::vector<Command> commands_;
  bool unlocked_ = false;
  bool document_mode_registered_ = false;
  int ret_void_count_ = 0;
  int last_entry_result_ = 0;
  int resource_depth_ = 0;
  void* main_window_ = nullptr;
  std::string data_root_;
  std::function<void(const std::string&)> output_;
};

// <folder of the running kestra>/OrvelKestra.so
std::string DefaultModulePath();

}  // namespace kestra::host

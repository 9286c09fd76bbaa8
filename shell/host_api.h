#pragma once
// The narrow interface between the module and the program that loads it: what the CAD
// host offered the module (unlocking, document mode, command stack, resource switching,
// the main window, an empty command result) plus the dialog host.
#include <string>

namespace ui {
class ResourceSet;
class UiHost;
}  // namespace ui

namespace kestra::shell {

using CommandFn = void (*)();

class HostApi {
 public:
  virtual ~HostApi() = default;
  // acrxUnlockApplication: the host may unload the module.
  virtual void UnlockApplication(void* pkt) = 0;
  // The dynamic linker's document-mode registration.
  virtual void RegisterDocumentMode(void* pkt, bool multiple_documents) = 0;
  // The command stack: add one command of a group with its flag word; remove a group.
  virtual bool AddCommand(const std::string& group, const std::string& name, CommandFn fn, int flags) = 0;
  virtual void RemoveGroup(const std::string& group) = 0;
  // The document manager's resource push / pop.
  virtual void PushResources(const ui::ResourceSet* resources) = 0;
  virtual void PopResources() = 0;
  // adsw_acadMainWnd: the host's main window (opaque).
  virtual void* MainWindow() = 0;
  // acedRetVoid: a command returns an empty result to the command line.
  virtual void RetVoid() = 0;
  // The dialog host the module's dialogs run in.
  virtual ui::UiHost* Ui() = 0;
  // One line for the designer on the host's command line (no line feed in text).
  virtual void PrintLine(const std::string& text) = 0;
};

// What the host passes as the package pointer of the entry messages.
struct AppPackage {
  HostApi* api = nullptr;
};

// Host application message codes of the entry point.
enum AppMsg : int {
  kInitAppMsg = 1,
  kUnloadAppMsg = 2,
  kLoadDwgMsg = 3,
  kUnloadDwgMsg = 4,
  kInvkSubrMsg = 5,
};

}  // namespace kestra::shell

extern "C" {
int acrxEntryPoint(int msg, void* pkt);
int acrxGetApiVersion();
}

#pragma once
// What the entry point does with the host's application messages.
namespace ui {
class ResourceSet;
}

namespace kestra::shell {

// The initialisation message: the module's context with the host of the package and the
// module's resources (null when they cannot be read: the rest of the initialisation still
// runs), then unlocking, the document mode, the command group and the main window.
void InitApplication(void* pkt, const ui::ResourceSet* resources);
// The unload message: the command group goes, and the context with it.
void UnloadApplication();

}  // namespace kestra::shell

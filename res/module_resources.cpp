#include "res/embedded.h"

namespace kestra::res {

const ui::ResourceSet& ModuleResources() {
  static const ui::ResourceSet set = [] {
    ui::ResourceSet s;
    for (const auto& script : EmbeddedScripts()) s.Parse(script.text, script.name);
    return s;
  }();
  return set;
}

}  // namespace kestra::res

#pragma once
// The module's own resources: dialog templates, list items and strings from res/*.rc,
// carried inside the module.
#include <string>
#include <vector>

#include "ui/resource_script.h"

namespace kestra::res {

struct EmbeddedScript {
  const char* name;
  const char* text;
};

const std::vector<EmbeddedScript>& EmbeddedScripts();

// All scripts parsed once into one set (a syntax error throws ui::ResourceError).
const ui::ResourceSet& ModuleResources();

}  // namespace kestra::res

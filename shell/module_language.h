#pragma once
// Module languages: the dictionaries a language-switch service of the host
// hands out by module key, and the one current now. The module's resource switch (ModuleScope)
// makes the module's dictionary current for a command.
#include <string>
#include <string_view>

// A module language dictionary (texts by key); the language-switch service owns them.
struct ZoDtDictionary {
  std::string key;
};

// The language-switch service: the dictionary of a module language key (null: none).
class ZoLangSwitch {
 public:
  virtual ~ZoLangSwitch() = default;
  virtual ZoDtDictionary* GetModuleDictionary(const std::string& key) = 0;
};

// The language-switch service the host provides (may be absent) and the dictionary current
// now, shared by every module of the host.
extern ZoLangSwitch* g_pQuendaLangSwitch;
extern ZoDtDictionary* g_pCurModuleLang;

namespace kestra::shell {

// The module language key of a module file: "D:\Prog\OrvelKestra18.arx" -> "ORVELKESTRA1".
// Empty when the file name does not have that shape.
std::string ModuleLanguageKey(std::string_view module_path);

}  // namespace kestra::shell

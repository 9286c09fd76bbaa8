#pragma once
// The resource-switch guard of the maker's library, carried by the module: for its life the
// given instance's resources are the framework's current resources and the module's language
// dictionary is the current one.
#include <string>
#include <string_view>

#include "shell/module_state.h"

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

// Globals of the maker's database-object library: the service (may be absent) and the
// dictionary current now.
extern ZoLangSwitch* g_pQuendaLangSwitch;
extern ZoDtDictionary* g_pCurModuleLang;

class ZoUtPushResource {
 public:
  // instance may be null (the extension record never came up): no resources are current then.
  explicit ZoUtPushResource(const kestra::shell::ModuleInstance* instance);
  ~ZoUtPushResource();
  ZoUtPushResource(const ZoUtPushResource&) = delete;
  ZoUtPushResource& operator=(const ZoUtPushResource&) = delete;

 private:
  ZoDtDictionary* saved_lang_;
};

namespace kestra::shell {

// The module language key of a module file: "D:\Prog\OrvelKestra18.arx" -> "ORVELKESTRA1".
// Empty when the file name does not have that shape.
std::string ModuleLanguageKey(std::string_view module_path);

// The dictionary the guard caches for the module (null until found).
ZoDtDictionary* CachedModuleDictionary();
void ForgetModuleDictionaryForTesting();

}  // namespace kestra::shell

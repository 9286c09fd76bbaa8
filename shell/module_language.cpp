#include "shell/module_language.h"

ZoLangSwitch* g_pQuendaLangSwitch = nullptr;
ZoDtDictionary* g_pCurModuleLang = nullptr;

namespace kestra::shell {
namespace {

bool IsSeparator(char c) { return c == '\\' || c == '/'; }

}  // namespace

std::string ModuleLanguageKey(std::string_view module_path) {
  // The path is read into a buffer of 1023 characters; never cut a character in two.
  std::size_t limit = module_path.size() < 1023 ? module_path.size() : 1023;
  while (limit > 0 && limit < module_path.size() && (static_cast<unsigned char>(module_path[limit]) & 0xC0) == 0x80) --limit;
  std::string s(module_path.substr(0, limit));
  for (char& c : s)
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');

  std::size_t sep = std::string::npos;
  for (std::size_t i = s.size(); i-- > 0;)
    if (IsSeparator(s[i])) {
      sep = i;
      break;
    }
  if (sep == std::string::npos || sep == 0 || sep + 1 == s.size()) return {};
  s = s.substr(sep + 1);

  std::size_t dot = s.find('.');
  if (dot == std::string::npos || dot == 0) return {};
  s.resize(dot);

  // Only one trailing digit goes (the host's release number "18" leaves "1").
  if (s.back() < '0' || s.back() > '9') return {};
  s.pop_back();
  return s;
}

}  // namespace kestra::shell

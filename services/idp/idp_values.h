#pragma once
// The two rules every calculator follows with its parameter keys.
#include <string>

class CInterDpData;

namespace kestra::idp {

// The key's text, or default_text when the key is missing or its text is empty (stored length
// below 2).
std::string ValueOr(const CInterDpData& tree, const std::string& key, const std::string& default_text);

// Stores text under key with the length callers store (UTF-16 characters + 1).
short SetValue(CInterDpData& tree, const std::string& key, const std::string& text);

}  // namespace kestra::idp

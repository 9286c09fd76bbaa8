#include "services/idp/idp_values.h"

#include "services/idp/idp_text.h"
#include "services/idp/inter_dp_data.h"

namespace kestra::idp {

std::string ValueOr(const CInterDpData& tree, const std::string& key, const std::string& default_text) {
  const IdpNode* node = tree.GetSubValueFromPathW(0, key);
  if (!node || node->Length() < 2) return default_text;
  return node->Text();
}

short SetValue(CInterDpData& tree, const std::string& key, const std::string& text) {
  return tree.SetSubValueW(key, StoredLength(text), text, 0);
}

}  // namespace kestra::idp

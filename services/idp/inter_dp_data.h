#pragma once
// CInterDpData: the parameter tree of a calculator and its parameter file. A tree of named
// text values addressed by key paths ("Cal\DyssCal\Page1\线路种类"), read from and written to a
// UTF-8 ".idp" file. No failure throws; results are status codes that callers may ignore.
#include <memory>
#include <string>

#include "services/idp/idp_node.h"

namespace kestra::idp {
class TableAccess;

// Results of the tree's operations.
inline constexpr short kOk = 0;
inline constexpr short kMissingFile = 1;     // read: no such file, the tree is empty
inline constexpr short kUnreadableFile = 2;  // read: not a parameter file, kept aside, tree empty
inline constexpr short kReadFailed = 3;      // read: the file could not be read, tree empty
inline constexpr short kBadKeyPath = 4;      // set: empty name, "=" or control character
inline constexpr short kBadText = 5;         // set: the text is not valid UTF-8
inline constexpr short kWriteFailed = 6;     // write: nothing replaced, the old file is intact
}  // namespace kestra::idp

class CInterDpData {
 public:
  CInterDpData();
  ~CInterDpData();
  CInterDpData(CInterDpData&&) noexcept;
  CInterDpData& operator=(CInterDpData&&) noexcept;
  CInterDpData(const CInterDpData&) = delete;
  CInterDpData& operator=(const CInterDpData&) = delete;

  // Replaces the tree with the file's content. A missing file gives an empty tree; a file that
  // is not a parameter file gives an empty tree and is renamed to
  // "<name>.unreadable-<YYYYmmdd-HHMMSS>[-N]" first, so a later write loses nothing.
  short ReadDataFromIdpFile(const std::string& path);

  // The node of a key path (names joined by "\"), or nullptr. `zero` is unused (callers pass 0).
  const IdpNode* GetSubValueFromPathW(int zero, const std::string& key_path) const;

  // Stores text under key_path, creating missing folders. `length` is stored as given (callers
  // pass the character count + 1; kestra::idp::SetValue computes it). `zero` is unused.
  short SetSubValueW(const std::string& key_path, short length, const std::string& text, int zero);

  // Writes the whole tree, replacing the file atomically; a missing folder is created.
  short WriteDataToIdpFile(const std::string& path) const;

 private:
  friend class kestra::idp::TableAccess;
  std::unique_ptr<IdpNode> root_;
};

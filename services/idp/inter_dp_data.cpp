#include "services/idp/inter_dp_data.h"

#include "services/fileio/atomic_file.h"
#include "services/idp/idp_file.h"
#include "services/idp/idp_format.h"
#include "services/idp/idp_text.h"
#include "services/text/data_path.h"

using namespace kestra::idp;

CInterDpData::CInterDpData() : root_(std::make_unique<IdpNode>()) {}
CInterDpData::~CInterDpData() = default;
CInterDpData::CInterDpData(CInterDpData&&) noexcept = default;
CInterDpData& CInterDpData::operator=(CInterDpData&&) noexcept = default;

short CInterDpData::ReadDataFromIdpFile(const std::string& path_in) {
  root_ = std::make_unique<IdpNode>();
  try {
    const std::string path = kestra::text::ResolvePath(path_in);
    std::string text;
    FileId id;
    switch (ReadWholeFile(path, text, &id)) {
      case ReadResult::kMissing: return kMissingFile;
      case ReadResult::kFailed: return kReadFailed;
      case ReadResult::kOk: break;
    }
    auto tree = std::make_unique<IdpNode>();
    if (!ParseIdpText(text, *tree, nullptr)) {
      MoveAside(path, id, nullptr);
      return kUnreadableFile;
    }
    root_ = std::move(tree);
    return kOk;
  } catch (const std::exception&) {  // out of memory on a huge file: the tree stays empty
    root_ = std::make_unique<IdpNode>();
    return kReadFailed;
  }
}

const IdpNode* CInterDpData::GetSubValueFromPathW(int /*zero*/, const std::string& key_path) const {
  if (!root_) return nullptr;  // moved-from tree
  const IdpNode* node = root_.get();
  std::size_t start = 0;
  while (node) {
    std::size_t end = key_path.find('\\', start);
    std::string_view name(key_path.data() + start,
                          (end == std::string::npos ? key_path.size() : end) - start);
    if (name.empty()) return nullptr;
    node = node->Child(name);
    if (end == std::string::npos) break;
    start = end + 1;
  }
  return node;
}

short CInterDpData::SetSubValueW(const std::string& key_path, short length, const std::string& text,
                                 int /*zero*/) {
  auto names = SplitKeyPath(key_path);
  if (!names) return kBadKeyPath;
  if (!IsValidUtf8(text)) return kBadText;
  if (!root_) root_ = std::make_unique<IdpNode>();
  IdpNode* node = root_.get();
  for (std::string_view name : *names) node = &node->ChildOrCreate(name);
  node->SetValue(text, length);
  return kOk;
}

short CInterDpData::WriteDataToIdpFile(const std::string& path) const {
  try {
    IdpNode empty;
    std::string text = FormatIdpText(root_ ? *root_ : empty);
    const std::string real = kestra::text::ResolvePath(path);
    // OK without changes is common: the file already says this, so spare the disk two flushes.
    std::string now;
    if (ReadWholeFile(real, now) == ReadResult::kOk && now == text) return kOk;
    return kestra::fileio::ReplaceFile(real, text) ? kWriteFailed : kOk;
  } catch (const std::exception&) {
    return kWriteFailed;
  }
}

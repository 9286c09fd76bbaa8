#include "services/idp/idp_node.h"

namespace {
// Below this many children a linear scan is faster than hashing.
constexpr std::size_t kIndexFrom = 12;
}  // namespace

IdpNode::IdpNode(std::string name) : name_(std::move(name)) {}

// The subtree is taken apart with a list of its own, so that no chain of destructors as long
// as the tree is deep runs on the stack.
IdpNode::~IdpNode() {
  index_.clear();
  std::vector<std::unique_ptr<IdpNode>> pending = std::move(children_);
  while (!pending.empty()) {
    std::unique_ptr<IdpNode> node = std::move(pending.back());
    pending.pop_back();
    node->index_.clear();
    for (auto& child : node->children_) pending.push_back(std::move(child));
    node->children_.clear();
  }
}

const IdpNode* IdpNode::Child(std::string_view name) const {
  if (!index_.empty()) {
    auto it = index_.find(name);
    return it == index_.end() ? nullptr : children_[it->second].get();
  }
  for (const auto& c : children_)
    if (c->name_ == name) return c.get();
  return nullptr;
}

IdpNode& IdpNode::ChildOrCreate(std::string_view name) {
  if (const IdpNode* found = Child(name)) return *const_cast<IdpNode*>(found);
  children_.push_back(std::make_unique<IdpNode>(std::string(name)));
  if (children_.size() == kIndexFrom) {
    for (std::size_t i = 0; i < children_.size(); ++i) IndexChild(i);
  } else if (children_.size() > kIndexFrom) {
    IndexChild(children_.size() - 1);
  }
  return *children_.back();
}

void IdpNode::IndexChild(std::size_t pos) { index_.emplace(children_[pos]->name_, pos); }

void IdpNode::SetValue(std::string text, short length) {
  text_ = std::move(text);
  length_ = length;
  has_value_ = true;
}

void IdpNode::ClearChildren() {
  index_.clear();
  children_.clear();
}

#pragma once
// One node of a parameter tree: a name, optionally a text value with its stored length, and
// child nodes kept in the order they were first added (file order, then new keys), so that a
// written file keeps the layout of the one that was read.
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

class IdpNode {
 public:
  explicit IdpNode(std::string name = {});
  ~IdpNode();
  IdpNode(const IdpNode&) = delete;
  IdpNode& operator=(const IdpNode&) = delete;

  const std::string& Name() const { return name_; }
  // The stored length: characters of the text plus one, characters counted as UTF-16 code units.
  // 0 for a node that only holds children.
  short Length() const { return length_; }
  // The text, UTF-8 (empty for a node without a value).
  const std::string& Text() const { return text_; }
  // True once a value was set or read for this node (even an empty one).
  bool HasValue() const { return has_value_; }

  const std::vector<std::unique_ptr<IdpNode>>& Children() const { return children_; }
  const IdpNode* Child(std::string_view name) const;

  // Mutation, for the tree's owner (callers get const nodes).
  IdpNode& ChildOrCreate(std::string_view name);
  void SetValue(std::string text, short length);
  void ClearChildren();

 private:
  void IndexChild(std::size_t pos);

  std::string name_;
  std::string text_;
  short length_ = 0;
  bool has_value_ = false;
  std::vector<std::unique_ptr<IdpNode>> children_;
  // Name -> position in children_, built once a node has many children (table rows).
  std::unordered_map<std::string_view, std::size_t> index_;
};

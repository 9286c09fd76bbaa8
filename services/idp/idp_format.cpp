#include "services/idp/idp_format.h"

#include <vector>

#include "services/idp/idp_node.h"
#include "services/idp/idp_text.h"

namespace kestra::idp {
namespace {

bool IsBlank(std::string_view line) {
  for (char c : line)
    if (c != ' ' && c != '\t') return false;
  return true;
}

bool Fail(std::string* error, std::size_t line_no, const char* what) {
  if (error) *error = "第" + std::to_string(line_no) + "行" + what;
  return false;
}

// Depth first, with a stack of its own rather than recursion.
void FormatTree(const IdpNode& root, std::string& out) {
  struct Frame {
    const IdpNode* node;
    std::size_t next;        // the next child to write
    std::size_t prefix_end;  // the prefix's length before this node's name was added
  };
  std::string prefix;
  std::vector<Frame> stack{{&root, 0, 0}};
  while (!stack.empty()) {
    Frame& f = stack.back();
    if (f.next == f.node->Children().size()) {
      prefix.resize(f.prefix_end);
      stack.pop_back();
      continue;
    }
    const IdpNode& child = *f.node->Children()[f.next++];
    const std::size_t keep = prefix.size();
    if (!prefix.empty()) prefix += '\\';
    prefix += child.Name();
    if (child.HasValue()) {
      out += prefix;
      out += '=';
      AppendEscaped(out, child.Text());
      out += '\n';
    }
    stack.push_back({&child, 0, keep});
  }
}

}  // namespace

bool ParseIdpText(std::string_view text, IdpNode& root, std::string* error) {
  if (text.starts_with("\xEF\xBB\xBF")) text.remove_prefix(3);
  // One check of the whole text; the line is looked for only when it fails.
  const bool all_utf8 = IsValidUtf8(text);
  std::string value;
  // Keys of one folder usually follow each other: the folder of the last key is kept.
  std::string_view last_folder;
  IdpNode* last_parent = nullptr;
  std::size_t line_no = 0;
  std::size_t pos = 0;
  while (pos < text.size()) {
    std::size_t end = text.find('\n', pos);
    if (end == std::string_view::npos) end = text.size();
    std::string_view line = text.substr(pos, end - pos);
    pos = end + 1;
    ++line_no;
    if (line.ends_with('\r')) line.remove_suffix(1);
    if (!all_utf8 && !IsValidUtf8(line)) return Fail(error, line_no, "不是有效的UTF-8文本");
    if (line.starts_with(';') || IsBlank(line)) continue;
    std::size_t eq = line.find('=');
    if (eq == std::string_view::npos) return Fail(error, line_no, "缺少\"=\"");
    std::string_view key = line.substr(0, eq);
    if (key.size() > kMaxKeyPathBytes) return Fail(error, line_no, "的键路径太长");
    std::size_t cut = key.rfind('\\');
    std::string_view folder = cut == std::string_view::npos ? std::string_view() : key.substr(0, cut);
    std::string_view leaf = cut == std::string_view::npos ? key : key.substr(cut + 1);
    if (cut == 0 || !IsKeyName(leaf)) return Fail(error, line_no, "的键路径有空名称或控制字符");
    IdpNode* parent = &root;
    if (last_parent && folder == last_folder) {
      parent = last_parent;
    } else if (!folder.empty()) {
      std::size_t start = 0;
      std::size_t depth = 1;  // the leaf
      while (true) {
        if (++depth > kMaxKeyDepth) return Fail(error, line_no, "的键路径层次太多");
        std::size_t sep = folder.find('\\', start);
        std::string_view name = folder.substr(start, sep == std::string_view::npos ? sep : sep - start);
        if (!IsKeyName(name)) return Fail(error, line_no, "的键路径有空名称或控制字符");
        parent = &parent->ChildOrCreate(name);
        if (sep == std::string_view::npos) break;
        start = sep + 1;
      }
    }
    last_folder = folder;
    last_parent = parent;
    if (!Unescape(line.substr(eq + 1), value)) return Fail(error, line_no, "的值含有无效的转义");
    short length = StoredLength(value);
    parent->ChildOrCreate(leaf).SetValue(std::move(value), length);
    value = std::string();
  }
  return true;
}

std::string FormatIdpText(const IdpNode& root) {
  std::string out;
  out.reserve(4096);
  out += kFileHeader;
  out += '\n';
  FormatTree(root, out);
  return out;
}

}  // namespace kestra::idp

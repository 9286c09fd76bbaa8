#include "services/idp/idp_table.h"

#include "services/idp/idp_file.h"
#include "services/idp/idp_format.h"
#include "services/idp/idp_text.h"
#include "services/idp/idp_values.h"
#include "services/idp/inter_dp_data.h"
#include "services/text/data_path.h"
#include "services/text/number_text.h"

namespace kestra::idp {

// The table code works on the tree's nodes directly: it replaces a whole table at once and
// reads table files without the parameter-file read's keeping-aside of unreadable files.
class TableAccess {
 public:
  static IdpNode& Root(CInterDpData& tree) {
    if (!tree.root_) tree.root_ = std::make_unique<IdpNode>();  // a moved-from tree
    return *tree.root_;
  }
  static void Adopt(CInterDpData& tree, std::unique_ptr<IdpNode> root) { tree.root_ = std::move(root); }
};

namespace {

constexpr long kMaxColumns = 1000;
constexpr long kMaxRows = 100000;

// A whole number written plainly ("12", not "012", "+12" or " 12"); -1 otherwise.
long WholeNumber(std::string_view s) {
  if (s.empty() || s.size() > 6 || (s.size() > 1 && s.front() == '0')) return -1;
  for (char c : s)
    if (c < '0' || c > '9') return -1;
  return kestra::text::WToI(s);
}

bool Fail(std::string* error, std::string message) {
  if (error) *error = std::move(message);
  return false;
}

std::string Quoted(std::string_view s) { return "\"" + std::string(s) + "\""; }

// The count stored under name ("Columns", "Rows"), at least `least` and at most `most`.
bool ReadCount(const IdpNode& table, const std::string& key, const char* name, long least, long most,
               long& out, std::string* error) {
  const IdpNode* node = table.Child(name);
  if (!node || !node->HasValue())
    return Fail(error, "表格" + Quoted(key) + "缺少" + Quoted(key + "\\" + name));
  out = WholeNumber(node->Text());
  if (out < least || out > most)
    return Fail(error, "表格" + Quoted(key) + "的" + Quoted(key + "\\" + name) + "不是" +
                           std::to_string(least) + "到" + std::to_string(most) + "之间的整数: " +
                           Quoted(node->Text()));
  return true;
}

}  // namespace

std::optional<IdpTable> ReadTable(const std::string& file_path, const std::string& table_key,
                                  std::string* error) try {
  const std::string path = kestra::text::ResolvePath(file_path);
  std::string text;
  switch (ReadWholeFile(path, text)) {
    case ReadResult::kMissing:
      Fail(error, "表格文件" + Quoted(file_path) + "不存在");
      return std::nullopt;
    case ReadResult::kFailed:
      Fail(error, "表格文件" + Quoted(file_path) + "无法读取");
      return std::nullopt;
    case ReadResult::kOk: break;
  }
  auto root = std::make_unique<IdpNode>();
  std::string why;
  if (!ParseIdpText(text, *root, &why)) {
    Fail(error, "表格文件" + Quoted(file_path) + "不是参数文件: " + why);
    return std::nullopt;
  }
  CInterDpData tree;
  TableAccess::Adopt(tree, std::move(root));
  auto table = ReadTable(tree, table_key, error);
  if (!table && error) *error = "表格文件" + Quoted(file_path) + ": " + *error;
  return table;
} catch (const std::exception&) {  // out of memory on a huge file
  Fail(error, "表格文件" + Quoted(file_path) + "太大, 无法读取");
  return std::nullopt;
}

std::optional<IdpTable> ReadTable(const CInterDpData& tree, const std::string& key, std::string* error) {
  const IdpNode* node = tree.GetSubValueFromPathW(0, key);
  if (!node) {
    Fail(error, "没有表格" + Quoted(key));
    return std::nullopt;
  }
  long columns = 0;
  long rows = 0;
  if (!ReadCount(*node, key, "Columns", 1, kMaxColumns, columns, error) ||
      !ReadCount(*node, key, "Rows", 0, kMaxRows, rows, error))
    return std::nullopt;

  IdpTable table;
  if (const IdpNode* t = node->Child("Title")) table.title = t->Text();
  if (const IdpNode* n = node->Child("Note")) table.note = n->Text();
  table.headers.assign(static_cast<std::size_t>(columns), std::string());
  table.rows.assign(static_cast<std::size_t>(rows),
                    std::vector<std::string>(static_cast<std::size_t>(columns)));

  std::vector<bool> have_header(static_cast<std::size_t>(columns), false);
  if (const IdpNode* headers = node->Child("Header")) {
    for (const auto& h : headers->Children()) {
      long c = WholeNumber(h->Name());
      if (c < 1 || c > columns) {
        Fail(error, "表格" + Quoted(key) + "的列标题" + Quoted(key + "\\Header\\" + h->Name()) +
                        "不在1到" + std::to_string(columns) + "列之内");
        return std::nullopt;
      }
      table.headers[c - 1] = h->Text();
      have_header[c - 1] = h->HasValue();
    }
  }
  for (long c = 1; c <= columns; ++c) {
    if (!have_header[c - 1]) {
      Fail(error, "表格" + Quoted(key) + "缺少列标题" + Quoted(key + "\\Header\\" + std::to_string(c)));
      return std::nullopt;
    }
  }
  if (const IdpNode* body = node->Child("Row")) {
    for (const auto& row : body->Children()) {
      long r = WholeNumber(row->Name());
      if (r < 1 || r > rows) {
        Fail(error, "表格" + Quoted(key) + "的行" + Quoted(key + "\\Row\\" + row->Name()) + "不在1到" +
                        std::to_string(rows) + "行之内");
        return std::nullopt;
      }
      for (const auto& cell : row->Children()) {
        long c = WholeNumber(cell->Name());
        if (c < 1 || c > columns) {
          Fail(error, "表格" + Quoted(key) + "的单元格" +
                          Quoted(key + "\\Row\\" + row->Name() + "\\" + cell->Name()) + "不在1到" +
                          std::to_string(columns) + "列之内");
          return std::nullopt;
        }
        table.rows[r - 1][c - 1] = cell->Text();
      }
    }
  }
  return table;
}

bool WriteTable(CInterDpData& tree, const std::string& key, const IdpTable& table) {
  auto names = SplitKeyPath(key);
  if (!names || table.headers.empty() ||
      table.headers.size() > static_cast<std::size_t>(kMaxColumns) ||
      table.rows.size() > static_cast<std::size_t>(kMaxRows) || !IsValidUtf8(table.title) ||
      !IsValidUtf8(table.note))
    return false;
  for (const auto& h : table.headers)
    if (!IsValidUtf8(h)) return false;
  for (const auto& row : table.rows) {
    if (row.size() > table.headers.size()) return false;
    for (const auto& cell : row)
      if (!IsValidUtf8(cell)) return false;
  }

  // Everything below checks out, so the old table can go.
  IdpNode* node = &TableAccess::Root(tree);
  for (std::string_view name : *names) node = &node->ChildOrCreate(name);
  node->ClearChildren();

  const std::string k = key + "\\";
  SetValue(tree, k + "Title", table.title);
  SetValue(tree, k + "Columns", std::to_string(table.headers.size()));
  SetValue(tree, k + "Rows", std::to_string(table.rows.size()));
  for (std::size_t c = 0; c < table.headers.size(); ++c)
    SetValue(tree, k + "Header\\" + std::to_string(c + 1), table.headers[c]);
  for (std::size_t r = 0; r < table.rows.size(); ++r) {
    const std::string row_key = k + "Row\\" + std::to_string(r + 1) + "\\";
    for (std::size_t c = 0; c < table.headers.size(); ++c)
      SetValue(tree, row_key + std::to_string(c + 1), c < table.rows[r].size() ? table.rows[r][c] : "");
  }
  if (!table.note.empty()) SetValue(tree, k + "Note", table.note);
  return true;
}

}  // namespace kestra::idp

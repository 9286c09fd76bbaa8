#pragma once
// The query texts by which forms read a catalogue, written as the catalogues are asked:
// key columns with their "￥" mark, values in double quotes as they are. Values are not
// escaped: a value holding a double quote makes its query fail, and the failure is reported
// like any other database error.
#include <string>
#include <vector>

namespace kestra::forms {

// A key column (name without "￥") with the text chosen in its list.
struct KeyText {
  std::string column;
  std::string text;
};

// SELECT DISTINCT [￥C] FROM [T]
std::string KeyValuesQuery(const std::string& column, const std::string& table);
// SELECT DISTINCT [￥C] FROM [T] WHERE ￥K LIKE "V"
std::string KeyValuesUnderQuery(const std::string& column, const std::string& table, const KeyText& key);

// How a form spells the query for one value of the row its lists select.
struct RowQueryStyle {
  bool bracket_table = true;  // FROM [T] (motor catalogue) or FROM T (line forms)
  std::string like = "LIKE";  // "LIKE" (motor catalogue) or "Like" (line forms)
  bool skip_empty = false;    // line forms leave out a key whose text or column name is empty
};
// SELECT [C] FROM T WHERE ￥K1 Like "V1" AND ￥K2 Like "V2" ... (no WHERE when no key is used).
std::string RowValueQuery(const std::string& column, const std::string& table, const std::vector<KeyText>& keys,
                          const RowQueryStyle& style);

// The pick dialog's search: SELECT * FROM [T], then for each key whose text, trimmed of
// blanks at both ends, is not empty: " where " (the first) or " and " and [￥K]="V", V trimmed.
std::string SearchQuery(const std::string& table, const std::vector<KeyText>& keys);

}  // namespace kestra::forms

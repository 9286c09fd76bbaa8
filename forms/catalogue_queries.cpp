#include "forms/catalogue_queries.h"

#include "services/tabledb/key_indexes.h"

namespace kestra::forms {
namespace {

const std::string kMark = kestra::tabledb::kKeyMark;

std::string Quoted(const std::string& text) { return "\"" + text + "\""; }

std::string Trimmed(const std::string& s) {
  const char* blanks = " \t\r\n\v\f";
  const auto b = s.find_first_not_of(blanks);
  if (b == std::string::npos) return {};
  return s.substr(b, s.find_last_not_of(blanks) - b + 1);
}

}  // namespace

std::string KeyValuesQuery(const std::string& column, const std::string& table) {
  return "SELECT DISTINCT [" + kMark + column + "] FROM [" + table + "]";
}

std::string KeyValuesUnderQuery(const std::string& column, const std::string& table, const KeyText& key) {
  return KeyValuesQuery(column, table) + " WHERE " + kMark + key.column + " LIKE " + Quoted(key.text);
}

std::string RowValueQuery(const std::string& column, const std::string& table, const std::vector<KeyText>& keys,
                          const RowQueryStyle& style) {
  std::string q = "SELECT [" + column + "] FROM " + (style.bracket_table ? "[" + table + "]" : table);
  const char* join = " WHERE ";
  for (const KeyText& k : keys) {
    if (style.skip_empty && (k.column.empty() || k.text.empty())) continue;
    q += join + kMark + k.column + " " + style.like + " " + Quoted(k.text);
    join = " AND ";
  }
  return q;
}

std::string SearchQuery(const std::string& table, const std::vector<KeyText>& keys) {
  std::string q = "SELECT * FROM [" + table + "]";
  const char* join = " where ";
  for (const KeyText& k : keys) {
    const std::string text = Trimmed(k.text);
    if (text.empty()) continue;
    q += join + ("[" + kMark + k.column + "]=") + Quoted(text);
    join = " and ";
  }
  return q;
}

}  // namespace kestra::forms

#include "services/tabledb/key_indexes.h"

#include <sqlite3.h>

namespace kestra::tabledb {

bool IsKeyColumn(const std::string& name) { return name.rfind(kKeyMark, 0) == 0; }

std::string QuoteIdentifier(const std::string& name) {
  std::string r = "\"";
  for (char c : name) {
    r += c;
    if (c == '"') r += '"';
  }
  return r + "\"";
}

bool CreateKeyIndexes(sqlite3* db, const std::string& table, const std::vector<std::string>& columns,
                      std::string& error) {
  int n = 0;
  for (const auto& c : columns) {
    if (!IsKeyColumn(c)) continue;
    // Index names only need to be unique in the file; the table name keeps them readable.
    const std::string base = "kestra_key_" + table + "_" + std::to_string(n++);
    const std::string sql = "CREATE INDEX " + QuoteIdentifier(base + "_nocase") + " ON " +
                            QuoteIdentifier(table) + "(" + QuoteIdentifier(c) + " COLLATE NOCASE);" +
                            "CREATE INDEX " + QuoteIdentifier(base) + " ON " + QuoteIdentifier(table) +
                            "(" + QuoteIdentifier(c) + ");";
    char* msg = nullptr;
    if (sqlite3_exec(db, sql.c_str(), nullptr, nullptr, &msg) != SQLITE_OK) {
      error = msg ? msg : "cannot create an index";
      sqlite3_free(msg);
      return false;
    }
  }
  // All key columns together, in table order: the line-data and motor-data lookups name
  // the keys in that order, so one index finds the row for one, two or three keys.
  std::vector<std::string> keys;
  for (const auto& c : columns) {
    if (IsKeyColumn(c)) keys.push_back(QuoteIdentifier(c) + " COLLATE NOCASE");
  }
  if (keys.size() >= 2) {
    std::string sql = "CREATE INDEX " + QuoteIdentifier("kestra_keys_" + table) + " ON " + QuoteIdentifier(table) + "(";
    for (std::size_t k = 0; k < keys.size(); ++k) sql += (k ? ", " : "") + keys[k];
    char* msg = nullptr;
    if (sqlite3_exec(db, (sql + ")").c_str(), nullptr, nullptr, &msg) != SQLITE_OK) {
      error = msg ? msg : "cannot create an index";
      sqlite3_free(msg);
      return false;
    }
  }
  return true;
}

}  // namespace kestra::tabledb

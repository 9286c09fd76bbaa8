#include <sqlite3.h>

#include <algorithm>
#include <memory>
#include <string_view>

#include "services/tabledb/ado.h"
#include "services/tabledb/catalog.h"
#include "services/tabledb/catalog_csv.h"
#include "services/tabledb/cell_text.h"
#include "services/tabledb/engine.h"
#include "services/tabledb/key_indexes.h"

namespace kestra::catalog {

namespace {

using Problems = std::vector<std::string>;

// Columns 1 and up (column 0 is never shown or searched by the calculators).
std::vector<std::string> UsedColumns(tabledb::Engine& e, const std::string& table) {
  std::vector<std::string> names;
  if (auto cols = e.Columns(table)) {
    for (std::size_t k = 1; k < cols->size(); ++k) names.push_back((*cols)[k].name);
  }
  return names;
}

bool Has(const std::vector<std::string>& v, const std::string& s) {
  return std::find(v.begin(), v.end(), s) != v.end();
}

// Every cell of the column must be a number (or empty): the calculators read it with wcstod.
void CheckNumeric(tabledb::Engine& e, const std::string& table, const std::string& column, Problems& p) {
  sqlite3_stmt* st = nullptr;
  const std::string sql = "SELECT " + tabledb::QuoteIdentifier(column) + " FROM " + tabledb::QuoteIdentifier(table);
  if (sqlite3_prepare_v2(e.db(), sql.c_str(), -1, &st, nullptr) != SQLITE_OK) {
    p.push_back("table \"" + table + "\": cannot read column \"" + column + "\": " + sqlite3_errmsg(e.db()));
    sqlite3_finalize(st);
    return;
  }
  int row = 0;
  int rc = SQLITE_ROW;
  while ((rc = sqlite3_step(st)) == SQLITE_ROW) {
    ++row;
    sqlite3_value* v = sqlite3_column_value(st, 0);
    const int type = sqlite3_value_type(v);
    if (type == SQLITE_NULL || type == SQLITE_INTEGER || type == SQLITE_FLOAT) continue;
    const std::string text = tabledb::CellText(v);
    if (!IsNumberText(text)) {
      p.push_back("table \"" + table + "\", column \"" + column + "\", row " + std::to_string(row) + ": \"" + text +
                  "\" is not a number");
      rc = SQLITE_DONE;
      break;  // one example per column is enough to act on
    }
  }
  if (rc != SQLITE_DONE) {
    p.push_back("table \"" + table + "\": cannot read column \"" + column + "\" after row " + std::to_string(row) +
                ": " + sqlite3_errmsg(e.db()));
  }
  sqlite3_finalize(st);
}

// The lines of an integrity check other than "ok"; its own failure counts as one.
std::vector<std::string> IntegrityFindings(sqlite3* db, const std::string& pragma) {
  std::vector<std::string> found;
  sqlite3_stmt* st = nullptr;
  int rc = sqlite3_prepare_v2(db, pragma.c_str(), -1, &st, nullptr);
  if (rc == SQLITE_OK) {
    while ((rc = sqlite3_step(st)) == SQLITE_ROW) {
      const auto* line = reinterpret_cast<const char*>(sqlite3_column_text(st, 0));
      if (line && std::string_view(line) != "ok") found.emplace_back(line);
    }
  }
  if (rc != SQLITE_DONE) found.emplace_back(sqlite3_errmsg(db));
  sqlite3_finalize(st);
  return found;
}

// SQLite's own integrity check, on a connection of its own (the catalogue engine admits
// nothing but reads), once for the file and, when that finds damage, for each table with its
// indexes so that the damaged ones are named. An Access catalogue was read whole on import.
void CheckIntegrity(const std::string& file, tabledb::Engine& e, Problems& p) {
  if (tabledb::DetectFileKind(file) != tabledb::FileKind::Sqlite) return;
  const std::string name = file.rfind("file:", 0) == 0 ? "./" + file : file;
  sqlite3* raw = nullptr;
  const int rc = sqlite3_open_v2(name.c_str(), &raw, SQLITE_OPEN_READONLY, nullptr);
  std::unique_ptr<sqlite3, int (*)(sqlite3*)> db(raw, sqlite3_close_v2);
  if (rc != SQLITE_OK) {
    p.push_back("cannot check the file: " + std::string(raw ? sqlite3_errmsg(raw) : "out of memory"));
    return;
  }
  const auto whole = IntegrityFindings(db.get(), "PRAGMA integrity_check");
  if (whole.empty()) return;
  bool named = false;
  for (auto& [t, type] : e.TableDefs()) {
    if (type != "TABLE") continue;
    std::string literal = "'";
    for (char c : t) literal += c == '\'' ? std::string("''") : std::string(1, c);
    const auto found = IntegrityFindings(db.get(), "PRAGMA integrity_check(" + literal + "')");
    if (found.empty()) continue;
    named = true;
    p.push_back("table \"" + t + "\" is damaged: " + found.front() +
                (found.size() > 1 ? " (and " + std::to_string(found.size() - 1) + " more findings)" : ""));
  }
  if (!named) p.push_back("the catalogue file is damaged: " + whole.front());
}

bool FindTable(tabledb::Engine& e, const std::string& name) {
  for (auto& [t, type] : e.TableDefs()) {
    if (type == "TABLE" && t == name) return true;
  }
  return false;
}

void RequireColumns(tabledb::Engine& e, const std::string& table, const std::vector<std::string>& keys,
                    const std::vector<std::string>& numbers, Problems& p) {
  const auto cols = UsedColumns(e, table);
  for (const auto& k : keys) {
    if (!Has(cols, k)) p.push_back("table \"" + table + "\" has no key column \"" + k + "\" (after its first column)");
  }
  for (const auto& n : numbers) {
    if (!Has(cols, n)) {
      p.push_back("table \"" + table + "\" has no column \"" + n + "\" (after its first column)");
    } else {
      CheckNumeric(e, table, n, p);
    }
  }
}

void CheckLine(tabledb::Engine& e, Problems& p) {
  int tables = 0;
  for (auto& [t, type] : e.TableDefs()) {
    if (type != "TABLE") continue;
    ++tables;
    std::vector<std::string> keys, values;
    for (auto& c : UsedColumns(e, t)) (tabledb::IsKeyColumn(c) ? keys : values).push_back(c);
    if (keys.size() > 3) {
      p.push_back("line table \"" + t + "\" has " + std::to_string(keys.size()) +
                  " key columns (names beginning with \"￥\"); at most 3 are used");
    }
    if (values.size() != 3) {
      p.push_back("line table \"" + t + "\" has " + std::to_string(values.size()) +
                  " value columns after its first column; it needs exactly 3: R′ (Ω/km), X′ (Ω/km), U (kV)");
    }
    for (auto& v : values) CheckNumeric(e, t, v, p);
  }
  if (tables == 0) p.push_back("the catalogue has no tables");
}

}  // namespace

std::vector<std::string> CheckCatalogue(const std::string& file, const std::string& kind) {
  Problems p;
  if (kind != "line" && kind != "motor" && kind != "transformer" && kind != "reactor") {
    return {"unknown catalogue kind \"" + kind + "\" (use line, motor, transformer or reactor)"};
  }
  std::unique_ptr<tabledb::Engine> e;
  try {
    e = tabledb::Engine::Open(file);
  } catch (const CADOException& ex) {
    return {ex.what()};
  }
  CheckIntegrity(file, *e, p);
  if (kind == "line") {
    CheckLine(*e, p);
  } else if (kind == "motor") {
    if (!FindTable(*e, "电机")) {
      p.push_back("the motor catalogue has no table \"电机\"");
    } else {
      RequireColumns(*e, "电机", {"￥系列名称", "￥型号"},
                     {"功率kW", "转速r/min", "额定电流A", "起动电流A", "额定电压kV"}, p);
    }
  } else if (kind == "transformer") {
    int tables = 0;
    for (auto& [t, type] : e->TableDefs()) {
      if (type != "TABLE") continue;
      ++tables;
      RequireColumns(*e, t, {}, {"容量kVA", "短路电压%"}, p);
    }
    if (tables == 0) p.push_back("the transformer catalogue has no tables");
  } else {
    if (!FindTable(*e, "起动电抗器数据")) {
      p.push_back("the reactor catalogue has no table \"起动电抗器数据\"");
    } else {
      RequireColumns(*e, "起动电抗器数据", {"￥型 号"}, {"容量kVA", "短路电压%", "每相额定电抗Ω", "起动电流A"}, p);
    }
  }
  return p;
}

}  // namespace kestra::catalog

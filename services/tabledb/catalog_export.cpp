#include <sqlite3.h>

#include <filesystem>
#include <memory>
#include <set>

#include "services/tabledb/ado.h"
#include "services/tabledb/catalog.h"
#include "services/tabledb/catalog_csv.h"
#include "services/tabledb/cell_text.h"
#include "services/tabledb/engine.h"
#include "services/tabledb/key_indexes.h"

namespace kestra::catalog {

namespace fs = std::filesystem;

namespace {

// A file name for a table name: characters a file name cannot hold become "_".
std::string FileNameFor(const std::string& table, std::set<std::string>& taken) {
  std::string base;
  for (char c : table) {
    const auto u = static_cast<unsigned char>(c);
    base += (c == '/' || c == '\\' || c == ':' || c == '\t' || u < 0x20) ? '_' : c;
  }
  if (base.empty() || base == "." || base == "..") base = "table";
  std::string name = base + ".csv";
  for (int n = 2; taken.count(name) || name == "tables.txt"; ++n) name = base + "_" + std::to_string(n) + ".csv";
  taken.insert(name);
  return name;
}

}  // namespace

std::string ExportCatalogue(const std::string& file, const std::string& dir) {
  std::unique_ptr<tabledb::Engine> engine;
  try {
    engine = tabledb::Engine::Open(file);
  } catch (const CADOException& e) {
    return e.what();
  }
  std::error_code ec;
  fs::create_directories(dir, ec);
  if (ec) return "cannot create " + dir + ": " + ec.message();
  std::set<std::string> taken;
  std::string list = "# catalogue order: FILE.csv<TAB>TABLE NAME\n";
  for (const auto& [table, type] : engine->TableDefs()) {
    if (type != "TABLE") continue;
    std::string csv;
    sqlite3_stmt* st = nullptr;
    try {
      st = engine->Prepare("SELECT * FROM " + tabledb::QuoteIdentifier(table));
    } catch (const CADOException& e) {
      return std::string("cannot read table \"") + table + "\": " + e.what();
    }
    std::unique_ptr<sqlite3_stmt, int (*)(sqlite3_stmt*)> guard(st, sqlite3_finalize);
    const int n = sqlite3_column_count(st);
    for (int c = 0; c < n; ++c) csv += (c ? "," : "") + CsvField(sqlite3_column_name(st, c));
    csv += "\n";
    int rc;
    while ((rc = sqlite3_step(st)) == SQLITE_ROW) {
      for (int c = 0; c < n; ++c) {
        csv += (c ? "," : "") + CsvField(tabledb::CellText(sqlite3_column_value(st, c)));
      }
      csv += "\n";
    }
    if (rc != SQLITE_DONE) {
      return "cannot read table \"" + table + "\": " + sqlite3_errmsg(engine->db());
    }
    const std::string name = FileNameFor(table, taken);
    std::string error;
    if (!WriteFileAtomically((fs::path(dir) / name).string(), csv, error)) return error;
    list += name + "\t" + table + "\n";
  }
  std::string error;
  if (!WriteFileAtomically((fs::path(dir) / "tables.txt").string(), list, error)) return error;
  return {};
}

}  // namespace kestra::catalog

#include "services/tabledb/engine.h"

#include <sqlite3.h>

#include <cstring>
#include <fstream>

#include "services/tabledb/ado.h"
#include "services/tabledb/cell_text.h"
#include "services/tabledb/mdb_import.h"
#include "services/tabledb/query_rewrite.h"
#include "services/text/data_path.h"

namespace kestra::tabledb {

FileKind DetectFileKind(const std::string& path) {
  if (kestra::text::IsSpecialFile(path)) return FileKind::Other;  // never opened: it could block
  std::ifstream in(path, std::ios::binary);
  if (!in) {
    std::ifstream probe(path);
    return probe.good() ? FileKind::Unreadable : FileKind::Missing;
  }
  char head[32] = {};
  in.read(head, sizeof head);
  const auto n = static_cast<std::size_t>(in.gcount());
  if (n >= 16 && std::memcmp(head, "SQLite format 3\0", 16) == 0) return FileKind::Sqlite;
  if (n >= 19 && (std::memcmp(head + 4, "Standard Jet DB", 15) == 0 ||
                  std::memcmp(head + 4, "Standard ACE DB", 15) == 0)) {
    return FileKind::Access;
  }
  return FileKind::Other;
}

namespace {

[[noreturn]] void Fail(const std::string& message) { throw CADOException(message); }

std::string EngineMessage(sqlite3* db) {
  const char* m = db ? sqlite3_errmsg(db) : nullptr;
  return m ? m : "out of memory";
}

// After the catalogue is in place nothing may change it: no writes, no other files.
int Authorize(void*, int action, const char*, const char*, const char*, const char*) {
  switch (action) {
    case SQLITE_SELECT:
    case SQLITE_READ:
    case SQLITE_FUNCTION:
    case SQLITE_RECURSIVE:
      return SQLITE_OK;
    default:
      return SQLITE_DENY;
  }
}

}  // namespace

Engine::Engine(sqlite3* db, std::string path) : db_(db), path_(std::move(path)) {}

Engine::~Engine() { sqlite3_close_v2(db_); }

std::unique_ptr<Engine> Engine::Open(const std::string& path) {
  const FileKind kind = DetectFileKind(path);
  sqlite3* db = nullptr;
  switch (kind) {
    case FileKind::Missing:
      Fail("cannot open catalogue database: " + path + ": no such file");
    case FileKind::Unreadable:
      Fail("cannot open catalogue database: " + path + ": not readable");
    case FileKind::Other:
      Fail("not a catalogue database: " + path);
    case FileKind::Sqlite: {
      // A path starting with "file:" would be taken as a URI; "./" keeps it a path.
      std::string name = path.rfind("file:", 0) == 0 ? "./" + path : path;
      int rc = sqlite3_open_v2(name.c_str(), &db, SQLITE_OPEN_READONLY, nullptr);
      if (rc != SQLITE_OK) {
        std::string m = EngineMessage(db);
        sqlite3_close_v2(db);
        Fail("cannot open catalogue database: " + path + ": " + m);
      }
      break;
    }
    case FileKind::Access: {
      int rc = sqlite3_open_v2(":memory:", &db, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr);
      if (rc != SQLITE_OK) {
        sqlite3_close_v2(db);
        Fail("cannot open catalogue database: " + path + ": out of memory");
      }
      try {
        ImportAccessFile(path, db);
      } catch (...) {
        sqlite3_close_v2(db);
        throw;
      }
      break;
    }
  }
  std::unique_ptr<Engine> e(new Engine(db, path));
  RegisterCellFunctions(db);
  e->LoadTableDefs();
  // Column lists are read once, before the lock: the schema pragmas are not plain reads.
  for (const auto& t : e->tables_) e->Columns(t.first);
  e->LockDown();
  return e;
}

void Engine::LockDown() {
  sqlite3_exec(db_, "PRAGMA query_only=1", nullptr, nullptr, nullptr);
  sqlite3_set_authorizer(db_, Authorize, nullptr);
}

void Engine::LoadTableDefs() {
  sqlite3_stmt* st = nullptr;
  // rowid order of the schema table is the order in which the tables were created.
  const char* sql =
      "SELECT name, type FROM sqlite_schema WHERE type IN ('table','view') "
      "AND name NOT LIKE 'sqlite\\_%' ESCAPE '\\' ORDER BY rowid";
  if (sqlite3_prepare_v2(db_, sql, -1, &st, nullptr) != SQLITE_OK) {
    std::string m = EngineMessage(db_);
    Fail("cannot read the tables of " + path_ + ": " + m);
  }
  int rc;
  while ((rc = sqlite3_step(st)) == SQLITE_ROW) {
    std::string name = reinterpret_cast<const char*>(sqlite3_column_text(st, 0));
    std::string type = reinterpret_cast<const char*>(sqlite3_column_text(st, 1));
    tables_.emplace_back(name, type == "table" ? "TABLE" : "VIEW");
  }
  sqlite3_finalize(st);
  if (rc != SQLITE_DONE) Fail("cannot read the tables of " + path_ + ": " + EngineMessage(db_));
}

std::optional<std::vector<ColumnDef>> Engine::Columns(const std::string& table) {
  for (auto& [name, cols] : column_cache_) {
    if (name == table) return cols;
  }
  bool known = false;
  for (auto& t : tables_) known = known || t.first == table;
  if (!known) {  // the names of SQLite are case-insensitive for ASCII letters
    for (auto& t : tables_) {
      if (kestra::text::EqualsNoCase(t.first, table)) return Columns(t.first);
    }
    return std::nullopt;
  }
  sqlite3_stmt* st = nullptr;
  if (sqlite3_prepare_v2(db_, "SELECT name, type FROM pragma_table_info(?1)", -1, &st, nullptr) !=
      SQLITE_OK) {
    Fail(EngineMessage(db_));
  }
  sqlite3_bind_text(st, 1, table.c_str(), -1, SQLITE_TRANSIENT);
  std::vector<ColumnDef> cols;
  int rc;
  while ((rc = sqlite3_step(st)) == SQLITE_ROW) {
    const auto* n = reinterpret_cast<const char*>(sqlite3_column_text(st, 0));
    const auto* t = reinterpret_cast<const char*>(sqlite3_column_text(st, 1));
    cols.push_back({n ? n : "", t ? t : ""});
  }
  const std::string error = rc == SQLITE_DONE ? std::string() : EngineMessage(db_);
  sqlite3_finalize(st);
  if (!error.empty()) Fail("cannot read the columns of " + table + " in " + path_ + ": " + error);
  // Which columns lead an index in binary order (the distinct-value lists walk those).
  const char* sql =
      "SELECT x.name FROM pragma_index_list(?1) AS l, pragma_index_xinfo(l.name) AS x "
      "WHERE x.seqno = 0 AND x.coll = 'BINARY'";
  if (sqlite3_prepare_v2(db_, sql, -1, &st, nullptr) == SQLITE_OK) {
    sqlite3_bind_text(st, 1, table.c_str(), -1, SQLITE_TRANSIENT);
    while (sqlite3_step(st) == SQLITE_ROW) {
      const auto* n = reinterpret_cast<const char*>(sqlite3_column_text(st, 0));
      for (auto& c : cols) c.indexed = c.indexed || (n && c.name == n);
    }
  }
  sqlite3_finalize(st);
  column_cache_.emplace_back(table, cols);
  return cols;
}

sqlite3_stmt* Engine::Prepare(const std::string& query) {
  RewrittenQuery rq = RewriteQuery(query, *this);
  sqlite3_stmt* st = nullptr;
  if (rq.changed) {
    const char* tail = nullptr;
    if (sqlite3_prepare_v2(db_, rq.sql.c_str(), -1, &st, &tail) == SQLITE_OK && st &&
        sqlite3_stmt_readonly(st) && tail && *tail == '\0') {
      for (std::size_t k = 0; k < rq.binds.size(); ++k) {
        const Bind& b = rq.binds[k];
        const int idx = static_cast<int>(k) + 1;
        if (b.is_number) {
          sqlite3_bind_double(st, idx, b.number);
        } else {
          sqlite3_bind_text(st, idx, b.text.c_str(), -1, SQLITE_TRANSIENT);
        }
      }
      return st;
    }
    sqlite3_finalize(st);  // the text as written decides what the designer is told
    st = nullptr;
  }
  const char* tail = nullptr;
  if (sqlite3_prepare_v2(db_, query.c_str(), static_cast<int>(query.size()), &st, &tail) !=
      SQLITE_OK) {
    std::string m = EngineMessage(db_);
    sqlite3_finalize(st);
    Fail(m + " (query: " + query + ")");
  }
  if (!st) Fail("empty query");
  for (; tail && *tail; ++tail) {
    if (*tail != ' ' && *tail != '\t' && *tail != '\r' && *tail != '\n' && *tail != ';') {
      sqlite3_finalize(st);
      Fail("only one statement may be run on a catalogue (query: " + query + ")");
    }
  }
  if (!sqlite3_stmt_readonly(st)) {
    sqlite3_finalize(st);
    Fail("attempt to write a readonly database (query: " + query + ")");
  }
  return st;
}

}  // namespace kestra::tabledb

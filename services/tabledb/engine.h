#pragma once
// The engine under the wrappers: one read-only SQLite connection per open catalogue, with
// LIKE replaced by the designer's text comparison and the calculators' query texts adjusted
// so that they find what they mean, quickly and in the stored order.
#include <memory>
#include <optional>
#include <string>
#include <vector>

struct sqlite3;
struct sqlite3_stmt;

namespace kestra::tabledb {

enum class FileKind { Missing, Unreadable, Sqlite, Access, Other };
// What a file holds, by its first bytes (never by its name).
FileKind DetectFileKind(const std::string& path);

struct ColumnDef {
  std::string name;
  std::string type;  // declared type
  bool indexed = false;  // leads an index in its own (binary) order
};

class Engine {
 public:
  // Opens an SQLite catalogue directly or imports an Access one; throws CADOException.
  static std::unique_ptr<Engine> Open(const std::string& path);
  ~Engine();
  Engine(const Engine&) = delete;
  Engine& operator=(const Engine&) = delete;

  sqlite3* db() const { return db_; }
  const std::string& path() const { return path_; }

  // Tables and views in catalogue order, with "TABLE" or "VIEW".
  const std::vector<std::pair<std::string, std::string>>& TableDefs() const { return tables_; }
  // Columns of a table in their order; nullopt when there is no such table.
  std::optional<std::vector<ColumnDef>> Columns(const std::string& table);

  // Prepares one SELECT statement (after rewriting, see query_rewrite.h); throws
  // CADOException with the engine's message. The caller finalizes the statement.
  sqlite3_stmt* Prepare(const std::string& query);

 private:
  Engine(sqlite3* db, std::string path);
  void LoadTableDefs();
  void LockDown();

  sqlite3* db_;
  std::string path_;
  std::vector<std::pair<std::string, std::string>> tables_;
  std::vector<std::pair<std::string, std::vector<ColumnDef>>> column_cache_;
};

}  // namespace kestra::tabledb

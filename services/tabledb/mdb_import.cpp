// glib before mdbtools: the header relies on it and does not compile in C++ otherwise.
#include <glib.h>
#include <mdbtools.h>
#include <sqlite3.h>

#include <charconv>
#include <clocale>
#include <cstdlib>
#include <locale.h>
#include <memory>
#include <vector>

#include "services/tabledb/ado.h"
#include "services/tabledb/key_indexes.h"
#include "services/tabledb/mdb_import.h"
#include "services/text/number_text.h"

namespace kestra::tabledb {

namespace {

// libmdb prints numbers with printf: keep the decimal point a point whatever the host's locale.
class CNumericLocale {
 public:
  // Only the numeric category changes; texts keep the user's other settings.
  CNumericLocale() {
    locale_t base = duplocale(uselocale(static_cast<locale_t>(nullptr)));
    c_ = base ? newlocale(LC_NUMERIC_MASK, "C", base) : nullptr;
    if (!c_ && base) freelocale(base);
    if (c_) old_ = uselocale(c_);
  }
  ~CNumericLocale() {
    if (c_) {
      uselocale(old_);
      freelocale(c_);
    }
  }
  CNumericLocale(const CNumericLocale&) = delete;
  CNumericLocale& operator=(const CNumericLocale&) = delete;

 private:
  locale_t c_;
  locale_t old_ = nullptr;
};

enum class Store { Integer, Single, Real, Text, Skip };

Store StoreOf(int col_type) {
  switch (col_type) {
    case MDB_BOOL:
    case MDB_BYTE:
    case MDB_INT:
    case MDB_LONGINT:
      return Store::Integer;
    case MDB_FLOAT:
      return Store::Single;
    case MDB_MONEY:
    case MDB_DOUBLE:
    case MDB_NUMERIC:
      return Store::Real;
    case MDB_TEXT:
    case MDB_MEMO:
    case MDB_DATETIME:
    case MDB_REPID:
      return Store::Text;
    default:
      return Store::Skip;  // OLE objects and binary data are nothing a catalogue shows
  }
}

const char* SqlType(Store s) {
  switch (s) {
    case Store::Integer: return "INTEGER";
    case Store::Single:
    case Store::Real: return "REAL";
    case Store::Text: return "TEXT";
    case Store::Skip: break;
  }
  return "BLOB";
}

struct MdbCloser {
  void operator()(MdbHandle* m) const { mdb_close(m); }
};
struct TableCloser {
  void operator()(MdbTableDef* t) const { mdb_free_tabledef(t); }
};

void Exec(sqlite3* db, const std::string& sql, const std::string& path) {
  char* msg = nullptr;
  if (sqlite3_exec(db, sql.c_str(), nullptr, nullptr, &msg) != SQLITE_OK) {
    std::string m = msg ? msg : "error";
    sqlite3_free(msg);
    throw CADOException("cannot import the Access catalogue " + path + ": " + m);
  }
}

void ImportTable(MdbTableDef* table, sqlite3* db, const std::string& path) {
  mdb_read_columns(table);
  mdb_rewind_table(table);
  const unsigned n = table->num_cols;
  std::vector<Store> stores(n);
  std::vector<std::string> names(n);
  std::string create = "CREATE TABLE " + QuoteIdentifier(table->name) + " (";
  std::string insert = "INSERT INTO " + QuoteIdentifier(table->name) + " VALUES (";
  for (unsigned j = 0; j < n; ++j) {
    auto* col = static_cast<MdbColumn*>(g_ptr_array_index(table->columns, j));
    names[j] = col->name;
    stores[j] = StoreOf(col->col_type);
    create += (j ? ", " : "") + QuoteIdentifier(names[j]) + " " + SqlType(stores[j]);
    insert += (j ? ", ?" : "?") + std::to_string(j + 1);
  }
  Exec(db, create + ")", path);

  std::vector<std::vector<char>> buffers(n, std::vector<char>(MDB_BIND_SIZE + 1));
  std::vector<int> lengths(n, 0);
  for (unsigned j = 0; j < n; ++j) {
    if (stores[j] != Store::Skip) {
      mdb_bind_column(table, static_cast<int>(j + 1), buffers[j].data(), &lengths[j]);
    }
  }
  sqlite3_stmt* st = nullptr;
  if (sqlite3_prepare_v2(db, (insert + ")").c_str(), -1, &st, nullptr) != SQLITE_OK) {
    throw CADOException("cannot import the Access catalogue " + path + ": " + sqlite3_errmsg(db));
  }
  std::unique_ptr<sqlite3_stmt, int (*)(sqlite3_stmt*)> guard(st, sqlite3_finalize);
  while (mdb_fetch_row(table)) {
    for (unsigned j = 0; j < n; ++j) {
      const int idx = static_cast<int>(j + 1);
      const std::string cell(buffers[j].data(), static_cast<std::size_t>(std::max(lengths[j], 0)));
      if (stores[j] == Store::Skip || cell.empty()) {
        sqlite3_bind_null(st, idx);  // libmdb gives NULL cells (and empty texts) as ""
        continue;
      }
      std::size_t used = 0;
      if (stores[j] == Store::Integer) {
        char* end = nullptr;
        const long long v = std::strtoll(cell.c_str(), &end, 10);
        if (end && *end == '\0') {
          sqlite3_bind_int64(st, idx, v);
          continue;
        }
      } else if (stores[j] == Store::Real) {
        const double d = kestra::text::WcsToD(cell, &used);
        if (used == cell.size()) {
          sqlite3_bind_double(st, idx, d);
          continue;
        }
      } else if (stores[j] == Store::Single) {
        const double d = kestra::text::WcsToD(cell, &used);
        if (used == cell.size()) {
          sqlite3_bind_double(st, idx, SingleCellValue(d));
          continue;
        }
      }
      sqlite3_bind_text(st, idx, cell.data(), static_cast<int>(cell.size()), SQLITE_TRANSIENT);
    }
    if (sqlite3_step(st) != SQLITE_DONE) {
      throw CADOException("cannot import the Access catalogue " + path + ": " + sqlite3_errmsg(db));
    }
    sqlite3_reset(st);
  }
  std::string error;
  if (!CreateKeyIndexes(db, table->name, names, error)) {
    throw CADOException("cannot import the Access catalogue " + path + ": " + error);
  }
}

}  // namespace

double SingleCellValue(double as_read) {
  char text[32];
  const auto res = std::to_chars(text, text + sizeof text, static_cast<float>(as_read));
  return kestra::text::WcsToD(std::string_view(text, static_cast<std::size_t>(res.ptr - text)));
}

void ImportAccessFile(const std::string& path, sqlite3* db) {
  CNumericLocale c_numbers;
  // Access 97 catalogues of this product hold GBK texts; later versions are Unicode anyway.
  setenv("MDB_JET3_CHARSET", "CP936", 0);
  std::unique_ptr<MdbHandle, MdbCloser> mdb(mdb_open(path.c_str(), MDB_NOFLAGS));
  if (!mdb) throw CADOException("cannot read the Access catalogue " + path);
  mdb_set_date_fmt(mdb.get(), "%Y-%m-%d %H:%M:%S");
  mdb_set_boolean_fmt_numbers(mdb.get());
  if (!mdb_read_catalog(mdb.get(), MDB_TABLE)) {
    throw CADOException("cannot read the table list of the Access catalogue " + path);
  }
  Exec(db, "BEGIN", path);
  try {
    for (unsigned i = 0; i < mdb->num_catalog; ++i) {
      auto* entry = static_cast<MdbCatalogEntry*>(g_ptr_array_index(mdb->catalog, i));
      if (entry->object_type != MDB_TABLE || !mdb_is_user_table(entry)) continue;
      std::unique_ptr<MdbTableDef, TableCloser> table(mdb_read_table(entry));
      if (!table) throw CADOException("cannot read table " + std::string(entry->object_name) + " of " + path);
      ImportTable(table.get(), db, path);
    }
    Exec(db, "COMMIT", path);
  } catch (...) {
    sqlite3_exec(db, "ROLLBACK", nullptr, nullptr, nullptr);
    throw;
  }
}

}  // namespace kestra::tabledb

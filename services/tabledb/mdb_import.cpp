// glib before mdbtools: the header relies on it and does not compile in C++ otherwise.
#include <glib.h>
#include <mdbtools.h>
#include <sqlite3.h>

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <charconv>
#include <chrono>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <functional>
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

std::function<void()> g_child_hook;

// Limits of one import (see ImportAccessFile): a catalogue of a few hundred kilobytes is read
// in a small fraction of a second, even with the sanitizers of the test build.
constexpr double kImportSeconds = 1.5;
constexpr double kImportBytesPerSecond = 4e6;
constexpr long long kImportMemory = 512LL << 20;

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

namespace {

[[noreturn]] void Damaged(const std::string& path) {
  throw CADOException("cannot read the Access catalogue " + path + ": the file is damaged or cut short");
}

void ImportHere(const std::string& path, sqlite3* db) {
  CNumericLocale c_numbers;
  // Access 97 catalogues of Chinese designers hold GBK texts; later versions are Unicode anyway.
  setenv("MDB_JET3_CHARSET", "CP936", 0);
  std::unique_ptr<MdbHandle, MdbCloser> mdb(mdb_open(path.c_str(), MDB_NOFLAGS));
  if (!mdb) Damaged(path);
  mdb_set_date_fmt(mdb.get(), "%Y-%m-%d %H:%M:%S");
  mdb_set_boolean_fmt_numbers(mdb.get());
  if (!mdb_read_catalog(mdb.get(), MDB_TABLE)) Damaged(path);
  Exec(db, "BEGIN", path);
  try {
    for (unsigned i = 0; i < mdb->num_catalog; ++i) {
      auto* entry = static_cast<MdbCatalogEntry*>(g_ptr_array_index(mdb->catalog, i));
      if (entry->object_type != MDB_TABLE || !mdb_is_user_table(entry)) continue;
      std::unique_ptr<MdbTableDef, TableCloser> table(mdb_read_table(entry));
      if (!table) Damaged(path);
      ImportTable(table.get(), db, path);
    }
    Exec(db, "COMMIT", path);
  } catch (...) {
    sqlite3_exec(db, "ROLLBACK", nullptr, nullptr, nullptr);
    throw;
  }
}

// What can be checked before the library reads the file: Access files consist of whole pages
// (2048 bytes for Jet 3, 4096 for later versions), and a catalogue has more than its header page.
// A file cut anywhere else is refused at once.
void CheckPages(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  char head[0x15] = {};
  in.read(head, sizeof head);
  if (in.gcount() != static_cast<std::streamsize>(sizeof head)) Damaged(path);
  in.seekg(0, std::ios::end);
  const auto size = static_cast<long long>(in.tellg());
  const long long page = head[0x14] == 0 ? 2048 : 4096;
  if (size < 2 * page || size % page != 0) Damaged(path);
}

long long PageCount(sqlite3* db) {
  sqlite3_stmt* st = nullptr;
  long long pages = -1;
  if (sqlite3_prepare_v2(db, "PRAGMA page_count", -1, &st, nullptr) == SQLITE_OK && sqlite3_step(st) == SQLITE_ROW)
    pages = sqlite3_column_int64(st, 0);
  sqlite3_finalize(st);
  return pages;
}

// Resident memory of a process in bytes (0 when it cannot be read).
long long ResidentBytes(pid_t pid) {
  std::ifstream statm("/proc/" + std::to_string(pid) + "/statm");
  long long pages_total = 0, pages_resident = 0;
  statm >> pages_total >> pages_resident;
  return pages_resident * ::sysconf(_SC_PAGESIZE);
}

// The child's side: the import into an in-memory database of its own, sent whole (SQLite's
// serialised form) through the pipe after a 'D', or the error after an 'E'. The library's own
// diagnostics go nowhere.
[[noreturn]] void ImportInChild(const std::string& path, int out) {
  const int null = ::open("/dev/null", O_WRONLY | O_CLOEXEC);
  if (null >= 0) {
    ::dup2(null, STDOUT_FILENO);
    ::dup2(null, STDERR_FILENO);
  }
  std::string reply;
  sqlite3* db = nullptr;
  try {
    if (sqlite3_open_v2(":memory:", &db, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr) != SQLITE_OK)
      throw CADOException("cannot import the Access catalogue " + path + ": out of memory");
    if (g_child_hook) g_child_hook();
    ImportHere(path, db);
    reply = "D";
    sqlite3_int64 size = 0;
    if (unsigned char* bytes = sqlite3_serialize(db, "main", &size, 0)) {
      reply.append(reinterpret_cast<const char*>(bytes), static_cast<std::size_t>(size));
      sqlite3_free(bytes);
    } else if (PageCount(db) != 0) {  // a file without tables has no image; anything else: no memory
      throw CADOException("cannot import the Access catalogue " + path + ": out of memory");
    }
  } catch (const std::exception& e) {
    reply = std::string("E") + e.what();
  }
  for (std::size_t done = 0; done < reply.size();) {
    const ssize_t n = ::write(out, reply.data() + done, reply.size() - done);
    if (n < 0 && errno == EINTR) continue;
    if (n <= 0) break;
    done += static_cast<std::size_t>(n);
  }
  ::_exit(0);
}

}  // namespace

// The library trusts the file it reads: a damaged one can make it loop, eat memory by the
// gigabyte and print warnings without end. So the file is read in a child process that has
// kImportSeconds (more for a large file) and kImportMemory of memory beyond what it started
// with; past either it is stopped and the designer gets one message. The child hands back the
// finished SQLite database.
void ImportAccessFile(const std::string& path, sqlite3* db) {
  CheckPages(path);
  std::error_code ec;
  const auto file_size = static_cast<double>(std::filesystem::file_size(path, ec));
  const double seconds = kImportSeconds + (ec ? 0.0 : file_size / kImportBytesPerSecond);
  int fds[2];
  if (::pipe2(fds, O_CLOEXEC) != 0) throw CADOException("cannot import the Access catalogue " + path + ": " + std::strerror(errno));
  const long long memory_at_start = ResidentBytes(::getpid());
  const pid_t pid = ::fork();
  if (pid < 0) {
    const int err = errno;
    ::close(fds[0]);
    ::close(fds[1]);
    throw CADOException("cannot import the Access catalogue " + path + ": " + std::strerror(err));
  }
  if (pid == 0) {
    ::close(fds[0]);
    ImportInChild(path, fds[1]);
  }
  ::close(fds[1]);

  std::string reply;
  bool stopped = false;
  const auto start = std::chrono::steady_clock::now();
  char buf[65536];
  while (true) {
    const double elapsed = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    if (elapsed > seconds || ResidentBytes(pid) > memory_at_start + kImportMemory) {
      stopped = true;
      break;
    }
    pollfd pfd{fds[0], POLLIN, 0};
    const int ready = ::poll(&pfd, 1, 20);
    if (ready < 0 && errno != EINTR) break;
    if (ready <= 0) continue;
    const ssize_t n = ::read(fds[0], buf, sizeof buf);
    if (n < 0 && errno == EINTR) continue;
    if (n <= 0) break;  // the child is done (or gone)
    reply.append(buf, static_cast<std::size_t>(n));
  }
  ::close(fds[0]);
  if (stopped) ::kill(pid, SIGKILL);
  int status = 0;
  while (::waitpid(pid, &status, 0) < 0 && errno == EINTR) {
  }
  if (stopped || !WIFEXITED(status) || WEXITSTATUS(status) != 0 || reply.empty()) Damaged(path);
  if (reply[0] == 'E') throw CADOException(reply.substr(1));
  if (reply[0] != 'D') Damaged(path);

  const auto size = static_cast<sqlite3_int64>(reply.size() - 1);
  if (size == 0) return;  // no tables
  auto* image = static_cast<unsigned char*>(sqlite3_malloc64(static_cast<sqlite3_uint64>(size)));
  if (!image) throw CADOException("cannot import the Access catalogue " + path + ": out of memory");
  std::memcpy(image, reply.data() + 1, static_cast<std::size_t>(size));
  if (sqlite3_deserialize(db, "main", image, size, size,
                          SQLITE_DESERIALIZE_FREEONCLOSE | SQLITE_DESERIALIZE_RESIZEABLE) != SQLITE_OK) {
    throw CADOException("cannot import the Access catalogue " + path + ": " + sqlite3_errmsg(db));
  }
}

namespace testing {
void SetImportChildHook(std::function<void()> hook) { g_child_hook = std::move(hook); }
}  // namespace testing

}  // namespace kestra::tabledb

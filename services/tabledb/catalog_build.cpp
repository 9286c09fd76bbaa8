#include <sqlite3.h>

#include <algorithm>
#include <filesystem>
#include <memory>

#include "services/fileio/atomic_file.h"
#include "services/tabledb/catalog.h"
#include "services/tabledb/catalog_csv.h"
#include "services/tabledb/key_indexes.h"
#include "services/text/data_path.h"
#include "services/text/number_text.h"

namespace kestra::catalog {

namespace fs = std::filesystem;

namespace {

struct Source {
  std::string file;   // name inside the source folder
  std::string table;  // table name in the catalogue
};

std::string TrimLineEnd(std::string s) {
  while (!s.empty() && (s.back() == '\r' || s.back() == '\n')) s.pop_back();
  return s;
}

// SQLite takes table names alike without regard to ASCII case.
std::string CheckNamesDistinct(const std::vector<Source>& s, const std::string& where) {
  for (std::size_t a = 0; a < s.size(); ++a) {
    for (std::size_t b = 0; b < a; ++b) {
      if (kestra::text::EqualsNoCase(s[a].table, s[b].table)) {
        return where + ": table names \"" + s[b].table + "\" and \"" + s[a].table +
               "\" differ only in letter case; a catalogue takes them as one name";
      }
    }
  }
  return {};
}

// The tables in catalogue order: tables.txt when present, else every *.csv by byte order.
std::string ListSources(const std::string& dir, std::vector<Source>& out) {
  const fs::path list = fs::path(dir) / "tables.txt";
  std::error_code ec;
  if (!fs::is_directory(dir, ec)) return "source folder " + dir + " does not exist";
  if (fs::exists(list, ec)) {
    std::string content, error;
    if (!ReadWholeFile(list.string(), content, error)) return error;
    if (content.substr(0, 3) == "\xEF\xBB\xBF") content.erase(0, 3);
    std::size_t pos = 0, line_no = 0;
    while (pos < content.size()) {
      std::size_t nl = content.find('\n', pos);
      if (nl == std::string::npos) nl = content.size();
      std::string line = TrimLineEnd(content.substr(pos, nl - pos));
      pos = nl + 1;
      ++line_no;
      if (line.empty() || line[0] == '#') continue;
      const std::size_t tab = line.find('\t');
      const std::string where = list.string() + ":" + std::to_string(line_no) + ": ";
      if (tab == std::string::npos) return where + "expected FILE.csv<TAB>TABLE NAME";
      Source s{line.substr(0, tab), line.substr(tab + 1)};
      if (s.file.empty() || s.table.empty()) return where + "file name or table name is empty";
      if (s.table.rfind("sqlite_", 0) == 0) return where + "table names may not begin with \"sqlite_\"";
      for (auto& o : out) {
        if (o.table == s.table) return where + "table \"" + s.table + "\" is listed twice";
      }
      out.push_back(s);
    }
    if (out.empty()) return list.string() + " lists no tables";
    return CheckNamesDistinct(out, list.string());
  }
  for (auto& e : fs::directory_iterator(dir, ec)) {
    const std::string name = e.path().filename().string();
    if (e.is_regular_file() && name.size() > 4 && name.substr(name.size() - 4) == ".csv") {
      out.push_back({name, name.substr(0, name.size() - 4)});
    }
  }
  if (ec) return "cannot list " + dir + ": " + ec.message();
  std::sort(out.begin(), out.end(), [](const Source& a, const Source& b) { return a.file < b.file; });
  if (out.empty()) return "no .csv files in " + dir;
  return CheckNamesDistinct(out, dir);
}

struct DbCloser {
  void operator()(sqlite3* db) const { sqlite3_close_v2(db); }
};

std::string Exec(sqlite3* db, const std::string& sql) {
  char* msg = nullptr;
  if (sqlite3_exec(db, sql.c_str(), nullptr, nullptr, &msg) == SQLITE_OK) return {};
  std::string m = msg ? msg : sqlite3_errmsg(db);
  sqlite3_free(msg);
  return m;
}

std::string WriteTable(sqlite3* db, const Source& src, const CsvTable& t) {
  std::vector<bool> real(t.header.size(), false);
  std::string create = "CREATE TABLE " + tabledb::QuoteIdentifier(src.table) + " (";
  std::string insert = "INSERT INTO " + tabledb::QuoteIdentifier(src.table) + " VALUES (";
  for (std::size_t c = 0; c < t.header.size(); ++c) {
    // A key column is text even when its values look like numbers ("95", "3x50").
    bool numeric = !tabledb::IsKeyColumn(t.header[c]);
    for (std::size_t r = 0; numeric && r < t.rows.size(); ++r) {
      numeric = t.rows[r][c].empty() || IsNumberText(t.rows[r][c]);
    }
    real[c] = numeric;
    create += (c ? ", " : "") + tabledb::QuoteIdentifier(t.header[c]) + (numeric ? " REAL" : " TEXT");
    insert += c ? ", ?" : "?";
  }
  if (auto e = Exec(db, create + ")"); !e.empty()) return "table \"" + src.table + "\": " + e;
  sqlite3_stmt* st = nullptr;
  if (sqlite3_prepare_v2(db, (insert + ")").c_str(), -1, &st, nullptr) != SQLITE_OK) {
    return "table \"" + src.table + "\": " + sqlite3_errmsg(db);
  }
  std::unique_ptr<sqlite3_stmt, int (*)(sqlite3_stmt*)> guard(st, sqlite3_finalize);
  for (const auto& row : t.rows) {
    for (std::size_t c = 0; c < row.size(); ++c) {
      const int idx = static_cast<int>(c + 1);
      if (row[c].empty()) {
        sqlite3_bind_null(st, idx);
      } else if (real[c]) {
        std::size_t used = 0;
        sqlite3_bind_double(st, idx, kestra::text::WcsToD(row[c], &used));
      } else {
        sqlite3_bind_text(st, idx, row[c].data(), static_cast<int>(row[c].size()), SQLITE_TRANSIENT);
      }
    }
    if (sqlite3_step(st) != SQLITE_DONE) return "table \"" + src.table + "\": " + sqlite3_errmsg(db);
    sqlite3_reset(st);
  }
  std::string error;
  if (!tabledb::CreateKeyIndexes(db, src.table, t.header, error)) return "table \"" + src.table + "\": " + error;
  return {};
}

}  // namespace

std::string BuildCatalogue(const std::string& src_dir, const std::string& out_file) {
  std::vector<Source> sources;
  if (auto e = ListSources(src_dir, sources); !e.empty()) return e;
  // Read and check every source before anything is written.
  std::vector<CsvTable> tables(sources.size());
  for (std::size_t k = 0; k < sources.size(); ++k) {
    std::string content, error;
    const std::string path = (fs::path(src_dir) / sources[k].file).string();
    if (!ReadWholeFile(path, content, error)) return error;
    if (!ParseCsv(content, path, tables[k], error)) return error;
  }
  auto fail = [&](const std::string& e) { return "cannot build " + out_file + ": " + e; };
  // Built in memory, then written whole: a reader of the old catalogue never sees a half-built one.
  sqlite3* raw = nullptr;
  const int rc = sqlite3_open_v2(":memory:", &raw, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr);
  std::unique_ptr<sqlite3, DbCloser> db(raw);
  if (rc != SQLITE_OK) return fail(raw ? sqlite3_errmsg(raw) : "out of memory");
  if (auto e = Exec(db.get(), "BEGIN"); !e.empty()) return fail(e);
  for (std::size_t k = 0; k < sources.size(); ++k) {
    if (auto e = WriteTable(db.get(), sources[k], tables[k]); !e.empty()) return fail(e);
  }
  if (auto e = Exec(db.get(), "COMMIT; ANALYZE"); !e.empty()) return fail(e);
  sqlite3_int64 size = 0;
  std::unique_ptr<unsigned char, decltype(&sqlite3_free)> image(sqlite3_serialize(db.get(), "main", &size, 0),
                                                                 &sqlite3_free);
  if (!image) return fail("out of memory");
  const std::string_view bytes(reinterpret_cast<const char*>(image.get()), static_cast<std::size_t>(size));
  if (const std::error_code e = kestra::fileio::ReplaceFile(out_file, bytes)) return fail(e.message());
  return {};
}

}  // namespace kestra::catalog

#pragma once
// Access catalogues (Jet 3/4, ACE) read through libmdb into an SQLite database: same tables,
// columns (names unchanged) and row order; numbers as numbers, texts as texts.
#include <string>

struct sqlite3;

namespace kestra::tabledb {

// Copies every user table of the Access file into `db` (an empty, writable connection).
// Throws CADOException naming the file when it cannot be read.
void ImportAccessFile(const std::string& path, sqlite3* db);

}  // namespace kestra::tabledb

#pragma once
// Access catalogues (Jet 3/4, ACE) read through libmdb into an SQLite database: same tables,
// columns (names unchanged) and row order; numbers as numbers, texts as texts.
#include <string>

struct sqlite3;

namespace kestra::tabledb {

// Copies every user table of the Access file into `db` (an empty, writable connection).
// Throws CADOException naming the file when it cannot be read.
void ImportAccessFile(const std::string& path, sqlite3* db);

// A single-precision cell holds what the designer typed to float precision (0.0754 is
// stored as 0.075400002, which libmdb prints). The number whose text is the float's
// shortest text is what Access shows and what the catalogue means: 0.0754.
double SingleCellValue(double as_read);

}  // namespace kestra::tabledb

#pragma once
// Access catalogues (Jet 3/4, ACE) read through libmdb into an SQLite database: same tables,
// columns (names unchanged) and row order; numbers as numbers, texts as texts.
#include <functional>
#include <string>

struct sqlite3;

namespace kestra::tabledb {

// Copies every user table of the Access file into `db` (an empty, writable connection).
// Throws CADOException naming the file when it cannot be read; a damaged file, whatever the
// damage, gives "cannot read the Access catalogue <path>: the file is damaged or cut short"
// within a few seconds, and nothing of the reading library reaches standard error.
void ImportAccessFile(const std::string& path, sqlite3* db);

// A single-precision cell holds what the designer typed to float precision (0.0754 is
// stored as 0.075400002, which libmdb prints). The number whose text is the float's
// shortest text is what Access shows and what the catalogue means: 0.0754.
double SingleCellValue(double as_read);

namespace testing {
// Runs in the process that reads the file, before it reads it: for tests that make that process
// hang, eat memory or write to standard error. An empty function removes it.
void SetImportChildHook(std::function<void()> hook);
}  // namespace testing

}  // namespace kestra::tabledb

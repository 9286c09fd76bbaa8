#pragma once
// Indexes on the key columns (names beginning with "￥") of a catalogue table: for each, one
// without regard to ASCII case for the LIKE lookups and one exact for the lists of distinct
// values; and one over all key columns for lookups by several keys.
#include <string>
#include <vector>

struct sqlite3;

namespace kestra::tabledb {

inline constexpr const char* kKeyMark = "\xEF\xBF\xA5";  // "￥", U+FFE5

bool IsKeyColumn(const std::string& name);

// SQL name quoting with double quotes (works for every name, "]" and blanks included).
std::string QuoteIdentifier(const std::string& name);

// Creates the indexes for the key columns among `columns` of `table`; returns false with
// the engine's message in `error` on failure.
bool CreateKeyIndexes(sqlite3* db, const std::string& table, const std::vector<std::string>& columns,
                      std::string& error);

}  // namespace kestra::tabledb

#pragma once
// Catalogue CSV sources: UTF-8 (BOM allowed), comma-separated, RFC 4180 quoting, LF or CRLF,
// first row = column names.
#include <string>
#include <string_view>
#include <vector>

namespace kestra::catalog {

struct CsvTable {
  std::vector<std::string> header;
  std::vector<std::vector<std::string>> rows;
};

// Reads and checks one CSV text; on failure returns false and `error` names `file_name` and
// the line ("VV.csv:7: row has 4 fields, the header has 5").
bool ParseCsv(std::string_view content, const std::string& file_name, CsvTable& table, std::string& error);

// One field as written to a CSV file (quoted when it holds a comma, quote or line break).
std::string CsvField(const std::string& s);

// A cell that reads completely as a C-locale decimal number ("500", "-1.05", "2e3").
bool IsNumberText(std::string_view s);

// Whole-file helpers with an error text naming the file; WriteFileAtomically replaces the file
// whole or not at all (kestra::fileio::ReplaceFile).
bool ReadWholeFile(const std::string& path, std::string& content, std::string& error);
bool WriteFileAtomically(const std::string& path, const std::string& content, std::string& error);

}  // namespace kestra::catalog

#pragma once
// Catalogue CSV sources: UTF-8 (BOM allowed), comma-separated, RFC 4180 quoting, LF, CRLF or CR,
// first row = column names.
#include <string>
#include <string_view>
#include <vector>

namespace kestra::catalog {

struct CsvTable {
  std::vector<std::string> header;
  std::vector<std::vector<std::string>> rows;
};

// One record of a CSV text and the line it starts on (1 for the first).
struct CsvRecord {
  std::size_t line = 0;
  std::vector<std::string> fields;
};

// Splits a CSV text into its records, the header among them: a leading BOM is dropped, the text
// must be UTF-8, quoting as RFC 4180. Records may differ in their number of fields. A text that
// cannot be split (bad UTF-8, a quote left open or misplaced) returns false, `error` naming
// `file_name` and the line.
bool SplitCsvRecords(std::string_view content, const std::string& file_name, std::vector<CsvRecord>& records,
                     std::string& error);

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

#pragma once
// A schedule as a designer keeps it in a spreadsheet: a CSV text whose header row names the
// columns (in any order, unknown columns ignored), one row per circuit or motor. A row is read
// cell by cell through its column names; every refusal names the row's line and the column.
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "services/tabledb/catalog_csv.h"

namespace kestra::batch {

// Why a row is not computed: the line of the schedule, the column (empty: the row as a whole)
// and the message, in the words of the dialog's own checks where a check refuses.
struct RowRefusal {
  std::size_t line = 0;
  std::string column;
  std::string message;
  // "第12行, 列'电流A': …" as the output and the report print it.
  std::string Text() const;
};

// Thrown by the cell readers; the row runner turns it into the row's refusal.
struct Refused {
  std::string column;
  std::string message;
};

class ScheduleRow {
 public:
  ScheduleRow(const std::map<std::string, std::size_t>& columns, const catalog::CsvRecord& record)
      : columns_(columns), record_(record) {}

  std::size_t line() const { return record_.line; }
  // The cell's text, blanks trimmed; "" when the schedule has no such column.
  std::string Text(const std::string& column) const;
  bool Empty(const std::string& column) const { return Text(column).empty(); }
  // A cell that must hold a C-locale decimal number; Refused otherwise ("不是数值").
  double Number(const std::string& column) const;
  // The same, empty allowed (nullopt).
  std::optional<double> OptionalNumber(const std::string& column) const;
  // A choice by its list text or its position 0..n−1; Refused when neither.
  int Choice(const std::string& column, const std::vector<std::vector<std::string>>& texts) const;

 private:
  const std::map<std::string, std::size_t>& columns_;
  const catalog::CsvRecord& record_;
};

struct Schedule {
  std::string file_name;  // as the designer named it
  std::map<std::string, std::size_t> columns;  // header name → position
  std::vector<catalog::CsvRecord> rows;        // after the header
  std::size_t width = 0;                       // fields of the header
};

// Reads a schedule file; on failure (unreadable, not CSV, a required column missing from the
// header) returns nullopt with the reason in `error`.
std::optional<Schedule> ReadSchedule(const std::string& path, const std::vector<std::string>& required,
                                     std::string& error);

// The refusal of a row whose field count differs from the header's: the first missing column, or
// the surplus fields.
std::optional<RowRefusal> ShapeRefusal(const Schedule& s, const catalog::CsvRecord& row);

// A results table as CSV: UTF-8 with a BOM (so spreadsheets take it as UTF-8), CRLF line ends,
// fields quoted where needed.
std::string ResultsCsv(const std::vector<std::string>& header, const std::vector<std::vector<std::string>>& rows);

}  // namespace kestra::batch

#include "services/tabledb/catalog_csv.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <sstream>

#include "services/fileio/atomic_file.h"
#include "services/text/number_text.h"

namespace kestra::catalog {

namespace {

// Position of the first byte that is not well-formed UTF-8, or npos.
std::size_t FirstBadUtf8(std::string_view s) {
  std::size_t i = 0;
  while (i < s.size()) {
    const auto b = static_cast<unsigned char>(s[i]);
    std::size_t n;
    char32_t min;
    if (b < 0x80) {
      ++i;
      continue;
    } else if ((b & 0xE0) == 0xC0) {
      n = 2, min = 0x80;
    } else if ((b & 0xF0) == 0xE0) {
      n = 3, min = 0x800;
    } else if ((b & 0xF8) == 0xF0) {
      n = 4, min = 0x10000;
    } else {
      return i;
    }
    if (i + n > s.size()) return i;
    char32_t c = b & (0x7F >> n);
    for (std::size_t k = 1; k < n; ++k) {
      const auto cb = static_cast<unsigned char>(s[i + k]);
      if ((cb & 0xC0) != 0x80) return i;
      c = (c << 6) | (cb & 0x3F);
    }
    if (c < min || c > 0x10FFFF || (c >= 0xD800 && c <= 0xDFFF)) return i;
    i += n;
  }
  return std::string_view::npos;
}

std::size_t LineOf(std::string_view s, std::size_t pos) {
  std::size_t line = 1;
  for (std::size_t i = 0; i < pos && i < s.size(); ++i) line += s[i] == '\n';
  return line;
}

}  // namespace

bool SplitCsvRecords(std::string_view content, const std::string& file_name, std::vector<CsvRecord>& out,
                     std::string& error) {
  out.clear();
  auto fail = [&](std::size_t line, const std::string& what) {
    error = file_name + ":" + std::to_string(line) + ": " + what;
    return false;
  };
  if (content.substr(0, 3) == "\xEF\xBB\xBF") content.remove_prefix(3);
  if (auto bad = FirstBadUtf8(content); bad != std::string_view::npos) {
    return fail(LineOf(content, bad), "not valid UTF-8 text (byte " + std::to_string(bad + 1) + " of the file)");
  }
  std::vector<std::string> record;
  std::string field;
  std::size_t line = 1, record_line = 1;
  std::size_t i = 0;
  bool field_started = false;  // something (even "") was read for the current record
  auto end_field = [&] {
    record.push_back(std::move(field));
    field.clear();
  };
  auto end_record = [&] {
    end_field();
    out.push_back(CsvRecord{record_line, std::move(record)});
    record.clear();
    field_started = false;
  };
  while (i < content.size()) {
    const char c = content[i];
    if (c == '"' && field.empty() && (i == 0 || content[i - 1] == ',' || content[i - 1] == '\n' || content[i - 1] == '\r')) {
      const std::size_t open_line = line;
      ++i;
      for (;;) {
        if (i >= content.size()) return fail(open_line, "a quoted field is not closed");
        if (content[i] == '"') {
          if (i + 1 < content.size() && content[i + 1] == '"') {
            field += '"';
            i += 2;
            continue;
          }
          ++i;
          break;
        }
        if (content[i] == '\n') ++line;
        field += content[i++];
      }
      field_started = true;
      if (i < content.size() && content[i] != ',' && content[i] != '\n' && content[i] != '\r') {
        return fail(line, "text after the closing quote of a field");
      }
      continue;
    }
    if (c == '"') return fail(line, "a double quote inside a field that does not start with one");
    if (c == ',') {
      end_field();
      field_started = true;
      ++i;
      continue;
    }
    if (c == '\r' && i + 1 < content.size() && content[i + 1] == '\n') {
      ++i;
      continue;
    }
    // A line ends with LF, CRLF, or a lone CR (a spreadsheet's "CSV (Macintosh)").
    if (c == '\n' || c == '\r') {
      end_record();
      ++line;
      record_line = line;
      ++i;
      continue;
    }
    field += c;
    field_started = true;
    ++i;
  }
  if (field_started || !field.empty() || !record.empty()) end_record();

  return true;
}

bool ParseCsv(std::string_view content, const std::string& file_name, CsvTable& table, std::string& error) {
  table = CsvTable{};
  auto fail = [&](std::size_t line, const std::string& what) {
    error = file_name + ":" + std::to_string(line) + ": " + what;
    return false;
  };
  std::vector<CsvRecord> split;
  if (!SplitCsvRecords(content, file_name, split, error)) return false;
  std::vector<std::vector<std::string>> records;
  std::vector<std::size_t> record_lines;
  for (CsvRecord& r : split) {
    records.push_back(std::move(r.fields));
    record_lines.push_back(r.line);
  }
  if (records.empty() || (records[0].size() == 1 && records[0][0].empty())) {
    return fail(1, "the header (first row, the column names) is empty");
  }
  table.header = records[0];
  for (std::size_t c = 0; c < table.header.size(); ++c) {
    if (table.header[c].empty()) return fail(1, "column " + std::to_string(c + 1) + " has no name");
    for (std::size_t d = 0; d < c; ++d) {
      // SQLite takes names alike without regard to ASCII case
      bool same = table.header[c].size() == table.header[d].size();
      for (std::size_t k = 0; same && k < table.header[c].size(); ++k) {
        auto lower = [](char x) { return (x >= 'A' && x <= 'Z') ? static_cast<char>(x + 32) : x; };
        same = lower(table.header[c][k]) == lower(table.header[d][k]);
      }
      if (same) {
        return fail(1, "column name \"" + table.header[c] + "\" appears twice (columns " +
                           std::to_string(d + 1) + " and " + std::to_string(c + 1) + ")");
      }
    }
  }
  for (std::size_t r = 1; r < records.size(); ++r) {
    if (records[r].size() != table.header.size()) {
      return fail(record_lines[r], "row has " + std::to_string(records[r].size()) + " field(s), the header has " +
                                       std::to_string(table.header.size()));
    }
    table.rows.push_back(std::move(records[r]));
  }
  return true;
}

std::string CsvField(const std::string& s) {
  if (s.find_first_of(",\"\r\n") == std::string::npos) return s;
  std::string r = "\"";
  for (char c : s) {
    r += c;
    if (c == '"') r += '"';
  }
  return r + "\"";
}

bool IsNumberText(std::string_view s) {
  std::size_t k = 0;
  if (k < s.size() && (s[k] == '+' || s[k] == '-')) ++k;
  if (k >= s.size() || !((s[k] >= '0' && s[k] <= '9') || s[k] == '.')) return false;
  if (s.find_first_of("xXpP") != std::string_view::npos) return false;  // no hex numbers
  std::size_t used = 0;
  kestra::text::WcsToD(s, &used);
  return used == s.size();
}

bool ReadWholeFile(const std::string& path, std::string& content, std::string& error) {
  std::ifstream in(path, std::ios::binary);
  if (!in) {
    error = "cannot read " + path + ": " + std::strerror(errno);
    return false;
  }
  std::ostringstream ss;
  ss << in.rdbuf();
  content = ss.str();
  return true;
}

bool WriteFileAtomically(const std::string& path, const std::string& content, std::string& error) {
  if (const std::error_code e = kestra::fileio::ReplaceFile(path, content)) {
    error = "cannot write " + path + ": " + e.message();
    return false;
  }
  return true;
}

}  // namespace kestra::catalog

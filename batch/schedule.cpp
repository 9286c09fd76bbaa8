#include "batch/schedule.h"

#include "services/text/number_text.h"

namespace kestra::batch {
namespace {

std::string Trimmed(const std::string& s) {
  const char* blanks = " \t";
  const auto b = s.find_first_not_of(blanks);
  if (b == std::string::npos) return {};
  return s.substr(b, s.find_last_not_of(blanks) - b + 1);
}

}  // namespace

std::string RowRefusal::Text() const {
  std::string s = "第" + std::to_string(line) + "行";
  if (!column.empty()) s += ", 列'" + column + "'";
  return s + ": " + message;
}

std::string ScheduleRow::Text(const std::string& column) const {
  const auto it = columns_.find(column);
  if (it == columns_.end() || it->second >= record_.fields.size()) return {};
  return Trimmed(record_.fields[it->second]);
}

std::optional<double> ScheduleRow::OptionalNumber(const std::string& column) const {
  const std::string t = Text(column);
  if (t.empty()) return std::nullopt;
  if (!catalog::IsNumberText(t)) throw Refused{column, "'" + t + "'不是数值"};
  return text::WcsToD(t);
}

double ScheduleRow::Number(const std::string& column) const {
  const auto v = OptionalNumber(column);
  if (!v) throw Refused{column, "缺少数值"};
  return *v;
}

int ScheduleRow::Choice(const std::string& column, const std::vector<std::vector<std::string>>& texts) const {
  const std::string t = Text(column);
  for (std::size_t i = 0; i < texts.size(); ++i) {
    if (t == std::to_string(i)) return static_cast<int>(i);
    for (const std::string& name : texts[i])
      if (t == name) return static_cast<int>(i);
  }
  std::string allowed;
  for (std::size_t i = 0; i < texts.size(); ++i) allowed += (i ? "、" : "") + texts[i].front();
  throw Refused{column, (t.empty() ? std::string("未填写") : "'" + t + "'不可识别") + ", 应为" + allowed +
                            "或其序号0~" + std::to_string(texts.size() - 1)};
}

std::optional<Schedule> ReadSchedule(const std::string& path, const std::vector<std::string>& required,
                                     std::string& error) {
  std::string content;
  if (!catalog::ReadWholeFile(path, content, error)) return std::nullopt;
  Schedule s;
  s.file_name = path;
  std::vector<catalog::CsvRecord> records;
  if (!catalog::SplitCsvRecords(content, path, records, error)) return std::nullopt;
  // Rows that hold nothing (a spreadsheet's trailing empty lines) are no circuits.
  std::erase_if(records, [](const catalog::CsvRecord& r) {
    for (const std::string& f : r.fields)
      if (!Trimmed(f).empty()) return false;
    return true;
  });
  if (records.empty()) {
    error = path + ": the schedule is empty (no header row)";
    return std::nullopt;
  }
  const catalog::CsvRecord& header = records.front();
  for (std::size_t i = 0; i < header.fields.size(); ++i) s.columns.emplace(Trimmed(header.fields[i]), i);
  s.width = header.fields.size();
  for (const std::string& c : required) {
    if (!s.columns.contains(c)) {
      error = path + ":" + std::to_string(header.line) + ": the header has no column \"" + c + "\"";
      return std::nullopt;
    }
  }
  s.rows.assign(records.begin() + 1, records.end());
  return s;
}

std::optional<RowRefusal> ShapeRefusal(const Schedule& s, const catalog::CsvRecord& row) {
  if (row.fields.size() == s.width) return std::nullopt;
  if (row.fields.size() > s.width) {
    return RowRefusal{row.line, {}, "多出" + std::to_string(row.fields.size() - s.width) + "个字段 (表头有" +
                                        std::to_string(s.width) + "列)"};
  }
  // The first column of the schedule's header that the row does not reach.
  std::string missing;
  std::size_t first = s.width;
  for (const auto& [name, pos] : s.columns) {
    if (pos >= row.fields.size() && pos < first) {
      first = pos;
      missing = name;
    }
  }
  return RowRefusal{row.line, missing, "缺少此列 (本行只有" + std::to_string(row.fields.size()) + "个字段, 表头有" +
                                           std::to_string(s.width) + "列)"};
}

std::string ResultsCsv(const std::vector<std::string>& header, const std::vector<std::vector<std::string>>& rows) {
  std::string out = "\xEF\xBB\xBF";
  auto line = [&out](const std::vector<std::string>& fields) {
    for (std::size_t i = 0; i < fields.size(); ++i) out += (i ? "," : "") + catalog::CsvField(fields[i]);
    out += "\r\n";
  };
  line(header);
  for (const auto& r : rows) line(r);
  return out;
}

}  // namespace kestra::batch

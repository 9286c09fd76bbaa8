#include "forms/catalogue_read.h"

#include <algorithm>
#include <cctype>

#include "services/tabledb/ado.h"

namespace kestra::forms {
namespace {

bool IsUserTableType(std::string type) {
  std::transform(type.begin(), type.end(), type.begin(), [](unsigned char c) { return std::toupper(c); });
  return type == "TABLE";
}

}  // namespace

std::optional<std::vector<std::vector<std::string>>> ReadRows(CADODatabase& db, const std::string& query, int first,
                                                              int count) {
  CADORecordset rs(&db);
  try {
    rs.Open(query, 0);
    std::vector<std::vector<std::string>> rows;
    while (!rs.IsEOF()) {
      std::vector<std::string> row;
      for (int i = first; i < first + count; ++i) {
        Variant v;
        rs.GetFieldValue(i, v);
        row.push_back(CCrack::strVARIANT(v));
      }
      rows.push_back(std::move(row));
      rs.MoveNext();
    }
    rs.Close();
    return rows;
  } catch (const CADOException& e) {
    e.ReportError();
    if (rs.IsOpen()) rs.Close();
    return std::nullopt;
  }
}

std::optional<std::vector<std::string>> ReadColumn(CADODatabase& db, const std::string& query) {
  auto rows = ReadRows(db, query, 0, 1);
  if (!rows) return std::nullopt;
  std::vector<std::string> cells;
  cells.reserve(rows->size());
  for (auto& row : *rows) cells.push_back(std::move(row.front()));
  return cells;
}

std::optional<std::vector<std::string>> UserTables(CADODatabase& db) {
  try {
    std::vector<std::string> names;
    const int n = db.GetTableDefCount();
    for (int i = 0; i < n; ++i) {
      CADOTableDefInfo info;
      db.GetTableDefInfo(i, info, 1);
      if (IsUserTableType(info.m_strType)) names.push_back(info.m_strName);
    }
    return names;
  } catch (const CADOException& e) {
    e.ReportError();
    return std::nullopt;
  }
}

Catalogue::Catalogue(const std::string& path) : db_(std::make_unique<CADODatabase>()) {
  try {
    db_->Open(kestra::tabledb::ConnectionText(path), "", "");
    ok_ = true;
  } catch (const CADOException& e) {
    e.ReportError();
  }
}

Catalogue::~Catalogue() { Close(); }

std::optional<std::vector<std::string>> Catalogue::ReadColumn(const std::string& query) {
  if (!ok_) return std::nullopt;
  return forms::ReadColumn(*db_, query);
}

void Catalogue::Close() {
  if (db_ && db_->IsOpen()) db_->Close();
  ok_ = false;
}

}  // namespace kestra::forms

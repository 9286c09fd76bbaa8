#pragma once
// Small catalogues written by the tests themselves: CSV sources in a fresh folder, built with
// the catalogue builder, queried through the wrappers.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "services/tabledb/ado.h"
#include "services/tabledb/catalog.h"
#include "tests/support/temp_folder.h"

namespace kestra::tabledb::test {

namespace fs = std::filesystem;

using TempDir = kestra::testing::TempFolder;
using kestra::testing::ReadFile;
using kestra::testing::WriteFile;

// All rows of a query, field 0 as text (the calculators' reading loop).
inline std::vector<std::string> Column0(CADODatabase& db, const std::string& query) {
  std::vector<std::string> out;
  CADORecordset rs(&db);
  rs.Open(query, 0);
  while (!rs.IsEOF()) {
    Variant v;
    rs.GetFieldValue(0, v);
    out.push_back(CCrack::strVARIANT(v));
    rs.MoveNext();
  }
  rs.Close();
  return out;
}

using Texts = std::vector<std::string>;

// The catalogue's table names, in catalogue order.
inline Texts TableNames(CADODatabase& db) {
  Texts names;
  for (int i = 0; i < db.GetTableDefCount(); ++i) {
    CADOTableDefInfo info;
    db.GetTableDefInfo(i, info);
    EXPECT_EQ(info.m_strType, "TABLE") << info.m_strName;
    names.push_back(info.m_strName);
  }
  return names;
}

// A table's column names, in table order.
inline Texts Fields(CADODatabase& db, const std::string& table) {
  CADOTableDef def(&db);
  def.Open(table);
  Texts names;
  for (int j = 0; j < def.GetFieldCount(); ++j) {
    CADOFieldInfo f;
    def.GetFieldInfo(j, f);
    names.push_back(f.m_strName);
  }
  return names;
}

}  // namespace kestra::tabledb::test

// kestra catalog build / export / check. (The check passing on good catalogues, and the build
// rule: the data root's catalogues, built by that rule and checked by data.catalog_check.*.)
#include <sstream>

#include "test_support.h"

namespace kestra::tabledb::test {
namespace {

using kestra::catalog::BuildCatalogue;
using kestra::catalog::CheckCatalogue;
using kestra::catalog::ExportCatalogue;
using kestra::catalog::RunCatalogCommand;

TEST(CatalogBuild, RoundTripThroughCsvKeepsTablesColumnsRowsAndTypes) {
  TempDir dir;
  WriteFile(dir / "src/tables.txt", "\xEF\xBB\xBF# order of the catalogue\r\nb.csv\tVV/VLV 电缆\r\n\r\na.csv\t铜 芯\r\n");
  WriteFile(dir / "src/b.csv",
            "\xEF\xBB\xBF序号,￥截面,￥说明,R,备注\r\n"
            "1,95,\"含,逗号\",0.193,\"两行\n文字\"\r\n"
            "2,120,\"引号\"\"内\",1e3,\r\n"
            "3,3x50,,-0.5,X\r\n");
  WriteFile(dir / "src/a.csv", "序号,￥型 号,U\n1,YJV,10\n2,VV,0.4");  // no final line end
  ASSERT_EQ(BuildCatalogue(dir / "src", dir / "cat.db"), "");

  CADODatabase db;
  db.Open(ConnectionText(dir / "cat.db"));
  EXPECT_EQ(TableNames(db), (Texts{"VV/VLV 电缆", "铜 芯"}));
  EXPECT_EQ(Column0(db, "SELECT [￥说明] FROM [VV/VLV 电缆]"), (Texts{"含,逗号", "引号\"内", ""}));
  EXPECT_EQ(Column0(db, "SELECT [R] FROM [VV/VLV 电缆]"), (Texts{"0.193", "1000", "-0.5"}));
  EXPECT_EQ(Column0(db, "SELECT [备注] FROM [VV/VLV 电缆]"), (Texts{"两行\n文字", "", "X"}));
  EXPECT_EQ(Column0(db, "SELECT [U] FROM [铜 芯]"), (Texts{"10", "0.4"}));
  // Key columns are text even when they look like numbers; others are numbers when all cells are.
  EXPECT_EQ(Column0(db, "SELECT typeof([￥截面]) || typeof([R]) || typeof([备注]) FROM [VV/VLV 电缆] LIMIT 1"),
            (Texts{"textrealtext"}));
  EXPECT_EQ(Column0(db, "SELECT typeof([备注]) FROM [VV/VLV 电缆]"), (Texts{"text", "null", "text"}));

  // Export, rebuild, export again: the second export is the first, byte for byte.
  ASSERT_EQ(ExportCatalogue(dir / "cat.db", dir / "out1"), "");
  ASSERT_EQ(BuildCatalogue(dir / "out1", dir / "cat2.db"), "");
  ASSERT_EQ(ExportCatalogue(dir / "cat2.db", dir / "out2"), "");
  const std::string list = ReadFile(dir / "out1/tables.txt");
  EXPECT_NE(list.find("VV_VLV 电缆.csv\tVV/VLV 电缆\n"), std::string::npos) << list;
  EXPECT_LT(list.find("VV/VLV"), list.find("铜 芯"));
  for (const char* f : {"tables.txt", "VV_VLV 电缆.csv", "铜 芯.csv"}) {
    EXPECT_EQ(ReadFile(dir / (std::string("out2/") + f)), ReadFile(dir / (std::string("out1/") + f))) << f;
  }
  EXPECT_EQ(ReadFile(dir / "out1/铜 芯.csv"), "序号,￥型 号,U\n1,YJV,10\n2,VV,0.4\n");
}

TEST(CatalogBuild, WithoutTableListTakesCsvFilesInByteOrder) {
  TempDir dir;
  WriteFile(dir / "src/b.csv", "n,￥k\n1,x\n");
  WriteFile(dir / "src/C.csv", "n,￥k\n1,y\n");
  WriteFile(dir / "src/a.csv", "n,￥k\n1,z\n");
  WriteFile(dir / "src/notes.txt", "not a table");
  ASSERT_EQ(BuildCatalogue(dir / "src", dir / "cat.db"), "");
  CADODatabase db;
  db.Open(dir / "cat.db");
  EXPECT_EQ(TableNames(db), (Texts{"C", "a", "b"}));
  // "c" next to "C" would be one table to SQLite: refused, with both names.
  WriteFile(dir / "src/c.csv", "n,￥k\n1,w\n");
  EXPECT_NE(BuildCatalogue(dir / "src", dir / "cat2.db").find("table names \"C\" and \"c\" differ only in letter case"),
            std::string::npos);
  EXPECT_FALSE(fs::exists(dir / "cat2.db"));
}

TEST(CatalogBuild, BadSourcesAreNamedAndLeaveNothingBehind) {
  struct Case {
    std::string csv, message;
  };
  const Case cases[] = {
      {"n,a,b\n1,2,3\n4,5\n", "t.csv:3: row has 2 field(s), the header has 3"},
      {"n,a\n1,2\n\n3,4\n", "t.csv:3: row has 1 field(s), the header has 2"},
      {"n,a\n1,\xB5\xE7\n", "t.csv:2: not valid UTF-8 text (byte 7 of the file)"},
      {"n,a,A\n1,2,3\n", "t.csv:1: column name \"A\" appears twice (columns 2 and 3)"},
      {"", "t.csv:1: the header (first row, the column names) is empty"},
      {"\n1,2\n", "t.csv:1: the header (first row, the column names) is empty"},
      {"n,,b\n", "t.csv:1: column 2 has no name"},
      {"n,a\n1,\"open\n2,3\n", "t.csv:2: a quoted field is not closed"},
      {"n,a\n1,x\"y\n", "t.csv:2: a double quote inside a field that does not start with one"},
      {"n,a\n1,\"x\"y\n", "t.csv:2: text after the closing quote of a field"},
  };
  for (const auto& c : cases) {
    TempDir dir;
    WriteFile(dir / "src/t.csv", c.csv);
    WriteFile(dir / "old.db", "the previous catalogue");
    const std::string error = BuildCatalogue(dir / "src", dir / "old.db");
    EXPECT_NE(error.find(c.message), std::string::npos) << "got: " << error << "\nwanted: " << c.message;
    EXPECT_EQ(ReadFile(dir / "old.db"), "the previous catalogue");
    EXPECT_EQ(std::distance(fs::directory_iterator(dir.path()), fs::directory_iterator()), 2) << "left behind";
  }
}

TEST(CatalogBuild, BadTableListsAreNamed) {
  const std::pair<std::string, std::string> cases[] = {
      {"t.csv T\n", "tables.txt:1: expected FILE.csv<TAB>TABLE NAME"},
      {"t.csv\tT\nt.csv\tT\n", "tables.txt:2: table \"T\" is listed twice"},
      {"# only a comment\n", "tables.txt lists no tables"},
      {"gone.csv\tG\n", "gone.csv"},
      {"t.csv\tsqlite_x\n", "may not begin with \"sqlite_\""},
  };
  for (const auto& [list, message] : cases) {
    TempDir dir;
    WriteFile(dir / "src/t.csv", "n,a\n1,2\n");
    WriteFile(dir / "src/tables.txt", list);
    const std::string error = BuildCatalogue(dir / "src", dir / "c.db");
    EXPECT_NE(error.find(message), std::string::npos) << error;
    EXPECT_FALSE(fs::exists(dir / "c.db"));
  }
  TempDir empty;
  EXPECT_NE(BuildCatalogue(empty.path(), empty / "c.db").find("no .csv files"), std::string::npos);
}

class CatalogCheck : public ::testing::Test {
 protected:
  // Builds a one-table catalogue from CSV text and runs "check" on it.
  int Check(const std::string& table, const std::string& csv, const std::string& kind) {
    WriteFile(dir_ / "src/t.csv", csv);
    WriteFile(dir_ / "src/tables.txt", "t.csv\t" + table + "\n");
    EXPECT_EQ(BuildCatalogue(dir_ / "src", dir_ / "c.db"), "");
    out_.str("");
    err_.str("");
    return RunCatalogCommand({"check", dir_ / "c.db", kind}, out_, err_);
  }
  TempDir dir_;
  std::ostringstream out_, err_;
};

TEST_F(CatalogCheck, ProblemsAreSaidInPlainWords) {
  struct Case {
    std::string table, csv, kind, message;
  };
  const Case cases[] = {
      {"VV", "n,￥a,R,X,U,I\n1,a,1,2,3,4\n", "line", "has 4 value columns after its first column; it needs exactly 3"},
      {"VV", "n,￥a,￥b,￥c,￥d,R,X,U\n1,a,b,c,d,1,2,3\n", "line", "has 4 key columns"},
      {"VV", "n,￥a,R,X,U\n1,a,1,-,3\n", "line", "column \"X\", row 1: \"-\" is not a number"},
      {"Motor", "n,￥系列名称\n1,Y\n", "motor", "has no table \"电机\""},
      {"电机", "￥系列名称,￥型号,功率kW,转速r/min,额定电流A,起动电流A,额定电压kV\nY,Y1,1,2,3,4,5\n", "motor",
       "has no key column \"￥系列名称\" (after its first column)"},
      {"电机", "n,￥系列名称,￥型号,功率kW,转速r/min,额定电流A,额定电压kV\n1,Y,Y1,1,2,3,5\n", "motor",
       "has no column \"起动电流A\""},
      {"S9", "n,容量kVA\n1,630\n", "transformer", "table \"S9\" has no column \"短路电压%\""},
      {"起动电抗器数据", "n,￥型号,容量kVA,短路电压%,每相额定电抗Ω,起动电流A\n1,Q,100,5,1.05,500\n", "reactor",
       "has no key column \"￥型 号\""},
      {"VV", "n,a\n1,2\n", "cable", "unknown catalogue kind \"cable\""},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(Check(c.table, c.csv, c.kind), 1) << c.message;
    EXPECT_NE(err_.str().find(c.message), std::string::npos) << err_.str();
    EXPECT_EQ(out_.str(), "");
  }
}

// A file damaged after it was built is not OK: SQLite's own check names the table.
TEST_F(CatalogCheck, ADamagedFileIsRefusedWithItsTableNamed) {
  std::string csv = "序号,￥截面,￥芯数,R,X,U\n";
  for (int i = 1; i <= 3000; ++i) csv += std::to_string(i) + "," + std::to_string(i) + ",3,0.193,0.06,0.4\n";
  ASSERT_EQ(Check("VV", csv, "line"), 0) << err_.str();
  const fs::path db = dir_ / "c.db";
  const auto size = fs::file_size(db);
  ASSERT_GT(size, 8u * 4096);
  {  // one page in the middle of the rows (page 1, the schema, stays whole)
    std::fstream f(db, std::ios::in | std::ios::out | std::ios::binary);
    f.seekp(static_cast<std::streamoff>(size / 2 / 4096 * 4096));
    f << std::string(4096, 'Z');
  }
  out_.str("");
  err_.str("");
  EXPECT_EQ(RunCatalogCommand({"check", db, "line"}, out_, err_), 1);
  EXPECT_NE(err_.str().find("table \"VV\""), std::string::npos) << err_.str();
  EXPECT_EQ(out_.str(), "");
}

TEST(CatalogCommand, UsageAndFailures) {
  std::ostringstream out, err;
  EXPECT_EQ(RunCatalogCommand({}, out, err), 2);
  EXPECT_NE(err.str().find("usage: kestra catalog build SRC_DIR OUT_FILE"), std::string::npos);
  EXPECT_EQ(RunCatalogCommand({"frobnicate", "a", "b"}, out, err), 2);
  err.str("");
  EXPECT_EQ(RunCatalogCommand({"check", "/nonexistent/c.db", "line"}, out, err), 1);
  EXPECT_NE(err.str().find("/nonexistent/c.db"), std::string::npos) << err.str();
  err.str("");
  const TempDir dir;
  EXPECT_EQ(RunCatalogCommand({"export", "/nonexistent/c.db", dir / "x"}, out, err), 1);
  EXPECT_NE(err.str().find("no such file"), std::string::npos) << err.str();
}

}  // namespace
}  // namespace kestra::tabledb::test

// The calculators' query texts, verbatim, against catalogues built here.
#include <sqlite3.h>

#include <algorithm>
#include <tuple>

#include "services/tabledb/cell_text.h"
#include "services/tabledb/mdb_import.h"
#include "test_support.h"

namespace kestra::tabledb::test {
namespace {

class QueryShapes : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    dir_ = new TempDir;
    // Rows are in no sorted order on purpose: the lists must come back in stored order.
    WriteFile(*dir_ / "line/tables.txt",
              "# line tables\nvv.csv\tVV/VLV 电缆\nyjv.csv\tYJV\nempty.csv\t空表\n");
    WriteFile(*dir_ / "line/vv.csv",
              "序号,￥截面,￥芯数,R,X,U\r\n"
              "1,95,4,0.193,0.07,0.4\r\n"
              "2,120,3,0.153,0.06,0.4\r\n"
              "3,95,3,0.193,0.06,0.4\r\n"
              "4,3x50,3,0.365,0.06,0.4\r\n"
              "5,120,4,0.153,0.07,0.4\r\n"
              "6,95,3,0.2,0.061,0.4\r\n");
    WriteFile(*dir_ / "line/yjv.csv", "序号,￥型号,R,X,U\n1,YJV,1.83,0.0754,10\n2,yjv22,1.15,0.08,10\n3,VV,0.5,0.09,6\n");
    WriteFile(*dir_ / "line/empty.csv", "序号,￥截面,R,X,U\n");
    ASSERT_EQ(kestra::catalog::BuildCatalogue(*dir_ / "line", *dir_ / "DyssCal.Mdb"), "");

    WriteFile(*dir_ / "djqd/起动电抗器数据.csv",
              "序号,￥型 号,容量kVA,短路电压%,每相额定电抗Ω,起动电流A\n"
              "1,QKSG-100,100,5,1.05,500\n"
              "2,QKSG-200,200,5,10,750\n"
              "3,QKSG-300,300,5,10.5,500\n"
              "4,\"QKSG \"\"B\"\"\",400,5,0.0754,1000\n");
    WriteFile(*dir_ / "djqd/电机.csv",
              "序号,￥系列名称,￥型号,功率kW,转速r/min,额定电流A,起动电流A,额定电压kV\n"
              "1,Y,Y315S-4,110,1480,201,1407,0.38\n"
              "2,YB,YB355M-4,250,1485,445,3115,0.38\n"
              "3,Y,Y315M-4,132,1480,240,1680,0.38\n");
    WriteFile(*dir_ / "djqd/空值.csv", "序号,￥k,v\n1,b,1\n2,,2\n3,a,3\n4,b,4\n5,,5\n");
    ASSERT_EQ(kestra::catalog::BuildCatalogue(*dir_ / "djqd", *dir_ / "QdDkq.mdb"), "");
  }
  static void TearDownTestSuite() { delete dir_; }

  void SetUp() override {
    line_.Open(ConnectionText(*dir_ / "DyssCal.Mdb"), "", "");
    djqd_.Open(ConnectionText(*dir_ / "QdDkq.mdb"), "", "");
  }

  static TempDir* dir_;
  CADODatabase line_, djqd_;
};
TempDir* QueryShapes::dir_ = nullptr;

TEST_F(QueryShapes, TablesAndColumnsInCatalogueOrder) {
  ASSERT_TRUE(line_.IsOpen());
  EXPECT_EQ(TableNames(line_), (Texts{"VV/VLV 电缆", "YJV", "空表"}));
  EXPECT_EQ(Fields(line_, "VV/VLV 电缆"), (Texts{"序号", "￥截面", "￥芯数", "R", "X", "U"}));
  CADOTableDef def(&line_);
  EXPECT_THROW(def.Open("no such table"), CADOException);
}

// Each query as a calculator writes it, and the rows it gives in stored order.
TEST_F(QueryShapes, CalculatorQueries) {
  const std::string reactor = "SELECT DISTINCT [起动电流A] FROM [起动电抗器数据] WHERE 每相额定电抗Ω LIKE ";
  const struct {
    bool reactors;  // in the motor-start catalogue, else the line catalogue
    std::string query;
    Texts rows;
  } cases[] = {
      // Key lists in first-occurrence order, although an index exists on every key column; an
      // empty key cell is one more value, in its place.
      {false, "SELECT DISTINCT [￥截面] FROM [VV/VLV 电缆]", {"95", "120", "3x50"}},
      {false, "SELECT DISTINCT [￥芯数] FROM [VV/VLV 电缆] WHERE ￥截面 LIKE \"95\"", {"4", "3"}},
      {false, "SELECT DISTINCT [￥芯数] FROM [VV/VLV 电缆] WHERE ￥截面 LIKE \"120\"", {"3", "4"}},
      {true, "SELECT DISTINCT [每相额定电抗Ω] FROM [起动电抗器数据]", {"1.05", "10", "10.5", "0.0754"}},
      {true, "SELECT DISTINCT [￥型号] FROM [电机] WHERE ￥系列名称 LIKE \"Y\"", {"Y315S-4", "Y315M-4"}},
      {true, "SELECT DISTINCT [￥k] FROM [空值]", {"b", "", "a"}},
      {true, "SELECT DISTINCT [￥k] FROM [空值] WHERE v LIKE \"5\" OR v LIKE \"3\"", {"a", ""}},
      // Values by keys, with and without brackets: both matching rows (the calculator takes the
      // last one read), every row without a condition.
      {false, "SELECT [R] FROM VV/VLV 电缆 WHERE ￥截面 Like \"95\" AND ￥芯数 Like \"3\"", {"0.193", "0.2"}},
      {false, "SELECT [R] FROM [VV/VLV 电缆] WHERE ￥截面 Like \"95\" AND ￥芯数 Like \"3\"", {"0.193", "0.2"}},
      {false, "SELECT [X] FROM YJV WHERE ￥型号 Like \"YJV\"", {"0.0754"}},
      {false, "SELECT [U] FROM YJV", {"10", "10", "6"}},
      {true, "SELECT [功率kW] FROM [电机] WHERE ￥系列名称 LIKE \"Y\" AND ￥型号 LIKE \"Y315M-4\"", {"132"}},
      {true, "SELECT [￥型 号] FROM 起动电抗器数据 WHERE 起动电流A LIKE \"500\" AND 每相额定电抗Ω LIKE \"1.05\"",
       {"QKSG-100"}},
      {true, "SELECT * FROM [起动电抗器数据] where [￥型 号]=\"QKSG-200\"", {"2"}},  // the pick dialog's search
      // LIKE compares the cell's text: 10.000 is "10", so "10." and "10.0" find nothing.
      {true, reactor + "\"10\"", {"750"}},
      {true, reactor + "\"10.\"", {}},
      {true, reactor + "\"10.0\"", {}},
      {true, reactor + "\"0.0754\"", {"1000"}},
      {true, "SELECT [序号] FROM [起动电抗器数据] WHERE 起动电流A LIKE \"500.0\"", {}},
      // ASCII letters without regard to case, whole texts only; wildcards still work.
      {false, "SELECT [R] FROM YJV WHERE ￥型号 Like \"yjv\"", {"1.83"}},
      {false, "SELECT [R] FROM YJV WHERE ￥型号 Like \"YJV%\"", {"1.83", "1.15"}},
      {false, "SELECT [R] FROM YJV WHERE ￥型号 Like \"_v\"", {"0.5"}},
      {true, "SELECT [序号] FROM [起动电抗器数据] WHERE 起动电流A LIKE \"5%\"", {"1", "3"}},
      // Nothing found is no error.
      {false, "SELECT DISTINCT [￥截面] FROM [空表]", {}},
      {false, "SELECT [R] FROM 空表 WHERE ￥截面 Like \"95\"", {}},
  };
  for (const auto& c : cases) EXPECT_EQ(Column0(c.reactors ? djqd_ : line_, c.query), c.rows) << c.query;
}

TEST(LikeMatch, WildcardsCaseAndCharacters) {
  const struct {
    const char* pattern;
    const char* text;
    bool match;
  } cases[] = {
      {"abc", "ABC", true}, {"abc", "abcd", false}, {"a%", "a", true}, {"%铜%", "YJV 铜芯", true}, {"型_号", "型 号", true},
      {"_号", "型号", true},  // "_" is one character, not one byte
      {"__号", "型号", false}, {"%_%_", "ab", true}, {"%_%_", "a", false}, {"", "", true},
      {"Ω", "ω", false},  // only ASCII letters fold
      // Broken UTF-8 compares byte by byte: no overlong "A", no lost continuation bytes.
      {"a", "\xC1\x81", false}, {"\xE4" "AB", "\xE4\x81\x82", false}, {"\xE4" "AB", "\xE4" "ab", true},
      {"_AB", "\xE4" "ab", true},
  };
  for (const auto& c : cases) EXPECT_EQ(LikeMatch(c.pattern, c.text), c.match) << c.pattern << " / " << c.text;
  EXPECT_TRUE(LikeMatch("a\\%", "a%", U'\\'));
  EXPECT_FALSE(LikeMatch("a\\%", "ab", U'\\'));
}

TEST_F(QueryShapes, ConnectionTextsTheCallersBuild) {
  const std::string path = *dir_ / "DyssCal.Mdb";
  for (const std::string& c : {ConnectionText(path), path, path + " ; ",
                              "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=" + path + ";"}) {
    CADODatabase db;
    ASSERT_TRUE(db.Open(c, "", "")) << c;
    EXPECT_EQ(db.GetTableDefCount(), 3) << c;
    db.Close();
    EXPECT_FALSE(db.IsOpen());
  }
}

TEST(Catalogue, DatabaseWithoutUserTablesListsNothing) {
  TempDir dir;
  sqlite3* db = nullptr;
  ASSERT_EQ(sqlite3_open(dir.operator/("none.db").c_str(), &db), SQLITE_OK);
  sqlite3_exec(db, "PRAGMA user_version=7", nullptr, nullptr, nullptr);  // writes the header
  sqlite3_close(db);
  CADODatabase cat;
  ASSERT_TRUE(cat.Open(ConnectionText(dir / "none.db")));
  EXPECT_EQ(cat.GetTableDefCount(), 0);
}

class Errors : public QueryShapes {
 protected:
  void SetUp() override {
    QueryShapes::SetUp();
    SetErrorReporter([this](const std::string& m) { reported_.push_back(m); });
  }
  void TearDown() override { SetErrorReporter(nullptr); }
  // The callers' pattern: catch, report, delete, close if open, go on.
  Texts RunAsCaller(CADODatabase& db, const std::string& query) {
    Texts got;
    CADORecordset rs(&db);
    try {
      rs.Open(query, 0);
      while (!rs.IsEOF()) {
        Variant v;
        rs.GetFieldValue(0, v);
        got.push_back(CCrack::strVARIANT(v));
        rs.MoveNext();
      }
      rs.Close();
    } catch (CADOException& e) {
      e.ReportError();
      e.Delete();
      if (rs.IsOpen()) rs.Close();
    }
    return got;
  }
  Texts reported_;
};

// A query that fails is reported with the engine's message (on standard error without a
// reporter), and the connection goes on working.
TEST_F(Errors, FailedQueriesAreReportedAndTheConnectionGoesOn) {
  const std::tuple<bool, const char*, const char*> cases[] = {  // reactor catalogue, query, message
      {false, "SELECT [R] FROM [YJV] WHERE AND", "syntax error"},
      {false, "SELECT [电阻] FROM [YJV]", "no such column: 电阻"},
      {true, "SELECT [序号] FROM [起动电抗器数据] WHERE [￥型 号] LIKE \"QKSG \"B\"\"", "syntax error"},  // a lone quote
  };
  for (const auto& [reactors, query, message] : cases) {
    EXPECT_TRUE(RunAsCaller(reactors ? djqd_ : line_, query).empty());
    ASSERT_FALSE(reported_.empty());
    EXPECT_NE(reported_.back().find(message), std::string::npos) << reported_.back();
  }
  EXPECT_EQ(reported_.size(), 3u);
  EXPECT_EQ(Column0(line_, "SELECT [R] FROM YJV WHERE ￥型号 Like \"VV\""), (Texts{"0.5"}));
  // Doubled, the quote is an ordinary character of the value.
  EXPECT_EQ(Column0(djqd_, "SELECT [序号] FROM [起动电抗器数据] WHERE [￥型 号] LIKE \"QKSG \"\"B\"\"\""), (Texts{"4"}));
  SetErrorReporter(nullptr);
  ::testing::internal::CaptureStderr();
  RunAsCaller(line_, "SELECT [R] FROM [没有这个表]");
  const std::string err = ::testing::internal::GetCapturedStderr();
  EXPECT_NE(err.find("no such table: 没有这个表"), std::string::npos) << err;
  EXPECT_EQ(reported_.size(), 3u);
}

TEST_F(Errors, CataloguesCannotBeChanged) {
  const std::string file = *dir_ / "DyssCal.Mdb";
  const std::string before = ReadFile(file);
  // A value that breaks out of its quotes, then statements that write.
  for (const std::string v : {"x\"; DELETE FROM [YJV]; --", "x\"; DROP TABLE YJV; SELECT \"",
                              "x\" OR 1=1; UPDATE YJV SET R=0 WHERE \"\"=\""}) {
    RunAsCaller(line_, "SELECT [R] FROM YJV WHERE ￥型号 Like \"" + v + "\"");
  }
  for (const std::string q : {"UPDATE [YJV] SET R=0", "DELETE FROM [YJV]", "INSERT INTO YJV VALUES(9,'a',1,1,1)",
                              "CREATE TABLE x(a)", "ATTACH 'evil.db' AS e", "PRAGMA query_only=0"}) {
    RunAsCaller(line_, q);
  }
  EXPECT_GE(reported_.size(), 8u);
  EXPECT_EQ(Column0(line_, "SELECT [R] FROM YJV"), (Texts{"1.83", "1.15", "0.5"}));
  EXPECT_EQ(ReadFile(file), before);
  EXPECT_FALSE(fs::exists(*dir_ / "evil.db"));
}

TEST_F(Errors, MissingAndForeignFiles) {
  CADODatabase db;
  try {
    db.Open(ConnectionText(*dir_ / "datcom/none.mdb"), "", "");
    FAIL() << "opened a missing file";
  } catch (CADOException& e) {
    EXPECT_NE(std::string(e.what()).find("none.mdb"), std::string::npos) << e.what();
    e.ReportError();
  }
  EXPECT_FALSE(db.IsOpen());
  ASSERT_EQ(reported_.size(), 1u);
  WriteFile(*dir_ / "notes.mdb", "Standard notes, not a database\n");
  try {
    db.Open(*dir_ / "notes.mdb");
    FAIL() << "opened a text file";
  } catch (CADOException& e) {
    EXPECT_EQ(std::string(e.what()), "not a catalogue database: " + *dir_ / "notes.mdb");
  }
  // Calls on a closed database raise, they do not crash.
  EXPECT_THROW(db.GetTableDefCount(), CADOException);
  CADORecordset rs(&db);
  EXPECT_THROW(rs.Open("SELECT 1", 0), CADOException);
  EXPECT_FALSE(rs.IsOpen());
}

TEST(CellText, AccessSingleCellsReadAsTyped) {
  EXPECT_EQ(SingleCellValue(0.075400002), 0.0754);
  EXPECT_EQ(SingleCellValue(static_cast<float>(1.05)), 1.05);
  EXPECT_EQ(SingleCellValue(500), 500.0);
  EXPECT_EQ(SingleCellValue(-0.1f), -0.1);
}

TEST(CellText, NumbersInTheirShortestText) {
  Variant v;
  v.kind = Variant::Kind::Real;
  for (auto [d, text] : {std::pair{500.0, "500"}, {1.05, "1.05"}, {0.0754, "0.0754"}, {-3.0, "-3"},
                         {1e6, "1000000"}, {0.1 + 0.2, "0.30000000000000004"}, {1e-7, "1e-07"}}) {
    v.d = d;
    EXPECT_EQ(CCrack::strVARIANT(v), text);
  }
  v = Variant{};
  EXPECT_EQ(CCrack::strVARIANT(v), "");
  v.kind = Variant::Kind::Integer;
  v.i = 1234567890123;
  EXPECT_EQ(CCrack::strVARIANT(v), "1234567890123");
}

// Cells of number columns in a designer's damaged catalogue: a text without a number shows as
// damaged; a number with something after it, an empty or blank cell and an overflowed one stay.
TEST(CellText, NumberCellsWithoutANumberShowAsDamaged) {
  for (const char* damaged : {"nan", "-inf", "Infinity", "abc", "1e309", "电阻", "."})
    EXPECT_EQ(kestra::tabledb::NumberCellText(damaged), "无效") << damaged;
  for (const char* kept : {"0.193", " 0.5 ", "0.38kV", "-0", "", " \u3000", "溢出", "1e-400"})
    EXPECT_EQ(kestra::tabledb::NumberCellText(kept), kept) << kept;
}

// Whatever route a LIKE takes inside the service (index or scan), it finds exactly the rows
// whose cell text matches: the list and line-data queries of a line form, and LIKE on a number
// column, against a plain evaluation of the same rows, on a table whose keys differ in letter
// case, look like numbers or are missing.
TEST(QueryShapesAgainstPlainEvaluation, ListsAndLineDataOfAGeneratedTable) {
  TempDir dir;
  const Texts k1s{"YJV", "yjv", "VV", "95", "铜", ""};
  const Texts k2s{"3x50", "3X50", "120", "10", "10.0", ""};
  const Texts k3s{"1", "01", "a", "A"};
  struct Row {
    std::string id, k1, k2, k3, r;
  };
  std::vector<Row> rows;
  std::string csv = "序号,￥型号,￥截面,￥芯数,R,X,U\n";
  for (int i = 0; i < 300; ++i) {
    const int h = (i * 37 + 11) % 97;  // scrambled, with repeats
    Row row{std::to_string(i + 1), k1s[h % 6], k2s[(h / 6) % 6], k3s[(h / 3) % 4], std::to_string(i % 17) + ".05"};
    csv += row.id + "," + row.k1 + "," + row.k2 + "," + row.k3 + "," + row.r + ",0.1,0.4\n";
    rows.push_back(row);
  }
  WriteFile(dir / "src/t.csv", csv);
  ASSERT_EQ(kestra::catalog::BuildCatalogue(dir / "src", dir / "c.db"), "");
  CADODatabase db;
  db.Open(dir / "c.db");

  auto distinct = [](const Texts& v) {
    Texts out;
    for (const auto& s : v)
      if (std::find(out.begin(), out.end(), s) == out.end()) out.push_back(s);
    return out;
  };
  Texts all_k1;
  for (const auto& r : rows) all_k1.push_back(r.k1);
  EXPECT_EQ(Column0(db, "SELECT DISTINCT [￥型号] FROM [t]"), distinct(all_k1));
  for (const char* p : {"3.05", "3.050", "3.0", "3.", "%5", "1_.05", "_", ""}) {
    Texts ids;
    for (const auto& r : rows)
      if (LikeMatch(p, r.r)) ids.push_back(r.id);
    EXPECT_EQ(Column0(db, "SELECT [序号] FROM t WHERE R LIKE \"" + std::string(p) + "\""), ids) << p;
  }
  // An empty key cell matches no pattern, not even "".
  for (const auto& v1 : k1s) {
    Texts k2_under;
    for (const auto& r : rows)
      if (!r.k1.empty() && LikeMatch(v1, r.k1)) k2_under.push_back(r.k2);
    EXPECT_EQ(Column0(db, "SELECT DISTINCT [￥截面] FROM [t] WHERE ￥型号 LIKE \"" + v1 + "\""), distinct(k2_under)) << v1;
    for (const auto& v2 : k2s)
      for (const auto& v3 : k3s) {
        Texts r_expected;
        for (const auto& r : rows)
          if (!r.k1.empty() && !r.k2.empty() && LikeMatch(v1, r.k1) && LikeMatch(v2, r.k2) && LikeMatch(v3, r.k3))
            r_expected.push_back(r.r);
        const std::string q = "SELECT [R] FROM t WHERE ￥型号 Like \"" + v1 + "\" AND ￥截面 Like \"" + v2 +
                              "\" AND ￥芯数 Like \"" + v3 + "\"";
        EXPECT_EQ(Column0(db, q), r_expected) << q;
      }
  }
}

}  // namespace
}  // namespace kestra::tabledb::test

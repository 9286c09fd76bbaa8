// Access catalogues read through libmdb, on a real file written by Access (tests/fixtures/access).
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <functional>
#include <tuple>

#include "services/tabledb/catalog.h"
#include "services/tabledb/engine.h"
#include "services/tabledb/mdb_import.h"
#include "test_support.h"

namespace kestra::tabledb::test {
namespace {

// A file of tests/fixtures/access: missing is a failure, never a skip.
#define REQUIRE_SAMPLE(var, name)                                     \
  const std::string var = std::string(KESTRA_ACCESS_SAMPLES) + "/" + name; \
  ASSERT_TRUE(fs::exists(var)) << var

Variant Cell(CADODatabase& db, const std::string& query) {
  CADORecordset rs(&db);
  rs.Open(query, 0);
  EXPECT_FALSE(rs.IsEOF()) << query;
  Variant v;
  if (!rs.IsEOF()) rs.GetFieldValue(0, v);
  return v;
}

TEST(AccessImport, NodeAdodbUsersComeThroughIntact) {
  REQUIRE_SAMPLE(path, "node-adodb.mdb");
  const std::string before = ReadFile(path);
  CADODatabase db;
  ASSERT_TRUE(db.Open(ConnectionText(path), "", ""));
  EXPECT_EQ(TableNames(db), Texts{"Users"});
  EXPECT_EQ(Fields(db, "Users"), (Texts{"UserId", "UserName", "UserSex", "UserBirthday", "UserMarried"}));

  EXPECT_EQ(Column0(db, "SELECT [UserName] FROM [Users]"), (Texts{"Nuintun", "Angela", "张三"}));
  EXPECT_EQ(Column0(db, "SELECT DISTINCT [UserSex] FROM [Users]"), (Texts{"Male", "Female", "男"}));
  EXPECT_EQ(Column0(db, "SELECT [UserSex] FROM Users WHERE UserName Like \"张三\""), (Texts{"男"}));
  EXPECT_EQ(Column0(db, "SELECT [UserName] FROM Users WHERE UserSex LIKE \"male\""), (Texts{"Nuintun"}));
  // Numbers stay numbers, booleans read 1/0, dates as sortable texts.
  Variant id = Cell(db, "SELECT [UserId] FROM Users WHERE UserName LIKE \"张三\"");
  EXPECT_EQ(id.kind, Variant::Kind::Integer);
  EXPECT_EQ(CCrack::strVARIANT(id), "3");
  EXPECT_EQ(Column0(db, "SELECT [UserName] FROM Users WHERE UserId LIKE \"2\""), (Texts{"Angela"}));
  EXPECT_EQ(Column0(db, "SELECT [UserMarried] FROM [Users]"), (Texts{"1", "0", "1"}));
  EXPECT_EQ(Column0(db, "SELECT [UserBirthday] FROM [Users]"),
            (Texts{"1989-01-25 00:00:00", "1988-12-18 00:00:00", "1986-12-18 00:00:00"}));

  // The in-memory copy is as read-only as a file.
  EXPECT_THROW(Column0(db, "UPDATE Users SET UserName='x'"), CADOException);
  EXPECT_THROW(Column0(db, "SELECT [UserName] FROM Users WHERE UserName LIKE \"x\"; DELETE FROM Users"),
               CADOException);
  EXPECT_EQ(Column0(db, "SELECT [UserName] FROM [Users]").size(), 3u);
  db.Close();
  EXPECT_EQ(ReadFile(path), before);
}

TEST(AccessImport, RecognisedByContentNotByName) {
  REQUIRE_SAMPLE(path, "node-adodb.mdb");
  TempDir dir;
  fs::copy_file(path, dir / "catalogue.dat");
  CADODatabase db;
  ASSERT_TRUE(db.Open(dir / "catalogue.dat"));
  EXPECT_EQ(Column0(db, "SELECT [UserName] FROM [Users]").back(), "张三");
}

TEST(AccessImport, ExportedAndRebuiltCatalogueReadsTheSame) {
  REQUIRE_SAMPLE(path, "node-adodb.mdb");
  TempDir dir;
  ASSERT_EQ(kestra::catalog::ExportCatalogue(path, dir / "csv"), "");
  ASSERT_EQ(kestra::catalog::BuildCatalogue(dir / "csv", dir / "users.db"), "");
  CADODatabase access, rebuilt;
  access.Open(path);
  rebuilt.Open(dir / "users.db");
  for (const auto& f : Fields(access, "Users")) {
    const std::string q = "SELECT [" + f + "] FROM [Users]";
    EXPECT_EQ(Column0(rebuilt, q), Column0(access, q)) << f;
  }
}

// Damaged Access files: one message naming the file and nothing of the library's on standard
// error, whether the damage shows before the library reads (a page cut short), while it reads,
// or as a reading process that never ends or eats memory (made so by the test's hook).
TEST(AccessImport, ADamagedFileGivesOneMessage) {
  REQUIRE_SAMPLE(path, "node-adodb.mdb");
  const std::string whole = ReadFile(path);  // Jet 4: 4096-byte pages
  const std::string garbage = std::string("\0\1\0\0Standard Jet DB", 19) + std::string(3 * 4096 - 19, 'x');
  const std::function<void()> forever = [] {
    for (;;) ::pause();
  };
  const std::function<void()> greedy = [] {
    for (std::vector<std::string> heap;;) {
      heap.emplace_back(std::size_t(8) << 20, 'm');
      std::fputs("mdb warning\n", stderr);
    }
  };
  const std::tuple<std::string, std::string, std::function<void()>> cases[] = {
      {"cut.mdb", whole.substr(0, 110000), {}}, {"one-page.mdb", whole.substr(0, 4096), {}},
      {"garbage.mdb", garbage, {}},            {"stuck.mdb", whole, forever},
      {"greedy.mdb", whole, greedy}};
  TempDir dir;
  for (const auto& [name, bytes, child] : cases) {
    const std::string file = dir / name;
    WriteFile(file, bytes);
    kestra::tabledb::testing::SetImportChildHook(child);
    ::testing::internal::CaptureStderr();
    std::string message;
    try {
      kestra::tabledb::Engine::Open(file);
    } catch (const CADOException& e) {
      message = e.what();
    }
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), "") << name;
    EXPECT_EQ(message, "cannot read the Access catalogue " + file + ": the file is damaged or cut short") << name;
  }
  kestra::tabledb::testing::SetImportChildHook({});
}

}  // namespace
}  // namespace kestra::tabledb::test

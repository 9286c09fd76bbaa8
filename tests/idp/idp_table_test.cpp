// Tables in parameter files: what WriteTable stores reads back unchanged, and a broken table is
// refused with a message that names the fault. (The generator's layout: the staged table file
// read by this reader, test_tabdata_reader.)
#include <gtest/gtest.h>

#include <tuple>

#include "services/idp/idp_table.h"
#include "services/idp/idp_values.h"
#include "services/idp/inter_dp_data.h"
#include "tests/idp/idp_test_support.h"

namespace kestra::idp::test {
namespace {

class IdpTableTest : public IdpFolderTest {
 protected:
  static IdpTable Sample() {
    IdpTable t;
    t.title = "电机静阻转矩相对值 (Mj/Me)";
    t.headers = {"机械名称", "起动时", "运行时"};
    t.rows = {{"通风机", "0.3~0.5", "1.0"}, {"水泵", "0.2"}, {"压缩机\n(活塞式)", "0.4~0.6", "1.0"}};
    t.note = "以上数据摘自设计手册。";
    return t;
  }
  // Reads key from a file whose body is the given lines.
  std::optional<IdpTable> ReadFrom(const std::string& body, std::string* error) {
    const std::string path = Path("tabdata.idp");
    Put(path, "; OrvelKestra parameter file\n" + body);
    return ReadTable(path, "T", error);
  }
};

TEST_F(IdpTableTest, WrittenTableReadsBackFromTheFile) {
  CInterDpData tree;
  SetValue(tree, "Other\\Key", "kept");
  ASSERT_TRUE(WriteTable(tree, "DjJzZj", Sample()));
  const std::string path = Path("datcom/tabdata.idp");
  ASSERT_EQ(tree.WriteDataToIdpFile(path), kOk);

  std::string error;
  auto table = ReadTable(path, "DjJzZj", &error);
  ASSERT_TRUE(table) << error;
  IdpTable want = Sample();
  want.rows[1].resize(3);  // short rows come back padded
  EXPECT_EQ(std::tie(table->title, table->headers, table->rows, table->note),
            std::tie(want.title, want.headers, want.rows, want.note));

  // A smaller table written over it drops the old rows and note.
  ASSERT_TRUE(WriteTable(tree, "DjJzZj", IdpTable{"", {"A"}, {{"1"}}, ""}));
  table = ReadTable(tree, "DjJzZj", &error);
  ASSERT_TRUE(table) << error;
  EXPECT_EQ(table->rows, (std::vector<std::vector<std::string>>{{"1"}}));
  EXPECT_EQ(table->note, "");
}

TEST_F(IdpTableTest, MissingCellsAreEmptyAndOrderOfLinesDoesNotMatter) {
  std::string error;
  auto t = ReadFrom("T\\Row\\2\\1=b\nT\\Columns=2\nT\\Rows=2\nT\\Header\\2=y\nT\\Header\\1=x\n", &error);
  ASSERT_TRUE(t) << error;
  EXPECT_EQ(t->title, "");
  EXPECT_EQ(t->headers, (std::vector<std::string>{"x", "y"}));
  EXPECT_EQ(t->rows, (std::vector<std::vector<std::string>>{{"", ""}, {"b", ""}}));
}

TEST_F(IdpTableTest, WriteRefusesWhatCannotBeATable) {
  CInterDpData tree;
  IdpTable wide = Sample();
  wide.rows[0].push_back("extra");
  EXPECT_FALSE(WriteTable(tree, "T", wide));
  EXPECT_FALSE(WriteTable(tree, "T", IdpTable{}));  // no columns
  EXPECT_FALSE(WriteTable(tree, "A\\\\B", Sample()));
  IdpTable bad_text = Sample();
  bad_text.rows[2][0] = "\xFF";
  EXPECT_FALSE(WriteTable(tree, "T", bad_text));
  EXPECT_EQ(tree.GetSubValueFromPathW(0, "T"), nullptr);  // nothing half-written
}

TEST_F(IdpTableTest, BrokenTablesAreRefusedWithAMessageNamingTheFault) {
  const std::pair<const char*, const char*> cases[] = {
      {"Other\\Columns=1\n", "没有表格\"T\""},
      {"T\\Rows=1\nT\\Header\\1=a\n", "缺少\"T\\Columns\""},
      {"T\\Columns=two\nT\\Rows=1\n", "\"T\\Columns\"不是1到"},
      {"T\\Columns=0\nT\\Rows=1\n", "\"T\\Columns\"不是1到"},
      {"T\\Columns=1\nT\\Rows=-1\n", "\"T\\Rows\"不是0到"},
      {"T\\Columns=1\nT\\Rows=\nT\\Header\\1=a\n", "\"T\\Rows\"不是0到"},
      {"T\\Columns=2\nT\\Rows=0\nT\\Header\\1=a\n", "缺少列标题\"T\\Header\\2\""},
      {"T\\Columns=1\nT\\Rows=0\nT\\Header\\1=a\nT\\Header\\3=c\n", "\"T\\Header\\3\"不在1到1列之内"},
      {"T\\Columns=1\nT\\Rows=0\nT\\Header\\01=a\n", "\"T\\Header\\01\""},
      {"T\\Columns=2\nT\\Rows=1\nT\\Header\\1=a\nT\\Header\\2=b\nT\\Row\\2\\1=x\n", "\"T\\Row\\2\"不在1到1行之内"},
      {"T\\Columns=2\nT\\Rows=1\nT\\Header\\1=a\nT\\Header\\2=b\nT\\Row\\1\\3=x\n", "\"T\\Row\\1\\3\"不在1到2列之内"},
      {"T\\Title\nT\\Columns=1\n", "第2行缺少\"=\""},
  };
  for (const auto& [body, message_part] : cases) {
    std::string error;
    EXPECT_FALSE(ReadFrom(body, &error)) << body;
    EXPECT_NE(error.find(message_part), std::string::npos) << error;
    EXPECT_NE(error.find("tabdata.idp"), std::string::npos) << error;
  }
}

TEST_F(IdpTableTest, MissingFileIsNamedAndABrokenFileIsLeftWhereItIs) {
  std::string error;
  EXPECT_FALSE(ReadTable(Path("none.idp"), "T", &error));
  EXPECT_NE(error.find("none.idp\"不存在"), std::string::npos) << error;

  const std::string bytes = "T\\Columns=2\nT\\Rows=1\nT\\Header\\1=a\nT\\Header\\2=b\ngarbage\n";
  EXPECT_FALSE(ReadFrom(bytes, &error));
  EXPECT_EQ(Get(Path("tabdata.idp")), "; OrvelKestra parameter file\n" + bytes);  // data file untouched
  EXPECT_EQ(Entries(), std::vector<std::string>{"tabdata.idp"});
}

}  // namespace
}  // namespace kestra::idp::test

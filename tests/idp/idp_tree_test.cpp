// The parameter tree and its file text: the text of the shared format, defaults for missing and
// empty keys, and a writer keeps the keys it did not set. (Values of every kind surviving a
// write and a read: the parameter-file fuzz test.)
#include <gtest/gtest.h>

#include "services/idp/idp_format.h"
#include "services/idp/idp_values.h"
#include "services/idp/inter_dp_data.h"
#include "tests/idp/idp_test_support.h"

namespace kestra::idp::test {
namespace {

class IdpTreeTest : public IdpFolderTest {};

TEST_F(IdpTreeTest, FileTextFollowsTheSharedFormat) {
  CInterDpData tree;
  SetValue(tree, "A\\B", "x\ny\\z\t=");
  SetValue(tree, "A\\B\\C", "2");  // a value and children on one node
  SetValue(tree, "中文", " 电压 ");
  const std::string path = Path("format.idp");
  ASSERT_EQ(tree.WriteDataToIdpFile(path), kOk);
  EXPECT_EQ(Get(path), "; OrvelKestra parameter file\nA\\B=x\\ny\\\\z\\t=\nA\\B\\C=2\n中文= 电压 \n");
}

// A file edited by hand: comments, blank lines, a BOM, CR LF, repeated keys, interleaved folders.
TEST_F(IdpTreeTest, HandWrittenFileReadsWithValuesLengthsAndDefaults) {
  const std::string path = Path("hand.idp");
  Put(path,
      "\xEF\xBB\xBF; edited by hand\r\n\r\n   \nA\\B=1\r\n;A\\C=2\nA\\B=3\nD=x=y\n"
      "F\\B\\x=1\nF\\B\\y=2\nF\\C\\x=3\nF\\B\\z=4\nx=5\nF\\B=6\ny=7\nF\\C\\y=8\n"
      "L\\A=\nL\\B=abc\nL\\C=功率因数\nL\\D=😀\nL\\E=a\\nb\n"
      "Cal\\Page1\\线路种类=2\nCal\\Page1\\X\\Y=1\n");
  CInterDpData tree;
  SetValue(tree, "Unsaved", "x");
  ASSERT_EQ(tree.ReadDataFromIdpFile(path), kOk);
  EXPECT_EQ(tree.GetSubValueFromPathW(0, "Unsaved"), nullptr);  // a read replaces the tree
  EXPECT_EQ(tree.GetSubValueFromPathW(0, "A\\C"), nullptr);      // commented out
  struct Case {
    const char* key;
    const char* text;  // ValueOr with the default "-"
    int length;        // stored length (UTF-16 units plus one), 0 when not checked
  };
  const Case cases[] = {
      {"A\\B", "3", 2},  // a repeated key: the last wins
      {"D", "x=y", 4},   // split at the first "="
      {"F\\B\\x", "1", 0}, {"F\\B\\y", "2", 0}, {"F\\C\\x", "3", 0}, {"F\\B\\z", "4", 0},
      {"x", "5", 0}, {"F\\B", "6", 0}, {"y", "7", 0}, {"F\\C\\y", "8", 0},
      {"L\\A", "-", 1},  // stored empty: the default
      {"L\\B", "abc", 4}, {"L\\C", "功率因数", 5},
      {"L\\D", "😀", 3},  // a surrogate pair
      {"L\\E", "a\nb", 4},
      {"Cal\\Page1\\负荷情况", "-", 0},         // missing
      {"Cal\\Page1\\线路种类", "2", 0},
      {"Cal\\Page1\\X", "-", 0},                // a folder, no value
      {"Cal\\Page1\\线路种类\\Deeper", "-", 0},  // below a value
  };
  for (const auto& c : cases) {
    EXPECT_EQ(ValueOr(tree, c.key, "-"), c.text) << c.key;
    if (c.length) {
      EXPECT_EQ(tree.GetSubValueFromPathW(0, c.key)->Length(), c.length) << c.key;
    }
  }
  EXPECT_EQ(tree.GetSubValueFromPathW(0, "F")->Children().size(), 2u);
  EXPECT_EQ(tree.GetSubValueFromPathW(0, "F\\B")->Children().size(), 3u);

  // The default rule goes by the stored length the caller gave.
  ASSERT_EQ(tree.SetSubValueW("Short", 1, "x", 0), kOk);
  EXPECT_EQ(ValueOr(tree, "Short", "d"), "d");
  SetValue(tree, "G", "电压😀");
  EXPECT_EQ(tree.GetSubValueFromPathW(0, "G")->Length(), 5);
  EXPECT_EQ(ValueOr(CInterDpData(), "Anything", "0.9"), "0.9");

  EXPECT_EQ(tree.ReadDataFromIdpFile(Path("missing.idp")), kMissingFile);
  EXPECT_EQ(tree.GetSubValueFromPathW(0, "D"), nullptr);
}

TEST_F(IdpTreeTest, WritingKeepsKeysTheWriterDidNotSetInTheirOrder) {
  const std::string path = Path("keep.idp");
  Put(path, "; OrvelKestra parameter file\nZ=1\nA\\X=2\nM=3\nA\\Y=4\n");
  CInterDpData tree;
  ASSERT_EQ(tree.ReadDataFromIdpFile(path), kOk);
  SetValue(tree, "A\\X", "changed");
  SetValue(tree, "B", "new");
  SetValue(tree, "A\\New", "5");
  ASSERT_EQ(tree.WriteDataToIdpFile(path), kOk);
  // Each folder keeps its keys in file order; new keys come after them.
  EXPECT_EQ(Get(path), "; OrvelKestra parameter file\nZ=1\nA\\X=changed\nA\\Y=4\nA\\New=5\nM=3\nB=new\n");
}

TEST_F(IdpTreeTest, KeysThatCannotBeWrittenAreRefused) {
  CInterDpData tree;
  for (const std::string key : {"", "A\\\\B", "A\\", "\\A", "A=B", "A\nB", "A\tB", ";A", "A\\\x7F"}) {
    EXPECT_EQ(tree.SetSubValueW(key, 2, "1", 0), kBadKeyPath) << key;
    EXPECT_EQ(tree.GetSubValueFromPathW(0, key), nullptr) << key;
  }
  EXPECT_EQ(tree.SetSubValueW("A\\;B", 2, "1", 0), kOk);  // ";" only matters at the line start
  EXPECT_EQ(tree.SetSubValueW("A", 2, "\xC3", 0), kBadText);
  EXPECT_EQ(tree.SetSubValueW("A", 2, "\xED\xA0\x80", 0), kBadText);  // a lone surrogate
  EXPECT_EQ(tree.GetSubValueFromPathW(0, "A")->HasValue(), false);
  // Keys far deeper or longer than any calculator's.
  std::string deep = "A";
  for (int i = 0; i < 100000; ++i) deep += "\\B";
  for (const std::string& key : {deep, std::string(2000, 'K')})
    EXPECT_EQ(tree.SetSubValueW(key, 2, "1", 0), kBadKeyPath) << key.size();
}

// A tree as deep as memory allows (built node by node) is written and freed without recursion.
TEST_F(IdpTreeTest, AVeryDeepTreeIsFormattedAndFreed) {
  auto root = std::make_unique<IdpNode>();
  IdpNode* node = root.get();
  for (int i = 0; i < 200000; ++i) node = &node->ChildOrCreate("N");
  node->SetValue("1", 2);
  const std::string text = FormatIdpText(*root);
  EXPECT_EQ(text.size(), kFileHeader.size() + 1 + 200000 * 2 - 1 + 3);  // "N\...\N=1\n"
  root.reset();
}

TEST_F(IdpTreeTest, ManyChildrenOfOneFolderAreAllFoundInOrder) {
  // Large folders (table rows) are looked up through an index.
  CInterDpData tree;
  const auto row = [](int i) { return "T\\Row\\" + std::to_string(i); };
  for (int i = 1; i <= 40; ++i) SetValue(tree, row(i), "v" + std::to_string(i));
  for (int i = 1; i <= 40; ++i) EXPECT_EQ(ValueOr(tree, row(i), "-"), "v" + std::to_string(i));
  EXPECT_EQ(tree.GetSubValueFromPathW(0, row(41)), nullptr);
  SetValue(tree, row(7), "again");
  const auto& rows = tree.GetSubValueFromPathW(0, "T\\Row")->Children();
  ASSERT_EQ(rows.size(), 40u);
  EXPECT_EQ(rows[6]->Text(), "again");
  EXPECT_EQ(rows[39]->Name(), "40");
}

TEST_F(IdpTreeTest, WindowsStylePathsFindTheFile) {
  fs::create_directories(dir_ / "Kestra");
  Put(Path("Kestra/电压损失计算.idp"), "K=1\n");
  CInterDpData tree;
  ASSERT_EQ(tree.ReadDataFromIdpFile(dir_.string() + "\\kestra\\电压损失计算.idp"), kOk);
  EXPECT_EQ(ValueOr(tree, "K", ""), "1");
  SetValue(tree, "K", "2");
  ASSERT_EQ(tree.WriteDataToIdpFile(dir_.string() + "\\KESTRA\\电压损失计算.idp"), kOk);
  EXPECT_EQ(Entries(), std::vector<std::string>{"Kestra"});
  EXPECT_EQ(Get(Path("Kestra/电压损失计算.idp")), "; OrvelKestra parameter file\nK=2\n");
}

}  // namespace
}  // namespace kestra::idp::test

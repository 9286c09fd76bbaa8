// The parameter tree and its file text: values survive a write and a read exactly, defaults
// apply to missing and empty keys, and a writer keeps the keys it did not set.
#include <gtest/gtest.h>

#include "services/idp/idp_values.h"
#include "services/idp/inter_dp_data.h"
#include "tests/idp/idp_test_support.h"

namespace kestra::idp::test {
namespace {

class IdpTreeTest : public IdpFolderTest {};

TEST_F(IdpTreeTest, AwkwardValuesSurviveAWriteAndARead) {
  const std::vector<std::pair<std::string, std::string>> values = {
      {"Wgglbc\\Zrglys", "0.75"},
      {"Text\\LineFeeds", "first\nsecond\n"},
      {"Text\\CrLfTab", "a\r\nb\tc"},
      {"Text\\Backslashes", "C:\\Prog\\Kestra\\"},
      {"Text\\LiteralEscape", "\\n is not a line feed"},
      {"Text\\Equals", "a=b==c="},
      {"Text\\Blanks", "  leading and trailing  "},
      {"Text\\OnlyBlank", " "},
      {"Text\\Semicolon", "; not a comment"},
      {"Cal\\DyssCal\\Page1\\Input1\\输入参数\\线路名称", "YJV-0.6/1kV 电力电缆"},
      {"Text\\Emoji", "😀 U+1F600"},
      {"Text\\Empty", ""},
  };
  CInterDpData out;
  for (const auto& [key, text] : values) ASSERT_EQ(SetValue(out, key, text), kOk) << key;
  const std::string path = Path("roundtrip.idp");
  ASSERT_EQ(out.WriteDataToIdpFile(path), kOk);

  CInterDpData in;
  ASSERT_EQ(in.ReadDataFromIdpFile(path), kOk);
  for (const auto& [key, text] : values) {
    const IdpNode* node = in.GetSubValueFromPathW(0, key);
    ASSERT_NE(node, nullptr) << key;
    EXPECT_EQ(node->Text(), text) << key;
    EXPECT_EQ(node->Length(), out.GetSubValueFromPathW(0, key)->Length()) << key;
  }
}

TEST_F(IdpTreeTest, FileTextFollowsTheSharedFormat) {
  CInterDpData tree;
  SetValue(tree, "A\\B", "x\ny\\z\t=");
  SetValue(tree, "A\\B\\C", "2");  // a value and children on one node
  SetValue(tree, "中文", " 电压 ");
  const std::string path = Path("format.idp");
  ASSERT_EQ(tree.WriteDataToIdpFile(path), kOk);
  EXPECT_EQ(Get(path),
            "; OrvelKestra parameter file\n"
            "A\\B=x\\ny\\\\z\\t=\n"
            "A\\B\\C=2\n"
            "中文= 电压 \n");
}

TEST_F(IdpTreeTest, ReadsCommentsBlankLinesBomAndCrLf) {
  const std::string path = Path("hand.idp");
  Put(path, "\xEF\xBB\xBF; edited by hand\r\n\r\n   \nA\\B=1\r\n;A\\C=2\nA\\B=3\nD=x=y\n");
  CInterDpData tree;
  ASSERT_EQ(tree.ReadDataFromIdpFile(path), kOk);
  EXPECT_EQ(tree.GetSubValueFromPathW(0, "A\\B")->Text(), "3");  // a repeated key: the last wins
  EXPECT_EQ(tree.GetSubValueFromPathW(0, "A\\C"), nullptr);      // commented out
  EXPECT_EQ(tree.GetSubValueFromPathW(0, "D")->Text(), "x=y");   // split at the first "="
}

TEST_F(IdpTreeTest, KeysOfInterleavedFoldersLandInTheirFolders) {
  const std::string path = Path("folders.idp");
  Put(path, "A\\B\\x=1\nA\\B\\y=2\nA\\C\\x=3\nA\\B\\z=4\nx=5\nA\\B=6\ny=7\nA\\C\\y=8\n");
  CInterDpData tree;
  ASSERT_EQ(tree.ReadDataFromIdpFile(path), kOk);
  const std::vector<std::pair<std::string, std::string>> want = {
      {"A\\B\\x", "1"}, {"A\\B\\y", "2"}, {"A\\C\\x", "3"}, {"A\\B\\z", "4"},
      {"x", "5"},       {"A\\B", "6"},     {"y", "7"},       {"A\\C\\y", "8"}};
  for (const auto& [key, text] : want) EXPECT_EQ(ValueOr(tree, key, "-"), text) << key;
  EXPECT_EQ(tree.GetSubValueFromPathW(0, "A")->Children().size(), 2u);
  EXPECT_EQ(tree.GetSubValueFromPathW(0, "A\\B")->Children().size(), 3u);
}

TEST_F(IdpTreeTest, StoredLengthCountsUtf16UnitsPlusOne) {
  const std::string path = Path("len.idp");
  Put(path, "; x\nA=\nB=abc\nC=功率因数\nD=😀\nE=a\\nb\n");
  CInterDpData tree;
  ASSERT_EQ(tree.ReadDataFromIdpFile(path), kOk);
  EXPECT_EQ(tree.GetSubValueFromPathW(0, "A")->Length(), 1);
  EXPECT_EQ(tree.GetSubValueFromPathW(0, "B")->Length(), 4);
  EXPECT_EQ(tree.GetSubValueFromPathW(0, "C")->Length(), 5);
  EXPECT_EQ(tree.GetSubValueFromPathW(0, "D")->Length(), 3);  // a surrogate pair
  EXPECT_EQ(tree.GetSubValueFromPathW(0, "E")->Length(), 4);

  // The caller's length is what the node keeps.
  ASSERT_EQ(tree.SetSubValueW("F", 9, "abc", 0), kOk);
  EXPECT_EQ(tree.GetSubValueFromPathW(0, "F")->Length(), 9);
  SetValue(tree, "G", "电压😀");
  EXPECT_EQ(tree.GetSubValueFromPathW(0, "G")->Length(), 5);
}

TEST_F(IdpTreeTest, MissingOrEmptyKeysTakeTheDefault) {
  const std::string path = Path("defaults.idp");
  Put(path, "Cal\\DyssCal\\当前页=\nCal\\DyssCal\\Page1\\线路种类=2\nCal\\DyssCal\\Page1\\X\\Y=1\n");
  CInterDpData tree;
  ASSERT_EQ(tree.ReadDataFromIdpFile(path), kOk);
  EXPECT_EQ(ValueOr(tree, "Cal\\DyssCal\\当前页", "0"), "0");                 // stored empty
  EXPECT_EQ(ValueOr(tree, "Cal\\DyssCal\\Page1\\负荷情况", "0"), "0");         // missing
  EXPECT_EQ(ValueOr(tree, "Cal\\DyssCal\\Page1\\线路种类", "0"), "2");         // present
  EXPECT_EQ(ValueOr(tree, "Cal\\DyssCal\\Page1\\X", "d"), "d");                // a folder, no value
  EXPECT_EQ(ValueOr(tree, "Cal\\DyssCal\\Page1\\线路种类\\Deeper", "d"), "d");  // below a value
  ASSERT_EQ(tree.SetSubValueW("Short", 1, "x", 0), kOk);  // the rule goes by the stored length
  EXPECT_EQ(ValueOr(tree, "Short", "d"), "d");
  EXPECT_EQ(ValueOr(CInterDpData(), "Anything", "0.9"), "0.9");
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
  EXPECT_EQ(Get(path),
            "; OrvelKestra parameter file\nZ=1\nA\\X=changed\nA\\Y=4\nA\\New=5\nM=3\nB=new\n");
}

TEST_F(IdpTreeTest, ReadReplacesTheTree) {
  const std::string path = Path("a.idp");
  Put(path, "Old=1\n");
  CInterDpData tree;
  SetValue(tree, "Unsaved", "x");
  ASSERT_EQ(tree.ReadDataFromIdpFile(path), kOk);
  EXPECT_EQ(tree.GetSubValueFromPathW(0, "Unsaved"), nullptr);
  EXPECT_NE(tree.GetSubValueFromPathW(0, "Old"), nullptr);
  EXPECT_EQ(tree.ReadDataFromIdpFile(Path("missing.idp")), kMissingFile);
  EXPECT_EQ(tree.GetSubValueFromPathW(0, "Old"), nullptr);
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
}

TEST_F(IdpTreeTest, ManyChildrenOfOneFolderAreAllFound) {
  // Large folders (table rows) are looked up through an index; every key must still be found
  // and the order kept.
  CInterDpData tree;
  for (int i = 1; i <= 40; ++i) SetValue(tree, "T\\Row\\" + std::to_string(i), "v" + std::to_string(i));
  for (int i = 1; i <= 40; ++i) {
    const IdpNode* node = tree.GetSubValueFromPathW(0, "T\\Row\\" + std::to_string(i));
    ASSERT_NE(node, nullptr) << i;
    EXPECT_EQ(node->Text(), "v" + std::to_string(i));
  }
  EXPECT_EQ(tree.GetSubValueFromPathW(0, "T\\Row\\41"), nullptr);
  SetValue(tree, "T\\Row\\7", "again");
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

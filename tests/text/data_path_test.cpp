#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "services/text/data_path.h"

using namespace kestra::text;
namespace fs = std::filesystem;

TEST(DataRoot, CutsTwiceAtTheLastSeparator) {
  EXPECT_EQ(DataRootOfModule("D:\\Prog\\Sys\\module.arx"), "D:\\Prog");
  EXPECT_EQ(DataRootOfModule("D:\\module.arx"), "D:");
  EXPECT_EQ(DataRootOfModule("module.arx"), "module.arx");
  EXPECT_EQ(DataRootOfModule("/opt/kestra/bin/OrvelKestra.so"), "/opt/kestra");
  EXPECT_EQ(DataRootOfModule("bin/OrvelKestra.so"), "bin");  // the second cut finds no separator
}

TEST(DataRoot, JoinsWithOrWithoutTheSeparator) {
  EXPECT_EQ(JoinDataRoot("D:\\Prog", "Kestra\\a.idp"), "D:\\Prog\\Kestra\\a.idp");
  EXPECT_EQ(JoinDataRoot("D:\\Prog\\", "Kestra\\a.idp"), "D:\\Prog\\Kestra\\a.idp");
  EXPECT_EQ(JoinDataRoot("D:\\Prog", "\\Image\\Wgglbc.RTF"), "D:\\Prog\\Image\\Wgglbc.RTF");
  EXPECT_EQ(JoinDataRoot("/r/", "\\Datcom\\x"), "/r/\\Datcom\\x");
}

class ResolveTest : public ::testing::Test {
 protected:
  void SetUp() override {
    root_ = fs::temp_directory_path() / ("kestra_path_" + std::to_string(::getpid()));
    fs::remove_all(root_);
    fs::create_directories(root_ / "datcom");
    fs::create_directories(root_ / "Image");
    fs::create_directories(root_ / "Kestra");
    std::ofstream(root_ / "datcom" / "QdDkq.mdb") << "x";
    std::ofstream(root_ / "Image" / "djqd.slb") << "x";
    std::ofstream(root_ / "Kestra" / "电压损失计算.idp") << "x";
  }
  void TearDown() override { fs::remove_all(root_); }
  fs::path root_;
};

TEST_F(ResolveTest, MatchesEachComponentWithoutRegardToCase) {
  std::string r = root_.string();
  std::string want = (root_ / "datcom" / "QdDkq.mdb").string();
  EXPECT_EQ(DataPath(r, "\\Datcom\\QdDkq.mdb"), want);
  EXPECT_EQ(DataPath(r, "datcom\\qddkq.mdb"), want);
  EXPECT_EQ(DataPath(r + "/", "DATCOM/QDDKQ.MDB"), want);
  EXPECT_EQ(DataPath(r, "image\\djqd.slb"), (root_ / "Image" / "djqd.slb").string());
  EXPECT_EQ(DataPath(r, "Kestra\\电压损失计算.idp"), (root_ / "Kestra" / "电压损失计算.idp").string());
}

TEST_F(ResolveTest, KeepsMissingComponentsAsWritten) {
  std::string r = root_.string();
  EXPECT_EQ(DataPath(r, "KESTRA\\新文件.idp"), (root_ / "Kestra" / "新文件.idp").string());
  EXPECT_EQ(DataPath(r, "Nothing\\Here\\x.mdb"), (root_ / "Nothing" / "Here" / "x.mdb").string());
}

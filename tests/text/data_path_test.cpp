#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <tuple>
#include <utility>

#include "services/text/data_path.h"
#include "tests/support/temp_folder.h"

using namespace kestra::text;
namespace fs = std::filesystem;

// The data root is two cuts at the last separator above the module file (a cut that finds no
// separator leaves the text); a data file name joins it with one separator.
TEST(DataRoot, CutsTwiceAtTheLastSeparatorAndJoinsWithOne) {
  const std::pair<const char*, const char*> roots[] = {
      {"D:\\Prog\\Sys\\module.arx", "D:\\Prog"}, {"D:\\module.arx", "D:"}, {"module.arx", "module.arx"},
      {"/opt/kestra/bin/OrvelKestra.so", "/opt/kestra"}, {"bin/OrvelKestra.so", "bin"}};
  for (const auto& [module, root] : roots) EXPECT_EQ(DataRootOfModule(module), root) << module;
  const std::tuple<const char*, const char*, const char*> joins[] = {
      {"D:\\Prog", "Kestra\\a.idp", "D:\\Prog\\Kestra\\a.idp"}, {"D:\\Prog\\", "Kestra\\a.idp", "D:\\Prog\\Kestra\\a.idp"},
      {"D:\\Prog", "\\Image\\Wgglbc.RTF", "D:\\Prog\\Image\\Wgglbc.RTF"}, {"/r/", "\\Datcom\\x", "/r/\\Datcom\\x"}};
  for (const auto& [root, name, path] : joins) EXPECT_EQ(JoinDataRoot(root, name), path) << root << " " << name;
}

class ResolveTest : public ::testing::Test {
 protected:
  void SetUp() override {
    fs::create_directories(root_ / "datcom");
    fs::create_directories(root_ / "Image");
    fs::create_directories(root_ / "Kestra");
    std::ofstream(root_ / "datcom" / "QdDkq.mdb") << "x";
    std::ofstream(root_ / "Image" / "djqd.slb") << "x";
    std::ofstream(root_ / "Kestra" / "电压损失计算.idp") << "x";
  }
  kestra::testing::TempFolder folder_;
  const fs::path& root_ = folder_.path();
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

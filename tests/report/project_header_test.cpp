// The project's title block: kept in the project file, printed in every report's page header.
#include <gtest/gtest.h>

#include <regex>
#include <tuple>

#include "services/report/project_info.h"
#include "services/report/report_run.h"
#include "tests/report/report_folder_test.h"
#include "tests/report/sample_report.h"
#include "tests/report/zip_reader.h"

namespace {

using kestra::report::ProjectInfo;
using kestra::report::ReadProjectInfo;
using kestra::report::SetProjectValue;

class ProjectHeaderTest : public kestra::report::testing::ReportFolderTest {
 protected:
  std::string ProjectFile() const { return (dir_ / "Kestra" / "工程信息.idp").string(); }
  // The header's table cells in order, as a reader takes them from word/header1.xml.
  std::vector<std::string> HeaderCells(const ProjectInfo& project) {
    kestra::report::testing::FixedTarget target;
    target.path = (dir_ / "r.docx").string();
    std::filesystem::remove(*target.path);
    if (project != ProjectInfo{}) {
      for (std::size_t i = 0; i < project.values.size(); ++i)
        EXPECT_TRUE(SetProjectValue(ProjectFile(), kestra::report::kProjectFields[i].key, project.values[i], nullptr));
      target.SetProjectFile(ProjectFile());
    }
    kestra::report::ReportRunOptions options;
    options.title = "无功功率补偿计算书";
    EXPECT_TRUE(kestra::report::RunReport(target, [](const std::string& m) { ADD_FAILURE() << m; },
                                          kestra::report::testing::WriteSampleReport, options));
    const std::string xml = kestra::report::testing::ReadZipMember(*target.path, "word/header1.xml").value_or("");
    std::vector<std::string> cells;
    static const std::regex cell("<w:tc>.*?</w:tc>");
    static const std::regex text("<w:t(?: [^>]*)?>([^<]*)</w:t>");
    for (std::sregex_iterator it(xml.begin(), xml.end(), cell), end; it != end; ++it) {
      const std::string c = (*it)[0];
      std::smatch m;
      cells.push_back(std::regex_search(c, m, text) ? m[1].str() : "");
    }
    return cells;
  }
};

TEST_F(ProjectHeaderTest, LabelsOverValuesBlankWithoutAProjectFile) {
  const std::vector<std::string> labels{"工程名称", "设计阶段", "设计", "校对", "日期"};
  std::vector<std::string> want = labels;
  want.resize(10);
  EXPECT_EQ(HeaderCells({}), want);
  const ProjectInfo project{{"滨江花园 10kV 变电所 <二期>", "施工图", "张工", "李工", "2025-03-18"}};
  want = labels;
  for (const char* v : {"滨江花园 10kV 变电所 &lt;二期&gt;", "施工图", "张工", "李工", "2025-03-18"}) want.push_back(v);
  EXPECT_EQ(HeaderCells(project), want);
}

TEST_F(ProjectHeaderTest, ValuesAreSetOneAtATimeByNameOrShortName) {
  EXPECT_EQ(ReadProjectInfo(ProjectFile()), ProjectInfo{});  // no file: all blank
  EXPECT_TRUE(SetProjectValue(ProjectFile(), "designer", "张工", nullptr));
  EXPECT_TRUE(SetProjectValue(ProjectFile(), "设计阶段", "初步设计", nullptr));
  EXPECT_TRUE(SetProjectValue(ProjectFile(), "DATE", "2025-03-18", nullptr));
  EXPECT_TRUE(SetProjectValue(ProjectFile(), "设计阶段", "施工图", nullptr));  // replaces, keeps the others
  EXPECT_EQ(ReadProjectInfo(ProjectFile()), (ProjectInfo{{"", "施工图", "张工", "", "2025-03-18"}}));
  EXPECT_TRUE(SetProjectValue(ProjectFile(), "designer", "", nullptr));  // an empty value clears
  EXPECT_EQ(ReadProjectInfo(ProjectFile()).values[2], "");

  const std::string before = ReadAll(ProjectFile());
  for (const auto& [key, value, reason] : std::vector<std::tuple<std::string, std::string, std::string>>{
           {"审核", "王工", "unknown project field \"审核\""},
           {"project", "一行\n两行", "one line"},
           {"project", "\xB9\xA4\xB3\xCC", "not UTF-8"}}) {  // 工程 in GBK
    std::string why;
    EXPECT_FALSE(SetProjectValue(ProjectFile(), key, value, &why)) << key;
    EXPECT_NE(why.find(reason), std::string::npos) << why;
  }
  EXPECT_EQ(ReadAll(ProjectFile()), before);  // a refused value changes nothing
}

}  // namespace

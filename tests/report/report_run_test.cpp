// Writing a report through the guard the calculators use: where it goes, what a designer is
// told when it cannot be written, and that no file is ever written over. (Two writers at once:
// a new file never takes an existing name, atomic_file_test.)
#include <gtest/gtest.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "services/fileio/atomic_file.h"
#include "services/report/report_errors.h"
#include "services/report/report_run.h"
#include "tests/report/report_folder_test.h"
#include "tests/report/sample_report.h"
#include "tests/report/zip_reader.h"

using kestra::report::ReportRunOptions;
using kestra::report::RunReport;
using kestra::report::UniqueReportPath;
namespace fs = std::filesystem;

namespace {

class RunReportTest : public kestra::report::testing::ReportFolderTest {
 protected:
  void SetUp() override {
    target_.path = (dir_ / "报告.docx").string();
    options_.title = "无功功率补偿计算书";
  }
  bool Write(const std::function<void(ReportWriter&)>& body) {
    return RunReport(target_, [this](const std::string& m) { messages_.push_back(m); }, body, options_);
  }

  kestra::report::testing::FixedTarget target_;
  ReportRunOptions options_;
  std::vector<std::string> messages_;
};

}  // namespace

TEST_F(RunReportTest, WritesTheReportAndShowsItEvenWhenTheViewerFails) {
  EXPECT_TRUE(Write(kestra::report::testing::WriteSampleReport));
  EXPECT_TRUE(messages_.empty());
  EXPECT_EQ(target_.titles, std::vector<std::string>{"无功功率补偿计算书"});
  EXPECT_EQ(target_.shown, std::vector<std::string>{*target_.path});
  EXPECT_EQ(Files(), std::vector<std::string>{"报告.docx"});  // no temporary file left over
  const std::optional<std::string> doc = kestra::report::testing::ReadZipMember(*target_.path, "word/document.xml");
  ASSERT_TRUE(doc.has_value());
  EXPECT_NE(doc->find("并联电容器数量=14"), std::string::npos);
  EXPECT_EQ(fs::status(*target_.path).permissions() & fs::perms::others_read, fs::perms::others_read);
  // A viewer that fails is reported, and the written report stays.
  fs::remove(*target_.path);
  target_.throw_on_show = true;
  EXPECT_TRUE(Write(kestra::report::testing::WriteSampleReport));
  EXPECT_EQ(messages_, std::vector<std::string>{"Catch All Other ERROR"});
  EXPECT_TRUE(fs::exists(*target_.path));
}

TEST_F(RunReportTest, NoPathNoFolderOrAReadOnlyFolderMeansWordCouldNotStart) {
  bool body_ran = false;
  const auto body = [&](ReportWriter&) { body_ran = true; };
  std::ofstream(dir_ / "plain-file") << "x";
  // /proc takes no new file even from root; for anyone else a folder without write permission.
  const kestra::testing::TempFolder ro_folder;
  fs::path ro = "/proc";
  if (::geteuid() != 0) {
    ro = ro_folder.path();
    fs::permissions(ro, fs::perms::owner_read | fs::perms::owner_exec);
  }
  const std::optional<std::string> paths[] = {std::nullopt, (dir_ / "missing" / "r.docx").string(),
                                              (dir_ / "plain-file" / "r.docx").string(), (ro / "报告.docx").string()};
  for (const auto& path : paths) {
    target_.path = path;
    EXPECT_FALSE(Write(body));
    if (path) {
      EXPECT_FALSE(fs::exists(*path)) << *path;
    }
  }
  options_.open_failure_message = kestra::report::kDieselOpenFailureMessage;
  EXPECT_FALSE(Write(body));
  EXPECT_FALSE(body_ran);
  EXPECT_EQ(messages_, (std::vector<std::string>{"Create Word Instance Failed!", "Create Word Instance Failed!",
                                                 "Create Word Instance Failed!", "Create Word Instance Failed!",
                                                 "创建Word实例失败!"}));
  EXPECT_EQ(Files(), std::vector<std::string>{"plain-file"});
  EXPECT_TRUE(target_.shown.empty());
  // No path has no cause to tell; each folder that takes no file is named with the reason.
  ASSERT_EQ(target_.causes.size(), 4u);  // the last path twice
  for (std::size_t i = 0; i < 4; ++i) {
    const std::string& folder = fs::path(*paths[std::min<std::size_t>(i + 1, 3)]).parent_path().string();
    EXPECT_NE(target_.causes[i].find(folder + "/"), std::string::npos) << target_.causes[i];
  }
  if (ro != "/proc") {
    fs::permissions(ro, fs::perms::owner_all);
    EXPECT_TRUE(fs::is_empty(ro));
  }
}

TEST_F(RunReportTest, NeverWritesOverAnExistingFileButTakesTheNextFreeName) {
  const auto put = [&](const char* name, const char* text) { std::ofstream(dir_ / name) << text; };
  put("报告.docx", "the designer's own file");
  EXPECT_TRUE(Write(kestra::report::testing::WriteSampleReport));
  // Taken while the report was being written, by another writer: the next one after it.
  EXPECT_TRUE(Write([&](ReportWriter& w) {
    kestra::report::testing::WriteSampleReport(w);
    put("报告 (3).docx", "another writer's");
  }));
  EXPECT_TRUE(messages_.empty());
  EXPECT_EQ(target_.shown, (std::vector<std::string>{(dir_ / "报告 (2).docx").string(), (dir_ / "报告 (4).docx").string()}));
  EXPECT_EQ(ReadAll(dir_ / "报告.docx"), "the designer's own file");
  EXPECT_EQ(ReadAll(dir_ / "报告 (3).docx"), "another writer's");
  EXPECT_EQ(Files(), (std::vector<std::string>{"报告 (2).docx", "报告 (3).docx", "报告 (4).docx", "报告.docx"}));
}

// A failure stops the report where it happened; what was written before it stays in the
// document, which the designer is shown before the message. Only a document that cannot be
// stored leaves nothing.
TEST_F(RunReportTest, FailuresInTheBodyKeepWhatWasWrittenAndSayWhatHappened) {
  const std::string dispatch =
      "COleDispatchException. SCODE: 00001735,Description: \"The requested member of the collection does not exist.\".";
  // The diesel report: a failure before its header is done has a message of its own.
  const auto diesel_fail_at = [](int step) {
    return [step](ReportWriter& w) {
      w.TitleBlock("柴油发电机组容量计算");
      if (step == 0) throw std::runtime_error("header");
      w.InsertPlainRun("计 算 者:");
      w.MarkHeaderDone();
      if (step == 1) throw std::runtime_error("body");
      w.NewParagraph();
    };
  };
  struct Case {
    bool diesel;
    std::function<void(ReportWriter&)> body;
    std::string message;
    std::vector<std::string> kept, lost;  // texts in the stored document, and not in it
  };
  const Case cases[] = {
      {false, [](ReportWriter& w) { w.TitleBlock("已写的标题"); throw std::runtime_error("boom"); w.BodyBlock("未写"); },
       "Catch All Other ERROR", {"已写的标题"}, {"未写"}},
      {false, [](ReportWriter& w) { w.BodyBlock("正文一"); w.SetParagraphStyle("标题 7", 0); w.BodyBlock("未写"); },
       dispatch, {"正文一"}, {"未写"}},
      {false, [](ReportWriter&) { throw COleException(0x80030070u, "disk full"); }, "COleException. SCODE: 80030070.", {}, {}},
      {false, [](ReportWriter& w) { w.BodyBlock("x<U>2</U>"); throw 42; }, "Catch All Other ERROR", {"superscript"}, {}},
      {true, diesel_fail_at(0), "Catch All ERROR", {"柴油发电机组容量计算"}, {"计 算 者"}},
      {true, diesel_fail_at(1), "Catch All Other ERROR", {"计 算 者:"}, {}},
      {true, [](ReportWriter& w) { w.SetParagraphStyle("x", 0); }, dispatch, {}, {}},  // not an "other" error
  };
  for (const auto& c : cases) {
    messages_.clear();
    target_.shown.clear();
    std::size_t shown_before_message = 0;
    if (c.diesel) options_.header_failure_message = kestra::report::kDieselHeaderErrorMessage;
    EXPECT_FALSE(RunReport(
        target_,
        [&](const std::string& m) {
          messages_.push_back(m);
          shown_before_message = target_.shown.size();
        },
        c.body, options_))
        << c.message;
    EXPECT_EQ(messages_, std::vector<std::string>{c.message});
    ASSERT_EQ(target_.shown, std::vector<std::string>{*target_.path}) << c.message;
    EXPECT_EQ(shown_before_message, 1u) << c.message;
    const std::optional<std::string> doc = kestra::report::testing::ReadZipMember(*target_.path, "word/document.xml");
    ASSERT_TRUE(doc.has_value()) << c.message;
    for (const std::string& t : c.kept) EXPECT_NE(doc->find(t), std::string::npos) << c.message << ": " << t;
    for (const std::string& t : c.lost) EXPECT_EQ(doc->find(t), std::string::npos) << c.message << ": " << t;
    fs::remove(*target_.path);
  }
  EXPECT_TRUE(Files().empty());
  target_.shown.clear();
  messages_.clear();
  EXPECT_TRUE(Write(diesel_fail_at(2)));
  EXPECT_TRUE(messages_.empty());
  EXPECT_EQ(target_.shown.size(), 1u);
  fs::remove(*target_.path);

  // A document that cannot be stored leaves no file: the storing failure is told, or the body's
  // own failure when the body had failed first.
  kestra::fileio::testing::SetBeforePublishHook([](const std::string&) { return false; });
  options_.header_failure_message.reset();
  target_.shown.clear();
  messages_.clear();
  EXPECT_FALSE(Write(kestra::report::testing::WriteSampleReport));
  EXPECT_FALSE(Write([](ReportWriter& w) { w.TitleBlock("t"); throw std::runtime_error("boom"); }));
  kestra::fileio::testing::SetBeforePublishHook(nullptr);
  EXPECT_EQ(messages_, (std::vector<std::string>{"COleException. SCODE: 80004005.", "Catch All Other ERROR"}));
  EXPECT_TRUE(target_.shown.empty());
  EXPECT_TRUE(Files().empty());
}

// The status code says what the system said, in Windows' numbers (winerror.h); a full disk is
// ERROR_DISK_FULL (112), never the number the errno happens to have (28, ERROR_OUT_OF_PAPER).
TEST(ReportErrors, FileErrorsKeepTheirMeaning) {
  const std::pair<int, const char*> cases[] = {
      {ENOSPC, "80070070"}, {EDQUOT, "8007050f"}, {EACCES, "80070005"}, {EROFS, "80070013"},
      {EEXIST, "80070050"}, {ENOENT, "80070003"}, {EFBIG, "800700df"}, {ENOTSOCK, "80004005"},
  };
  for (const auto& [err, code] : cases) {
    const COleException e(kestra::report::HresultFromErrno(err), "x");
    EXPECT_EQ(kestra::report::OleExceptionMessage(e), std::string("COleException. SCODE: ") + code + ".") << err;
  }
}

TEST_F(RunReportTest, UniqueReportPathsAreReadableAndFree) {
  std::tm t{};
  t.tm_year = 2026 - 1900, t.tm_mon = 10, t.tm_mday = 22, t.tm_hour = 9, t.tm_min = 5, t.tm_sec = 7;
  const std::string dir = dir_.string(), stamp = " 2026-11-22 090507";
  const auto name = [&](const std::string& title) { return fs::path(UniqueReportPath(dir, title, t)).filename().string(); };
  // A taken name gets a number; a "/" after the folder changes nothing.
  for (const char* suffix : {"", " (2)", " (3)"}) {
    const std::string path = UniqueReportPath(*suffix == ' ' ? dir + "/" : dir, "无功功率补偿计算书", t);
    EXPECT_EQ(path, dir + "/无功功率补偿计算书" + stamp + suffix + ".docx");
    std::ofstream(path) << "x";
  }
  // Names a file system would refuse, hide or find too long.
  EXPECT_EQ(name("a/b\\c:d*e?\"<>|\t"), "a_b_c_d_e______" + stamp + ".docx");
  EXPECT_EQ(name(" .."), "计算书" + stamp + ".docx");
  EXPECT_LE(name("计" + std::string(300, 'x')).size(), 255u - 4);
  std::string chinese;
  for (int i = 0; i < 100; ++i) chinese += "电";
  EXPECT_EQ(name(chinese), chinese.substr(0, 198) + stamp + ".docx");  // cut between characters
}

// Schedules through "kestra batch" with the staged data root's catalogues: what a designer gets
// back for good, failing and malformed rows. Expected values are worked by hand in the comments.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "batch/batch_command.h"
#include "services/tabledb/catalog_csv.h"
#include "tests/report/zip_reader.h"

namespace fs = std::filesystem;

namespace {

struct Result {
  int status = -1;
  std::string out, err;
  std::map<std::size_t, std::map<std::string, std::string>> rows;  // by schedule line, by column
};

class BatchTest : public ::testing::Test {
 protected:
  void SetUp() override {
    dir = fs::temp_directory_path() / ("kestra_batch_" + std::to_string(::getpid()) + "_" +
                                       ::testing::UnitTest::GetInstance()->current_test_info()->name());
    fs::remove_all(dir);
    fs::create_directories(dir);
  }
  void TearDown() override { fs::remove_all(dir); }

  Result Run(const std::string& kind, const std::string& csv, std::vector<std::string> extra = {}) {
    const std::string in = (dir / "schedule.csv").string(), out = (dir / "results.csv").string();
    std::ofstream(in, std::ios::binary) << csv;
    std::vector<std::string> args{kind, in, "--out", out};
    args.insert(args.end(), extra.begin(), extra.end());
    std::ostringstream o, e;
    Result r;
    r.status = kestra::batch::RunBatchCommand(args, KESTRA_ROOT_DIR, o, e);
    r.out = o.str();
    r.err = e.str();
    std::string content, error;
    kestra::catalog::CsvTable t;
    if (kestra::catalog::ReadWholeFile(out, content, error) && kestra::catalog::ParseCsv(content, out, t, error)) {
      for (const auto& row : t.rows) {
        auto& m = r.rows[std::stoul(row[1])];
        for (std::size_t c = 0; c < row.size(); ++c) m[t.header[c]] = row[c];
      }
    }
    return r;
  }

  fs::path dir;
};

const std::string kLossHeader = "回路,线路种类,线路表,索引1,索引2,索引3,电阻Ω/km,感抗Ω/km,电压kV,电流A,有功kW,长度km,功率因数,允许压降%\r\n";
const std::string kYjv = "0.6/1kV YJV/YJLV交联聚乙烯绝缘电缆(90℃)";

TEST_F(BatchTest, VoltageLossRowsAreComputedOrRefusedByLineAndColumn) {
  const std::string csv = "\xEF\xBB\xBF" + kLossHeader +
      "\"WP1, 水泵\",三相平衡负荷线路,,,,,0.193,0.08,0.38,100,,0.5,0.8,5\r\n"  // line 2
      "\"WL1\n照明\",3,,,,,0.193,0.08,0.38,100,,0.5,0.8,5\r\n"                  // lines 3-4
      "WP2,0," + kYjv + ",铜,50,,,,,,30,0.1,0.85,5\r\n"                        // line 5
      "WP3,0,,,,,0.193,0.08,0.38,abc,,0.5,0.8,5\r\n"                           // line 6
      "WP4,0,不存在的表,铜,50,,,,,100,,0.5,0.8,5\r\n"                           // line 7
      "WP5,0,,,,,0.193,0.08\r\n"                                                // line 8
      "WP6,0," + kYjv + ",铜,51,,,,,100,,0.5,0.8,5\r\n"                        // line 9
      "WP7,0,,,,,0.193,0.08,0.38,100,,0.5,0.8,0\r\n";                          // line 10
  Result r = Run("voltage-loss", csv, {"--report", (dir / "summary.docx").string()});
  EXPECT_EQ(r.status, kestra::batch::kSomeRefused);
  ASSERT_EQ(r.rows.size(), 8u) << r.err;

  struct Want {
    std::size_t line;
    const char* verdict;
    const char* du;       // "%.3f"
    const char* length;   // permissible length
    const char* note;     // part of the explanation
  };
  const Want want[] = {
      // A = 0.193·0.8 + 0.08·0.6 = 0.2024; Δu = 0.2024·100·0.5·1.732/(0.38·10) = 4.6127;
      // l = 5·10·0.38/(100·1.732·0.2024) = 0.5420
      {2, "合格", "4.613", "0.542", ""},
      // kind 3: Δu = 0.2024·100·0.5·2/(3.8/1.732) = 9.2252; l = 5·10·(0.38/1.732)/(200·0.2024) = 0.2710
      {3, "超限", "9.225", "0.271", "电压损失Δu=9.225%大于允许值5%"},
      // YJV Cu 50: R′ 0.4935, X′ 0.083, U 0.38; sinφ = 0.52678; B = 0.4935 + 0.083·0.52678/0.85 = 0.54494;
      // Δu = 0.54494·30·0.1/(0.38·10·0.38) = 1.1322; l = 5·10·0.1444/(0.54494·30) = 0.4416
      {5, "合格", "1.132", "0.442", ""},
      {6, "拒绝", "", "", "第6行, 列'电流A': '负荷计算电流'输入非法, 请输入大于0的实数!"},
      {7, "拒绝", "", "", "第7行, 列'线路表': 线路数据库中没有表'不存在的表'"},
      {8, "拒绝", "", "", "第8行, 列'电压kV': 缺少此列"},
      {9, "拒绝", "", "", "第9行, 列'索引1': "},
      {10, "拒绝", "", "", "第10行, 列'允许压降%': '线路电压损失'输入非法, 请输入大于0的实数!"},
  };
  for (const Want& w : want) {
    SCOPED_TRACE(w.line);
    auto row = r.rows.at(w.line);
    EXPECT_EQ(row["结论"], w.verdict);
    EXPECT_EQ(row["Δu%"], w.du);
    EXPECT_EQ(row["允许长度km"], w.length);
    EXPECT_NE(row["说明"].find(w.note), std::string::npos) << row["说明"];
  }
  EXPECT_EQ(r.rows.at(2)["回路"], "WP1, 水泵");
  EXPECT_EQ(r.rows.at(5)["线路"], kYjv + " 铜/50");
  EXPECT_NE(r.err.find(":第6行, 列'电流A'"), std::string::npos);

  // The summary: one table row per circuit after the header, the failing and refused ones marked
  // (12 cells a marked row… 8 columns × 7 rows), and a line per failure.
  std::string report;
  for (const auto& f : fs::directory_iterator(dir))
    if (f.path().extension() == ".docx") report = f.path().string();
  const auto xml = kestra::report::testing::ReadZipMember(report, "word/document.xml");
  ASSERT_TRUE(xml.has_value()) << r.out;
  std::size_t rows = 0, marked = 0;
  for (auto at = xml->find("<w:tr>"); at != std::string::npos; at = xml->find("<w:tr>", at + 1)) ++rows;
  for (auto at = xml->find("F2DCDB"); at != std::string::npos; at = xml->find("F2DCDB", at + 1)) ++marked;
  EXPECT_EQ(rows, 9u);
  EXPECT_EQ(marked, 8u * 6u);
  for (const char* text : {"电压损失批量计算书", "输入文件：schedule.csv", "WL1\n照明：电压损失Δu=9.225%大于允许值5%"}) {
    const std::string t = text;
    const std::string in_xml = t.substr(0, t.find('\n'));
    EXPECT_NE(xml->find(in_xml), std::string::npos) << text;
  }
}

TEST_F(BatchTest, MotorStartsWithTheReactorAndRatioThatWouldPass) {
  const std::string header =
      "电机,系列,型号,功率kW,转速r/min,额定电流A,起动电流A,额定电压kV,起动方式,短路容量MVA,变压器容量MVA,阻抗电压,"
      "电抗Ω,变比,预接负荷MVA,功率因数,母线电压kV,线缆类型,截面mm2,长度km,要求Ustm\n";
  const std::string motor = ",,,200,1480,337,2025,0.38,";
  const std::string rest = ",0.4,0.8,0.38,铜,120,0.025,";
  Result r = Run("motor-start", header +
      "M1" + motor + "全压起动,50,0.63,0.045,," + rest + "0.9\n" +          // line 2
      "M2" + motor + "全压起动,50,0.63,0.045,," + rest + "0.85\n" +         // line 3
      "M3,YE3,YE3-999,,,,,,全压起动,50,0.63,0.045,," + rest + "0.85\n" +    // line 4
      "M4" + motor + "全压起动,abc,0.63,0.045,," + rest + "0.85\n" +        // line 5
      "M5" + motor + "自耦变压器降压起动,10.9375,,,,1" + rest + "0.85\n" +   // line 6
      "M6" + motor + "全压起动,50,0.63,0.045,,,0.4,0.8,0.38,铜,120,0.025,1\n");  // line 7
  EXPECT_EQ(r.status, kestra::batch::kSomeRefused);
  ASSERT_EQ(r.rows.size(), 6u) << r.err;
  // Skm = 0.63/(0.045 + 0.63/50) = 10.9375; Sstm = (2025/337)·1.732·0.38·337/1000 = 1.33278;
  // Xl = (0.08 + 18.3/120)·0.025 = 0.0058125; Sst = 1/(1/1.33278 + 0.0058125/0.1444) = 1.26492;
  // Qfh = 0.4·0.6 = 0.24; Ustm = 11.1775/(11.1775 + 1.26492) = 0.89834; ustM = Ustm·Sst/Sstm = 0.85260;
  // Istm = 0.89834·1.26492/(1.732·0.38)·1000 = 1726.5
  for (std::size_t line : {2u, 3u, 6u}) {
    auto row = r.rows.at(line);
    EXPECT_EQ(row["母线电压Ustm"], "0.898") << line;
    EXPECT_EQ(row["端子电压ustM"], "0.853") << line;
    EXPECT_EQ(row["起动电流A"].substr(0, 6), "1726.5") << line;
  }
  EXPECT_EQ(r.rows.at(2)["结论"], "不合格");
  EXPECT_EQ(r.rows.at(3)["结论"], "合格");
  EXPECT_EQ(r.rows.at(6)["电抗器降压起动"], "");  // a reduced-voltage start gets no suggestion
  // For Ustm 0.9: Sst = 11.1775/0.9 − 11.1775 = 1.24194; Xk = 0.1444·(1/1.24194 − 0.0058125/0.1444
  // − 1/1.33278) = 0.0021 Ω. X = 1.33278·(1/1.24194 − 0.040253) = 1.01950, Kz = 1/√X = 0.99039; the
  // tap 0.8 with the re-check's cable (0.07 + 6.3/120)·0.025 = 0.0030625: Sst = 1/(1/(0.64·1.33278)
  // + 0.0030625/0.1444) = 0.83783, Ustm = 11.1775/(11.1775 + 0.83783) = 0.93027
  EXPECT_NE(r.rows.at(2)["电抗器降压起动"].find("(Xk=0.002Ω)"), std::string::npos);
  EXPECT_EQ(r.rows.at(2)["自耦变压器降压起动"], "Kz=0.990, 选用0.8: Ustm=0.930");
  EXPECT_NE(r.rows.at(4)["说明"].find("第4行, 列'型号': 系列'YE3'中没有型号'YE3-999'"), std::string::npos);
  EXPECT_NE(r.rows.at(5)["说明"].find("第5行, 列'短路容量MVA': 'abc'不是数值"), std::string::npos);
  EXPECT_NE(r.rows.at(7)["说明"].find("列'要求Ustm'"), std::string::npos);
}

TEST_F(BatchTest, TenThousandRowScheduleWithCatalogueLookups) {
  // Every row a catalogue cable of its own section; one row in a thousand names a missing one.
  const char* sections[] = {"10", "16", "25", "35", "50", "70", "95", "120"};
  std::string csv = kLossHeader;
  for (int i = 0; i < 10000; ++i) {
    const std::string section = i % 1000 == 999 ? "11" : sections[i % 8];
    csv += "C" + std::to_string(i) + ",0," + kYjv + ",铜," + section + ",,,,,50,,0.05,0.85,5\r\n";
  }
  Result r = Run("voltage-loss", csv);
  EXPECT_EQ(r.status, kestra::batch::kSomeRefused);
  ASSERT_EQ(r.rows.size(), 10000u);
  std::size_t refused = 0;
  for (auto& [line, row] : r.rows) {
    if (row["结论"] == "拒绝") {
      ++refused;
      EXPECT_EQ((line - 2) % 1000, 999u);
    }
  }
  EXPECT_EQ(refused, 10u);
  EXPECT_NE(r.out.find("10000 rows: 9990 passed, 0 failed, 10 refused"), std::string::npos);
}

// The same two circuits as spreadsheets save them: with or without a BOM, lines ended by CRLF, LF
// or a lone CR ("CSV (Macintosh)"). Δu = 0.2024·100·0.5·1.732/(0.38·10) = 4.613 % for WP1;
// WP2 at 0.25 km: 2.306 %.
TEST_F(BatchTest, LineEndsAndByteOrderMarkOfSpreadsheets) {
  const std::string rows[] = {"回路,线路种类,电阻Ω/km,感抗Ω/km,电压kV,电流A,有功kW,长度km,功率因数,允许压降%,线路表,索引1,索引2,索引3",
                              "WP1,0,0.193,0.08,0.38,100,,0.5,0.8,5,,,,", "\"WP2\",0,0.193,0.08,0.38,100,,0.25,0.8,5,,,,"};
  for (const char* bom : {"", "\xEF\xBB\xBF"}) {
    for (const char* end : {"\r\n", "\n", "\r"}) {
      SCOPED_TRACE(std::string(bom) + (end[0] == '\n' ? "LF" : end[1] ? "CRLF" : "CR"));
      Result r = Run("voltage-loss", bom + rows[0] + end + rows[1] + end + rows[2] + end);
      EXPECT_EQ(r.status, kestra::batch::kAllPassed) << r.err;
      ASSERT_EQ(r.rows.size(), 2u) << r.err;
      EXPECT_EQ(r.rows.at(2)["Δu%"], "4.613");
      EXPECT_EQ(r.rows.at(3)["Δu%"], "2.306");
      EXPECT_EQ(r.rows.at(3)["回路"], "WP2");
    }
  }
}

TEST_F(BatchTest, ScheduleThatCannotRunWritesNothing) {
  struct Case {
    const char* what;
    std::string csv;
    const char* error;
  };
  const Case cases[] = {
      {"header without a required column", "回路,线路种类,长度km,允许压降%\nA,0,1,5\n", "no column \"功率因数\""},
      {"a quote left open", kLossHeader + "\"A,0\n", "a quoted field is not closed"},
      {"not UTF-8", kLossHeader + "\xB5\xE7,0\n", "not valid UTF-8"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    Result r = Run("voltage-loss", c.csv);
    EXPECT_EQ(r.status, kestra::batch::kNotRun);
    EXPECT_NE(r.err.find(c.error), std::string::npos) << r.err;
    EXPECT_FALSE(fs::exists(dir / "results.csv"));
  }
  // Results named as the schedule itself (by another spelling of its path) would replace it.
  const std::string csv = kLossHeader + "WP1,0,,,,,0.193,0.08,0.38,100,,0.5,0.8,5\r\n";
  std::ofstream(dir / "schedule.csv", std::ios::binary) << csv;
  std::ostringstream o, e;
  const std::string same = (dir / "." / "schedule.csv").string();
  EXPECT_EQ(kestra::batch::RunBatchCommand({"voltage-loss", (dir / "schedule.csv").string(), "--out", same}, KESTRA_ROOT_DIR, o, e),
            kestra::batch::kNotRun);
  EXPECT_NE(e.str().find("is the schedule itself"), std::string::npos) << e.str();
  // A report named by a folder: refused, nothing written beside it.
  std::ostringstream o2, e2;
  EXPECT_EQ(kestra::batch::RunBatchCommand({"voltage-loss", (dir / "schedule.csv").string(), "--report", dir.string()}, KESTRA_ROOT_DIR,
                                           o2, e2),
            kestra::batch::kNotRun);
  EXPECT_NE(e2.str().find("is a folder"), std::string::npos) << e2.str();
  EXPECT_FALSE(fs::exists(dir.string() + " (2)"));
  std::string content, error;
  ASSERT_TRUE(kestra::catalog::ReadWholeFile((dir / "schedule.csv").string(), content, error));
  EXPECT_EQ(content, csv);
}

}  // namespace

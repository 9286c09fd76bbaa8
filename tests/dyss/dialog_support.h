#pragma once
// The voltage-loss dialog as a designer uses it, in a host without windows: a data root of its
// own with a line catalogue built here, the command run with a driver, the parameter file and
// the written reports read back.
#include <gtest/gtest.h>

#include <cstring>
#include <filesystem>
#include <functional>
#include <regex>
#include <string>
#include <vector>

#include "dyss/dyss_command.h"
#include "dyss/dyss_dialog.h"
#include "services/idp/idp_values.h"
#include "services/idp/inter_dp_data.h"
#include "services/tabledb/ado.h"
#include "services/tabledb/catalog.h"
#include "tests/report/zip_reader.h"
#include "tests/shell/test_module.h"
#include "tests/tabledb/test_support.h"
#include "ui/actions.h"

namespace kestra::dyss::testing {

namespace fs = std::filesystem;
using Texts = std::vector<std::string>;

// The catalogue, in its order. "示例电缆" holds the handbook's example lines: 95 is the line of
// the voltage-loss examples (R′ 0.193, X′ 0.08, U 0.38), 150 the line of the length examples
// (R′ 0.5); its natural order is 95, 120, 150.
inline const char* const kTables = "a.csv\t示例电缆\nb.csv\t三列\nc.csv\t无索引\nd.csv\t空表\ne.csv\t两列\n";
inline const char* const kExampleLine =
    "序号,￥截面,R,X,U\n1,95,0.193,0.08,0.38\n2,150,0.5,0.08,0.38\n3,120,0.153,0.075,0.38\n";
inline const char* const kThreeKeys =
    "序号,￥芯数,￥截面,￥敷设,R,X,U\n1,1,10,空气,1.83,0.1,0.4\n2,1,20,空气,0.9,0.09,0.4\n3,1,30,空气,0.6,0.09,0.4\n"
    "4,1,40,空气,0.45,0.08,0.4\n5,1,50,空气,0.36,0.08,0.4\n6,2,10,土壤,1.9,0.11,0.4\n7,2,60,土壤,0.3,0.07,0.4\n"
    "8,1,40,土壤,0.46,0.081,0.4\n9,2,40,土壤,0.47,0.082,0.4\n";
inline const char* const kNoKeys = "序号,R,X,U\n1,0.5,0.08,0.38\n2,0.6,0.09,0.4\n";
inline const char* const kNoRows = "序号,￥截面,R,X,U\n";
inline const char* const kTwoKeys = "序号,￥型号,￥截面,R,X,U\n1,LJ,25,1.28,0.345,0.38\n2,LGJ,35/6,0.85,0.336,0.38\n3,LJ,16,2.0,0.358,0.38\n";

class DyssDialogTest : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    dir_ = new tabledb::test::TempDir;
    for (const auto& [name, text] : {std::pair{"tables.txt", kTables}, {"a.csv", kExampleLine}, {"b.csv", kThreeKeys},
                                     {"c.csv", kNoKeys}, {"d.csv", kNoRows}, {"e.csv", kTwoKeys}})
      tabledb::test::WriteFile(*dir_ / ("src/" + std::string(name)), text);
    ASSERT_EQ(catalog::BuildCatalogue(*dir_ / "src", *dir_ / "cat.db"), "");
  }
  static void TearDownTestSuite() { delete dir_; }
  void SetUp() override { fs::copy_file(*dir_ / "cat.db", root_ / "datcom/DyssCal.Mdb"); }

  fs::path ParamFile() const { return root_ / "Kestra/电压损失计算.idp"; }
  std::string Stored(const std::string& key) const {
    CInterDpData tree;
    tree.ReadDataFromIdpFile(ParamFile().string());
    const auto* node = tree.GetSubValueFromPathW(0, key);
    return node ? node->Text() : "<missing>";
  }
  void Store(const std::vector<std::pair<std::string, std::string>>& keys) {
    CInterDpData tree;
    tree.ReadDataFromIdpFile(ParamFile().string());
    for (const auto& [k, v] : keys) idp::SetValue(tree, k, v);
    tree.WriteDataToIdpFile(ParamFile().string());
  }

  // Runs "DYSSCAL" with a driver for the dialog.
  void Run(const std::function<void(CDyssCalDlg&)>& drive) {
    host_.SetDriver([&](ui::Dialog& d) { drive(dynamic_cast<CDyssCalDlg&>(d)); });
    shell::ModuleScope scope(module_.context());
    RunDyssCommand(module_.context());
    host_.SetDriver(nullptr);
  }
  std::string Transcript() const { return module_.transcript(); }
  // The path of the last report written.
  std::string LastReport() const {
    const std::string t = Transcript();
    const auto at = t.rfind("[report] ");
    return at == std::string::npos ? std::string() : t.substr(at + 9, t.find('\n', at) - at - 9);
  }

  static ui::Control& C(ui::Dialog& d, int id) {
    ui::Control* c = ui::FindControl(d, id);
    return c ? *c : throw std::runtime_error("no control " + std::to_string(id));
  }
  static std::string T(ui::Dialog& d, int id) { return C(d, id).GetWindowText(); }
  static void Set(ui::Dialog& d, std::initializer_list<std::pair<int, const char*>> texts) {
    for (const auto& [id, text] : texts) ui::act::SetText(C(d, id), text);
  }
  static void Select(ui::Dialog& d, int id, int index) { ui::act::Select(C(d, id), index); }
  static void Press(ui::Dialog& d, const char* caption) { ui::act::Click(*ui::FindControlByLabel(d, caption)); }

  static tabledb::test::TempDir* dir_;
  kestra::testing::TestModule module_;
  const fs::path& root_ = module_.root();
  ui::HeadlessHost& host_ = module_.ui();
};
inline tabledb::test::TempDir* DyssDialogTest::dir_ = nullptr;

// The paragraphs of a written report as a reader sees them: tabs as "\t", a superscript run
// between "<U>" and "</U>" (the writer follows each with a plain space, so a line written
// "…<U>2</U>)" reads "…<U>2</U> )").
inline Texts ReportParagraphs(const std::string& docx) {
  const auto xml = report::testing::ReadZipMember(docx, "word/document.xml");
  if (!xml) return {"<no document>"};
  static const std::regex para("<w:p>(.*?)</w:p>"), run("<w:r>(.*?)</w:r>"),
      piece("<w:t(?: [^>]*)?>([^<]*)</w:t>|<w:tab/>");
  auto unescape = [](std::string s) {
    for (const auto& [from, to] : {std::pair{"&lt;", "<"}, {"&gt;", ">"}, {"&quot;", "\""}, {"&amp;", "&"}})
      for (auto at = s.find(from); at != std::string::npos; at = s.find(from, at + 1)) s.replace(at, std::strlen(from), to);
    return s;
  };
  Texts out;
  for (std::sregex_iterator p(xml->begin(), xml->end(), para), end; p != end; ++p) {
    const std::string body = (*p)[1];
    std::string text;
    for (std::sregex_iterator r(body.begin(), body.end(), run); r != end; ++r) {
      const std::string rx = (*r)[1];
      std::string t;
      for (std::sregex_iterator k(rx.begin(), rx.end(), piece); k != end; ++k)
        t += (*k)[0].str() == "<w:tab/>" ? std::string("\t") : unescape((*k)[1].str());
      text += rx.find("superscript") != std::string::npos ? "<U>" + t + "</U>" : t;
    }
    out.push_back(text);
  }
  return out;
}

// A report text as its format strings write it, split into the paragraphs it makes: each line
// feed ends one, and a superscript run is followed by a space.
inline Texts Paragraphs(std::string text) {
  for (auto at = text.find("</U>"); at != std::string::npos; at = text.find("</U>", at + 1)) text.insert(at + 4, " ");
  Texts out(1);
  for (char c : text) {
    if (c == '\n') out.emplace_back();
    else out.back() += c;
  }
  return out;
}

}  // namespace kestra::dyss::testing

#pragma once
// The motor-start calculator in a module of its own: a data root with catalogues written by
// the tests (motors, transformers, starting reactors), the staged slides, description pages and
// table file, and a driver for the dialog in the host without windows.
#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

#include "djqd/djqd_command.h"
#include "djqd/djqd_dialog.h"
#include "djqd/djqd_ids.h"
#include "djqd/djqd_messages.h"
#include "services/idp/idp_values.h"
#include "services/idp/inter_dp_data.h"
#include "services/tabledb/catalog.h"
#include "tests/shell/test_module.h"
#include "tests/tabledb/test_support.h"
#include "ui/actions.h"

namespace kestra::djqd::test {

using Strings = std::vector<std::string>;
using kestra::tabledb::test::ReadFile;
using kestra::tabledb::test::WriteFile;

// Tables of a catalogue: name and CSV text (first field a row number, "￥" marks search columns).
using Tables = std::vector<std::pair<std::string, std::string>>;

class DjqdDialog : public ::testing::Test {
 protected:
  void SetUp() override {
    namespace fs = std::filesystem;
    const fs::path staged = KESTRA_ROOT_DIR;
    for (const char* f : {"Image/djqd.slb", "Image/JxQdZj.Rtf", "Image/Djqdsj.Rtf", "datcom/tabdata.idp"})
      fs::copy_file(staged / f, root_ / f);
    WriteCatalogue("Motor.Mdb",
                   {{"电机",
                     "序号,￥系列名称,￥型号,功率kW,转速r/min,额定电流A,起动电流A,额定电压kV\n"
                     "1,YB,355M-4,250,1485,450,3150,0.38\n2,Y,315S-4,110,1480,200,1400,0.38\n"
                     "3,Y,355M-4,185,980,337,2025,0.38\n4,JS,JS-35/10,500,1480,60,390,6\n"
                     "5,YB,315S-4,112,1480,205,1435,0.38\n6,Y,280S-4,75,1480,140,980,0.38\n"
                     "7,JS,JS-4/1,260,980,31,200,6\n"}});
    WriteCatalogue("ByqZK.mdb", {{"干式",
                                  "序号,￥系列,型号,容量kVA,短路电压%\n1,SCB10,SCB10-630,630,6\n"
                                  "2,SCB10,SCB10-1000,1000,6\n3,SCB13,SCB13-800,800,6\n"},
                                 {"油浸", "序号,型号,容量kVA,短路电压%\n1,S11-500,500,4\n"}});
    WriteCatalogue("QdDkq.mdb", {{"起动电抗器数据",
                                  "序号,￥型 号,容量kVA,短路电压%,每相额定电抗Ω,起动电流A,额定电压kV\n"
                                  "1,QKSG-200,100,10,5.2,200,6\n2,QKSG-300,150,12,5.2,300,6\n"
                                  "3,QKSG-250,125,11,5.2,250,6\n4,QKSG-X,9000,20,5.2,15000,6\n"
                                  "5,QKSG-36,80,9,3.6,400,6\n6,QKSG-63,60,8,6.3,100,6\n"}});
  }

  void WriteCatalogue(const std::string& file, const Tables& tables) {
    const std::string src = (root_ / "src" / file).string();
    std::filesystem::remove_all(src);
    std::string list;
    for (std::size_t i = 0; i < tables.size(); ++i) {
      const std::string csv = std::to_string(i) + ".csv";
      WriteFile(src + "/" + csv, tables[i].second);
      list += csv + "\t" + tables[i].first + "\n";
    }
    WriteFile(src + "/tables.txt", list);
    std::filesystem::remove(root_ / "datcom" / file);
    ASSERT_EQ(kestra::catalog::BuildCatalogue(src, (root_ / "datcom" / file).string()), "");
  }

  // Runs the command with a driver for the main dialog.
  void Run(const std::function<void(CDjqdCalDlg&)>& drive) {
    host_.SetDriver([&](ui::Dialog& d) { drive(dynamic_cast<CDjqdCalDlg&>(d)); });
    kestra::shell::ModuleScope scope(module_.context());
    RunDjqdCommand(module_.context());
    host_.SetDriver(nullptr);
  }

  std::string ParamFile() const { return (root_ / "Kestra/电机启动计算.idp").string(); }
  std::string Stored(const std::string& key) const {
    CInterDpData tree;
    tree.ReadDataFromIdpFile(ParamFile());
    const auto* node = tree.GetSubValueFromPathW(0, FullKey(key.c_str()));
    return node ? node->Text() : "<missing>";
  }
  void ExpectStored(std::initializer_list<std::pair<const char*, const char*>> keys) const {
    for (const auto& [key, text] : keys) EXPECT_EQ(Stored(key), text) << key;
  }
  void Store(const std::string& key, const std::string& text) {
    CInterDpData tree;
    tree.ReadDataFromIdpFile(ParamFile());
    idp::SetValue(tree, FullKey(key.c_str()), text);
    tree.WriteDataToIdpFile(ParamFile());
  }

  static ui::Control& C(ui::Dialog& d, int id) {
    ui::Control* c = ui::FindControl(d, id);
    return c ? *c : throw std::runtime_error("no control " + std::to_string(id));
  }
  static std::string T(ui::Dialog& d, int id) { return C(d, id).GetWindowText(); }
  static Strings Texts(ui::Dialog& d, std::initializer_list<int> ids) {
    Strings out;
    for (int id : ids) out.push_back(T(d, id));
    return out;
  }
  static void Set(ui::Dialog& d, int id, const std::string& text) { ui::act::SetText(C(d, id), text); }
  static void Click(ui::Dialog& d, int id) { ui::act::Click(C(d, id)); }
  // Ustm, ustM and Istm of a page.
  static Strings Results(ui::Dialog& d, int page) {
    return Texts(d, {kPageIds[page].ustm, kPageIds[page].ustm_motor, kPageIds[page].istm});
  }
  // The 6 kV motor without a cable on the reactor or ratio page.
  static void Enter6kV(ui::Dialog& d, int skm, int sfh, int cos, int um, int page) {
    const PageIds& p = kPageIds[page];
    const std::pair<int, const char*> texts[] = {{skm, "50"}, {sfh, "0.4"}, {cos, "0.8"}, {um, "6"},
                                                 {p.length, ""}, {p.power, "500"}, {p.speed, "1480"},
                                                 {p.rated_current, "60"}, {p.starting_current, "390"},
                                                 {p.rated_voltage, "6"}};
    for (const auto& [id, text] : texts) Set(d, id, text);
  }

  kestra::testing::TestModule module_;
  const std::filesystem::path& root_ = module_.root();
  ui::HeadlessHost& host_ = module_.ui();
};

}  // namespace kestra::djqd::test

#pragma once
// The generator-capacity dialog run in the headless host with the module's templates,
// driven as a designer would: by control id on the shown page, buttons by caption.
#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <initializer_list>
#include <memory>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "diesel/diesel_dialog.h"
#include "tests/shell/test_module.h"
#include "tests/support/dialog_driver.h"
#include "ui/actions.h"
#include "ui/headless_host.h"

using kestra::diesel::ZoUiCyfdjzrlCalDlg;
using kestra::testing::Ctl;
using kestra::testing::Press;
using kestra::testing::Text;
using kestra::testing::Texts;
using kestra::testing::Type;

class DieselDialogTest : public ::testing::Test {
 protected:
  void SetUp() override {
    host_.SetReportDir(report_dir_.string());
    scope_ = std::make_unique<kestra::shell::ModuleScope>(module_.context());
  }
  void TearDown() override { scope_.reset(); }

  // Runs the dialog modally with the driver; the dialog object outlives the run.
  void Run(ZoUiCyfdjzrlCalDlg& dlg, std::function<void(ui::Dialog&)> driver) {
    host_.SetDriver(std::move(driver));
    dlg.DoModal();
  }

  // The texts of edits on a page, shown or not.
  static std::vector<std::string> PageTexts(const ui::Dialog& page, std::initializer_list<int> ids) {
    std::vector<std::string> out;
    for (int id : ids) out.push_back(page.GetDlgItemText(id));
    return out;
  }
  // Which of the three pages are shown.
  static std::vector<bool> Shown(const ZoUiCyfdjzrlCalDlg& dlg) {
    return {dlg.SteadyLoadPage().IsWindowVisible(), dlg.PeakLoadPage().IsWindowVisible(),
            dlg.BusDropPage().IsWindowVisible()};
  }
  // Types into the shown page, then presses "计算".
  static void Calculate(ui::Dialog& d, std::initializer_list<std::pair<int, const char*>> texts) {
    for (const auto& [id, text] : texts) Type(d, id, text);
    Press(d, "计算");
  }

  kestra::testing::TestModule module_;
  ui::HeadlessHost& host_ = module_.ui();
  const std::filesystem::path report_dir_ = module_.root() / "diesel";  // where "计算书" writes
  std::unique_ptr<kestra::shell::ModuleScope> scope_;
};

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
#include "shell/module_state.h"
#include "ui/actions.h"
#include "ui/headless_host.h"

class DieselDialogTest : public ::testing::Test {
 protected:
  void SetUp() override {
    const auto* info = ::testing::UnitTest::GetInstance()->current_test_info();
    report_dir_ = std::filesystem::path(::testing::TempDir()) / (std::string("diesel_") + info->name());
    std::filesystem::remove_all(report_dir_);
    host_.SetReportDir(report_dir_.string());
    ui::SetCurrentHost(&host_);
    resources_ = std::make_unique<kestra::shell::ModuleResourceScope>();
  }
  void TearDown() override {
    resources_.reset();
    ui::SetCurrentHost(nullptr);
    std::filesystem::remove_all(report_dir_);
  }

  // Runs the dialog modally with the driver; the dialog object outlives the run.
  void Run(ZoUiCyfdjzrlCalDlg& dlg, std::function<void(ui::Dialog&)> driver) {
    host_.SetDriver(std::move(driver));
    dlg.DoModal();
  }

  static ui::Control& Ctl(ui::Dialog& d, int id) {
    ui::Control* c = ui::FindControl(d, id);
    if (!c) throw std::runtime_error("no control " + std::to_string(id));
    return *c;
  }
  static void Type(ui::Dialog& d, int id, const std::string& text) { ui::act::SetText(Ctl(d, id), text); }
  static std::string Text(ui::Dialog& d, int id) { return Ctl(d, id).GetWindowText(); }
  // The texts of several edits: on the shown page, or on a page shown or not.
  static std::vector<std::string> Texts(ui::Dialog& d, std::initializer_list<int> ids) {
    std::vector<std::string> out;
    for (int id : ids) out.push_back(Text(d, id));
    return out;
  }
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
  static void Press(ui::Dialog& d, const std::string& caption) {
    ui::Control* c = ui::FindControlByLabel(d, caption);
    if (!c) throw std::runtime_error("no button " + caption);
    ui::act::Click(*c);
  }
  // Types into the shown page, then presses "计算".
  static void Calculate(ui::Dialog& d, std::initializer_list<std::pair<int, const char*>> texts) {
    for (const auto& [id, text] : texts) Type(d, id, text);
    Press(d, "计算");
  }

  std::filesystem::path report_dir_;  // where "计算书" writes, one folder per test
  std::ostringstream transcript_;
  ui::HeadlessHost host_{transcript_};
  std::unique_ptr<kestra::shell::ModuleResourceScope> resources_;
};

#pragma once
// A fresh folder per test, for the tests that write report files.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "tests/support/temp_folder.h"

namespace kestra::report::testing {

namespace fs = std::filesystem;

class ReportFolderTest : public ::testing::Test {
 protected:
  std::vector<std::string> Files() const { return folder_.Entries(); }
  static std::string ReadAll(const fs::path& p) { return kestra::testing::ReadFile(p); }

  kestra::testing::TempFolder folder_{"kestra_report"};
  const fs::path& dir_ = folder_.path();
};

}  // namespace kestra::report::testing

#pragma once
// A fresh folder per test and small file helpers for the parameter-file tests.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "tests/support/temp_folder.h"

namespace kestra::idp::test {

namespace fs = std::filesystem;

class IdpFolderTest : public ::testing::Test {
 protected:
  std::string Path(const std::string& name) const { return folder_ / name; }
  static void Put(const std::string& path, const std::string& bytes) { kestra::testing::WriteFile(path, bytes); }
  static std::string Get(const std::string& path) { return kestra::testing::ReadFile(path); }
  std::vector<std::string> Entries() const { return folder_.Entries(); }

  kestra::testing::TempFolder folder_{"kestra_idp"};
  const fs::path& dir_ = folder_.path();
};

}  // namespace kestra::idp::test

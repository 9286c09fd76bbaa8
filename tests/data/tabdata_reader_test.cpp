#include <gtest/gtest.h>

#include <string>

#include "services/idp/idp_table.h"
#include "services/text/data_path.h"
#include "services/text/number_text.h"

namespace {
std::string TabData() { return kestra::text::DataPath(KESTRA_ROOT_DIR, "datcom\\tabdata.idp"); }
}  // namespace

TEST(StagedTableFile, BothTablesReadThroughTheTableReader) {
  for (const char* key : {"jsxsc", "DjJzZj"}) {
    std::string error;
    auto t = kestra::idp::ReadTable(TabData(), key, &error);
    ASSERT_TRUE(t.has_value()) << key << ": " << error;
    EXPECT_FALSE(t->title.empty()) << key;
    EXPECT_GE(t->headers.size(), 2u) << key;
    EXPECT_GE(t->rows.size(), 4u) << key;
    for (const auto& row : t->rows) EXPECT_EQ(row.size(), t->headers.size()) << key;
  }
}

TEST(StagedTableFile, ResistingTorqueRangesGiveTheirMean) {
  std::string error;
  auto t = kestra::idp::ReadTable(TabData(), "DjJzZj", &error);
  ASSERT_TRUE(t.has_value()) << error;
  int ranges = 0;
  for (const auto& row : t->rows)
    for (std::size_t c = 1; c < row.size(); ++c) {
      auto tilde = row[c].find('~');
      if (tilde == std::string::npos) continue;
      double lo = kestra::text::WcsToD(row[c].substr(0, tilde));
      double hi = kestra::text::WcsToD(row[c].substr(tilde + 1));
      EXPECT_GT(lo, 0.0) << row[c];
      EXPECT_LT(lo, hi) << row[c];
      ++ranges;
    }
  EXPECT_GT(ranges, 0);
}

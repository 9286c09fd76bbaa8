// The staged table file read by the reader the table display uses (its contents: test_tabdata.py).
#include <gtest/gtest.h>

#include <string>

#include "services/idp/idp_table.h"
#include "services/text/data_path.h"

TEST(StagedTableFile, BothTablesReadThroughTheTableReader) {
  for (const char* key : {"jsxsc", "DjJzZj"}) {
    std::string error;
    const auto t = kestra::idp::ReadTable(kestra::text::DataPath(KESTRA_ROOT_DIR, "datcom\\tabdata.idp"), key, &error);
    ASSERT_TRUE(t.has_value()) << key << ": " << error;
    EXPECT_FALSE(t->title.empty() || t->headers.size() < 2 || t->rows.size() < 4) << key;
  }
}

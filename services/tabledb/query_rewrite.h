#pragma once
// The calculators' query texts, adjusted before they reach SQLite (the text as written is
// run when an adjusted one does not prepare, so errors always speak of what the caller wrote):
// - a table name written without brackets that is not a plain name ("VV/VLV 电缆") is bracketed;
// - "SELECT DISTINCT [c] FROM [t] ..." gives its values in the order of first occurrence even
//   when an index on c exists (SQLite would otherwise walk the index: sorted, not stored order);
// - "c LIKE "v"" without wildcards, on a column of known affinity, gets an equality in front
//   of it that an index can serve; the LIKE itself stays, so the rows found do not change.
#include <string>
#include <vector>

namespace kestra::tabledb {

class Engine;

struct Bind {
  bool is_number = false;
  double number = 0;
  std::string text;
};

struct RewrittenQuery {
  bool changed = false;
  std::string sql;
  std::vector<Bind> binds;  // for ?1, ?2, ... in order
};

RewrittenQuery RewriteQuery(const std::string& query, Engine& engine);

}  // namespace kestra::tabledb

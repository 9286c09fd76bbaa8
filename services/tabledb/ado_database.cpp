#include <sqlite3.h>

#include "services/tabledb/ado.h"
#include "services/tabledb/engine.h"

namespace {

// "path;" (what the calculators build), "Data Source=path;..." or a bare path.
std::string PathOfConnection(const std::string& connection) {
  std::string s = connection;
  const std::string key = "data source=";
  std::string lower;
  for (char c : s) lower += static_cast<char>((c >= 'A' && c <= 'Z') ? c + 32 : c);
  if (auto p = lower.find(key); p != std::string::npos) {
    s = s.substr(p + key.size());
    if (auto e = s.find(';'); e != std::string::npos) s.resize(e);
    return s;
  }
  auto trim = [&s] {
    while (!s.empty() && (s.back() == ' ' || s.back() == '\t' || s.back() == '\r' || s.back() == '\n')) {
      s.pop_back();
    }
  };
  trim();
  if (!s.empty() && s.back() == ';') s.pop_back();
  trim();
  return s;
}

}  // namespace

CADODatabase::CADODatabase() = default;
CADODatabase::~CADODatabase() = default;

bool CADODatabase::Open(const std::string& connection, const std::string&, const std::string&) {
  engine_.reset();
  const std::string path = PathOfConnection(connection);
  if (path.empty()) throw CADOException("no catalogue database named in \"" + connection + "\"");
  engine_ = kestra::tabledb::Engine::Open(path);
  return true;
}

bool CADODatabase::IsOpen() const { return engine_ != nullptr; }

void CADODatabase::Close() { engine_.reset(); }

kestra::tabledb::Engine& CADODatabase::engine() {
  if (!engine_) throw CADOException("the catalogue database is not open");
  return *engine_;
}

int CADODatabase::GetTableDefCount() { return static_cast<int>(engine().TableDefs().size()); }

bool CADODatabase::GetTableDefInfo(int index, CADOTableDefInfo& info, int) {
  const auto& defs = engine().TableDefs();
  if (index < 0 || static_cast<std::size_t>(index) >= defs.size()) {
    throw CADOException("table definition " + std::to_string(index) + " does not exist (there are " +
                        std::to_string(defs.size()) + ")");
  }
  info.m_strName = defs[static_cast<std::size_t>(index)].first;
  info.m_strType = defs[static_cast<std::size_t>(index)].second;
  return true;
}

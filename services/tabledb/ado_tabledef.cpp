#include "services/tabledb/ado.h"
#include "services/tabledb/engine.h"

CADOTableDef::CADOTableDef(CADODatabase* db) : db_(db) {}
CADOTableDef::~CADOTableDef() = default;

bool CADOTableDef::Open(const std::string& table) {
  Close();
  if (!db_) throw CADOException("the catalogue database is not open");
  auto cols = db_->engine().Columns(table);
  if (!cols) throw CADOException("no such table: " + table);
  for (auto& c : *cols) fields_.push_back({c.name, c.type});
  table_ = table;
  open_ = true;
  return true;
}

int CADOTableDef::GetFieldCount() const { return static_cast<int>(fields_.size()); }

bool CADOTableDef::GetFieldInfo(int index, CADOFieldInfo& info, int) {
  if (!open_) throw CADOException("the table definition is not open");
  if (index < 0 || static_cast<std::size_t>(index) >= fields_.size()) {
    throw CADOException("field " + std::to_string(index) + " does not exist in table " + table_);
  }
  info = fields_[static_cast<std::size_t>(index)];
  return true;
}

void CADOTableDef::Close() {
  open_ = false;
  table_.clear();
  fields_.clear();
}

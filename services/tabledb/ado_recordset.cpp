#include <sqlite3.h>

#include "services/tabledb/ado.h"
#include "services/tabledb/cell_text.h"
#include "services/tabledb/engine.h"

struct CADORecordset::Impl {
  sqlite3_stmt* st = nullptr;
  bool eof = true;
  ~Impl() { sqlite3_finalize(st); }
};

CADORecordset::CADORecordset(CADODatabase* db) : db_(db) {}
CADORecordset::~CADORecordset() = default;

namespace {

// Steps once; true on a row, false at the end; throws with the engine's message.
bool Step(sqlite3_stmt* st) {
  const int rc = sqlite3_step(st);
  if (rc == SQLITE_ROW) return true;
  if (rc == SQLITE_DONE) return false;
  throw CADOException(sqlite3_errmsg(sqlite3_db_handle(st)));
}

}  // namespace

bool CADORecordset::Open(const std::string& query, int) {
  Close();
  if (!db_) throw CADOException("the catalogue database is not open");
  if (db_->query_observer_) db_->query_observer_(query);
  auto impl = std::make_unique<Impl>();
  impl->st = db_->engine().Prepare(query);
  impl->eof = !Step(impl->st);
  impl_ = std::move(impl);
  return true;
}

bool CADORecordset::IsOpen() const { return impl_ != nullptr; }

bool CADORecordset::IsEOF() const { return !impl_ || impl_->eof; }

int CADORecordset::GetFieldCount() const { return impl_ ? sqlite3_column_count(impl_->st) : 0; }

bool CADORecordset::GetFieldValue(int index, Variant& value) {
  if (!impl_) throw CADOException("the recordset is not open");
  if (impl_->eof) throw CADOException("no current record");
  if (index < 0 || index >= sqlite3_column_count(impl_->st)) {
    throw CADOException("field " + std::to_string(index) + " does not exist in the recordset");
  }
  value = Variant{};
  switch (sqlite3_column_type(impl_->st, index)) {
    case SQLITE_INTEGER:
      value.kind = Variant::Kind::Integer;
      value.i = sqlite3_column_int64(impl_->st, index);
      break;
    case SQLITE_FLOAT:
      value.kind = Variant::Kind::Real;
      value.d = sqlite3_column_double(impl_->st, index);
      break;
    case SQLITE_NULL:
      break;
    default: {
      value.kind = Variant::Kind::Text;
      const auto* p = static_cast<const char*>(sqlite3_column_blob(impl_->st, index));
      const int n = sqlite3_column_bytes(impl_->st, index);
      if (p) value.s.assign(p, static_cast<std::size_t>(n));
      break;
    }
  }
  return true;
}

bool CADORecordset::MoveNext() {
  if (!impl_) throw CADOException("the recordset is not open");
  if (impl_->eof) return false;
  impl_->eof = !Step(impl_->st);
  return true;
}

void CADORecordset::Close() { impl_.reset(); }

std::string CCrack::strVARIANT(const Variant& v) {
  switch (v.kind) {
    case Variant::Kind::Integer:
      return std::to_string(static_cast<long long>(v.i));
    case Variant::Kind::Real:
      return kestra::tabledb::NumberText(v.d);
    case Variant::Kind::Text:
      return v.s;
    case Variant::Kind::Null:
      break;
  }
  return {};
}

#pragma once
// Reading a catalogue for one operation: open it, ask it, close it. Every failure is shown with
// the service's own report (CADOException::ReportError) and ends the operation: the calls then
// say so by returning nothing, and a query left open is closed.
#include <memory>
#include <optional>
#include <string>
#include <vector>

class CADODatabase;

namespace kestra::forms {

// The cells of column 0 of every row, as text, in the order read; nullopt after an error.
std::optional<std::vector<std::string>> ReadColumn(CADODatabase& db, const std::string& query);
// Columns first to first + count - 1 of every row, as text; nullopt after an error.
std::optional<std::vector<std::vector<std::string>>> ReadRows(CADODatabase& db, const std::string& query, int first,
                                                              int count);
// The names of the catalogue's user tables (type "TABLE", without regard to case), in its order.
std::optional<std::vector<std::string>> UserTables(CADODatabase& db);

// A catalogue opened from its file for the life of the object.
class Catalogue {
 public:
  explicit Catalogue(const std::string& path);
  ~Catalogue();
  Catalogue(const Catalogue&) = delete;
  Catalogue& operator=(const Catalogue&) = delete;

  bool ok() const { return ok_; }
  CADODatabase* db() const { return ok_ ? db_.get() : nullptr; }
  std::optional<std::vector<std::string>> ReadColumn(const std::string& query);
  void Close();

 private:
  std::unique_ptr<CADODatabase> db_;
  bool ok_ = false;
};

}  // namespace kestra::forms

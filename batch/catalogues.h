#pragma once
// The catalogues a schedule names its lines, motors and reactors in, read with the query texts
// the dialogs use (forms/catalogue_queries.h and the reactor page's own), so that a row names a
// catalogue entry exactly as a designer picks it in a dialog. Answers are kept per key: a
// schedule names the same cable many times.
#include <array>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

class CADODatabase;

namespace kestra::batch {

// A failed lookup, in the designer's words (the row's refusal names the column).
struct LookupError {
  std::string column;
  std::string message;
};

// One catalogue file, opened once for a run; nullptr database when it cannot be opened.
class Catalogue {
 public:
  explicit Catalogue(const std::string& path);
  ~Catalogue();
  Catalogue(const Catalogue&) = delete;
  Catalogue& operator=(const Catalogue&) = delete;

  bool open() const { return db_ != nullptr; }
  const std::string& open_error() const { return open_error_; }
  CADODatabase* db() const { return db_.get(); }
  // The user tables, in the catalogue's order.
  const std::vector<std::string>& tables() const { return tables_; }
  bool HasTable(const std::string& name) const;
  // Field 0 of every row of a query, as text; throws CADOException.
  std::vector<std::string> Column(const std::string& query) const;

 private:
  std::unique_ptr<CADODatabase> db_;
  std::vector<std::string> tables_;
  std::string open_error_;
};

// The line catalogue (DyssCal.Mdb): a table by name, its index values in index-column order.
struct LineData {
  std::array<std::string, 3> values;  // R′, X′, U texts as the catalogue holds them
  std::string row;                    // "表名 值1/值2" for the results
};

class LineCatalogue {
 public:
  explicit LineCatalogue(const Catalogue& catalogue) : cat_(catalogue) {}
  // The row whose index columns hold `keys` (one per index column of the table, in order).
  // Error columns: "线路表" (unknown table, not a line table), "索引N" (no such value, a key
  // missing or too many).
  std::optional<LineData> Find(const std::string& table, const std::vector<std::string>& keys,
                               LookupError& error);

 private:
  struct Columns {
    std::vector<std::string> index, value;
  };
  const Columns* ColumnsOf(const std::string& table, LookupError& error);

  const Catalogue& cat_;
  std::map<std::string, Columns> columns_;
  std::map<std::pair<std::string, std::vector<std::string>>, std::optional<LineData>> rows_;
};

// The motor catalogue (Motor.Mdb, table "电机"): the five data texts of a series and model.
struct MotorData {
  std::array<std::string, 5> values;  // 功率kW, 转速r/min, 额定电流A, 起动电流A, 额定电压kV
};

class MotorCatalogue {
 public:
  explicit MotorCatalogue(const Catalogue& catalogue) : cat_(catalogue) {}
  // Error columns: "系列" (no table "电机", unknown series), "型号" (no such model in the series).
  std::optional<MotorData> Find(const std::string& series, const std::string& model, LookupError& error);

 private:
  const Catalogue& cat_;
  std::map<std::pair<std::string, std::string>, std::optional<MotorData>> rows_;
};

// The starting-reactor catalogue (QdDkq.mdb, table "起动电抗器数据").
class ReactorCatalogue {
 public:
  explicit ReactorCatalogue(const Catalogue& catalogue) : cat_(catalogue) {}
  // Every distinct rated reactance per phase, as numbers (empty when the table is missing).
  const std::vector<double>& Reactances();
  // The model for an actual reactance shown as `xz_text` ("%.3f") and a starting current: the
  // reactor page's choice (trailing zeros trimmed, the smallest starting current not below
  // istm). Empty when no reactor of that reactance carries the current.
  std::string Model(const std::string& xz_text, double istm);

 private:
  const Catalogue& cat_;
  std::optional<std::vector<double>> reactances_;
};

}  // namespace kestra::batch

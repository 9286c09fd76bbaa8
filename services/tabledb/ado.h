#pragma once
// The catalogue database wrappers the calculators use, in the order they call them (open the
// database, walk its table definitions, open a recordset on a query text, read cells as
// text); underneath is a read-only SQLite connection, either to an SQLite catalogue file or
// to an in-memory copy of an Access file.
#include <cstdint>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace kestra::tabledb {

class Engine;  // engine.h

// One cell as read from a recordset.
struct Variant {
  enum class Kind { Null, Integer, Real, Text };
  Kind kind = Kind::Null;
  std::int64_t i = 0;
  double d = 0;
  std::string s;
};

// The connection text the calculators build from the data root: the database's full path
// followed by ";". Open accepts it as well as a bare path.
std::string ConnectionText(const std::string& path);

// Where CADOException::ReportError shows its message. The default writes to stderr; the
// dialog framework installs one that shows a message box. An empty function restores the default.
void SetErrorReporter(std::function<void(const std::string&)> reporter);
// The reporter installed now (empty: the default).
std::function<void(const std::string&)> CurrentErrorReporter();

}  // namespace kestra::tabledb

using Variant = kestra::tabledb::Variant;

// Thrown by every failing database call; carries the engine's own message.
class CADOException : public std::runtime_error {
 public:
  explicit CADOException(const std::string& message) : std::runtime_error(message) {}
  std::string GetErrorMessage() const { return what(); }
  // Shows the message through the installed reporter.
  void ReportError() const;
  // The callers were written for heap-allocated exceptions; with exceptions caught by
  // reference there is nothing to free.
  void Delete() {}
};

struct CADOTableDefInfo {
  std::string m_strName;
  std::string m_strType;  // "TABLE" for user tables
};

struct CADOFieldInfo {
  std::string m_strName;
  std::string m_strType;  // declared type of the column ("REAL", "TEXT", ...)
};

class CADODatabase {
 public:
  CADODatabase();
  ~CADODatabase();
  CADODatabase(const CADODatabase&) = delete;
  CADODatabase& operator=(const CADODatabase&) = delete;

  // Opens the catalogue named by the connection text (path + ";" or a bare path).
  // User and password are accepted for the callers' sake and not used. Throws CADOException.
  bool Open(const std::string& connection, const std::string& user = "",
            const std::string& password = "");
  bool IsOpen() const;
  void Close();

  int GetTableDefCount();
  // nOption is accepted for the callers' sake (they pass 1).
  bool GetTableDefInfo(int index, CADOTableDefInfo& info, int nOption = 1);

  kestra::tabledb::Engine& engine();  // throws CADOException when not open

  // Told every query text a recordset opens on this connection, as written and before it
  // runs (tests record what a form asks). An empty function removes the observer.
  void SetQueryObserver(std::function<void(const std::string&)> observer) { query_observer_ = std::move(observer); }

 private:
  friend class CADORecordset;
  std::unique_ptr<kestra::tabledb::Engine> engine_;
  std::function<void(const std::string&)> query_observer_;
};

class CADORecordset {
 public:
  explicit CADORecordset(CADODatabase* db);
  ~CADORecordset();
  CADORecordset(const CADORecordset&) = delete;
  CADORecordset& operator=(const CADORecordset&) = delete;

  // Runs the query text (one SELECT statement) and stands on its first row.
  bool Open(const std::string& query, int nOption = 0);
  bool IsOpen() const;
  bool IsEOF() const;
  int GetFieldCount() const;
  bool GetFieldValue(int index, Variant& value);
  bool MoveNext();
  void Close();

 private:
  struct Impl;
  CADODatabase* db_;
  std::unique_ptr<Impl> impl_;
};

class CADOTableDef {
 public:
  explicit CADOTableDef(CADODatabase* db);
  ~CADOTableDef();
  bool Open(const std::string& table);
  int GetFieldCount() const;
  bool GetFieldInfo(int index, CADOFieldInfo& info, int nOption = 1);
  void Close();

 private:
  CADODatabase* db_;
  bool open_ = false;
  std::string table_;
  std::vector<CADOFieldInfo> fields_;
};

class CCrack {
 public:
  // The cell as the designer reads it: numbers in their shortest exact text ("500", "1.05"),
  // texts as they are, NULL as "".
  static std::string strVARIANT(const Variant& v);
};

#pragma once
// Catalogue errors shown to the designer: for the life of the object, the message of every
// failing catalogue call (CADOException::ReportError) appears in a message box of the current
// dialog host, with its default caption; the reporter before it is restored at the end.
#include <functional>
#include <string>

namespace kestra::forms {

class DatabaseErrorsShown {
 public:
  DatabaseErrorsShown();
  ~DatabaseErrorsShown();
  DatabaseErrorsShown(const DatabaseErrorsShown&) = delete;
  DatabaseErrorsShown& operator=(const DatabaseErrorsShown&) = delete;

 private:
  std::function<void(const std::string&)> saved_;
};

}  // namespace kestra::forms

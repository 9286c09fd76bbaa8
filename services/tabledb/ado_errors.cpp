#include <iostream>
#include <mutex>

#include "services/tabledb/ado.h"

namespace kestra::tabledb {

namespace {

std::mutex reporter_mutex;
std::function<void(const std::string&)>& Reporter() {
  static std::function<void(const std::string&)> reporter;
  return reporter;
}

}  // namespace

std::string ConnectionText(const std::string& path) { return path + ";"; }

void SetErrorReporter(std::function<void(const std::string&)> reporter) {
  std::lock_guard<std::mutex> lock(reporter_mutex);
  Reporter() = std::move(reporter);
}

std::function<void(const std::string&)> CurrentErrorReporter() {
  std::lock_guard<std::mutex> lock(reporter_mutex);
  return Reporter();
}

}  // namespace kestra::tabledb

void CADOException::ReportError() const {
  std::function<void(const std::string&)> reporter;
  {
    std::lock_guard<std::mutex> lock(kestra::tabledb::reporter_mutex);
    reporter = kestra::tabledb::Reporter();
  }
  if (reporter) {
    reporter(what());
  } else {
    std::cerr << what() << std::endl;
  }
}

#include "services/report/report_errors.h"

#include <cstdio>

COleException::COleException(std::uint32_t sc, const std::string& what)
    : std::runtime_error(what), m_sc(sc) {}

COleDispatchException::COleDispatchException(std::uint16_t code, std::string description)
    : std::runtime_error(description), m_wCode(code), m_strDescription(std::move(description)) {}

namespace kestra::report {

std::uint32_t HresultFromErrno(int err) {
  return 0x80070000u | (static_cast<std::uint32_t>(err) & 0xFFFFu);
}

std::string OleExceptionMessage(const COleException& e) {
  char buf[64];
  std::snprintf(buf, sizeof buf, "COleException. SCODE: %08lx.", static_cast<unsigned long>(e.m_sc));
  return buf;
}

std::string OleDispatchExceptionMessage(const COleDispatchException& e) {
  char buf[64];
  std::snprintf(buf, sizeof buf, "COleDispatchException. SCODE: %08lx,Description: \"",
                static_cast<unsigned long>(e.m_wCode));
  return buf + e.m_strDescription + "\".";
}

}  // namespace kestra::report

#include "services/report/report_errors.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <utility>

COleException::COleException(std::uint32_t sc, const std::string& what)
    : std::runtime_error(what), m_sc(sc) {}

COleDispatchException::COleDispatchException(std::uint16_t code, std::string description)
    : std::runtime_error(description), m_wCode(code), m_strDescription(std::move(description)) {}

namespace kestra::report {

std::uint32_t HresultFromErrno(int err) {
  // errno -> the Windows error number of the same meaning (winerror.h).
  static constexpr std::pair<int, std::uint32_t> kWindowsError[] = {
      {ENOENT, 3},          // ERROR_PATH_NOT_FOUND (a report is only created: its folder is missing)
      {ENOTDIR, 3},         // ERROR_PATH_NOT_FOUND
      {EMFILE, 4},          // ERROR_TOO_MANY_OPEN_FILES
      {ENFILE, 4},          // ERROR_TOO_MANY_OPEN_FILES
      {EACCES, 5},          // ERROR_ACCESS_DENIED
      {EPERM, 5},           // ERROR_ACCESS_DENIED
      {EISDIR, 5},          // ERROR_ACCESS_DENIED
      {EBADF, 6},           // ERROR_INVALID_HANDLE
      {ENOMEM, 14},         // ERROR_OUTOFMEMORY
      {EXDEV, 17},          // ERROR_NOT_SAME_DEVICE
      {EROFS, 19},          // ERROR_WRITE_PROTECT
      {EIO, 29},            // ERROR_WRITE_FAULT
      {ETXTBSY, 32},        // ERROR_SHARING_VIOLATION
      {EEXIST, 80},         // ERROR_FILE_EXISTS
      {EINVAL, 87},         // ERROR_INVALID_PARAMETER
      {ENOSPC, 112},        // ERROR_DISK_FULL
      {EBUSY, 170},         // ERROR_BUSY
      {ENAMETOOLONG, 206},  // ERROR_FILENAME_EXCED_RANGE
      {EFBIG, 223},         // ERROR_FILE_TOO_LARGE
      {EDQUOT, 1295},       // ERROR_DISK_QUOTA_EXCEEDED
      {ELOOP, 1921},        // ERROR_CANT_RESOLVE_FILENAME
  };
  for (const auto& [e, win] : kWindowsError)
    if (e == err) return 0x80070000u | win;
  return kHresultFail;
}

std::string FileErrorText(const std::string& what, const std::string& path, int err) {
  return what + " " + path + ": " + std::strerror(err);
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

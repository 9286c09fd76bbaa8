#pragma once
// The two failures of the document backend that the report guard reports with their own texts.
// COleException: the document could not be stored (a file-system or zip error); its status code
// is an HRESULT: 0x8007xxxx with the Windows error number that means the same as the system's
// errno (a full disk is ERROR_DISK_FULL, 0x80070070), 0x80004005 (E_FAIL) for a zip error and for
// an errno that has no Windows counterpart. Its what() says what failed, where and why.
// COleDispatchException: the report asked the document for something it refuses, as Word does
// (a style it does not have, an alignment out of range); the 16-bit code is Word's error number.
#include <cstdint>
#include <stdexcept>
#include <string>

class COleException : public std::runtime_error {
 public:
  COleException(std::uint32_t sc, const std::string& what);
  std::uint32_t m_sc;
};

class COleDispatchException : public std::runtime_error {
 public:
  COleDispatchException(std::uint16_t code, std::string description);
  std::uint16_t m_wCode;
  std::string m_strDescription;
};

namespace kestra::report {

inline constexpr std::uint32_t kHresultFail = 0x80004005u;
// Word's error numbers for the refusals the document model reproduces.
inline constexpr std::uint16_t kWordNoSuchMember = 5941;   // "The requested member of the collection does not exist."
inline constexpr std::uint16_t kWordValueOutOfRange = 4608;  // "Value out of range"

// The status code of a file-system error.
std::uint32_t HresultFromErrno(int err);

// "<what> <path>: <the system's text for err>", the cause of a COleException.
std::string FileErrorText(const std::string& what, const std::string& path, int err);

// "COleException. SCODE: %08lx."
std::string OleExceptionMessage(const COleException& e);
// "COleDispatchException. SCODE: %08lx,Description: \"%s\"."
std::string OleDispatchExceptionMessage(const COleDispatchException& e);

}  // namespace kestra::report

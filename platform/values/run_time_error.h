#pragma once

#include <exception>
#include <string>
#include <string_view>

namespace dg {

/// Numbers of the run-time's own errors. Operations of the platform raise no others.
enum RunTimeErrorNumber : int {
  kInvalidProcedureCall = 5,
  kOverflow = 6,
  kOutOfMemory = 7,
  kSubscriptOutOfRange = 9,
  kDivisionByZero = 11,
  kTypeMismatch = 13,
  kBadFileNumber = 52,
  kFileNotFound = 53,
  kFileAlreadyOpen = 55,
  kDeviceIoError = 57,
  kDiskFull = 61,
  kInputPastEnd = 62,
  kBadRecordNumber = 63,
  kTooManyFiles = 67,
  kPermissionDenied = 70,
  kPathFileAccess = 75,
  kPathNotFound = 76,
  kObjectNotSet = 91,
};

/// The one exception of the program: what a routine's trap receives and writes to the log.
class RunTimeError : public std::exception {
 public:
  /// An error of the run-time itself, with its well-known description and no source.
  explicit RunTimeError(int number);
  RunTimeError(int number, std::string source, std::string description);

  int number() const { return number_; }
  const std::string& source() const { return source_; }
  const std::string& description() const { return description_; }
  const char* what() const noexcept override { return description_.c_str(); }

 private:
  int number_;
  std::string source_;
  std::string description_;
};

/// The run-time's description of an error number, such as "Type mismatch" for 13;
/// "Application-defined or object-defined error" for a number that it does not know.
std::string_view describeError(int number);

}  // namespace dg

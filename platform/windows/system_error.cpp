#include "platform/windows/system_error.h"

#include <windows.h>

#include "platform/values/run_time_error.h"

namespace dg {

int pathErrorNumber(unsigned long systemError) {
  switch (systemError) {
    case ERROR_FILE_NOT_FOUND:
      return kFileNotFound;
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_NAME:
    case ERROR_BAD_PATHNAME:
    case ERROR_BAD_NETPATH:
    case ERROR_BAD_NET_NAME:
    case ERROR_DIRECTORY:
    case ERROR_FILENAME_EXCED_RANGE:
      return kPathNotFound;
    case ERROR_ACCESS_DENIED:
    case ERROR_SHARING_VIOLATION:
    case ERROR_NETWORK_ACCESS_DENIED:
      return kPermissionDenied;
    case ERROR_WRITE_PROTECT:
      return kPathFileAccess;
    case ERROR_TOO_MANY_OPEN_FILES:
      return kTooManyFiles;
    case ERROR_NOT_ENOUGH_MEMORY:
    case ERROR_OUTOFMEMORY:
      return kOutOfMemory;
    default:
      return transferErrorNumber(systemError);
  }
}

int transferErrorNumber(unsigned long systemError) {
  switch (systemError) {
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
      return kDiskFull;
    case ERROR_ACCESS_DENIED:
    case ERROR_LOCK_VIOLATION:
      return kPermissionDenied;
    default:
      return kDeviceIoError;
  }
}

}  // namespace dg

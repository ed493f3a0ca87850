#include "platform/posix/system_error.h"

#include <cerrno>

#include "platform/values/run_time_error.h"

namespace dg {

int pathErrorNumber(int systemError) {
  switch (systemError) {
    case ENOENT:
      return kFileNotFound;
    case ENOTDIR:
    case ELOOP:
    case ENAMETOOLONG:
    case EINVAL:
      return kPathNotFound;
    case EACCES:
    case EPERM:
      return kPermissionDenied;
    case EROFS:
    case EISDIR:
    case ETXTBSY:
    case ENXIO:
    case ENODEV:
      return kPathFileAccess;
    case EMFILE:
    case ENFILE:
      return kTooManyFiles;
    case ENOMEM:
      return kOutOfMemory;
    default:
      return transferErrorNumber(systemError);
  }
}

int transferErrorNumber(int systemError) {
  switch (systemError) {
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
      return kDiskFull;
    case EACCES:
    case EPERM:
    case EBADF:  // open for reading only
      return kPermissionDenied;
    default:
      return kDeviceIoError;
  }
}

}  // namespace dg

#pragma once

#include <cstdint>
#include <string>

#include "platform/values/date.h"

namespace dg {

/// The data request broker's four messages, over the socket of the module state. No time-outs, no
/// retries. A path without the marker from which the server knows it ("\QTS", for reads also
/// "\DB") raises 5, as does a receive that fails. A stream that ends before the reply is whole, or
/// a reply that is longer than it can be, raises 6.
namespace broker {

/// Returns 0 and fills `data` with `length` bytes; raises -1 "WSRead" on a status other than 0.
std::int32_t read(std::int32_t position, const std::string& path, std::int32_t length,
                  std::string& data);
/// Returns 0, or shows a message box and returns 1 on a status other than 0.
std::int32_t write(std::int32_t position, const std::string& path, std::int32_t length,
                   const std::string& data);
/// Raises 101 "CloseFile" on a status other than 0.
void close(const std::string& path);
/// The server's date and time; raises -1 "WSRead" on a status other than 0. A text that does not
/// convert gives the zero date.
Date time();

}  // namespace broker

}  // namespace dg

#include "engine/broker.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <vector>

#include "engine/codec.h"
#include "engine/state.h"
#include "engine/text_utilities.h"
#include "platform/message_box.h"
#include "platform/socket.h"
#include "platform/text.h"
#include "platform/values/checked.h"
#include "platform/values/convert.h"
#include "platform/values/run_time_error.h"

namespace dg::broker {

namespace {

enum Command : std::int32_t { kRead = 1, kWrite = 2, kClose = 3, kTime = 4 };

// The request's head; positions count from 1.
constexpr std::size_t kHeadSize = 48;
constexpr std::int32_t kCommandPosition = 1;
constexpr std::size_t kPathPosition = 3;
constexpr std::size_t kPathSize = 40;
constexpr std::int32_t kOffsetPosition = 43;
constexpr std::int32_t kLengthPosition = 47;

constexpr std::int32_t kStatusSize = 2;
/// Bytes of every reply but that of a read.
constexpr std::int32_t kPlainReplySize = 29;
constexpr std::int32_t kReceiveBufferSize = 10242;

std::string request(Command command) {
  std::string head(kHeadSize, '\0');
  Pack('C', head, command, kCommandPosition);
  return head;
}

/// The path as the server knows it: from the marker on. Raises 5 when there is none.
std::string_view markedPath(std::string_view path, Command command) {
  path = trim(path);
  // Reads look behind a share's two backslashes, and only they know the second marker.
  std::size_t start = path.find("\\QTS", command == kRead ? 2 : 0);
  if (start == std::string_view::npos && command == kRead) start = path.find("\\DB");
  if (start == std::string_view::npos) throw RunTimeError(kInvalidProcedureCall);
  return path.substr(start);
}

void putPath(std::string& head, std::string_view path, Command command) {
  const std::string_view field = markedPath(path, command).substr(0, kPathSize);
  head.replace(kPathPosition - 1, field.size(), field);
}

void putTransfer(std::string& head, std::int32_t position, std::int32_t length) {
  Pack('L', head, position, kOffsetPosition);
  Pack('C', head, length, kLengthPosition);
}

/// Receives until the reply holds exactly `expected` bytes, `asked` at a time. A stream that ends
/// before, and a reply that has grown longer, would never reach that size: both raise 6.
std::string receive(std::int32_t expected, std::int32_t asked) {
  std::array<char, kReceiveBufferSize> buffer;
  const int size = std::min(asked, kReceiveBufferSize);
  const auto wanted = static_cast<std::size_t>(expected);
  std::string reply;
  while (reply.size() != wanted) {
    if (reply.size() > wanted) throw RunTimeError(kOverflow);
    const int count = receiveSocket(BrokerSocket, buffer.data(), size);
    if (count < 0) throw RunTimeError(kInvalidProcedureCall);
    if (count == 0) throw RunTimeError(kOverflow);
    reply.append(buffer.data(), static_cast<std::size_t>(count));
  }
  return reply;
}

std::string exchange(const std::string& message, std::int32_t expected, std::int32_t asked) {
  // A send that fails shows in the reply that does not come.
  sendSocket(BrokerSocket, message);
  return receive(expected, asked);
}

bool succeeded(const std::string& reply) {
  return Unpack('J', reply, 1) == 0;
}

}  // namespace

std::int32_t read(std::int32_t position, const std::string& path, std::int32_t length,
                  std::string& data) {
  if (length < 0) throw RunTimeError(kInvalidProcedureCall);
  std::string message = request(kRead);
  putPath(message, path, kRead);
  putTransfer(message, position, length);
  const std::int32_t expected = checkedAdd(length, kStatusSize);
  std::string reply = exchange(message, expected, expected);
  if (!succeeded(reply)) {
    throw RunTimeError(-1, "WSRead",
                       "Error trying to read " + Str(length) + " Characters from Position " +
                           Str(position) + " in File: " + path + " and could not read full record");
  }
  data = reply.substr(kStatusSize);
  return 0;
}

std::int32_t write(std::int32_t position, const std::string& path, std::int32_t length,
                   const std::string& data) {
  if (length < 0) throw RunTimeError(kInvalidProcedureCall);
  std::string message = request(kWrite);
  putPath(message, path, kWrite);
  putTransfer(message, position, length);
  message += data.substr(0, static_cast<std::size_t>(length));
  message.resize(kHeadSize + static_cast<std::size_t>(length), '\0');
  // The size asked for goes by the data sent, that of the reply does not: the program's own.
  const std::string reply = exchange(message, kPlainReplySize, checkedAdd(length, kStatusSize));
  if (succeeded(reply)) return 0;
  MsgBox("Error trying to write " + Str(length) + " Characters at Position " + Str(position) +
             " in File: " + path + " and could not write the full record",
         kCritical);
  return 1;
}

void close(const std::string& path) {
  std::string message = request(kClose);
  putPath(message, path, kClose);
  if (!succeeded(exchange(message, kPlainReplySize, kStatusSize))) {
    throw RunTimeError(101, "CloseFile", "Attempting DRB close of " + path);
  }
}

Date time() {
  const std::string reply = exchange(request(kTime), kPlainReplySize, kPlainReplySize);
  if (!succeeded(reply)) throw RunTimeError(-1, "WSRead", "Error retreiving Date");
  const std::string text = reply.substr(kStatusSize);
  // Weekday, month, day, time, year.
  const std::vector<std::string> items = Split(Trun(text.substr(0, text.find('\0')), true), " ");
  if (items.size() < 5) throw RunTimeError(kSubscriptOutOfRange);
  return Date::parse(items[1] + " " + items[2] + " " + items[4] + " " + items[3]).value_or(Date());
}

}  // namespace dg::broker

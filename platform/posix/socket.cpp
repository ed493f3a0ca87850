#include "platform/socket.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstring>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>

#include "platform/network_bytes.h"
#include "platform/posix/descriptor.h"

namespace dg {

namespace {

/// Waits for a connection that an interruption left under way; whether it came about.
bool finishConnecting(int socket) {
  pollfd waiting = {socket, POLLOUT, 0};
  while (::poll(&waiting, 1, -1) < 0) {
    if (errno != EINTR) return false;
  }
  int error = 0;
  socklen_t size = sizeof error;
  return ::getsockopt(socket, SOL_SOCKET, SO_ERROR, &error, &size) == 0 && error == 0;
}

}  // namespace

int sendSocket(SocketHandle socket, std::string_view data) {
  const std::size_t count = std::min<std::size_t>(data.size(), INT_MAX);
  ssize_t taken = -1;
  do {
    taken = ::send(static_cast<int>(socket), data.data(), count, MSG_NOSIGNAL);
  } while (taken < 0 && errno == EINTR);
  return static_cast<int>(taken);
}

int receiveSocket(SocketHandle socket, char* buffer, int size) {
  if (size < 0) return -1;
  ssize_t count = -1;
  do {
    count = ::recv(static_cast<int>(socket), buffer, static_cast<std::size_t>(size), 0);
  } while (count < 0 && errno == EINTR);
  return static_cast<int>(count);
}

SocketHandle connectSocket(std::int32_t networkAddress, std::uint16_t port) {
  Descriptor socket(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0));
  if (!socket.isOpen()) return -1;
  sockaddr_in peer = {};
  peer.sin_family = AF_INET;
  peer.sin_port = htons(port);
  const auto bytes = networkBytesFromInteger(networkAddress);
  std::memcpy(&peer.sin_addr, bytes.data(), bytes.size());
  if (::connect(socket.get(), reinterpret_cast<const sockaddr*>(&peer), sizeof peer) != 0 &&
      !(errno == EINTR && finishConnecting(socket.get()))) {
    return -1;
  }
  return socket.release();
}

void closeSocket(SocketHandle socket) {
  if (socket >= 0) ::close(static_cast<int>(socket));
}

}  // namespace dg

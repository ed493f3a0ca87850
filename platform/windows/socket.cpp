#include "platform/socket.h"

#include <algorithm>
#include <climits>
#include <cstring>
#include <winsock2.h>

#include "platform/network_bytes.h"
#include "platform/windows/winsock.h"

namespace dg {

bool startWinsock() {
  static const bool started = [] {
    WSADATA data = {};
    return ::WSAStartup(MAKEWORD(2, 2), &data) == 0;
  }();
  return started;
}

int sendSocket(SocketHandle socket, std::string_view data) {
  const auto count = static_cast<int>(std::min<std::size_t>(data.size(), INT_MAX));
  return ::send(static_cast<SOCKET>(socket), data.data(), count, 0);
}

int receiveSocket(SocketHandle socket, char* buffer, int size) {
  return ::recv(static_cast<SOCKET>(socket), buffer, size, 0);
}

SocketHandle connectSocket(std::int32_t networkAddress, std::uint16_t port) {
  if (!startWinsock()) return -1;
  const SOCKET socket = ::socket(AF_INET, SOCK_STREAM, IPPROTO_TCP);
  if (socket == INVALID_SOCKET) return -1;
  sockaddr_in peer = {};
  peer.sin_family = AF_INET;
  peer.sin_port = htons(port);
  const auto bytes = networkBytesFromInteger(networkAddress);
  std::memcpy(&peer.sin_addr, bytes.data(), bytes.size());
  if (::connect(socket, reinterpret_cast<const sockaddr*>(&peer), sizeof peer) != 0) {
    ::closesocket(socket);
    return -1;
  }
  return static_cast<SocketHandle>(socket);
}

void closeSocket(SocketHandle socket) {
  if (socket >= 0) ::closesocket(static_cast<SOCKET>(socket));
}

}  // namespace dg

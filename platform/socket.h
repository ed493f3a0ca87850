#pragma once

#include <cstdint>
#include <string_view>

namespace dg {

/// A connected stream socket by its system handle, as the engine's module state keeps it.
using SocketHandle = std::intptr_t;

/// Sends with one call; returns the bytes taken, or -1.
int sendSocket(SocketHandle socket, std::string_view data);
/// Receives with one call into `buffer`; returns the count, 0 at the end of the stream, or -1.
int receiveSocket(SocketHandle socket, char* buffer, int size);
/// Connects to an IPv4 loopback or other address and port; -1 when that fails.
SocketHandle connectSocket(std::int32_t networkAddress, std::uint16_t port);
void closeSocket(SocketHandle socket);

}  // namespace dg

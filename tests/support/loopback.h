#pragma once

#include <cstdint>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

namespace dg::test {

/// A socket that listens on loopback.
class Listener {
 public:
  Listener() : socket_(::socket(AF_INET, SOCK_STREAM, 0)) {
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    EXPECT_EQ(::bind(socket_, reinterpret_cast<sockaddr*>(&address), size), 0);
    EXPECT_EQ(::listen(socket_, 1), 0);
    EXPECT_EQ(::getsockname(socket_, reinterpret_cast<sockaddr*>(&address), &size), 0);
    port_ = ntohs(address.sin_port);
  }
  ~Listener() { ::close(socket_); }
  Listener(const Listener&) = delete;
  Listener& operator=(const Listener&) = delete;

  int accept() const { return ::accept(socket_, nullptr, nullptr); }
  /// Ends an accept that nobody came for.
  void shutdown() const { ::shutdown(socket_, SHUT_RDWR); }
  std::uint16_t port() const { return port_; }

 private:
  int socket_;
  std::uint16_t port_ = 0;
};

}  // namespace dg::test

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>

#include "platform/environment.h"
#include "platform/socket.h"
#include "tests/support/loopback.h"

namespace dg {
namespace {

TEST(Socket, CarriesBytesBothWaysAndTellsTheEnd) {
  const test::Listener listener;
  std::thread peer([&] {
    const int connection = listener.accept();
    char request[4] = {};
    EXPECT_EQ(::recv(connection, request, sizeof request, MSG_WAITALL), 4);
    EXPECT_EQ(::send(connection, request, sizeof request, 0), 4);
    ::close(connection);
  });
  const SocketHandle socket = connectSocket(resolveHost("127.0.0.1"), listener.port());
  ASSERT_NE(socket, -1);
  EXPECT_EQ(sendSocket(socket, std::string_view("a\0b\xff", 4)), 4);
  std::string reply;
  char buffer[16];
  for (int count = 0; (count = receiveSocket(socket, buffer, sizeof buffer)) > 0;) {
    reply.append(buffer, static_cast<std::size_t>(count));
  }
  peer.join();
  EXPECT_EQ(reply, std::string("a\0b\xff", 4));
  EXPECT_EQ(receiveSocket(socket, buffer, sizeof buffer), 0) << "the peer has closed";
  closeSocket(socket);
}

TEST(Socket, FailuresGiveMinusOneAndNoSignal) {
  std::uint16_t closedPort = 0;
  {
    const test::Listener listener;
    closedPort = listener.port();
  }
  EXPECT_EQ(connectSocket(resolveHost("127.0.0.1"), closedPort), -1);
  char buffer[1];
  EXPECT_EQ(receiveSocket(-1, buffer, 1), -1);
  EXPECT_EQ(sendSocket(-1, "x"), -1);

  const test::Listener listener;
  const SocketHandle socket = connectSocket(resolveHost("127.0.0.1"), listener.port());
  ASSERT_NE(socket, -1);
  EXPECT_EQ(::shutdown(static_cast<int>(socket), SHUT_WR), 0);
  EXPECT_EQ(sendSocket(socket, "x"), -1) << "a broken pipe is a result";
  closeSocket(socket);
  closeSocket(-1);
}

}  // namespace
}  // namespace dg

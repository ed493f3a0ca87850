#include <gtest/gtest.h>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>

#include "platform/environment.h"
#include "platform/socket.h"
#include "tests/support/loopback.h"

namespace dg {
namespace {

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

#include <gtest/gtest.h>
#include <thread>
#include <unistd.h>

#include "engine/broker.h"
#include "engine/codec.h"
#include "engine/state.h"
#include "platform/socket.h"
#include "tests/support/bytes.h"
#include "tests/support/engine_store.h"
#include "tests/support/error_number.h"
#include "tests/support/loopback.h"
#include "tests/support/raised.h"

namespace dg::test {
namespace {

using namespace std::string_literals;

constexpr const char* kPath = "\\\\srv\\VLMRLNK\\QTS\\LNK001\\DATADB";

/// The other end of the broker's connection: a thread on loopback that takes one request, sends its
/// reply piece by piece and ends the stream.
class Peer {
 public:
  Peer(std::size_t requestSize, std::vector<std::string> reply) {
    thread_ = std::thread([this, requestSize, reply = std::move(reply)] {
      const int connection = listener_.accept();
      char buffer[4096];
      while (request_.size() < requestSize) {
        const ssize_t count = ::recv(connection, buffer, sizeof buffer, 0);
        if (count <= 0) break;
        request_.append(buffer, static_cast<std::size_t>(count));
      }
      for (const std::string& piece : reply)
        ::send(connection, piece.data(), piece.size(), MSG_NOSIGNAL);
      ::close(connection);
    });
    UseTCP = true;
    BrokerSocket =
        connectSocket(static_cast<std::int32_t>(htonl(INADDR_LOOPBACK)), listener_.port());
    EXPECT_GE(BrokerSocket, 0);
  }
  ~Peer() {
    closeSocket(BrokerSocket);
    BrokerSocket = 0;
    UseTCP = false;
    listener_.shutdown();  // a peer that nobody met
    if (thread_.joinable()) thread_.join();
  }
  Peer(const Peer&) = delete;
  Peer& operator=(const Peer&) = delete;

  /// The bytes of the request, once the exchange is over.
  const std::string& request() {
    thread_.join();
    return request_;
  }

 private:
  Listener listener_;
  std::string request_;
  std::thread thread_;
};

std::string head(int command, std::string path, std::int32_t position, std::int32_t length) {
  path.resize(40, '\0');
  std::string request = bytes({0, command}) + path + std::string(6, '\0');
  Pack('L', request, position, 43);
  Pack('C', request, length, 47);
  return request;
}

/// A reply of 29 bytes.
std::string plainReply(int status, const std::string& text = {}) {
  std::string reply(29, '\0');
  Pack('J', reply, status, 1);
  reply.replace(2, text.size(), text);
  return reply;
}

TEST(EngineBroker, Reads) {
  std::string data;
  Peer peer(48, {bytes({0}), bytes({0}) + "ab", "cd"});
  EXPECT_EQ(broker::read(0x01020304, "  "s + kPath + " ", 4, data), 0);
  EXPECT_EQ(data, "abcd");
  EXPECT_EQ(peer.request(), head(1, "\\QTS\\LNK001\\DATADB", 0x01020304, 4));
}

TEST(EngineBroker, AStatusOtherThanZeroFailsTheRead) {
  std::string data = "kept";
  Peer peer(48, {bytes({0xFF, 0xFE, 0, 0})});
  EXPECT_EQ(raised([&] { broker::read(512, kPath, 2, data); }),
            (Raised{-1, "WSRead",
                    "Error trying to read  2 Characters from Position  512 in File: "s + kPath +
                        " and could not read full record"}));
  EXPECT_EQ(data, "kept");
}

TEST(EngineBroker, AReplyOfTheWrongSizeOverflows) {
  std::string data;
  {
    Peer peer(48, {bytes({0, 0}) + "a"});  // ends before it is whole
    EXPECT_EQ(errorNumber([&] { broker::read(0, kPath, 2, data); }), kOverflow);
  }
  {
    Peer peer(48, {});
    EXPECT_EQ(errorNumber([&] { broker::read(0, kPath, 2, data); }), kOverflow);
  }
  {
    // A write asks for its data's length at a time, and so can get more than a reply holds.
    Peer peer(48 + 100, {plainReply(0) + "more"});
    EXPECT_EQ(errorNumber([&] { broker::write(0, kPath, 100, std::string(100, 'x')); }), kOverflow);
  }
}

TEST(EngineBroker, AConnectionThatIsNoneFails) {
  std::string data;
  BrokerSocket = -1;
  EXPECT_EQ(errorNumber([&] { broker::read(0, kPath, 2, data); }), kInvalidProcedureCall);
  EXPECT_EQ(errorNumber([] { broker::time(); }), kInvalidProcedureCall);
  BrokerSocket = 0;
}

TEST(EngineBroker, Writes) {
  EngineStore store;
  {
    Peer peer(48 + 5, {plainReply(0).substr(0, 10), plainReply(0).substr(10)});
    EXPECT_EQ(broker::write(7, kPath, 5, "abc"), 0);  // filled with NULs
    EXPECT_EQ(peer.request(), head(2, "\\QTS\\LNK001\\DATADB", 7, 5) + "abc\0\0"s);
    EXPECT_TRUE(store.messages().empty());
  }
  Peer peer(48 + 3, {plainReply(-1)});
  EXPECT_EQ(broker::write(7, kPath, 3, "abc"), 1);
  ASSERT_EQ(store.messages().size(), 1U);
  EXPECT_EQ(store.messages()[0].style, kCritical);
  EXPECT_EQ(store.messages()[0].text,
            "Error trying to write  3 Characters at Position  7 in File: "s + kPath +
                " and could not write the full record");
}

TEST(EngineBroker, Closes) {
  {
    Peer peer(48, {plainReply(0)});
    broker::close(kPath);
    EXPECT_EQ(peer.request(), head(3, "\\QTS\\LNK001\\DATADB", 0, 0));
  }
  Peer peer(48, {plainReply(5)});
  EXPECT_EQ(raised([] { broker::close(kPath); }),
            (Raised{101, "CloseFile", "Attempting DRB close of "s + kPath}));
}

TEST(EngineBroker, TellsTheTime) {
  {
    Peer peer(48, {plainReply(0, "Sun Nov  5 14:38:23 2006\n")});
    EXPECT_EQ(broker::time(), Date::parse("11/5/2006 14:38:23"));
    EXPECT_EQ(peer.request(), head(4, "", 0, 0));
  }
  {
    Peer peer(48, {plainReply(0, "Sun Foo 99 never 2006")});
    EXPECT_EQ(broker::time(), Date());
  }
  {
    Peer peer(48, {plainReply(0, "Sun Nov 5")});
    EXPECT_EQ(errorNumber([] { broker::time(); }), kSubscriptOutOfRange);
  }
  Peer peer(48, {plainReply(1, "Sun Nov  5 14:38:23 2006")});
  EXPECT_EQ(raised([] { broker::time(); }), (Raised{-1, "WSRead", "Error retreiving Date"}));
}

TEST(EngineBroker, PathsStartAtTheirMarker) {
  std::string data;
  const auto readPath = [&](const std::string& path) {
    Peer peer(48, {bytes({0, 0})});
    broker::read(0, path, 0, data);
    return peer.request().substr(2, 40);
  };
  const auto field = [](std::string path) {
    path.resize(40, '\0');
    return path;
  };
  EXPECT_EQ(readPath("\\\\srv\\x\\DB\\FILE0"), field("\\DB\\FILE0"));
  EXPECT_EQ(readPath("\\DB\\x\\QTS\\y"), field("\\QTS\\y"));
  const std::string longPath = "\\QTS\\" + std::string(50, 'p');
  EXPECT_EQ(readPath("C:" + longPath), longPath.substr(0, 40));

  // A read looks from the third character on, and only a read knows the second marker.
  const auto noReadPath = [&](const char* path) {
    return errorNumber([&] { broker::read(0, path, 1, data); });
  };
  const auto noWritePath = [](const char* path) {
    return errorNumber([&] { broker::write(0, path, 1, "x"); });
  };
  EXPECT_EQ(noReadPath("\\QTS\\x"), kInvalidProcedureCall);
  EXPECT_EQ(noReadPath("\\\\srv\\qts\\x"), kInvalidProcedureCall);
  EXPECT_EQ(noReadPath(""), kInvalidProcedureCall);
  EXPECT_EQ(noWritePath("\\\\srv\\x\\DB\\FILE0"), kInvalidProcedureCall);
  EXPECT_EQ(errorNumber([] { broker::close("\\\\srv\\x\\DB"); }), kInvalidProcedureCall);
  {
    Peer peer(48, {plainReply(0)});
    broker::close("\\QTS\\x");
    EXPECT_EQ(peer.request().substr(2, 40), field("\\QTS\\x"));
  }
}

/// A store whose path holds the marker, so that the engine's own operations go over the wire.
class EngineBrokerTransport : public testing::Test {
 protected:
  void SetUp() override {
    SystemInfo->mDirectory = "QTS\\LNK001";
    store_.files().add(EngineStore::onShare("QTS\\LNK001\\FILE0"), "here");
    store_.engine();
    file_ = store_.engine().OpenFile("FILE0");
    ASSERT_NE(file_, nullptr);
  }

  EngineStore store_;
  std::shared_ptr<cOpenFile> file_;
};

TEST_F(EngineBrokerTransport, ReadsGoOnFromWhereTheLastEnded) {
  bool orb = true;
  {
    Peer peer(48, {bytes({0, 0}) + "abcd"});
    EXPECT_EQ(store_.engine().ReadFile(file_, 4, 100, orb), "abcd");
    EXPECT_TRUE(orb);
    EXPECT_EQ(file_->Position, 104);
  }
  {
    Peer peer(48, {bytes({0, 0}) + "ef"});
    EXPECT_EQ(store_.engine().ReadFile(file_, 2, -1, orb), "ef");
    EXPECT_EQ(peer.request(), head(1, "\\QTS\\LNK001\\FILE0", 104, 2));
    EXPECT_EQ(file_->Position, 106);
  }
  // Without the caller's wish the file itself is read, switch or not.
  UseTCP = true;
  orb = false;
  EXPECT_EQ(store_.engine().ReadFile(file_, 4, 0, orb), "here");
  UseTCP = false;
}

TEST_F(EngineBrokerTransport, WritesAdvanceOnSuccessOnly) {
  bool orb = true;
  {
    Peer peer(48 + 3, {plainReply(0)});
    store_.engine().WriteFile(file_, "xyz", 512, orb);
    EXPECT_EQ(peer.request(), head(2, "\\QTS\\LNK001\\FILE0", 512, 3) + "xyz");
    EXPECT_EQ(file_->Position, 515);
  }
  {
    Peer peer(48 + 1, {plainReply(9)});
    EXPECT_EQ(
        raised([&] { store_.engine().WriteFile(file_, "w", -1, orb); }),
        (Raised{81, "iWriteFile", "Couldn't Write to File: " + file_->Path + "@ 515  1bytes"}));
    EXPECT_EQ(file_->Position, 515);
  }
  EXPECT_EQ(store_.readWhole(file_->Path), "here");
}

TEST_F(EngineBrokerTransport, ClosesOverTheWireFirst) {
  {
    Peer peer(48, {plainReply(2)});
    EXPECT_EQ(errorNumber([&] { store_.engine().CloseFile(file_); }), 101);
    EXPECT_EQ(OpenFiles->Count(), 1);
  }
  Peer peer(48, {plainReply(0)});
  store_.engine().CloseFile(file_);
  EXPECT_EQ(OpenFiles->Count(), 0);
}

TEST_F(EngineBrokerTransport, TheTimeIsTheServers) {
  Peer peer(48, {plainReply(0, "Mon Jan  2 03:04:05 2006")});
  EXPECT_EQ(store_.engine().Now(), Date::parse("1/2/2006 03:04:05"));
}

}  // namespace
}  // namespace dg::test

#include "host/system/socket.h"

#include <gtest/gtest.h>

#include <thread>

#include "host/system/interrupt.h"
#include "support/listener.h"

namespace {

using namespace std::chrono_literals;

constexpr host::Ipv4Address kThisMachine{{127, 0, 0, 1}};

TEST(Socket, ThisMachineHasANameAndAnAddress) {
  ASSERT_TRUE(host::OwnHostName().has_value());
  EXPECT_FALSE(host::OwnHostName()->empty());
  EXPECT_EQ(host::FindHost("localhost").Bytes, kThisMachine.Bytes);
}

TEST(Socket, AnUnknownNameIsThisMachine) {
  const auto begin = std::chrono::steady_clock::now();
  EXPECT_EQ(host::FindHost("no-such-machine.invalid").Bytes, host::Ipv4Address{}.Bytes);
  EXPECT_LT(std::chrono::steady_clock::now() - begin, 5s);
}

TEST(Socket, AllBytesArriveHoweverManyTheyAre) {
  Listener listener;
  auto connection = host::TcpConnection::Open(kThisMachine, listener.Port(), 5s);
  ASSERT_TRUE(connection.has_value());
  listener.Accept();
  std::string bytes(20'000'000, 'a');
  for (std::size_t i = 0; i < bytes.size(); ++i) bytes[i] = static_cast<char>(i * 31);
  std::string arrived;
  std::thread reader([&] { arrived = listener.ReadToEnd(); });
  EXPECT_TRUE(connection->Send(bytes));
  connection.reset();
  reader.join();
  EXPECT_TRUE(arrived == bytes);
}

TEST(Socket, NobodyListens) {
  EXPECT_FALSE(host::TcpConnection::Open(kThisMachine, Listener::FreePort(), 1s).has_value());
}

TEST(Socket, APeerThatHasGoneEndsSendingAndNotTheProgram) {
  Listener listener;
  auto connection = host::TcpConnection::Open(kThisMachine, listener.Port(), 5s);
  ASSERT_TRUE(connection.has_value());
  listener.Accept();
  listener.Reset();
  bool sent = true;
  for (int i = 0; i < 100 && sent; ++i) {
    sent = connection->Send("abc");
    std::this_thread::sleep_for(10ms);
  }
  EXPECT_FALSE(sent);
}

TEST(Socket, AStalledPeerIsWaitedForUntilTheUserInterrupts) {
  Listener listener;
  auto connection = host::TcpConnection::Open(kThisMachine, listener.Port(), 5s);
  ASSERT_TRUE(connection.has_value());
  listener.Accept();
  std::thread user([] {
    std::this_thread::sleep_for(300ms);
    host::RequestInterrupt();
  });
  EXPECT_FALSE(connection->Send(std::string(50'000'000, 'a')));
  user.join();
  host::ClearInterrupt();
}

}  // namespace

#include "support/listener.h"

#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

Listener::Listener() {
  listener_ = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
  sockaddr_in place = {};
  place.sin_family = AF_INET;
  socklen_t length = sizeof(place);
  auto* const address = reinterpret_cast<sockaddr*>(&place);
  EXPECT_EQ(bind(listener_, address, length), 0);
  EXPECT_EQ(listen(listener_, 1), 0);
  EXPECT_EQ(getsockname(listener_, address, &length), 0);
  port_ = ntohs(place.sin_port);
}

Listener::~Listener() {
  if (peer_ >= 0) close(peer_);
  close(listener_);
}

void Listener::Accept() {
  peer_ = accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC);
  EXPECT_GE(peer_, 0);
}

std::string Listener::ReadToEnd() const {
  std::string bytes;
  char block[4096];
  for (ssize_t count = 1; count > 0;) {
    count = recv(peer_, block, sizeof(block), 0);
    if (count > 0) bytes.append(block, static_cast<std::size_t>(count));
  }
  return bytes;
}

std::string Listener::Read(std::size_t count) const {
  std::string bytes(count, '\0');
  const ssize_t have = recv(peer_, bytes.data(), count, MSG_WAITALL);
  bytes.resize(have > 0 ? static_cast<std::size_t>(have) : 0);
  return bytes;
}

void Listener::Reset() {
  const linger at_once = {1, 0};
  setsockopt(peer_, SOL_SOCKET, SO_LINGER, &at_once, sizeof(at_once));
  close(peer_);
  peer_ = -1;
}

std::uint16_t Listener::FreePort() {
  return Listener().Port();
}

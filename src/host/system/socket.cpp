#include "host/system/socket.h"

#include <arpa/inet.h>
#include <fcntl.h>
#include <netdb.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <future>
#include <memory>
#include <thread>
#include <utility>

#include "host/system/interrupt.h"

namespace host {
namespace {

using std::chrono::milliseconds;

// How long the system is asked about a connection before the user's wish to interrupt is looked at.
constexpr milliseconds kBetweenLooks{100};

Ipv4Address AskSystem(const std::string& name) {
  addrinfo hints = {};
  hints.ai_family = AF_INET;
  hints.ai_socktype = SOCK_STREAM;
  addrinfo* list = nullptr;
  Ipv4Address address;
  if (getaddrinfo(name.c_str(), nullptr, &hints, &list) != 0) return address;
  const std::unique_ptr<addrinfo, void (*)(addrinfo*)> owned(list, freeaddrinfo);
  sockaddr_in first = {};
  if (list->ai_addrlen != sizeof(first)) return address;
  std::memcpy(&first, list->ai_addr, sizeof(first));
  std::memcpy(address.Bytes.data(), &first.sin_addr, address.Bytes.size());
  return address;
}

// True when the socket can be written to, or has failed, within `limit`.
bool IsReady(int descriptor, milliseconds limit) {
  pollfd waited = {descriptor, POLLOUT, 0};
  return poll(&waited, 1, static_cast<int>(limit.count())) > 0;
}

bool ConnectWithin(int descriptor, const sockaddr_in& address, milliseconds limit) {
  if (connect(descriptor, reinterpret_cast<const sockaddr*>(&address), sizeof(address)) == 0) {
    return true;
  }
  if (errno != EINPROGRESS || !IsReady(descriptor, limit)) return false;
  int error = 0;
  socklen_t length = sizeof(error);
  return getsockopt(descriptor, SOL_SOCKET, SO_ERROR, &error, &length) == 0 && error == 0;
}

}  // namespace

std::optional<std::string> OwnHostName() {
  std::array<char, 256> name{};
  // The last byte stays zero, whatever the system writes.
  if (gethostname(name.data(), name.size() - 1) != 0 || name[0] == '\0') return std::nullopt;
  return name.data();
}

Ipv4Address FindHost(const std::string& name) {
  constexpr std::chrono::seconds kLimit{1};
  const auto promise = std::make_shared<std::promise<Ipv4Address>>();
  std::future<Ipv4Address> answer = promise->get_future();
  // A name service may take far longer; nobody waits for the thread then.
  std::thread([promise, name] { promise->set_value(AskSystem(name)); }).detach();
  return answer.wait_for(kLimit) == std::future_status::ready ? answer.get() : Ipv4Address{};
}

std::optional<TcpConnection> TcpConnection::Open(const Ipv4Address& address, std::uint16_t port,
                                                 milliseconds limit) {
  const int descriptor = socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
  if (descriptor < 0) return std::nullopt;
  TcpConnection connection(descriptor);
  sockaddr_in there = {};
  there.sin_family = AF_INET;
  there.sin_port = htons(port);
  std::memcpy(&there.sin_addr, address.Bytes.data(), address.Bytes.size());
  if (!ConnectWithin(descriptor, there, limit)) return std::nullopt;
  // What is sent is short, and is to arrive at once.
  const int at_once = 1;
  setsockopt(descriptor, IPPROTO_TCP, TCP_NODELAY, &at_once, sizeof(at_once));
  return connection;
}

TcpConnection::~TcpConnection() {
  if (descriptor_ >= 0) close(descriptor_);
}

TcpConnection::TcpConnection(TcpConnection&& other) noexcept
    : descriptor_(std::exchange(other.descriptor_, -1)) {}

TcpConnection& TcpConnection::operator=(TcpConnection&& other) noexcept {
  std::swap(descriptor_, other.descriptor_);
  return *this;
}

bool TcpConnection::Send(std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t sent = send(descriptor_, bytes.data(), bytes.size(), MSG_NOSIGNAL);
    if (sent > 0) {
      bytes.remove_prefix(static_cast<std::size_t>(sent));
    } else if (sent == 0 || (errno != EAGAIN && errno != EWOULDBLOCK && errno != EINTR)) {
      return false;
    } else if (InterruptRequested()) {
      return false;
    } else {
      IsReady(descriptor_, kBetweenLooks);
    }
  }
  return true;
}

}  // namespace host

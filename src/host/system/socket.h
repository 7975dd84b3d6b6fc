#pragma once

#include <array>
#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace host {

// The network name of this machine; nothing when it has none.
std::optional<std::string> OwnHostName();

struct Ipv4Address {
  std::array<std::uint8_t, 4> Bytes{};
};

// The first address of a machine. 0.0.0.0, which is this one, when it has none or the name isn't
// answered within a second.
Ipv4Address FindHost(const std::string& name);

// A connection over TCP to a program that listens, on which this one only sends.
class TcpConnection {
 public:
  // Nothing when nobody has answered within `limit`.
  static std::optional<TcpConnection> Open(const Ipv4Address& address, std::uint16_t port,
                                           std::chrono::milliseconds limit);
  ~TcpConnection();
  TcpConnection(TcpConnection&& other) noexcept;
  TcpConnection& operator=(TcpConnection&& other) noexcept;

  // Sends all bytes, however long the other end takes to read them. False when it has gone, or when
  // the user asks to interrupt.
  [[nodiscard]] bool Send(std::string_view bytes);

 private:
  explicit TcpConnection(int descriptor) : descriptor_(descriptor) {}

  int descriptor_ = -1;
};

}  // namespace host

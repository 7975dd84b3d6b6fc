#pragma once

#include <cstdint>
#include <string>

// A listener on this machine that takes one connection.
class Listener {
 public:
  // At a port that is free.
  Listener();
  ~Listener();
  Listener(const Listener&) = delete;
  Listener& operator=(const Listener&) = delete;

  std::uint16_t Port() const { return port_; }
  // Waits for the connection.
  void Accept();
  // All bytes up to the end of the connection.
  std::string ReadToEnd() const;
  // So many bytes.
  std::string Read(std::size_t count) const;
  // Breaks the connection off.
  void Reset();

  // A port at which nobody listens.
  static std::uint16_t FreePort();

 private:
  int listener_ = -1;
  int peer_ = -1;
  std::uint16_t port_ = 0;
};

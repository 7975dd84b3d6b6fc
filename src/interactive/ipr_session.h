#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "host/system/socket.h"

namespace orv {

// The connection to a running interactive renderer, and the frame that is being composed for it.
//
// A frame is the length of its text in bytes, the low byte first and then the high one, and the
// text. Nothing is ever read from the connection.
class IprSession {
 public:
  // No text that would make the frame, with its two length bytes, as long as this is taken.
  static constexpr std::size_t kFrameLimit = 32000;

  explicit IprSession(host::TcpConnection connection);

  // True after a send that failed. From then on no text is added and nothing is sent.
  bool HasFailed() const { return failed_; }

  // Begins a new frame without what was added to the present one.
  void Clear();
  // Adds to the frame, up to a zero byte. False when the session has failed or the frame would get
  // too long; the text is then left out.
  bool AppendText(std::string_view text);
  // Sends the frame and begins a new one. False for a frame without a text and when sending has
  // failed.
  bool SendFrame();

 private:
  host::TcpConnection connection_;
  // The room of the length, and the text.
  std::string message_;
  bool failed_ = false;
};

// Where the renderer listens, and how long it may take to be ready.
struct IprConnection {
  std::uint16_t Port = 47849;
  int Attempts = 10;
  // Before each attempt.
  std::chrono::milliseconds Wait{1000};
};

// Starts the renderer with these arguments, and the address at which it is to listen, and connects
// to it. Null when it couldn't be started or connected to; a connection that comes with the last
// attempt is too late.
std::unique_ptr<IprSession> OpenIprSession(std::string_view arguments,
                                           const IprConnection& connection = {});

}  // namespace orv

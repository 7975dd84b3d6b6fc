#include "interactive/ipr_session.h"

#include <algorithm>
#include <thread>
#include <utility>

#include "host/system/command_line.h"
#include "host/system/interrupt.h"
#include "host/system/process.h"
#include "host/system/text.h"

namespace orv {
namespace {

// Holds the place of the length.
constexpr std::string_view kEmptyMessage = "  ";

bool StartRenderer(const std::string& hostName, std::uint16_t port, std::string_view arguments) {
  host::ProcessStart start;
  start.Arguments = host::ProgramWords(host::Format("tweakorv -ihost %s:%d %s", hostName.c_str(),
                                                    port, std::string(arguments).c_str()));
  start.Hidden = true;
  return host::StartProcess(start);
}

// Waits, but not longer than the user wants to.
void Wait(std::chrono::milliseconds time) {
  using Clock = std::chrono::steady_clock;
  constexpr std::chrono::milliseconds kBetweenLooks{50};
  const Clock::time_point end = Clock::now() + time;
  while (Clock::now() < end && !host::InterruptRequested()) {
    std::this_thread::sleep_until(std::min(end, Clock::now() + kBetweenLooks));
  }
}

}  // namespace

IprSession::IprSession(host::TcpConnection connection)
    : connection_(std::move(connection)), message_(kEmptyMessage) {
  message_.reserve(kFrameLimit);
}

void IprSession::Clear() {
  message_ = kEmptyMessage;
}

bool IprSession::AppendText(std::string_view text) {
  text = text.substr(0, text.find('\0'));
  if (failed_ || message_.size() + text.size() >= kFrameLimit) return false;
  message_ += text;
  return true;
}

bool IprSession::SendFrame() {
  const std::size_t length = message_.size() - kEmptyMessage.size();
  if (failed_ || length == 0) return false;
  message_[0] = static_cast<char>(length % 256);
  message_[1] = static_cast<char>(length / 256);
  failed_ = !connection_.Send(message_);
  Clear();
  return !failed_;
}

std::unique_ptr<IprSession> OpenIprSession(std::string_view arguments,
                                           const IprConnection& connection) {
  // So long a program on this machine is waited for; one that listens answers at once.
  constexpr std::chrono::milliseconds kAnswerLimit{100};
  const auto hostName = host::OwnHostName();
  if (!hostName || !StartRenderer(*hostName, connection.Port, arguments)) return nullptr;
  const host::Ipv4Address address = host::FindHost(*hostName);
  for (int attempt = 1; attempt <= connection.Attempts; ++attempt) {
    Wait(connection.Wait);
    if (host::InterruptRequested()) break;
    auto opened = host::TcpConnection::Open(address, connection.Port, kAnswerLimit);
    if (opened && attempt < connection.Attempts) {
      return std::make_unique<IprSession>(std::move(*opened));
    }
  }
  return nullptr;
}

}  // namespace orv

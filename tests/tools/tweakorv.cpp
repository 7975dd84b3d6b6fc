#include <netdb.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <sys/time.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <fstream>
#include <memory>
#include <nlohmann/json.hpp>
#include <optional>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

// A stand-in for the interactive renderer: tweakorv -ihost HOST:PORT ARGUMENTS. It listens there,
// takes one connection and notes each frame. README.md beside it tells the environment variables.

using nlohmann::json;

namespace {

constexpr int kUsageStatus = 2;
// A test that fails leaves nothing behind for longer.
constexpr std::chrono::seconds kLongest{60};

std::string Variable(const char* name) {
  const char* value = std::getenv(name);
  return value == nullptr ? "" : value;
}

// What the stand-in was told to do: a word and, with some words, a number.
struct Act {
  std::string word;
  int number = 0;
};

Act ActOf(const std::string& text) {
  const std::size_t blank = text.find(' ');
  if (blank == std::string::npos) return {text};
  return {text.substr(0, blank), std::atoi(text.c_str() + blank)};
}

// The lines of JSON that tell what happened, with the time of the steady clock in nanoseconds.
class Record {
 public:
  explicit Record(const std::string& file) : lines_(file, std::ios::app) {}

  void Note(const char* event, json details = json::object()) {
    const auto time = std::chrono::steady_clock::now().time_since_epoch();
    details["event"] = event;
    details["time"] = std::chrono::duration_cast<std::chrono::nanoseconds>(time).count();
    lines_ << details.dump(-1, ' ', false, json::error_handler_t::replace) << std::endl;
  }

 private:
  std::ofstream lines_;
};

class Socket {
 public:
  explicit Socket(int descriptor) : descriptor_(descriptor) {
    if (descriptor < 0) throw std::runtime_error(std::strerror(errno));
  }
  ~Socket() { Close(); }
  Socket(const Socket&) = delete;
  Socket& operator=(const Socket&) = delete;
  void Close() {
    if (descriptor_ >= 0) close(descriptor_);
    descriptor_ = -1;
  }
  int Descriptor() const { return descriptor_; }

 private:
  int descriptor_;
};

// Listens at "HOST:PORT".
std::unique_ptr<Socket> Listen(const std::string& place) {
  const std::size_t colon = place.rfind(':');
  addrinfo hints = {};
  hints.ai_family = AF_INET;
  hints.ai_socktype = SOCK_STREAM;
  addrinfo* list = nullptr;
  if (colon == std::string::npos ||
      getaddrinfo(place.substr(0, colon).c_str(), place.c_str() + colon + 1, &hints, &list) != 0) {
    throw std::runtime_error("no such place: " + place);
  }
  const std::unique_ptr<addrinfo, void (*)(addrinfo*)> owned(list, freeaddrinfo);
  auto listener = std::make_unique<Socket>(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0));
  const int again = 1;
  setsockopt(listener->Descriptor(), SOL_SOCKET, SO_REUSEADDR, &again, sizeof(again));
  const timeval limit = {kLongest.count(), 0};
  setsockopt(listener->Descriptor(), SOL_SOCKET, SO_RCVTIMEO, &limit, sizeof(limit));
  if (bind(listener->Descriptor(), list->ai_addr, list->ai_addrlen) != 0 ||
      listen(listener->Descriptor(), 1) != 0) {
    throw std::runtime_error(std::strerror(errno));
  }
  return listener;
}

// Reads all of `bytes`; false at the end of the stream.
bool ReadAll(const Socket& peer, std::string& bytes) {
  for (std::size_t have = 0; have < bytes.size();) {
    const ssize_t count =
        recv(peer.Descriptor(), bytes.data() + have, bytes.size() - have, MSG_WAITALL);
    if (count <= 0) return false;
    have += static_cast<std::size_t>(count);
  }
  return true;
}

// A frame's text; nothing at the end of the stream, and `cut` is true when that is inside a frame.
std::optional<std::string> ReadFrame(const Socket& peer, bool& cut) {
  std::string head(2, '\0');
  if (!ReadAll(peer, head)) return std::nullopt;
  const auto low = static_cast<unsigned char>(head[0]);
  const auto high = static_cast<unsigned char>(head[1]);
  std::string text(low + std::size_t{256} * high, '\0');
  cut = !ReadAll(peer, text);
  if (cut) return std::nullopt;
  return text;
}

void ReadFrames(const Socket& peer, Record& record) {
  bool cut = false;
  while (const auto text = ReadFrame(peer, cut)) {
    record.Note("frame", {{"text", *text}, {"length", text->size()}});
    if (text->ends_with("IrEnd")) break;
  }
  record.Note(cut ? "cut" : "end");
}

// Takes some bytes and goes without having read the rest, so that the other end is told at once.
void CloseAfter(Socket& peer, int count, Record& record) {
  std::string bytes(static_cast<std::size_t>(count), '\0');
  if (count > 0 && !ReadAll(peer, bytes)) return;
  const linger at_once = {1, 0};
  setsockopt(peer.Descriptor(), SOL_SOCKET, SO_LINGER, &at_once, sizeof(at_once));
  peer.Close();
  record.Note("closed");
}

int Serve(const std::vector<std::string>& command, const Act& act, Record& record) {
  if (act.word == "late") std::this_thread::sleep_for(std::chrono::milliseconds(act.number));
  const std::unique_ptr<Socket> listener = Listen(command[2]);
  record.Note("listens");
  Socket peer(accept4(listener->Descriptor(), nullptr, nullptr, SOCK_CLOEXEC));
  listener->Close();
  record.Note("accepted");
  if (act.word == "stall") std::this_thread::sleep_for(kLongest);
  if (act.word == "close") {
    CloseAfter(peer, act.number, record);
  } else {
    ReadFrames(peer, record);
  }
  return 0;
}

}  // namespace

int main(int argc, char** argv) try {
  const std::vector<std::string> command(argv, argv + argc);
  Record record(Variable("TWEAKORV_RECORD"));
  record.Note("started", {{"command", command}, {"process", getpid()}});
  if (command.size() < 3 || command[1] != "-ihost") {
    std::fprintf(stderr, "usage: tweakorv -ihost HOST:PORT ARGUMENTS\n");
    return kUsageStatus;
  }
  const Act act = ActOf(Variable("TWEAKORV_ACT"));
  if (act.word == "leave") return 0;
  return Serve(command, act, record);
} catch (const std::exception& error) {
  std::fprintf(stderr, "tweakorv: %s\n", error.what());
  return 1;
}

#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "host/system/file.h"
#include "host/system/number_text.h"

namespace orv {

// One RIB stream: an open file and the line that is being put together. RibPrintf and, for the
// numbers of long arrays, RibNumbers, RibIntegers and RibGroup are its only ways of writing.
//
// A statement may be built by several calls; a line ends with the call whose text ends in a line
// feed. A line that would reach kLineLimit bytes is broken before the text that doesn't fit, and
// goes on two blanks deeper.
//
// When a line is written, each "%%" in it becomes "%", and a lone percent sign stays. Two texts are
// written as they stand: a line feed alone on a new line, and a text too long for any line.
class RibWriter {
 public:
  // The length that no written line reaches; the most bytes of one call's text.
  static constexpr int kLineLimit = 4094;
  // The most blanks in front of a line.
  static constexpr int kDeepestIndent = 40;

  // Opens `path` for writing, empty at first; it is also the FileName. Check IsOpen.
  explicit RibWriter(std::string_view path);

  [[nodiscard]] bool IsOpen() const { return file_.IsOpen(); }
  // True when anything written to the file so far has failed. Writing goes on without effect.
  [[nodiscard]] bool HasError() const { return file_.HasError(); }
  // Writes what is still held back and closes the file; false when that or any earlier writing has
  // failed. A line that was never ended is not written.
  [[nodiscard]] bool Close();

  // The bytes of all complete lines so far.
  [[nodiscard]] std::uint64_t Size() const {
    return written_ + static_cast<std::uint64_t>(line_ - block_.get());
  }
  // The bytes now in the line; 0 means that the next text begins a new one.
  int LineLength() const { return static_cast<int>(end_ - line_); }

  std::string FileName;
  // Blanks in front of each new line, kDeepestIndent at most. Goes up by 2 after a statement that
  // opens a block and down by 2 before the one that closes it.
  int Indent = 0;
  // What the export was called with, for the NURBS writer.
  int Reparameterize = 0;
  // The number of the next point set.
  int PointSetCount = 0;
  // The gamma of colours.
  double Gamma = 0;

 private:
  friend void RibPrintf(RibWriter& writer, const char* format, ...);
  template <class Write>
  friend void RibGroup(RibWriter& writer, Write write);

  // A text is written in place: where BeginText says, with room for kTextRoom bytes. EndText then
  // makes it part of the line, EndGroup one that is short and holds no percent sign or line feed.
  static constexpr std::size_t kTextRoom = kLineLimit + 64;

  char* BeginText() {
    if (end_ == line_) StartLine(Indent);
    return end_;
  }
  void EndGroup(char* textEnd) {
    if (textEnd - line_ < kLineLimit) [[likely]] {
      end_ = textEnd;
    } else {
      BreakLine(textEnd);
    }
  }
  void EndText(char* textEnd);

  void StartLine(int indent);
  void BreakLine(const char* textEnd);
  void FinishLine();
  void MakeRoom();

  // Holds complete lines up to line_, then the line up to end_. Behind line_ there is always room
  // for a whole line, one more text and what a break adds. Large writes are the cheapest for the
  // file system.
  static constexpr std::size_t kBlockSize = std::size_t{1} << 20;
  static constexpr std::size_t kLineRoom = 2 * kTextRoom;

  host::FileWriter file_;
  std::unique_ptr<char[]> block_;
  char* line_;
  char* end_;
  std::uint64_t written_ = 0;  // the bytes that have left the block
  bool hasPercent_ = false;    // the line holds a percent sign
};

// Adds formatted text to the line. The format may hold %d, %g, %s and %% without flags; any other
// placeholder ends the formatting and is written as it stands. Text beyond kLineLimit bytes is cut
// off, at a whole character. A null or empty format does nothing.
[[gnu::format(printf, 2, 3)]] void RibPrintf(RibWriter& writer, const char* format, ...);

// Adds the text that `write` writes to the pointer that it is given, of which it returns the end:
// 1,000 bytes at most, without percent signs and line feeds. The same as RibPrintf with that text.
template <class Write>
void RibGroup(RibWriter& writer, Write write) {
  writer.EndGroup(write(writer.BeginText()));
}

// The same as RibPrintf with one "%g " for each number, at many times the speed.
template <class... Numbers>
void RibNumbers(RibWriter& writer, Numbers... numbers) {
  RibGroup(writer, [&](char* out) {
    ((out = host::FormatG(numbers, out), *out++ = ' '), ...);
    return out;
  });
}

// The same as RibPrintf with one "%d " for each number.
template <class... Numbers>
void RibIntegers(RibWriter& writer, Numbers... numbers) {
  RibGroup(writer, [&](char* out) {
    ((out = host::FormatInt(numbers, out), *out++ = ' '), ...);
    return out;
  });
}

}  // namespace orv

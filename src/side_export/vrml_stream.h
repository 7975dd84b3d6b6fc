#pragma once

#include <string>
#include <string_view>

#include "host/geometry/on_point.h"
#include "host/system/file.h"

namespace orv {

// A VRML file that is being written. Keeps the first error; writing after it does nothing.
class VrmlStream {
 public:
  // Opens `path` for writing, empty at first. Check IsOpen.
  explicit VrmlStream(std::string_view path) : file_(path) {}

  [[nodiscard]] bool IsOpen() const { return file_.IsOpen(); }
  // False when any writing, or the closing itself, has failed.
  [[nodiscard]] bool Close();

  void Write(std::string_view text);
  // A line of numbers with blanks between them, as "%g".
  template <class... Numbers>
  void WriteNumbers(Numbers... numbers) {
    (AppendNumber(numbers), ...);
    text_.back() = '\n';
  }
  // A line of indices with ", " between them, and the end of a polygon.
  template <class... Indices>
  void WritePolygon(Indices... indices) {
    (AppendIndex(indices), ...);
    Write("-1\n");
  }

 private:
  void AppendNumber(double number);
  void AppendIndex(int index);

  host::FileWriter file_;
  // What isn't in the file yet.
  std::string text_;
};

// A text for the inside of a quoted string. One that would end the string, or that has a backslash
// at its end, has escapes for its quotes and backslashes; any other stays byte for byte.
std::string VrmlString(std::string_view text);

// The upward axis of VRML is y, that of the host z.
template <class Triple>
Triple ToVrml(Triple p) {
  return {p.x, p.z, -p.y};
}

}  // namespace orv

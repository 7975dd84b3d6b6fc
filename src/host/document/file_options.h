#pragma once

#include <bitset>

// How a file is read or written. Mode 0 of writing: only selected objects.
class CRhinoFileWriteOptions {
 public:
  bool Mode(int mode) const { return modes_.test(static_cast<std::size_t>(mode)); }
  void SetMode(int mode, bool on) { modes_.set(static_cast<std::size_t>(mode), on); }

 private:
  std::bitset<8> modes_;
};

// Mode 0 of reading: the file is imported into the open document; mode 4: it is inserted as a
// block.
class CRhinoFileReadOptions {
 public:
  bool Mode(int mode) const { return modes_.test(static_cast<std::size_t>(mode)); }
  void SetMode(int mode, bool on) { modes_.set(static_cast<std::size_t>(mode), on); }

 private:
  std::bitset<8> modes_;
};

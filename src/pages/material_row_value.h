#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "shading/shader_param.h"

namespace orv {

// What the control of a parameter shows: numbers with a blank between them, a colour as
// "255,128,0", a text.
std::string RowValue(const ShaderParam& param);
// What it offers.
std::vector<std::string> RowChoices(const ShaderParam& param);

// What became of a value that a user gave.
struct RowReading {
  // What is wrong with it; empty when nothing is.
  std::string Problem;
  // Whether the shader is to be stored: the value is another than before, or one of the numbers
  // that the list offers.
  bool IsCommitted = false;
};

// Gives a parameter a value. Of numbers, those that aren't told keep theirs.
RowReading ReadRowValue(std::string_view text, ShaderParam& param);

}  // namespace orv

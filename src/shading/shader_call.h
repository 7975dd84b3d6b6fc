#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

#include "host/geometry/on_color.h"

// A shader with its parameters as one line of text, as documents keep it and RIB takes it:
//   "VPlastic" "float Diffuse" [0.5] "color SpecularColor" [1 1 1] "string ColorMapName" [""]
// Names are case-sensitive. Nothing here fails: what can't be read is passed over.
namespace orv {

// Reads the token at `position` and steps behind it: the inside of double quotes, the inside of
// square brackets, or everything up to the next blank. A closing sign that is missing stands at the
// end of the text. False when only blanks are left; `token` then stays.
bool NextToken(std::string_view text, std::size_t& position, std::string_view& token);

// The first token; empty when there is none.
std::string_view ShaderNameOf(std::string_view text);

// The value of the first parameter with the name and type, no array. False, and the results stay,
// when there is none.
//
// A string is what stands in the brackets without any double quote. A float is held to -1e30..1e30;
// one out of a double's range, or a NaN, is passed over. The parts of a colour are held to 0..1e30,
// and one that is missing, out of a double's range or a NaN stays as it is.
bool GetStringParam(std::string_view text, std::string_view name, std::string& value);
bool GetFloatParam(std::string_view text, std::string_view name, double& value);
bool GetColorParam(std::string_view text, std::string_view name, double& red, double& green,
                   double& blue);

// Replaces the value of the first parameter with the name and type, no array (a colour array
// counts). False, and the text stays, when there is none. Colours are written as they are.
bool SetStringParam(std::string& text, std::string_view name, std::string_view value);
bool SetFloatParam(std::string& text, std::string_view name, double value);
bool SetColorParam(std::string& text, std::string_view name, ON_Color value);

// A value to set: a type and a name, and what stands in the brackets.
struct ParamValue {
  std::string_view Type;
  std::string Name;
  std::string Text;
};

ParamValue StringValue(std::string_view name, std::string_view value);
ParamValue FloatValue(std::string_view name, double value);
ParamValue ColorValue(std::string_view name, ON_Color value);

// Sets all the values as the operations above would one after the other, but walks through the text
// only once. The number of parameters that were there.
std::size_t SetParams(std::string& text, std::span<const ParamValue> values);

}  // namespace orv

#pragma once

#include <string>
#include <string_view>

class CRhinoObject;

namespace orv {

// The file of one object in a bake: `pattern` with "_" and the object's id at the end of its base
// name.
std::string BakedMapFileName(std::string_view pattern, const CRhinoObject& object);

}  // namespace orv

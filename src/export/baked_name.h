#pragma once

#include <string>
#include <string_view>

class CRhinoObject;

namespace orv {

// The file of one object in a bake: `pattern` with `suffix`, "_" and the object's id at the end of
// its base name. "C:\maps\hall.png" gives "C:\maps\hall_7d1f42a6-35c8-4b9e-9c07-5e2a1d60b3f4.png".
// The first map of an object has no suffix.
std::string BakedMapFileName(std::string_view pattern, const CRhinoObject& object,
                             std::string_view suffix = {});

}  // namespace orv

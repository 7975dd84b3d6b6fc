#pragma once

#include <string>
#include <string_view>

class CRhinoObject;

// How things of a document are called in messages. Their names are the user's, or a hostile file's.

namespace host {

// A name in double quotes, on one line and not too long for it.
[[nodiscard]] std::string QuotedName(std::string_view name);
// What an object is, with its name, or its number when it has none: brep "lid", brep 17.
[[nodiscard]] std::string DescribeByName(const CRhinoObject& object);

}  // namespace host

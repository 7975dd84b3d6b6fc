#pragma once

#include <string>
#include <string_view>

namespace orv {

// The shader file for a name that a user typed: NAME.slb in the folder usershaders of the
// renderer's folder ORVHOME or, when there is none, in the folder shaders, whether it is there or
// not. With "\" between folders. Without ORVHOME it is NAME.slb, or NAME.slb.slb when there is no
// such file.
std::string ResolveShaderPath(std::string_view name);

// The shader file for a name of the renderer's own list: NAME.slb in the folder shaders of ORVHOME,
// whether it is there or not. With "\" between folders. Without ORVHOME it is NAME.slb.
std::string ListedShaderPath(std::string_view name);

}  // namespace orv

#pragma once

#include "host/geometry/on_uuid.h"

// Ids of classes that are both read and written.

namespace host {

inline constexpr ON_UUID kLayerClass = "95809813-e985-11d3-bfe5-0010830122f0"_uuid;
inline constexpr ON_UUID kLightClass = "85a08513-f383-11d3-bfe7-0010830122f0"_uuid;
inline constexpr ON_UUID kMaterialClass = "60b5dbbc-e660-11d3-bfe4-0010830122f0"_uuid;
inline constexpr ON_UUID kTextureClass = "d6ff106d-329b-4f29-97e2-fd282a618020"_uuid;

}  // namespace host

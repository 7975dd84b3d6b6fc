#pragma once

#include "host/archive/binary_archive.h"
#include "host/geometry/on_settings.h"

// What a document says of itself apart from its tables: properties, settings, views. Each function
// is called with the record's chunk open. False when the record is broken; the archive then holds
// the reason, and the values that stood there before stay. A record of a kind that isn't used is
// passed over.

namespace host {

[[nodiscard]] bool ReadPropertiesRecord(ON_BinaryArchive& archive, std::uint32_t typecode,
                                        ON_3dmProperties& properties);

// `value` is that of a short chunk.
[[nodiscard]] bool ReadSettingsRecord(ON_BinaryArchive& archive, std::uint32_t typecode,
                                      std::int64_t value, ON_3dmSettings& settings);

// The parameters by which surfaces are meshed.
[[nodiscard]] bool ReadMeshParameters(ON_BinaryArchive& archive, ON_MeshParameters& parameters);

// A list of views, or of construction planes, as the settings keep them. What stands before a
// broken one is kept.
[[nodiscard]] bool ReadViewList(ON_BinaryArchive& archive, std::vector<ON_3dmView>& views);
[[nodiscard]] bool ReadConstructionPlaneList(ON_BinaryArchive& archive,
                                             std::vector<ON_3dmConstructionPlane>& planes);

}  // namespace host

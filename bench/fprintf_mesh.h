#pragma once

#include <string>

#include "host/geometry/on_mesh.h"

// Writes a mesh with normals and texture coordinates as the mesh writer does in its plain form,
// byte for byte, by the C library's means alone: what the mesh writer is compared with. False when
// the file can't be written.
[[nodiscard]] bool WriteMeshWithFprintf(const std::string& path, const ON_Mesh& mesh);

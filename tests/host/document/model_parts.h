#pragma once

#include <string>
#include <string_view>

#include "host/archive/model.h"

// Parts of documents, for tests.

// An id that ends in `number`.
ON_UUID TestId(unsigned number);

// A triangle with corners at `corner`, one unit along x and one along y, on layer 0.
ONX_ModelObject TriangleObject(const ON_UUID& id, ON_3fPoint corner = {0, 0, 0});
ONX_ModelLight PointLight(const ON_UUID& id);
ON_Layer Layer(std::string_view name, const ON_UUID& id, const ON_UUID& parent_id = {});
// Looks from `location` at the origin; its port is 800 by 600 pixels.
ON_3dmView View(std::string_view name, ON_Viewport::View projection,
                ON_3dPoint location = {0, 0, 100});

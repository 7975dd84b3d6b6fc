#pragma once

#include <memory>
#include <string_view>

#include "export_fixture.h"

// A rectangle of the xy plane as one quad, `width` along x and `height` along y. The texture lies
// over it once, with u along x.
std::shared_ptr<ON_Mesh> TexturedRectangle(float width, float height);

// A mesh object with the id "00000000-0000-4000-8000-0000000000NN" for the number NN.
ONX_ModelObject NumberedObject(std::shared_ptr<ON_Geometry> geometry, std::uint8_t number);
std::string IdOf(std::uint8_t number);

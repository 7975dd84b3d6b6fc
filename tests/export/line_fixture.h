#pragma once

#include <functional>
#include <memory>
#include <string>

#include "export/object_stream.h"
#include "export_fixture.h"
#include "shading/object_attributes.h"

// Writes single objects without a surface: curves, points, clouds, annotations. Without a gamma.
class LineTest : public ExportTest {
 protected:
  LineTest() { settings_.RhinoGamma = 1; }

  using Write = std::function<void(const orv::ObjectStream&, const CRhinoObject&)>;
  // What `write` writes of an object of the geometry, with the object's host attributes
  // `hostAttributes_` in a document of `model_`. Materials are numbered with `useObjectNumbers_`.
  std::string WrittenOf(std::shared_ptr<ON_Geometry> geometry, const Write& write);

  ON_3dmObjectAttributes hostAttributes_;
  orv::ObjectAttributes attributes_;
  bool useObjectNumbers_ = false;
};

// The constant group of a colour, whose three numbers `color` has.
std::string ConstantLook(std::string_view color = "0 0 0");

#include <cstddef>
#include <cstdint>
#include <span>

#include "host/archive/model_reader.h"
#include "host/geometry/on_curve.h"
#include "host/geometry/on_nurbs_curve.h"

namespace {

// Curves that were read are valid, and have an answer to everything.
void Ask(const ON_Curve& curve) {
  if (!curve.IsValid()) __builtin_trap();
  double length = 0;
  static_cast<void>(curve.GetLength(&length));
  static_cast<void>(curve.IsClosed());
  static_cast<void>(curve.IsPolyline());
  static_cast<void>(curve.NurbsCurve());
  static_cast<void>(curve.BoundingBox());
}

}  // namespace

// Documents of foreign bytes: whatever they are, reading ends with a result.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  ONX_Model model;
  const ON_ReadResult result = ON_ReadModel(std::as_bytes(std::span(data, size)), model);
  // An error has words, a success has none.
  if (result.ok != result.error.empty()) __builtin_trap();
  for (const ONX_ModelObject& object : model.m_object_table) {
    if (const ON_Curve* curve = ON_Curve::Cast(object.m_geometry.get())) Ask(*curve);
  }
  return 0;
}

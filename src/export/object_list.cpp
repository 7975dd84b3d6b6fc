#include "export/object_list.h"

#include "host/document/object_iterator.h"
#include "host/geometry/on_light.h"

namespace orv {
namespace {

constexpr std::size_t kInitialCapacity = 256;

// The objects of which `isWanted` says so, and every light, in the document's order.
template <class IsWanted>
ObjectList LightsAnd(CRhinoDoc& doc, IsWanted isWanted) {
  ObjectList objects;
  objects.reserve(kInitialCapacity);
  CRhinoObjectIterator iterator(doc);
  iterator.IncludeLights();
  for (CRhinoObject* object = iterator.First(); object != nullptr; object = iterator.Next()) {
    const bool isLight = ON_Light::Cast(object->Geometry()) != nullptr;
    if (isLight || isWanted(*object)) objects.push_back(object);
  }
  return objects;
}

}  // namespace

ObjectList GatherObjects(CRhinoDoc& doc, bool selectedOnly, const RenderSettings& settings) {
  const bool takesUnselected = !selectedOnly || settings.BakeEnable;
  return LightsAnd(doc, [=](const CRhinoObject& object) {
    return (takesUnselected || object.IsSelected()) && object.IsVisible();
  });
}

ObjectList GatherBakeObjects(CRhinoDoc& doc, bool selectedOnly) {
  return LightsAnd(
      doc, [=](const CRhinoObject& object) { return !selectedOnly || object.IsSelected(); });
}

}  // namespace orv

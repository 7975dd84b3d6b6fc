#include "export/object_list.h"

#include "host/document/object_iterator.h"
#include "host/geometry/on_light.h"

namespace orv {
namespace {

constexpr std::size_t kInitialCapacity = 256;

}  // namespace

ObjectList GatherObjects(CRhinoDoc& doc, bool selectedOnly, const RenderSettings& settings) {
  ObjectList objects;
  objects.reserve(kInitialCapacity);
  CRhinoObjectIterator iterator(doc);
  iterator.IncludeLights();
  for (CRhinoObject* object = iterator.First(); object != nullptr; object = iterator.Next()) {
    const bool isLight = ON_Light::Cast(object->Geometry()) != nullptr;
    const bool isWanted = !selectedOnly || object->IsSelected() || settings.BakeEnable;
    if (isLight || (isWanted && object->IsVisible())) objects.push_back(object);
  }
  return objects;
}

}  // namespace orv

#include "interactive/event_watcher.h"

#include "host/document/app.h"
#include "host/document/object_iterator.h"
#include "interactive/interactive_render.h"

namespace orv {
namespace {

// The position of the material that an object is shown with; -1 for none.
int MaterialIndexOf(const CRhinoObject& object, const CRhinoDoc& doc) {
  const ON_3dmObjectAttributes& attributes = object.Attributes();
  switch (attributes.MaterialSource()) {
    case ON_AttributeSource::layer: {
      const ON_Layer* layer = doc.m_layer_table.At(attributes.m_layer_index);
      return layer == nullptr ? -1 : layer->RenderMaterialIndex();
    }
    case ON_AttributeSource::object:
    case ON_AttributeSource::parent:
      return attributes.m_material_index;
    default:
      return -1;
  }
}

bool IsBrepOrMesh(const CRhinoObject& object) {
  return object.ObjectType() == ON_ObjectType::brep || object.ObjectType() == ON_ObjectType::mesh;
}

}  // namespace

void OrvEventWatcher::LightTableEvent(CRhinoTableEvent event, const CRhinoLightTable& /*table*/,
                                      int index, const ON_Light* /*oldLight*/) {
  // A deleted light is still there, but not in the table.
  const auto lights = RhinoApp().ActiveDoc().Lights();
  if (!render_.IsRunning() || index < 0 || index >= static_cast<int>(lights.size())) return;
  const CRhinoObject* light = lights[static_cast<std::size_t>(index)].get();
  switch (event) {
    case CRhinoTableEvent::added:
      render_.SendNewLight(*light);
      break;
    case CRhinoTableEvent::deleted:
      render_.SendLightSwitch(*light, false);
      break;
    case CRhinoTableEvent::undeleted:
      render_.SendLightSwitch(*light, true);
      break;
    case CRhinoTableEvent::modified:
      render_.SendLightTweak(*light, true);
      break;
  }
}

void OrvEventWatcher::MaterialTableEvent(CRhinoTableEvent event,
                                         const CRhinoMaterialTable& /*table*/, int index,
                                         const ON_Material* /*oldMaterial*/) {
  if (event != CRhinoTableEvent::added && event != CRhinoTableEvent::modified) return;
  CRhinoDoc& doc = RhinoApp().ActiveDoc();
  CRhinoObjectIterator objects(doc);
  for (CRhinoObject* object = render_.IsRunning() ? objects.First() : nullptr; object != nullptr;
       object = objects.Next()) {
    if (!IsBrepOrMesh(*object) || MaterialIndexOf(*object, doc) != index) continue;
    render_.SendObject(*object);
    if (!render_.IsRunning()) return;
  }
}

void COrvConduit::NotifyConduit(CRhinoConduitEvent event, CRhinoView& view) {
  if (event != CRhinoConduitEvent::view_changed || !render_.IsRunning()) return;
  const CRhinoViewport& viewport = view.Viewport();
  if (viewport.ViewportId() == render_.ViewportId()) render_.SendCamera(viewport);
}

}  // namespace orv

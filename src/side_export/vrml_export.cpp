#include "side_export/vrml_export.h"

#include <string>
#include <vector>

#include "export/bake_maps.h"
#include "export/output_file.h"
#include "host/document/app.h"
#include "host/document/object_iterator.h"
#include "host/document/render_meshes.h"
#include "host/system/file.h"
#include "host/system/interrupt.h"
#include "host/system/text.h"
#include "side_export/vrml_shape.h"
#include "side_export/vrml_viewpoint.h"

namespace orv {
namespace {

void WriteBackground(VrmlStream& stream, ON_Color sky) {
  stream.Write(host::Format("Background {\nskyColor [%g %g %g]\n}\n", sky.FractionRed(),
                            sky.FractionGreen(), sky.FractionBlue()));
}

// The active view comes first: it is the one that a viewer begins with.
void WriteViewpoints(VrmlStream& stream, const CRhinoDoc& doc) {
  const CRhinoView* active = doc.ActiveView();
  if (active != nullptr) WriteViewpoint(stream, active->Viewport());
  std::vector<CRhinoView*> views;
  doc.GetViewList(views, true, false);
  for (const CRhinoView* view : views) {
    if (view != active) WriteViewpoint(stream, view->Viewport());
  }
}

// With their render meshes, which are made at once for all of them.
std::vector<const CRhinoObject*> ObjectsWithShapes(CRhinoDoc& doc) {
  std::vector<const CRhinoObject*> objects;
  CRhinoObjectIterator iterator(doc);
  for (CRhinoObject* object = iterator.First(); object != nullptr; object = iterator.Next()) {
    if (CanBeBaked(*object)) objects.push_back(object);
  }
  std::vector<CRhinoObjRef> meshes;
  RhinoGetRenderMeshes(objects, meshes);
  return objects;
}

// False when the user asked to interrupt.
bool WriteScene(VrmlStream& stream, CRhinoDoc& doc, const VrmlLook& look) {
  stream.Write("#VRML V2.0 utf8\n");
  WriteBackground(stream, look.Sky);
  WriteViewpoints(stream, doc);
  for (const CRhinoObject* object : ObjectsWithShapes(doc)) {
    if (host::InterruptRequested()) return false;
    WriteShape(stream, *object, look.MapPattern);
  }
  return !host::InterruptRequested();
}

// What became of the file.
enum class Outcome { Whole, NotOpened, Cancelled, Broken };

Outcome WriteFile(const std::string& path, CRhinoDoc& doc, const VrmlLook& look) {
  VrmlStream stream(path);
  if (!stream.IsOpen()) return Outcome::NotOpened;
  if (!WriteScene(stream, doc, look)) {
    RhinoApp().Print("Export cancelled.\n");
    return Outcome::Cancelled;
  }
  if (stream.Close()) return Outcome::Whole;
  const std::string cause = host::LastSystemError();
  RhinoApp().Print(host::Format("Unable to write %s: %s.\n", path.c_str(), cause.c_str()));
  return Outcome::Broken;
}

// The command doesn't fail by what it writes.
CommandResult ResultOf(Outcome outcome) {
  switch (outcome) {
    case Outcome::NotOpened:
      return CommandResult::failure;
    case Outcome::Cancelled:
      return CommandResult::cancel;
    case Outcome::Whole:
    case Outcome::Broken:
      break;
  }
  return CommandResult::success;
}

}  // namespace

CommandResult ExportVrml(const std::string& path, CRhinoDoc& doc, const VrmlLook& look) {
  OlderFile olderFile(path);
  const Outcome outcome =
      olderFile.IsOutOfTheWay() ? WriteFile(path, doc, look) : Outcome::NotOpened;
  if (outcome == Outcome::NotOpened) RhinoApp().Print("Unable to open file for export.\n");
  if (outcome == Outcome::Whole) {
    olderFile.Discard();
  } else if (!olderFile.Restore()) {
    RhinoApp().Print(
        host::Format("The older file is kept as %s.\n", olderFile.BackupPath().c_str()));
  }
  return ResultOf(outcome);
}

}  // namespace orv

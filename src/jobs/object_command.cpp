#include "jobs/object_command.h"

#include "host/document/object.h"
#include "jobs/attribute_options.h"
#include "jobs/objects_to_edit.h"
#include "shading/object_attributes.h"

namespace orv {
namespace {

using Record = ObjectAttributes;
using Marks = ObjectAttributes::ChangeMarks;
using ObjectOption = AttributeOption<Record, bool Marks::*>;

// A sprite is the patch of the document's key.
constexpr std::string_view kPointTypes[] = {"Sphere", "Sprite", "Blobby", "Volume", "Disk"};
constexpr std::string_view kCurveTypes[] = {"Auto", "Polyline", "Ribbon", "Tube"};
constexpr SettingBounds kAnyWidth{0, 1000};

constexpr ObjectOption kOptions[] = {
    {"InCamera", &Record::VisibleToCamera, &Marks::VisibleToCamera},
    {"Reflected", &Record::Reflected, &Marks::Reflected},
    {"CastShadow", &Record::CastShadow, &Marks::CastShadow},
    {"BackFaces", &Record::BackFace, &Marks::BackFace},
    {"ShadeCurves", &Record::ShadeCurves, &Marks::ShadeCurves},
    {"Subdivide", &Record::SubdivisionMesh, &Marks::SubdivisionMesh},
    {"Weld", &Record::WeldPolyVerts, &Marks::WeldPolyVerts},
    {"PointType", &Record::PointType, &Marks::PointType, {}, {}, kPointTypes},
    {"CurveType", &Record::CurveType, &Marks::CurveType, {}, {}, kCurveTypes},
    {"UseLineColor", &Record::UseLineColor, &Marks::UseLineColor},
    {"LineColor", &Record::LineColor, &Marks::LineColor, "Line color "},
    {"UseLineWidth", &Record::UseLineWidth, &Marks::UseLineWidth},
    {"LineWidth", &Record::LineWidth, &Marks::LineWidth, "Line width ", kAnyWidth},
    {"UseTolerance", &Record::UseFlatness, &Marks::UseFlatness},
    {"Tolerance", &Record::Flatness, &Marks::Flatness, "Tolerance ", kAnyWidth},
};

}  // namespace

CCommandOrvObject::CCommandOrvObject(CSceneOutPlugIn& plugIn)
    : COrvCommand(
          plugIn, "6fa6523f-1ca8-4196-a3d7-d6175c00ca41"_uuid, "OrvObject",
          "Edits what the renderer does with objects: visibility, curves, points, lines.",
          "Asks for the objects unless some are selected. The options show the first one's\n"
          "attributes; Enter stores what was changed in all objects.\n") {}

CommandResult CCommandOrvObject::RunCommand(CRhinoCommandContext& context) {
  std::vector<CRhinoObject*> objects;
  const CommandResult asked = GetObjectsToEdit(context, objects);
  if (asked != CommandResult::success) return asked;
  ObjectAttributes attributes = ReadObjectAttributes(*objects.front());
  const CommandResult edited = EditAttributes(
      context, "Orv Object", std::span<const ObjectOption>(kOptions), attributes,
      [](const ObjectOption&) { return std::string(); },
      [&attributes](const ObjectOption& option) {
        attributes.Changed.*option.Changed = true;
        return CommandResult::success;
      });
  if (edited != CommandResult::success) return edited;
  for (CRhinoObject* object : objects) {
    // An object that can't be changed is passed over.
    static_cast<void>(WriteObjectAttributes(context.m_doc, *object, attributes));
  }
  return CommandResult::success;
}

}  // namespace orv

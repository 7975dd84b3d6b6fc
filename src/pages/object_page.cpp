#include "pages/object_page.h"

#include "host/document/object.h"
#include "pages/property_undo.h"

namespace orv {
namespace {

using Record = ObjectAttributes;
using Marks = ObjectAttributes::ChangeMarks;
using Row = CObjectDlg::Row;
using Kind = CRhinoControlKind;

constexpr std::string_view kWidths[] = {"0.1", "0.2", "0.3", "0.5", "0.7",
                                        "1.0", "1.5", "2",   "3",   "4"};
// A sprite is the patch of the document's key.
constexpr std::string_view kPointTypes[] = {"sphere", "sprite", "blobby", "volume", "disk"};
constexpr std::string_view kCurveTypes[] = {"auto", "polyline", "ribbon", "tube"};
constexpr std::string_view kRenderMeshStates[] = {"No", "Mixed", "Yes"};
constexpr std::string_view kTolerances[] = {"0.25", "0.35", "0.5", "0.7", "1.0",
                                            "1.4",  "2",    "3",   "4"};
constexpr std::string_view kArchiveModes[] = {"Disable archive", "Insert archive",
                                              "Substitute archive"};
constexpr std::string_view kMeshFileModes[] = {"Disable mesh file", "Export mesh", "Bake mesh",
                                               "Bake and use"};

constexpr FileQuestion kMeshFile{
    {"Export Mesh File",
     "Wavefront OBJ (*.obj);*.obj;Stereolithography (*.stl);*.stl;RenderMan (*.rib);*.rib;"
     "PLY - Polygon File Format (*.ply);*.ply;All file;*.*;"},
    FileQuestion::Dialog::save,
    {},
    &UserValues::MeshDir};

constexpr Row kRows[] = {
    {"VisibleToCamera", "Camera", Kind::check, &Record::VisibleToCamera, &Marks::VisibleToCamera},
    {"Reflected", "Reflected", Kind::check, &Record::Reflected, &Marks::Reflected},
    {"CastShadow", "Cast shadow", Kind::check, &Record::CastShadow, &Marks::CastShadow},
    {"BackFace", "Back faces", Kind::check, &Record::BackFace, &Marks::BackFace},
    {"UseLineWidth", "Scale width:", Kind::check, &Record::UseLineWidth, &Marks::UseLineWidth},
    {"LineWidth",
     "Scale width:",
     Kind::combo,
     &Record::LineWidth,
     &Marks::LineWidth,
     {kWidths, {0, 100}}},
    {"UseLineColor", "Set color:", Kind::check, &Record::UseLineColor, &Marks::UseLineColor},
    {"LineColor", "Set color:", Kind::color, &Record::LineColor, &Marks::LineColor},
    {"ShadeCurves", "Shade curves, points", Kind::check, &Record::ShadeCurves, &Marks::ShadeCurves},
    {"PointType", "Point type:", Kind::list, &Record::PointType, &Marks::PointType, {kPointTypes}},
    {"CurveType", "Curve type:", Kind::list, &Record::CurveType, &Marks::CurveType, {kCurveTypes}},
    {"RenderMesh",
     "Use Rhino mesh",
     Kind::three_state,
     &Record::RenderMesh,
     &Marks::RenderMesh,
     {kRenderMeshStates}},
    {"UseFlatness", "Tolerance:", Kind::check, &Record::UseFlatness, &Marks::UseFlatness},
    {"Flatness",
     "Tolerance:",
     Kind::combo,
     &Record::Flatness,
     &Marks::Flatness,
     {kTolerances, {0.1, 100}}},
    {"SubdivisionMesh", "Subdivision mesh", Kind::check, &Record::SubdivisionMesh,
     &Marks::SubdivisionMesh},
    {"WeldPolyVerts", "Weld polygon vertices", Kind::check, &Record::WeldPolyVerts,
     &Marks::WeldPolyVerts},
    {"ArchiveMode",
     "Archive mode:",
     Kind::list,
     &Record::ArchiveMode,
     &Marks::ArchiveMode,
     {kArchiveModes}},
    {"Archive",
     "Archive:",
     Kind::path,
     &Record::Archive,
     &Marks::Archive,
     {.File = &kRibFileQuestion}},
    {"UseMeshFile",
     "Mesh file mode:",
     Kind::list,
     &Record::UseMeshFile,
     &Marks::UseMeshFile,
     {kMeshFileModes}},
    {"MeshFile",
     "Mesh file:",
     Kind::path,
     &Record::MeshFile,
     &Marks::MeshFile,
     {.File = &kMeshFile}},
};

}  // namespace

CObjectDlg::CObjectDlg(CSceneOutPlugIn& plugIn)
    : PropertyPage(plugIn, "OrvObject", PropertyTarget::objects, kRows) {}

ObjectAttributes CObjectDlg::ReadRecord(const CRhinoObject& object) const {
  return ReadObjectAttributes(object);
}

void CObjectDlg::Store(CRhinoDoc& doc, const Row& row) {
  ObjectAttributes change;
  row.Copy(Shown(), change);
  change.Changed.*row.Changed = true;
  // A chosen colour is meant to be used.
  if (change.Changed.LineColor) {
    Shown().UseLineColor = change.UseLineColor = change.Changed.UseLineColor = true;
  }
  const PropertyUndo undo(doc, "Orv object change");
  for (CRhinoObject* object : Targets(doc)) {
    // An object that can't be changed is passed over.
    static_cast<void>(WriteObjectAttributes(doc, *object, change));
  }
}

}  // namespace orv

#include "support/rib_checker.h"

#include <algorithm>
#include <array>
#include <set>

#include "support/rib_bake_checker.h"
#include "support/rib_mesh_checker.h"
#include "support/rib_nurbs_checker.h"
#include "support/rib_parser.h"

namespace {

// clang-format off
const std::set<std::string_view> kStatementNames = {
    "ArchiveBegin", "ArchiveEnd", "ArchiveInstance", "ArchiveRecord", "AreaLightSource",
    "Atmosphere", "Attribute", "AttributeBegin", "AttributeEnd", "Blobby", "Bound", "Camera",
    "Clipping", "ClippingPlane", "Color", "ColorSamples", "ConcatTransform", "Cone",
    "CoordinateSystem", "CoordSysTransform", "CropWindow", "Curves", "Cylinder", "Declare",
    "DepthOfField", "Detail", "DetailRange", "Disk", "Displacement", "Display", "Exposure",
    "Exterior", "Format", "FrameAspectRatio", "FrameBegin", "FrameEnd", "FreeArchive",
    "GeneralPolygon", "GeometricApproximation", "GeometricRepresentation", "Geometry", "Hider",
    "Hyperboloid", "Identity", "Illuminate", "Imager", "Instancer", "Interior", "LightSource",
    "MakeBump", "MakeCubeFaceEnvironment", "MakeLatLongEnvironment", "MakeShadow", "MakeTexture",
    "Matte", "MotionBegin", "MotionEnd", "NuCurves", "NuPatch", "ObjectBegin", "ObjectEnd",
    "ObjectInstance", "Opacity", "Option", "Orientation", "Paraboloid", "Patch", "PatchMesh",
    "Perspective", "PixelFilter", "PixelSamples", "PixelVariance", "Points",
    "PointsGeneralPolygons", "PointsPolygons", "Polygon", "Procedural", "Projection", "Quantize",
    "ReadArchive", "RelativeDetail", "ReverseOrientation", "Rotate", "Scale", "ScreenWindow",
    "ShadingInterpolation", "ShadingRate", "Shutter", "Sides", "Skew", "SolidBegin", "SolidEnd",
    "Sphere", "SubdivisionMesh", "Surface", "TextureCoordinates", "Torus", "Transform",
    "TransformBegin", "TransformEnd", "Translate", "TrimCurve", "Volume", "WorldBegin", "WorldEnd",
    "version"};
constexpr std::array<std::string_view, 8> kBlocks = {
    "Frame", "World", "Attribute", "Archive", "Motion", "Transform", "Object", "Solid"};
// clang-format on

std::string_view BlockOf(std::string_view name, std::string_view ending) {
  for (const std::string_view block : kBlocks) {
    if (name.size() == block.size() + ending.size() && name.starts_with(block) &&
        name.ends_with(ending)) {
      return block;
    }
  }
  return {};
}

class BlockChecker {
 public:
  explicit BlockChecker(RibReport& report) : report_(report) {}

  void Take(const RibStatement& statement) {
    if (!BlockOf(statement.Name, "Begin").empty()) open_.push_back(&statement);
    const std::string_view closed = BlockOf(statement.Name, "End");
    if (closed.empty()) return;
    if (open_.empty() || BlockOf(open_.back()->Name, "Begin") != closed) {
      const std::string opened =
          open_.empty() ? "nothing"
                        : open_.back()->Name + " of line " + std::to_string(open_.back()->Line);
      ComplainAboutLine(report_, statement.Line, statement.Name + " closes " + opened);
    }
    if (!open_.empty()) open_.pop_back();
  }

  void Finish() {
    for (const RibStatement* statement : open_) {
      ComplainAboutLine(report_, statement->Line, statement->Name + " is not closed");
    }
  }

 private:
  RibReport& report_;
  std::vector<const RibStatement*> open_;
};

void CheckStatements(RibReport& report) {
  BlockChecker blocks(report);
  RibDeclarations declared;
  for (const RibStatement& statement : report.Statements) {
    if (!kStatementNames.contains(statement.Name)) {
      ComplainAboutLine(report, statement.Line, "'" + statement.Name + "' is no statement");
    }
    blocks.Take(statement);
    const auto isText = [](const RibArgument& a) { return a.kind == RibArgument::Kind::text; };
    if (statement.Name == "Declare" && statement.Arguments.size() == 2 &&
        std::all_of(statement.Arguments.begin(), statement.Arguments.end(), isText)) {
      declared[statement.Arguments[0].Texts[0]] = statement.Arguments[1].Texts[0];
    }
    if (statement.Name == "PointsPolygons" || statement.Name == "SubdivisionMesh") {
      CheckRibMesh(statement, declared, report);
    }
    CheckRibNurbs(statement, report);
  }
  blocks.Finish();
}

}  // namespace

const RibArgument* RibStatement::Parameter(std::string_view name) const {
  for (std::size_t i = 0; i + 1 < Arguments.size(); ++i) {
    if (Arguments[i].kind == RibArgument::Kind::text && Arguments[i].Texts.front() == name) {
      return &Arguments[i + 1];
    }
  }
  return nullptr;
}

std::vector<const RibStatement*> RibReport::Named(std::string_view name) const {
  std::vector<const RibStatement*> named;
  for (const RibStatement& statement : Statements) {
    if (statement.Name == name) named.push_back(&statement);
  }
  return named;
}

RibReport CheckRib(std::string_view rib) {
  RibReport report;
  ParseRib(rib, report);
  CheckStatements(report);
  CheckRibBake(report);
  return report;
}

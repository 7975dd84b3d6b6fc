#include "bench_documents.h"

#include <unistd.h>

#include <array>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <numbers>
#include <utility>

#include "host/geometry/on_arc_curve.h"
#include "host/geometry/on_light.h"
#include "host/geometry/on_line_curve.h"
#include "host/geometry/on_nurbs_surface.h"
#include "host/geometry/on_polyline_curve.h"
#include "support/shapes.h"
#include "support/trimmed_faces.h"

namespace {

constexpr int kSide = 999;  // quads along a side of a mesh of a million vertices

// Quads along a side such that four vertices for each quad make a million.
constexpr int kApartSide = 500;

ONX_ModelObject ObjectOf(ON_Mesh mesh, std::string name) {
  ONX_ModelObject object;
  object.m_geometry = std::make_shared<ON_Mesh>(std::move(mesh));
  object.m_attributes.m_name = std::move(name);
  return object;
}

}  // namespace

ON_Mesh DenseMesh() {
  return MakeWaves(100 * std::numbers::pi, kSide, kSide);
}

ON_Mesh SeamedMesh() {
  return MakeTorusKnot({}, kSide, kSide);
}

ON_Mesh ApartMesh() {
  const ON_Mesh whole = MakeWaves(100 * std::numbers::pi, kApartSide, kApartSide);
  ON_Mesh apart;
  for (const ON_MeshFace& face : whole.m_F) {
    const int first = apart.VertexCount();
    for (const int corner : face.vi) {
      apart.m_V.push_back(whole.m_V[corner]);
      apart.m_N.push_back(whole.m_N[corner]);
      apart.m_T.push_back(whole.m_T[corner]);
    }
    apart.m_F.push_back({{first, first + 1, first + 2, first + 3}});
  }
  return apart;
}

std::int64_t NumberCount(const ON_Mesh& mesh) {
  constexpr std::int64_t kNumbersOfVertex = 3 + 3 + 2;
  const std::int64_t corners = std::int64_t{4} * mesh.FaceCount() - mesh.TriangleCount();
  return mesh.FaceCount() + corners + kNumbersOfVertex * mesh.VertexCount();
}

ONX_Model ModelOf(ON_Mesh mesh) {
  ONX_Model model;
  model.m_3dm_file_version = 50;
  model.m_object_table.push_back(ObjectOf(std::move(mesh), "mesh"));
  return model;
}

ONX_Model ManySmallObjects() {
  constexpr int kCount = 20000;
  constexpr int kRow = 200;
  ONX_Model model;
  model.m_3dm_file_version = 50;
  for (int i = 0; i < kCount; ++i) {
    const double x = 2.5 * (i % kRow);
    const double y = 2.5 * (i / kRow);
    model.m_object_table.push_back(
        ObjectOf(MakeBox({{x, y, 0}, {x + 1, y + 1, 1}}), "box " + std::to_string(i)));
  }
  return model;
}

namespace {

ON_Material MaterialOf(int number) {
  ON_Material material;
  material.m_name = "material " + std::to_string(number);
  material.m_diffuse = ON_Color(number, 100, 50);
  if (number % 2 == 0) return material;
  material.SetUserString("OrvSurface",
                         "\"VPlastic\" \"float Diffuse\" [0.5] \"color SpecularColor\" [1 1 1] "
                         "\"string ColorMapName\" [\"wood.tx\"] \"float Roughness\" [0.1]");
  material.SetUserString("OrvDisplacement", "\"VDents\" \"float BumpMax\" [0.1]");
  material.SetUserString("OrvDisplacementMode", "Regular");
  return material;
}

ONX_ModelLight LightOf(int number) {
  ONX_ModelLight light;
  light.m_light = std::make_shared<ON_Light>();
  light.m_light->m_style =
      number % 2 == 0 ? ON_LightStyle::world_point : ON_LightStyle::world_rectangular;
  light.m_light->m_location = {1.0 * number, 0, 10};
  light.m_light->SetUserString("OrvLightIntensity", "2.5");
  return light;
}

}  // namespace

ONX_Model ManyObjectsWithoutFaces(int attributeCount) {
  constexpr int kCount = 20000, kMaterials = 200, kLights = 50, kGroups = 100;
  constexpr std::array<std::array<const char*, 2>, 5> kStrings{{{"OrvCastShadow", "No"},
                                                                {"OrvWeldPolyVerts", "Yes"},
                                                                {"OrvUseFlatness", "Yes"},
                                                                {"OrvFlatness", "0.25"},
                                                                {"OrvCurveType", "ribbon"}}};
  ONX_Model model;
  model.m_3dm_file_version = 50;
  for (int i = 0; i < kMaterials; ++i) model.m_material_table.push_back(MaterialOf(i));
  for (int i = 0; i < kLights; ++i) model.m_light_table.push_back(LightOf(i));
  for (int i = 0; i < kGroups; ++i) {
    model.m_group_table.push_back({{}, "group " + std::to_string(i), i});
  }
  for (int i = 0; i < kCount; ++i) {
    ON_3dmObjectAttributes& attributes =
        model.m_object_table.emplace_back(ObjectOf(ON_Mesh(), "object " + std::to_string(i)))
            .m_attributes;
    attributes.m_material_source = ON_AttributeSource::object;
    attributes.m_material_index = i % kMaterials;
    attributes.m_group = {i % kGroups};
    for (int string = 0; string < attributeCount; ++string) {
      attributes.SetUserString(kStrings.at(string)[0], kStrings.at(string)[1]);
    }
  }
  return model;
}

namespace {

constexpr int kTrimmedFaces = 5000;

// A cubic surface of 3 x 3 spans over the square from 0 to 3.
std::shared_ptr<ON_NurbsSurface> Cubic(int number) {
  constexpr int kPoints = 6;
  ON_SimpleArray<ON_4dPoint> cvs;
  for (int i = 0; i < kPoints; ++i) {
    for (int j = 0; j < kPoints; ++j) {
      cvs.push_back({number + i / 7.0, j / 3.0, std::sin(i * j + number) / 2, 1});
    }
  }
  const ON_SimpleArray<double> knots{0, 0, 0, 1, 2, 3, 3, 3};
  auto surface = std::make_shared<ON_NurbsSurface>();
  surface->Create({4, 4}, {knots, knots}, std::move(cvs), false);
  return surface;
}

void AddFace(ON_Brep& brep, int number) {
  AddTrimmedFace(
      brep, Cubic(number),
      {PolygonLoop({{0.1, 0.2}, {2.9, 0.1}, {2.8, 2.7}, {0.3, 2.9}}), CircleLoop({1.5, 1.4}, 0.7)});
}

std::shared_ptr<ON_Curve> CurveOf(int number) {
  const double x = number / 7.0;
  switch (number % 4) {
    case 0:
      return std::make_shared<ON_LineCurve>(ON_3dPoint{x, 0, 0}, ON_3dPoint{x, 1.23456, 2});
    case 1: {
      auto polyline = std::make_shared<ON_PolylineCurve>();
      for (int i = 0; i < 10; ++i) {
        polyline->m_pline.push_back({x, i / 3.0, i * i / 11.0});
        polyline->m_t.push_back(i);
      }
      return polyline;
    }
    case 2:
      return std::make_shared<ON_ArcCurve>(
          ON_Arc{.plane = {.origin = {x, 0, 0}}, .radius = 1.5, .m_angle = {0.1, 2.9}});
    default: {
      auto cubic = std::make_shared<ON_NurbsCurve>();
      cubic->Create(4, {0, 0, 0, 1, 2, 2, 2},
                    {{x, 0, 0, 1},
                     {x, 1 / 3.0, 0.7, 1},
                     {x + 1, 2 / 3.0, 0.1, 1},
                     {x, 4 / 3.0, 1.1, 1},
                     {x, 2, 0, 1}});
      return cubic;
    }
  }
}

}  // namespace

ON_Brep ManyTrimmedFaces() {
  ON_Brep brep;
  for (int i = 0; i < kTrimmedFaces; ++i) AddFace(brep, i);
  return brep;
}

ONX_Model ManyTrimmedSurfaces() {
  ONX_Model model;
  for (int i = 0; i < kTrimmedFaces; ++i) {
    auto brep = std::make_shared<ON_Brep>();
    AddFace(*brep, i);
    model.m_object_table.emplace_back().m_geometry = std::move(brep);
  }
  return model;
}

ONX_Model ManyCurves(bool dashed) {
  constexpr int kCount = 50000;
  ONX_Model model;
  model.m_linetype_table.resize(1);
  model.m_linetype_table[0].m_segments = {{2, false}, {1, true}};
  for (int i = 0; i < kCount; ++i) {
    ONX_ModelObject& object = model.m_object_table.emplace_back();
    object.m_geometry = CurveOf(i);
    object.m_attributes.m_linetype_source = ON_AttributeSource::object;
    object.m_attributes.m_linetype_index = dashed ? 0 : -1;
  }
  return model;
}

BenchFile::BenchFile(std::string_view name)
    : path_((std::filesystem::temp_directory_path() /
             ("orv-bench-" + std::to_string(getpid()) + "-" + std::string(name)))
                .string()) {}

BenchFile::BenchFile(std::string_view name, std::string_view content) : BenchFile(name) {
  std::ofstream(path_, std::ios::binary)
      .write(content.data(), static_cast<std::streamsize>(content.size()));
}

BenchFile::~BenchFile() {
  std::error_code ignored;
  std::filesystem::remove(path_, ignored);
}

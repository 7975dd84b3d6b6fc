#include "bench_documents.h"

#include <unistd.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <numbers>
#include <utility>

#include "host/geometry/on_light.h"
#include "support/shapes.h"

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

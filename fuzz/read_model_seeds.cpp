#include <cstdio>
#include <string>

#include "host/archive/model.h"
#include "host/geometry/on_annotation.h"
#include "host/geometry/on_arc_curve.h"
#include "host/geometry/on_instance_ref.h"
#include "host/geometry/on_line_curve.h"
#include "host/geometry/on_mesh.h"
#include "host/geometry/on_nurbs_curve.h"
#include "host/geometry/on_nurbs_surface.h"
#include "host/geometry/on_plane_surface.h"
#include "host/geometry/on_point_cloud.h"
#include "host/geometry/on_poly_curve.h"
#include "host/geometry/on_polyline_curve.h"
#include "host/geometry/on_rev_surface.h"
#include "host/geometry/on_sum_surface.h"
#include "host/system/file_replacement.h"
#include "host/system/path.h"
#include "support/brep_shapes.h"
#include "support/model_writer.h"
#include "support/shapes.h"
#include "support/solid_shapes.h"

// Makes the seeds of read_model_fuzz anew: read_model_seeds FOLDER.

namespace {

ON_UUID Id(std::uint8_t number) {
  ON_UUID id;
  id.bytes.fill(number);
  return id;
}

void AddViews(ONX_Model& model) {
  model.m_settings.m_views.resize(1);
  model.m_settings.m_views[0].m_name = "Perspective";
  model.m_settings.m_views[0].m_vp.m_projection = ON_Viewport::View::perspective;
  model.m_settings.m_named_views.resize(1);
  model.m_settings.m_named_views[0].m_name = "front door";
}

void AddTables(ONX_Model& model) {
  ON_Layer& layer = model.m_layer_table.emplace_back();
  layer.m_name = "layer";
  layer.m_id = Id(1);
  layer.SetUserString("key", "value");
  ON_Material& material = model.m_material_table.emplace_back();
  material.m_name = "material";
  material.m_textures.resize(2);
  material.m_textures[0].m_image_file = "C:\\textures\\wood.png";
  ON_Linetype& linetype = model.m_linetype_table.emplace_back();
  linetype.m_name = "dashes";
  linetype.m_segments = {{2, false}, {1, true}};
  model.m_group_table.push_back({Id(2), "group", 1});
  ON_InstanceDefinition& definition = model.m_idef_table.emplace_back();
  definition.m_id = Id(3);
  definition.m_name = "block";
  // The first two objects.
  definition.m_object_ids = {Id(5), Id(6)};
}

void AddLight(ONX_Model& model) {
  ONX_ModelLight& light = model.m_light_table.emplace_back();
  light.m_light = std::make_shared<ON_Light>();
  light.m_light->m_style = ON_LightStyle::world_spot;
  light.m_light->m_light_name = "spot";
}

void AddObject(ONX_Model& model, std::shared_ptr<ON_Geometry> geometry) {
  ONX_ModelObject& object = model.m_object_table.emplace_back();
  object.m_geometry = std::move(geometry);
  object.m_attributes.m_uuid = Id(static_cast<std::uint8_t>(4 + model.m_object_table.size()));
  object.m_attributes.m_name = "object";
  object.m_attributes.m_group = {1};
  object.m_attributes.SetUserString("key", "value");
}

ON_NurbsCurve SmallNurbsCurve() {
  ON_NurbsCurve curve;
  curve.Create(3, {0, 0, 1, 2, 2}, {{0, 0, 0, 1}, {1, 1, 0, 2}, {2, 0, 1, 0.5}, {3, 0, 0, 1}},
               true);
  return curve;
}

// A polycurve of a line and a polycurve.
std::shared_ptr<ON_PolyCurve> NestedCurve() {
  auto inner = std::make_unique<ON_PolyCurve>();
  inner->m_t = {0, 1, 3};
  inner->m_segment.push_back(std::make_unique<ON_ArcCurve>(ON_Arc{{}, 1, {0, 3}}));
  inner->m_segment.push_back(std::make_unique<ON_NurbsCurve>(SmallNurbsCurve()));
  auto outer = std::make_shared<ON_PolyCurve>();
  outer->m_t = {0, 1, 2};
  outer->m_segment.push_back(
      std::make_unique<ON_LineCurve>(ON_3dPoint{0, 0, 0}, ON_3dPoint{1, 0, 0}));
  outer->m_segment.push_back(std::move(inner));
  return outer;
}

void AddCurves(ONX_Model& model) {
  AddObject(model, std::make_shared<ON_LineCurve>(ON_3dPoint{0, 0, 0}, ON_3dPoint{1, 2, 3}));
  AddObject(model, std::make_shared<ON_ArcCurve>(ON_Arc{{}, 2, {0, 1}}));
  auto polyline = std::make_shared<ON_PolylineCurve>();
  polyline->m_pline = {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}};
  polyline->m_t = {0, 1, 2};
  AddObject(model, std::move(polyline));
  AddObject(model, std::make_shared<ON_NurbsCurve>(SmallNurbsCurve()));
  AddObject(model, NestedCurve());
}

void AddSurfaces(ONX_Model& model) {
  AddObject(model, std::make_shared<ON_PlaneSurface>());
  auto revolution = std::make_shared<ON_RevSurface>();
  revolution->m_angle = {0, 6};
  revolution->m_curve = std::make_shared<ON_LineCurve>(ON_3dPoint{1, 0, 0}, ON_3dPoint{2, 0, 3});
  AddObject(model, std::move(revolution));
  auto sum = std::make_shared<ON_SumSurface>();
  sum->m_curve[0] = std::make_shared<ON_ArcCurve>(ON_Arc{{}, 2, {0, 1}});
  sum->m_curve[1] = std::make_shared<ON_LineCurve>(ON_3dPoint{0, 0, 0}, ON_3dPoint{0, 0, 3});
  AddObject(model, std::move(sum));
  auto nurbs = std::make_shared<ON_NurbsSurface>();
  nurbs->Create(
      {2, 3}, {{{0, 1}, {0, 0, 1, 1}}},
      {{0, 0, 0, 1}, {0, 1, 1, 2}, {0, 2, 0, 1}, {1, 0, 0, 1}, {1, 1, 1, 2}, {1, 2, 0, 1}}, true);
  AddObject(model, std::move(nurbs));
}

void AddBreps(ONX_Model& model) {
  AddObject(model, MakePlateBrep(5, 2));
  std::unique_ptr<ON_Brep> cylinder = MakeCylinderBrep(2, 5);
  cylinder->m_F[1].m_render_mesh = std::make_shared<ON_Mesh>(MakeBox({{0, 0, 0}, {1, 2, 3}}));
  AddObject(model, std::move(cylinder));
}

void AddObjects(ONX_Model& model) {
  AddObject(model, std::make_shared<ON_Mesh>(MakeBox({{0, 0, 0}, {1, 2, 3}})));
  auto mesh = std::make_shared<ON_Mesh>(MakeSphere({0, 0, 0}, 1, 6, 4));
  mesh->m_C.assign(mesh->m_V.size(), ON_Color(10, 20, 30));
  AddObject(model, std::move(mesh));
  auto cloud = std::make_shared<ON_PointCloud>();
  cloud->m_P = {{0, 0, 0}, {1, 1, 1}};
  AddObject(model, std::move(cloud));
  auto plane = std::make_shared<ON_ClippingPlaneSurface>();
  plane->m_viewport_ids = {Id(7), Id(8)};
  AddObject(model, std::move(plane));
  AddCurves(model);
  AddBreps(model);
  AddSurfaces(model);
  auto placement = std::make_shared<ON_InstanceRef>();
  placement->m_instance_definition_uuid = Id(3);
  AddObject(model, std::move(placement));
  AddObject(model, nullptr);
}

ONX_Model Everything(int version) {
  ONX_Model model;
  model.m_3dm_file_version = version;
  model.m_start_section_comments = "seed";
  AddViews(model);
  AddTables(model);
  AddLight(model);
  AddObjects(model);
  model.m_document_user_strings.SetUserString("document", "string");
  ONX_PlugInData& data = model.m_userdata_table.emplace_back();
  data.m_plugin_id = Id(9);
  data.m_bytes = "bytes of a plug-in";
  return model;
}

// Extrusions and SubDs, whose records differ from version to version.
ONX_Model Solids(int version) {
  ONX_Model model;
  model.m_3dm_file_version = version;
  std::shared_ptr<ON_Extrusion> block = MakeDrilledBlock();
  block->m_bHaveN[1] = true;
  block->m_N[1] = {0.5, 0, 1};
  block->m_render_mesh = std::make_shared<ON_Mesh>(MakeBox({{0, 0, 0}, {1, 2, 3}}));
  AddObject(model, std::move(block));
  AddObject(model, std::make_shared<ON_SubD>(MakeSubDBox({{0, 0, 0}, {1, 2, 3}})));
  return model;
}

// Annotations and their styles, whose records differ from version to version.
ONX_Model Annotations(int version) {
  using Type = ON_Annotation::Type;
  ONX_Model model;
  model.m_3dm_file_version = version;
  ON_DimStyle& style = model.m_dimstyle_table.emplace_back();
  style.m_id = Id(20);
  style.m_font = "Arial";
  const std::pair<Type, std::vector<ON_2dPoint>> all[] = {
      {Type::text, {}},
      {Type::leader, {{0, 0}, {3, 4}, {9, 4}}},
      {Type::linear, {{0, 0}, {10, 3}, {5, 8}}},
      {Type::radius, {{0, 0}, {4, 3}, {8, 6}, {10, 6}}},
      {Type::angular, {{0, 0}, {4, 0}, {0, 4}, {6, 6}}},
      {Type::ordinate, {{7, 2}, {9, 12}, {7, 9}, {9, 10}}}};
  for (const auto& [type, points] : all) {
    auto annotation = std::make_shared<ON_Annotation>();
    annotation->m_type = type;
    annotation->m_points = points;
    annotation->m_text = "{\\rtf1\\deff0{\\fonttbl{\\f0 Arial;}}<> \\u176?\\'e9\\par}";
    annotation->m_dimstyle_id = Id(20);
    AddObject(model, std::move(annotation));
  }
  return model;
}

ONX_Model Empty(int version) {
  ONX_Model model;
  model.m_3dm_file_version = version;
  return model;
}

// The same bytes under another version, whose readers then find old records.
std::string UnderVersion(std::string bytes, std::string_view version) {
  constexpr std::size_t kVersionEnd = 32;
  return bytes.replace(kVersionEnd - version.size(), version.size(), version);
}

bool Write(const std::string& folder, const char* name, const std::string& bytes) {
  const std::string path = host::AppendPath(folder, name);
  if (!bytes.empty() && host::ReplaceFile(path, bytes)) return true;
  std::fprintf(stderr, "Can't write %s\n", path.c_str());
  return false;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fprintf(stderr, "usage: read_model_seeds FOLDER\n");
    return 2;
  }
  const std::string folder = argv[1];
  const std::string narrow = WriteModel(Everything(4));
  const std::string wide = WriteModel(Everything(50));
  const bool ok = Write(folder, "empty_4.3dm", WriteModel(Empty(4))) &&
                  Write(folder, "empty_50.3dm", WriteModel(Empty(50))) &&
                  Write(folder, "everything_2.3dm", UnderVersion(narrow, "2")) &&
                  Write(folder, "everything_4.3dm", narrow) &&
                  Write(folder, "everything_50.3dm", wide) &&
                  Write(folder, "everything_80.3dm", UnderVersion(wide, "80")) &&
                  Write(folder, "solids_4.3dm", WriteModel(Solids(4))) &&
                  Write(folder, "solids_50.3dm", WriteModel(Solids(50))) &&
                  Write(folder, "solids_70.3dm", UnderVersion(WriteModel(Solids(80)), "70")) &&
                  Write(folder, "solids_80.3dm", WriteModel(Solids(80))) &&
                  Write(folder, "annotations_4.3dm", WriteModel(Annotations(4))) &&
                  Write(folder, "annotations_50.3dm", WriteModel(Annotations(50))) &&
                  Write(folder, "cut.3dm", wide.substr(0, wide.size() * 3 / 4));
  return ok ? 0 : 1;
}

#include "support/still_life.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <numbers>
#include <string_view>
#include <utility>

#include "host/geometry/on_point_cloud.h"
#include "support/shapes.h"

namespace {

// The layers and materials, by their positions in the tables.
enum LayerIndex { kSet, kCeramics, kBowlLayer, kVaseLayer, kFruit, kSculpture, kLights, kHelpers };
enum MaterialIndex { kPaper, kCeladon, kCobalt, kOrange, kLemon, kPlum, kBrass, kChalk };

// Ids of the document's own: the kind of thing and its number.
ON_UUID IdOf(char kind, std::size_t number) {
  ON_UUID id = "b7e0d5a4-0000-4c11-9f3a-000000000000"_uuid;
  id.bytes[4] = static_cast<std::uint8_t>(kind);
  id.bytes[15] = static_cast<std::uint8_t>(number);
  return id;
}

void AddLayer(ONX_Model& model, std::string_view name, ON_Color color, int material,
              int parent = -1) {
  ON_Layer layer;
  layer.m_id = IdOf('L', model.m_layer_table.size());
  layer.m_name = name;
  layer.m_color = color;
  layer.m_render_material_index = material;
  if (parent >= 0) layer.m_parent_id = IdOf('L', static_cast<std::size_t>(parent));
  model.m_layer_table.push_back(std::move(layer));
}

void AddLayers(ONX_Model& model) {
  AddLayer(model, "Set", {190, 190, 190}, kPaper);
  AddLayer(model, "Ceramics", {120, 160, 140}, -1);
  AddLayer(model, "Bowl", {120, 170, 140}, kCeladon, kCeramics);
  AddLayer(model, "Vase", {40, 70, 150}, kCobalt, kCeramics);
  AddLayer(model, "Fruit", {230, 140, 40}, kOrange);
  AddLayer(model, "Sculpture", {180, 140, 60}, kBrass);
  AddLayer(model, "Lights", {255, 230, 120}, -1);
  AddLayer(model, "Helpers", {255, 0, 0}, -1);
  model.m_layer_table[kHelpers].m_visible = false;
}

void AddMaterial(ONX_Model& model, std::string_view name, ON_Color diffuse, double shine,
                 double reflectivity = 0) {
  ON_Material material;
  material.m_id = IdOf('M', model.m_material_table.size());
  material.m_name = name;
  material.m_diffuse = diffuse;
  material.m_shine = shine;
  material.m_reflectivity = reflectivity;
  model.m_material_table.push_back(std::move(material));
}

void AddMaterials(ONX_Model& model) {
  AddMaterial(model, "Paper", {226, 222, 214}, 0);
  AddMaterial(model, "Celadon", {150, 190, 165}, 180, 0.1);
  AddMaterial(model, "Cobalt", {34, 62, 140}, 220, 0.15);
  AddMaterial(model, "Orange", {238, 134, 28}, 60);
  AddMaterial(model, "Lemon", {242, 212, 48}, 60);
  AddMaterial(model, "Plum", {92, 36, 84}, 90);
  AddMaterial(model, "Brass", {196, 154, 72}, 230, 0.4);
  AddMaterial(model, "Chalk", {238, 238, 234}, 0);
}

// Adds an object and gives its attributes for what is special about it.
ON_3dmObjectAttributes& AddObject(ONX_Model& model, std::string_view name, LayerIndex layer,
                                  std::shared_ptr<ON_Geometry> geometry) {
  ONX_ModelObject object;
  object.m_attributes.m_uuid = IdOf('O', model.m_object_table.size());
  object.m_attributes.m_name = name;
  object.m_attributes.m_layer_index = layer;
  object.m_geometry = std::move(geometry);
  model.m_object_table.push_back(std::move(object));
  return model.m_object_table.back().m_attributes;
}

ON_3dmObjectAttributes& AddMesh(ONX_Model& model, std::string_view name, LayerIndex layer,
                                ON_Mesh mesh) {
  return AddObject(model, name, layer, std::make_shared<ON_Mesh>(std::move(mesh)));
}

void UseMaterial(ON_3dmObjectAttributes& attributes, MaterialIndex material) {
  attributes.m_material_source = ON_AttributeSource::object;
  attributes.m_material_index = material;
}

// A floor that rises at the back in a quarter of a circle.
ON_Mesh Backdrop() {
  constexpr double kWidth = 360, kFront = -160, kBack = 90, kBend = 60, kTop = 200;
  constexpr double kArc = kBend * std::numbers::pi / 2;
  constexpr double kLength = (kBack - kFront) + kArc + (kTop - kBend);
  return MakeSurface(12, 48, [](double u, double v) {
    const double x = kWidth * (u - 0.5);
    const double along = v * kLength;
    const double angle = std::clamp((along - (kBack - kFront)) / kBend, 0.0, std::numbers::pi / 2);
    const double flat = std::min(along, kBack - kFront);
    const double upright = std::max(along - (kBack - kFront) - kArc, 0.0);
    return SurfaceSample{
        {x, kFront + flat + kBend * std::sin(angle), kBend * (1 - std::cos(angle)) + upright},
        {1, 0, 0},
        {0, std::cos(angle), std::sin(angle)}};
  });
}

ON_Mesh Bowl() {
  constexpr ON_2dPoint kProfile[] = {{0, 0.6},   {6, 0.6},    {7, 0},     {8.2, 0.2},   {8.6, 1.4},
                                     {13, 4.2},  {18, 11},    {19.8, 16}, {19.5, 16.5}, {18.8, 16},
                                     {17, 11.4}, {12.2, 5.8}, {6, 3.4},   {0, 2.8}};
  return MakeTurned({-8, 8, 0}, kProfile, 56, 39);
}

ON_Mesh Vase() {
  constexpr ON_2dPoint kProfile[] = {{0, 0},    {7, 0},    {8.6, 0.8},  {12.6, 10}, {13.4, 19},
                                     {9.6, 29}, {5, 37},   {4.8, 42},   {6.9, 47},  {6.4, 47.4},
                                     {4.1, 42}, {4.2, 37}, {8.8, 28.6}, {12.4, 19}, {11.6, 10.4},
                                     {7.4, 2},  {0, 1.4}};
  return MakeTurned({30, 24, 0}, kProfile, 48, 48);
}

void AddSet(ONX_Model& model) {
  AddMesh(model, "Backdrop", kSet, Backdrop());
  auto& plinth = AddMesh(model, "Plinth", kSet, MakeBox({{-58, 8, 0}, {-32, 34, 18}}));
  UseMaterial(plinth, kChalk);
  plinth.m_mode = ON_ObjectMode::locked;
}

void AddCeramics(ONX_Model& model) {
  AddMesh(model, "Bowl", kBowlLayer, Bowl()).SetUserString("Glaze", "céladon");
  AddMesh(model, "Vase", kVaseLayer, Vase());
}

void AddFruit(ONX_Model& model) {
  struct Fruit {
    const char* name;
    ON_3dPoint center;
    double radius;
    MaterialIndex material;
  };
  constexpr Fruit kFruits[] = {
      {"Orange 1", {-14, 5, 11.2}, 6.6, kOrange}, {"Orange 2", {-7.5, 15, 11}, 6.4, kOrange},
      {"Lemon 1", {-1.5, 5, 10.6}, 5.8, kLemon},  {"Plum 1", {-7.6, 8.4, 19.4}, 4.6, kPlum},
      {"Plum 2", {16, -16, 4.4}, 4.4, kPlum},     {"Lemon 2", {26, -8, 5.2}, 5.2, kLemon},
  };
  for (const Fruit& fruit : kFruits) {
    auto& attributes =
        AddMesh(model, fruit.name, kFruit, MakeSphere(fruit.center, fruit.radius, 32, 16));
    UseMaterial(attributes, fruit.material);
    attributes.m_group = {0};
  }
  model.m_group_table.push_back({IdOf('G', 0), "Fruit", 0});
}

void AddSculpture(ONX_Model& model) {
  TorusKnot knot;
  knot.center = {-45, 21, 22.8};
  knot.radius = 7;
  knot.tube = 1.9;
  AddMesh(model, "Knot", kSculpture, MakeTorusKnot(knot, 144, 12));
  TorusKnot ring;
  ring.center = {-30, -20, 2};
  ring.radius = 8;
  ring.tube = 2;
  ring.turns = 1;
  ring.windings = 0;
  AddMesh(model, "Ring", kSculpture, MakeTorusKnot(ring, 48, 16));
  AddMesh(model, "Marble", kSculpture, MakeSphere({-30, -20, 3}, 3, 28, 14));
}

// What isn't seen: a hidden object, and objects on a layer that is off.
void AddHelpers(ONX_Model& model) {
  auto& draft = AddMesh(model, "Draft", kSculpture, MakeSphere({40, -30, 8}, 8, 16, 8));
  draft.m_mode = ON_ObjectMode::hidden;
  draft.m_visible = false;
  const auto point = std::make_shared<ON_Point>();
  point->point = {-8, 8, 0};
  AddObject(model, "Middle of the bowl", kHelpers, point);
  AddMesh(model, "Extent", kHelpers, MakeBox({{-60, -30, 0}, {46, 40, 50}}));
}

void AddLight(ONX_Model& model) {
  ONX_ModelLight key;
  key.m_light = std::make_shared<ON_Light>();
  key.m_light->m_style = ON_LightStyle::world_spot;
  key.m_light->m_light_name = "Key";
  key.m_light->m_light_id = IdOf('S', 0);
  key.m_light->m_location = {-110, -90, 150};
  key.m_light->m_direction = {105, 100, -138};
  key.m_light->m_diffuse = {255, 244, 226};
  key.m_light->m_spot_angle = 35;
  key.m_light->m_hotspot = 0.6;
  key.m_attributes.m_uuid = key.m_light->m_light_id;
  key.m_attributes.m_name = "Key";
  key.m_attributes.m_layer_index = kLights;
  model.m_light_table.push_back(std::move(key));
}

ON_3dmView PerspectiveView() {
  ON_3dmView view;
  view.m_name = "Perspective";
  view.m_target = {-6, 10, 15};
  view.m_window = {0.5, 1, 0, 1};
  ON_Viewport& viewport = view.m_vp;
  viewport.m_id = IdOf('V', 0);
  viewport.m_projection = ON_Viewport::View::perspective;
  const ON_3dPoint eye{42, -150, 62};
  if (!viewport.SetCameraFrame(eye, view.m_target - eye, {0, 0, 1})) return view;
  // A lens of 50 mm before a picture of 3 to 2.
  viewport.m_frustum = {-3.6, 3.6, -2.4, 2.4, 10, 600};
  viewport.m_port = {0, 1200, 800, 0, 0, 255};
  return view;
}

ON_3dmView TopView() {
  ON_3dmView view;
  view.m_name = "Top";
  view.m_target = {-6, 4, 0};
  view.m_window = {0, 0.5, 0, 1};
  ON_Viewport& viewport = view.m_vp;
  viewport.m_id = IdOf('V', 1);
  if (!viewport.SetCameraFrame({-6, 4, 300}, {0, 0, -300}, {0, 1, 0})) return view;
  viewport.m_frustum = {-75, 75, -50, 50, 1, 400};
  viewport.m_port = {0, 1200, 800, 0, 0, 255};
  return view;
}

}  // namespace

ONX_Model StillLife() {
  ONX_Model model;
  model.m_3dm_file_version = 50;
  model.m_start_section_comments = "RhinoOrv's example document";
  model.m_properties.m_application_name = "RhinoOrv example_model";
  model.m_properties.m_notes = "A still life for trying RhinoOrv.";
  model.m_properties.m_create_time = {2026, 1, 1, 12, 0, 0};
  model.m_settings.m_model_units.m_unit_system = ON_UnitSystem::centimeters;
  model.m_settings.m_render_settings.m_background_color = {226, 222, 214};
  model.m_settings.m_views = {PerspectiveView(), TopView()};
  model.m_document_user_strings.SetUserString("Title", "Still life");
  AddLayers(model);
  AddMaterials(model);
  AddSet(model);
  AddCeramics(model);
  AddFruit(model);
  AddSculpture(model);
  AddHelpers(model);
  AddLight(model);
  return model;
}

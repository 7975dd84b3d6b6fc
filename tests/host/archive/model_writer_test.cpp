#include "support/model_writer.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "host/archive/model_reader.h"
#include "host/geometry/on_arc_curve.h"
#include "host/geometry/on_instance_ref.h"
#include "host/geometry/on_line_curve.h"
#include "host/geometry/on_mesh.h"
#include "host/geometry/on_nurbs_curve.h"
#include "host/geometry/on_plane_surface.h"
#include "host/geometry/on_point_cloud.h"
#include "host/geometry/on_poly_curve.h"
#include "host/geometry/on_polyline_curve.h"
#include "support/shapes.h"

namespace {

constexpr ON_UUID kId1 = "11111111-2222-4333-8444-555555555551"_uuid;
constexpr ON_UUID kId2 = "11111111-2222-4333-8444-555555555552"_uuid;
constexpr ON_UUID kId3 = "11111111-2222-4333-8444-555555555553"_uuid;
constexpr ON_UUID kUnreadClass = "0559733b-5332-49d1-a936-0532ac76ade5"_uuid;

ONX_Model ReadBack(const ONX_Model& model) {
  const std::string bytes = WriteModel(model);
  EXPECT_FALSE(bytes.empty());
  ONX_Model read;
  const ON_ReadResult result = ON_ReadModel(std::as_bytes(std::span(bytes)), read);
  EXPECT_TRUE(result.ok) << result.error;
  for (const std::string& problem : read.m_problems) ADD_FAILURE() << problem;
  return read;
}

// Both widths of chunk lengths.
class ModelWriterTest : public testing::TestWithParam<int> {
 protected:
  ModelWriterTest() { model_.m_3dm_file_version = GetParam(); }

  ONX_ModelObject& AddObject(std::shared_ptr<ON_Geometry> geometry) {
    ONX_ModelObject& object = model_.m_object_table.emplace_back();
    object.m_geometry = std::move(geometry);
    return object;
  }

  ONX_Model model_;
};

INSTANTIATE_TEST_SUITE_P(Versions, ModelWriterTest, testing::Values(4, 50, 80));

TEST(ModelWriter, RefusesOtherVersions) {
  ONX_Model model;
  for (const int version : {0, 1, 2, 3, 5, 60, 70}) {
    model.m_3dm_file_version = version;
    EXPECT_EQ(WriteModel(model), "") << version;
  }
}

TEST_P(ModelWriterTest, AnEmptyModelIsADocument) {
  const ONX_Model read = ReadBack(model_);
  EXPECT_EQ(read.m_3dm_file_version, GetParam());
  EXPECT_EQ(read.m_3dm_opennurbs_version, 201008125u);
  EXPECT_TRUE(read.m_object_table.empty());
  EXPECT_TRUE(read.m_userdata_table.empty());
  EXPECT_TRUE(read.m_unread.empty());
}

TEST_P(ModelWriterTest, TheSameModelGivesTheSameBytes) {
  AddObject(std::make_shared<ON_Mesh>(MakeSphere({0, 0, 0}, 1, 16, 8)));
  EXPECT_EQ(WriteModel(model_), WriteModel(model_));
  EXPECT_EQ(WriteModel(ReadBack(model_)), WriteModel(model_));
}

TEST_P(ModelWriterTest, KeepsDimensionStylesAndTheirFonts) {
  ON_DimStyle style;
  style.m_id = kId1;
  style.m_name = "style";
  style.m_extextension = 2;
  style.m_extoffset = 3;
  style.m_arrowsize = 4;
  style.m_leaderarrowsize = 5;
  style.m_centermark = 6;
  style.m_textgap = 7;
  style.m_textheight = 8;
  style.m_lengthfactor = 9;
  style.m_lengthresolution = 1;
  style.m_angleresolution = 3;
  style.m_dimextension = 10;
  style.m_suppress_extension1 = true;
  style.m_angleformat = 1;
  style.m_arrowtype1 = style.m_arrowtype2 = 4;
  style.m_leaderarrowtype = 6;
  style.m_font = "Courier New";
  style.m_bold = true;
  style.m_prefix = "<";
  style.m_suffix = ">";
  model_.m_dimstyle_table = {ON_DimStyle(), style};
  model_.m_dimstyle_table[0].m_suppress_extension2 = true;
  model_.m_dimstyle_table[0].m_italic = true;
  const ONX_Model read = ReadBack(model_);
  ASSERT_EQ(read.m_dimstyle_table.size(), 2u);
  const ON_DimStyle& found = read.m_dimstyle_table[1];
  EXPECT_EQ(found.m_id, kId1);
  EXPECT_EQ(found.m_name, "style");
  for (double ON_DimStyle::*size :
       {&ON_DimStyle::m_extextension, &ON_DimStyle::m_extoffset, &ON_DimStyle::m_arrowsize,
        &ON_DimStyle::m_leaderarrowsize, &ON_DimStyle::m_centermark, &ON_DimStyle::m_textgap,
        &ON_DimStyle::m_textheight, &ON_DimStyle::m_lengthfactor, &ON_DimStyle::m_dimextension}) {
    EXPECT_EQ(found.*size, style.*size);
  }
  for (int ON_DimStyle::*number :
       {&ON_DimStyle::m_lengthresolution, &ON_DimStyle::m_angleresolution,
        &ON_DimStyle::m_angleformat, &ON_DimStyle::m_arrowtype1, &ON_DimStyle::m_arrowtype2,
        &ON_DimStyle::m_leaderarrowtype}) {
    EXPECT_EQ(found.*number, style.*number);
  }
  EXPECT_EQ(found.m_font, "Courier New");
  EXPECT_EQ(found.m_prefix, "<");
  EXPECT_EQ(found.m_suffix, ">");
  EXPECT_TRUE(found.m_bold && found.m_suppress_extension1);
  EXPECT_FALSE(found.m_italic || found.m_suppress_extension2);
  EXPECT_TRUE(read.m_dimstyle_table[0].m_italic && read.m_dimstyle_table[0].m_suppress_extension2);
}

TEST_P(ModelWriterTest, KeepsWhereTextsOfDimensionsStand) {
  model_.m_dimstyle_table.resize(3);
  model_.m_dimstyle_table[1].m_textlocation = 1;
  model_.m_dimstyle_table[2].m_texthorizontal = true;
  model_.m_dimstyle_table[2].m_lengthformat = 2;
  const std::vector<ON_DimStyle> read = ReadBack(model_).m_dimstyle_table;
  ASSERT_EQ(read.size(), 3u);
  EXPECT_EQ(read[0].m_textlocation, 0);
  EXPECT_FALSE(read[0].m_texthorizontal);
  EXPECT_EQ(read[1].m_textlocation, 1);
  EXPECT_FALSE(read[1].m_leadertexthorizontal);
  EXPECT_EQ(read[2].m_textlocation, 1);
  EXPECT_TRUE(read[2].m_texthorizontal);
  EXPECT_TRUE(read[2].m_leadertexthorizontal);
  // Feet and inches are told of inches.
  EXPECT_EQ(read[2].m_lengthformat, 2);
  EXPECT_EQ(read[2].m_lengthunit, 8);
}

TEST_P(ModelWriterTest, KeepsProperties) {
  model_.m_start_section_comments = "first words";
  model_.m_properties.m_application_name = "name ü";
  model_.m_properties.m_application_url = "url";
  model_.m_properties.m_application_details = "details";
  model_.m_properties.m_created_by = "me";
  model_.m_properties.m_last_edited_by = "you";
  model_.m_properties.m_revision_count = 7;
  model_.m_properties.m_create_time = {2024, 2, 29, 13, 14, 15};
  model_.m_properties.m_notes = "notes\r\n🚀";
  const ONX_Model read = ReadBack(model_);
  EXPECT_EQ(read.m_start_section_comments, "first words");
  EXPECT_EQ(read.m_properties.m_application_name, "name ü");
  EXPECT_EQ(read.m_properties.m_application_url, "url");
  EXPECT_EQ(read.m_properties.m_application_details, "details");
  EXPECT_EQ(read.m_properties.m_created_by, "me");
  EXPECT_EQ(read.m_properties.m_last_edited_by, "you");
  EXPECT_EQ(read.m_properties.m_revision_count, 7);
  EXPECT_EQ(read.m_properties.m_create_time, (std::array{2024, 2, 29, 13, 14, 15}));
  EXPECT_EQ(read.m_properties.m_last_edit_time, (std::array<int, 6>{}));
  EXPECT_EQ(read.m_properties.m_notes, "notes\r\n🚀");
}

TEST_P(ModelWriterTest, KeepsUnitsAndRenderSettings) {
  ON_3dmSettings& settings = model_.m_settings;
  settings.m_model_units.m_unit_system = ON_UnitSystem::custom;
  settings.m_model_units.m_custom_unit_name = "ell";
  settings.m_model_units.m_custom_meters_per_unit = 0.6;
  settings.m_model_units.m_absolute_tolerance = 0.25;
  settings.m_current_layer_index = 3;
  settings.m_render_mesh.m_tolerance = 0.5;
  settings.m_render_mesh.m_relative_tolerance = 0.75;
  settings.m_render_mesh.m_grid_min_count = 16;
  settings.m_render_settings.m_image_width = 320;
  settings.m_render_settings.m_background_color = {1, 2, 3};
  settings.m_render_settings.m_background_bottom_color = {4, 5, 6};
  settings.m_render_settings.m_bRenderMeshEdges = true;
  settings.m_render_settings.m_image_dpi = 300;
  const ON_3dmSettings read = ReadBack(model_).m_settings;
  EXPECT_EQ(read.m_model_units.m_unit_system, ON_UnitSystem::custom);
  EXPECT_EQ(read.m_model_units.m_custom_unit_name, "ell");
  EXPECT_EQ(read.m_model_units.MetersPerUnit(), 0.6);
  EXPECT_EQ(read.m_model_units.m_absolute_tolerance, 0.25);
  EXPECT_EQ(read.m_current_layer_index, 3);
  EXPECT_EQ(read.m_render_mesh.m_tolerance, 0.5);
  EXPECT_EQ(read.m_render_mesh.m_relative_tolerance, 0.75);
  EXPECT_EQ(read.m_render_mesh.m_grid_min_count, 16);
  EXPECT_EQ(read.m_render_settings.m_image_width, 320);
  EXPECT_EQ(read.m_render_settings.m_background_color, ON_Color(1, 2, 3));
  EXPECT_EQ(read.m_render_settings.m_background_bottom_color, ON_Color(4, 5, 6));
  EXPECT_TRUE(read.m_render_settings.m_bRenderMeshEdges);
  EXPECT_FALSE(read.m_render_settings.m_bRenderIsoparams);
  EXPECT_EQ(read.m_render_settings.m_image_dpi, 300);
}

TEST_P(ModelWriterTest, KeepsViews) {
  ON_3dmView view;
  view.m_name = "Schräg";
  view.m_target = {1, 2, 3};
  view.m_maximized = true;
  view.m_window = {0.25, 0.5, 0.125, 1};
  view.m_show_grid = false;
  view.m_cplane.m_grid_spacing = 5;
  view.m_vp.m_id = kId1;
  view.m_vp.m_projection = ON_Viewport::View::perspective;
  ASSERT_TRUE(view.m_vp.SetCameraFrame({5, 6, 7}, {-4, -4, -4}, {0, 0, 1}));
  view.m_vp.m_frustum = {-1, 3, -0.5, 2, 4, 400};
  view.m_vp.m_port = {0, 640, 480, 0, 0, 255};
  model_.m_settings.m_views.push_back(view);
  model_.m_settings.m_views.emplace_back().m_name = "Top";
  model_.m_settings.m_named_views.emplace_back().m_name = "Saved";
  const ON_3dmSettings read = ReadBack(model_).m_settings;
  ASSERT_EQ(read.m_views.size(), 2u);
  ASSERT_EQ(read.m_named_views.size(), 1u);
  EXPECT_EQ(read.m_named_views[0].m_name, "Saved");
  EXPECT_EQ(read.m_views[1].m_vp.Projection(), ON_Viewport::View::parallel);
  const ON_3dmView& first = read.m_views[0];
  EXPECT_EQ(first.m_name, "Schräg");
  EXPECT_EQ(first.m_target, (ON_3dPoint{1, 2, 3}));
  EXPECT_TRUE(first.m_maximized);
  EXPECT_EQ(first.m_window, view.m_window);
  EXPECT_FALSE(first.m_show_grid);
  EXPECT_TRUE(first.m_show_axes);
  EXPECT_EQ(first.m_cplane.m_grid_spacing, 5);
  EXPECT_EQ(first.m_vp.m_id, kId1);
  EXPECT_EQ(first.m_vp.Projection(), ON_Viewport::View::perspective);
  EXPECT_EQ(first.m_vp.CameraLocation(), (ON_3dPoint{5, 6, 7}));
  EXPECT_EQ(first.m_vp.CameraDirection(), (ON_3dVector{-4, -4, -4}));
  EXPECT_EQ(first.m_vp.CameraX(), view.m_vp.CameraX());
  EXPECT_EQ(first.m_vp.CameraY(), view.m_vp.CameraY());
  EXPECT_EQ(first.m_vp.CameraZ(), view.m_vp.CameraZ());
  EXPECT_EQ(first.m_vp.GetFrustum().right, 3);
  EXPECT_EQ(first.m_vp.GetFrustum().far, 400);
  EXPECT_EQ(first.m_vp.GetScreenPort().right, 640);
  EXPECT_EQ(first.m_vp.GetScreenPort().bottom, 480);
}

TEST_P(ModelWriterTest, KeepsLayers) {
  ON_Layer layer;
  layer.m_id = kId1;
  layer.m_name = "Wände";
  layer.m_color = {1, 2, 3};
  layer.m_render_material_index = 4;
  model_.m_layer_table.push_back(layer);
  layer.m_parent_id = kId1;
  layer.m_id = kId2;
  layer.m_visible = false;
  layer.SetUserString("key", "value");
  model_.m_layer_table.push_back(layer);
  layer.m_visible = true;
  layer.m_locked = true;
  model_.m_layer_table.push_back(layer);
  const ONX_Model read = ReadBack(model_);
  ASSERT_EQ(read.m_layer_table.size(), 3u);
  const auto& layers = read.m_layer_table;
  EXPECT_EQ(layers[0].m_id, kId1);
  EXPECT_EQ(layers[0].m_name, "Wände");
  EXPECT_EQ(layers[0].m_color, ON_Color(1, 2, 3));
  EXPECT_EQ(layers[0].m_render_material_index, 4);
  EXPECT_TRUE(layers[0].m_visible);
  EXPECT_FALSE(layers[0].m_locked);
  EXPECT_TRUE(layers[0].m_parent_id.IsNil());
  EXPECT_EQ(layers[1].m_parent_id, kId1);
  EXPECT_FALSE(layers[1].m_visible);
  EXPECT_EQ(layers[1].GetUserString("key"), "value");
  EXPECT_TRUE(layers[2].m_visible);
  EXPECT_TRUE(layers[2].m_locked);
}

TEST_P(ModelWriterTest, KeepsMaterialsWithTheirTextures) {
  ON_Material& material = model_.m_material_table.emplace_back();
  material.m_id = kId1;
  material.m_name = "Lack";
  material.m_diffuse = {1, 2, 3};
  material.m_emission = {4, 5, 6};
  material.m_index_of_refraction = 1.5;
  material.m_reflectivity = 0.25;
  material.m_shine = 128;
  material.m_transparency = 0.5;
  material.SetUserString("OrvSurface", "\"VPlastic\"");
  ON_Texture& texture = material.m_textures.emplace_back();
  texture.m_texture_id = kId2;
  texture.m_image_file = "C:\\Bilder\\holz.jpg";
  texture.m_type = ON_Texture::Type::bump;
  texture.m_wrap = {0, 1, 0};
  texture.m_uvw.m_xform[0][0] = 3;
  texture.m_bump_scale = {0, 0.5};
  const ONX_Model read = ReadBack(model_);
  ASSERT_EQ(read.m_material_table.size(), 1u);
  const ON_Material& back = read.m_material_table[0];
  EXPECT_EQ(back.m_id, kId1);
  EXPECT_EQ(back.m_name, "Lack");
  EXPECT_EQ(back.m_diffuse, ON_Color(1, 2, 3));
  EXPECT_EQ(back.m_emission, ON_Color(4, 5, 6));
  EXPECT_EQ(back.m_index_of_refraction, 1.5);
  EXPECT_EQ(back.m_reflectivity, 0.25);
  EXPECT_EQ(back.m_shine, 128);
  EXPECT_EQ(back.m_transparency, 0.5);
  EXPECT_EQ(back.GetUserString("OrvSurface"), "\"VPlastic\"");
  ASSERT_EQ(back.m_textures.size(), 1u);
  EXPECT_EQ(back.m_textures[0].m_texture_id, kId2);
  EXPECT_EQ(back.m_textures[0].m_image_file, "C:\\Bilder\\holz.jpg");
  EXPECT_EQ(back.m_textures[0].m_type, ON_Texture::Type::bump);
  EXPECT_EQ(back.m_textures[0].m_wrap, (std::array{0, 1, 0}));
  EXPECT_EQ(back.m_textures[0].m_uvw, texture.m_uvw);
  EXPECT_EQ(back.m_textures[0].m_bump_scale, texture.m_bump_scale);
}

TEST_P(ModelWriterTest, KeepsGroupsLinetypesAndDefinitions) {
  model_.m_group_table.push_back({kId1, "Obst", 5});
  ON_Linetype& linetype = model_.m_linetype_table.emplace_back();
  linetype.m_name = "Dashed";
  linetype.m_segments = {{2, false}, {1, true}};
  ON_InstanceDefinition& definition = model_.m_idef_table.emplace_back();
  definition.m_id = kId2;
  definition.m_name = "Stuhl";
  definition.m_description = "vier Beine";
  definition.m_kind = 1;
  definition.m_bbox = {{0, 0, 0}, {1, 1, 2}};
  definition.m_object_ids = {kId1, kId3};
  const ONX_Model read = ReadBack(model_);
  ASSERT_EQ(read.m_group_table.size(), 1u);
  EXPECT_EQ(read.m_group_table[0].m_id, kId1);
  EXPECT_EQ(read.m_group_table[0].m_name, "Obst");
  EXPECT_EQ(read.m_group_table[0].m_index, 5);
  ASSERT_EQ(read.m_linetype_table.size(), 1u);
  ASSERT_EQ(read.m_linetype_table[0].m_segments.size(), 2u);
  EXPECT_EQ(read.m_linetype_table[0].m_segments[1].m_length, 1);
  EXPECT_TRUE(read.m_linetype_table[0].m_segments[1].m_is_gap);
  ASSERT_EQ(read.m_idef_table.size(), 1u);
  EXPECT_EQ(read.m_idef_table[0].m_id, kId2);
  EXPECT_EQ(read.m_idef_table[0].m_name, "Stuhl");
  EXPECT_EQ(read.m_idef_table[0].m_description, "vier Beine");
  EXPECT_EQ(read.m_idef_table[0].m_kind, 1);
  EXPECT_EQ(read.m_idef_table[0].m_bbox.m_max, (ON_3dPoint{1, 1, 2}));
  EXPECT_EQ(read.m_idef_table[0].m_object_ids, definition.m_object_ids);
}

TEST_P(ModelWriterTest, KeepsAttributes) {
  ON_3dmObjectAttributes& attributes = AddObject(std::make_shared<ON_Point>()).m_attributes;
  attributes.m_uuid = kId1;
  attributes.m_name = "Ding";
  attributes.m_url = "https://example.org/";
  attributes.m_layer_index = 2;
  attributes.m_material_index = 3;
  attributes.m_linetype_index = 4;
  attributes.m_group = {7, 5};
  attributes.m_color_source = ON_AttributeSource::object;
  attributes.m_material_source = ON_AttributeSource::parent;
  attributes.m_linetype_source = ON_AttributeSource::object;
  attributes.m_plot_weight_source = ON_AttributeSource::object;
  attributes.m_color = {1, 2, 3};
  attributes.m_plot_weight_mm = 0.5;
  attributes.m_mode = ON_ObjectMode::idef_member;
  attributes.m_visible = false;
  attributes.m_wire_density = 4;
  attributes.m_space = 2;
  attributes.SetUserString("Schlüssel", "Wert");
  AddObject(std::make_shared<ON_Point>());
  const ONX_Model read = ReadBack(model_);
  ASSERT_EQ(read.m_object_table.size(), 2u);
  const ON_3dmObjectAttributes& back = read.m_object_table[0].m_attributes;
  EXPECT_EQ(back.m_uuid, kId1);
  EXPECT_EQ(back.m_name, "Ding");
  EXPECT_EQ(back.m_url, "https://example.org/");
  EXPECT_EQ(back.m_layer_index, 2);
  EXPECT_EQ(back.m_material_index, 3);
  EXPECT_EQ(back.m_linetype_index, 4);
  EXPECT_EQ(back.m_group, (std::vector{7, 5}));
  EXPECT_EQ(back.m_color_source, ON_AttributeSource::object);
  EXPECT_EQ(back.m_material_source, ON_AttributeSource::parent);
  EXPECT_EQ(back.m_linetype_source, ON_AttributeSource::object);
  EXPECT_EQ(back.m_plot_color_source, ON_AttributeSource::layer);
  EXPECT_EQ(back.m_plot_weight_source, ON_AttributeSource::object);
  EXPECT_EQ(back.m_color, ON_Color(1, 2, 3));
  EXPECT_EQ(back.m_plot_weight_mm, 0.5);
  EXPECT_EQ(back.m_mode, ON_ObjectMode::idef_member);
  EXPECT_FALSE(back.m_visible);
  EXPECT_EQ(back.m_wire_density, 4);
  EXPECT_EQ(back.m_space, 2);
  EXPECT_EQ(back.GetUserString("schlüssel"), "Wert");
  const ON_3dmObjectAttributes& plain = read.m_object_table[1].m_attributes;
  EXPECT_EQ(plain.m_layer_index, 0);
  EXPECT_EQ(plain.m_material_index, -1);
  EXPECT_TRUE(plain.m_visible);
  EXPECT_EQ(plain.m_mode, ON_ObjectMode::normal);
  EXPECT_TRUE(plain.m_user_strings.IsEmpty());
}

TEST_P(ModelWriterTest, KeepsAllChannelsOfAMesh) {
  const auto mesh = std::make_shared<ON_Mesh>(MakeSphere({1, 2, 3}, 2, 12, 6));
  const std::size_t count = mesh->m_V.size();
  mesh->m_C.assign(count, ON_Color(1, 2, 3));
  mesh->m_S.assign(count, ON_2dPoint{0.5, 0.25});
  mesh->m_K.assign(count, ON_2dPoint{1, 2});
  mesh->m_packed_tex_domain = {ON_Interval{0, 0.5}, ON_Interval{0.25, 1}};
  mesh->m_packed_tex_rotate = true;
  mesh->m_srf_domain = {ON_Interval{0, 6}, ON_Interval{-1, 1}};
  mesh->m_srf_scale = {6, 2};
  mesh->m_closed = 1;
  mesh->m_Ttag = ON_MappingTag{kId1, 4, 77, ON_Xform()};
  mesh->SetUserString("key", "value");
  AddObject(mesh);
  const ONX_Model read = ReadBack(model_);
  ASSERT_EQ(read.m_object_table.size(), 1u);
  EXPECT_EQ(read.m_object_table[0].m_object_type, 0x20u);
  const ON_Mesh* back = ON_Mesh::Cast(read.m_object_table[0].m_geometry.get());
  ASSERT_NE(back, nullptr);
  EXPECT_EQ(back->m_V, mesh->m_V);
  EXPECT_EQ(back->m_F, mesh->m_F);
  EXPECT_EQ(back->m_N, mesh->m_N);
  EXPECT_EQ(back->m_T, mesh->m_T);
  EXPECT_EQ(back->m_C, mesh->m_C);
  EXPECT_EQ(back->m_S, mesh->m_S);
  EXPECT_EQ(back->m_K, mesh->m_K);
  EXPECT_EQ(back->m_packed_tex_domain, mesh->m_packed_tex_domain);
  EXPECT_TRUE(back->m_packed_tex_rotate);
  EXPECT_EQ(back->m_srf_domain, mesh->m_srf_domain);
  EXPECT_EQ(back->m_srf_scale, mesh->m_srf_scale);
  EXPECT_EQ(back->m_closed, 1);
  ASSERT_TRUE(back->m_Ttag);
  EXPECT_EQ(back->m_Ttag->m_mapping_id, kId1);
  EXPECT_EQ(back->m_Ttag->m_mapping_type, 4);
  EXPECT_EQ(back->GetUserString("key"), "value");
}

// Documents of version 4 have neither.
TEST(ModelWriter, KeepsDoublePointsAndPolygonsOfAMesh) {
  const auto mesh = std::make_shared<ON_Mesh>(MakeBox({{1, 1, 1}, {2, 2, 2}}));
  for (const ON_3fPoint& p : mesh->m_V) mesh->m_dV.push_back({p.x + 1e-9, p.y, p.z});
  mesh->m_Ngon = {{{0, 1, 2, 3}, {0}}, {{4, 5, 6}, {}}};
  ONX_Model model;
  model.m_3dm_file_version = 50;
  model.m_object_table.emplace_back().m_geometry = mesh;
  const ONX_Model read = ReadBack(model);
  const ON_Mesh* back = ON_Mesh::Cast(read.m_object_table.at(0).m_geometry.get());
  ASSERT_NE(back, nullptr);
  EXPECT_EQ(back->m_dV, mesh->m_dV);
  ASSERT_EQ(back->m_Ngon.size(), 2u);
  EXPECT_EQ(back->m_Ngon[0].m_vi, (std::vector<std::uint32_t>{0, 1, 2, 3}));
  EXPECT_EQ(back->m_Ngon[0].m_fi, (std::vector<std::uint32_t>{0}));
  EXPECT_EQ(back->m_Ngon[1].m_vi, (std::vector<std::uint32_t>{4, 5, 6}));
}

TEST_P(ModelWriterTest, KeepsMeshesOfEveryIndexSize) {
  AddObject(std::make_shared<ON_Mesh>());
  for (const int columns : {3, 100, 300}) {
    AddObject(std::make_shared<ON_Mesh>(MakeWaves(10, columns, columns)));
  }
  const ONX_Model read = ReadBack(model_);
  ASSERT_EQ(read.m_object_table.size(), 4u);
  for (std::size_t i = 0; i < 4; ++i) {
    const ON_Mesh* written = ON_Mesh::Cast(model_.m_object_table[i].m_geometry.get());
    const ON_Mesh* back = ON_Mesh::Cast(read.m_object_table[i].m_geometry.get());
    ASSERT_NE(back, nullptr);
    EXPECT_EQ(back->m_V, written->m_V);
    EXPECT_EQ(back->m_F, written->m_F);
  }
}

TEST_P(ModelWriterTest, KeepsBlockReferences) {
  const auto reference = std::make_shared<ON_InstanceRef>();
  reference->m_instance_definition_uuid = kId2;
  double number = 0;
  for (auto& row : reference->m_xform.m_xform) {
    for (double& value : row) value = ++number / 8;
  }
  reference->m_bbox = {{0, 1, 2}, {3, 4, 5}};
  AddObject(reference).m_attributes.m_uuid = kId1;
  const ONX_Model read = ReadBack(model_);
  ASSERT_EQ(read.m_object_table.size(), 1u);
  const ON_InstanceRef* back = ON_InstanceRef::Cast(read.m_object_table[0].m_geometry.get());
  ASSERT_NE(back, nullptr);
  EXPECT_EQ(back->m_instance_definition_uuid, kId2);
  EXPECT_EQ(back->m_xform, reference->m_xform);
  EXPECT_EQ(back->m_bbox.m_max, (ON_3dPoint{3, 4, 5}));
  EXPECT_EQ(read.m_object_table[0].m_object_type, 0x1000u);
}

TEST_P(ModelWriterTest, KeepsClippingPlanes) {
  const auto plane = std::make_shared<ON_ClippingPlaneSurface>();
  plane->m_plane = {{1, 2, 3}, {0, 1, 0}, {0, 0, 1}, {1, 0, 0}};
  plane->m_extents[0] = {0, 4};
  plane->m_extents[1] = {-5, 6};
  plane->m_viewport_ids = {kId1, kId3};
  plane->SetUserString("key", "value");
  AddObject(plane);
  const auto off = std::make_shared<ON_ClippingPlaneSurface>();
  off->m_bEnabled = false;
  AddObject(off);
  const ONX_Model read = ReadBack(model_);
  EXPECT_TRUE(read.m_unread.empty());
  ASSERT_EQ(read.m_object_table.size(), 2u);
  EXPECT_EQ(read.m_object_table[0].m_object_type, 0x20000000u);
  const auto planeOf = [&](std::size_t i) {
    return ON_ClippingPlaneSurface::Cast(read.m_object_table[i].m_geometry.get());
  };
  ASSERT_NE(planeOf(0), nullptr);
  EXPECT_EQ(planeOf(0)->m_plane.Origin(), (ON_3dPoint{1, 2, 3}));
  EXPECT_EQ(planeOf(0)->m_plane.xaxis, (ON_3dVector{0, 1, 0}));
  EXPECT_EQ(planeOf(0)->m_plane.yaxis, (ON_3dVector{0, 0, 1}));
  EXPECT_EQ(planeOf(0)->m_plane.Normal(), (ON_3dVector{1, 0, 0}));
  EXPECT_EQ(planeOf(0)->m_extents[0], (ON_Interval{0, 4}));
  EXPECT_EQ(planeOf(0)->m_extents[1], (ON_Interval{-5, 6}));
  EXPECT_EQ(planeOf(0)->m_viewport_ids, plane->m_viewport_ids);
  EXPECT_TRUE(planeOf(0)->m_bEnabled);
  EXPECT_EQ(planeOf(0)->GetUserString("key"), "value");
  ASSERT_NE(planeOf(1), nullptr);
  EXPECT_FALSE(planeOf(1)->m_bEnabled);
  EXPECT_TRUE(planeOf(1)->m_viewport_ids.empty());
}

TEST_P(ModelWriterTest, KeepsPointsAndPointClouds) {
  const auto point = std::make_shared<ON_Point>();
  point->point = {1, 2, 3};
  AddObject(point);
  const auto cloud = std::make_shared<ON_PointCloud>();
  cloud->m_P = {{1, 2, 3}, {4, 5, 6}};
  cloud->m_N = {{0, 0, 1}, {0, 1, 0}};
  cloud->m_C = {ON_Color(1, 2, 3), ON_Color(4, 5, 6)};
  cloud->m_V = {0.5, 0.25};
  AddObject(cloud);
  const ONX_Model read = ReadBack(model_);
  ASSERT_EQ(read.m_object_table.size(), 2u);
  const ON_Point* backPoint = ON_Point::Cast(read.m_object_table[0].m_geometry.get());
  ASSERT_NE(backPoint, nullptr);
  EXPECT_EQ(backPoint->point, (ON_3dPoint{1, 2, 3}));
  const ON_PointCloud* backCloud = ON_PointCloud::Cast(read.m_object_table[1].m_geometry.get());
  ASSERT_NE(backCloud, nullptr);
  EXPECT_EQ(backCloud->m_P, cloud->m_P);
  EXPECT_EQ(backCloud->m_N, cloud->m_N);
  EXPECT_EQ(backCloud->m_C, cloud->m_C);
  EXPECT_EQ(backCloud->m_V, cloud->m_V);
}

std::shared_ptr<ON_PolyCurve> LineArcAndNurbs() {
  auto curve = std::make_shared<ON_PolyCurve>();
  curve->m_t = {0, 1, 2, 4};
  auto line = std::make_unique<ON_LineCurve>(ON_3dPoint{1, 2, 3}, ON_3dPoint{1, 0, 0});
  line->SetUserString("part", "first");
  curve->m_segment.push_back(std::move(line));
  curve->m_segment.push_back(std::make_unique<ON_ArcCurve>(ON_Arc{{}, 1, {0, 3}}));
  auto nurbs = std::make_unique<ON_NurbsCurve>();
  nurbs->Create(3, {0, 0, 2, 2}, {{-1, 0, 0, 1}, {-2, 1, 0, 0.5}, {-4, 0, 0, 1}}, true);
  curve->m_segment.push_back(std::move(nurbs));
  return curve;
}

TEST_P(ModelWriterTest, KeepsLinesArcsAndPolylines) {
  const auto line = std::make_shared<ON_LineCurve>(ON_3dPoint{1, 2, 3}, ON_3dPoint{4, 5, 6});
  line->m_t = {-1, 1};
  const auto arc = std::make_shared<ON_ArcCurve>(ON_Arc{{{1, 2, 3}}, 4, {0.5, 2}});
  const auto polyline = std::make_shared<ON_PolylineCurve>();
  polyline->m_pline = {{1, 2, 3}, {4, 5, 6}, {7, 8, 10}};
  polyline->m_t = {0, 1, 5};
  AddObject(line).m_attributes.m_name = "Linie";
  AddObject(arc);
  AddObject(polyline);
  const ONX_Model read = ReadBack(model_);
  ASSERT_EQ(read.m_object_table.size(), 3u);
  EXPECT_EQ(read.m_object_table[0].m_attributes.m_name, "Linie");
  const auto* back_line = ON_LineCurve::Cast(read.m_object_table[0].m_geometry.get());
  const auto* back_arc = ON_ArcCurve::Cast(read.m_object_table[1].m_geometry.get());
  const auto* back_polyline = ON_PolylineCurve::Cast(read.m_object_table[2].m_geometry.get());
  ASSERT_TRUE(back_line && back_arc && back_polyline);
  EXPECT_EQ(back_line->m_line.to, line->m_line.to);
  EXPECT_EQ(back_line->m_t, line->m_t);
  EXPECT_EQ(back_arc->m_arc.plane.origin, arc->m_arc.plane.origin);
  EXPECT_EQ(back_arc->m_arc.radius, 4);
  EXPECT_EQ(back_arc->m_arc.m_angle, arc->m_arc.m_angle);
  EXPECT_EQ(back_arc->m_t, arc->m_t);
  EXPECT_EQ(back_polyline->m_pline, polyline->m_pline);
  EXPECT_EQ(back_polyline->m_t, polyline->m_t);
}

TEST_P(ModelWriterTest, KeepsPolycurvesAndWhatStandsInThem) {
  const auto outer = std::make_shared<ON_PolyCurve>();
  outer->m_t = {1, 3};
  outer->m_segment.push_back(std::make_unique<ON_PolyCurve>(std::move(*LineArcAndNurbs())));
  outer->SetUserString("whole", "curve");
  AddObject(outer);
  const ONX_Model read = ReadBack(model_);
  ASSERT_EQ(read.m_object_table.size(), 1u);
  const auto* back = ON_PolyCurve::Cast(read.m_object_table[0].m_geometry.get());
  ASSERT_NE(back, nullptr);
  EXPECT_EQ(back->GetUserString("whole"), "curve");
  EXPECT_EQ(back->m_t, outer->m_t);
  const auto* inner = ON_PolyCurve::Cast(back->m_segment.at(0).get());
  ASSERT_NE(inner, nullptr);
  ASSERT_EQ(inner->m_segment.size(), 3u);
  EXPECT_EQ(inner->m_segment[0]->GetUserString("part"), "first");
  const auto* nurbs = ON_NurbsCurve::Cast(inner->m_segment[2].get());
  ASSERT_NE(nurbs, nullptr);
  EXPECT_TRUE(nurbs->IsRational());
  EXPECT_EQ(nurbs->m_cv[1], (ON_4dPoint{-2, 1, 0, 0.5}));
  EXPECT_EQ(nurbs->m_knot, (ON_SimpleArray<double>{0, 0, 2, 2}));
}

TEST_P(ModelWriterTest, AnObjectWithoutGeometryIsCountedAsUnread) {
  ONX_ModelObject& object = AddObject(nullptr);
  object.m_class_id = kUnreadClass;
  object.m_object_type = 0x10000;
  object.m_attributes.m_name = "Schraffur";
  const ONX_Model read = ReadBack(model_);
  ASSERT_EQ(read.m_object_table.size(), 1u);
  EXPECT_EQ(read.m_object_table[0].m_geometry, nullptr);
  EXPECT_EQ(read.m_object_table[0].m_class_id, kUnreadClass);
  EXPECT_EQ(read.m_object_table[0].m_attributes.m_name, "Schraffur");
  ASSERT_EQ(read.m_unread.size(), 1u);
  EXPECT_EQ(read.m_unread[0].m_count, 1);
}

TEST_P(ModelWriterTest, KeepsLights) {
  ONX_ModelLight& light = model_.m_light_table.emplace_back();
  light.m_light = std::make_shared<ON_Light>();
  light.m_light->m_bOn = false;
  light.m_light->m_style = ON_LightStyle::world_rectangular;
  light.m_light->m_intensity = 0.5;
  light.m_light->m_diffuse = {1, 2, 3};
  light.m_light->m_direction = {0, 1, -2};
  light.m_light->m_location = {4, 5, 6};
  light.m_light->m_spot_angle = 30;
  light.m_light->m_hotspot = 0.75;
  light.m_light->m_length = {7, 0, 0};
  light.m_light->m_width = {0, 8, 0};
  light.m_light->m_light_id = kId1;
  light.m_light->m_light_name = "Fenster";
  light.m_attributes.m_uuid = kId1;
  light.m_attributes.m_layer_index = 2;
  light.m_attributes.SetUserString("OrvLightFalloff", "2");
  const ONX_Model read = ReadBack(model_);
  ASSERT_EQ(read.m_light_table.size(), 1u);
  const ON_Light& back = *read.m_light_table[0].m_light;
  EXPECT_FALSE(back.m_bOn);
  EXPECT_EQ(back.m_style, ON_LightStyle::world_rectangular);
  EXPECT_EQ(back.m_intensity, 0.5);
  EXPECT_EQ(back.m_diffuse, ON_Color(1, 2, 3));
  EXPECT_EQ(back.m_direction, (ON_3dVector{0, 1, -2}));
  EXPECT_EQ(back.m_location, (ON_3dPoint{4, 5, 6}));
  EXPECT_EQ(back.m_spot_angle, 30);
  EXPECT_EQ(back.m_hotspot, 0.75);
  EXPECT_EQ(back.m_length, (ON_3dVector{7, 0, 0}));
  EXPECT_EQ(back.m_width, (ON_3dVector{0, 8, 0}));
  EXPECT_EQ(back.m_light_id, kId1);
  EXPECT_EQ(back.m_light_name, "Fenster");
  EXPECT_EQ(read.m_light_table[0].m_attributes.m_uuid, kId1);
  EXPECT_EQ(read.m_light_table[0].m_attributes.m_layer_index, 2);
  EXPECT_EQ(read.m_light_table[0].m_attributes.GetUserString("OrvLightFalloff"), "2");
}

TEST_P(ModelWriterTest, KeepsTheDataOfPlugIns) {
  ONX_PlugInData& data = model_.m_userdata_table.emplace_back();
  data.m_plugin_id = kId1;
  data.m_archive_version = GetParam();
  data.m_opennurbs_version = 201008125;
  data.m_bytes = std::string("\0some bytes\xFF", 12);
  model_.m_document_user_strings.SetUserString("Titel", "Stillleben");
  const ONX_Model read = ReadBack(model_);
  EXPECT_EQ(read.m_document_user_strings.GetUserString("titel"), "Stillleben");
  const auto found = std::find_if(read.m_userdata_table.begin(), read.m_userdata_table.end(),
                                  [](const ONX_PlugInData& d) { return d.m_plugin_id == kId1; });
  ASSERT_NE(found, read.m_userdata_table.end());
  EXPECT_EQ(found->m_bytes, data.m_bytes);
  EXPECT_EQ(found->m_archive_version, GetParam());
}

}  // namespace

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <string>
#include <vector>

#include "check_sum.h"
#include "facts_documents.h"

// What every document of the corpus says of itself apart from its tables, against the facts that
// another reader took of it.

using nlohmann::json;

namespace {

void ForEachDocument(const std::function<void(const json& facts, const ONX_Model& model)>& check) {
  ForEachFactsDocument(
      [&](const FactsDocument& document) { check(document.facts, document.model); });
}

// A fact that the other reader had nothing to say about is null and agrees with everything.
template <class T>
void ExpectFact(const json& facts, const char* key, const T& value) {
  const json& fact = facts.at(key);
  if (fact.is_null()) return;
  EXPECT_EQ(fact, json(value)) << key;
}

void ExpectNear(const json& facts, const char* key, const std::vector<double>& values) {
  const json& fact = facts.at(key);
  if (fact.is_null()) return;
  const auto expected =
      fact.is_array() ? fact.get<std::vector<double>>() : std::vector<double>{fact.get<double>()};
  ASSERT_EQ(expected.size(), values.size()) << key;
  for (std::size_t i = 0; i < values.size(); ++i) {
    EXPECT_NEAR(expected[i], values[i], 1e-12 * std::max(1.0, std::abs(expected[i]))) << key;
  }
}

std::vector<double> Numbers(ON_3dPoint p) {
  return {p.x, p.y, p.z};
}
std::vector<double> Numbers(ON_3dVector v) {
  return {v.x, v.y, v.z};
}
std::vector<int> Numbers(ON_Color c) {
  return {c.Red(), c.Green(), c.Blue(), c.Alpha()};
}

// The last digit of a version of the older kind, which is a date, counts builds; the other reader
// changes it in one document.
unsigned WithoutBuild(unsigned opennurbs_version) {
  const bool isDate = opennurbs_version < 0x80000000u;
  return isDate ? opennurbs_version / 10 : opennurbs_version;
}

void ExpectPlane(const json& facts, const ON_Plane& plane) {
  ExpectFact(facts, "origin", Numbers(plane.origin));
  ExpectFact(facts, "x", Numbers(plane.xaxis));
  ExpectFact(facts, "y", Numbers(plane.yaxis));
  ExpectFact(facts, "z", Numbers(plane.zaxis));
}

void ExpectUnits(const json& facts, const ON_3dmUnitsAndTolerances& units) {
  ExpectFact(facts, "system", static_cast<int>(units.m_unit_system));
  ExpectNear(facts, "meters_per_unit", {units.MetersPerUnit()});
  ExpectFact(facts, "absolute_tolerance", units.m_absolute_tolerance);
  ExpectFact(facts, "angle_tolerance", units.m_angle_tolerance);
  ExpectFact(facts, "relative_tolerance", units.m_relative_tolerance);
}

void ExpectCamera(const json& facts, const ON_Viewport& vp) {
  ExpectFact(facts, "viewport_id", vp.m_id.ToString());
  const bool perspective = vp.m_projection == ON_Viewport::View::perspective;
  ExpectFact(facts, "projection", perspective ? "perspective" : "parallel");
  ExpectFact(facts, "valid_camera", vp.m_camera_valid);
  ExpectFact(facts, "valid_frustum", vp.m_frustum_valid);
  ExpectFact(facts, "camera_location", Numbers(vp.CameraLocation()));
  ExpectFact(facts, "camera_direction", Numbers(vp.CameraDirection()));
  ExpectFact(facts, "camera_up", Numbers(vp.CameraUp()));
  ExpectFact(facts, "camera_x", Numbers(vp.CameraX()));
  ExpectFact(facts, "camera_y", Numbers(vp.CameraY()));
  ExpectFact(facts, "camera_z", Numbers(vp.CameraZ()));
  const auto f = vp.GetFrustum();
  ExpectFact(facts, "frustum_lrbtnf", std::vector{f.left, f.right, f.bottom, f.top, f.near, f.far});
  const auto p = vp.GetScreenPort();
  ExpectFact(facts, "screen_port_lrbtnf",
             std::vector{p.left, p.right, p.bottom, p.top, p.near, p.far});
  const auto angles = vp.GetHalfAngles();
  ExpectNear(facts, "half_angles_diag_vert_horz_radians",
             {angles.diagonal, angles.vertical, angles.horizontal});
  // The other reader measures the lens of a two-point perspective across the wider side.
  if (facts.at("two_point_perspective")) return;
  ExpectNear(facts, "lens_35mm", {vp.Camera35mmLensLength()});
}

void ExpectView(const json& facts, const ON_3dmView& view) {
  SCOPED_TRACE(view.m_name);
  ExpectFact(facts, "name", view.m_name);
  ExpectCamera(facts, view.m_vp);
  ExpectFact(facts, "named_view_id", view.m_named_view_id.ToString());
  ExpectFact(facts, "view_type", view.m_view_type);
  ExpectFact(facts, "target", Numbers(view.m_target));
  ExpectFact(facts, "display_mode_id", view.m_display_mode_id.ToString());
  ExpectFact(facts, "window_lrtb", view.m_window);
  ExpectFact(facts, "maximized", view.m_maximized);
  ExpectPlane(facts.at("cplane"), view.m_cplane.m_plane);
  ExpectFact(facts, "cplane_name", view.m_cplane.m_name);
  ExpectFact(facts, "cplane_grid_spacing", view.m_cplane.m_grid_spacing);
  ExpectFact(facts, "cplane_snap_spacing", view.m_cplane.m_snap_spacing);
  ExpectFact(facts, "cplane_grid_lines", view.m_cplane.m_grid_line_count);
  ExpectFact(facts, "cplane_thick_frequency", view.m_cplane.m_grid_thick_frequency);
  ExpectFact(facts, "show_grid", view.m_show_grid);
  ExpectFact(facts, "show_axes", view.m_show_axes);
  ExpectFact(facts, "show_world_axes", view.m_show_world_axes);
  ExpectFact(facts, "locked_projection", view.m_locked_projection);
  ExpectFact(facts, "trace_image", view.m_trace_image);
  ExpectFact(facts, "wallpaper", view.m_wallpaper);
}

void ExpectViews(const json& facts, const std::vector<ON_3dmView>& views) {
  ASSERT_EQ(facts.size(), views.size());
  for (std::size_t i = 0; i < views.size(); ++i) ExpectView(facts[i], views[i]);
}

void ExpectPlugIn(const json& facts, const ON_3dmPlugInRef& plugin) {
  ExpectFact(facts, "id", plugin.m_plugin_id.ToString());
  ExpectFact(facts, "plugin_type", plugin.m_plugin_type);
  ExpectFact(facts, "version", plugin.m_plugin_version);
  ExpectFact(facts, "name_utf8_bytes", plugin.m_plugin_name.size());
  ExpectFact(facts, "name_utf8_crc32", SlowCrc32(plugin.m_plugin_name));
}

TEST(SettingsFacts, NothingIsWrongWithARealDocument) {
  ForEachDocument([](const json&, const ONX_Model& model) {
    EXPECT_EQ(model.m_problems, std::vector<std::string>{});
  });
}

TEST(SettingsFacts, VersionsAndComments) {
  ForEachDocument([](const json& facts, const ONX_Model& model) {
    ExpectFact(facts, "archive_version", model.m_3dm_file_version);
    EXPECT_EQ(WithoutBuild(facts.at("opennurbs_version")),
              WithoutBuild(model.m_3dm_opennurbs_version));
    ExpectFact(facts, "start_section_comment", model.m_start_section_comments);
  });
}

TEST(SettingsFacts, Properties) {
  ForEachDocument([](const json& all, const ONX_Model& model) {
    const json& facts = all.at("properties");
    const ON_3dmProperties& properties = model.m_properties;
    ExpectFact(facts, "application_name", properties.m_application_name);
    ExpectFact(facts, "application_url", properties.m_application_url);
    ExpectFact(facts, "application_details", properties.m_application_details);
    ExpectFact(facts, "created_by", properties.m_created_by);
    ExpectFact(facts, "last_edited_by", properties.m_last_edited_by);
    ExpectFact(facts, "revision_count", properties.m_revision_count);
    ExpectFact(facts, "create_time_ymdhms", properties.m_create_time);
    ExpectFact(facts, "last_edit_time_ymdhms", properties.m_last_edit_time);
    ExpectFact(facts, "notes", properties.m_notes);
    ExpectFact(facts, "preview_image_wh",
               std::vector{properties.m_preview_width, properties.m_preview_height});
    ExpectFact(facts, "archive_full_path", properties.m_archive_full_path);
  });
}

TEST(SettingsFacts, Units) {
  ForEachDocument([](const json& facts, const ONX_Model& model) {
    ExpectUnits(facts.at("units").at("model"), model.m_settings.m_model_units);
    ExpectUnits(facts.at("units").at("page"), model.m_settings.m_page_units);
  });
}

TEST(SettingsFacts, RenderSettings) {
  ForEachDocument([](const json& all, const ONX_Model& model) {
    const json& facts = all.at("render_settings");
    const ON_3dmRenderSettings& s = model.m_settings.m_render_settings;
    ExpectFact(facts, "custom_image_size", s.m_bCustomImageSize);
    ExpectFact(facts, "image_wh", std::vector{s.m_image_width, s.m_image_height});
    ExpectFact(facts, "image_dpi", s.m_image_dpi);
    ExpectFact(facts, "image_units", s.m_image_us);
    ExpectFact(facts, "ambient_light", Numbers(s.m_ambient_light));
    ExpectFact(facts, "background_style", s.m_background_style);
    ExpectFact(facts, "background_color", Numbers(s.m_background_color));
    ExpectFact(facts, "background_bottom_color", Numbers(s.m_background_bottom_color));
    ExpectFact(facts, "background_bitmap", s.m_background_bitmap);
    ExpectFact(facts, "use_hidden_lights", s.m_bUseHiddenLights);
    ExpectFact(facts, "depth_cue", s.m_bDepthCue);
    ExpectFact(facts, "flat_shade", s.m_bFlatShade);
    ExpectFact(facts, "render_backfaces", s.m_bRenderBackfaces);
    ExpectFact(facts, "render_points", s.m_bRenderPoints);
    ExpectFact(facts, "render_curves", s.m_bRenderCurves);
    ExpectFact(facts, "render_isoparams", s.m_bRenderIsoparams);
    ExpectFact(facts, "render_mesh_edges", s.m_bRenderMeshEdges);
    ExpectFact(facts, "render_annotation", s.m_bRenderAnnotation);
    ExpectFact(facts, "antialias_style", s.m_antialias_style);
    ExpectFact(facts, "shadowmap_style", s.m_shadowmap_style);
    ExpectFact(facts, "shadowmap_wh", std::vector{s.m_shadowmap_width, s.m_shadowmap_height});
    ExpectFact(facts, "shadowmap_offset", s.m_shadowmap_offset);
  });
}

TEST(SettingsFacts, RenderMeshSettings) {
  ForEachDocument([](const json& all, const ONX_Model& model) {
    const json& facts = all.at("render_mesh_settings");
    const ON_MeshParameters& mesh = model.m_settings.m_render_mesh;
    ExpectFact(facts, "max_edge", mesh.m_max_edge_length);
    ExpectFact(facts, "min_edge", mesh.m_min_edge_length);
    ExpectFact(facts, "tolerance", mesh.m_tolerance);
    ExpectFact(facts, "relative_tolerance", mesh.m_relative_tolerance);
    ExpectFact(facts, "grid_aspect", mesh.m_grid_aspect_ratio);
    ExpectFact(facts, "grid_min", mesh.m_grid_min_count);
    ExpectFact(facts, "grid_max", mesh.m_grid_max_count);
    ExpectFact(facts, "grid_angle", mesh.m_grid_angle);
    ExpectFact(facts, "grid_amplification", mesh.m_grid_amplification);
    ExpectFact(facts, "simple_planes", mesh.m_bSimplePlanes);
    ExpectFact(facts, "refine", mesh.m_bRefine);
    ExpectFact(facts, "jagged", mesh.m_bJaggedSeams);
    ExpectFact(facts, "texture_range", mesh.m_texture_range);
  });
}

TEST(SettingsFacts, OtherSettings) {
  ForEachDocument([](const json& all, const ONX_Model& model) {
    const json& facts = all.at("settings_misc");
    const ON_3dmSettings& settings = model.m_settings;
    ExpectFact(facts, "model_url", settings.m_model_url);
    ExpectFact(facts, "model_basepoint", Numbers(settings.m_model_basepoint));
    ExpectFact(facts, "current_material_source", settings.m_current_material_source);
    ExpectFact(facts, "current_color", Numbers(settings.m_current_color));
    ExpectFact(facts, "current_color_source", settings.m_current_color_source);
    ExpectFact(facts, "wire_density", settings.m_wire_density);
    ExpectFact(facts, "linetype_display_scale", settings.m_linetype_scale);
    ExpectFact(facts, "active_view_id", settings.m_active_view_id.ToString());
  });
}

TEST(SettingsFacts, CurrentLayer) {
  ForEachDocument([](const json& facts, const ONX_Model& model) {
    const int index = model.m_settings.m_current_layer_index;
    ASSERT_GE(index, 0);
    ASSERT_LT(static_cast<std::size_t>(index), facts.at("layers").size());
    ExpectFact(facts.at("settings_misc"), "current_layer_id",
               facts.at("layers")[static_cast<std::size_t>(index)].at("uuid"));
  });
}

TEST(SettingsFacts, PlugInList) {
  ForEachDocument([](const json& all, const ONX_Model& model) {
    const json& facts = all.at("settings_misc").at("plugin_list");
    const auto& plugins = model.m_settings.m_plugin_list;
    ASSERT_EQ(facts.size(), plugins.size());
    for (std::size_t i = 0; i < plugins.size(); ++i) ExpectPlugIn(facts[i], plugins[i]);
  });
}

TEST(SettingsFacts, PlugInData) {
  ForEachDocument([](const json& all, const ONX_Model& model) {
    // The document's own strings are kept in the same way but aren't a plug-in's.
    const std::string documentStrings = "06f3218e-f5ec-4f6c-b74c-14583f0ed7bc";
    std::size_t count = 0;
    for (const json& facts : all.at("archive_raw").at("user_table_records")) {
      if (facts.at("plugin_uuid") == documentStrings) continue;
      ASSERT_LT(count, model.m_userdata_table.size());
      const ONX_PlugInData& data = model.m_userdata_table[count++];
      ExpectFact(facts, "plugin_uuid", data.m_plugin_id.ToString());
      ExpectFact(facts, "record_bytes", data.m_bytes.size());
    }
    EXPECT_EQ(count, model.m_userdata_table.size());
    for (const json& facts : all.at("plugin_user_table")) {
      for (const ONX_PlugInData& data : model.m_userdata_table) {
        if (data.m_plugin_id.ToString() != facts.at("plugin_uuid")) continue;
        ExpectFact(facts, "usertable_3dm_version", data.m_archive_version);
        EXPECT_EQ(WithoutBuild(facts.at("usertable_opennurbs_version")),
                  WithoutBuild(data.m_opennurbs_version));
      }
    }
  });
}

TEST(SettingsFacts, NamedConstructionPlanes) {
  ForEachDocument([](const json& all, const ONX_Model& model) {
    const json& facts = all.at("settings_misc").at("named_cplanes");
    const auto& planes = model.m_settings.m_named_cplanes;
    ASSERT_EQ(facts.size(), planes.size());
    for (std::size_t i = 0; i < planes.size(); ++i) {
      ExpectFact(facts[i], "name", planes[i].m_name);
      ExpectPlane(facts[i].at("plane"), planes[i].m_plane);
    }
  });
}

TEST(SettingsFacts, Views) {
  ForEachDocument([](const json& facts, const ONX_Model& model) {
    ExpectViews(facts.at("views"), model.m_settings.m_views);
  });
}

TEST(SettingsFacts, NamedViews) {
  ForEachDocument([](const json& facts, const ONX_Model& model) {
    ExpectViews(facts.at("named_views"), model.m_settings.m_named_views);
  });
}

}  // namespace

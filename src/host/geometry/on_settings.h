#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "host/geometry/on_bounding_box.h"
#include "host/geometry/on_color.h"
#include "host/geometry/on_object.h"
#include "host/geometry/on_uuid.h"
#include "host/geometry/on_viewport.h"

// What a document says of itself apart from its tables.

// The values are those of documents.
enum class ON_UnitSystem : int {
  none = 0,
  microns = 1,
  millimeters = 2,
  centimeters = 3,
  meters = 4,
  kilometers = 5,
  microinches = 6,
  mils = 7,
  inches = 8,
  feet = 9,
  miles = 10,
  custom = 11,
  angstroms = 12,
  nanometers = 13,
  decimeters = 14,
  dekameters = 15,
  hectometers = 16,
  megameters = 17,
  gigameters = 18,
  yards = 19,
  printer_points = 20,
  printer_picas = 21,
  nautical_miles = 22,
  astronomical_units = 23,
  light_years = 24,
  parsecs = 25,
};

struct ON_3dmUnitsAndTolerances {
  ON_UnitSystem m_unit_system = ON_UnitSystem::millimeters;
  std::string m_custom_unit_name;
  // Used for a custom unit system only; the others' is fixed.
  double m_custom_meters_per_unit = 1;
  double m_absolute_tolerance = 0.001;
  double m_angle_tolerance = 0.017453292519943295;
  double m_relative_tolerance = 0.01;

  // Metres in one unit; 1 when the document has no units.
  double MetersPerUnit() const;
  // How many of this document's units make one unit of `us`: Scale(millimeters) is 0.1 in
  // centimetres. 1 when either has no units.
  double Scale(ON_UnitSystem us) const;
};

struct ON_3dmProperties {
  std::string m_application_name;
  std::string m_application_url;
  std::string m_application_details;
  std::string m_created_by;
  std::string m_last_edited_by;
  int m_revision_count = 0;
  // Year, month (1 to 12), day, hour, minute, second; all 0 when not stored.
  std::array<int, 6> m_create_time{};
  std::array<int, 6> m_last_edit_time{};
  std::string m_notes;
  std::string m_archive_full_path;
  // Size of the preview picture in pixels; the picture itself isn't read.
  int m_preview_width = 0;
  int m_preview_height = 0;
};

struct ON_3dmConstructionPlane {
  ON_Plane m_plane;
  double m_grid_spacing = 1;
  double m_snap_spacing = 1;
  int m_grid_line_count = 70;
  int m_grid_thick_frequency = 5;
  std::string m_name;
};

struct ON_3dmView {
  std::string m_name;
  ON_Viewport m_vp;
  ON_3dPoint m_target{0, 0, 0};
  ON_3dmConstructionPlane m_cplane;
  // 0 model, 1 page, 2 nested.
  int m_view_type = 0;
  bool m_maximized = false;
  // Place in the window as fractions: left, right, top, bottom.
  std::array<double, 4> m_window{0, 1, 0, 1};
  bool m_show_grid = true;
  bool m_show_axes = true;
  bool m_show_world_axes = true;
  bool m_locked_projection = false;
  ON_UUID m_display_mode_id;
  ON_UUID m_named_view_id;
  std::string m_trace_image;
  std::string m_wallpaper;
};

struct ON_3dmRenderSettings {
  bool m_bCustomImageSize = false;
  int m_image_width = 800;
  int m_image_height = 600;
  double m_image_dpi = 72;
  int m_image_us = 8;
  ON_Color m_ambient_light{0, 0, 0};
  // 0 solid colour, 1 wallpaper image, 2 gradient, 3 environment.
  int m_background_style = 0;
  ON_Color m_background_color{160, 160, 160};
  ON_Color m_background_bottom_color{160, 160, 160};
  std::string m_background_bitmap;
  bool m_bUseHiddenLights = false;
  bool m_bDepthCue = false;
  bool m_bFlatShade = false;
  bool m_bRenderBackfaces = true;
  bool m_bRenderPoints = false;
  bool m_bRenderCurves = false;
  bool m_bRenderIsoparams = false;
  bool m_bRenderMeshEdges = false;
  bool m_bRenderAnnotation = false;
  int m_antialias_style = 1;
  int m_shadowmap_style = 1;
  int m_shadowmap_width = 1000;
  int m_shadowmap_height = 1000;
  double m_shadowmap_offset = 0.75;
};

struct ON_MeshParameters {
  double m_max_edge_length = 0;
  double m_min_edge_length = 0.0001;
  double m_tolerance = 0;
  double m_relative_tolerance = 0;
  double m_grid_aspect_ratio = 0;
  int m_grid_min_count = 0;
  int m_grid_max_count = 0;
  double m_grid_angle = 0;
  double m_grid_amplification = 0;
  bool m_bSimplePlanes = false;
  bool m_bRefine = true;
  bool m_bJaggedSeams = false;
  // 1 unpacked, 2 packed.
  int m_texture_range = 2;
};

struct ON_3dmPlugInRef {
  ON_UUID m_plugin_id;
  int m_plugin_type = 0;
  std::string m_plugin_name;
  std::string m_plugin_version;
};

struct ON_3dmSettings {
  ON_3dmUnitsAndTolerances m_model_units;
  ON_3dmUnitsAndTolerances m_page_units;
  ON_3dmRenderSettings m_render_settings;
  ON_MeshParameters m_render_mesh;
  ON_MeshParameters m_analysis_mesh;
  std::vector<ON_3dmView> m_views;
  std::vector<ON_3dmView> m_named_views;
  std::vector<ON_3dmConstructionPlane> m_named_cplanes;
  std::vector<ON_3dmPlugInRef> m_plugin_list;
  std::string m_model_url;
  ON_3dPoint m_model_basepoint{0, 0, 0};
  double m_linetype_scale = 1;
  int m_current_layer_index = 0;
  ON_UUID m_active_view_id;
  ON_Color m_current_color;
  int m_current_color_source = 0;
  int m_current_material_index = -1;
  int m_current_material_source = 0;
  int m_wire_density = 1;
};

#include <array>
#include <utility>

#include "host/archive/chunk_scope.h"
#include "host/archive/document_readers.h"

namespace host {
namespace {

// Reads a value of type T and puts it where it belongs when all of it could be read.
template <class T>
bool ReadWhole(ON_BinaryArchive& archive, T& value, bool (*read)(ON_BinaryArchive&, T&)) {
  T found = value;
  if (!read(archive, found)) return false;
  value = std::move(found);
  return true;
}

ON_UnitSystem UnitSystemFrom(std::int32_t stored) {
  const bool known = stored >= 0 && stored <= static_cast<int>(ON_UnitSystem::parsecs);
  return known ? static_cast<ON_UnitSystem>(stored) : ON_UnitSystem::none;
}

bool ReadUnits(ON_BinaryArchive& archive, ON_3dmUnitsAndTolerances& units) {
  std::int32_t version = 0;
  std::int32_t system = 0;
  if (!archive.ReadInt(&version)) return false;
  if (version < 100 || version >= 200) return archive.Fail("units of an unknown version");
  if (!archive.ReadInt(&system) || !archive.ReadDouble(&units.m_absolute_tolerance) ||
      !archive.ReadDouble(&units.m_angle_tolerance) ||
      !archive.ReadDouble(&units.m_relative_tolerance)) {
    return false;
  }
  units.m_unit_system = UnitSystemFrom(system);
  // How numbers are displayed.
  if (version >= 101 && !archive.Skip(8)) return false;
  if (version < 102) return true;
  return archive.ReadDouble(&units.m_custom_meters_per_unit) &&
         archive.ReadString(&units.m_custom_unit_name);
}

template <class Flag>
bool ReadIntAs(ON_BinaryArchive& archive, Flag& flag) {
  std::int32_t stored = 0;
  if (!archive.ReadInt(&stored)) return false;
  flag = stored != 0;
  return true;
}

std::array<bool*, 9> RenderFlags(ON_3dmRenderSettings& s) {
  return {&s.m_bUseHiddenLights, &s.m_bDepthCue,        &s.m_bFlatShade,
          &s.m_bRenderBackfaces, &s.m_bRenderPoints,    &s.m_bRenderCurves,
          &s.m_bRenderIsoparams, &s.m_bRenderMeshEdges, &s.m_bRenderAnnotation};
}

bool ReadShadows(ON_BinaryArchive& archive, ON_3dmRenderSettings& settings) {
  return archive.ReadInt(&settings.m_antialias_style) &&
         archive.ReadInt(&settings.m_shadowmap_style) &&
         archive.ReadInt(&settings.m_shadowmap_width) &&
         archive.ReadInt(&settings.m_shadowmap_height) &&
         archive.ReadDouble(&settings.m_shadowmap_offset);
}

// The form without a chunk of its own, up to version 50.
bool ReadOldRenderSettings(ON_BinaryArchive& archive, ON_3dmRenderSettings& settings) {
  std::int32_t version = 0;
  if (!archive.ReadInt(&version)) return false;
  if (version < 100 || version >= 200) {
    return archive.Fail("render settings of an unknown version");
  }
  if (!ReadIntAs(archive, settings.m_bCustomImageSize) ||
      !archive.ReadInt(&settings.m_image_width) || !archive.ReadInt(&settings.m_image_height) ||
      !archive.ReadColor(&settings.m_ambient_light) ||
      !archive.ReadInt(&settings.m_background_style) ||
      !archive.ReadColor(&settings.m_background_color) ||
      !archive.ReadString(&settings.m_background_bitmap)) {
    return false;
  }
  for (bool* flag : RenderFlags(settings)) {
    if (!ReadIntAs(archive, *flag)) return false;
  }
  if (!ReadShadows(archive, settings)) return false;
  if (version >= 101 &&
      (!archive.ReadDouble(&settings.m_image_dpi) || !archive.ReadInt(&settings.m_image_us))) {
    return false;
  }
  return version < 102 || archive.ReadColor(&settings.m_background_bottom_color);
}

bool ReadNewRenderSettings(ON_BinaryArchive& archive, ON_3dmRenderSettings& settings) {
  if (!archive.ReadBool(&settings.m_bCustomImageSize) ||
      !archive.ReadInt(&settings.m_image_width) || !archive.ReadInt(&settings.m_image_height) ||
      !archive.ReadDouble(&settings.m_image_dpi) || !archive.ReadInt(&settings.m_image_us) ||
      !archive.ReadColor(&settings.m_ambient_light) ||
      !archive.ReadInt(&settings.m_background_style) ||
      !archive.ReadColor(&settings.m_background_color) ||
      !archive.ReadColor(&settings.m_background_bottom_color) ||
      !archive.ReadString(&settings.m_background_bitmap)) {
    return false;
  }
  for (bool* flag : RenderFlags(settings)) {
    if (!archive.ReadBool(flag)) return false;
  }
  // Whether the background is scaled, and transparent.
  return archive.Skip(2) && ReadShadows(archive, settings);
}

bool ReadRenderSettings(ON_BinaryArchive& archive, ON_3dmRenderSettings& settings) {
  if (archive.PeekAt3dmChunkType() != TCODE_ANONYMOUS_CHUNK) {
    return ReadOldRenderSettings(archive, settings);
  }
  int major = 0;
  int minor = 0;
  if (!archive.BeginRead3dmChunk(TCODE_ANONYMOUS_CHUNK, &major, &minor)) return false;
  const bool ok = ReadNewRenderSettings(archive, settings);
  return archive.EndRead3dmChunk() && ok;
}

bool ReadPlugInRef(ON_BinaryArchive& archive, ON_3dmPlugInRef& plugin) {
  int major = 0;
  int minor = 0;
  if (!archive.BeginRead3dmChunk(TCODE_ANONYMOUS_CHUNK, &major, &minor)) return false;
  const bool ok = archive.ReadUuid(&plugin.m_plugin_id) && archive.ReadInt(&plugin.m_plugin_type) &&
                  archive.ReadString(&plugin.m_plugin_name) &&
                  archive.ReadString(&plugin.m_plugin_version);
  return archive.EndRead3dmChunk() && ok;
}

bool ReadPlugInList(ON_BinaryArchive& archive, std::vector<ON_3dmPlugInRef>& plugins) {
  // The smallest entry: a chunk's head and sum, its version, an id, a type, two empty texts.
  constexpr std::size_t kMinEntry = 8 + 4 + 8 + 16 + 4 + 8;
  int major = 0;
  int minor = 0;
  std::size_t count = 0;
  if (!archive.Read3dmChunkVersion(&major, &minor) || !archive.ReadCount(kMinEntry, &count)) {
    return false;
  }
  plugins.clear();
  plugins.reserve(count);
  for (std::size_t i = 0; i < count; ++i) {
    if (!ReadPlugInRef(archive, plugins.emplace_back())) return false;
  }
  return true;
}

// Pages have units of their own where the model attributes, which stand behind these, say so.
bool ReadModelUnits(ON_BinaryArchive& archive, ON_3dmSettings& settings) {
  if (!ReadUnits(archive, settings.m_model_units)) return false;
  settings.m_page_units = settings.m_model_units;
  return true;
}

bool ReadPageUnits(ON_BinaryArchive& archive, ON_3dmUnitsAndTolerances& units) {
  int major = 0;
  int minor = 0;
  if (!archive.BeginRead3dmChunk(TCODE_ANONYMOUS_CHUNK, &major, &minor)) return false;
  const bool ok = ReadUnits(archive, units);
  return archive.EndRead3dmChunk() && ok;
}

bool ReadModelAttributes(ON_BinaryArchive& archive, ON_3dmSettings& settings) {
  // Colour, linetype and their sources for plotting new objects.
  constexpr std::uint64_t kPlotDefaults = 16;
  int major = 0;
  int minor = 0;
  if (!archive.Read3dmChunkVersion(&major, &minor) ||
      !archive.ReadDouble(&settings.m_linetype_scale) || !archive.Skip(kPlotDefaults)) {
    return false;
  }
  if (minor >= 1 && !ReadPageUnits(archive, settings.m_page_units)) return false;
  if (minor >= 2 && !archive.ReadUuid(&settings.m_active_view_id)) return false;
  return minor < 3 || archive.ReadPoint(&settings.m_model_basepoint);
}

bool ReadCurrentMaterial(ON_BinaryArchive& archive, ON_3dmSettings& settings) {
  return archive.ReadInt(&settings.m_current_material_index) &&
         archive.ReadInt(&settings.m_current_material_source);
}

bool ReadCurrentColor(ON_BinaryArchive& archive, ON_3dmSettings& settings) {
  return archive.ReadColor(&settings.m_current_color) &&
         archive.ReadInt(&settings.m_current_color_source);
}

}  // namespace

bool ReadMeshParameters(ON_BinaryArchive& archive, ON_MeshParameters& parameters) {
  int major = 0;
  int minor = 0;
  std::int32_t computeCurvature = 0;
  std::int32_t mesher = 0;
  std::int32_t faceType = 0;
  double refineAngle = 0;
  double minTolerance = 0;
  const bool ok =
      archive.Read3dmChunkVersion(&major, &minor) && archive.ReadInt(&computeCurvature) &&
      ReadIntAs(archive, parameters.m_bSimplePlanes) && ReadIntAs(archive, parameters.m_bRefine) &&
      ReadIntAs(archive, parameters.m_bJaggedSeams) && archive.ReadInt(&mesher) &&
      archive.ReadDouble(&parameters.m_tolerance) &&
      archive.ReadDouble(&parameters.m_min_edge_length) &&
      archive.ReadDouble(&parameters.m_max_edge_length) &&
      archive.ReadDouble(&parameters.m_grid_aspect_ratio) &&
      archive.ReadInt(&parameters.m_grid_min_count) &&
      archive.ReadInt(&parameters.m_grid_max_count) &&
      archive.ReadDouble(&parameters.m_grid_angle) &&
      archive.ReadDouble(&parameters.m_grid_amplification) && archive.ReadDouble(&refineAngle) &&
      archive.ReadDouble(&minTolerance) && archive.ReadInt(&faceType);
  if (!ok) return false;
  if (minor >= 1 && !archive.ReadInt(&parameters.m_texture_range)) return false;
  return minor < 2 || (archive.Skip(1) && archive.ReadDouble(&parameters.m_relative_tolerance));
}

bool ReadSettingsRecord(ON_BinaryArchive& archive, std::uint32_t typecode, std::int64_t value,
                        ON_3dmSettings& settings) {
  switch (typecode) {
    case TCODE_SETTINGS_UNITSANDTOLS:
      return ReadWhole(archive, settings, ReadModelUnits);
    case TCODE_SETTINGS_RENDERMESH:
      return ReadWhole(archive, settings.m_render_mesh, ReadMeshParameters);
    case TCODE_SETTINGS_ANALYSISMESH:
      return ReadWhole(archive, settings.m_analysis_mesh, ReadMeshParameters);
    case TCODE_SETTINGS_RENDER:
      return ReadWhole(archive, settings.m_render_settings, ReadRenderSettings);
    case TCODE_SETTINGS_NAMED_CPLANE_LIST:
      return ReadConstructionPlaneList(archive, settings.m_named_cplanes);
    case TCODE_SETTINGS_NAMED_VIEW_LIST:
      return ReadViewList(archive, settings.m_named_views);
    case TCODE_SETTINGS_VIEW_LIST:
      return ReadViewList(archive, settings.m_views);
    case TCODE_SETTINGS_PLUGINLIST:
      return ReadWhole(archive, settings.m_plugin_list, ReadPlugInList);
    case TCODE_SETTINGS_MODEL_URL:
      return archive.ReadString(&settings.m_model_url);
    case TCODE_SETTINGS_CURRENT_LAYER_INDEX:
      settings.m_current_layer_index = static_cast<int>(value);
      return true;
    case TCODE_SETTINGS_CURRENT_WIRE_DENSITY:
      settings.m_wire_density = static_cast<int>(value);
      return true;
    case TCODE_SETTINGS_CURRENT_MATERIAL_INDEX:
      return ReadWhole(archive, settings, ReadCurrentMaterial);
    case TCODE_SETTINGS_CURRENT_COLOR:
      return ReadWhole(archive, settings, ReadCurrentColor);
    case TCODE_SETTINGS_ATTRIBUTES:
      return ReadWhole(archive, settings, ReadModelAttributes);
    default:
      return true;
  }
}

}  // namespace host

#include "host/archive/chunk_writer.h"
#include "host/archive/typecodes.h"
#include "support/record_writers.h"

namespace model_writer {
namespace {

// Seconds, minutes, hours, day, month from 0, years since 1900, day of the week and of the year.
void WriteTime(ON_BinaryArchive& archive, const std::array<int, 6>& time) {
  const auto& [year, month, day, hour, minute, second] = time;
  const bool isSet = year != 0;
  for (const int part :
       {second, minute, hour, day, isSet ? month - 1 : 0, isSet ? year - 1900 : 0, 0, 0}) {
    archive.WriteInt(part);
  }
}

void WriteHistory(ON_BinaryArchive& archive, const ON_3dmProperties& properties) {
  const ChunkWriter chunk(archive, TCODE_PROPERTIES_REVISIONHISTORY);
  archive.Write3dmChunkVersion(1, 0);
  archive.WriteString(properties.m_created_by);
  WriteTime(archive, properties.m_create_time);
  archive.WriteString(properties.m_last_edited_by);
  WriteTime(archive, properties.m_last_edit_time);
  archive.WriteInt(properties.m_revision_count);
}

void WriteNotes(ON_BinaryArchive& archive, const ON_3dmProperties& properties) {
  const ChunkWriter chunk(archive, TCODE_PROPERTIES_NOTES);
  archive.Write3dmChunkVersion(1, 0);
  archive.WriteInt(0);  // plain text
  archive.WriteString(properties.m_notes);
  for (int i = 0; i < 5; ++i) archive.WriteInt(0);  // the notes window, closed
}

void WriteApplication(ON_BinaryArchive& archive, const ON_3dmProperties& properties) {
  const ChunkWriter chunk(archive, TCODE_PROPERTIES_APPLICATION);
  archive.Write3dmChunkVersion(1, 0);
  archive.WriteString(properties.m_application_name);
  archive.WriteString(properties.m_application_url);
  archive.WriteString(properties.m_application_details);
}

void WriteUnits(ON_BinaryArchive& archive, const ON_3dmUnitsAndTolerances& units) {
  const ChunkWriter chunk(archive, TCODE_SETTINGS_UNITSANDTOLS);
  archive.WriteInt(102);
  archive.WriteInt(static_cast<std::int32_t>(units.m_unit_system));
  archive.WriteDouble(units.m_absolute_tolerance);
  archive.WriteDouble(units.m_angle_tolerance);
  archive.WriteDouble(units.m_relative_tolerance);
  archive.WriteInt(0);  // decimal numbers
  archive.WriteInt(3);  // digits shown
  archive.WriteDouble(units.m_custom_meters_per_unit);
  archive.WriteString(units.m_custom_unit_name);
}

void WriteRenderMesh(ON_BinaryArchive& archive, const ON_MeshParameters& parameters) {
  const ChunkWriter chunk(archive, TCODE_SETTINGS_RENDERMESH);
  archive.Write3dmChunkVersion(1, 2);
  archive.WriteInt(0);  // no curvature figures
  archive.WriteInt(parameters.m_bSimplePlanes);
  archive.WriteInt(parameters.m_bRefine);
  archive.WriteInt(parameters.m_bJaggedSeams);
  archive.WriteInt(0);  // the mesher
  archive.WriteDouble(parameters.m_tolerance);
  archive.WriteDouble(parameters.m_min_edge_length);
  archive.WriteDouble(parameters.m_max_edge_length);
  archive.WriteDouble(parameters.m_grid_aspect_ratio);
  archive.WriteInt(parameters.m_grid_min_count);
  archive.WriteInt(parameters.m_grid_max_count);
  archive.WriteDouble(parameters.m_grid_angle);
  archive.WriteDouble(parameters.m_grid_amplification);
  archive.WriteDouble(0);  // angle and
  archive.WriteDouble(0);  // tolerance of refining
  archive.WriteInt(0);     // triangles and quads
  archive.WriteInt(parameters.m_texture_range);
  archive.WriteBool(false);
  archive.WriteDouble(parameters.m_relative_tolerance);
}

void WriteRenderSettings(ON_BinaryArchive& archive, const ON_3dmRenderSettings& settings) {
  const ChunkWriter chunk(archive, TCODE_SETTINGS_RENDER);
  archive.WriteInt(103);
  archive.WriteInt(settings.m_bCustomImageSize);
  archive.WriteInt(settings.m_image_width);
  archive.WriteInt(settings.m_image_height);
  archive.WriteColor(settings.m_ambient_light);
  archive.WriteInt(settings.m_background_style);
  archive.WriteColor(settings.m_background_color);
  archive.WriteString(settings.m_background_bitmap);
  for (const bool flag :
       {settings.m_bUseHiddenLights, settings.m_bDepthCue, settings.m_bFlatShade,
        settings.m_bRenderBackfaces, settings.m_bRenderPoints, settings.m_bRenderCurves,
        settings.m_bRenderIsoparams, settings.m_bRenderMeshEdges, settings.m_bRenderAnnotation}) {
    archive.WriteInt(flag);
  }
  archive.WriteInt(settings.m_antialias_style);
  archive.WriteInt(settings.m_shadowmap_style);
  archive.WriteInt(settings.m_shadowmap_width);
  archive.WriteInt(settings.m_shadowmap_height);
  archive.WriteDouble(settings.m_shadowmap_offset);
  archive.WriteDouble(settings.m_image_dpi);
  archive.WriteInt(settings.m_image_us);
  archive.WriteColor(settings.m_background_bottom_color);
  archive.WriteBool(false);
}

}  // namespace

void WriteProperties(ON_BinaryArchive& archive, const ON_3dmProperties& properties) {
  WriteTable(archive, TCODE_PROPERTIES_TABLE, [&](ON_BinaryArchive& table) {
    table.WriteShortChunk(TCODE_PROPERTIES_OPENNURBS_VERSION, table.ArchiveOpenNURBSVersion());
    WriteHistory(table, properties);
    WriteNotes(table, properties);
    WriteApplication(table, properties);
  });
}

void WriteSettings(ON_BinaryArchive& archive, const ON_3dmSettings& settings) {
  WriteTable(archive, TCODE_SETTINGS_TABLE, [&](ON_BinaryArchive& table) {
    WriteUnits(table, settings.m_model_units);
    WriteRenderMesh(table, settings.m_render_mesh);
    WriteViewList(table, TCODE_SETTINGS_NAMED_VIEW_LIST, settings.m_named_views);
    WriteViewList(table, TCODE_SETTINGS_VIEW_LIST, settings.m_views);
    table.WriteShortChunk(TCODE_SETTINGS_CURRENT_LAYER_INDEX, settings.m_current_layer_index);
    WriteRenderSettings(table, settings.m_render_settings);
  });
}

}  // namespace model_writer

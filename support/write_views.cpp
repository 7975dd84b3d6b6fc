#include "host/archive/chunk_writer.h"
#include "host/archive/typecodes.h"
#include "support/record_writers.h"

namespace model_writer {
namespace {

void WriteViewport(ON_BinaryArchive& archive, const ON_Viewport& viewport) {
  const bool wide = archive.Archive3dmVersion() >= 50;
  const ChunkWriter chunk(archive, TCODE_VIEW_VIEWPORT);
  archive.Write3dmChunkVersion(1, wide ? 2 : 1);
  archive.WriteInt(viewport.m_camera_valid);
  archive.WriteInt(viewport.m_frustum_valid);
  archive.WriteInt(viewport.m_port_valid);
  archive.WriteInt(static_cast<std::int32_t>(viewport.m_projection));
  archive.WritePoint(viewport.m_location);
  for (const ON_3dVector& axis :
       {viewport.m_direction, viewport.m_up, viewport.m_x, viewport.m_y, viewport.m_z}) {
    archive.WriteVector(axis);
  }
  const ON_Viewport::Frustum& f = viewport.m_frustum;
  for (const double side : {f.left, f.right, f.bottom, f.top, f.near, f.far}) {
    archive.WriteDouble(side);
  }
  const ON_Viewport::ScreenPort& p = viewport.m_port;
  for (const int side : {p.left, p.right, p.bottom, p.top, p.near, p.far}) archive.WriteInt(side);
  archive.WriteUuid(viewport.m_id);
  if (!wide) return;
  for (int i = 0; i < 3; ++i) archive.WriteBool(false);  // nothing of the camera is locked
  archive.WriteBool(f.left == -f.right);
  archive.WriteBool(f.bottom == -f.top);
}

void WriteConstructionPlane(ON_BinaryArchive& archive, const ON_3dmConstructionPlane& plane) {
  const ChunkWriter chunk(archive, TCODE_VIEW_CPLANE);
  archive.Write3dmChunkVersion(1, 1);
  archive.WritePlane(plane.m_plane);
  archive.WriteDouble(plane.m_grid_spacing);
  archive.WriteDouble(plane.m_snap_spacing);
  archive.WriteInt(plane.m_grid_line_count);
  archive.WriteInt(plane.m_grid_thick_frequency);
  archive.WriteString(plane.m_name);
  archive.WriteBool(false);
}

void WritePosition(ON_BinaryArchive& archive, const ON_3dmView& view) {
  const ChunkWriter chunk(archive, TCODE_VIEW_POSITION);
  archive.Write3dmChunkVersion(1, 0);
  archive.WriteInt(view.m_maximized);
  for (const double side : view.m_window) archive.WriteDouble(side);
}

void WriteView(ON_BinaryArchive& archive, const ON_3dmView& view) {
  const ChunkWriter chunk(archive, TCODE_VIEW_RECORD);
  WriteViewport(archive, view.m_vp);
  {
    const ChunkWriter target(archive, TCODE_VIEW_TARGET);
    archive.WritePoint(view.m_target);
  }
  {
    const ChunkWriter name(archive, TCODE_VIEW_NAME);
    archive.WriteString(view.m_name);
  }
  WriteConstructionPlane(archive, view.m_cplane);
  WritePosition(archive, view);
  archive.WriteShortChunk(TCODE_VIEW_SHOWCONGRID, view.m_show_grid);
  archive.WriteShortChunk(TCODE_VIEW_SHOWCONAXES, view.m_show_axes);
  archive.WriteShortChunk(TCODE_VIEW_SHOWWORLDAXES, view.m_show_world_axes);
  archive.WriteShortChunk(TCODE_ENDOFTABLE, 0);
}

}  // namespace

void WriteViewList(ON_BinaryArchive& archive, std::uint32_t typecode,
                   const std::vector<ON_3dmView>& views) {
  const ChunkWriter chunk(archive, typecode);
  archive.WriteInt(static_cast<std::int32_t>(views.size()));
  for (const ON_3dmView& view : views) WriteView(archive, view);
}

}  // namespace model_writer

#include "host/archive/chunk_writer.h"
#include "host/archive/typecodes.h"
#include "support/record_writers.h"

namespace model_writer {

void WriteClippingPlaneData(ON_BinaryArchive& archive, const ON_ClippingPlaneSurface& surface) {
  const ChunkWriter data(archive, TCODE_ANONYMOUS_CHUNK, 1, 0);
  {
    const ChunkWriter rectangle(archive, TCODE_ANONYMOUS_CHUNK);
    WritePlaneSurfaceData(archive, surface);
  }
  const std::vector<ON_UUID>& ids = surface.m_viewport_ids;
  const ChunkWriter clipping(archive, TCODE_ANONYMOUS_CHUNK, 1, 1);
  archive.WriteUuid(ids.empty() ? ON_UUID() : ids.front());
  archive.WriteUuid({});
  archive.WritePlane(surface.m_plane);
  archive.WriteBool(surface.m_bEnabled);
  const ChunkWriter list(archive, TCODE_ANONYMOUS_CHUNK, 1, 0);
  archive.WriteInt(static_cast<std::int32_t>(ids.size()));
  for (const ON_UUID& id : ids) archive.WriteUuid(id);
}

}  // namespace model_writer

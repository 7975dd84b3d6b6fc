#include "host/archive/chunk_writer.h"
#include "host/archive/class_ids.h"
#include "host/archive/record_writers.h"

namespace host {
namespace {

// A line style that was never used stands in several records.
void WriteNoLineStyle(ON_BinaryArchive& archive) {
  archive.WriteShort(0);
  archive.WriteShort(0);
  archive.WriteDouble(0);
  archive.WriteDouble(1);
}

void WriteLayerData(ON_BinaryArchive& archive, const ON_Layer& layer, int index) {
  constexpr int kNormal = 0, kOff = 1, kLocked = 2;
  archive.Write3dmChunkVersion(1, 6);
  const int mode = !layer.m_visible ? kOff : layer.m_locked ? kLocked : kNormal;
  archive.WriteInt(mode);
  archive.WriteInt(index);
  archive.WriteInt(layer.m_iges_level);
  archive.WriteInt(layer.m_render_material_index);
  archive.WriteInt(0);
  archive.WriteColor(layer.m_color);
  WriteNoLineStyle(archive);
  archive.WriteString(layer.m_name);
  archive.WriteBool(layer.m_visible);
  archive.WriteInt(layer.m_linetype_index);
  archive.WriteColor(layer.m_plot_color);
  archive.WriteDouble(layer.m_plot_weight_mm);
  archive.WriteBool(layer.m_locked);
  archive.WriteUuid(layer.m_id);
  archive.WriteUuid(layer.m_parent_id);
  archive.WriteBool(layer.m_expanded);
}

}  // namespace

void WriteLayer(ON_BinaryArchive& archive, const ON_Layer& layer, int index) {
  const ChunkWriter record(archive, TCODE_LAYER_RECORD);
  WriteClass(archive, kLayerClass, layer.m_user_strings,
             [&](ON_BinaryArchive& data) { WriteLayerData(data, layer, index); });
}

}  // namespace host

#include "support/chunk_writer.h"
#include "support/record_writers.h"

namespace model_writer {
namespace {

void WriteSmall(ON_BinaryArchive& archive, int value) {
  archive.WriteChar(static_cast<std::uint8_t>(value));
}

template <class Enum>
requires std::is_enum_v<Enum>
void WriteSmall(ON_BinaryArchive& archive, Enum value) {
  WriteSmall(archive, static_cast<int>(value));
}

// The form with fixed fields, up to version 4.
void WriteFixed(ON_BinaryArchive& archive, const ON_3dmObjectAttributes& a) {
  archive.Write3dmChunkVersion(1, 6);
  archive.WriteUuid(a.m_uuid);
  archive.WriteInt(a.m_layer_index);
  archive.WriteInt(a.m_material_index);
  archive.WriteColor(a.m_color);
  // A line style that was never used.
  archive.WriteShort(0);
  archive.WriteShort(0);
  archive.WriteDouble(0);
  archive.WriteDouble(1);
  archive.WriteInt(a.m_wire_density);
  WriteSmall(archive, a.m_mode);
  WriteSmall(archive, a.m_color_source);
  WriteSmall(archive, a.m_linetype_source);
  WriteSmall(archive, a.m_material_source);
  archive.WriteString(a.m_name);
  archive.WriteString(a.m_url);
  WriteArray(archive, a.m_group);
  archive.WriteBool(a.m_visible);
  archive.WriteInt(0);  // materials shown in views
  archive.WriteInt(a.m_decoration);
  WriteSmall(archive, a.m_plot_color_source);
  archive.WriteColor(a.m_plot_color);
  WriteSmall(archive, a.m_plot_weight_source);
  archive.WriteDouble(a.m_plot_weight_mm);
  archive.WriteInt(a.m_linetype_index);
  WriteSmall(archive, a.m_space);
  archive.WriteInt(0);  // materials shown in views
}

// The items of the tagged form in the order of their tags; what has its default is left out.
class TaggedWriter {
 public:
  TaggedWriter(ON_BinaryArchive& archive, const ON_3dmObjectAttributes& attributes)
      : archive_(archive), a_(attributes) {}

  void Write() {
    archive_.Write3dmChunkVersion(2, 1);
    archive_.WriteUuid(a_.m_uuid);
    archive_.WriteInt(a_.m_layer_index);
    WriteNamesAndIndices();
    WriteDisplay();
    WriteSources();
    WriteGroupsAndSpace();
    WriteSmall(archive_, 0);
  }

 private:
  // Writes the tag when `value` isn't the default; the value is then the caller's to write.
  template <class T>
  bool Begins(int tag, const T& value, const T& by_default) {
    if (value == by_default) return false;
    WriteSmall(archive_, tag);
    return true;
  }

  void WriteNamesAndIndices() {
    if (Begins(1, a_.m_name, default_.m_name)) archive_.WriteString(a_.m_name);
    if (Begins(2, a_.m_url, default_.m_url)) archive_.WriteString(a_.m_url);
    if (Begins(3, a_.m_linetype_index, default_.m_linetype_index)) {
      archive_.WriteInt(a_.m_linetype_index);
    }
    if (Begins(4, a_.m_material_index, default_.m_material_index)) {
      archive_.WriteInt(a_.m_material_index);
    }
  }

  void WriteDisplay() {
    if (Begins(6, a_.m_color, default_.m_color)) archive_.WriteColor(a_.m_color);
    if (Begins(7, a_.m_plot_color, default_.m_plot_color)) archive_.WriteColor(a_.m_plot_color);
    if (Begins(8, a_.m_plot_weight_mm, default_.m_plot_weight_mm)) {
      archive_.WriteDouble(a_.m_plot_weight_mm);
    }
    if (Begins(9, a_.m_decoration, default_.m_decoration)) WriteSmall(archive_, a_.m_decoration);
    if (Begins(10, a_.m_wire_density, default_.m_wire_density)) {
      archive_.WriteInt(a_.m_wire_density);
    }
    if (Begins(11, a_.m_visible, default_.m_visible)) archive_.WriteBool(a_.m_visible);
    if (Begins(12, a_.m_mode, default_.m_mode)) WriteSmall(archive_, a_.m_mode);
  }

  void WriteSources() {
    int tag = 13;
    for (const ON_AttributeSource source :
         {a_.m_color_source, a_.m_plot_color_source, a_.m_plot_weight_source, a_.m_material_source,
          a_.m_linetype_source}) {
      if (Begins(tag++, source, ON_AttributeSource::layer)) WriteSmall(archive_, source);
    }
  }

  void WriteGroupsAndSpace() {
    if (Begins(18, a_.m_group, default_.m_group)) WriteArray(archive_, a_.m_group);
    if (Begins(19, a_.m_space, default_.m_space)) WriteSmall(archive_, a_.m_space);
    if (Begins(20, a_.m_viewport_id, default_.m_viewport_id)) archive_.WriteUuid(a_.m_viewport_id);
    if (Begins(22, a_.m_display_order, default_.m_display_order)) {
      archive_.WriteInt(a_.m_display_order);
    }
  }

  ON_BinaryArchive& archive_;
  const ON_3dmObjectAttributes& a_;
  const ON_3dmObjectAttributes default_;
};

}  // namespace

void WriteAttributes(ON_BinaryArchive& archive, const ON_3dmObjectAttributes& attributes) {
  if (archive.Archive3dmVersion() < 50) {
    WriteFixed(archive, attributes);
  } else {
    TaggedWriter(archive, attributes).Write();
  }
}

}  // namespace model_writer

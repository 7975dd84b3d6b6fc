#include "host/archive/chunk_writer.h"
#include "host/archive/record_writers.h"

namespace host {
namespace {

void WriteSmall(ON_BinaryArchive& archive, int value) {
  archive.WriteChar(static_cast<std::uint8_t>(value));
}

template <class Enum>
requires std::is_enum_v<Enum>
void WriteSmall(ON_BinaryArchive& archive, Enum value) {
  WriteSmall(archive, static_cast<int>(value));
}

// What version 4 added.
void WritePlotFields(ON_BinaryArchive& archive, const ON_3dmObjectAttributes& a) {
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

// The form with fixed fields, up to version 4.
void WriteFixed(ON_BinaryArchive& archive, const ON_3dmObjectAttributes& a) {
  const bool isOld = archive.Archive3dmVersion() < 4;
  archive.Write3dmChunkVersion(1, isOld ? 2 : 6);
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
  if (!isOld) WritePlotFields(archive, a);
}

void WriteValue(ON_BinaryArchive& archive, const std::string& value) {
  archive.WriteString(value);
}
void WriteValue(ON_BinaryArchive& archive, int value) {
  archive.WriteInt(value);
}
void WriteValue(ON_BinaryArchive& archive, bool value) {
  archive.WriteBool(value);
}
void WriteValue(ON_BinaryArchive& archive, double value) {
  archive.WriteDouble(value);
}
void WriteValue(ON_BinaryArchive& archive, ON_Color value) {
  archive.WriteColor(value);
}
void WriteValue(ON_BinaryArchive& archive, const ON_UUID& value) {
  archive.WriteUuid(value);
}
void WriteValue(ON_BinaryArchive& archive, const std::vector<int>& value) {
  WriteArray(archive, value);
}
template <class Enum>
requires std::is_enum_v<Enum>
void WriteValue(ON_BinaryArchive& archive, Enum value) {
  WriteSmall(archive, value);
}

// Collects the items whose values differ, in the order in which they are asked for.
class ItemList {
 public:
  ItemList(const ON_3dmObjectAttributes& attributes, const ON_3dmObjectAttributes& others)
      : a_(attributes), b_(others) {}

  template <class T>
  void Add(std::uint8_t tag, T ON_3dmObjectAttributes::*field) {
    if (a_.*field == b_.*field) return;
    ON_BinaryArchive bytes(50);
    WriteValue(bytes, a_.*field);
    items_.push_back({tag, bytes.TakeBytes()});
  }
  // A number that is stored in one byte.
  void AddSmall(std::uint8_t tag, int ON_3dmObjectAttributes::*field) {
    if (a_.*field == b_.*field) return;
    items_.push_back({tag, std::string(1, static_cast<char>(a_.*field))});
  }
  std::vector<AttributeItem> Take() { return std::move(items_); }

 private:
  const ON_3dmObjectAttributes& a_;
  const ON_3dmObjectAttributes& b_;
  std::vector<AttributeItem> items_;
};

void WriteTagged(ON_BinaryArchive& archive, const ON_3dmObjectAttributes& attributes) {
  archive.Write3dmChunkVersion(2, 1);
  archive.WriteUuid(attributes.m_uuid);
  archive.WriteInt(attributes.m_layer_index);
  for (const AttributeItem& item : DifferingItems(attributes, ON_3dmObjectAttributes())) {
    archive.WriteChar(item.tag);
    archive.WriteByte(std::as_bytes(std::span(item.bytes)));
  }
  archive.WriteChar(0);
}

}  // namespace

std::vector<AttributeItem> DifferingItems(const ON_3dmObjectAttributes& attributes,
                                          const ON_3dmObjectAttributes& others) {
  using A = ON_3dmObjectAttributes;
  ItemList items(attributes, others);
  items.Add(1, &A::m_name);
  items.Add(2, &A::m_url);
  items.Add(3, &A::m_linetype_index);
  items.Add(4, &A::m_material_index);
  items.Add(6, &A::m_color);
  items.Add(7, &A::m_plot_color);
  items.Add(8, &A::m_plot_weight_mm);
  items.AddSmall(9, &A::m_decoration);
  items.Add(10, &A::m_wire_density);
  items.Add(11, &A::m_visible);
  items.Add(12, &A::m_mode);
  items.Add(13, &A::m_color_source);
  items.Add(14, &A::m_plot_color_source);
  items.Add(15, &A::m_plot_weight_source);
  items.Add(16, &A::m_material_source);
  items.Add(17, &A::m_linetype_source);
  items.Add(18, &A::m_group);
  items.AddSmall(19, &A::m_space);
  items.Add(20, &A::m_viewport_id);
  items.Add(22, &A::m_display_order);
  return items.Take();
}

void WriteAttributes(ON_BinaryArchive& archive, const ON_3dmObjectAttributes& attributes) {
  if (archive.Archive3dmVersion() < 50) {
    WriteFixed(archive, attributes);
  } else {
    WriteTagged(archive, attributes);
  }
}

void WriteAttributeStrings(ON_BinaryArchive& archive, const ON_UserStringList& strings,
                           std::uint32_t user_data_typecode) {
  const ChunkWriter chunk(archive, user_data_typecode);
  WriteUserStrings(archive, strings);
  archive.WriteShortChunk(TCODE_OPENNURBS_CLASS_END, 0);
}

void WriteAttributeChunks(ON_BinaryArchive& archive, const ON_3dmObjectAttributes& attributes,
                          std::uint32_t typecode, std::uint32_t user_data_typecode) {
  {
    const ChunkWriter chunk(archive, typecode);
    WriteAttributes(archive, attributes);
  }
  if (attributes.m_user_strings.IsEmpty()) return;
  WriteAttributeStrings(archive, attributes.m_user_strings, user_data_typecode);
}

}  // namespace host

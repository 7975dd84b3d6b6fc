#include "host/archive/read_attributes.h"

#include "host/archive/chunk_scope.h"

namespace host {
namespace {

// The items of the tagged form, in the order in which they are stored. Those behind the display
// order aren't used.
enum Tag : std::uint8_t {
  kEnd = 0,
  kName = 1,
  kUrl = 2,
  kLinetype = 3,
  kMaterial = 4,
  kRendering = 5,
  kColor = 6,
  kPlotColor = 7,
  kPlotWeight = 8,
  kDecoration = 9,
  kWireDensity = 10,
  kVisible = 11,
  kMode = 12,
  kColorSource = 13,
  kPlotColorSource = 14,
  kPlotWeightSource = 15,
  kMaterialSource = 16,
  kLinetypeSource = 17,
  kGroups = 18,
  kSpace = 19,
  kViewport = 20,
  kDisplayMaterials = 21,
  kDisplayOrder = 22,
};

bool ReadSource(ON_BinaryArchive& archive, ON_AttributeSource& source) {
  std::uint8_t stored = 0;
  if (!archive.ReadChar(&stored)) return false;
  source = stored <= 3 ? static_cast<ON_AttributeSource>(stored) : ON_AttributeSource::layer;
  return true;
}

bool ReadMode(ON_BinaryArchive& archive, ON_ObjectMode& mode) {
  std::uint8_t stored = 0;
  if (!archive.ReadChar(&stored)) return false;
  const int low = stored & 15;
  mode = low <= 3 ? static_cast<ON_ObjectMode>(low) : ON_ObjectMode::normal;
  return true;
}

// Zero is what writers left where they meant the model.
bool ReadSpace(ON_BinaryArchive& archive, int& space) {
  std::uint8_t stored = 0;
  if (!archive.ReadChar(&stored)) return false;
  space = stored == 2 ? 2 : 1;
  return true;
}

bool ReadSmall(ON_BinaryArchive& archive, int& value) {
  std::uint8_t stored = 0;
  if (!archive.ReadChar(&stored)) return false;
  value = stored;
  return true;
}

bool ReadGroups(ON_BinaryArchive& archive, std::vector<int>& groups) {
  std::size_t count = 0;
  if (!archive.ReadCount(sizeof(std::int32_t), &count)) return false;
  groups.resize(count);
  return archive.ReadByte(std::as_writable_bytes(std::span(groups)));
}

// Pairs of a viewport and a material that is shown in it.
bool SkipDisplayMaterials(ON_BinaryArchive& archive) {
  std::size_t count = 0;
  return archive.ReadCount(2 * sizeof(ON_UUID), &count) &&
         archive.Skip(count * 2 * sizeof(ON_UUID));
}

bool ReadMappingChannel(ON_BinaryArchive& archive, const ON_UUID& plugin_id,
                        std::vector<ON_MappingRef>& refs) {
  const ChunkScope scope(archive);
  int major = 0, minor = 0;
  ON_MappingRef ref;
  ref.m_plugin_id = plugin_id;
  if (!archive.BeginRead3dmChunk(TCODE_ANONYMOUS_CHUNK, &major, &minor) ||
      !archive.ReadInt(&ref.m_mapping_channel) || !archive.ReadUuid(&ref.m_mapping_id)) {
    return false;
  }
  refs.push_back(ref);
  return true;
}

bool ReadMappingRef(ON_BinaryArchive& archive, std::vector<ON_MappingRef>& refs) {
  const ChunkScope scope(archive);
  int major = 0, minor = 0;
  ON_UUID plugin_id;
  std::size_t count = 0;
  if (!archive.BeginRead3dmChunk(TCODE_ANONYMOUS_CHUNK, &major, &minor) ||
      !archive.ReadUuid(&plugin_id) || !archive.ReadCount(1, &count)) {
    return false;
  }
  for (std::size_t i = 0; i < count; ++i) {
    if (!ReadMappingChannel(archive, plugin_id, refs)) return false;
  }
  return true;
}

// Materials and texture mappings per render application.
bool ReadRendering(ON_BinaryArchive& archive, std::vector<ON_MappingRef>& refs) {
  const ChunkScope scope(archive);
  int major = 0, minor = 0;
  std::size_t material_count = 0, mapping_count = 0;
  if (!archive.BeginRead3dmChunk(TCODE_ANONYMOUS_CHUNK, &major, &minor)) return false;
  if (major != 1) return archive.Fail("rendering attributes of an unknown version");
  if (!archive.ReadCount(1, &material_count)) return false;
  for (std::size_t i = 0; i < material_count; ++i) {
    if (!SkipChunk(archive)) return false;
  }
  if (!archive.ReadCount(1, &mapping_count)) return false;
  for (std::size_t i = 0; i < mapping_count; ++i) {
    if (!ReadMappingRef(archive, refs)) return false;
  }
  return true;
}

bool ReadTaggedItem(ON_BinaryArchive& archive, Tag tag, ON_3dmObjectAttributes& a) {
  switch (tag) {
    case kName:
      return archive.ReadString(&a.m_name);
    case kUrl:
      return archive.ReadString(&a.m_url);
    case kLinetype:
      return archive.ReadInt(&a.m_linetype_index);
    case kMaterial:
      return archive.ReadInt(&a.m_material_index);
    case kRendering:
      return ReadRendering(archive, a.m_mapping_refs);
    case kColor:
      return archive.ReadColor(&a.m_color);
    case kPlotColor:
      return archive.ReadColor(&a.m_plot_color);
    case kPlotWeight:
      return archive.ReadDouble(&a.m_plot_weight_mm);
    case kDecoration:
      return ReadSmall(archive, a.m_decoration);
    case kWireDensity:
      return archive.ReadInt(&a.m_wire_density);
    case kVisible:
      return archive.ReadBool(&a.m_visible);
    case kMode:
      return ReadMode(archive, a.m_mode);
    case kColorSource:
      return ReadSource(archive, a.m_color_source);
    case kPlotColorSource:
      return ReadSource(archive, a.m_plot_color_source);
    case kPlotWeightSource:
      return ReadSource(archive, a.m_plot_weight_source);
    case kMaterialSource:
      return ReadSource(archive, a.m_material_source);
    case kLinetypeSource:
      return ReadSource(archive, a.m_linetype_source);
    case kGroups:
      return ReadGroups(archive, a.m_group);
    case kSpace:
      return ReadSpace(archive, a.m_space);
    case kViewport:
      return archive.ReadUuid(&a.m_viewport_id);
    case kDisplayMaterials:
      return SkipDisplayMaterials(archive);
    case kDisplayOrder:
      return archive.ReadInt(&a.m_display_order);
    case kEnd:
      break;
  }
  return false;
}

bool ReadTaggedAttributes(ON_BinaryArchive& archive, ON_3dmObjectAttributes& attributes) {
  if (!archive.ReadUuid(&attributes.m_uuid) || !archive.ReadInt(&attributes.m_layer_index)) {
    return false;
  }
  std::uint8_t tag = 0, last = 0;
  while (archive.ReadChar(&tag)) {
    if (tag == kEnd || tag > kDisplayOrder) return true;
    if (tag <= last) return archive.Fail("the items of attributes are out of order");
    if (!ReadTaggedItem(archive, static_cast<Tag>(tag), attributes)) return false;
    last = tag;
  }
  return false;
}

// What the first version had.
bool ReadFirstFields(ON_BinaryArchive& archive, ON_3dmObjectAttributes& a) {
  // A line style of 2 + 2 + 8 + 8 bytes that was never used.
  constexpr std::uint64_t kLineStyleSize = 20;
  return archive.ReadUuid(&a.m_uuid) && archive.ReadInt(&a.m_layer_index) &&
         archive.ReadInt(&a.m_material_index) && archive.ReadColor(&a.m_color) &&
         archive.Skip(kLineStyleSize) && archive.ReadInt(&a.m_wire_density) &&
         ReadMode(archive, a.m_mode) && ReadSource(archive, a.m_color_source) &&
         ReadSource(archive, a.m_linetype_source) && ReadSource(archive, a.m_material_source) &&
         archive.ReadString(&a.m_name) && archive.ReadString(&a.m_url);
}

bool ReadPlotFields(ON_BinaryArchive& archive, ON_3dmObjectAttributes& a) {
  return archive.ReadInt(&a.m_decoration) && ReadSource(archive, a.m_plot_color_source) &&
         archive.ReadColor(&a.m_plot_color) && ReadSource(archive, a.m_plot_weight_source) &&
         archive.ReadDouble(&a.m_plot_weight_mm);
}

bool ReadFixedAttributes(ON_BinaryArchive& archive, int minor, ON_3dmObjectAttributes& a) {
  if (!ReadFirstFields(archive, a)) return false;
  a.m_visible = a.m_mode != ON_ObjectMode::hidden;
  if (minor >= 1 && !ReadGroups(archive, a.m_group)) return false;
  if (minor >= 2 && !archive.ReadBool(&a.m_visible)) return false;
  if (minor >= 3 && !SkipDisplayMaterials(archive)) return false;
  if (minor >= 4 && !ReadPlotFields(archive, a)) return false;
  if (minor >= 5 && !archive.ReadInt(&a.m_linetype_index)) return false;
  if (minor >= 6 && !(ReadSpace(archive, a.m_space) && SkipDisplayMaterials(archive))) return false;
  return minor < 7 || ReadRendering(archive, a.m_mapping_refs);
}

}  // namespace

bool ReadAttributes(ON_BinaryArchive& archive, ON_3dmObjectAttributes& attributes) {
  int major = 0, minor = 0;
  if (!archive.Read3dmChunkVersion(&major, &minor)) return false;
  if (major == 1) return ReadFixedAttributes(archive, minor, attributes);
  if (major == 2) return ReadTaggedAttributes(archive, attributes);
  return archive.Fail("attributes of an unknown version");
}

}  // namespace host

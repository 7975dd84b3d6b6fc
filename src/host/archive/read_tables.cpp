#include "host/archive/chunk_scope.h"
#include "host/archive/class_ids.h"
#include "host/archive/class_wrapper.h"
#include "host/archive/component_attributes.h"
#include "host/archive/record_readers.h"

namespace host {
namespace {

constexpr ON_UUID kGroupClass = "721d9f97-3645-44c4-8be6-b2cf697d25ce"_uuid;
constexpr ON_UUID kLinetypeClass = "26f10a24-7d13-4f05-8fda-8e364daf8ea6"_uuid;
constexpr ON_UUID kDefinitionClass = "26f8bff6-2618-417f-a158-153d64a94989"_uuid;

// Old files have colours that are fully transparent by mistake.
void MakeOldColorOpaque(const ON_BinaryArchive& archive, ON_Color& color) {
  if (archive.Archive3dmVersion() < 70 && color.Alpha() == 255 && color != ON_UNSET_COLOR) {
    color = ON_Color(color.Red(), color.Green(), color.Blue());
  }
}

bool ReadFirstLayerFields(ON_BinaryArchive& archive, ON_Layer& layer) {
  // A line style that was never used.
  constexpr std::uint64_t kLineStyleSize = 20;
  std::int32_t mode = 0, index = 0, unused = 0;
  if (!archive.ReadInt(&mode) || !archive.ReadInt(&index) ||
      !archive.ReadInt(&layer.m_iges_level) || !archive.ReadInt(&layer.m_render_material_index) ||
      !archive.ReadInt(&unused) || !archive.ReadColor(&layer.m_color) ||
      !archive.Skip(kLineStyleSize) || !archive.ReadString(&layer.m_name)) {
    return false;
  }
  MakeOldColorOpaque(archive, layer.m_color);
  layer.m_visible = mode != 1;
  layer.m_locked = mode == 2;
  return true;
}

bool ReadParentLayer(ON_BinaryArchive& archive, ON_Layer& layer) {
  // The writer of this version left nonsense here.
  constexpr unsigned kBrokenWriter = 200505110;
  if (archive.ArchiveOpenNURBSVersion() <= kBrokenWriter) return true;
  return archive.ReadUuid(&layer.m_parent_id) && archive.ReadBool(&layer.m_expanded);
}

bool ReadLayerData(ON_BinaryArchive& archive, ON_Layer& layer) {
  int major = 0, minor = 0;
  if (!archive.Read3dmChunkVersion(&major, &minor)) return false;
  if (major != 1) return archive.Fail("a layer of an unknown version");
  if (!ReadFirstLayerFields(archive, layer)) return false;
  bool visible = true, locked = false;
  if (minor >= 1 && !archive.ReadBool(&visible)) return false;
  if (!visible) layer.m_visible = false;
  if (minor >= 2 && !archive.ReadInt(&layer.m_linetype_index)) return false;
  if (minor >= 3 &&
      !(archive.ReadColor(&layer.m_plot_color) && archive.ReadDouble(&layer.m_plot_weight_mm))) {
    return false;
  }
  if (minor >= 4 && !archive.ReadBool(&locked)) return false;
  if (locked) layer.m_locked = true;
  if (minor >= 5 && !archive.ReadUuid(&layer.m_id)) return false;
  if (minor >= 6 && !ReadParentLayer(archive, layer)) return false;
  if (minor >= 7 && !SkipChunk(archive)) return false;
  // Sections and custom linetypes follow, from 1.10 on as tagged items.
  return minor < 8 || archive.ReadUuid(&layer.m_display_material_id);
}

bool ReadGroupData(ON_BinaryArchive& archive, ON_Group& group) {
  int major = 0, minor = 0;
  if (!archive.Read3dmChunkVersion(&major, &minor)) return false;
  if (major != 1) return archive.Fail("a group of an unknown version");
  return archive.ReadInt(&group.m_index) && archive.ReadString(&group.m_name) &&
         (minor < 1 || archive.ReadUuid(&group.m_id));
}

bool ReadSegments(ON_BinaryArchive& archive, std::vector<ON_Linetype::Segment>& segments) {
  std::size_t count = 0;
  if (!archive.ReadCount(sizeof(double) + sizeof(std::int32_t), &count)) return false;
  segments.resize(count);
  for (ON_Linetype::Segment& segment : segments) {
    std::int32_t type = 0;
    if (!archive.ReadDouble(&segment.m_length) || !archive.ReadInt(&type)) return false;
    segment.m_is_gap = type == 1;
  }
  return true;
}

bool ReadLinetypeData(ON_BinaryArchive& archive, ON_Linetype& linetype) {
  const ChunkScope scope(archive);
  int major = 0, minor = 0;
  if (!archive.BeginRead3dmChunk(TCODE_ANONYMOUS_CHUNK, &major, &minor)) return false;
  if (major == 1) {
    std::int32_t index = 0;
    return archive.ReadInt(&index) && archive.ReadString(&linetype.m_name) &&
           ReadSegments(archive, linetype.m_segments) &&
           (minor < 1 || archive.ReadUuid(&linetype.m_id));
  }
  if (major != 2) return archive.Fail("a linetype of an unknown version");
  ComponentAttributes attributes;
  if (!ReadComponentAttributes(archive, attributes)) return false;
  linetype.m_id = attributes.id;
  linetype.m_name = attributes.name;
  // Width, ends and joins follow as tagged items.
  return ReadSegments(archive, linetype.m_segments);
}

bool ReadMemberIds(ON_BinaryArchive& archive, std::vector<ON_UUID>& ids) {
  std::size_t count = 0;
  if (!archive.ReadCount(sizeof(ON_UUID), &count)) return false;
  ids.resize(count);
  for (ON_UUID& id : ids) {
    if (!archive.ReadUuid(&id)) return false;
  }
  return true;
}

// Values that aren't known count as static.
int DefinitionKind(std::int32_t stored) {
  return stored >= 1 && stored <= 3 ? stored : 0;
}

bool ReadDefinitionTexts(ON_BinaryArchive& archive, ON_InstanceDefinition& definition) {
  return archive.ReadString(&definition.m_description) && archive.ReadString(&definition.m_url) &&
         archive.ReadString(&definition.m_url_tag) && archive.ReadBoundingBox(&definition.m_bbox);
}

// The form up to version 5 and of some early files of version 6.
bool ReadOldDefinition(ON_BinaryArchive& archive, ON_InstanceDefinition& definition) {
  int major = 0, minor = 0;
  if (!archive.Read3dmChunkVersion(&major, &minor)) return false;
  if (major != 1) return archive.Fail("a block definition of an unknown version");
  std::int32_t kind = 0;
  if (!archive.ReadUuid(&definition.m_id) || !ReadMemberIds(archive, definition.m_object_ids) ||
      !archive.ReadString(&definition.m_name) || !ReadDefinitionTexts(archive, definition) ||
      !archive.ReadInt(&kind) || !archive.ReadString(&definition.m_linked_file)) {
    return false;
  }
  definition.m_kind = DefinitionKind(kind);
  return true;
}

// The path of a linked block: in a chunk that leads a chunk that names the file.
bool ReadLinkedFile(ON_BinaryArchive& archive, std::string& path) {
  const ChunkScope scope(archive);
  int major = 0, minor = 0;
  return archive.BeginRead3dmChunk(TCODE_ANONYMOUS_CHUNK, &major, &minor) &&
         archive.BeginRead3dmChunk(TCODE_ANONYMOUS_CHUNK, &major, &minor) &&
         archive.ReadString(&path);
}

bool ReadNewDefinition(ON_BinaryArchive& archive, ON_InstanceDefinition& definition) {
  const ChunkScope scope(archive);
  int major = 0, minor = 0;
  ComponentAttributes attributes;
  std::int32_t kind = 0;
  bool has_members = false, is_linked = false;
  if (!archive.BeginRead3dmChunk(TCODE_ANONYMOUS_CHUNK, &major, &minor)) return false;
  if (major != 1) return archive.Fail("a block definition of an unknown version");
  if (!ReadComponentAttributes(archive, attributes) || !archive.ReadInt(&kind) ||
      !SkipChunk(archive) || !ReadDefinitionTexts(archive, definition)) {
    return false;
  }
  definition.m_id = attributes.id;
  definition.m_name = attributes.name;
  definition.m_kind = DefinitionKind(kind);
  if (!archive.ReadBool(&has_members)) return false;
  if (has_members && !ReadMemberIds(archive, definition.m_object_ids)) return false;
  if (!archive.ReadBool(&is_linked)) return false;
  return !is_linked || ReadLinkedFile(archive, definition.m_linked_file);
}

bool ReadDefinitionData(ON_BinaryArchive& archive, ON_InstanceDefinition& definition) {
  const bool is_new =
      archive.Archive3dmVersion() > 50 && archive.PeekAt3dmChunkType() == TCODE_ANONYMOUS_CHUNK;
  return is_new ? ReadNewDefinition(archive, definition) : ReadOldDefinition(archive, definition);
}

// A record that holds one object of one class.
template <class T>
bool ReadRecord(ON_BinaryArchive& archive, const ON_UUID& expected, T& value,
                ON_UserStringList* strings, bool (*read)(ON_BinaryArchive&, T&)) {
  return ReadWrappedClass(archive, strings, [&](ON_BinaryArchive& data, const ON_UUID& class_id) {
    if (class_id == expected) return read(data, value);
    return data.Fail("an object of class " + class_id.ToString() + " in a table of other objects");
  });
}

}  // namespace

bool ReadLayer(ON_BinaryArchive& archive, ON_Layer& layer) {
  return ReadRecord(archive, kLayerClass, layer, &layer.m_user_strings, ReadLayerData);
}

bool ReadGroup(ON_BinaryArchive& archive, ON_Group& group) {
  return ReadRecord(archive, kGroupClass, group, nullptr, ReadGroupData);
}

bool ReadLinetype(ON_BinaryArchive& archive, ON_Linetype& linetype) {
  return ReadRecord(archive, kLinetypeClass, linetype, &linetype.m_user_strings, ReadLinetypeData);
}

bool ReadInstanceDefinition(ON_BinaryArchive& archive, ON_InstanceDefinition& definition) {
  return ReadRecord(archive, kDefinitionClass, definition, &definition.m_user_strings,
                    ReadDefinitionData);
}

}  // namespace host

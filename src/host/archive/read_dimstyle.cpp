#include "host/archive/chunk_scope.h"
#include "host/archive/class_wrapper.h"
#include "host/archive/component_attributes.h"
#include "host/archive/record_readers.h"

namespace host {
namespace {

constexpr ON_UUID kDimStyleClass = "67aa51a5-791d-4bec-8aed-d23b462b6f87"_uuid;
constexpr ON_UUID kOldDimStyleClass = "81bd83d5-7120-41c4-9a57-c449336ff12c"_uuid;

// The old kinds of arrows are numbered without the two that came first later on.
int ArrowTypeFromOld(std::int32_t stored) {
  return stored >= 0 && stored <= 7 ? stored + 2 : 2;
}

bool ReadOldFirstFields(ON_BinaryArchive& archive, ON_DimStyle& style) {
  std::int32_t index = 0, alignment = 0, arrow = 0, angular_units = 0, length_format = 0,
               angle_format = 0, text_style = 0;
  if (!archive.ReadInt(&index) || !archive.ReadString(&style.m_name) ||
      !archive.ReadDouble(&style.m_extextension) || !archive.ReadDouble(&style.m_extoffset) ||
      !archive.ReadDouble(&style.m_arrowsize) || !archive.ReadDouble(&style.m_centermark) ||
      !archive.ReadDouble(&style.m_textgap) || !archive.ReadInt(&alignment) ||
      !archive.ReadInt(&arrow) || !archive.ReadInt(&angular_units) ||
      !archive.ReadInt(&length_format) || !archive.ReadInt(&angle_format) ||
      !archive.ReadInt(&style.m_lengthresolution) || !archive.ReadInt(&style.m_angleresolution) ||
      !archive.ReadInt(&text_style)) {
    return false;
  }
  style.m_arrowtype1 = style.m_arrowtype2 = ArrowTypeFromOld(arrow);
  // Leaders had no arrow of their own.
  style.m_leaderarrowtype = ArrowTypeFromOld(0);
  return true;
}

bool SkipOldAlternate(ON_BinaryArchive& archive) {
  bool alternate = false;
  double factor = 0;
  std::string text;
  return archive.ReadBool(&alternate) && archive.ReadDouble(&factor) &&
         archive.Skip(4 * sizeof(std::int32_t)) && archive.ReadString(&text) &&
         archive.ReadString(&text) && archive.Skip(sizeof(std::int32_t));
}

bool ReadOldDimStyle(ON_BinaryArchive& archive, ON_DimStyle& style) {
  int major = 0, minor = 0;
  if (!archive.Read3dmChunkVersion(&major, &minor)) return false;
  if (major != 1) return archive.Fail("a dimension style of an unknown version");
  if (!ReadOldFirstFields(archive, style)) return false;
  double dimension_extension = 0;
  std::int32_t leader_arrow = 0;
  if (minor >= 1 && !archive.ReadDouble(&style.m_textheight)) return false;
  if (minor >= 2 &&
      !(archive.ReadDouble(&style.m_lengthfactor) && archive.ReadString(&style.m_prefix) &&
        archive.ReadString(&style.m_suffix) && SkipOldAlternate(archive))) {
    return false;
  }
  if (minor >= 3 && !archive.ReadUuid(&style.m_id)) return false;
  if (minor >= 4 && !archive.ReadDouble(&dimension_extension)) return false;
  if (minor < 5) return true;
  if (!archive.ReadDouble(&style.m_leaderarrowsize) || !archive.ReadInt(&leader_arrow)) {
    return false;
  }
  style.m_leaderarrowtype = ArrowTypeFromOld(leader_arrow);
  return true;
}

bool ReadNewFirstFields(ON_BinaryArchive& archive, ON_DimStyle& style) {
  std::int32_t alignment = 0, angle_format = 0, length_format = 0, text_style = 0;
  return archive.ReadDouble(&style.m_extextension) && archive.ReadDouble(&style.m_extoffset) &&
         archive.ReadDouble(&style.m_arrowsize) && archive.ReadDouble(&style.m_leaderarrowsize) &&
         archive.ReadDouble(&style.m_centermark) && archive.ReadDouble(&style.m_textgap) &&
         archive.ReadDouble(&style.m_textheight) && archive.ReadInt(&alignment) &&
         archive.ReadInt(&angle_format) && archive.ReadInt(&length_format) &&
         archive.ReadInt(&style.m_angleresolution) && archive.ReadInt(&style.m_lengthresolution) &&
         archive.ReadInt(&text_style) && archive.ReadDouble(&style.m_lengthfactor);
}

// The alternate units' figures, the texts around the number, and what the style overrides of its
// parent.
bool ReadAffixesAndOverrides(ON_BinaryArchive& archive, ON_DimStyle& style) {
  constexpr std::uint64_t kAlternateSize = 1 + 8 + 4 + 4;
  constexpr std::uint64_t kExtensionsAndParentSize = 8 + 1 + 1 + 16 + 4;
  std::string alternate_text;
  bool has_overrides = false;
  std::size_t override_count = 0;
  if (!archive.Skip(kAlternateSize) || !archive.ReadString(&style.m_prefix) ||
      !archive.ReadString(&style.m_suffix) || !archive.ReadString(&alternate_text) ||
      !archive.ReadString(&alternate_text) || !archive.Skip(kExtensionsAndParentSize) ||
      !archive.ReadBool(&has_overrides)) {
    return false;
  }
  return !has_overrides || (archive.ReadCount(1, &override_count) && archive.Skip(override_count));
}

bool ReadScaleAndArrows(ON_BinaryArchive& archive, ON_DimStyle& style) {
  // Tolerances, baseline spacing and text mask; sources, colours, plot colours and weights; fixed
  // extensions, rotation, rounding.
  constexpr std::uint64_t kToleranceAndMaskSize = 4 + 4 + 3 * 8 + 8 + 1 + 4 + 4;
  constexpr std::uint64_t kScaleSourceSize = 4 + 16;
  constexpr std::uint64_t kColorsSize = 2 * (4 + 4 * 4) + 2 + 2 * 8;
  constexpr std::uint64_t kTextSize = 8 + 1 + 8 + 4 + 8 + 1 + 1 + 4 + 4 + 8 + 4 + 3 * 8;
  constexpr std::uint64_t kZerosSize = 4 * 4 + 1;
  return archive.Skip(kToleranceAndMaskSize) && archive.ReadDouble(&style.m_dimscale) &&
         archive.Skip(kScaleSourceSize + kColorsSize + kTextSize + kZerosSize) &&
         archive.ReadInt(&style.m_arrowtype1) && archive.ReadInt(&style.m_arrowtype2) &&
         archive.ReadInt(&style.m_leaderarrowtype);
}

// A name that is stored either as all texts are or in a chunk, as UTF-8 behind a version byte.
bool ReadFaceName(ON_BinaryArchive& archive, std::string& name) {
  if (archive.PeekAt3dmChunkType() != TCODE_UTF8_STRING_CHUNK) return archive.ReadString(&name);
  const ChunkScope scope(archive);
  std::uint32_t typecode = 0;
  std::int64_t value = 0;
  std::uint8_t version = 0;
  if (!archive.BeginRead3dmChunk(&typecode, &value) || !archive.ReadChar(&version)) return false;
  name.resize(static_cast<std::size_t>(archive.BytesLeft()));
  return archive.ReadByte(std::as_writable_bytes(std::span(name)));
}

bool ReadFontName(ON_BinaryArchive& archive, ON_DimStyle& style) {
  // Arrow blocks; alignments, leader's form; a scale in a chunk; a unit.
  constexpr std::uint64_t kBlocksSize = 48;
  constexpr std::uint64_t kLeaderSize = 5 * 4 + 8 + 1 + 8 + 2 * 4 + 2;
  const ChunkScope scope(archive);
  int major = 0, minor = 0;
  std::uint32_t characteristics = 0;
  return archive.Skip(kBlocksSize + kLeaderSize) && SkipChunk(archive) &&
         archive.Skip(sizeof(std::int32_t)) &&
         archive.BeginRead3dmChunk(TCODE_ANONYMOUS_CHUNK, &major, &minor) &&
         archive.ReadInt(&characteristics) && ReadFaceName(archive, style.m_font);
}

bool ReadNewDimStyle(ON_BinaryArchive& archive, ON_DimStyle& style) {
  const ChunkScope scope(archive);
  int major = 0, minor = 0;
  ComponentAttributes attributes;
  if (!archive.BeginRead3dmChunk(TCODE_ANONYMOUS_CHUNK, &major, &minor)) return false;
  if (major != 1) return archive.Fail("a dimension style of an unknown version");
  if (!ReadComponentAttributes(archive, attributes) || !ReadNewFirstFields(archive, style)) {
    return false;
  }
  style.m_id = attributes.id;
  style.m_name = attributes.name;
  // Before, the factor stood for what is a unit now.
  if (minor <= 5) style.m_lengthfactor = 1;
  if (!ReadAffixesAndOverrides(archive, style) || !ReadScaleAndArrows(archive, style)) return false;
  return minor < 2 || ReadFontName(archive, style);
}

}  // namespace

bool ReadDimStyle(ON_BinaryArchive& archive, ON_DimStyle& style) {
  return ReadWrappedClass(archive, &style.m_user_strings,
                          [&style](ON_BinaryArchive& data, const ON_UUID& class_id) {
                            if (class_id == kDimStyleClass) return ReadNewDimStyle(data, style);
                            if (class_id == kOldDimStyleClass) return ReadOldDimStyle(data, style);
                            return data.Fail("this is no dimension style");
                          });
}

}  // namespace host

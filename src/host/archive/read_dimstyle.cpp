#include <array>

#include "host/archive/chunk_scope.h"
#include "host/archive/class_wrapper.h"
#include "host/archive/component_attributes.h"
#include "host/archive/record_readers.h"
#include "host/geometry/on_settings.h"

namespace host {
namespace {

constexpr ON_UUID kDimStyleClass = "67aa51a5-791d-4bec-8aed-d23b462b6f87"_uuid;
constexpr ON_UUID kOldDimStyleClass = "81bd83d5-7120-41c4-9a57-c449336ff12c"_uuid;

// The old kinds of arrows are numbered without the two that came first later on.
int ArrowTypeFromOld(std::int32_t stored) {
  return stored >= 0 && stored <= 7 ? stored + 2 : 2;
}

// How the oldest form said where texts stand: 0 and 2 above the line, 3 in it, 1 and 4 in it and
// horizontal.
void SetTextPlaces(std::int32_t alignment, ON_DimStyle& style) {
  const bool horizontal = alignment == 1 || alignment == 4;
  style.m_textlocation = horizontal || alignment == 3 ? 1 : 0;
  style.m_radialtextlocation = 1;
  style.m_texthorizontal = horizontal;
  style.m_radialtexthorizontal = true;
  style.m_leadertexthorizontal = horizontal;
}

// 0 decimal, 1 fractions, 2 and 3 feet and inches.
void SetLengthFormat(std::int32_t format, ON_DimStyle& style) {
  style.m_lengthformat = format == 1 ? 1 : format == 2 || format == 3 ? 2 : 0;
  style.m_lengthunit = style.m_lengthformat == 2 ? static_cast<int>(ON_UnitSystem::inches) : 0;
}

bool ReadOldFirstFields(ON_BinaryArchive& archive, std::span<const TextStyle> text_styles,
                        ON_DimStyle& style) {
  std::int32_t index = 0, alignment = 0, arrow = 0, angular_units = 0, length_format = 0,
               text_style = 0;
  if (!archive.ReadInt(&index) || !archive.ReadString(&style.m_name) ||
      !archive.ReadDouble(&style.m_extextension) || !archive.ReadDouble(&style.m_extoffset) ||
      !archive.ReadDouble(&style.m_arrowsize) || !archive.ReadDouble(&style.m_centermark) ||
      !archive.ReadDouble(&style.m_textgap) || !archive.ReadInt(&alignment) ||
      !archive.ReadInt(&arrow) || !archive.ReadInt(&angular_units) ||
      !archive.ReadInt(&length_format) || !archive.ReadInt(&style.m_angleformat) ||
      !archive.ReadInt(&style.m_lengthresolution) || !archive.ReadInt(&style.m_angleresolution) ||
      !archive.ReadInt(&text_style)) {
    return false;
  }
  style.m_arrowtype1 = style.m_arrowtype2 = ArrowTypeFromOld(arrow);
  // Leaders had no arrow of their own.
  style.m_leaderarrowtype = ArrowTypeFromOld(0);
  SetTextPlaces(alignment, style);
  SetLengthFormat(length_format, style);
  if (const TextStyle* font = FindTextStyle(text_styles, text_style)) font->ApplyTo(style);
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

// What the form of version 5 carries as user data.
constexpr ON_UUID kExtraClass = "513fde53-7284-4065-8601-06cea8b28d6f"_uuid;

void ReadExtra(ON_BinaryArchive& archive, const ON_UUID& class_id, ON_DimStyle& style) {
  if (class_id != kExtraClass) return;
  // Tolerances and the distance between base lines; a mask.
  constexpr std::uint64_t kToleranceSize = 2 * sizeof(std::int32_t) + 4 * sizeof(double);
  constexpr std::uint64_t kMaskSize = 1 + 2 * sizeof(std::int32_t);
  const ChunkScope scope(archive);
  int major = 0, minor = 0;
  std::size_t count = 0;
  double scale = 0;
  if (!archive.BeginRead3dmChunk(TCODE_ANONYMOUS_CHUNK, &major, &minor) || major != 1 ||
      minor < 2 || !archive.Skip(sizeof(ON_UUID)) || !archive.ReadCount(1, &count) ||
      !archive.Skip(count + kToleranceSize + kMaskSize) || !archive.ReadDouble(&scale)) {
    return;
  }
  if (ON_IsValid(scale) && scale > 0) style.m_dimscale = scale;
}

bool ReadOldDimStyle(ON_BinaryArchive& archive, std::span<const TextStyle> text_styles,
                     ON_DimStyle& style) {
  int major = 0, minor = 0;
  if (!archive.Read3dmChunkVersion(&major, &minor)) return false;
  if (major != 1) return archive.Fail("a dimension style of an unknown version");
  if (!ReadOldFirstFields(archive, text_styles, style)) return false;
  std::int32_t leader_arrow = 0;
  if (minor >= 1 && !archive.ReadDouble(&style.m_textheight)) return false;
  if (minor >= 2 &&
      !(archive.ReadDouble(&style.m_lengthfactor) && archive.ReadString(&style.m_prefix) &&
        archive.ReadString(&style.m_suffix) && SkipOldAlternate(archive))) {
    return false;
  }
  if (minor >= 3 && !archive.ReadUuid(&style.m_id)) return false;
  if (minor >= 4 && !archive.ReadDouble(&style.m_dimextension)) return false;
  if (minor < 5) return true;
  if (!archive.ReadDouble(&style.m_leaderarrowsize) || !archive.ReadInt(&leader_arrow) ||
      !archive.ReadBool(&style.m_suppress_extension1) ||
      !archive.ReadBool(&style.m_suppress_extension2)) {
    return false;
  }
  style.m_leaderarrowtype = ArrowTypeFromOld(leader_arrow);
  return true;
}

bool ReadNewFirstFields(ON_BinaryArchive& archive, ON_DimStyle& style) {
  std::int32_t alignment = 0, length_format = 0, text_style = 0;
  if (!archive.ReadDouble(&style.m_extextension) || !archive.ReadDouble(&style.m_extoffset) ||
      !archive.ReadDouble(&style.m_arrowsize) || !archive.ReadDouble(&style.m_leaderarrowsize) ||
      !archive.ReadDouble(&style.m_centermark) || !archive.ReadDouble(&style.m_textgap) ||
      !archive.ReadDouble(&style.m_textheight) || !archive.ReadInt(&alignment) ||
      !archive.ReadInt(&style.m_angleformat) || !archive.ReadInt(&length_format) ||
      !archive.ReadInt(&style.m_angleresolution) || !archive.ReadInt(&style.m_lengthresolution) ||
      !archive.ReadInt(&text_style) || !archive.ReadDouble(&style.m_lengthfactor)) {
    return false;
  }
  SetTextPlaces(alignment, style);
  SetLengthFormat(length_format, style);
  return true;
}

// The alternate units' figures, the texts around the number, and what the style overrides of its
// parent.
bool ReadAffixesAndOverrides(ON_BinaryArchive& archive, ON_DimStyle& style) {
  constexpr std::uint64_t kAlternateSize = 1 + 8 + 4 + 4;
  constexpr std::uint64_t kParentSize = 16 + 4;
  std::string alternate_text;
  bool has_overrides = false;
  std::size_t override_count = 0;
  if (!archive.Skip(kAlternateSize) || !archive.ReadString(&style.m_prefix) ||
      !archive.ReadString(&style.m_suffix) || !archive.ReadString(&alternate_text) ||
      !archive.ReadString(&alternate_text) || !archive.ReadDouble(&style.m_dimextension) ||
      !archive.ReadBool(&style.m_suppress_extension1) ||
      !archive.ReadBool(&style.m_suppress_extension2) || !archive.Skip(kParentSize) ||
      !archive.ReadBool(&has_overrides)) {
    return false;
  }
  return !has_overrides || (archive.ReadCount(1, &override_count) && archive.Skip(override_count));
}

bool ReadScaleAndSwitches(ON_BinaryArchive& archive, ON_DimStyle& style) {
  // Tolerances, baseline spacing and text mask; sources, colours, plot colours and weights.
  constexpr std::uint64_t kToleranceAndMaskSize = 4 + 4 + 3 * 8 + 8 + 1 + 4 + 4;
  constexpr std::uint64_t kScaleSourceSize = 4 + 16;
  constexpr std::uint64_t kColorsSize = 2 * (4 + 4 * 4) + 2 + 2 * 8;
  // A rotation and the heights of tolerances.
  constexpr std::uint64_t kRotationSize = 8 + 4 + 8;
  return archive.Skip(kToleranceAndMaskSize) && archive.ReadDouble(&style.m_dimscale) &&
         archive.Skip(kScaleSourceSize + kColorsSize) &&
         archive.ReadDouble(&style.m_fixedextensionlength) &&
         archive.ReadBool(&style.m_fixedextension) && archive.Skip(kRotationSize) &&
         archive.ReadBool(&style.m_suppress_arrow1) && archive.ReadBool(&style.m_suppress_arrow2);
}

bool ReadRoundingAndArrows(ON_BinaryArchive& archive, ON_DimStyle& style) {
  // Leaders of moved texts, the sign of arc lengths, stacked fractions, alternate rounding.
  constexpr std::uint64_t kStackSize = 4 + 4 + 8 + 4 + 8;
  return archive.Skip(kStackSize) && archive.ReadDouble(&style.m_round) &&
         // Of angles; of alternate lengths and tolerances.
         archive.Skip(sizeof(double) + 2 * sizeof(std::int32_t)) &&
         archive.ReadInt(&style.m_zerosuppress) && archive.ReadInt(&style.m_anglezerosuppress) &&
         archive.Skip(1) && archive.ReadInt(&style.m_arrowtype1) &&
         archive.ReadInt(&style.m_arrowtype2) && archive.ReadInt(&style.m_leaderarrowtype);
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

// 0 horizontal, 1 along the line, 2 turned by an angle of its own.
bool ReadIsHorizontal(ON_BinaryArchive& archive, bool& horizontal) {
  std::int32_t stored = 0;
  if (!archive.ReadInt(&stored)) return false;
  horizontal = stored == 0;
  return true;
}

// Of version 1.1.
bool ReadLeaderForm(ON_BinaryArchive& archive, ON_DimStyle& style) {
  // Blocks for arrows; what a leader holds, the alignments of texts in an older form.
  constexpr std::uint64_t kBlocksSize = 3 * sizeof(ON_UUID);
  constexpr std::uint64_t kAlignmentSize = 3 * sizeof(std::int32_t);
  return archive.Skip(kBlocksSize + kAlignmentSize) &&
         ReadIsHorizontal(archive, style.m_leadertexthorizontal) &&
         archive.ReadInt(&style.m_leadercurve) && archive.Skip(sizeof(double)) &&
         archive.ReadBool(&style.m_leaderlanding) &&
         archive.ReadDouble(&style.m_leaderlandinglength) &&
         // Alignments in an older form, two switches, a scale, a unit.
         archive.Skip(2 * sizeof(std::int32_t) + 2) && SkipChunk(archive) &&
         archive.Skip(sizeof(std::int32_t));
}

// Of version 1.2. Weight, slant and more share a number.
bool ReadFont(ON_BinaryArchive& archive, ON_DimStyle& style) {
  constexpr std::uint32_t kSemibold = 6, kItalic = 2;
  const ChunkScope scope(archive);
  int major = 0, minor = 0;
  std::uint32_t characteristics = 0;
  if (!archive.BeginRead3dmChunk(TCODE_ANONYMOUS_CHUNK, &major, &minor) ||
      !archive.ReadInt(&characteristics) || !ReadFaceName(archive, style.m_font)) {
    return false;
  }
  style.m_bold = characteristics / 2 % 10 >= kSemibold;
  style.m_italic = characteristics / 20 % 4 >= kItalic;
  return true;
}

// Of version 1.4.
bool ReadTextPlaces(ON_BinaryArchive& archive, ON_DimStyle& style) {
  constexpr std::uint64_t kTextAlignmentSize = 2 * sizeof(std::int32_t);
  // The leader's horizontal alignment; four times whether texts turn to the viewer.
  constexpr std::uint64_t kOrientationSize = 5 * sizeof(std::int32_t);
  return archive.ReadInt(&style.m_textlocation) && archive.ReadInt(&style.m_radialtextlocation) &&
         archive.Skip(kTextAlignmentSize) && archive.ReadInt(&style.m_leadertextvalign) &&
         archive.Skip(kOrientationSize) && ReadIsHorizontal(archive, style.m_texthorizontal) &&
         ReadIsHorizontal(archive, style.m_radialtexthorizontal) && archive.Skip(1);
}

// Of version 1.6: the unit and the form of lengths in one number.
bool ReadLengthDisplay(ON_BinaryArchive& archive, ON_DimStyle& style) {
  using enum ON_UnitSystem;
  constexpr std::array kUnits{none,   inches,     inches, millimeters, centimeters,
                              meters, kilometers, inches, feet,        miles};
  std::uint32_t display = 0;
  if (!archive.ReadInt(&display)) return false;
  const bool is_known = display < kUnits.size();
  style.m_lengthunit = static_cast<int>(is_known ? kUnits[display] : none);
  style.m_lengthformat = display == 1 || display == 2 ? static_cast<int>(display) : 0;
  return archive.Skip(sizeof(std::int32_t));
}

// What came after version 1.0, each part with the one before.
bool ReadLaterFields(ON_BinaryArchive& archive, int minor, ON_DimStyle& style) {
  if (minor < 1) return true;
  if (!ReadLeaderForm(archive, style)) return false;
  if (minor >= 2 && !ReadFont(archive, style)) return false;
  // A mask.
  if (minor >= 3 && !SkipChunk(archive)) return false;
  if (minor >= 4 && !ReadTextPlaces(archive, style)) return false;
  if (minor >= 5 && !archive.Skip(2 * sizeof(std::int32_t))) return false;
  if (minor >= 6 && !ReadLengthDisplay(archive, style)) return false;
  if (minor >= 7 && !archive.ReadInt(&style.m_centermarkstyle)) return false;
  if (minor < 8) return true;
  return archive.Skip(1) && archive.ReadInt(&style.m_textfit) && archive.ReadInt(&style.m_arrowfit);
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
  return ReadAffixesAndOverrides(archive, style) && ReadScaleAndSwitches(archive, style) &&
         ReadRoundingAndArrows(archive, style) && ReadLaterFields(archive, minor, style);
}

}  // namespace

bool ReadDimStyle(ON_BinaryArchive& archive, ON_DimStyle& style,
                  std::span<const TextStyle> text_styles) {
  const auto read = [&](ON_BinaryArchive& data, const ON_UUID& class_id) {
    if (class_id == kDimStyleClass) return ReadNewDimStyle(data, style);
    if (class_id == kOldDimStyleClass) return ReadOldDimStyle(data, text_styles, style);
    return data.Fail("this is no dimension style");
  };
  return ReadWrappedClass(archive, &style.m_user_strings, read,
                          [&style](ON_BinaryArchive& payload, const ON_UUID& class_id) {
                            ReadExtra(payload, class_id, style);
                          });
}

}  // namespace host

#include <cmath>

#include "host/archive/chunk_scope.h"
#include "host/archive/read_annotation_parts.h"
#include "host/archive/record_readers.h"
#include "host/archive/rich_text.h"

// Annotations of version 6 and later: chunks in chunks, the most general one innermost.

namespace host {
namespace {

using Type = ON_Annotation::Type;

bool BeginPart(ON_BinaryArchive& archive, int* version) {
  int major = 0;
  if (!archive.BeginRead3dmChunk(TCODE_ANONYMOUS_CHUNK, &major, version)) return false;
  return major == 1 || archive.Fail("an annotation of an unknown version");
}

// Values outside the kinds that are known count as `other`.
template <class Alignment>
Alignment AlignmentOf(std::uint32_t stored, Alignment last, Alignment other) {
  return stored <= static_cast<std::uint32_t>(last) ? static_cast<Alignment>(stored) : other;
}

bool ReadText(ON_BinaryArchive& archive, ON_Annotation& annotation) {
  // A plane that is always the same one.
  constexpr std::uint64_t kPlaneSize = 16 * sizeof(double);
  const ChunkScope scope(archive);
  int version = 0;
  double width = 0;
  std::uint32_t horizontal = 0, vertical = 0;
  bool is_wrapped = false;
  if (!BeginPart(archive, &version) || !archive.ReadString(&annotation.m_text) ||
      !archive.Skip(kPlaneSize) || !archive.ReadDouble(&width) ||
      !archive.ReadDouble(&annotation.m_text_rotation) || !archive.ReadInt(&horizontal) ||
      !archive.ReadInt(&vertical) || !archive.Skip(sizeof(double)) ||
      !archive.ReadBool(&is_wrapped)) {
    return false;
  }
  annotation.m_text = PlainTextFromRichText(annotation.m_text);
  if (is_wrapped) annotation.m_wrap_width = width;
  using H = ON_Annotation::HorizontalAlignment;
  using V = ON_Annotation::VerticalAlignment;
  annotation.m_halign = AlignmentOf(horizontal, H::automatic, H::left);
  annotation.m_valign = AlignmentOf(vertical, V::bottom_of_bounding_box, V::top);
  return true;
}

bool ReadOverride(ON_BinaryArchive& archive, ON_Annotation& annotation) {
  const ChunkScope scope(archive);
  int version = 0;
  bool has_style = false;
  if (!BeginPart(archive, &version) || !archive.ReadBool(&has_style)) return false;
  return !has_style || ReadDimStyle(archive, annotation.m_override.emplace());
}

// What the data tell apart in a class.
Type TypeOf(Type of_class, std::uint32_t stored) {
  constexpr std::uint32_t kAligned = 1, kDiameter = 3;
  if (of_class == Type::linear && stored == kAligned) return Type::aligned;
  if (of_class == Type::radius && stored == kDiameter) return Type::diameter;
  return of_class;
}

// What all annotations have.
bool ReadCommonPart(ON_BinaryArchive& archive, ON_Annotation& annotation) {
  const ChunkScope scope(archive);
  int version = 0;
  std::uint32_t type = 0;
  if (!BeginPart(archive, &version) || !ReadText(archive, annotation) ||
      !archive.ReadUuid(&annotation.m_dimstyle_id) || !archive.ReadPlane(&annotation.m_plane)) {
    return false;
  }
  if (version < 1) return true;
  if (!archive.ReadInt(&type)) return false;
  annotation.m_type = TypeOf(annotation.m_type, type);
  // A direction that counts as horizontal and a switch follow.
  return version < 2 || ReadOverride(archive, annotation);
}

// What all dimensions have.
bool ReadDimensionPart(ON_BinaryArchive& archive, ON_Annotation& annotation) {
  // Two switches for arrows, and how they fit.
  constexpr std::uint64_t kArrowsSize = 1 + 1 + sizeof(std::int32_t);
  const ChunkScope scope(archive);
  int version = 0;
  bool has_default_place = true;
  ON_2dPoint text_point{};
  ON_UUID detail_id;
  double scale = 1;
  if (!BeginPart(archive, &version) || !ReadCommonPart(archive, annotation) ||
      !archive.ReadString(&annotation.m_text) || !archive.Skip(sizeof(double)) ||
      !archive.ReadBool(&has_default_place) || !Read2dPoint(archive, &text_point) ||
      !archive.Skip(kArrowsSize) || !archive.ReadUuid(&detail_id) || !archive.ReadDouble(&scale)) {
    return false;
  }
  // Instead of the text as it was displayed last.
  annotation.m_text = PlainTextFromRichText(annotation.m_text);
  if (!has_default_place) annotation.m_text_point = text_point;
  if (!detail_id.IsNil() && ON_IsValid(scale) && scale > 0) annotation.m_distance_scale = scale;
  return true;
}

bool ReadLinear(ON_BinaryArchive& archive, ON_Annotation& annotation) {
  ON_2dPoint second{}, line{};
  if (!Read2dPoint(archive, &second) || !Read2dPoint(archive, &line)) return false;
  annotation.m_points = {{0, 0}, second, line};
  return true;
}

bool ReadRadial(ON_BinaryArchive& archive, ON_Annotation& annotation) {
  ON_2dPoint on_curve{}, end{};
  if (!Read2dPoint(archive, &on_curve) || !Read2dPoint(archive, &end)) return false;
  annotation.m_points = {{0, 0}, on_curve, RadialBend({0, 0}, on_curve, end), end};
  return true;
}

// `distance` along a direction; the point counts as on that side of the centre.
ON_2dPoint SidePoint(ON_2dPoint direction, double distance) {
  const double length = std::hypot(direction.x, direction.y);
  const double scale = length > 0 ? distance / length : 0;
  return {direction.x * scale, direction.y * scale};
}

bool ReadAngular(ON_BinaryArchive& archive, ON_Annotation& annotation) {
  ON_2dPoint first{}, second{}, line{};
  double first_distance = 0, second_distance = 0;
  if (!Read2dPoint(archive, &first) || !Read2dPoint(archive, &second) ||
      !archive.ReadDouble(&first_distance) || !archive.ReadDouble(&second_distance) ||
      !Read2dPoint(archive, &line)) {
    return false;
  }
  // A side that is measured from the centre itself still has a direction.
  const auto distance = [](double stored) { return stored == 0 ? 1e-6 : stored; };
  annotation.m_points = {{0, 0},
                         SidePoint(first, distance(first_distance)),
                         SidePoint(second, distance(second_distance)),
                         line};
  return true;
}

bool ReadOrdinate(ON_BinaryArchive& archive, ON_Annotation& annotation) {
  constexpr std::uint32_t kAlongY = 2;
  std::uint32_t direction = 0;
  ON_2dPoint measured{}, end{};
  double first_bend = 0, second_bend = 0;
  if (!archive.ReadInt(&direction) || !Read2dPoint(archive, &measured) ||
      !Read2dPoint(archive, &end) || !archive.ReadDouble(&first_bend) ||
      !archive.ReadDouble(&second_bend)) {
    return false;
  }
  annotation.m_points = {measured, end};
  const bool is_leader_flat = std::abs(end.x - measured.x) > std::abs(end.y - measured.y);
  annotation.m_measures_x = direction == 0 ? !is_leader_flat : direction != kAlongY;
  AddOrdinateBends(first_bend, second_bend, annotation);
  return true;
}

bool ReadPoints(ON_BinaryArchive& archive, ON_Annotation& annotation) {
  switch (annotation.m_type) {
    case Type::linear:
    case Type::aligned:
      return ReadLinear(archive, annotation);
    case Type::angular:
      return ReadAngular(archive, annotation);
    case Type::diameter:
    case Type::radius:
      return ReadRadial(archive, annotation);
    case Type::ordinate:
      return ReadOrdinate(archive, annotation);
    case Type::leader: {
      std::size_t count = 0;
      if (!archive.ReadCount(sizeof(ON_2dPoint), &count)) return false;
      annotation.m_points.resize(count);
      return archive.ReadByte(std::as_writable_bytes(std::span(annotation.m_points)));
    }
    case Type::text:
      return true;
  }
  return false;
}

}  // namespace

bool ReadNewAnnotation(ON_BinaryArchive& archive, ON_Annotation& annotation) {
  const ChunkScope scope(archive);
  int version = 0;
  const bool is_dimension = annotation.m_type != Type::text && annotation.m_type != Type::leader;
  if (!BeginPart(archive, &version)) return false;
  if (is_dimension ? !ReadDimensionPart(archive, annotation)
                   : !ReadCommonPart(archive, annotation)) {
    return false;
  }
  return ReadPoints(archive, annotation);
}

}  // namespace host

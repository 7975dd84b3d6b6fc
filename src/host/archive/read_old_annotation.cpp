#include <algorithm>
#include <cmath>

#include "host/archive/chunk_scope.h"
#include "host/archive/read_annotation_parts.h"
#include "host/archive/rich_text.h"
#include "host/system/text.h"

// Annotations of versions 3 to 5, which name their style by its position, and those of version 2.

namespace host {
namespace {

using Type = ON_Annotation::Type;

// What annotations of versions 3 to 5 have beside what is put into the annotation at once.
struct OldPart {
  OldAnnotationPoints points;
  // Of a text style for texts, of a dimension style for the others.
  int style_index = -1;
  double text_height = 0;
  int justification = 0;
};

// What the stored type tells apart in a class.
Type TypeOf(Type of_class, std::uint32_t stored) {
  const bool is_linear = of_class == Type::linear && stored == static_cast<int>(Type::aligned);
  const bool is_radial = of_class == Type::radius && stored == static_cast<int>(Type::diameter);
  return is_linear || is_radial ? static_cast<Type>(stored) : of_class;
}

bool Read2dPoints(ON_BinaryArchive& archive, std::vector<ON_2dPoint>& points) {
  std::size_t count = 0;
  if (!archive.ReadCount(sizeof(ON_2dPoint), &count)) return false;
  points.resize(count);
  return archive.ReadByte(std::as_writable_bytes(std::span(points)));
}

bool ReadFields(ON_BinaryArchive& archive, OldPart& part, ON_Annotation& annotation) {
  std::uint32_t type = 0;
  std::int32_t text_place = 0, is_text_moved = 0;
  if (!archive.ReadInt(&type) || !archive.ReadInt(&text_place) ||
      !archive.ReadPlane(&annotation.m_plane) || !Read2dPoints(archive, part.points.points) ||
      !archive.ReadString(&annotation.m_text) || !archive.ReadInt(&is_text_moved) ||
      !archive.ReadInt(&part.style_index) || !archive.ReadDouble(&part.text_height)) {
    return false;
  }
  annotation.m_type = TypeOf(annotation.m_type, type);
  annotation.m_text = PlainTextFromRichText(annotation.m_text);
  part.points.is_text_moved = is_text_moved != 0;
  return true;
}

// The common part, which stands in as many chunks as later versions have put around it; those
// inside the first one are ended. Without any up to version 4.
bool ReadCommonPart(ON_BinaryArchive& archive, OldPart& part, ON_Annotation& annotation) {
  int major = 0, minor = 0;
  const int depth = archive.ChunkDepth();
  while (archive.PeekAt3dmChunkType() == TCODE_ANONYMOUS_CHUNK) {
    if (!archive.BeginRead3dmChunk(TCODE_ANONYMOUS_CHUNK, &major, &minor)) return false;
  }
  const bool has_byte = archive.Archive3dmVersion() < 50 || archive.ChunkDepth() == depth;
  if (has_byte && !archive.Read3dmChunkVersion(&major, &minor)) return false;
  if (major != 1) return archive.Fail("an annotation of an unknown version");
  if (!ReadFields(archive, part, annotation)) return false;
  // A switch, a formula for the text and further positions of styles follow.
  if (!has_byte && !archive.ReadInt(&part.justification)) return false;
  if (archive.ChunkDepth() > depth) archive.EndRead3dmChunksTo(depth + 1);
  return true;
}

bool ReadOrdinateEnd(ON_BinaryArchive& archive, const OldPart& part, ON_Annotation& annotation) {
  constexpr std::int32_t kAlongX = 0;
  std::int32_t direction = 0;
  double first_bend = 0, second_bend = 0;
  if (!archive.ReadInt(&direction) || !archive.ReadDouble(&first_bend) ||
      !archive.ReadDouble(&second_bend)) {
    return false;
  }
  const std::vector<ON_2dPoint>& points = part.points.points;
  if (points.size() < 2) return archive.Fail("an ordinate dimension without its points");
  annotation.m_points = {points[0], points[1]};
  const double dx = std::abs(points[1].x - points[0].x);
  const double dy = std::abs(points[1].y - points[0].y);
  annotation.m_measures_x = direction < 0 ? dx <= dy : direction == kAlongX;
  AddOrdinateBends(first_bend, second_bend, annotation);
  return true;
}

// The bits in which version 5 keeps both alignments.
void TakeJustification(const OldPart& part, ON_Annotation& annotation) {
  constexpr int kCenter = 1 << 1, kRight = 1 << 2, kBottom = 1 << 16, kMiddle = 1 << 17;
  using H = ON_Annotation::HorizontalAlignment;
  using V = ON_Annotation::VerticalAlignment;
  if (part.justification == 0) {
    // The plane stands at the first line's foot.
    ON_Plane& plane = annotation.m_plane;
    plane.origin = plane.PointAt(0, part.text_height);
    return;
  }
  if ((part.justification & kCenter) != 0) annotation.m_halign = H::center;
  if ((part.justification & kRight) != 0) annotation.m_halign = H::right;
  if ((part.justification & kBottom) != 0) annotation.m_valign = V::bottom;
  if ((part.justification & kMiddle) != 0) annotation.m_valign = V::middle;
}

bool HasFont(const ON_DimStyle& style, const TextStyle& font) {
  return style.m_font == font.face && style.m_bold == font.bold && style.m_italic == font.italic;
}

// A text has a font and a height of its own; the style is one with that font, or the first one.
void TakeTextStyle(const OldPart& part, const AnnotationStyles& styles, ON_Annotation& annotation) {
  const TextStyle* font = FindTextStyle(styles.text_styles, part.style_index);
  const auto found = std::find_if(
      styles.dim_styles.begin(), styles.dim_styles.end(),
      [font](const ON_DimStyle& style) { return font != nullptr && HasFont(style, *font); });
  ON_DimStyle style;
  if (found != styles.dim_styles.end()) {
    style = *found;
  } else if (!styles.dim_styles.empty()) {
    style = styles.dim_styles.front();
  }
  annotation.m_dimstyle_id = style.m_id;
  const bool has_height = ON_IsValid(part.text_height) && part.text_height > 0;
  const bool is_same = !style.m_id.IsNil() && found != styles.dim_styles.end() &&
                       (!has_height || part.text_height == style.m_textheight);
  if (is_same) return;
  if (font != nullptr) font->ApplyTo(style);
  if (has_height) style.m_textheight = part.text_height;
  // Of many texts each has one.
  style.m_name.clear();
  annotation.m_override = std::move(style);
}

void TakeDimStyle(const OldPart& part, const AnnotationStyles& styles, ON_Annotation& annotation) {
  if (styles.dim_styles.empty()) return;
  const bool is_inside = part.style_index >= 0 &&
                         static_cast<std::size_t>(part.style_index) < styles.dim_styles.size();
  const std::size_t index = is_inside ? static_cast<std::size_t>(part.style_index) : 0;
  const ON_DimStyle& style = styles.dim_styles[index];
  annotation.m_dimstyle_id = style.m_id;
  // One without an id is found by nobody.
  if (!style.m_id.IsNil()) return;
  ON_DimStyle& own = annotation.m_override.emplace(style);
  own.m_name.clear();
}

// The degree sign that angles are given anyway.
void DropDegreeSign(std::string& text) {
  constexpr std::string_view kDegree = "\u00b0";
  if (text.size() > kDegree.size() && text.ends_with(kDegree)) {
    text.resize(text.size() - kDegree.size());
  }
}

// The tip, then the ends of the segments; the text's place follows from them.
bool TakeRadial(const OldAnnotationPoints& old, ON_Annotation& annotation) {
  if (old.points.size() < 3) return false;
  const ON_2dPoint center = old.points[0], on_curve = old.points[1], end = old.points[2];
  annotation.m_points = {center, on_curve, RadialBend(center, on_curve, end), end};
  return true;
}

bool TakeLinear(const OldAnnotationPoints& old, ON_Annotation& annotation) {
  // First measured point, its arrow, second measured point, its arrow, text.
  const std::vector<ON_2dPoint>& p = old.points;
  if (p.size() < 4) return false;
  annotation.m_points = {p[0], p[2], {(p[1].x + p[3].x) / 2, (p[1].y + p[3].y) / 2}};
  if (old.is_text_moved && p.size() > 4) annotation.m_text_point = p[4];
  return true;
}

bool TakeAngular(const OldAnnotationPoints& old, ON_Annotation& annotation) {
  // The arc is around the origin, from the x axis on. The points are the text's, one on each side
  // and one on the arc; versions before have none of use.
  if (!(old.radius > 0) || !(old.angle > 0)) return false;
  const auto on_arc = [&old](double angle) {
    return ON_2dPoint{old.radius * std::cos(angle), old.radius * std::sin(angle)};
  };
  const std::vector<ON_2dPoint>& p = old.points;
  const bool has_sides = p.size() >= 4;
  annotation.m_points = {{0, 0},
                         has_sides ? p[1] : on_arc(0),
                         has_sides ? p[2] : on_arc(old.angle),
                         on_arc(old.angle / 2)};
  if (old.is_text_moved && !p.empty()) annotation.m_text_point = p[0];
  return true;
}

}  // namespace

bool TakeOldPoints(const OldAnnotationPoints& old, ON_Annotation& annotation) {
  switch (annotation.m_type) {
    case Type::linear:
    case Type::aligned:
      return TakeLinear(old, annotation);
    case Type::angular:
      return TakeAngular(old, annotation);
    case Type::diameter:
    case Type::radius:
      return TakeRadial(old, annotation);
    case Type::leader:
      annotation.m_points = old.points;
      return true;
    case Type::text:
    case Type::ordinate:
      return true;
  }
  return false;
}

bool ReadOldAnnotation(ON_BinaryArchive& archive, const AnnotationStyles& styles,
                       ON_Annotation& annotation) {
  const ChunkScope scope(archive);
  OldPart part;
  if (!ReadCommonPart(archive, part, annotation)) return false;
  if (annotation.m_type == Type::ordinate && !ReadOrdinateEnd(archive, part, annotation)) {
    return false;
  }
  if (annotation.m_type == Type::angular) {
    if (!archive.ReadDouble(&part.points.angle) || !archive.ReadDouble(&part.points.radius)) {
      return false;
    }
    DropDegreeSign(annotation.m_text);
  }
  if (!TakeOldPoints(part.points, annotation)) {
    return archive.Fail("a dimension without its points");
  }
  if (annotation.m_type == Type::text) {
    TakeJustification(part, annotation);
    TakeTextStyle(part, styles, annotation);
  } else {
    TakeDimStyle(part, styles, annotation);
  }
  return true;
}

bool ReadOldestAnnotation(ON_BinaryArchive& archive, ON_Annotation& annotation) {
  int major = 0, minor = 0;
  std::uint32_t type = 0;
  std::int32_t is_text_moved = 0;
  std::string displayed;
  OldAnnotationPoints old;
  if (!archive.Read3dmChunkVersion(&major, &minor)) return false;
  if (major != 1) return archive.Fail("an annotation of an unknown version");
  if (!archive.ReadInt(&type) || !archive.ReadPlane(&annotation.m_plane) ||
      !Read2dPoints(archive, old.points) || !archive.ReadString(&annotation.m_text) ||
      !archive.ReadString(&displayed) || !archive.ReadInt(&is_text_moved)) {
    return false;
  }
  annotation.m_type = TypeOf(annotation.m_type, type);
  if (annotation.m_text.empty()) annotation.m_text = displayed;
  annotation.m_text = PlainTextFromRichText(annotation.m_text);
  old.is_text_moved = is_text_moved != 0;
  if (annotation.m_type == Type::text) {
    constexpr std::size_t kMaxFontName = 256;
    std::int32_t weight = 0;
    ON_DimStyle& style = annotation.m_override.emplace();
    if (!archive.ReadString(&style.m_font) || !archive.ReadInt(&weight) ||
        !archive.ReadDouble(&style.m_textheight)) {
      return false;
    }
    // No font has a longer name.
    style.m_font.resize(FirstCodePoints(style.m_font, kMaxFontName).size());
    style.m_bold = IsBoldWeight(weight);
  }
  if (annotation.m_type == Type::angular) {
    if (!archive.ReadDouble(&old.angle) || !archive.ReadDouble(&old.radius)) return false;
    DropDegreeSign(annotation.m_text);
  }
  return TakeOldPoints(old, annotation) || archive.Fail("a dimension without its points");
}

}  // namespace host

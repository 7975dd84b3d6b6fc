#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

#include "host/archive/chunk_writer.h"
#include "host/archive/typecodes.h"
#include "host/system/text.h"
#include "support/record_writers.h"

// Annotations and their styles in the form of versions 4 and 5. Each style has a text style of its
// own at the same position, which gives its font.

namespace model_writer {
namespace {

using Type = ON_Annotation::Type;

constexpr ON_UUID kTextStyleClass = "4f0f51fb-35d0-4865-9998-6d2c6a99721d"_uuid;
constexpr ON_UUID kDimStyleClass = "81bd83d5-7120-41c4-9a57-c449336ff12c"_uuid;

// Of the form's five ways the three that are used: above the line, in it, horizontal in it.
int TextPlace(const ON_DimStyle& style) {
  constexpr int kAbove = 2, kInLine = 3, kHorizontal = 4;
  if (style.m_texthorizontal) return kHorizontal;
  return style.m_textlocation == 0 ? kAbove : kInLine;
}

// The old kinds are numbered without the two that came first later on.
int OldArrow(int kind) {
  return std::clamp(kind - 2, 0, 7);
}

void WriteDimStyleData(ON_BinaryArchive& archive, const ON_DimStyle& style, int index) {
  archive.Write3dmChunkVersion(1, 5);
  archive.WriteInt(index);
  archive.WriteString(style.m_name);
  archive.WriteDouble(style.m_extextension);
  archive.WriteDouble(style.m_extoffset);
  archive.WriteDouble(style.m_arrowsize);
  archive.WriteDouble(style.m_centermark);
  archive.WriteDouble(style.m_textgap);
  archive.WriteInt(TextPlace(style));
  archive.WriteInt(OldArrow(style.m_arrowtype1));
  archive.WriteInt(0);
  archive.WriteInt(style.m_lengthformat);
  archive.WriteInt(style.m_angleformat);
  archive.WriteInt(style.m_lengthresolution);
  archive.WriteInt(style.m_angleresolution);
  archive.WriteInt(index);
  archive.WriteDouble(style.m_textheight);
  archive.WriteDouble(style.m_lengthfactor);
  archive.WriteString(style.m_prefix);
  archive.WriteString(style.m_suffix);
  // No alternate lengths.
  archive.WriteBool(false);
  archive.WriteDouble(1);
  for (int i = 0; i < 4; ++i) archive.WriteInt(0);
  archive.WriteString("");
  archive.WriteString("");
  archive.WriteInt(0);
  archive.WriteUuid(style.m_id);
  archive.WriteDouble(style.m_dimextension);
  archive.WriteDouble(style.m_leaderarrowsize);
  archive.WriteInt(OldArrow(style.m_leaderarrowtype));
  archive.WriteBool(style.m_suppress_extension1);
  archive.WriteBool(style.m_suppress_extension2);
}

void WriteTextStyleData(ON_BinaryArchive& archive, const ON_DimStyle& style, int index) {
  constexpr int kNormal = 400, kBold = 700;
  std::array<char16_t, 64> face{};
  const std::u16string name = host::Utf16FromUtf8(style.m_font);
  std::copy_n(name.begin(), std::min(name.size(), face.size() - 1), face.begin());
  archive.Write3dmChunkVersion(1, 1);
  archive.WriteInt(index);
  archive.WriteString(style.m_font);
  archive.WriteByte(std::as_bytes(std::span(face)));
  archive.WriteInt(style.m_bold ? kBold : kNormal);
  archive.WriteInt(style.m_italic ? 1 : 0);
  archive.WriteDouble(1.6);
}

// What stands in the common part, in coordinates of a plane of its own.
struct OldForm {
  ON_Plane plane;
  std::vector<ON_2dPoint> points;
  double text_height = 1;
  int justification = 0;
  // Of an angular dimension.
  double angle = 0;
  double radius = 0;
};

int Justification(const ON_Annotation& annotation) {
  constexpr int kLeft = 1, kCenter = 1 << 1, kRight = 1 << 2;
  constexpr int kBottom = 1 << 16, kMiddle = 1 << 17, kTop = 1 << 18;
  using H = ON_Annotation::HorizontalAlignment;
  using V = ON_Annotation::VerticalAlignment;
  const int across = annotation.m_halign == H::center  ? kCenter
                     : annotation.m_halign == H::right ? kRight
                                                       : kLeft;
  const int up = annotation.m_valign == V::middle ? kMiddle
                 : annotation.m_valign == V::top  ? kTop
                                                  : kBottom;
  return across | up;
}

// The form's plane has its origin in the centre and its x axis where the arc begins.
OldForm AngularForm(const ON_Annotation& annotation) {
  OldForm form;
  const std::optional<ON_Interval> angle = annotation.MeasuredAngle();
  if (!angle) return form;
  const ON_2dPoint center = annotation.m_points[0];
  const double c = std::cos(angle->Min);
  const double s = std::sin(angle->Min);
  const ON_Plane& plane = annotation.m_plane;
  form.plane = plane;
  form.plane.origin = plane.PointAt(center.x, center.y);
  form.plane.xaxis = plane.xaxis * c + plane.yaxis * s;
  form.plane.yaxis = plane.yaxis * c - plane.xaxis * s;
  const auto turned = [&](ON_2dPoint p) {
    const double x = p.x - center.x;
    const double y = p.y - center.y;
    return ON_2dPoint{x * c + y * s, y * c - x * s};
  };
  form.points = {turned(annotation.m_text_point.value_or(center)), turned(annotation.m_points[1]),
                 turned(annotation.m_points[2]), turned(annotation.m_points[3])};
  form.angle = angle->Length();
  form.radius = std::hypot(form.points[3].x, form.points[3].y);
  return form;
}

OldForm FormOf(const ON_Annotation& annotation) {
  const std::vector<ON_2dPoint>& p = annotation.m_points;
  OldForm form;
  form.plane = annotation.m_plane;
  switch (annotation.m_type) {
    case Type::linear:
    case Type::aligned: {
      if (p.size() < 3) break;
      const double y = p[2].y;
      const ON_2dPoint middle{(p[0].x + p[1].x) / 2, y};
      form.points = {
          p[0], {p[0].x, y}, p[1], {p[1].x, y}, annotation.m_text_point.value_or(middle)};
      break;
    }
    case Type::diameter:
    case Type::radius:
      if (p.size() >= 4) form.points = {p[0], p[1], p[3], p[2], p[3]};
      break;
    case Type::angular:
      form = AngularForm(annotation);
      break;
    case Type::ordinate:
      form.points.assign(p.begin(), p.begin() + std::min<std::ptrdiff_t>(2, std::ssize(p)));
      break;
    case Type::leader:
      form.points = p;
      break;
    case Type::text:
      break;
  }
  return form;
}

void WriteCommonFields(ON_BinaryArchive& archive, const ON_Annotation& annotation,
                       const OldForm& form, int style_index) {
  archive.WriteInt(static_cast<std::int32_t>(annotation.m_type));
  archive.WriteInt(0);
  archive.WritePlane(form.plane);
  WriteArray(archive, form.points);
  archive.WriteString(annotation.m_text);
  archive.WriteInt(annotation.m_text_point ? 1 : 0);
  archive.WriteInt(style_index);
  archive.WriteDouble(form.text_height);
}

void WriteCommonPart(ON_BinaryArchive& archive, const ON_Annotation& annotation,
                     const OldForm& form, int style_index) {
  if (archive.Archive3dmVersion() < 50) {
    archive.Write3dmChunkVersion(1, 0);
    WriteCommonFields(archive, annotation, form, style_index);
    return;
  }
  const ChunkWriter chunk(archive, TCODE_ANONYMOUS_CHUNK, 1, 0);
  WriteCommonFields(archive, annotation, form, style_index);
  archive.WriteInt(form.justification);
}

void WritePoints(ON_BinaryArchive& archive, const ON_Annotation& annotation, const OldForm& form,
                 int style_index) {
  WriteCommonPart(archive, annotation, form, style_index);
  if (annotation.m_type == Type::angular) {
    archive.WriteDouble(form.angle);
    archive.WriteDouble(form.radius);
  }
}

// The bends are as far from the leader's end as the points tell; 0 where there are none.
void WriteOrdinateEnd(ON_BinaryArchive& archive, const ON_Annotation& annotation) {
  double bends[2] = {0, 0};
  if (annotation.m_points.size() >= 4) {
    const auto height = [&](std::size_t i) {
      return annotation.m_measures_x ? annotation.m_points[i].y : annotation.m_points[i].x;
    };
    bends[0] = std::abs(height(1) - height(3));
    bends[1] = std::abs(height(3) - height(2));
  }
  archive.WriteInt(annotation.m_measures_x ? 0 : 1);
  archive.WriteDouble(bends[0]);
  archive.WriteDouble(bends[1]);
}

}  // namespace

ON_UUID AnnotationClass(const ON_Annotation& annotation) {
  switch (annotation.m_type) {
    case Type::linear:
    case Type::aligned:
      return "bd57f33b-a1b2-46e9-9c6e-af09d30ffdde"_uuid;
    case Type::angular:
      return "841bc40b-a971-4a8e-94e5-bba26d67348e"_uuid;
    case Type::diameter:
    case Type::radius:
      return "b2b683fc-7964-4e96-b1f9-9b356a76b08b"_uuid;
    case Type::leader:
      return "14922b7a-5b65-4f11-8345-d415a9637129"_uuid;
    case Type::ordinate:
      return "c8288d69-5bd8-4f50-9baf-525a0086b0c3"_uuid;
    case Type::text:
      break;
  }
  return "46f75541-f46b-48be-aa7e-b353bbe068a7"_uuid;
}

void WriteAnnotationData(ON_BinaryArchive& archive, const ON_Annotation& annotation,
                         const std::vector<ON_DimStyle>& styles) {
  const auto found = std::find_if(styles.begin(), styles.end(), [&](const ON_DimStyle& style) {
    return style.m_id == annotation.m_dimstyle_id;
  });
  const bool has_style = found != styles.end();
  const int index = has_style ? static_cast<int>(found - styles.begin()) : -1;
  OldForm form = FormOf(annotation);
  const ON_DimStyle& style = annotation.DimStyle(has_style ? &*found : nullptr);
  form.text_height = style.m_textheight;
  if (annotation.m_type == Type::text) {
    if (archive.Archive3dmVersion() >= 50) {
      form.justification = Justification(annotation);
    } else if (annotation.m_valign == ON_Annotation::VerticalAlignment::top) {
      // Version 4 knows the first line's foot alone.
      form.plane.origin = form.plane.PointAt(0, -form.text_height);
    }
  }
  const bool is_ordinate = annotation.m_type == Type::ordinate;
  if (archive.Archive3dmVersion() < 50 && !is_ordinate) {
    WritePoints(archive, annotation, form, index);
    return;
  }
  const ChunkWriter chunk(archive, TCODE_ANONYMOUS_CHUNK, 1, 0);
  if (!is_ordinate) {
    WritePoints(archive, annotation, form, index);
    return;
  }
  {
    const ChunkWriter part(archive, TCODE_ANONYMOUS_CHUNK, 1, 0);
    WritePoints(archive, annotation, form, index);
  }
  WriteOrdinateEnd(archive, annotation);
}

void WriteTextStyle(ON_BinaryArchive& archive, const ON_DimStyle& style, int index) {
  const ChunkWriter record(archive, TCODE_FONT_RECORD);
  WriteClass(archive, kTextStyleClass, {},
             [&](ON_BinaryArchive& data) { WriteTextStyleData(data, style, index); });
}

void WriteDimStyle(ON_BinaryArchive& archive, const ON_DimStyle& style, int index) {
  const ChunkWriter record(archive, TCODE_DIMSTYLE_RECORD);
  WriteClass(archive, kDimStyleClass, style.m_user_strings,
             [&](ON_BinaryArchive& data) { WriteDimStyleData(data, style, index); });
}

}  // namespace model_writer

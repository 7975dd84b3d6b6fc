#include "host/archive/read_annotation.h"

#include <algorithm>
#include <cmath>

#include "host/archive/chunk_scope.h"
#include "host/archive/read_annotation_parts.h"

namespace host {
namespace {

using Type = ON_Annotation::Type;

// Which program generation a class belongs to.
enum class Generation { oldest, old, current };

struct AnnotationClass {
  ON_UUID id;
  Generation generation;
  // Linear stands for aligned too, radius for diameter.
  Type type;
};

// clang-format off
constexpr AnnotationClass kClasses[] = {
    {"57376349-62a9-4a16-b411-a46bcd544790"_uuid, Generation::current, Type::text},
    {"945bf594-6ff9-4f5c-bfc0-b3af528f29d2"_uuid, Generation::current, Type::leader},
    {"e550882b-f44d-4154-a1ef-6e50cbbbf543"_uuid, Generation::current, Type::linear},
    {"fc749c2f-4c00-41fd-9840-26d94f047ad3"_uuid, Generation::current, Type::radius},
    {"d417786b-f6cd-4f12-9e1f-063f414dbeb6"_uuid, Generation::current, Type::angular},
    {"03124828-4c9b-4d28-9a82-664ddde7a14f"_uuid, Generation::current, Type::ordinate},
    {"46f75541-f46b-48be-aa7e-b353bbe068a7"_uuid, Generation::old, Type::text},
    {"14922b7a-5b65-4f11-8345-d415a9637129"_uuid, Generation::old, Type::leader},
    {"bd57f33b-a1b2-46e9-9c6e-af09d30ffdde"_uuid, Generation::old, Type::linear},
    {"b2b683fc-7964-4e96-b1f9-9b356a76b08b"_uuid, Generation::old, Type::radius},
    {"841bc40b-a971-4a8e-94e5-bba26d67348e"_uuid, Generation::old, Type::angular},
    {"c8288d69-5bd8-4f50-9baf-525a0086b0c3"_uuid, Generation::old, Type::ordinate},
    {"5de6b210-486b-11d4-8014-0010830122f0"_uuid, Generation::oldest, Type::text},
    {"5de6b211-486b-11d4-8014-0010830122f0"_uuid, Generation::oldest, Type::leader},
    {"5de6b20d-486b-11d4-8014-0010830122f0"_uuid, Generation::oldest, Type::linear},
    {"5de6b20e-486b-11d4-8014-0010830122f0"_uuid, Generation::oldest, Type::radius},
    {"5de6b20f-486b-11d4-8014-0010830122f0"_uuid, Generation::oldest, Type::angular},
};
// clang-format on

const AnnotationClass* FindClass(const ON_UUID& class_id) {
  const auto found = std::find_if(std::begin(kClasses), std::end(kClasses),
                                  [&](const AnnotationClass& c) { return c.id == class_id; });
  return found == std::end(kClasses) ? nullptr : found;
}

bool IsDimension(Type type) {
  return type != Type::text && type != Type::leader;
}

bool ReadOf(ON_BinaryArchive& archive, Generation generation, const AnnotationStyles& styles,
            ON_Annotation& annotation) {
  switch (generation) {
    case Generation::oldest:
      return ReadOldestAnnotation(archive, annotation);
    case Generation::old:
      return ReadOldAnnotation(archive, styles, annotation);
    case Generation::current:
      return ReadNewAnnotation(archive, annotation);
  }
  return false;
}

// From where the points of a radial dimension or a leader are too close to make a direction.
constexpr double kNoLength = 1e-12;

}  // namespace

bool IsAnnotationClass(const ON_UUID& class_id) {
  return FindClass(class_id) != nullptr;
}

bool ReadAnnotation(ON_BinaryArchive& archive, const ON_UUID& class_id,
                    const AnnotationStyles& styles, ON_Annotation& annotation) {
  const AnnotationClass* kind = FindClass(class_id);
  if (kind == nullptr) return archive.Fail("this is no annotation");
  annotation.m_type = kind->type;
  if (!ReadOf(archive, kind->generation, styles, annotation)) return false;
  // A dimension without a text of its own tells what it measures.
  if (IsDimension(kind->type) && annotation.m_text.empty()) annotation.m_text = "<>";
  return annotation.IsValid() ||
         archive.Fail("an annotation whose plane or points are no numbers or no plane");
}

void ReadAnnotationUserData(ON_BinaryArchive& archive, const ON_UUID& class_id,
                            ON_Annotation& annotation) {
  constexpr ON_UUID kDimensionExtra = "8ad5b9fc-0d5c-47fb-adfd-74c28b6f661e"_uuid;
  if (class_id != kDimensionExtra) return;
  const ChunkScope scope(archive);
  int major = 0, minor = 0;
  std::size_t rectangle_count = 0;
  double scale = 0;
  // An id and where arrows stand, then rectangles of a text.
  if (!archive.BeginRead3dmChunk(TCODE_ANONYMOUS_CHUNK, &major, &minor) || minor < 1 ||
      !archive.Skip(sizeof(ON_UUID) + sizeof(std::int32_t)) ||
      !archive.ReadCount(4 * sizeof(std::int32_t), &rectangle_count) ||
      !archive.Skip(rectangle_count * 4 * sizeof(std::int32_t)) || !archive.ReadDouble(&scale)) {
    return;
  }
  if (ON_IsValid(scale) && scale > 0) annotation.m_distance_scale = scale;
}

bool Read2dPoint(ON_BinaryArchive& archive, ON_2dPoint* point) {
  return archive.ReadDouble(&point->x) && archive.ReadDouble(&point->y);
}

ON_2dPoint RadialBend(ON_2dPoint center, ON_2dPoint on_curve, ON_2dPoint end) {
  // Flatter lines meet the horizontal nowhere near.
  constexpr double kFlat = 0.01;
  const double dx = on_curve.x - center.x;
  const double dy = on_curve.y - center.y;
  if (std::abs(dy) <= std::max(kFlat * std::abs(dx), kNoLength)) return {on_curve.x, end.y};
  return {center.x + dx * (end.y - center.y) / dy, end.y};
}

void AddOrdinateBends(double first, double second, ON_Annotation& annotation) {
  const bool is_given = ON_IsValid(first) && ON_IsValid(second) && first > 0 && second > 0;
  if (!is_given || annotation.m_points.size() < 2) return;
  const ON_2dPoint measured = annotation.m_points[0];
  const ON_2dPoint end = annotation.m_points[1];
  if (annotation.m_measures_x) {
    const double back = end.y < measured.y ? 1 : -1;
    annotation.m_points.push_back({measured.x, end.y + back * (first + second)});
    annotation.m_points.push_back({end.x, end.y + back * first});
  } else {
    const double back = end.x < measured.x ? 1 : -1;
    annotation.m_points.push_back({end.x + back * (first + second), measured.y});
    annotation.m_points.push_back({end.x + back * first, end.y});
  }
}

}  // namespace host

#include "host/archive/read_curve.h"

#include <algorithm>

#include "host/archive/class_wrapper.h"
#include "host/archive/read_curve_classes.h"

namespace host {
namespace {

struct CurveClass {
  ON_UUID id;
  std::unique_ptr<ON_Curve> (*read)(ON_BinaryArchive& archive, int depth);
};

template <class T, bool (*kRead)(ON_BinaryArchive&, T&)>
std::unique_ptr<ON_Curve> Read(ON_BinaryArchive& archive, int) {
  auto curve = std::make_unique<T>();
  return kRead(archive, *curve) ? std::move(curve) : nullptr;
}

std::unique_ptr<ON_Curve> ReadNested(ON_BinaryArchive& archive, int depth) {
  auto curve = std::make_unique<ON_PolyCurve>();
  return ReadPolyCurve(archive, depth, *curve) ? std::move(curve) : nullptr;
}

constexpr CurveClass kCurveClasses[] = {
    {"4ed7d4db-e947-11d3-bfe5-0010830122f0"_uuid, Read<ON_LineCurve, ReadLineCurve>},
    {"cf33be2a-09b4-11d4-bffb-0010830122f0"_uuid, Read<ON_ArcCurve, ReadArcCurve>},
    {"4ed7d4e6-e947-11d3-bfe5-0010830122f0"_uuid, Read<ON_PolylineCurve, ReadPolylineCurve>},
    {"4ed7d4dd-e947-11d3-bfe5-0010830122f0"_uuid, Read<ON_NurbsCurve, ReadNurbsCurve>},
    {"5eaf1119-0b51-11d4-bffe-0010830122f0"_uuid, Read<ON_NurbsCurve, ReadNurbsCurve>},
    {"76a709d5-1550-11d4-8000-0010830122f0"_uuid, Read<ON_NurbsCurve, ReadNurbsCurve>},
    {"4ed7d4e0-e947-11d3-bfe5-0010830122f0"_uuid, ReadNested},
    {"ef638317-154b-11d4-8000-0010830122f0"_uuid, ReadNested},
};

const CurveClass* FindClass(const ON_UUID& class_id) {
  const auto* found = std::find_if(std::begin(kCurveClasses), std::end(kCurveClasses),
                                   [&](const CurveClass& c) { return c.id == class_id; });
  return found == std::end(kCurveClasses) ? nullptr : found;
}

}  // namespace

bool IsCurveClass(const ON_UUID& class_id) {
  return FindClass(class_id) != nullptr;
}

std::unique_ptr<ON_Curve> ReadCurveData(ON_BinaryArchive& archive, const ON_UUID& class_id,
                                        int depth) {
  const CurveClass* found = FindClass(class_id);
  if (found == nullptr) {
    archive.Fail("a part that should be a curve is of another class");
    return nullptr;
  }
  if (depth > kMaxCurveDepth) {
    archive.Fail("curves stand too deep in each other");
    return nullptr;
  }
  return found->read(archive, depth);
}

std::unique_ptr<ON_Curve> ReadCurve(ON_BinaryArchive& archive, int depth) {
  std::unique_ptr<ON_Curve> curve;
  ON_UserStringList strings;
  const bool read =
      ReadWrappedClass(archive, &strings, [&](ON_BinaryArchive& data, const ON_UUID& class_id) {
        curve = ReadCurveData(data, class_id, depth);
        return curve != nullptr;
      });
  if (!read) return nullptr;
  curve->m_user_strings = std::move(strings);
  return curve;
}

}  // namespace host

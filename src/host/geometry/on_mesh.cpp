#include "host/geometry/on_mesh.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace {

// The two ends of an interval, whichever is the smaller one. Empty when an end is unset.
std::optional<std::pair<double, double>> SortedEnds(const ON_Interval& interval) {
  const auto isSet = [](double end) { return std::isfinite(end) && end != ON_UNSET_VALUE; };
  if (!isSet(interval.Min) || !isSet(interval.Max)) return std::nullopt;
  return std::minmax({interval.Min, interval.Max});
}

}  // namespace

const ON_Mesh* ON_Mesh::Cast(const ON_Object* object) {
  return dynamic_cast<const ON_Mesh*>(object);
}

ON_BoundingBox ON_Mesh::BoundingBox() const {
  if (m_V.empty()) return {};
  // A comparison with a NaN is false, so that such a vertex counts for nothing.
  constexpr float kFar = std::numeric_limits<float>::infinity();
  ON_3fPoint low{kFar, kFar, kFar};
  ON_3fPoint high{-kFar, -kFar, -kFar};
  for (const ON_3fPoint& p : m_V) {
    low = {std::min(low.x, p.x), std::min(low.y, p.y), std::min(low.z, p.z)};
    high = {std::max(high.x, p.x), std::max(high.y, p.y), std::max(high.z, p.z)};
  }
  return {{low.x, low.y, low.z}, {high.x, high.y, high.z}};
}

int ON_Mesh::TriangleCount() const {
  return static_cast<int>(std::count_if(m_F.begin(), m_F.end(),
                                        [](const ON_MeshFace& face) { return face.IsTriangle(); }));
}

bool ON_Mesh::HasPackedTextureRegion() const {
  if (!(m_srf_scale[0] > 0 && m_srf_scale[1] > 0)) return false;
  const auto u = SortedEnds(m_packed_tex_domain[0]);
  const auto v = SortedEnds(m_packed_tex_domain[1]);
  if (!u || !v) return false;
  const double width = u->second - u->first;
  const double height = v->second - v->first;
  const bool inSquare = u->first >= 0 && u->second <= 1 && v->first >= 0 && v->second <= 1;
  return inSquare && width > 0 && height > 0 && (width < 1 || height < 1);
}

bool ON_Mesh::HasValidFaceIndices() const {
  const std::size_t count = m_V.size();
  return std::all_of(m_F.begin(), m_F.end(), [count](const ON_MeshFace& face) {
    // A negative index becomes a number that no vertex has.
    return std::all_of(face.vi.begin(), face.vi.end(), [count](std::int32_t index) {
      return static_cast<std::uint32_t>(index) < count;
    });
  });
}

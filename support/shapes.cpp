#include "support/shapes.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {

constexpr double kPi = std::numbers::pi;

ON_3fPoint ToFloat(ON_3dPoint p) {
  return {static_cast<float>(p.x), static_cast<float>(p.y), static_cast<float>(p.z)};
}

ON_3dVector Unit(ON_3dVector v) {
  const double length = v.Length();
  return length > 0 ? v * (1 / length) : v;
}

ON_3fVector NormalOf(const SurfaceSample& sample) {
  const ON_3dVector normal = Unit(ON_CrossProduct(sample.alongU, sample.alongV));
  return {static_cast<float>(normal.x), static_cast<float>(normal.y), static_cast<float>(normal.z)};
}

// Appends a quad without the corners that lie where the one before them does.
void AppendFace(const ON_SimpleArray<ON_3fPoint>& vertices, const std::array<int, 4>& corners,
                ON_SimpleArray<ON_MeshFace>& faces) {
  std::array<std::int32_t, 4> kept{};
  std::size_t count = 0;
  for (std::size_t i = 0; i < 4; ++i) {
    const auto at = [&](std::size_t corner) {
      return vertices[static_cast<std::size_t>(corners[corner % 4])];
    };
    if (at(i) != at(i + 1)) kept[count++] = corners[i];
  }
  if (count < 3) return;
  if (count == 3) kept[3] = kept[2];
  faces.push_back({kept});
}

void AppendQuads(int columns, int rows, ON_Mesh& mesh) {
  const int stride = columns + 1;
  mesh.m_F.reserve(static_cast<std::size_t>(columns) * static_cast<std::size_t>(rows));
  for (int row = 0; row < rows; ++row) {
    for (int column = 0; column < columns; ++column) {
      const int first = row * stride + column;
      AppendFace(mesh.m_V, {first, first + 1, first + stride + 1, first + stride}, mesh.m_F);
    }
  }
}

struct CurvePoint {
  ON_2dPoint point;
  ON_2dPoint tangent;
};

// A smooth curve through the points: cubic pieces whose tangents follow the neighbours.
CurvePoint CurveThrough(std::span<const ON_2dPoint> points, double t) {
  const auto last = static_cast<std::ptrdiff_t>(points.size()) - 1;
  const double place = t * static_cast<double>(last);
  const auto piece = std::min(static_cast<std::ptrdiff_t>(place), last - 1);
  const double s = place - static_cast<double>(piece);
  const auto at = [&](std::ptrdiff_t i) {
    return points[static_cast<std::size_t>(std::clamp<std::ptrdiff_t>(i, 0, last))];
  };
  const ON_2dPoint p[] = {at(piece - 1), at(piece), at(piece + 1), at(piece + 2)};
  const auto blend = [s](double a, double b, double c, double d) {
    return b + s / 2 * (c - a + s * (2 * a - 5 * b + 4 * c - d + s * (3 * (b - c) + d - a)));
  };
  const auto slope = [s](double a, double b, double c, double d) {
    return (c - a) / 2 + s * (2 * a - 5 * b + 4 * c - d) + s * s * 1.5 * (3 * (b - c) + d - a);
  };
  return {{blend(p[0].x, p[1].x, p[2].x, p[3].x), blend(p[0].y, p[1].y, p[2].y, p[3].y)},
          {slope(p[0].x, p[1].x, p[2].x, p[3].x), slope(p[0].y, p[1].y, p[2].y, p[3].y)}};
}

// The middle line of a knot.
ON_3dPoint PointOnKnot(const TorusKnot& knot, double u) {
  const double turn = 2 * kPi * knot.turns * u;
  const double winding = 2 * kPi * knot.windings * u;
  const double swing = knot.windings != 0 ? knot.radius / 2.5 : 0;
  const double distance = knot.radius + swing * std::cos(winding);
  return {knot.center.x + distance * std::cos(turn), knot.center.y + distance * std::sin(turn),
          knot.center.z + swing * std::sin(winding)};
}

}  // namespace

ON_Mesh MakeSurface(int columns, int rows,
                    const std::function<SurfaceSample(double u, double v)>& surface) {
  ON_Mesh mesh;
  const auto count = static_cast<std::size_t>(columns + 1) * static_cast<std::size_t>(rows + 1);
  mesh.m_V.reserve(count);
  mesh.m_N.reserve(count);
  mesh.m_T.reserve(count);
  for (int row = 0; row <= rows; ++row) {
    for (int column = 0; column <= columns; ++column) {
      const double u = static_cast<double>(column) / columns;
      const double v = static_cast<double>(row) / rows;
      const SurfaceSample sample = surface(u, v);
      mesh.m_V.push_back(ToFloat(sample.point));
      mesh.m_N.push_back(NormalOf(sample));
      mesh.m_T.push_back({static_cast<float>(u), static_cast<float>(v)});
    }
  }
  AppendQuads(columns, rows, mesh);
  return mesh;
}

ON_Mesh MakeBox(const ON_BoundingBox& box) {
  // The corners of each side, counter-clockwise from outside.
  constexpr std::array<std::array<std::size_t, 4>, 6> kSides{
      {{0, 2, 3, 1}, {4, 5, 7, 6}, {0, 1, 5, 4}, {2, 6, 7, 3}, {0, 4, 6, 2}, {1, 3, 7, 5}}};
  constexpr std::array<ON_2fPoint, 4> kSquare{{{0, 0}, {1, 0}, {1, 1}, {0, 1}}};
  const auto corners = box.GetCorners();
  ON_Mesh mesh;
  for (const auto& side : kSides) {
    const auto first = mesh.VertexCount();
    const SurfaceSample sample{corners[side[0]], corners[side[1]] - corners[side[0]],
                               corners[side[3]] - corners[side[0]]};
    for (std::size_t i = 0; i < 4; ++i) {
      mesh.m_V.push_back(ToFloat(corners[side[i]]));
      mesh.m_N.push_back(NormalOf(sample));
      mesh.m_T.push_back(kSquare[i]);
    }
    mesh.m_F.push_back({{first, first + 1, first + 2, first + 3}});
  }
  return mesh;
}

ON_Mesh MakeSphere(ON_3dPoint center, double radius, int columns, int rows) {
  return MakeSurface(columns, rows, [=](double u, double v) {
    const double east = 2 * kPi * u;
    const double north = kPi * (v - 0.5);
    // At the poles there is no circle left; its direction still holds.
    const double width = v > 0 && v < 1 ? std::cos(north) : 0;
    const double height = v > 0 && v < 1 ? std::sin(north) : std::copysign(1.0, v - 0.5);
    const double x = std::cos(east);
    const double y = std::sin(east);
    return SurfaceSample{center + ON_3dVector{width * x, width * y, height} * radius,
                         {-y, x, 0},
                         {-height * x, -height * y, width}};
  });
}

ON_Mesh MakeWaves(double size, int columns, int rows) {
  const double height = size / 50;
  const double frequency = 6 * kPi / size;
  return MakeSurface(columns, rows, [=](double u, double v) {
    const double x = frequency * size * u;
    const double y = frequency * size * v;
    const double steepness = height * frequency;
    return SurfaceSample{{size * u, size * v, height * std::sin(x) * std::cos(y)},
                         {1, 0, steepness * std::cos(x) * std::cos(y)},
                         {0, 1, -steepness * std::sin(x) * std::sin(y)}};
  });
}

ON_Mesh MakeTurned(ON_3dPoint foot, std::span<const ON_2dPoint> profile, int columns, int rows) {
  return MakeSurface(columns, rows, [=](double u, double v) {
    const double x = std::cos(2 * kPi * u);
    const double y = std::sin(2 * kPi * u);
    const auto [point, tangent] = CurveThrough(profile, v);
    return SurfaceSample{foot + ON_3dVector{point.x * x, point.x * y, point.y},
                         {-y, x, 0},
                         {tangent.x * x, tangent.x * y, tangent.y}};
  });
}

ON_Mesh MakeTorusKnot(const TorusKnot& knot, int columns, int rows) {
  return MakeSurface(columns, rows, [knot](double u, double v) {
    constexpr double kStep = 1e-4;
    const ON_3dPoint middle = PointOnKnot(knot, u);
    const ON_3dVector ahead = Unit(PointOnKnot(knot, u + kStep) - PointOnKnot(knot, u - kStep));
    const ON_3dVector outwards =
        Unit(ON_3dVector{middle.x - knot.center.x, middle.y - knot.center.y, 0});
    const ON_3dVector side = Unit(ON_CrossProduct(ahead, outwards));
    const ON_3dVector up = ON_CrossProduct(side, ahead);
    const double angle = 2 * kPi * v;
    const ON_3dVector normal = up * std::cos(angle) - side * std::sin(angle);
    return SurfaceSample{middle + normal * knot.tube, ahead, ON_CrossProduct(normal, ahead)};
  });
}

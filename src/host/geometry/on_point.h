#pragma once

#include <cmath>

// Points and vectors, double and single precision. No operation but IsValid checks for unset
// values.

// The number that stands for "no value" in documents.
inline constexpr double ON_UNSET_VALUE = -1.23432101234321e+308;
// True for a finite number that isn't the unset value.
inline bool ON_IsValid(double x) {
  return std::isfinite(x) && x != ON_UNSET_VALUE;
}

struct ON_2fPoint {
  float x, y;
  friend bool operator==(const ON_2fPoint&, const ON_2fPoint&) = default;
};

struct ON_3fPoint {
  float x, y, z;
  friend bool operator==(const ON_3fPoint&, const ON_3fPoint&) = default;
};
using ON_3fVector = ON_3fPoint;

struct ON_2dPoint {
  double x, y;
  friend bool operator==(const ON_2dPoint&, const ON_2dPoint&) = default;
};

struct ON_Interval {
  double Min = ON_UNSET_VALUE;
  double Max = ON_UNSET_VALUE;

  double Length() const { return Max - Min; }
  // True when both ends are numbers and Min is less than Max.
  bool IsIncreasing() const { return ON_IsValid(Min) && ON_IsValid(Max) && Min < Max; }
  // The number at a fraction of the way: exactly Min at 0, exactly Max at 1.
  double ParameterAt(double fraction) const { return (1 - fraction) * Min + fraction * Max; }
  // The fraction of the way at which a number stands. The interval must be increasing.
  double NormalizedParameterAt(double t) const { return t == Max ? 1 : (t - Min) / Length(); }
  friend bool operator==(const ON_Interval&, const ON_Interval&) = default;
};

struct ON_3dVector {
  double x, y, z;

  double Length() const { return std::hypot(x, y, z); }
  friend bool operator==(const ON_3dVector&, const ON_3dVector&) = default;
  friend ON_3dVector operator+(ON_3dVector a, ON_3dVector b) {
    return {a.x + b.x, a.y + b.y, a.z + b.z};
  }
  friend ON_3dVector operator-(ON_3dVector a, ON_3dVector b) {
    return {a.x - b.x, a.y - b.y, a.z - b.z};
  }
  friend ON_3dVector operator*(ON_3dVector v, double s) { return {v.x * s, v.y * s, v.z * s}; }
  friend ON_3dVector operator-(ON_3dVector v) { return {-v.x, -v.y, -v.z}; }
};

struct ON_3dPoint {
  double x, y, z;

  bool IsValid() const { return ON_IsValid(x) && ON_IsValid(y) && ON_IsValid(z); }
  double DistanceTo(const ON_3dPoint& p) const { return std::hypot(x - p.x, y - p.y, z - p.z); }
  friend bool operator==(const ON_3dPoint&, const ON_3dPoint&) = default;
  friend ON_3dPoint operator+(ON_3dPoint p, ON_3dVector v) {
    return {p.x + v.x, p.y + v.y, p.z + v.z};
  }
  friend ON_3dVector operator-(ON_3dPoint a, ON_3dPoint b) {
    return {a.x - b.x, a.y - b.y, a.z - b.z};
  }
};

// A homogeneous point: x, y and z are multiplied by the weight w.
struct ON_4dPoint {
  double x, y, z, w;

  // The point in space. A point of weight 0 is taken as it stands.
  ON_3dPoint Euclidean() const {
    return w == 0 || w == 1 ? ON_3dPoint{x, y, z} : ON_3dPoint{x / w, y / w, z / w};
  }
  friend bool operator==(const ON_4dPoint&, const ON_4dPoint&) = default;
  friend ON_4dPoint operator+(ON_4dPoint a, ON_4dPoint b) {
    return {a.x + b.x, a.y + b.y, a.z + b.z, a.w + b.w};
  }
  friend ON_4dPoint operator-(ON_4dPoint a, ON_4dPoint b) {
    return {a.x - b.x, a.y - b.y, a.z - b.z, a.w - b.w};
  }
  friend ON_4dPoint operator*(ON_4dPoint p, double s) {
    return {p.x * s, p.y * s, p.z * s, p.w * s};
  }
};

inline double ON_DotProduct(ON_3dVector a, ON_3dVector b) {
  return a.x * b.x + a.y * b.y + a.z * b.z;
}
inline ON_3dVector ON_CrossProduct(ON_3dVector a, ON_3dVector b) {
  return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}
// The vector from the world's origin to `p`.
inline ON_3dVector ON_FromOrigin(ON_3dPoint p) {
  return {p.x, p.y, p.z};
}

// An oriented plane. Its axes are unit vectors, perpendicular to each other.
struct ON_Plane {
  ON_3dPoint origin{0, 0, 0};
  ON_3dVector xaxis{1, 0, 0};
  ON_3dVector yaxis{0, 1, 0};
  ON_3dVector zaxis{0, 0, 1};

  const ON_3dPoint& Origin() const { return origin; }
  // The z axis.
  const ON_3dVector& Normal() const { return zaxis; }
  ON_3dPoint PointAt(double x, double y) const { return origin + xaxis * x + yaxis * y; }
  // Signed, positive on the side to which zaxis points.
  double DistanceTo(ON_3dPoint p) const { return ON_DotProduct(p - origin, zaxis); }
};

#pragma once

#include <limits>
#include <memory>
#include <vector>

#include "host/archive/read_curve.h"
#include "record_bytes.h"

// Data of curves as records hold it, with each value that may be broken, and what reading gives.

inline constexpr ON_UUID kLine = "4ed7d4db-e947-11d3-bfe5-0010830122f0"_uuid;
inline constexpr ON_UUID kArc = "cf33be2a-09b4-11d4-bffb-0010830122f0"_uuid;
inline constexpr ON_UUID kPolyline = "4ed7d4e6-e947-11d3-bfe5-0010830122f0"_uuid;
inline constexpr ON_UUID kPolyCurve = "4ed7d4e0-e947-11d3-bfe5-0010830122f0"_uuid;
inline constexpr ON_UUID kOldPolyCurve = "ef638317-154b-11d4-8000-0010830122f0"_uuid;
inline constexpr ON_UUID kNurbs = "5eaf1119-0b51-11d4-bffe-0010830122f0"_uuid;
inline constexpr ON_UUID kPoint = "c3101a1d-f157-11d3-bfe7-0010830122f0"_uuid;
inline constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
inline constexpr double kInfinity = std::numeric_limits<double>::infinity();

struct ReadCurveResult {
  Reading reading;
  std::unique_ptr<ON_Curve> curve;
};
// What the data of a curve of that class gives.
ReadCurveResult ReadCurveRecord(const ON_UUID& class_id, const WriteContent& write);
// Reading fails and tells this, and nothing else.
void ExpectCurveFailure(const ON_UUID& class_id, const WriteContent& write, const char* problem);

struct LineRecord {
  int major = 1;
  ON_3dPoint from{1, 2, 3};
  ON_3dPoint to{4, 5, 6};
  ON_Interval domain{0, 2};
};

WriteContent Writer(const LineRecord& line);

struct ArcRecord {
  int major = 1;
  ON_Plane plane{{1, 2, 3}};
  double radius = 4;
  ON_Interval angle{0.5, 2};
  ON_Interval domain{0, 6};
};

WriteContent Writer(const ArcRecord& arc);

struct NurbsRecord {
  int major = 1;
  int minor = 0;
  int dimension = 3;
  int rational = 0;
  int order = 3;
  int cv_count = 3;
  int stored_knots = 4;
  std::vector<double> knots{0, 0, 1, 1};
  int stored_cvs = 3;
  std::vector<double> cvs{0, 0, 0, 1, 2, 3, 4, 5, 6};
};

WriteContent Writer(const NurbsRecord& nurbs);

struct PolyCurveRecord {
  int major = 1;
  int count = 2;
  std::vector<double> parameters{0, 1, 2};
  // The wrappers.
  WriteContent segments = [](ON_BinaryArchive& a) {
    WriteClass(a, kLine, Writer(LineRecord{}));
    WriteClass(a, kNurbs, Writer(NurbsRecord{}));
  };
};

WriteContent Writer(const PolyCurveRecord& curve);

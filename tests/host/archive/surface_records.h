#pragma once

#include <memory>
#include <vector>

#include "curve_records.h"
#include "host/archive/read_surface.h"

// Data of surfaces as records hold it, with each value that may be broken, and what reading gives.

inline constexpr ON_UUID kPlaneSurface = "4ed7d4df-e947-11d3-bfe5-0010830122f0"_uuid;
inline constexpr ON_UUID kRevSurface = "0a8401b6-4d34-4b99-8615-1b4e723dc4e5"_uuid;
inline constexpr ON_UUID kSumSurface = "665f6331-2a66-4cce-81d0-b5eebd9b5417"_uuid;
inline constexpr ON_UUID kNurbsSurface = "4760c817-0be3-11d4-bffe-0010830122f0"_uuid;

struct ReadSurfaceResult {
  Reading reading;
  std::unique_ptr<ON_Surface> surface;
};
// What the data of a surface of that class gives.
ReadSurfaceResult ReadSurfaceRecord(const ON_UUID& class_id, const WriteContent& write);
// Reading fails and tells this, and nothing else.
void ExpectSurfaceFailure(const ON_UUID& class_id, const WriteContent& write, const char* problem);

struct PlaneSurfaceRecord {
  int major = 1;
  int minor = 1;
  ON_Plane plane{{1, 2, 3}};
  ON_Interval domain[2] = {{0, 1}, {2, 5}};
  ON_Interval extents[2] = {{-4, 4}, {0, 8}};
};
WriteContent Writer(const PlaneSurfaceRecord& surface);

struct RevSurfaceRecord {
  int major = 2;
  ON_3dPoint axis[2] = {{0, 0, 0}, {0, 0, 1}};
  ON_Interval angle{0, 3};
  ON_Interval domain{10, 20};
  int transposed = 0;
  bool has_curve = true;
  WriteContent curve = [](ON_BinaryArchive& a) { WriteClass(a, kLine, Writer(LineRecord{})); };
};
WriteContent Writer(const RevSurfaceRecord& surface);

struct SumSurfaceRecord {
  int major = 1;
  ON_3dVector base{10, 20, 30};
  WriteContent curves = [](ON_BinaryArchive& a) {
    WriteClass(a, kLine, Writer(LineRecord{}));
    WriteClass(a, kNurbs, Writer(NurbsRecord{}));
  };
};
WriteContent Writer(const SumSurfaceRecord& surface);

// Order 2 by 3 with 2 by 3 control points.
struct NurbsSurfaceRecord {
  int major = 1;
  int dimension = 3;
  int rational = 0;
  int order[2] = {2, 3};
  int cv_count[2] = {2, 3};
  int stored_knots[2] = {2, 4};
  std::vector<double> knots[2] = {{0, 1}, {0, 0, 2, 2}};
  int stored_cvs = 6;
  std::vector<double> cvs{0, 0, 0, 0, 1, 1, 0, 2, 0, 5, 0, 0, 5, 1, 1, 5, 2, 0};
};
WriteContent Writer(const NurbsSurfaceRecord& surface);

#include "surface_records.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

static constexpr int kVersion = 80;
static constexpr unsigned kLibrary = 0x90000000;

ReadSurfaceResult ReadSurfaceRecord(const ON_UUID& class_id, const WriteContent& write) {
  ReadSurfaceResult result;
  result.reading = ReadBytes(RecordBytes(kVersion, kLibrary, write), kVersion, kLibrary,
                             [&](ON_BinaryArchive& archive) {
                               result.surface = host::ReadSurfaceData(archive, class_id);
                               return result.surface != nullptr;
                             });
  return result;
}

void ExpectSurfaceFailure(const ON_UUID& class_id, const WriteContent& write, const char* problem) {
  const auto [reading, surface] = ReadSurfaceRecord(class_id, write);
  EXPECT_FALSE(reading.ok);
  EXPECT_EQ(nullptr, surface);
  ASSERT_THAT(reading.problems, testing::SizeIs(1)) << problem;
  EXPECT_THAT(reading.problems[0], testing::HasSubstr(problem));
}

WriteContent Writer(const PlaneSurfaceRecord& surface) {
  return [surface](ON_BinaryArchive& a) {
    a.Write3dmChunkVersion(surface.major, surface.minor);
    a.WritePlane(surface.plane);
    for (const ON_Interval& domain : surface.domain) a.WriteInterval(domain);
    if (surface.minor < 1) return;
    for (const ON_Interval& side : surface.extents) a.WriteInterval(side);
  };
}

WriteContent Writer(const RevSurfaceRecord& surface) {
  return [surface](ON_BinaryArchive& a) {
    a.Write3dmChunkVersion(surface.major, 0);
    for (const ON_3dPoint& p : surface.axis) a.WritePoint(p);
    a.WriteInterval(surface.angle);
    if (surface.major >= 2) a.WriteInterval(surface.domain);
    a.WriteBoundingBox({});
    a.WriteInt(surface.transposed);
    a.WriteBool(surface.has_curve);
    if (surface.has_curve) surface.curve(a);
  };
}

WriteContent Writer(const SumSurfaceRecord& surface) {
  return [surface](ON_BinaryArchive& a) {
    a.Write3dmChunkVersion(surface.major, 0);
    a.WriteVector(surface.base);
    a.WriteBoundingBox({});
    surface.curves(a);
  };
}

WriteContent Writer(const NurbsSurfaceRecord& surface) {
  return [surface](ON_BinaryArchive& a) {
    a.Write3dmChunkVersion(surface.major, 0);
    for (const int value : {surface.dimension, surface.rational, surface.order[0], surface.order[1],
                            surface.cv_count[0], surface.cv_count[1], 0, 0}) {
      a.WriteInt(value);
    }
    a.WriteBoundingBox({});
    for (const int i : {0, 1}) {
      a.WriteInt(surface.stored_knots[i]);
      for (const double knot : surface.knots[i]) a.WriteDouble(knot);
    }
    a.WriteInt(surface.stored_cvs);
    for (const double value : surface.cvs) a.WriteDouble(value);
  };
}

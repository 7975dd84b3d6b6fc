#include "curve_records.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

static constexpr int kVersion = 80;
static constexpr unsigned kLibrary = 0x90000000;

ReadCurveResult ReadCurveRecord(const ON_UUID& class_id, const WriteContent& write) {
  ReadCurveResult result;
  result.reading = ReadBytes(RecordBytes(kVersion, kLibrary, write), kVersion, kLibrary,
                             [&](ON_BinaryArchive& archive) {
                               result.curve = host::ReadCurveData(archive, class_id);
                               return result.curve != nullptr;
                             });
  return result;
}

void ExpectCurveFailure(const ON_UUID& class_id, const WriteContent& write, const char* problem) {
  const Reading reading = ReadCurveRecord(class_id, write).reading;
  EXPECT_FALSE(reading.ok);
  ASSERT_THAT(reading.problems, testing::SizeIs(1)) << problem;
  EXPECT_THAT(reading.problems[0], testing::HasSubstr(problem));
}

WriteContent Writer(const LineRecord& line) {
  return [line](ON_BinaryArchive& a) {
    a.Write3dmChunkVersion(line.major, 0);
    a.WritePoint(line.from);
    a.WritePoint(line.to);
    a.WriteInterval(line.domain);
    a.WriteInt(3);
  };
}

WriteContent Writer(const ArcRecord& arc) {
  return [arc](ON_BinaryArchive& a) {
    a.Write3dmChunkVersion(arc.major, 0);
    a.WritePlane(arc.plane);
    a.WriteDouble(arc.radius);
    for (int i = 0; i < 3; ++i) a.WritePoint({9, 9, 9});
    a.WriteInterval(arc.angle);
    a.WriteInterval(arc.domain);
    a.WriteInt(3);
  };
}

WriteContent Writer(const NurbsRecord& nurbs) {
  return [nurbs](ON_BinaryArchive& a) {
    a.Write3dmChunkVersion(nurbs.major, nurbs.minor);
    for (const int value : {nurbs.dimension, nurbs.rational, nurbs.order, nurbs.cv_count, 0, 0}) {
      a.WriteInt(value);
    }
    a.WriteBoundingBox({});
    a.WriteInt(nurbs.stored_knots);
    for (const double knot : nurbs.knots) a.WriteDouble(knot);
    a.WriteInt(nurbs.stored_cvs);
    for (const double value : nurbs.cvs) a.WriteDouble(value);
    if (nurbs.minor >= 1) a.WriteBool(false);
  };
}

WriteContent Writer(const PolyCurveRecord& curve) {
  return [curve](ON_BinaryArchive& a) {
    a.Write3dmChunkVersion(curve.major, 0);
    a.WriteInt(curve.count);
    a.WriteBigInt(0);
    a.WriteBoundingBox({});
    a.WriteInt(static_cast<int>(curve.parameters.size()));
    for (const double t : curve.parameters) a.WriteDouble(t);
    curve.segments(a);
  };
}

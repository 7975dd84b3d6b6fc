#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/archive/read_surface_classes.h"
#include "surface_records.h"

using testing::ElementsAre;
using testing::IsEmpty;

TEST(ReadNurbsSurface, ItsControlPointsAreReadWithVFastest) {
  const auto [reading, surface] = ReadSurfaceRecord(kNurbsSurface, Writer(NurbsSurfaceRecord{}));
  ASSERT_TRUE(reading.ok);
  EXPECT_THAT(reading.problems, IsEmpty());
  const ON_NurbsSurface* nurbs = ON_NurbsSurface::Cast(surface.get());
  ASSERT_NE(nullptr, nurbs);
  EXPECT_EQ(2, nurbs->Order(0));
  EXPECT_EQ(3, nurbs->Order(1));
  EXPECT_FALSE(nurbs->IsRational());
  EXPECT_THAT(nurbs->Knots(0), ElementsAre(0, 1));
  EXPECT_THAT(nurbs->Knots(1), ElementsAre(0, 0, 2, 2));
  EXPECT_EQ((ON_4dPoint{0, 1, 1, 1}), nurbs->CV(0, 1));
  EXPECT_EQ((ON_4dPoint{5, 0, 0, 1}), nurbs->CV(1, 0));
}

TEST(ReadNurbsSurface, CoordinatesThatAreNotStoredAreZero) {
  for (const int rational : {0, 1}) {
    for (const int dimension : {1, 2, 3}) {
      NurbsSurfaceRecord record{.dimension = dimension, .rational = rational};
      record.cvs.clear();
      for (int i = 0; i < 6; ++i) {
        for (int k = 0; k < dimension; ++k) record.cvs.push_back(10 * i + k + 1);
        if (rational != 0) record.cvs.push_back(0.5);
      }
      const auto [reading, surface] = ReadSurfaceRecord(kNurbsSurface, Writer(record));
      ASSERT_TRUE(reading.ok);
      const ON_NurbsSurface* nurbs = ON_NurbsSurface::Cast(surface.get());
      ASSERT_NE(nullptr, nurbs);
      EXPECT_EQ(rational != 0, nurbs->IsRational());
      const ON_4dPoint expected{31, dimension > 1 ? 32.0 : 0, dimension > 2 ? 33.0 : 0,
                                rational != 0 ? 0.5 : 1};
      EXPECT_EQ(expected, nurbs->CV(1, 0));
    }
  }
}

TEST(ReadNurbsSurface, ASurfaceOfAnotherShapeIsTold) {
  const auto expect = [](const NurbsSurfaceRecord& record, const char* problem) {
    ExpectSurfaceFailure(kNurbsSurface, Writer(record), problem);
  };
  constexpr int kMost = 0x7fffffff;
  expect({.major = 2}, "a NURBS surface of an unknown version");
  for (const int dimension : {-1, 0, 4}) {
    expect({.dimension = dimension}, "a NURBS surface of an unknown dimension");
  }
  for (const int order : {-1, 0, 1, 33, kMost}) {
    expect({.order = {order, 3}}, "a NURBS surface of an order outside 2 to 32");
    expect({.order = {2, order}}, "a NURBS surface of an order outside 2 to 32");
  }
  for (const int count : {-kMost, 0, 1}) {
    expect({.cv_count = {count, 3}}, "a NURBS surface with fewer control points than its order");
    expect({.cv_count = {2, count}}, "a NURBS surface with fewer control points than its order");
  }
  expect({.cv_count = {3, 3}}, "a NURBS surface has another number of knots");
  expect({.cv_count = {kMost, kMost}}, "a NURBS surface has another number of knots");
  expect({.stored_knots = {kMost, 4}}, "a count exceeds what its chunk can hold");
  expect({.stored_cvs = 5}, "a NURBS surface has another number of control points");
  expect({.stored_cvs = kMost}, "a count exceeds what its chunk can hold");
}

TEST(ReadNurbsSurface, ASurfaceThatIsNotValidIsTold) {
  const auto expect = [](const NurbsSurfaceRecord& record) {
    ExpectSurfaceFailure(kNurbsSurface, Writer(record), "a NURBS surface that isn't valid");
  };
  expect({.knots = {{1, 0}, {0, 0, 2, 2}}});
  expect({.knots = {{0, 1}, {0, 2, 2, 2}}});
  expect({.knots = {{0, kNaN}, {0, 0, 2, 2}}});
  for (const double bad : {kNaN, kInfinity, ON_UNSET_VALUE}) {
    NurbsSurfaceRecord record;
    record.cvs[7] = bad;
    expect(record);
  }
}

TEST(ReadNurbsSurface, ItsDataIsReadWithoutAWrapperToo) {
  const std::string bytes = RecordBytes(2, 200012210, Writer(NurbsSurfaceRecord{}));
  ON_NurbsSurface surface;
  const Reading reading = ReadBytes(bytes, 2, 200012210, [&](ON_BinaryArchive& archive) {
    return host::ReadNurbsSurface(archive, surface) && archive.BytesLeft() == 0;
  });
  EXPECT_TRUE(reading.ok);
  EXPECT_TRUE(surface.IsValid());
}

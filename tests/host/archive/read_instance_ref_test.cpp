#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "host/archive/read_geometry.h"
#include "record_bytes.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

constexpr int kVersion = 80;
constexpr unsigned kLibrary = 0x90000000;
constexpr ON_UUID kBlock = "11111111-2222-4333-8444-555555555551"_uuid;

struct ReadReference {
  Reading reading;
  ON_InstanceRef reference;
};

ReadReference Read(const WriteContent& write) {
  ReadReference result;
  result.reading = ReadBytes(
      RecordBytes(kVersion, kLibrary, write), kVersion, kLibrary,
      [&](ON_BinaryArchive& archive) { return host::ReadInstanceRef(archive, result.reference); });
  return result;
}

ReadReference ReadRecord(const ON_Xform& xform, int major = 1) {
  return Read([&](ON_BinaryArchive& archive) {
    archive.Write3dmChunkVersion(major, 0);
    archive.WriteUuid(kBlock);
    archive.WriteXform(xform);
    archive.WriteBoundingBox({{1, 2, 3}, {4, 5, 6}});
  });
}

TEST(ReadInstanceRef, ReadsBlockPlaceAndBox) {
  ON_Xform xform;
  xform.m_xform[1] = {0.5, -1, 2, 40};
  const auto [reading, reference] = ReadRecord(xform);
  EXPECT_TRUE(reading.ok);
  EXPECT_THAT(reading.problems, IsEmpty());
  EXPECT_EQ(reference.m_instance_definition_uuid, kBlock);
  EXPECT_EQ(reference.m_xform, xform);
  EXPECT_EQ(reference.BoundingBox().m_max, (ON_3dPoint{4, 5, 6}));
}

TEST(ReadInstanceRef, AnUnknownVersionFails) {
  const Reading reading = ReadRecord({}, 2).reading;
  EXPECT_FALSE(reading.ok);
  EXPECT_THAT(reading.problems, ElementsAre(HasSubstr("a block reference of an unknown version")));
}

TEST(ReadInstanceRef, ATransformThatIsNotFiniteFails) {
  for (const double number : {std::numeric_limits<double>::quiet_NaN(),
                              -std::numeric_limits<double>::infinity(), ON_UNSET_VALUE}) {
    for (std::size_t row = 0; row < 4; ++row) {
      ON_Xform xform;
      xform.m_xform[row][3 - row] = number;
      const Reading reading = ReadRecord(xform).reading;
      EXPECT_FALSE(reading.ok);
      EXPECT_THAT(reading.problems,
                  ElementsAre(HasSubstr("the transform of a block reference isn't finite")));
    }
  }
}

TEST(ReadInstanceRef, ARecordThatEndsTooEarlyFails) {
  const Reading reading = Read([](ON_BinaryArchive& archive) {
                            archive.Write3dmChunkVersion(1, 0);
                            archive.WriteUuid(kBlock);
                            archive.WriteXform({});
                          }).reading;
  EXPECT_FALSE(reading.ok);
}

}  // namespace

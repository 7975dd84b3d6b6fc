#include "host/archive/read_annotation.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <numbers>

#include "host/archive/model_reader.h"
#include "host/archive/typecodes.h"
#include "record_bytes.h"
#include "support/model_writer.h"
#include "wrong_bytes.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

using Type = ON_Annotation::Type;
using H = ON_Annotation::HorizontalAlignment;
using V = ON_Annotation::VerticalAlignment;

constexpr ON_UUID kText = "57376349-62a9-4a16-b411-a46bcd544790"_uuid;
constexpr ON_UUID kLeader = "945bf594-6ff9-4f5c-bfc0-b3af528f29d2"_uuid;
constexpr ON_UUID kLinear = "e550882b-f44d-4154-a1ef-6e50cbbbf543"_uuid;
constexpr ON_UUID kRadial = "fc749c2f-4c00-41fd-9840-26d94f047ad3"_uuid;
constexpr ON_UUID kAngular = "d417786b-f6cd-4f12-9e1f-063f414dbeb6"_uuid;
constexpr ON_UUID kOrdinate = "03124828-4c9b-4d28-9a82-664ddde7a14f"_uuid;
constexpr ON_UUID kOldText = "46f75541-f46b-48be-aa7e-b353bbe068a7"_uuid;
constexpr ON_UUID kOldLinear = "bd57f33b-a1b2-46e9-9c6e-af09d30ffdde"_uuid;
constexpr ON_UUID kOldRadial = "b2b683fc-7964-4e96-b1f9-9b356a76b08b"_uuid;
constexpr ON_UUID kOldOrdinate = "c8288d69-5bd8-4f50-9baf-525a0086b0c3"_uuid;
constexpr ON_UUID kOldestText = "5de6b210-486b-11d4-8014-0010830122f0"_uuid;
constexpr ON_UUID kOldestLinear = "5de6b20d-486b-11d4-8014-0010830122f0"_uuid;
constexpr ON_UUID kOldestAngular = "5de6b20f-486b-11d4-8014-0010830122f0"_uuid;
constexpr ON_UUID kOldestRadial = "5de6b20e-486b-11d4-8014-0010830122f0"_uuid;
constexpr ON_UUID kOldestLeader = "5de6b211-486b-11d4-8014-0010830122f0"_uuid;
constexpr ON_UUID kStyle = "11111111-2222-4333-8444-555555555551"_uuid;
constexpr ON_UUID kOtherStyle = "11111111-2222-4333-8444-555555555552"_uuid;
constexpr ON_UUID kDetail = "11111111-2222-4333-8444-555555555553"_uuid;
constexpr ON_Plane kPlane{{1, 2, 3}, {0, 1, 0}, {0, 0, 1}, {1, 0, 0}};

struct ReadResult {
  Reading reading;
  ON_Annotation annotation;
};

ReadResult Read(int version, const ON_UUID& class_id, const WriteContent& write,
                const host::AnnotationStyles& styles = {}) {
  constexpr unsigned kLibrary = 201008125;
  ReadResult result;
  result.reading =
      ReadBytes(RecordBytes(version, kLibrary, write), version, kLibrary, [&](ON_BinaryArchive& a) {
        return host::ReadAnnotation(a, class_id, styles, result.annotation);
      });
  return result;
}

void Write2d(ON_BinaryArchive& a, std::vector<ON_2dPoint> points) {
  for (const ON_2dPoint p : points) {
    a.WriteDouble(p.x);
    a.WriteDouble(p.y);
  }
}

void ExpectPoints(const ON_Annotation& annotation, std::vector<ON_2dPoint> expected) {
  ASSERT_EQ(annotation.m_points.size(), expected.size());
  for (std::size_t i = 0; i < expected.size(); ++i) {
    EXPECT_NEAR(annotation.m_points[i].x, expected[i].x, 1e-12) << i;
    EXPECT_NEAR(annotation.m_points[i].y, expected[i].y, 1e-12) << i;
  }
}

// --- Version 6 and later ---------------------------------------------------------------------

// What differs between records, or is broken in one.
struct NewRecord {
  int major = 1;
  int common_version = 4;
  ON_Plane plane = kPlane;
  std::uint32_t type = 0;
  std::string text = "words";
  double width = 0;
  double rotation = 0;
  bool is_wrapped = false;
  std::uint32_t horizontal = 0;
  std::uint32_t vertical = 0;
  WriteContent style = [](ON_BinaryArchive& a) { a.WriteBool(false); };
  // Of dimensions.
  std::string user_text = "<>";
  bool has_default_place = true;
  ON_2dPoint place{7, 8};
  ON_UUID detail_id;
  double detail_scale = 3;
  // Behind what all of its kind have.
  WriteContent points = [](ON_BinaryArchive&) {};
};

void WriteText(ON_BinaryArchive& a, const NewRecord& record) {
  WriteVersioned(a, 1, 0, [&](ON_BinaryArchive& b) {
    b.WriteString(record.text);
    b.WritePlane({});
    b.WriteDouble(record.width);
    b.WriteDouble(record.rotation);
    b.WriteInt(static_cast<std::int32_t>(record.horizontal));
    b.WriteInt(static_cast<std::int32_t>(record.vertical));
    b.WriteDouble(1);
    b.WriteBool(record.is_wrapped);
  });
}

void WriteCommon(ON_BinaryArchive& a, const NewRecord& record) {
  WriteVersioned(a, record.major, record.common_version, [&](ON_BinaryArchive& b) {
    WriteText(b, record);
    b.WriteUuid(kStyle);
    b.WritePlane(record.plane);
    if (record.common_version < 1) return;
    b.WriteInt(static_cast<std::int32_t>(record.type));
    if (record.common_version < 2) return;
    WriteVersioned(b, 1, 1, record.style);
    Write2d(b, {{1, 0}});
    b.WriteBool(true);
  });
}

void WriteDimension(ON_BinaryArchive& a, const NewRecord& record) {
  WriteVersioned(a, 1, 1, [&](ON_BinaryArchive& b) {
    WriteCommon(b, record);
    b.WriteString(record.user_text);
    b.WriteDouble(0);
    b.WriteBool(record.has_default_place);
    Write2d(b, {record.place});
    b.WriteBool(false);
    b.WriteBool(false);
    b.WriteInt(0);
    b.WriteUuid(record.detail_id);
    b.WriteDouble(record.detail_scale);
    b.WriteInt(0);
  });
}

ReadResult ReadNew(const ON_UUID& class_id, const NewRecord& record) {
  const bool is_dimension = class_id != kText && class_id != kLeader;
  return Read(80, class_id, [&](ON_BinaryArchive& archive) {
    WriteVersioned(archive, 1, 1, [&](ON_BinaryArchive& a) {
      is_dimension ? WriteDimension(a, record) : WriteCommon(a, record);
      record.points(a);
    });
  });
}

TEST(ReadNewAnnotation, ATextHasItsPlaceAndItsAlignments) {
  NewRecord record;
  record.text = "{\\rtf1\\deff0{\\fonttbl{\\f0 Arial;}}\\f0 90\\u176?\\par more\\par}";
  record.rotation = 0.5;
  record.width = 12;
  record.horizontal = 2;
  record.vertical = 5;
  const auto [reading, text] = ReadNew(kText, record);
  ASSERT_TRUE(reading.ok);
  EXPECT_THAT(reading.problems, IsEmpty());
  EXPECT_EQ(text.m_type, Type::text);
  EXPECT_EQ(text.m_text, "90°\nmore");
  EXPECT_EQ(text.m_plane.origin, kPlane.origin);
  EXPECT_EQ(text.m_plane.xaxis, kPlane.xaxis);
  EXPECT_EQ(text.m_dimstyle_id, kStyle);
  EXPECT_EQ(text.m_text_rotation, 0.5);
  EXPECT_EQ(text.m_halign, H::right);
  EXPECT_EQ(text.m_valign, V::bottom);
  EXPECT_EQ(text.m_wrap_width, 0);
  EXPECT_FALSE(text.m_override);
  EXPECT_TRUE(text.m_points.empty());
}

TEST(ReadNewAnnotation, AWrappedTextKeepsItsWidth) {
  NewRecord record;
  record.is_wrapped = true;
  record.width = 12;
  EXPECT_EQ(ReadNew(kText, record).annotation.m_wrap_width, 12);
}

TEST(ReadNewAnnotation, AlignmentsThatAreNotKnownAreTheFirst) {
  NewRecord record;
  record.horizontal = 4;
  record.vertical = 0xffffffff;
  const ON_Annotation text = ReadNew(kText, record).annotation;
  EXPECT_EQ(text.m_halign, H::left);
  EXPECT_EQ(text.m_valign, V::top);
}

TEST(ReadNewAnnotation, TheOldestFormHasNeitherTypeNorStyle) {
  NewRecord record;
  record.common_version = 0;
  EXPECT_TRUE(ReadNew(kText, record).reading.ok);
  record.common_version = 1;
  EXPECT_TRUE(ReadNew(kText, record).reading.ok);
}

TEST(ReadNewAnnotation, ALeaderIsItsPoints) {
  NewRecord record;
  record.points = [](ON_BinaryArchive& a) {
    a.WriteInt(3);
    Write2d(a, {{0, 0}, {1, 2}, {3, 4}});
  };
  const auto [reading, leader] = ReadNew(kLeader, record);
  ASSERT_TRUE(reading.ok);
  EXPECT_EQ(leader.m_type, Type::leader);
  EXPECT_EQ(leader.m_text, "words");
  ExpectPoints(leader, {{0, 0}, {1, 2}, {3, 4}});
}

TEST(ReadNewAnnotation, ALinearDimensionMayBeAnAlignedOne) {
  NewRecord record;
  record.type = 5;
  record.user_text = "about <>";
  record.points = [](ON_BinaryArchive& a) { Write2d(a, {{10, 1}, {4, 6}}); };
  const auto [reading, linear] = ReadNew(kLinear, record);
  ASSERT_TRUE(reading.ok);
  EXPECT_EQ(linear.m_type, Type::linear);
  EXPECT_EQ(linear.m_text, "about <>");
  ExpectPoints(linear, {{0, 0}, {10, 1}, {4, 6}});
  EXPECT_FALSE(linear.m_text_point);
  EXPECT_EQ(linear.Measurement(), 10);
  record.type = 1;
  EXPECT_EQ(ReadNew(kLinear, record).annotation.m_type, Type::aligned);
}

TEST(ReadNewAnnotation, AMovedTextAndAScaledDetailAreKept) {
  NewRecord record;
  record.has_default_place = false;
  record.detail_id = kDetail;
  record.points = [](ON_BinaryArchive& a) { Write2d(a, {{10, 1}, {4, 6}}); };
  const ON_Annotation linear = ReadNew(kLinear, record).annotation;
  ASSERT_TRUE(linear.m_text_point);
  EXPECT_EQ(*linear.m_text_point, (ON_2dPoint{7, 8}));
  EXPECT_EQ(linear.Measurement(), 30);
}

TEST(ReadNewAnnotation, ADetailsScaleThatIsNoneIsLeftOut) {
  NewRecord record;
  record.detail_id = kDetail;
  record.points = [](ON_BinaryArchive& a) { Write2d(a, {{10, 1}, {4, 6}}); };
  for (const double scale : {0.0, -3.0, std::numeric_limits<double>::quiet_NaN(),
                             std::numeric_limits<double>::infinity()}) {
    record.detail_scale = scale;
    EXPECT_EQ(ReadNew(kLinear, record).annotation.Measurement(), 10) << scale;
  }
}

TEST(ReadNewAnnotation, ADimensionWithoutATextTellsItsMeasure) {
  NewRecord record;
  record.user_text = "";
  record.points = [](ON_BinaryArchive& a) { Write2d(a, {{10, 1}, {4, 6}}); };
  EXPECT_EQ(ReadNew(kLinear, record).annotation.m_text, "<>");
}

TEST(ReadNewAnnotation, ARadialDimensionBendsOntoTheHorizontal) {
  NewRecord record;
  record.type = 4;
  record.points = [](ON_BinaryArchive& a) { Write2d(a, {{4, 3}, {12, 6}}); };
  const ON_Annotation radius = ReadNew(kRadial, record).annotation;
  EXPECT_EQ(radius.m_type, Type::radius);
  ExpectPoints(radius, {{0, 0}, {4, 3}, {8, 6}, {12, 6}});
  EXPECT_EQ(radius.Measurement(), 5);
  record.type = 3;
  EXPECT_EQ(ReadNew(kRadial, record).annotation.m_type, Type::diameter);
  // A flat line meets its height nowhere; it bends over the curve.
  record.points = [](ON_BinaryArchive& a) { Write2d(a, {{4, 0}, {12, 6}}); };
  ExpectPoints(ReadNew(kRadial, record).annotation, {{0, 0}, {4, 0}, {4, 6}, {12, 6}});
}

TEST(ReadNewAnnotation, AnAngularDimensionHasPointsOnItsSides) {
  NewRecord record;
  record.type = 2;
  record.points = [](ON_BinaryArchive& a) {
    Write2d(a, {{1, 0}, {0, 2}});
    a.WriteDouble(5);
    a.WriteDouble(6);
    Write2d(a, {{7, 7}});
  };
  const ON_Annotation angular = ReadNew(kAngular, record).annotation;
  EXPECT_EQ(angular.m_type, Type::angular);
  ExpectPoints(angular, {{0, 0}, {5, 0}, {0, 6}, {7, 7}});
  EXPECT_DOUBLE_EQ(angular.Measurement(), std::numbers::pi / 2);
  // Sides that are measured from the centre still have their directions.
  record.type = 11;
  record.points = [](ON_BinaryArchive& a) { Write2d(a, {{1, 0}, {0, 2}, {0, 0}, {7, 7}}); };
  EXPECT_DOUBLE_EQ(ReadNew(kAngular, record).annotation.Measurement(), std::numbers::pi / 2);
}

ON_Annotation ReadOrdinate(std::uint32_t direction, ON_2dPoint end, double first, double second) {
  NewRecord record;
  record.type = 6;
  record.points = [=](ON_BinaryArchive& a) {
    a.WriteInt(static_cast<std::int32_t>(direction));
    Write2d(a, {{7, 2}, end});
    a.WriteDouble(first);
    a.WriteDouble(second);
  };
  const auto [reading, ordinate] = ReadNew(kOrdinate, record);
  EXPECT_TRUE(reading.ok);
  return ordinate;
}

TEST(ReadNewAnnotation, AnOrdinateDimensionKnowsItsDirection) {
  const ON_Annotation along_x = ReadOrdinate(1, {9, 12}, 2, 1);
  EXPECT_EQ(along_x.m_type, Type::ordinate);
  EXPECT_TRUE(along_x.m_measures_x);
  ExpectPoints(along_x, {{7, 2}, {9, 12}, {7, 9}, {9, 10}});
  const ON_Annotation along_y = ReadOrdinate(2, {-9, 12}, 2, 1);
  EXPECT_FALSE(along_y.m_measures_x);
  ExpectPoints(along_y, {{7, 2}, {-9, 12}, {-6, 2}, {-7, 12}});
  EXPECT_EQ(along_y.Measurement(), 2);
  // From the leader's direction.
  EXPECT_TRUE(ReadOrdinate(0, {9, 12}, 2, 1).m_measures_x);
  EXPECT_FALSE(ReadOrdinate(0, {19, 3}, 2, 1).m_measures_x);
}

TEST(ReadNewAnnotation, BendsThatAreNotSetAreLeftOut) {
  ExpectPoints(ReadOrdinate(1, {9, 12}, ON_UNSET_VALUE, ON_UNSET_VALUE), {{7, 2}, {9, 12}});
  ExpectPoints(ReadOrdinate(1, {9, 12}, 0, 1), {{7, 2}, {9, 12}});
}

// The oldest form of a style of the annotation's own.
void WriteStyle(ON_BinaryArchive& a) {
  a.WriteBool(true);
  WriteChunk(a, TCODE_OPENNURBS_CLASS, [](ON_BinaryArchive& b) {
    WriteChunk(b, TCODE_OPENNURBS_CLASS_UUID, [](ON_BinaryArchive& c) {
      c.WriteUuid("81bd83d5-7120-41c4-9a57-c449336ff12c"_uuid);
    });
    WriteChunk(b, TCODE_OPENNURBS_CLASS_DATA, [](ON_BinaryArchive& c) {
      c.Write3dmChunkVersion(1, 1);
      c.WriteInt(0);
      c.WriteString("own");
      for (const double value : {1.0, 2.0, 3.0, 4.0, 5.0}) c.WriteDouble(value);
      for (const int value : {0, 1, 0, 0, 0, 3, 2, 0}) c.WriteInt(value);
      c.WriteDouble(6);
    });
    b.WriteShortChunk(TCODE_OPENNURBS_CLASS_END, 0);
  });
}

TEST(ReadNewAnnotation, AStyleOfItsOwnIsRead) {
  NewRecord record;
  record.style = WriteStyle;
  const auto [reading, text] = ReadNew(kText, record);
  ASSERT_TRUE(reading.ok) << reading.problems.at(0);
  ASSERT_TRUE(text.m_override);
  EXPECT_EQ(text.m_override->m_textheight, 6);
  EXPECT_EQ(text.DimStyle(nullptr).m_arrowsize, 3);
}

void ExpectBroken(const ReadResult& result, const char* problem) {
  EXPECT_FALSE(result.reading.ok) << problem;
  ASSERT_THAT(result.reading.problems, SizeIs(1)) << problem;
  EXPECT_THAT(result.reading.problems[0], HasSubstr(problem));
}

TEST(ReadNewAnnotation, OnesWithoutNumbersOrAPlaneAreTold) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const double inf = std::numeric_limits<double>::infinity();
  std::vector<ON_Plane> planes(4, kPlane);
  planes[0].origin.x = nan;
  planes[1].xaxis.y = inf;
  planes[2].yaxis = {0, 0, 0};
  planes[3].zaxis = planes[3].xaxis;
  for (const ON_Plane& plane : planes) {
    NewRecord record;
    record.plane = plane;
    ExpectBroken(ReadNew(kText, record), "an annotation whose plane or points");
  }
  NewRecord record;
  record.points = [&](ON_BinaryArchive& a) { Write2d(a, {{nan, 1}, {4, 6}}); };
  ExpectBroken(ReadNew(kLinear, record), "an annotation whose plane or points");
  record.points = [&](ON_BinaryArchive& a) { Write2d(a, {{4, 3}, {inf, 6}}); };
  ExpectBroken(ReadNew(kRadial, record), "an annotation whose plane or points");
}

TEST(ReadNewAnnotation, CountsAndVersionsThatCannotBeAreTold) {
  NewRecord record;
  record.major = 2;
  ExpectBroken(ReadNew(kText, record), "an annotation of an unknown version");
  record.major = 1;
  record.points = [](ON_BinaryArchive& a) { a.WriteInt(0x7fffffff); };
  ExpectBroken(ReadNew(kLeader, record), "a count exceeds what its chunk can hold");
  record.points = [](ON_BinaryArchive& a) { Write2d(a, {{4, 3}}); };
  EXPECT_FALSE(ReadNew(kLinear, record).reading.ok);
  EXPECT_FALSE(Read(80, kText, [](ON_BinaryArchive&) {}).reading.ok);
  EXPECT_FALSE(Read(80, kStyle, [](ON_BinaryArchive&) {}).reading.ok);
}

// --- Versions 3 to 5 -------------------------------------------------------------------------

struct OldRecord {
  Type type = Type::linear;
  std::vector<ON_2dPoint> points;
  std::string text = "<>";
  bool is_text_moved = false;
  int style_index = 0;
  double text_height = 2.5;
  int justification = 0;
  WriteContent more = [](ON_BinaryArchive&) {};
};

void WriteOldFields(ON_BinaryArchive& a, const OldRecord& record) {
  a.WriteInt(static_cast<std::int32_t>(record.type));
  a.WriteInt(2);
  a.WritePlane(kPlane);
  a.WriteInt(static_cast<std::int32_t>(record.points.size()));
  Write2d(a, record.points);
  a.WriteString(record.text);
  a.WriteInt(record.is_text_moved ? 1 : 0);
  a.WriteInt(record.style_index);
  a.WriteDouble(record.text_height);
}

ReadResult ReadOld(int version, const ON_UUID& class_id, const OldRecord& record,
                   const host::AnnotationStyles& styles = {}) {
  const auto write_4 = [&](ON_BinaryArchive& a) {
    a.Write3dmChunkVersion(1, 0);
    WriteOldFields(a, record);
    record.more(a);
  };
  const auto write_5 = [&](ON_BinaryArchive& archive) {
    WriteVersioned(archive, 1, 0, [&](ON_BinaryArchive& a) {
      WriteVersioned(a, 1, 2, [&](ON_BinaryArchive& b) {
        WriteOldFields(b, record);
        b.WriteInt(record.justification);
        b.WriteBool(true);
        b.WriteString("");
      });
      record.more(a);
    });
  };
  return version < 50 ? Read(version, class_id, write_4, styles)
                      : Read(version, class_id, write_5, styles);
}

class ReadOldAnnotation : public testing::TestWithParam<int> {
 protected:
  ReadOldAnnotation() {
    styles_.resize(2);
    styles_[0].m_id = kStyle;
    styles_[0].m_font = "Arial";
    styles_[0].m_textheight = 2.5;
    styles_[1].m_id = kOtherStyle;
    styles_[1].m_font = "Courier New";
    fonts_ = {{"Courier New", false, false}, {"Arial", false, false}, {"Arial", true, true}};
  }

  ReadResult Read(const ON_UUID& class_id, const OldRecord& record) {
    return ReadOld(GetParam(), class_id, record, {styles_, fonts_});
  }

  std::vector<ON_DimStyle> styles_;
  std::vector<host::TextStyle> fonts_;
};

INSTANTIATE_TEST_SUITE_P(Versions, ReadOldAnnotation, testing::Values(3, 4, 50));

TEST_P(ReadOldAnnotation, ALinearDimensionHasItsMeasuredPointsAndItsLine) {
  OldRecord record;
  record.points = {{0, 0}, {0, 8}, {10, 3}, {10, 8}, {5, 8}};
  record.style_index = 1;
  auto [reading, linear] = Read(kOldLinear, record);
  ASSERT_TRUE(reading.ok);
  EXPECT_EQ(linear.m_type, Type::linear);
  ExpectPoints(linear, {{0, 0}, {10, 3}, {5, 8}});
  EXPECT_FALSE(linear.m_text_point);
  EXPECT_EQ(linear.m_dimstyle_id, kOtherStyle);
  EXPECT_FALSE(linear.m_override);
  record.type = Type::aligned;
  record.is_text_moved = true;
  linear = Read(kOldLinear, record).annotation;
  EXPECT_EQ(linear.m_type, Type::aligned);
  ASSERT_TRUE(linear.m_text_point);
  EXPECT_EQ(*linear.m_text_point, (ON_2dPoint{5, 8}));
}

TEST_P(ReadOldAnnotation, ARadialDimensionEndsAtItsText) {
  OldRecord record;
  record.type = Type::diameter;
  record.points = {{0, 0}, {4, 3}, {10, 6}, {8, 6}, {10, 6}};
  const ON_Annotation diameter = Read(kOldRadial, record).annotation;
  EXPECT_EQ(diameter.m_type, Type::diameter);
  ExpectPoints(diameter, {{0, 0}, {4, 3}, {8, 6}, {10, 6}});
}

TEST_P(ReadOldAnnotation, ATextStandsOnItsFootUnlessItSaysElse) {
  OldRecord record;
  record.type = Type::text;
  record.text = "one\r\ntwo";
  record.style_index = 1;
  const auto [reading, text] = Read(kOldText, record);
  ASSERT_TRUE(reading.ok);
  EXPECT_EQ(text.m_text, "one\ntwo");
  EXPECT_EQ(text.m_plane.origin, kPlane.PointAt(0, 2.5));
  EXPECT_EQ(text.m_halign, H::left);
  EXPECT_EQ(text.m_valign, V::top);
}

TEST_P(ReadOldAnnotation, ATextHasAFontAndAHeightOfItsOwn) {
  OldRecord record;
  record.type = Type::text;
  record.style_index = 1;
  ON_Annotation text = Read(kOldText, record).annotation;
  EXPECT_EQ(text.m_dimstyle_id, kStyle);
  EXPECT_FALSE(text.m_override);
  record.text_height = 7;
  text = Read(kOldText, record).annotation;
  ASSERT_TRUE(text.m_override);
  EXPECT_EQ(text.m_override->m_textheight, 7);
  EXPECT_EQ(text.m_override->m_font, "Arial");
  // A font that no style has, on the first style.
  record.style_index = 2;
  text = Read(kOldText, record).annotation;
  EXPECT_EQ(text.m_dimstyle_id, kStyle);
  ASSERT_TRUE(text.m_override);
  EXPECT_TRUE(text.m_override->m_bold);
  EXPECT_TRUE(text.m_override->m_italic);
  // None at all.
  record.style_index = -1;
  record.text_height = 0;
  text = Read(kOldText, record).annotation;
  EXPECT_EQ(text.DimStyle(&styles_[0]).m_textheight, 2.5);
}

TEST_P(ReadOldAnnotation, AStyleWithoutAnIdIsCopied) {
  styles_[1].m_id = {};
  OldRecord record;
  record.points = {{0, 0}, {0, 8}, {10, 3}, {10, 8}};
  record.style_index = 1;
  const ON_Annotation linear = Read(kOldLinear, record).annotation;
  EXPECT_TRUE(linear.m_dimstyle_id.IsNil());
  ASSERT_TRUE(linear.m_override);
  EXPECT_EQ(linear.m_override->m_font, "Courier New");
}

TEST_P(ReadOldAnnotation, AStyleThatIsNotThereIsTheFirst) {
  OldRecord record;
  record.points = {{0, 0}, {0, 8}, {10, 3}, {10, 8}};
  for (const int index : {-1, 2, 0x7fffffff}) {
    record.style_index = index;
    EXPECT_EQ(Read(kOldLinear, record).annotation.m_dimstyle_id, kStyle);
  }
  styles_.clear();
  const ON_Annotation linear = Read(kOldLinear, record).annotation;
  EXPECT_TRUE(linear.m_dimstyle_id.IsNil());
  EXPECT_FALSE(linear.m_override);
}

TEST_P(ReadOldAnnotation, AnOrdinateDimensionMayTakeItsDirectionFromItsLeader) {
  OldRecord record;
  record.type = Type::ordinate;
  record.points = {{7, 2}, {9, 12}};
  const auto read = [&](int direction) {
    const auto write = [&](ON_BinaryArchive& archive) {
      WriteVersioned(archive, 1, 1, [&](ON_BinaryArchive& a) {
        WriteVersioned(a, 1, 0, [&](ON_BinaryArchive& b) {
          if (GetParam() < 50) b.Write3dmChunkVersion(1, 0);
          WriteOldFields(b, record);
          if (GetParam() >= 50) b.WriteInt(0);
        });
        a.WriteInt(direction);
        a.WriteDouble(2);
        a.WriteDouble(1);
      });
    };
    return ::Read(GetParam(), kOldOrdinate, write, {styles_, fonts_});
  };
  const auto [reading, ordinate] = read(-1);
  ASSERT_TRUE(reading.ok);
  EXPECT_TRUE(ordinate.m_measures_x);
  ExpectPoints(ordinate, {{7, 2}, {9, 12}, {7, 9}, {9, 10}});
  EXPECT_TRUE(read(0).annotation.m_measures_x);
  EXPECT_FALSE(read(1).annotation.m_measures_x);
  record.points = {{7, 2}};
  ExpectBroken(read(0), "an ordinate dimension without its points");
}

TEST_P(ReadOldAnnotation, DimensionsWithoutTheirPointsAreTold) {
  OldRecord record;
  record.points = {{0, 0}, {0, 8}, {10, 3}};
  ExpectBroken(Read(kOldLinear, record), "a dimension without its points");
  record.type = Type::radius;
  record.points = {{0, 0}, {0, 8}};
  ExpectBroken(Read(kOldRadial, record), "a dimension without its points");
}

TEST(ReadOldAnnotation, VersionFiveKeepsTheAlignmentsOfATextInBits) {
  const auto read = [](int bits) {
    OldRecord record;
    record.type = Type::text;
    record.justification = bits;
    return ReadOld(50, kOldText, record).annotation;
  };
  EXPECT_EQ(read(0x00010001).m_valign, V::bottom);
  EXPECT_EQ(read(0x00010001).m_halign, H::left);
  EXPECT_EQ(read(0x00010001).m_plane.origin, kPlane.origin);
  EXPECT_EQ(read(0x00020002).m_valign, V::middle);
  EXPECT_EQ(read(0x00020002).m_halign, H::center);
  EXPECT_EQ(read(0x00040004).m_valign, V::top);
  EXPECT_EQ(read(0x00040004).m_halign, H::right);
}

TEST(ReadOldAnnotation, ADimensionOfADetailIsScaled) {
  constexpr ON_UUID kExtra = "8ad5b9fc-0d5c-47fb-adfd-74c28b6f661e"_uuid;
  const auto read = [](const ON_UUID& class_id, int minor, double scale) {
    ON_Annotation annotation;
    const std::string bytes = RecordBytes(50, 201008125, [&](ON_BinaryArchive& a) {
      WriteVersioned(a, 1, minor, [&](ON_BinaryArchive& b) {
        b.WriteUuid({});
        b.WriteInt(0);
        b.WriteInt(0);
        b.WriteDouble(scale);
      });
    });
    ReadBytes(bytes, 50, 201008125, [&](ON_BinaryArchive& a) {
      host::ReadAnnotationUserData(a, class_id, annotation);
      return true;
    });
    return annotation.m_distance_scale;
  };
  EXPECT_EQ(read(kExtra, 1, 4), 4);
  EXPECT_EQ(read(kExtra, 0, 4), 1);
  EXPECT_EQ(read(kStyle, 1, 4), 1);
  EXPECT_EQ(read(kExtra, 1, -4), 1);
  EXPECT_EQ(read(kExtra, 1, std::numeric_limits<double>::quiet_NaN()), 1);
}

// --- Version 2 -------------------------------------------------------------------------------

ReadResult ReadOldest(
    const ON_UUID& class_id, Type type, std::vector<ON_2dPoint> points,
    const WriteContent& more = [](ON_BinaryArchive&) {}) {
  return Read(2, class_id, [&](ON_BinaryArchive& a) {
    a.Write3dmChunkVersion(1, 0);
    a.WriteInt(static_cast<std::int32_t>(type));
    a.WritePlane(kPlane);
    a.WriteInt(static_cast<std::int32_t>(points.size()));
    Write2d(a, points);
    a.WriteString("");
    a.WriteString("shown");
    a.WriteInt(0);
    more(a);
  });
}

TEST(ReadOldestAnnotation, ATextHasItsOwnFontAndHangsFromItsPlane) {
  const auto [reading, text] = ReadOldest(kOldestText, Type::text, {}, [](ON_BinaryArchive& a) {
    a.WriteString("Times New Roman");
    a.WriteInt(700);
    a.WriteDouble(3);
  });
  ASSERT_TRUE(reading.ok);
  EXPECT_EQ(text.m_text, "shown");
  EXPECT_EQ(text.m_plane.origin, kPlane.origin);
  EXPECT_EQ(text.m_valign, V::top);
  ASSERT_TRUE(text.m_override);
  EXPECT_EQ(text.m_override->m_font, "Times New Roman");
  EXPECT_TRUE(text.m_override->m_bold);
  EXPECT_EQ(text.m_override->m_textheight, 3);
}

TEST(ReadOldestAnnotation, DimensionsAndLeadersHaveTheirPoints) {
  ExpectPoints(
      ReadOldest(kOldestLinear, Type::aligned, {{0, 0}, {0, 8}, {10, 0}, {10, 8}}).annotation,
      {{0, 0}, {10, 0}, {5, 8}});
  ExpectPoints(
      ReadOldest(kOldestRadial, Type::diameter, {{0, 0}, {4, 3}, {10, 6}, {8, 6}}).annotation,
      {{0, 0}, {4, 3}, {8, 6}, {10, 6}});
  ExpectPoints(ReadOldest(kOldestLeader, Type::leader, {{0, 0}, {4, 3}}).annotation,
               {{0, 0}, {4, 3}});
}

TEST(ReadOldestAnnotation, AnAngleIsToldByItself) {
  const auto read = [](double angle, double radius) {
    return ReadOldest(kOldestAngular, Type::angular, {}, [=](ON_BinaryArchive& a) {
      a.WriteDouble(angle);
      a.WriteDouble(radius);
    });
  };
  const ON_Annotation angular = read(2, 5).annotation;
  EXPECT_DOUBLE_EQ(angular.Measurement(), 2);
  EXPECT_EQ(angular.m_points.at(1), (ON_2dPoint{5, 0}));
  ExpectBroken(read(0, 5), "a dimension without its points");
  ExpectBroken(read(2, -1), "a dimension without its points");
  ExpectBroken(read(2, std::numeric_limits<double>::quiet_NaN()), "a dimension without its points");
}

// --- Whole documents -------------------------------------------------------------------------

ONX_Model ModelOfAnnotations(int version) {
  ONX_Model model;
  model.m_3dm_file_version = version;
  ON_DimStyle& style = model.m_dimstyle_table.emplace_back();
  style.m_id = kStyle;
  style.m_name = "style";
  style.m_font = "Arial";
  const std::vector<std::pair<Type, std::vector<ON_2dPoint>>> all = {
      {Type::text, {}},
      {Type::leader, {{0, 0}, {3, 4}, {9, 4}}},
      {Type::linear, {{0, 0}, {10, 3}, {5, 8}}},
      {Type::aligned, {{0, 0}, {10, 0}, {5, 8}}},
      {Type::radius, {{0, 0}, {4, 3}, {8, 6}, {10, 6}}},
      {Type::diameter, {{0, 0}, {4, 3}, {8, 6}, {10, 6}}},
      {Type::angular, {{0, 0}, {4, 0}, {0, 4}, {6, 6}}},
      {Type::ordinate, {{7, 2}, {9, 12}, {7, 9}, {9, 10}}}};
  for (const auto& [type, points] : all) {
    auto annotation = std::make_shared<ON_Annotation>();
    annotation->m_type = type;
    annotation->m_points = points;
    annotation->m_plane = kPlane;
    annotation->m_dimstyle_id = kStyle;
    annotation->m_text = type == Type::text ? "words" : "<>";
    model.m_object_table.emplace_back().m_geometry = std::move(annotation);
  }
  return model;
}

ONX_Model ReadBack(const std::string& bytes) {
  ONX_Model read;
  EXPECT_TRUE(ON_ReadModel(std::as_bytes(std::span(bytes)), read).ok);
  return read;
}

TEST(ReadAnnotation, EveryKindIsReadFromWrittenDocuments) {
  for (const int version : {4, 50, 80}) {
    SCOPED_TRACE(version);
    const ONX_Model model = ModelOfAnnotations(version);
    const ONX_Model read = ReadBack(WriteModel(model));
    EXPECT_THAT(read.m_problems, IsEmpty());
    EXPECT_THAT(read.m_unread, IsEmpty());
    ASSERT_EQ(read.m_object_table.size(), model.m_object_table.size());
    for (std::size_t i = 0; i < model.m_object_table.size(); ++i) {
      const auto& written = *ON_Annotation::Cast(model.m_object_table[i].m_geometry.get());
      const auto* found = ON_Annotation::Cast(read.m_object_table[i].m_geometry.get());
      ASSERT_NE(found, nullptr) << i;
      EXPECT_EQ(found->m_type, written.m_type);
      EXPECT_EQ(found->m_text, written.m_text);
      EXPECT_EQ(found->m_dimstyle_id, kStyle);
      EXPECT_EQ(found->m_plane.origin, kPlane.origin);
      ExpectPoints(*found, written.m_points);
    }
  }
}

TEST(ReadAnnotation, ABrokenOneIsLeftOutOfItsDocument) {
  ONX_Model model = ModelOfAnnotations(50);
  auto broken = std::make_shared<ON_Annotation>();
  broken->m_plane.xaxis = {0, 0, 0};
  model.m_object_table[2].m_geometry = broken;
  const ONX_Model read = ReadBack(WriteModel(model));
  EXPECT_THAT(read.m_object_table, SizeIs(7));
  ASSERT_THAT(read.m_problems, SizeIs(1));
  EXPECT_THAT(read.m_problems[0], HasSubstr("object at offset "));
  EXPECT_THAT(read.m_problems[0], HasSubstr("an annotation whose plane or points"));
}

TEST(ReadAnnotation, AnyByteMayBeWrong) {
  for (const int version : {4, 50}) {
    const std::string whole = WriteModel(ModelOfAnnotations(version));
    ReadWithWrongBytes(whole, whole.size() / 3, [](const ONX_Model& model) {
      for (const ONX_ModelObject& object : model.m_object_table) {
        const auto* annotation = ON_Annotation::Cast(object.m_geometry.get());
        EXPECT_TRUE(annotation == nullptr || annotation->IsValid());
      }
    });
  }
}

}  // namespace

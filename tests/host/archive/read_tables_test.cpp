#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/archive/record_readers.h"
#include "record_bytes.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

constexpr ON_UUID kLayerClass = "95809813-e985-11d3-bfe5-0010830122f0"_uuid;
constexpr ON_UUID kMaterialClass = "60b5dbbc-e660-11d3-bfe4-0010830122f0"_uuid;
constexpr ON_UUID kGroupClass = "721d9f97-3645-44c4-8be6-b2cf697d25ce"_uuid;
constexpr ON_UUID kLinetypeClass = "26f10a24-7d13-4f05-8fda-8e364daf8ea6"_uuid;
constexpr ON_UUID kDefinitionClass = "26f8bff6-2618-417f-a158-153d64a94989"_uuid;
constexpr ON_UUID kLightClass = "85a08513-f383-11d3-bfe7-0010830122f0"_uuid;
constexpr ON_UUID kDimStyleClass = "81bd83d5-7120-41c4-9a57-c449336ff12c"_uuid;
constexpr ON_UUID kId = "7d1f42a6-35c8-4b9e-9c07-5e2a1d60b3f4"_uuid;
constexpr ON_UUID kParentId = "5d0a7a10-0002-4b6e-9c11-2f3a4b5c6d7e"_uuid;

template <class T>
struct ReadTable {
  Reading reading;
  T value;
};

// Writes the data of a class under these versions and reads the record back.
template <class T>
ReadTable<T> WriteAndRead(bool (*read)(ON_BinaryArchive&, T&), int version, unsigned library,
                          const ON_UUID& class_id, const WriteContent& data) {
  ReadTable<T> result;
  const std::string bytes = RecordBytes(
      version, library, [&](ON_BinaryArchive& archive) { WriteClass(archive, class_id, data); });
  result.reading = ReadBytes(bytes, version, library, [&](ON_BinaryArchive& archive) {
    return read(archive, result.value);
  });
  return result;
}

void WriteLayer(ON_BinaryArchive& a, int mode, int minor, ON_Color color = ON_Color(1, 2, 3)) {
  a.Write3dmChunkVersion(1, minor);
  for (const int value : {mode, 0, -1, 3, 0}) a.WriteInt(value);
  a.WriteColor(color);
  for (int i = 0; i < 5; ++i) a.WriteInt(0);
  a.WriteString("walls");
  if (minor >= 1) a.WriteBool(false);
  if (minor >= 2) a.WriteInt(4);
  if (minor >= 3) {
    a.WriteColor(ON_Color(4, 5, 6));
    a.WriteDouble(0.5);
  }
  if (minor >= 4) a.WriteBool(true);
  if (minor >= 5) a.WriteUuid(kId);
  if (minor >= 6) {
    a.WriteUuid(kParentId);
    a.WriteBool(false);
  }
  if (minor >= 7) WriteVersioned(a, 1, 0, [](ON_BinaryArchive& b) { b.WriteInt(0); });
  if (minor >= 8) a.WriteUuid(kParentId);
  // Tagged items that aren't known.
  if (minor >= 10) a.WriteChar(77);
}

ReadTable<ON_Layer> ReadWrittenLayer(int version, unsigned library, const WriteContent& data) {
  return WriteAndRead<ON_Layer>(host::ReadLayer, version, library, kLayerClass, data);
}

}  // namespace

TEST(ReadLayer, EachMinorVersionIsRead) {
  for (int minor = 0; minor <= 15; ++minor) {
    if (minor == 9) continue;
    const auto [reading, layer] =
        ReadWrittenLayer(80, 0x90000000, [&](ON_BinaryArchive& a) { WriteLayer(a, 0, minor); });
    ASSERT_TRUE(reading.ok) << minor;
    EXPECT_THAT(reading.problems, IsEmpty());
    EXPECT_EQ("walls", layer.m_name);
    EXPECT_EQ(3, layer.m_render_material_index);
    EXPECT_EQ(minor < 1, layer.m_visible) << minor;
    EXPECT_EQ(minor >= 2 ? 4 : -1, layer.m_linetype_index);
    EXPECT_EQ(minor >= 4, layer.m_locked);
    EXPECT_EQ(minor >= 5, layer.m_id == kId);
    EXPECT_EQ(minor >= 6, layer.m_parent_id == kParentId);
    EXPECT_EQ(minor < 6, layer.m_expanded);
    EXPECT_EQ(minor >= 8, layer.m_display_material_id == kParentId);
  }
}

TEST(ReadLayer, TheOldModeTellsWhetherItIsHiddenOrLocked) {
  const std::pair<bool, bool> expected[] = {{true, false}, {false, false}, {true, true}};
  for (const int mode : {0, 1, 2}) {
    const auto layer =
        ReadWrittenLayer(2, 200012210, [&](ON_BinaryArchive& a) { WriteLayer(a, mode, 0); }).value;
    EXPECT_EQ(expected[mode], std::pair(layer.m_visible, layer.m_locked)) << mode;
  }
}

TEST(ReadLayer, ATransparentColourOfAnOldFileIsOpaque) {
  const auto color = [](int version, ON_Color stored) {
    return ReadWrittenLayer(version, 201209145,
                            [&](ON_BinaryArchive& a) { WriteLayer(a, 0, 0, stored); })
        .value.m_color;
  };
  EXPECT_EQ(ON_Color(1, 2, 3), color(60, ON_Color(1, 2, 3, 255)));
  EXPECT_EQ(ON_Color(1, 2, 3, 255), color(70, ON_Color(1, 2, 3, 255)));
  EXPECT_EQ(ON_UNSET_COLOR, color(60, ON_UNSET_COLOR));
}

TEST(ReadLayer, TheParentOfOneBrokenWriterIsLeftOut) {
  const auto write = [](ON_BinaryArchive& a) { WriteLayer(a, 0, 6); };
  EXPECT_TRUE(ReadWrittenLayer(4, 200505110, write).value.m_parent_id.IsNil());
  EXPECT_EQ(kParentId, ReadWrittenLayer(4, 200505111, write).value.m_parent_id);
}

TEST(ReadLayer, AnUnknownVersionIsTold) {
  const auto reading = ReadWrittenLayer(80, 0x90000000, [](ON_BinaryArchive& a) {
                         a.Write3dmChunkVersion(2, 0);
                       }).reading;
  EXPECT_FALSE(reading.ok);
  ASSERT_THAT(reading.problems, SizeIs(1));
  EXPECT_THAT(reading.problems[0], HasSubstr("a layer of an unknown version"));
}

TEST(ReadLayer, AnObjectOfAnotherClassIsTold) {
  const auto reading =
      WriteAndRead<ON_Layer>(host::ReadLayer, 80, 0x90000000, kGroupClass, [](ON_BinaryArchive& a) {
        a.Write3dmChunkVersion(1, 0);
      }).reading;
  EXPECT_FALSE(reading.ok);
  ASSERT_THAT(reading.problems, SizeIs(1));
  EXPECT_THAT(reading.problems[0],
              HasSubstr("an object of class 721d9f97-3645-44c4-8be6-b2cf697d25ce in a table of "
                        "other objects"));
}

TEST(ReadGroup, TheIdCameLater) {
  for (const int minor : {0, 1}) {
    const auto [reading, group] = WriteAndRead<ON_Group>(host::ReadGroup, 4, 200710174, kGroupClass,
                                                         [&](ON_BinaryArchive& a) {
                                                           a.Write3dmChunkVersion(1, minor);
                                                           a.WriteInt(12);
                                                           a.WriteString("Gruppe ß");
                                                           if (minor >= 1) a.WriteUuid(kId);
                                                         });
    ASSERT_TRUE(reading.ok);
    EXPECT_EQ(12, group.m_index);
    EXPECT_EQ("Gruppe ß", group.m_name);
    EXPECT_EQ(minor >= 1, group.m_id == kId);
  }
}

TEST(ReadLinetype, TheOldFormHasItsNameInPlace) {
  const auto [reading, linetype] = WriteAndRead<ON_Linetype>(
      host::ReadLinetype, 50, 201209145, kLinetypeClass, [](ON_BinaryArchive& archive) {
        WriteVersioned(archive, 1, 1, [](ON_BinaryArchive& a) {
          a.WriteInt(0);
          a.WriteString("dashed");
          a.WriteInt(2);
          a.WriteDouble(5);
          a.WriteInt(0);
          a.WriteDouble(2.5);
          a.WriteInt(1);
          a.WriteUuid(kId);
        });
      });
  ASSERT_TRUE(reading.ok);
  EXPECT_EQ("dashed", linetype.m_name);
  EXPECT_EQ(kId, linetype.m_id);
  ASSERT_THAT(linetype.m_segments, SizeIs(2));
  EXPECT_FALSE(linetype.m_segments[0].m_is_gap);
  EXPECT_EQ(2.5, linetype.m_segments[1].m_length);
  EXPECT_TRUE(linetype.m_segments[1].m_is_gap);
}

TEST(ReadInstanceDefinition, TheOldFormOfALinkedBlock) {
  const auto [reading, definition] = WriteAndRead<ON_InstanceDefinition>(
      host::ReadInstanceDefinition, 50, 201209145, kDefinitionClass, [](ON_BinaryArchive& a) {
        a.Write3dmChunkVersion(1, 5);
        a.WriteUuid(kId);
        a.WriteInt(1);
        a.WriteUuid(kParentId);
        for (const char* text : {"door", "a door", "url", "tag"}) a.WriteString(text);
        a.WriteBoundingBox({{0, 0, 0}, {1, 1, 2}});
        a.WriteInt(3);
        a.WriteString("C:\\doors\\door.3dm");
      });
  ASSERT_TRUE(reading.ok);
  EXPECT_EQ(kId, definition.m_id);
  EXPECT_THAT(definition.m_object_ids, ElementsAre(kParentId));
  EXPECT_EQ("door", definition.m_name);
  EXPECT_EQ("a door", definition.m_description);
  EXPECT_EQ(3, definition.m_kind);
  EXPECT_EQ("C:\\doors\\door.3dm", definition.m_linked_file);
}

TEST(ReadInstanceDefinition, TheNewFormOfALinkedBlock) {
  const auto [reading, definition] = WriteAndRead<ON_InstanceDefinition>(
      host::ReadInstanceDefinition, 80, 0x90000000, kDefinitionClass,
      [](ON_BinaryArchive& archive) {
        WriteVersioned(archive, 1, 0, [](ON_BinaryArchive& a) {
          ASSERT_TRUE(a.BeginWrite3dmChunk(TCODE_COMPONENT_ATTRIBUTES_CHUNK, 1, 0));
          a.WriteChar(0);
          a.WriteChar(1);
          a.WriteUuid(kId);
          a.WriteChar(0);
          a.WriteChar(2);
          a.WriteChar(1);
          a.WriteString("door");
          ASSERT_TRUE(a.EndWrite3dmChunk());
          a.WriteInt(3);
          WriteVersioned(a, 1, 0, [](ON_BinaryArchive& b) { b.WriteInt(2); });
          for (const char* text : {"a door", "url", "tag"}) a.WriteString(text);
          a.WriteBoundingBox({});
          a.WriteBool(false);
          a.WriteBool(true);
          WriteVersioned(a, 1, 0, [](ON_BinaryArchive& b) {
            WriteVersioned(b, 1, 0, [](ON_BinaryArchive& c) { c.WriteString("/doors/door.3dm"); });
          });
        });
      });
  ASSERT_TRUE(reading.ok);
  EXPECT_THAT(reading.problems, IsEmpty());
  EXPECT_EQ("door", definition.m_name);
  EXPECT_EQ("/doors/door.3dm", definition.m_linked_file);
  EXPECT_THAT(definition.m_object_ids, IsEmpty());
}

TEST(ReadMaterial, TheOldFormHasThreeTextures) {
  const auto [reading, material] = WriteAndRead<ON_Material>(
      host::ReadMaterial, 3, 200211120, kMaterialClass, [](ON_BinaryArchive& a) {
        a.Write3dmChunkVersion(1, 1);
        for (const int red : {1, 2, 3, 4}) a.WriteColor(ON_Color(red, 0, 0));
        a.WriteDouble(300);
        a.WriteDouble(-1);
        for (int i = 0; i < 7; ++i) a.WriteInt(0);
        a.WriteString("wood.jpg");
        a.WriteInt(2);
        a.WriteInt(0);
        a.WriteString("bump.jpg");
        a.WriteInt(1);
        a.WriteInt(0);
        a.WriteDouble(0.5);
        a.WriteString("");
        a.WriteInt(0);
        a.WriteInt(0);
        a.WriteInt(7);
        a.WriteUuid(kParentId);
        a.WriteString("library");
        a.WriteString("wood");
        a.WriteUuid(kId);
        a.WriteColor(ON_Color(5, 0, 0));
        a.WriteColor(ON_Color(6, 0, 0));
        a.WriteDouble(1.5);
      });
  ASSERT_TRUE(reading.ok);
  EXPECT_THAT(reading.problems, IsEmpty());
  EXPECT_EQ("wood", material.m_name);
  EXPECT_EQ(kId, material.m_id);
  EXPECT_EQ(255, material.m_shine);
  EXPECT_EQ(0, material.m_transparency);
  EXPECT_EQ(6, material.m_transparent.Red());
  EXPECT_EQ(1.5, material.m_index_of_refraction);
  ASSERT_THAT(material.m_textures, SizeIs(2));
  EXPECT_EQ("wood.jpg", material.m_textures[0].m_image_file);
  EXPECT_EQ(2, material.m_textures[0].m_mode);
  EXPECT_EQ(ON_Texture::Type::bump, material.m_textures[1].m_type);
  EXPECT_THAT(material.m_textures[1].m_bump_scale, ElementsAre(0, 0.5));
}

TEST(ReadMaterial, TheGreyThatOldWritersLeftIsTheDiffuseColour) {
  const auto transparent = [](unsigned library) {
    return WriteAndRead<ON_Material>(host::ReadMaterial, 4, library, kMaterialClass,
                                     [](ON_BinaryArchive& archive) {
                                       archive.Write3dmChunkVersion(2, 0);
                                       WriteVersioned(archive, 1, 1, [](ON_BinaryArchive& a) {
                                         a.WriteUuid(kId);
                                         a.WriteInt(0);
                                         a.WriteString("glass");
                                         a.WriteUuid({});
                                         for (const int red : {0, 200, 0, 0, 0})
                                           a.WriteColor(ON_Color(red, 10, 20));
                                         a.WriteColor(ON_Color(128, 128, 128));
                                         for (int i = 0; i < 4; ++i) a.WriteDouble(0);
                                         WriteVersioned(a, 1, 0,
                                                        [](ON_BinaryArchive& b) { b.WriteInt(0); });
                                       });
                                     })
        .value.m_transparent;
  };
  EXPECT_EQ(ON_Color(200, 10, 20), transparent(200912009));
  EXPECT_EQ(ON_Color(128, 128, 128), transparent(200912010));
}

bool ReadDimStyle(ON_BinaryArchive& archive, ON_DimStyle& style) {
  return host::ReadDimStyle(archive, style);
}

TEST(ReadDimStyle, OldArrowsAreNumberedAnew) {
  const auto [reading, style] = WriteAndRead<ON_DimStyle>(
      ReadDimStyle, 4, 200710174, kDimStyleClass, [](ON_BinaryArchive& a) {
        a.Write3dmChunkVersion(1, 1);
        a.WriteInt(0);
        a.WriteString("big");
        for (const double value : {1.0, 2.0, 3.0, 4.0, 5.0}) a.WriteDouble(value);
        for (const int value : {0, 1, 0, 0, 0, 3, 2, 0}) a.WriteInt(value);
        a.WriteDouble(6);
      });
  ASSERT_TRUE(reading.ok);
  EXPECT_EQ("big", style.m_name);
  EXPECT_EQ(3, style.m_arrowtype1);
  EXPECT_EQ(2, style.m_leaderarrowtype);
  EXPECT_EQ(6, style.m_textheight);
}

void WriteOldDimStyle(ON_BinaryArchive& a, int minor, int text_style) {
  a.Write3dmChunkVersion(1, minor);
  a.WriteInt(0);
  a.WriteString("big");
  for (const double value : {1.0, 2.0, 3.0, 4.0, 5.0}) a.WriteDouble(value);
  for (const int value : {0, 1, 0, 0, 0, 3, 2, text_style}) a.WriteInt(value);
  if (minor > 0) a.WriteDouble(6);
}

TEST(ReadDimStyle, OldOnesNameTheirFontByItsPosition) {
  const std::vector<host::TextStyle> fonts = {{"Arial", false, false}, {"Courier", true, true}};
  const auto font = [&](int index) {
    const std::string bytes = RecordBytes(4, 200710174, [&](ON_BinaryArchive& archive) {
      WriteClass(archive, kDimStyleClass,
                 [&](ON_BinaryArchive& a) { WriteOldDimStyle(a, 1, index); });
    });
    ON_DimStyle style;
    ReadBytes(bytes, 4, 200710174,
              [&](ON_BinaryArchive& archive) { return host::ReadDimStyle(archive, style, fonts); });
    return style;
  };
  EXPECT_EQ(font(0).m_font, "Arial");
  EXPECT_EQ(font(1).m_font, "Courier");
  EXPECT_TRUE(font(1).m_bold && font(1).m_italic);
  EXPECT_EQ(font(2).m_font, "");
  EXPECT_EQ(font(-1).m_font, "");
}

TEST(ReadDimStyle, VersionFiveCarriesTheScaleApart) {
  constexpr ON_UUID kExtra = "513fde53-7284-4065-8601-06cea8b28d6f"_uuid;
  const auto scale = [&](const ON_UUID& class_id, int minor, double stored) {
    const std::string bytes = RecordBytes(50, 201008125, [&](ON_BinaryArchive& archive) {
      const auto extra = [&](ON_BinaryArchive& a) {
        WriteUserData(a, class_id, {2, 50, 201008125}, [&](ON_BinaryArchive& payload) {
          WriteVersioned(payload, 1, minor, [&](ON_BinaryArchive& b) {
            b.WriteUuid({});
            b.WriteInt(2);
            b.WriteShort(0);
            b.WriteInt(0);
            b.WriteInt(0);
            for (int i = 0; i < 4; ++i) b.WriteDouble(1);
            b.WriteBool(false);
            b.WriteInt(0);
            b.WriteColor(ON_Color());
            b.WriteDouble(stored);
          });
        });
      };
      WriteClass(
          archive, kDimStyleClass, [](ON_BinaryArchive& a) { WriteOldDimStyle(a, 1, 0); }, extra);
    });
    ON_DimStyle style;
    const Reading reading = ReadBytes(bytes, 50, 201008125, [&](ON_BinaryArchive& archive) {
      return host::ReadDimStyle(archive, style);
    });
    EXPECT_TRUE(reading.ok);
    return style.m_dimscale;
  };
  EXPECT_EQ(scale(kExtra, 3, 2.5), 2.5);
  EXPECT_EQ(scale(kExtra, 1, 2.5), 1);
  EXPECT_EQ(scale(kExtra, 3, -1), 1);
  EXPECT_EQ(scale(kDimStyleClass, 3, 2.5), 1);
}

TEST(ReadTextStyle, HasAFaceAWeightAndASlant) {
  constexpr ON_UUID kTextStyle = "4f0f51fb-35d0-4865-9998-6d2c6a99721d"_uuid;
  const auto read = [](const ON_UUID& class_id, int major, const std::u16string& face, int weight,
                       int italic) {
    return WriteAndRead<host::TextStyle>(host::ReadTextStyle, 4, 200710174, class_id,
                                         [&](ON_BinaryArchive& a) {
                                           a.Write3dmChunkVersion(major, 2);
                                           a.WriteInt(0);
                                           a.WriteString("Font 01");
                                           std::u16string padded = face;
                                           padded.resize(64);
                                           a.WriteByte(std::as_bytes(std::span(padded)));
                                           a.WriteInt(weight);
                                           a.WriteInt(italic);
                                         });
  };
  const auto [reading, style] = read(kTextStyle, 1, u"Schrift \u00fc", 700, 1);
  ASSERT_TRUE(reading.ok);
  EXPECT_EQ(style.face, "Schrift \u00fc");
  EXPECT_TRUE(style.bold);
  EXPECT_TRUE(style.italic);
  EXPECT_FALSE(read(kTextStyle, 1, u"Arial", 400, 0).value.bold);
  // One that fills all of its room.
  EXPECT_EQ(read(kTextStyle, 1, std::u16string(64, u'x'), 400, 0).value.face, std::string(64, 'x'));
  EXPECT_FALSE(read(kTextStyle, 2, u"Arial", 400, 0).reading.ok);
  EXPECT_FALSE(read(kDimStyleClass, 1, u"Arial", 400, 0).reading.ok);
}

TEST(ReadLight, AnUnknownStyleIsKeptApart) {
  const auto write = [](int style, int minor) {
    return [style, minor](ON_BinaryArchive& a) {
      a.Write3dmChunkVersion(1, minor);
      a.WriteInt(1);
      a.WriteInt(style);
      a.WriteDouble(0.5);
      a.WriteDouble(0);
      for (int i = 0; i < 3; ++i) a.WriteColor(ON_Color(1, 2, 3));
      a.WriteVector({0, 0, -1});
      a.WritePoint({1, 2, 3});
      a.WriteDouble(30);
      a.WriteDouble(60);
      a.WriteVector({1, 0, 0});
      a.WriteDouble(1);
      a.WriteInt(0);
      a.WriteUuid(kId);
      a.WriteString("lamp");
      if (minor >= 1) {
        a.WriteVector({2, 0, 0});
        a.WriteVector({0, 3, 0});
      }
      if (minor >= 2) a.WriteDouble(0.75);
    };
  };
  for (const int minor : {0, 1, 2}) {
    const auto [reading, light] = WriteAndRead<ONX_ModelLight>(host::ReadLightRecord, 4, 200710174,
                                                               kLightClass, write(12, minor));
    ASSERT_TRUE(reading.ok) << minor;
    EXPECT_EQ(ON_LightStyle::world_rectangular, light.m_light->m_style);
    EXPECT_EQ("lamp", light.m_light->m_light_name);
    EXPECT_EQ(minor >= 1 ? 2 : 1, light.m_light->m_length.x);
    EXPECT_EQ(minor >= 2 ? 0.75 : ON_UNSET_VALUE, light.m_light->m_hotspot);
  }
  for (const int style : {-1, 0, 3, 13, 0x7fffffff}) {
    const auto light = WriteAndRead<ONX_ModelLight>(host::ReadLightRecord, 4, 200710174,
                                                    kLightClass, write(style, 0))
                           .value;
    EXPECT_EQ(ON_LightStyle::unknown, light.m_light->m_style) << style;
  }
}

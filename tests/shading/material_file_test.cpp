#include "shading/material_file.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <limits>

#include "support/temp_folder.h"

namespace orv {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;

MaterialAttributes Parsed(std::string_view text, double gamma = 1) {
  return MaterialFromText(text, gamma);
}

// A material with something in each part of a file.
MaterialAttributes Gold() {
  MaterialAttributes material;
  material.Name = "Gold";
  material.Diffuse = ON_Color(255, 204, 51);
  material.Surface =
      "\"VMetal\" \"float Diffuse\" [1] \"color SpecularColor\" [1 1 1] "
      "\"string ColorMapName\" [\"C:\\maps\\gold.tx\"]";
  material.Displacement = "\"null\"";
  return material;
}

TEST(MaterialText, HoldsAStatementOrAParameterALine) {
  EXPECT_EQ(TextFromMaterial("a.omf", 1, Gold()),
            "Attribute \"identifier\" \"shadinggroup\" \"Gold\"\n"
            "Color [1 0.8 0.2]\n"
            "Opacity [1 1 1]\n"
            "Surface \"VMetal\"\n"
            "  \"float Diffuse\" [1]\n"
            "  \"color SpecularColor\" [1 1 1]\n"
            "  \"string ColorMapName\" [\"C:\\maps\\gold.tx\"]\n"
            "Displacement \"null\"\n");
}

TEST(MaterialText, HoldsEverythingInOrder) {
  MaterialAttributes material = Gold();
  material.Surface = "\"VPlastic\"";
  material.Transparency = 0.75;
  material.ShadingSamples = 4;
  material.ComplexShadow = true;
  material.DisplacementMode = 3;
  material.Displacement = "\"VBump\" \"float BumpMax\" [2]";
  material.Instancer = "\"VFur\" \"float Length\" [0.5]";
  material.HideInstancerBase = true;
  EXPECT_EQ(TextFromMaterial("a.omf", 1, material),
            "Attribute \"identifier\" \"shadinggroup\" \"Gold\"\n"
            "Color [1 0.8 0.2]\n"
            "Opacity [0.25 0.25 0.25]\n"
            "ShadingRate 0.25\n"
            "Surface \"VPlastic\"\n"
            "Attribute \"shade\" \"string transmissionhitmode\" \"shader\"\n"
            "Attribute \"render\" \"integer truedisplacement\" [1]\n"
            "Attribute \"render\" \"integer meshdisplacement\" [1]\n"
            "Displacement \"VBump\"\n"
            "  \"float BumpMax\" [2]\n"
            "Attribute \"visibility\" \"integer instancerbase\" [0]\n"
            "Instancer \"VFur\"\n"
            "  \"float Length\" [0.5]\n");
}

TEST(MaterialText, UnnamedMaterialHasTheNameOfTheFile) {
  MaterialAttributes material;
  EXPECT_EQ(TextFromMaterial("C:\\my materials\\old gold.v2.omf", 1, material),
            "Attribute \"identifier\" \"shadinggroup\" \"old gold.v2\"\n"
            "Color [1 1 1]\n"
            "Opacity [1 1 1]\n"
            "Surface \"Rhino\"\n"
            "Displacement \"Rhino\"\n");
}

TEST(MaterialText, ColorIsRaisedToTheGamma) {
  MaterialAttributes material;
  material.Diffuse = ON_Color(255, 128, 0);
  EXPECT_THAT(TextFromMaterial("a", 2, material), HasSubstr("Color [1 0.251965 0]\n"));
}

TEST(MaterialText, OpacityIsNotBelowZero) {
  MaterialAttributes material;
  for (const double transparency : {1.5, std::numeric_limits<double>::quiet_NaN()}) {
    material.Transparency = transparency;
    EXPECT_THAT(TextFromMaterial("a", 1, material), HasSubstr("Opacity [0 0 0]\n"));
  }
  material.Transparency = -1;
  EXPECT_THAT(TextFromMaterial("a", 1, material), HasSubstr("Opacity [2 2 2]\n"));
}

TEST(MaterialText, OneSampleHasNoShadingRate) {
  MaterialAttributes material;
  for (const int samples : {1, 0, -3}) {
    material.ShadingSamples = samples;
    EXPECT_THAT(TextFromMaterial("a", 1, material), Not(HasSubstr("ShadingRate")));
  }
}

TEST(MaterialText, ModeIsWrittenForTrueDisplacementOnly) {
  MaterialAttributes material;
  for (const int mode : {0, 1}) {
    material.DisplacementMode = mode;
    EXPECT_THAT(TextFromMaterial("a", 1, material), Not(HasSubstr("render")));
  }
  material.DisplacementMode = 2;
  EXPECT_THAT(TextFromMaterial("a", 1, material),
              HasSubstr("Attribute \"render\" \"integer truedisplacement\" [1]\nDisplacement"));
}

TEST(MaterialText, TextWithoutAShaderHasNoStatement) {
  MaterialAttributes material;
  material.Surface = "  ";
  material.Displacement = "";
  material.HideInstancerBase = true;
  EXPECT_THAT(TextFromMaterial("a", 1, material), EndsWith("Opacity [1 1 1]\n"));
}

TEST(MaterialText, DeclarationWithoutAValueIsLeftOut) {
  MaterialAttributes material;
  material.Surface = "\"X\" \"float A\" [1] \"float B\"";
  EXPECT_THAT(TextFromMaterial("a", 1, material),
              HasSubstr("Surface \"X\"\n  \"float A\" [1]\nDisplacement"));
}

TEST(MaterialText, LongTextsAreCutBetweenCharacters) {
  MaterialAttributes material;
  material.Name = std::string(511, 'n') + "\u00e4n";
  material.Surface = "\"X\" \"" + std::string(1001, 'd') + "\" [" + std::string(1001, '1') + "]";
  material.Displacement = "\"Y\" \"string A\" [\"" + std::string(2000, 's') + "\"]";
  const std::string text = TextFromMaterial("a", 1, material);
  EXPECT_THAT(text, HasSubstr(" \"" + std::string(511, 'n') + "\"\nColor"));
  EXPECT_THAT(text, HasSubstr("Surface \"X\"\n  \"" + std::string(1000, 'd') + "\" [" +
                              std::string(992, '1') + "]\n"));
  // The string that has lost its end gets one.
  EXPECT_THAT(text, EndsWith("\n  \"string A\" [\"" + std::string(999, 's') + "\"]\n"));
}

TEST(MaterialText, StringThatIsCutBehindABackslashEndsAllTheSame) {
  MaterialAttributes material;
  const std::string start = '"' + std::string(998, 's');
  material.Displacement = "\"Y\" \"string A\" [" + start + "\\maps\"]";
  EXPECT_THAT(TextFromMaterial("a", 1, material), EndsWith(" [" + start + "/\"]\n"));
}

TEST(MaterialText, NothingEndsAStringOrItsBracketsEarly) {
  MaterialAttributes material;
  material.Name = "6\" pipe\n\\";
  material.Surface = "[a\"b] [float \"A\"] \"1] [2\" \"string B\" [\"open] \"string C\" [\"d\\\"]";
  material.Displacement = "\"a\nb\" \"float\tA\" [1\r\n2]";
  const std::string text = TextFromMaterial("a", 1, material);
  EXPECT_THAT(text, HasSubstr("\"shadinggroup\" \"6\\042 pipe\\012\\134\"\n"));
  EXPECT_THAT(text, HasSubstr("Surface \"a\\042b\"\n"
                              "  \"float \\042A\\042\" [1 [2]\n"
                              "  \"string B\" [\"open\"]\n"
                              "  \"string C\" [\"d\\\"\"]\n"));
  EXPECT_THAT(text, EndsWith("Displacement \"a\\012b\"\n  \"float\\011A\" [1  2]\n"));
}

TEST(MaterialText, EveryNameComesBack) {
  using namespace std::string_literals;
  MaterialAttributes material;
  for (const std::string& name :
       {"6\" pipe\\"s, "C:\\maps\\gold"s, "maps\\012"s, "\\"s, "\""s, "[a] ]"s, "a\nb\r\tc\x7f\0d"s,
        "G\u00f6ld\U0001F332"s, "\\042\\"s, std::string(480, '\\')}) {
    material.Name = name;
    EXPECT_EQ(Parsed(TextFromMaterial("a", 1, material)).Name, name);
  }
}

TEST(MaterialText, UsualNameStaysByteForByte) {
  MaterialAttributes material;
  for (const std::string name : {"C:\\maps\\gold", "[6' pipe]", "100%d", "\\n", "a\\101"}) {
    material.Name = name;
    material.Surface = '"' + name + '"';
    const std::string text = TextFromMaterial("a", 1, material);
    EXPECT_THAT(text, HasSubstr("\"shadinggroup\" \"" + name + "\"\n"));
    EXPECT_THAT(text, HasSubstr("Surface \"" + name + "\"\n"));
    EXPECT_EQ(Parsed(text).Surface, material.Surface);
  }
}

TEST(MaterialText, CallWithEscapesComesBack) {
  MaterialAttributes material;
  for (const std::string call :
       {"\"6\\042 pipe\"", "\"a\\134\"", "\"S\" \"float \\042A\" [1]",
        "\"S\" \"string A\" [\"wo\\042od [1\\135.tx\"]", "\"S\" \"string A\" [\"C:\\012.tx\"]"}) {
    material.Surface = call;
    material.Displacement = call;
    material.Instancer = call;
    const MaterialAttributes read = Parsed(TextFromMaterial("a", 1, material));
    EXPECT_EQ(read.Surface, call);
    EXPECT_EQ(read.Displacement, call);
    EXPECT_EQ(read.Instancer, call);
  }
}

TEST(MaterialText, WhatIsReadAndWrittenAgainStaysTheSame) {
  MaterialAttributes material;
  material.Surface =
      "[a\"b\\] [float \"A\"] \"1] [2\" \"string B\" [\"open] \"string C\" [\"d\\\"] \"x\ny\" [\t]";
  const std::string text = TextFromMaterial("a", 1, material);
  MaterialAttributes read = Parsed(text);
  EXPECT_EQ(TextFromMaterial("a", 1, read), text);
}

std::size_t LongestLine(std::string_view text) {
  std::size_t longest = 0;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size() - 1);
    longest = std::max(longest, end);
    text.remove_prefix(end + 1);
  }
  return longest;
}

constexpr std::size_t kLongestRead = 1999;
const std::string kLast = " \"float Last\" [1]";

TEST(MaterialText, LongParameterLosesNoLaterOne) {
  for (const char* start : {"1", "\"s", "\"\\\\", "\"\u00e4"}) {
    for (std::size_t length = 980; length <= 1002; ++length) {
      MaterialAttributes material;
      material.Surface = "\"S\" \"" + std::string(length, 'd') + "\" [" + start +
                         std::string(1200, 's') + "]" + kLast;
      const std::string text = TextFromMaterial("a", 1, material);
      EXPECT_LE(LongestLine(text), kLongestRead);
      const MaterialAttributes read = Parsed(text);
      EXPECT_THAT(read.Surface, EndsWith(']' + kLast)) << length;
      EXPECT_EQ(TextFromMaterial("a", 1, read), text) << length;
    }
  }
}

TEST(MaterialText, LongNameLosesNoLaterParameter) {
  const std::string quotes(1200, '"');
  MaterialAttributes material;
  material.Name = quotes;
  material.Surface = "[" + quotes + "] [" + quotes + "] [" + quotes + "]" + kLast;
  material.Displacement = '"' + std::string(5000, 'n') + '"' + kLast;
  const std::string text = TextFromMaterial("a", 1, material);
  EXPECT_LE(LongestLine(text), kLongestRead);
  const MaterialAttributes read = Parsed(text);
  // As many quotes as fit into the line as escapes.
  EXPECT_EQ(read.Name, std::string(489, '"'));
  EXPECT_THAT(read.Surface, EndsWith(']' + kLast));
  EXPECT_EQ(read.Displacement, '"' + std::string(1984, 'n') + '"' + kLast);
  EXPECT_EQ(TextFromMaterial("a", 1, read), text);
}

TEST(MaterialText, ValueThatIsCutAtTheLineIsClosed) {
  MaterialAttributes material;
  const std::string start = "\"S\" \"" + std::string(1000, 'd') + "\" [\"";
  material.Displacement = start + std::string(2000, 's') + "\"]";
  EXPECT_EQ(Parsed(TextFromMaterial("a", 1, material)).Displacement,
            start + std::string(990, 's') + "\"]");
  // The slash that stands for a backslash is no larger.
  material.Displacement = start + std::string(989, 's') + "\\" + std::string(2000, 's') + "\"]";
  EXPECT_EQ(Parsed(TextFromMaterial("a", 1, material)).Displacement,
            start + std::string(989, 's') + "/\"]");
}

TEST(MaterialText, EmptyTextIsTheDefaultMaterial) {
  const MaterialAttributes material = Parsed("");
  EXPECT_EQ(material.Surface, "\"Rhino\"");
  EXPECT_EQ(material.Displacement, "\"Rhino\"");
  EXPECT_EQ(material.Instancer, "");
  EXPECT_EQ(material.Name, "");
  EXPECT_EQ(material.Diffuse, ON_Color(255, 255, 255));
  EXPECT_EQ(material.Transparency, 0);
  EXPECT_EQ(material.ShadingSamples, 1);
  EXPECT_EQ(material.DisplacementMode, 1);
  EXPECT_FALSE(material.ComplexShadow);
}

TEST(MaterialText, SurfaceWithoutParametersIsItsName) {
  EXPECT_EQ(Parsed("Surface \"Name\"\n").Surface, "\"Name\"");
  EXPECT_EQ(Parsed("  surface Name").Surface, "\"Name\"");
  EXPECT_EQ(Parsed("SURFACE [Name]\r\n").Surface, "\"Name\"");
  EXPECT_EQ(Parsed("Surface \"\"\n").Surface, "\"\"");
  EXPECT_EQ(Parsed("Surface\n").Surface, "\"Rhino\"");
}

TEST(MaterialText, ParameterLinesBelongToTheShaderBeforeThem) {
  const MaterialAttributes material = Parsed(
      "\"float Before\" [0]\n"
      "Surface \"S\"\n"
      "  \"float A\" [1]\n"
      "\"string B\" [\"b c.tx\"]\r\n"
      "Displacement \"D\"\n"
      "  \"float C\" 3\n"
      "  \"float D\"\n"
      "Instancer \"I\"\n"
      "  \"color E\" [1 2 3]");
  EXPECT_EQ(material.Surface, "\"S\" \"float A\" [1] \"string B\" [\"b c.tx\"]");
  EXPECT_EQ(material.Displacement, "\"D\" \"float C\" [3]");
  EXPECT_EQ(material.Instancer, "\"I\" \"color E\" [1 2 3]");
}

TEST(MaterialText, AnyOtherLineEndsASurfaceAndADisplacement) {
  for (const std::string line :
       {"Attribute \"shade\" \"x\" \"y\"", "Opacity [1 1 1]", "Unknown", "# remark", "", "   "}) {
    const std::string rest = "\n\"float A\" [1]\n" + line + "\n\"float B\" [2]\n";
    EXPECT_EQ(Parsed("Surface \"S\"" + rest).Surface, "\"S\" \"float A\" [1]") << line;
    EXPECT_EQ(Parsed("Displacement \"S\"" + rest).Displacement, "\"S\" \"float A\" [1]") << line;
    EXPECT_EQ(Parsed("Instancer \"S\"" + rest).Instancer, "\"S\" \"float A\" [1] \"float B\" [2]")
        << line;
  }
}

TEST(MaterialText, NextShaderEndsAnInstancer) {
  const MaterialAttributes material =
      Parsed("Instancer \"I\"\nSurface \"S\"\n\"float A\" [1]\nColor [1 1 1]\n\"float B\" [2]\n");
  EXPECT_EQ(material.Instancer, "\"I\"");
  EXPECT_EQ(material.Surface, "\"S\" \"float A\" [1]");
}

TEST(MaterialText, LaterStatementReplacesAnEarlierOne) {
  EXPECT_EQ(Parsed("Surface \"A\"\n\"float A\" [1]\nSurface \"B\"\n").Surface, "\"B\"");
}

TEST(MaterialText, ColorIsReadWithTheGammasReciprocal) {
  EXPECT_EQ(Parsed("Color [1 0.251965 0]\n", 2).Diffuse, ON_Color(255, 128, 0));
  EXPECT_EQ(Parsed("color [0,0.2]\n").Diffuse, ON_Color(0, 51, 255));
  EXPECT_EQ(Parsed("Color [2 -1 nan]\n").Diffuse, ON_Color(255, 0, 255));
  EXPECT_EQ(Parsed("Color\n").Diffuse, ON_Color(255, 255, 255));
  // What is out of range is no part of the list.
  EXPECT_EQ(Parsed("Color [1e999 0.2 0]\n").Diffuse, ON_Color(51, 0, 255));
  EXPECT_EQ(Parsed("Color [0.5 0 1]\n", 0).Diffuse, ON_Color(0, 0, 255));
}

TEST(MaterialText, OpacityIsReadAsTransparency) {
  EXPECT_EQ(Parsed("Opacity [0.25 1 1]\n").Transparency, 0.75);
  EXPECT_EQ(Parsed("Opacity 0.25\n").Transparency, 0.75);
  EXPECT_EQ(Parsed("Opacity [2]\n").Transparency, 0);
  EXPECT_EQ(Parsed("Opacity [-2]\n").Transparency, 1);
  EXPECT_EQ(Parsed("Opacity [nan]\n").Transparency, 0);
  EXPECT_EQ(Parsed("Opacity []\n").Transparency, 0);
}

TEST(MaterialText, ShadingRateIsReadAsSamples) {
  EXPECT_EQ(Parsed("ShadingRate 0.3\n").ShadingSamples, 3);
  EXPECT_EQ(Parsed("ShadingRate [0.25]\n").ShadingSamples, 4);
  EXPECT_EQ(Parsed("ShadingRate 0.0001\n").ShadingSamples, 100);
  EXPECT_EQ(Parsed("ShadingRate nan\n").ShadingSamples, MaterialAttributes().ShadingSamples);
  EXPECT_EQ(Parsed("ShadingRate 3\n").ShadingSamples, 0);
  EXPECT_EQ(Parsed("ShadingRate 1000\n").ShadingSamples, 0);
}

TEST(MaterialText, NumberOutOfRangeLeavesTheDefault) {
  EXPECT_EQ(Parsed("ShadingRate 1e999\n").ShadingSamples, 1);
  EXPECT_EQ(Parsed("ShadingRate 1e-999\n").ShadingSamples, 1);
  EXPECT_EQ(Parsed("Opacity [1e999]\n").Transparency, 0);
  EXPECT_EQ(Parsed("Color [1e999 1e999 1e999]\n").Diffuse, ON_Color(255, 255, 255));
}

TEST(MaterialText, AttributesAreReadByCategoryAndName) {
  EXPECT_EQ(Parsed("Attribute \"identifier\" \"shadinggroup\" \"Gold\"\n").Name, "Gold");
  EXPECT_EQ(Parsed("attribute \"identifier\" \"string shadinggroup\" [Gold]\n").Name, "Gold");
  EXPECT_EQ(Parsed("Attribute \"identifier\" \"name\" \"Gold\"\n").Name, "");
  EXPECT_EQ(Parsed("Attribute \"render\" \"shadinggroup\" \"Gold\"\n").Name, "");
  const std::string shade = "Attribute \"shade\" \"string transmissionhitmode\" ";
  EXPECT_TRUE(Parsed(shade + "\"shader\"\n").ComplexShadow);
  EXPECT_FALSE(Parsed(shade + "\"Shader\"\n").ComplexShadow);
  EXPECT_FALSE(Parsed(shade + "\"primitive\"\n").ComplexShadow);
  EXPECT_FALSE(Parsed(shade).ComplexShadow);
  EXPECT_FALSE(
      Parsed("Attribute \"visibility\" \"integer instancerbase\" [0]\n").HideInstancerBase);
}

TEST(MaterialText, DisplacementModeIsReadFromTheRenderAttributes) {
  const std::string start = "Attribute \"render\" ";
  EXPECT_EQ(Parsed(start + "\"integer truedisplacement\" [1]\n").DisplacementMode, 2);
  EXPECT_EQ(Parsed(start + "\"truedisplacement\" [0]\n").DisplacementMode, 2);
  EXPECT_EQ(Parsed(start + "\"MeshDisplacement\" [1]\n").DisplacementMode, 3);
  EXPECT_EQ(Parsed(start + "\"integer meshdisplacement\" [1]\n").DisplacementMode, 1);
  const std::string both =
      start + "\"meshdisplacement\" [1]\n" + start + "\"integer truedisplacement\" [1]\n";
  EXPECT_EQ(Parsed(both).DisplacementMode, 3);
}

TEST(MaterialText, LongLineGoesOnAsANextOne) {
  const std::string start = "\"string A\" [";
  const std::string value(1999 - start.size(), 'v');
  EXPECT_EQ(Parsed("Surface \"S\"\n" + start + value + "w]\n\"float B\" [1]\n").Surface,
            "\"S\" " + start + value + "]");
}

TEST(MaterialText, LeadingTabIsNoBlank) {
  const MaterialAttributes material =
      Parsed("Surface \"S\"\n\t\"float A\" [1]\n  \"float B\" [2]\n\tOpacity [0]\n");
  EXPECT_EQ(material.Surface, "\"S\"");
  EXPECT_EQ(material.Transparency, 0);
}

TEST(MaterialText, ZeroByteEndsItsLine) {
  using namespace std::string_view_literals;
  EXPECT_EQ(Parsed("Surface \"S\0T\"\n\"float A\" [1]\n"sv).Surface, "\"S\" \"float A\" [1]");
}

TEST(MaterialText, UnbalancedTextsAreClosed) {
  EXPECT_EQ(Parsed("Surface \"S\n\"float A [1]\n").Surface, "\"S\"");
  EXPECT_EQ(Parsed("Surface \"S\"\n\"string A\" [\"b\n\"float B\" 1]2\n").Surface,
            "\"S\" \"string A\" [\"b\"] \"float B\" [12]");
  EXPECT_EQ(Parsed("Surface S\"T\n").Surface, "\"S\\042T\"");
}

TEST(MaterialFile, ComesBackFromAFile) {
  const TempFolder folder;
  MaterialAttributes material = Gold();
  material.Name = "Gölden [1] 100%d";
  material.Transparency = 0.25;
  material.ShadingSamples = 8;
  material.ComplexShadow = true;
  material.DisplacementMode = 2;
  material.Displacement = "\"VBump\" \"string TextureName\" [\"a [1\\135.tx\"]";
  material.Instancer = "\"VFur\" \"float Length\" [0.5]";
  const std::string path = folder.File("gold.omf");
  host::FileWriter file(path);
  EXPECT_TRUE(WriteMaterialFile(file, path, 2.2, material));
  ASSERT_TRUE(file.Close());

  MaterialAttributes read;
  ASSERT_TRUE(ReadMaterialFile(path, 2.2, read));
  EXPECT_EQ(read.Name, material.Name);
  EXPECT_EQ(read.Diffuse, material.Diffuse);
  EXPECT_EQ(read.Transparency, material.Transparency);
  EXPECT_EQ(read.ShadingSamples, material.ShadingSamples);
  EXPECT_EQ(read.ComplexShadow, material.ComplexShadow);
  EXPECT_EQ(read.DisplacementMode, material.DisplacementMode);
  EXPECT_EQ(read.Surface, material.Surface);
  EXPECT_EQ(read.Displacement, material.Displacement);
  EXPECT_EQ(read.Instancer, material.Instancer);
}

TEST(MaterialFile, SomeThingsDoNotComeBack) {
  MaterialAttributes material;
  material.DisplacementMode = 3;
  material.Instancer = "\"VFur\"";
  material.HideInstancerBase = true;
  material.InstancerBound = 5;
  // 1 / 0.166667 is a little less than 6.
  material.ShadingSamples = 6;
  const MaterialAttributes read = Parsed(TextFromMaterial("a", 1, material));
  EXPECT_EQ(read.DisplacementMode, 2);
  EXPECT_FALSE(read.HideInstancerBase);
  EXPECT_EQ(read.InstancerBound, 1);
  EXPECT_EQ(read.ShadingSamples, 5);
  material.DisplacementMode = 0;
  EXPECT_EQ(Parsed(TextFromMaterial("a", 1, material)).DisplacementMode, 1);
}

TEST(MaterialFile, EveryColorComesBack) {
  MaterialAttributes material;
  for (const double gamma : {0.1, 1.0, 1.8, 2.2, 10.0}) {
    for (int i = 0; i < 256; ++i) {
      material.Diffuse = ON_Color(i, 255 - i, i / 2);
      EXPECT_EQ(Parsed(TextFromMaterial("a", gamma, material), gamma).Diffuse, material.Diffuse);
    }
  }
}

TEST(MaterialFile, IsWrittenBehindWhatIsThere) {
  const TempFolder folder;
  const std::string path = folder.File("scene.rib");
  host::FileWriter file(path);
  file.Write("WorldBegin\n");
  EXPECT_TRUE(WriteMaterialFile(file, "b.omf", 1, {}));
  file.Write("WorldEnd\n");
  ASSERT_TRUE(file.Close());
  EXPECT_EQ(FileContent(path), "WorldBegin\n" + TextFromMaterial("b.omf", 1, {}) + "WorldEnd\n");
}

TEST(MaterialFile, FullDiskIsToldWhenTheFileIsClosed) {
  host::FileWriter file("/dev/full");
  EXPECT_TRUE(WriteMaterialFile(file, "a.omf", 1, Gold()));
  EXPECT_FALSE(file.Close());
}

TEST(MaterialFile, WhatCannotBeReadLeavesTheMaterialAlone) {
  const TempFolder folder;
  MaterialAttributes material = Gold();
  EXPECT_FALSE(ReadMaterialFile(folder.File("missing.omf"), 1, material));
  EXPECT_FALSE(ReadMaterialFile(folder.Path().string(), 1, material));
  EXPECT_FALSE(ReadMaterialFile("", 1, material));
  WriteFileContent(folder.File("huge.omf"), "Surface \"S\"\n");
  std::filesystem::resize_file(folder.File("huge.omf"), (16 << 20) + 1);
  EXPECT_FALSE(ReadMaterialFile(folder.File("huge.omf"), 1, material));
  EXPECT_EQ(material.Name, "Gold");
}

TEST(MaterialFile, ReadingStartsFromTheDefaults) {
  const TempFolder folder;
  WriteFileContent(folder.File("a.omf"), "Color [0 0 0]\r\n");
  MaterialAttributes material = Gold();
  ASSERT_TRUE(ReadMaterialFile(folder.Path().string() + "\\a.omf", 1, material));
  EXPECT_EQ(material.Diffuse, ON_Color(0, 0, 0));
  EXPECT_EQ(material.Name, "");
  EXPECT_EQ(material.Surface, "\"Rhino\"");
}

TEST(MaterialFile, ManyParametersAreRead) {
  const TempFolder folder;
  std::string text = "Surface \"S\"\n";
  std::string call = "\"S\"";
  for (int i = 0; i < 50000; ++i) {
    text += "  \"float A\" [1]\n";
    call += " \"float A\" [1]";
  }
  WriteFileContent(folder.File("a.omf"), text);
  MaterialAttributes material;
  ASSERT_TRUE(ReadMaterialFile(folder.File("a.omf"), 1, material));
  EXPECT_EQ(material.Surface, call);
}

}  // namespace
}  // namespace orv

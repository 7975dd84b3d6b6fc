#include "shading/shader_file.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "shading/call_string.h"
#include "shading/shader_call.h"
#include "shading/shader_params.h"
#include "support/shader_writer.h"
#include "support/temp_folder.h"

namespace orv {
namespace {

struct Reading {
  bool Success = false;
  std::string CallText = "before";
  std::string Kind = "before";
};

Reading Read(std::string_view bytes) {
  Reading reading;
  reading.Success = ParseShaderFile(bytes, reading.CallText, reading.Kind);
  return reading;
}

void ExpectRejected(std::string_view bytes) {
  const Reading reading = Read(bytes);
  EXPECT_FALSE(reading.Success);
  EXPECT_EQ(reading.CallText, "");
  EXPECT_EQ(reading.Kind, "");
}

void ExpectEmpty(std::string_view bytes) {
  const Reading reading = Read(bytes);
  EXPECT_TRUE(reading.Success);
  EXPECT_EQ(reading.CallText, "");
  EXPECT_EQ(reading.Kind, "");
}

ShaderFile ShaderWith(ShaderFileParam param) {
  ShaderFile file;
  file.Name = "X";
  file.Params = {std::move(param)};
  return file;
}

std::string CallTextWith(ShaderFileParam param) {
  return Read(ShaderWith(std::move(param)).Bytes()).CallText;
}

ShaderFile Plastic() {
  ShaderFile file;
  file.Name = "VPlastic";
  file.Words = 3;
  file.Params = {{1, "Diffuse", FloatBytes({0.5F})},
                 {2, "SpecularColor", FloatBytes({1, 1, 1})},
                 {0, "ColorMapName", StringBytes("")},
                 {1, "Size", FloatBytes({1, 2, 3}), 3}};
  return file;
}

TEST(ReadShaderFile, GivesKindAndCallOfAFile) {
  const TempFolder folder;
  WriteFileContent(folder.Path() / "VPlastic.slb", Plastic().Bytes());
  Reading reading;
  EXPECT_TRUE(ReadShaderFile(folder.File("VPlastic.slb"), reading.CallText, reading.Kind));
  EXPECT_EQ(reading.Kind, "Surface");
  EXPECT_EQ(reading.CallText, R"("VPlastic" "float Diffuse" [0.5] "color SpecularColor" [1 1 1])"
                              R"( "string ColorMapName" [""] "float[3] Size" [1 2 3])");
}

TEST(ReadShaderFile, FailsWithoutAFile) {
  const TempFolder folder;
  for (const char* name : {"missing.slb", "."}) {
    Reading reading;
    EXPECT_FALSE(ReadShaderFile(folder.File(name), reading.CallText, reading.Kind)) << name;
    EXPECT_EQ(reading.CallText, "") << name;
    EXPECT_EQ(reading.Kind, "") << name;
  }
}

TEST(ReadShaderFile, AnEmptyFileIsAShaderOfNoKind) {
  const TempFolder folder;
  WriteFileContent(folder.Path() / "empty.slb", "");
  Reading reading;
  EXPECT_TRUE(ReadShaderFile(folder.File("empty.slb"), reading.CallText, reading.Kind));
  EXPECT_EQ(reading.Kind, "");
}

// A shader whose one value ends with the byte `end` of the file.
std::string ShaderThatEndsAt(std::size_t end) {
  ShaderFile file = ShaderWith({1, "A", FloatBytes({0.25F})});
  const std::size_t headSize = file.Bytes().size() - 4;
  constexpr std::uint16_t kMostWords = 0xFFFF;
  EXPECT_LE(end - headSize - 4, std::size_t{kMostWords} * 4);
  file.Words = static_cast<std::uint16_t>((end - headSize - 4) / 4);
  return file.Bytes();
}

TEST(ReadShaderFile, ReadsUpToItsLimit) {
  constexpr std::size_t kLimit = 256236;
  const TempFolder folder;
  const std::string fitting = ShaderThatEndsAt(kLimit);
  ASSERT_EQ(fitting.size(), kLimit);
  WriteFileContent(folder.Path() / "fits.slb", fitting + std::string(1 << 20, 'x'));
  WriteFileContent(folder.Path() / "long.slb", ShaderThatEndsAt(kLimit + 4));
  Reading reading;
  EXPECT_TRUE(ReadShaderFile(folder.File("fits.slb"), reading.CallText, reading.Kind));
  EXPECT_EQ(reading.CallText, R"("X" "float A" [0.25])");
  EXPECT_FALSE(ReadShaderFile(folder.File("long.slb"), reading.CallText, reading.Kind));
  EXPECT_EQ(reading.CallText, "");
  EXPECT_EQ(reading.Kind, "");
}

TEST(ParseShaderFile, AFileOfAtMostFourBytesIsAShaderOfNoKind) {
  const std::string bytes = Plastic().Bytes();
  for (std::size_t size = 0; size <= 4; ++size) ExpectEmpty(bytes.substr(0, size));
}

TEST(ParseShaderFile, RejectsAFileThatEndsWithinWhatItTells) {
  const std::string bytes = Plastic().Bytes();
  for (std::size_t size = 5; size < bytes.size(); ++size) ExpectRejected(bytes.substr(0, size));
  EXPECT_TRUE(Read(bytes + "more").Success);
}

TEST(ParseShaderFile, KnowsEightKinds) {
  const char* kinds[] = {"Surface",     "Displacement", "Atmosphere", "Imager",
                         "LightSource", "Deformation",  "Procedure",  "Instancer"};
  ShaderFile file = Plastic();
  for (const char* kind : kinds) {
    EXPECT_EQ(Read(file.Bytes()).Kind, kind);
    ++file.Kind;
  }
  for (const int kind : {8, 127, -1, -128}) {
    file.Kind = static_cast<std::int8_t>(kind);
    ExpectRejected(file.Bytes());
  }
}

TEST(ParseShaderFile, DoesNotLookAtTheTag) {
  std::string bytes = Plastic().Bytes();
  bytes.replace(0, 4, "????");
  EXPECT_EQ(Read(bytes).Kind, "Surface");
}

TEST(ParseShaderFile, AShaderWithoutParametersIsItsName) {
  ShaderFile file;
  file.Name = "null";
  EXPECT_EQ(Read(file.Bytes()).CallText, "\"null\"");
  file.Name = "";
  EXPECT_EQ(Read(file.Bytes()).CallText, "\"\"");
}

TEST(ParseShaderFile, DeclaresEachType) {
  const std::string three = FloatBytes({1, 2, 3});
  EXPECT_EQ(CallTextWith({0, "A", StringBytes("wood.tx")}), R"("X" "string A" ["wood.tx"])");
  EXPECT_EQ(CallTextWith({1, "A", FloatBytes({-2})}), R"("X" "float A" [-2])");
  EXPECT_EQ(CallTextWith({2, "A", three}), R"("X" "color A" [1 2 3])");
  EXPECT_EQ(CallTextWith({3, "A", three}), R"("X" "point A" [1 2 3])");
  EXPECT_EQ(CallTextWith({4, "A", three}), R"("X" "vector A" [1 2 3])");
  EXPECT_EQ(CallTextWith({5, "A", three}), R"("X" "normal A" [1 2 3])");
  EXPECT_EQ(CallTextWith({6, "A", FloatBytes({1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 7, 8, 9, 1})}),
            R"("X" "matrix A" [1 0 0 0 0 1 0 0 0 0 1 0 7 8 9 1])");
}

TEST(ParseShaderFile, AnUnknownTypeHasNeitherWordNorValue) {
  EXPECT_EQ(CallTextWith({7, "A", ""}), R"("X" " A" [])");
  EXPECT_EQ(CallTextWith({-1, "A", "", 3}), R"("X" "[3] A" [  ])");
}

TEST(ParseShaderFile, WritesStorageWordsInFront) {
  const std::string one = FloatBytes({1});
  EXPECT_EQ(CallTextWith({1, "A", one, 1, 1}), R"("X" "varying float A" [1])");
  EXPECT_EQ(CallTextWith({1, "A", one, 1, 2}), R"("X" "output float A" [1])");
  EXPECT_EQ(CallTextWith({1, "A", one, 1, 3}), R"("X" "output varying float A" [1])");
  EXPECT_EQ(CallTextWith({1, "A", one, 1, 4}), R"("X" "float A" [1])");
}

TEST(ParseShaderFile, WritesTheElementsOfAnArray) {
  EXPECT_EQ(CallTextWith({2, "A", FloatBytes({1, 0, 0, 0, 0.5F, 1}), 2}),
            R"("X" "color[2] A" [1 0 0 0 0.5 1])");
  EXPECT_EQ(CallTextWith({0, "A", StringBytes("a") + StringBytes("b"), 2}),
            R"("X" "string[2] A" ["a" "b"])");
  EXPECT_EQ(CallTextWith({1, "A", "", 0}), R"("X" "float A" [])");
}

TEST(ParseShaderFile, WritesSixDigitsWithAPoint) {
  EXPECT_EQ(CallTextWith({1, "A", FloatBytes({0.1F})}), R"("X" "float A" [0.1])");
  EXPECT_EQ(CallTextWith({1, "A", FloatBytes({1.0F / 3, 1e-20F}), 2}),
            R"("X" "float[2] A" [0.333333 1e-20])");
}

TEST(ParseShaderFile, CutsATextAtTheEndOfItsField) {
  ShaderFile file = ShaderWith({0, std::string(24, 'p'), std::string(160, 'v')});
  file.Name = std::string(48, 's');
  EXPECT_EQ(Read(file.Bytes()).CallText, '"' + std::string(48, 's') + "\" \"string " +
                                             std::string(24, 'p') + "\" [\"" +
                                             std::string(160, 'v') + "\"]");
}

TEST(ParseShaderFile, NamesAreLeftWithoutWhatACallCanNotHold) {
  ShaderFile file = ShaderWith({0, "A\"]\n", StringBytes("")});
  file.Name = "Gr\xFC\"]n";
  EXPECT_EQ(Read(file.Bytes()).CallText, R"("Grün" "string A" [""])");
}

// The text in the call is the one that the file has.
std::string DefaultOf(const std::string& field) {
  std::string value;
  EXPECT_TRUE(GetStringParam(CallTextWith({0, "A", field}), "A", value));
  return DecodeCallString(value);
}

TEST(ParseShaderFile, DefaultTextsAreComplete) {
  EXPECT_EQ(CallTextWith({0, "A", StringBytes("maps/wood [1].tx")}),
            R"("X" "string A" ["maps/wood [1\135.tx"])");
  for (const std::string text :
       {"maps/wood [1].tx", "a\"b\".tx", "]", "a\tb\n", "Größe.tx", "C:\\maps\\wood.tx"}) {
    EXPECT_EQ(DefaultOf(StringBytes(text)), text);
  }
  EXPECT_EQ(DefaultOf(StringBytes("Gr\xF6\xDF"
                                  "e \x80.tx")),
            "Größe €.tx");
}

TEST(ParseShaderFile, ATextIsCutBetweenCharacters) {
  const std::string start(158, 'v');
  EXPECT_EQ(DefaultOf(start + "ö"), start + "ö");
  EXPECT_EQ(DefaultOf(start + "v\xC3"), start + "v");
  ShaderFile file;
  file.Name = "Größe" + std::string(40, 's') + "\xE6";
  ASSERT_EQ(file.Name.size(), 48);
  EXPECT_EQ(Read(file.Bytes()).CallText, "\"Größe" + std::string(40, 's') + '"');
}

// Each byte of the longest text becomes four.
TEST(ParseShaderFile, TheFullestFileOfTextsIsTaken) {
  std::string field(160, ']');
  std::string texts;
  while (texts.size() + field.size() < 255900) texts += field;
  const auto count = static_cast<std::uint16_t>(texts.size() / field.size());
  const Reading reading = Read(ShaderWith({0, "A", texts, count}).Bytes());
  EXPECT_TRUE(reading.Success);
  EXPECT_GT(reading.CallText.size(), 1000000);
}

std::string WithIndex(int index, std::uint16_t length = 1) {
  ShaderFileParam param{1, "A", FloatBytes({1, 2})};
  param.Index = static_cast<std::int16_t>(index);
  param.Length = length;
  ShaderFile file = ShaderWith(param);
  file.Words = 2;
  return file.Bytes();
}

TEST(ParseShaderFile, TheFirstCellHasTheIndexFifty) {
  EXPECT_EQ(Read(WithIndex(50)).CallText, R"("X" "float A" [1])");
  EXPECT_EQ(Read(WithIndex(51)).CallText, R"("X" "float A" [2])");
  EXPECT_EQ(Read(WithIndex(50, 2)).CallText, R"("X" "float[2] A" [1 2])");
}

// The four bytes in front of the first cell are within the file, so they are taken.
TEST(ParseShaderFile, AnIndexBelowFiftyLeadsInFrontOfTheValues) {
  ShaderFileParam param{1, "A", FloatBytes({1})};
  param.Index = 49;
  ShaderFile file = ShaderWith(param);
  file.Words = 1;
  std::string bytes = file.Bytes();
  bytes.replace(bytes.size() - 8, 4, FloatBytes({0.75F}));
  EXPECT_EQ(Read(bytes).CallText, R"("X" "float A" [0.75])");
}

TEST(ParseShaderFile, RejectsAnIndexOrLengthThatLeadsOutside) {
  for (const int index : {52, 32767, -32768, -20}) ExpectRejected(WithIndex(index));
  ExpectRejected(WithIndex(50, 3));
  ExpectRejected(WithIndex(51, 2));
  ExpectRejected(WithIndex(50, 0xFFFF));
}

TEST(ParseShaderFile, WithoutValuesAnIndexLeadsNowhere) {
  for (const int index : {-32768, -20, 49, 52, 32767})
    EXPECT_EQ(Read(WithIndex(index, 0)).CallText, R"("X" "float A" [])") << index;
}

TEST(ParseShaderFile, RejectsCountsThatLeadOutside) {
  std::string bytes = Plastic().Bytes();
  bytes.replace(60, 2, "\xFF\xFF");
  ExpectRejected(bytes);
  bytes = Plastic().Bytes();
  bytes.replace(62, 2, "\xFF\xFF");
  ExpectRejected(bytes);
}

// A small file that would tell the same numbers again and again.
TEST(ParseShaderFile, RejectsAFileThatMakesTooMuchText) {
  ShaderFile file;
  file.Name = "X";
  file.Params.assign(3000, {1, "A", "", 30000, 0, 50});
  file.Params.back().Value = std::string(120000, '1');
  ExpectRejected(file.Bytes());
  file.Params.assign(7000, {7, "A", "", 0xFFFF});
  ExpectRejected(file.Bytes());
}

TEST(ParseShaderFile, ALargeFileHasAllItsParameters) {
  ShaderFile file;
  file.Name = "X";
  for (int i = 0; i < 4000; ++i)
    file.Params.push_back({1, "Param" + std::to_string(i), "", 1, 0, 50});
  file.Params.back().Value = FloatBytes({0.75F});
  const Reading reading = Read(file.Bytes());
  ASSERT_TRUE(reading.Success);
  double value = 0;
  EXPECT_TRUE(GetFloatParam(reading.CallText, "Param3999", value));
  EXPECT_EQ(value, 0.75);
}

// As many numbers as a file can hold, each as long as they get.
TEST(ParseShaderFile, TheFullestFileIsTaken) {
  const std::string number = FloatBytes({-1.23456e-30F});
  std::string numbers;
  while (numbers.size() < 255900) numbers += number;
  const auto count = static_cast<std::uint16_t>(numbers.size() / 4);
  const Reading reading = Read(ShaderWith({1, "A", numbers, count}).Bytes());
  EXPECT_TRUE(reading.Success);
  EXPECT_GT(reading.CallText.size(), 800000);
}

TEST(ParseShaderFile, ParametersAreReadByTheEditor) {
  std::string name;
  const auto params = ParseParamList(Read(Plastic().Bytes()).CallText, name, 1);
  EXPECT_EQ(name, "VPlastic");
  ASSERT_EQ(params.size(), 4);
  EXPECT_EQ(params[3].Text, "1,2,3");
}

}  // namespace
}  // namespace orv

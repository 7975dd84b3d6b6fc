#include "shading/texture_converter.h"

#include <signal.h>

#include <cmath>
#include <limits>

#include "host/system/interrupt.h"
#include "texture_fixture.h"

namespace orv {
namespace {

using testing::ElementsAre;
using testing::SizeIs;

class TextureConverterTest : public TextureFixture {
 protected:
  std::string Convert(std::string_view source, double gamma = 1,
                      std::string_view mode = "periodic") {
    return textures_.ConvertTexture(source, mode, true, gamma);
  }
  // A texture that stands where that of the image would be made.
  std::string OldTexture(std::string_view name) const {
    std::string path = folder_.File(name);
    WriteFileContent(path, "old texture");
    return path;
  }
};

TEST_F(TextureConverterTest, MakesATextureBesideItsImage) {
  const std::string image = Image("wood.jpg");
  const std::string texture = folder_.File("wood_periodic_g22.tx");
  EXPECT_EQ(Convert(image, 2.2), texture);
  EXPECT_EQ(Told(), "Converted texture to " + texture + "\n");
  EXPECT_EQ(FileContent(texture), "periodic 0.454545 " + image + "\n");
}

TEST_F(TextureConverterTest, StartsTheConverterHiddenWithItsArguments) {
  const std::string image = Image("wood.jpg");
  Convert(image, 1.8, "clamp");
  const auto runs = bench_.Runs();
  ASSERT_THAT(runs, SizeIs(1));
  EXPECT_THAT(runs[0].command, ElementsAre("mapforge.exe", "-mode", "clamp", "-g", "0.555556",
                                           image, folder_.File("wood_clamp_g18.tx")));
  EXPECT_EQ(runs[0].session, runs[0].process);
  EXPECT_THAT(runs[0].streams, ElementsAre("/dev/null", "/dev/null", "/dev/null"));
}

TEST_F(TextureConverterTest, NameTellsTheGammaUnlessItIsOne) {
  const std::string image = Image("wood.jpg");
  const auto ending = [&](double gamma) {
    const std::string texture = Convert(image, gamma);
    return texture.substr(folder_.File("wood").size());
  };
  EXPECT_EQ(ending(1), "_periodic.tx");
  EXPECT_EQ(ending(1.8), "_periodic_g18.tx");
  EXPECT_EQ(ending(2.2), "_periodic_g22.tx");
  EXPECT_EQ(ending(0.05), "_periodic_g1.tx");
  EXPECT_EQ(ending(0.1), "_periodic_g1.tx");
  EXPECT_EQ(ending(9.99), "_periodic_g99.tx");
  EXPECT_EQ(ending(10), "_periodic_g99.tx");
  EXPECT_EQ(ending(1e300), "_periodic_g99.tx");
  EXPECT_EQ(ending(2.25), "_periodic_g22.tx");
}

TEST_F(TextureConverterTest, GammaInSinglePrecisionHasTheSameName) {
  const std::string image = Image("wood.jpg");
  for (int tenths = 1; tenths < 100; ++tenths) {
    if (tenths == 10) continue;
    const float gamma = static_cast<float>(tenths) / 10;
    const std::string texture = folder_.File("wood_periodic_g" + std::to_string(tenths) + ".tx");
    EXPECT_EQ(Convert(image, static_cast<double>(gamma)), texture);
    EXPECT_EQ(Convert(image, tenths / 10.0), texture);
  }
}

TEST_F(TextureConverterTest, GammaWithoutAReciprocalIsOne) {
  const std::string image = Image("wood.jpg");
  for (const double gamma : {0.0, -2.2, std::nan(""), std::numeric_limits<double>::infinity(),
                             std::numeric_limits<double>::denorm_min()}) {
    EXPECT_EQ(Convert(image, gamma), folder_.File("wood_periodic.tx"));
  }
  ASSERT_THAT(bench_.Runs(), SizeIs(1));
  EXPECT_EQ(bench_.Runs()[0].command[4], "1");
}

TEST_F(TextureConverterTest, ExtensionHasAtMostFourCharacters) {
  EXPECT_EQ(Convert(Image("a.tiff")), folder_.File("a_periodic.tx"));
  EXPECT_EQ(Convert(Image("b.\u00e4\u00e4\u00e4\u00e4")), folder_.File("b_periodic.tx"));
  EXPECT_EQ(Convert(Image("c.photo")), folder_.File("c.photo_periodic.tx"));
  EXPECT_EQ(Convert(Image("d.1.jpg")), folder_.File("d.1_periodic.tx"));
  EXPECT_EQ(Convert(Image("e")), folder_.File("e_periodic.tx"));
  EXPECT_EQ(Convert(Image("f.")), folder_.File("f_periodic.tx"));
  // The dot of a folder is none of the file.
  std::filesystem::create_directory(folder_.Path() / "g.v2");
  EXPECT_EQ(Convert(Image("g.v2/h")), folder_.File("g.v2/h_periodic.tx"));
}

TEST_F(TextureConverterTest, MakesTexturesInTheCacheFolder) {
  std::filesystem::create_directory(folder_.Path() / "cache");
  const std::string image = Image("wood.jpg");
  const std::string texture = folder_.File("cache/wood_periodic_g22.tx");
  for (const std::string ending : {"", "\\", "/"}) {
    textures_.TextureCacheDir = folder_.File("cache") + ending;
    EXPECT_EQ(Convert(image, 2.2), texture);
  }
  EXPECT_THAT(bench_.Runs(), SizeIs(1));
  EXPECT_TRUE(std::filesystem::exists(texture));
}

TEST_F(TextureConverterTest, NamesHaveForwardSlashes) {
  std::filesystem::create_directory(folder_.Path() / "maps");
  Image("maps/wood.jpg");
  const std::string source = folder_.Path().string() + "\\maps\\wood.jpg";
  EXPECT_EQ(Convert(source), folder_.File("maps/wood_periodic.tx"));
  EXPECT_EQ(bench_.Runs().at(0).command[5], folder_.File("maps/wood.jpg"));
  textures_.TextureCacheDir = folder_.Path().string() + "\\maps\\";
  EXPECT_EQ(Convert(source, 1, "clamp"), folder_.File("maps/wood_clamp.tx"));
}

TEST_F(TextureConverterTest, TextureThatIsNotOlderIsUsedAgain) {
  const std::string image = Image("wood.jpg");
  const std::string texture = OldTexture("wood_periodic.tx");
  for (const int seconds : {0, 5}) {
    SetTime(image, 0);
    SetTime(texture, seconds);
    EXPECT_EQ(Convert(image), texture);
  }
  EXPECT_EQ(Told(), "");
  EXPECT_THAT(bench_.Runs(), SizeIs(0));
  EXPECT_EQ(FileContent(texture), "old texture");
}

TEST_F(TextureConverterTest, OlderTextureIsMadeAnew) {
  const std::string image = Image("wood.jpg");
  const std::string texture = OldTexture("wood_periodic.tx");
  SetTime(image, 1);
  SetTime(texture, 0);
  EXPECT_EQ(Convert(image), texture);
  EXPECT_EQ(Told(), "Converted texture to " + texture + "\n");
  EXPECT_EQ(FileContent(texture), "periodic 1 " + image + "\n");
  EXPECT_EQ(Convert(image), texture);
  EXPECT_THAT(bench_.Runs(), SizeIs(1));
}

TEST_F(TextureConverterTest, OlderTextureThatCouldNotBeMadeAnewIsTakenAsMade) {
  bench_.SetAct("fail");
  const std::string image = Image("wood.jpg");
  const std::string texture = OldTexture("wood_periodic.tx");
  SetTime(image, 1);
  SetTime(texture, 0);
  EXPECT_EQ(Convert(image), texture);
  EXPECT_EQ(Told(), "Converted texture to " + texture + "\n");
}

TEST_F(TextureConverterTest, FilesThatNeedNoConversionStay) {
  for (const std::string name : {"a.tx", "pic.AI", "pic.ai", "pic.aI", "pic.eps", "steps"}) {
    EXPECT_EQ(Convert(name), name);
  }
  EXPECT_EQ(Told(), "");
}

TEST_F(TextureConverterTest, OtherEndingsAreConverted) {
  for (const std::string name : {"pic.TX", "pic.EPS", "pic.tX", ".tx", "eps", ".ai", "tx", ""}) {
    EXPECT_EQ(Convert(name), name);
    EXPECT_EQ(Told(), "Texture file not found: " + name + "\n");
  }
}

TEST_F(TextureConverterTest, NothingIsDoneWhenTexturesAreNotConverted) {
  const std::string image = Image("wood.jpg");
  EXPECT_EQ(textures_.ConvertTexture(image, "periodic", false, 2.2), image);
  EXPECT_EQ(textures_.ConvertTexture("missing.jpg", "periodic", false, 2.2), "missing.jpg");
  EXPECT_EQ(Told(), "");
  EXPECT_THAT(bench_.Runs(), SizeIs(0));
}

TEST_F(TextureConverterTest, MissingImageIsToldOnce) {
  const std::string image = folder_.File("missing 100%d.jpg");
  EXPECT_EQ(Convert(image), image);
  EXPECT_EQ(Told(), "Texture file not found: " + image + "\n");
  EXPECT_EQ(Convert(image, 2.2, "clamp"), image);
  EXPECT_EQ(Told(), "");
  textures_.ForgetFailures();
  EXPECT_EQ(Convert(image), image);
  EXPECT_EQ(Told(), "Texture file not found: " + image + "\n");
}

TEST_F(TextureConverterTest, FolderOrHostileNameIsNoImage) {
  using namespace std::string_literals;
  Image("a.jpg");
  for (const std::string& name :
       {folder_.Path().string(), folder_.File("a.jpg\0b"s), std::string(1000, 'x'), "/dev/null"s}) {
    EXPECT_EQ(Convert(name), name);
    EXPECT_EQ(Told(), "Texture file not found: " + name + "\n");
  }
}

TEST_F(TextureConverterTest, LongNameIsToldByItsBeginning) {
  std::string name = std::string(5000, 'x') + ".jpg";
  EXPECT_EQ(Convert(name), name);
  EXPECT_EQ(Told(), "Texture file not found: " + std::string(1000, 'x') + "...\n");
  name = std::string(999, 'y') + "\u00e4.jpg";
  EXPECT_EQ(Convert(name), name);
  EXPECT_EQ(Told(), "Texture file not found: " + std::string(999, 'y') + "...\n");
}

TEST_F(TextureConverterTest, NameThatBeginsWithADashIsNoOption) {
  Image("-mode.jpg");
  const std::filesystem::path before = std::filesystem::current_path();
  std::filesystem::current_path(folder_.Path());
  EXPECT_EQ(Convert("-mode.jpg"), "-mode_periodic.tx");
  std::filesystem::current_path(before);
  EXPECT_EQ(Told(), "Converted texture to -mode_periodic.tx\n");
  EXPECT_THAT(bench_.Runs().at(0).command, ElementsAre("mapforge.exe", "-mode", "periodic", "-g",
                                                       "1", "./-mode.jpg", "./-mode_periodic.tx"));
  EXPECT_TRUE(std::filesystem::exists(folder_.File("-mode_periodic.tx")));
}

TEST_F(TextureConverterTest, FailureOfTheConverterIsToldOnce) {
  for (const std::string act : {"fail", "no-target"}) {
    bench_.SetAct(act);
    const std::string image = Image(act + ".jpg");
    EXPECT_EQ(Convert(image), image);
    EXPECT_EQ(Told(), "Texture conversion failed for " + image + "\n");
    EXPECT_EQ(Convert(image), image);
    EXPECT_EQ(Told(), "");
  }
  EXPECT_THAT(bench_.Runs(), SizeIs(2));
}

TEST_F(TextureConverterTest, ConverterThatIsNotThereIsAFailure) {
  const ScopedEnvironment path("PATH", folder_.Path().string());
  const std::string image = Image("wood.jpg");
  EXPECT_EQ(Convert(image), image);
  EXPECT_EQ(Told(), "Texture conversion failed for " + image + "\n");
}

TEST_F(TextureConverterTest, ConverterThatHangsIsEndedAfterTheLimit) {
  EXPECT_EQ(textures_.TimeLimit, std::chrono::seconds(120));
  bench_.SetAct("hang");
  textures_.TimeLimit = std::chrono::milliseconds(100);
  const std::string image = Image("wood.jpg");
  const auto begin = std::chrono::steady_clock::now();
  EXPECT_EQ(Convert(image), image);
  const auto duration = std::chrono::steady_clock::now() - begin;
  EXPECT_GE(duration, std::chrono::milliseconds(100));
  EXPECT_LT(duration, std::chrono::seconds(20));
  EXPECT_EQ(Told(), "Texture conversion failed for " + image + "\n");
  const auto runs = bench_.Runs();
  ASSERT_THAT(runs, SizeIs(1));
  EXPECT_NE(kill(runs[0].process, 0), 0);
}

TEST_F(TextureConverterTest, FailedImageIsTriedAgainWhenForgotten) {
  bench_.SetAct("fail");
  const std::string image = Image("wood.jpg");
  EXPECT_EQ(Convert(image), image);
  bench_.SetAct("");
  EXPECT_EQ(Convert(image), image);
  textures_.ForgetFailures();
  EXPECT_EQ(Convert(image), folder_.File("wood_periodic.tx"));
}

TEST_F(TextureConverterTest, InterruptedConversionIsNoFailureAndLeavesNoTexture) {
  bench_.SetAct("hang");
  const std::string image = Image("wood.jpg");
  host::RequestInterrupt();
  EXPECT_EQ(Convert(image), image);
  host::ClearInterrupt();
  EXPECT_EQ(Told(), "");
  bench_.SetAct("");
  EXPECT_EQ(Convert(image), folder_.File("wood_periodic.tx"));
}

TEST_F(TextureConverterTest, HalfMadeTextureOfAnInterruptedConversionIsRemoved) {
  // A converter that begins its target and goes on until it is ended; it presses Ctrl-C itself.
  std::filesystem::create_directory(folder_.Path() / "bin");
  const std::string program = folder_.File("bin/mapforge");
  WriteFileContent(program, "#!/bin/sh\necho half > \"$6\"\nkill -INT $PPID\nsleep 60\n");
  std::filesystem::permissions(program, std::filesystem::perms::owner_all);
  const ScopedEnvironment path("PATH", folder_.File("bin") + ":/usr/bin:/bin");
  struct sigaction old = {};
  sigaction(SIGINT, nullptr, &old);
  host::CatchInterrupts();
  const std::string image = Image("wood.jpg");
  EXPECT_EQ(Convert(image), image);
  EXPECT_TRUE(host::InterruptRequested());
  host::ClearInterrupt();
  sigaction(SIGINT, &old, nullptr);
  EXPECT_EQ(Told(), "");
  EXPECT_FALSE(std::filesystem::exists(folder_.File("wood_periodic.tx")));
}

TEST_F(TextureConverterTest, ExportLooksAtEachImageOnce) {
  const std::string image = Image("wood.jpg");
  const std::string texture = folder_.File("wood_periodic.tx");
  textures_.BeginExport();
  EXPECT_EQ(Convert(image), texture);
  // Neither is looked at again, so their absence isn't seen.
  std::filesystem::remove(texture);
  std::filesystem::remove(image);
  EXPECT_EQ(Convert(image), texture);
  // Another mode or gamma is another texture.
  EXPECT_EQ(Convert(image, 2.2), image);
  EXPECT_EQ(Told(),
            "Converted texture to " + texture + "\nTexture file not found: " + image + "\n");
  textures_.EndExport();
  textures_.ForgetFailures();
  EXPECT_EQ(Convert(image), image);
  EXPECT_EQ(Told(), "Texture file not found: " + image + "\n");
}

TEST_F(TextureConverterTest, NextExportLooksAgain) {
  const std::string image = Image("wood.jpg");
  const std::string texture = folder_.File("wood_periodic.tx");
  textures_.BeginExport();
  Convert(image);
  textures_.EndExport();
  std::filesystem::remove(texture);
  textures_.BeginExport();
  EXPECT_EQ(Convert(image), texture);
  textures_.EndExport();
  EXPECT_THAT(bench_.Runs(), SizeIs(2));
}

TEST_F(TextureConverterTest, OutsideOfAnExportNothingIsRemembered) {
  const std::string image = Image("wood.jpg");
  Convert(image);
  std::filesystem::remove(folder_.File("wood_periodic.tx"));
  Convert(image);
  EXPECT_THAT(bench_.Runs(), SizeIs(2));
}

TEST_F(TextureConverterTest, ParameterNeedsNoNewValue) {
  std::string converted = "as it was";
  EXPECT_FALSE(textures_.ConvertTextureParam("", converted, "periodic", true, 1));
  for (const std::string name : {"a.tx", "pic.AI", "pic.eps", "wood [1\\135.tx"}) {
    EXPECT_FALSE(textures_.ConvertTextureParam(name, converted, "periodic", true, 1));
  }
  EXPECT_FALSE(textures_.ConvertTextureParam(Image("wood.jpg"), converted, "periodic", false, 1));
  EXPECT_EQ(converted, "as it was");
  EXPECT_EQ(Told(), "");
}

TEST_F(TextureConverterTest, ParameterGetsWhicheverNameCameOut) {
  std::string converted;
  EXPECT_TRUE(textures_.ConvertTextureParam(Image("wood.jpg"), converted, "clamp", true, 2.2));
  EXPECT_EQ(converted, folder_.File("wood_clamp_g22.tx"));
  for (int i = 0; i < 2; ++i) {
    EXPECT_TRUE(textures_.ConvertTextureParam("C:\\no\\b.jpg", converted, "clamp", true, 1));
    EXPECT_EQ(converted, "C:\\no\\b.jpg");
  }
  EXPECT_TRUE(textures_.ConvertTextureParam("pic.TX", converted, "clamp", true, 1));
  EXPECT_EQ(converted, "pic.TX");
}

TEST_F(TextureConverterTest, EscapedNameOfAParameterIsThatOfAFile) {
  std::string converted;
  const std::string image = Image("wo\"od [1].jpg");
  EXPECT_TRUE(textures_.ConvertTextureParam(folder_.File("wo\\042od [1\\135.jpg"), converted,
                                            "periodic", true, 1));
  EXPECT_EQ(converted, folder_.File("wo\\042od [1\\135_periodic.tx"));
  EXPECT_EQ(Told(), "Converted texture to " + folder_.File("wo\"od [1]_periodic.tx") + "\n");
  EXPECT_EQ(bench_.Runs().at(0).command[5], image);

  EXPECT_TRUE(textures_.ConvertTextureParam("no\\012pe.jpg", converted, "periodic", true, 1));
  EXPECT_EQ(converted, "no\\012pe.jpg");
  EXPECT_EQ(Told(), "Texture file not found: no\npe.jpg\n");
}

TEST_F(TextureConverterTest, FileThatIsThereIsNoEscapedName) {
  std::filesystem::create_directory(folder_.Path() / "maps");
  Image("maps/012.jpg");
  const std::string typed = folder_.File("maps") + "\\012.jpg";
  std::string converted;
  textures_.BeginExport();
  for (int i = 0; i < 2; ++i) {
    EXPECT_TRUE(textures_.ConvertTextureParam(typed, converted, "periodic", true, 1));
    EXPECT_EQ(converted, folder_.File("maps/012_periodic.tx"));
  }
  textures_.EndExport();
  EXPECT_THAT(bench_.Runs(), SizeIs(1));
}

}  // namespace
}  // namespace orv

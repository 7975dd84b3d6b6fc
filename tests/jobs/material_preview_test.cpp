#include "jobs/material_preview.h"

#include <gmock/gmock.h>

#include <filesystem>

#include "command_fixture.h"
#include "support/scoped_environment.h"

namespace orv {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// Notes what it is told.
class NotingFront : public PreviewFront {
 public:
  void EnablePreview(bool enable) override { enabled_ = enable; }
  void ShowPicture(std::string_view path) override { pictures_.emplace_back(path); }

  bool enabled_ = false;
  std::vector<std::string> pictures_;
};

// Previews with a renderer that notes its arguments, one a line, and makes a picture.
class MaterialPreviewTest : public CommandTest {
 protected:
  MaterialPreviewTest() {
    std::filesystem::create_directory(folder_.File("bin"));
    WriteRenderer(
        "for word in \"$@\"; do echo \"$word\" >>\"$TEMP/arguments\"; done\n"
        "pwd >\"$TEMP/folder\"\n"
        ": >\"$8\"\n");
  }

  void WriteRenderer(const std::string& script) const {
    const std::string path = folder_.File("bin/orv.exe");
    WriteFileContent(path, "#!/bin/sh\n" + script);
    std::filesystem::permissions(path, std::filesystem::perms::owner_all);
  }
  // The arguments of the runs since the last call.
  std::string Arguments() const {
    const std::string file = folder_.File("arguments");
    const std::string text = std::filesystem::exists(file) ? FileContent(file) : "";
    std::filesystem::remove(file);
    return text;
  }

  const ScopedEnvironment temp_{"TEMP", folder_.Path().string()};
  const ScopedEnvironment path_{"PATH", folder_.File("bin") + ":/usr/bin:/bin"};
  NotingFront front_;
  MaterialPreview preview_{plugIn_, front_};
};

TEST_F(MaterialPreviewTest, TheFirstShowRenders) {
  preview_.RenderPreview({}, true);
  const std::string picture = folder_.File("RhinoOrvPreview.bmp");
  const std::string scene = folder_.File("RhinoOrvPreview.rib");
  const std::string gamma = Setting("RhinoGamma").empty() ? "1.8" : Setting("RhinoGamma");
  EXPECT_EQ(Arguments(),
            "-p\n1\n-bs\n28\n-g\n" + gamma + "\n-file\n" + picture + "\n" + scene + "\n");
  EXPECT_TRUE(front_.enabled_);
  EXPECT_THAT(front_.pictures_, ElementsAre(picture));
  EXPECT_NE(FileContent(scene).find("VRubber"), std::string::npos);
}

TEST_F(MaterialPreviewTest, OnlyAChangeThatIsSeenRenders) {
  MaterialAttributes material;
  preview_.RenderPreview(material, true);
  Arguments();
  preview_.RenderPreview(material, true);
  material.Name = "other";
  preview_.RenderPreview(material, true);
  EXPECT_EQ(Arguments(), "");
  material.Diffuse = ON_Color(1, 2, 3);
  preview_.RenderPreview(material, true);
  EXPECT_NE(Arguments(), "");
  material.Transparency = 0.5;
  preview_.RenderPreview(material, true);
  EXPECT_NE(Arguments(), "");
}

TEST_F(MaterialPreviewTest, NothingIsRenderedWhileItIsSwitchedOff) {
  preview_.RenderPreview({}, false);
  EXPECT_EQ(Arguments(), "");
  EXPECT_TRUE(front_.enabled_);
  preview_.RenderPreview({}, true);
  EXPECT_NE(Arguments(), "");
}

TEST_F(MaterialPreviewTest, AFailedPreviewIsSilent) {
  WriteRenderer("exit 3\n");
  preview_.RenderPreview({}, true);
  std::filesystem::remove(folder_.File("bin/orv.exe"));
  MaterialAttributes other;
  other.Transparency = 0.5;
  preview_.RenderPreview(other, true);
  {
    const ScopedEnvironment temp("TEMP", folder_.File("missing"));
    other.Transparency = 0.25;
    preview_.RenderPreview(other, true);
  }
  EXPECT_THAT(front_.pictures_, IsEmpty());
  EXPECT_EQ(messages_, "");
}

TEST_F(MaterialPreviewTest, WithoutAFolderTheFilesAreAtTheRoot) {
  const ScopedEnvironment temp("TEMP", std::nullopt);
  WriteRenderer("for word in \"$@\"; do echo \"$word\" >>'" + folder_.File("arguments") +
                "'; done\n");
  preview_.RenderPreview({}, true);
  // Where the root may be written to, the renderer is told so.
  const std::string arguments = Arguments();
  if (std::filesystem::exists("/RhinoOrvPreview.rib")) {
    EXPECT_NE(arguments.find("\n/RhinoOrvPreview.bmp\n/RhinoOrvPreview.rib\n"), std::string::npos);
    std::filesystem::remove("/RhinoOrvPreview.rib");
  } else {
    EXPECT_EQ(arguments, "");
  }
}

TEST_F(MaterialPreviewTest, InATerminalThePathIsTold) {
  PrintedPreview front;
  MaterialPreview preview(plugIn_, front);
  preview.RenderPreview({}, true);
  EXPECT_EQ(messages_, "Preview: " + folder_.File("RhinoOrvPreview.bmp") + "\n");
}

}  // namespace
}  // namespace orv

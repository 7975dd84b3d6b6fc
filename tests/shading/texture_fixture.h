#pragma once

#include <gmock/gmock.h>

#include "shading/texture_converter.h"
#include "support/temp_folder.h"
#include "tools/tool_bench.h"

// A folder for images, the stand-in for the converter, and what is told in the command window.
class TextureFixture : public testing::Test {
 protected:
  TextureFixture();
  ~TextureFixture() override;

  // The path of an image in the folder, which is made.
  std::string Image(std::string_view name) const;
  // Gives a file the time that lies some seconds behind a fixed one.
  void SetTime(std::string_view path, int seconds) const;
  // What was told since the last call.
  std::string Told();

  TempFolder folder_;
  ToolBench bench_;
  orv::TextureConverter textures_;

 private:
  std::string told_;
};

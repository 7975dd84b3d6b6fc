#include "texture_fixture.h"

#include <chrono>
#include <utility>

#include "host/document/app.h"

TextureFixture::TextureFixture() {
  RhinoApp().CommandWindow().SetSink([this](std::string_view text) { told_ += text; });
}

TextureFixture::~TextureFixture() {
  RhinoApp().CommandWindow().SetSink(nullptr);
}

std::string TextureFixture::Image(std::string_view name) const {
  std::string path = folder_.File(name);
  WriteFileContent(path, "image");
  return path;
}

void TextureFixture::SetTime(std::string_view path, int seconds) const {
  const std::chrono::seconds sinceEpoch(1'000'000'000 + seconds);
  const std::filesystem::file_time_type time =
      std::chrono::file_clock::from_sys(std::chrono::sys_seconds(sinceEpoch));
  std::filesystem::last_write_time(std::filesystem::path(path), time);
}

std::string TextureFixture::Told() {
  return std::exchange(told_, {});
}

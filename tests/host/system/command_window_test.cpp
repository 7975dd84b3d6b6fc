#include "host/system/command_window.h"

#include <gtest/gtest.h>

namespace host {
namespace {

TEST(CommandWindow, GivesItsTextToTheSink) {
  CommandWindow window;
  window.Print("nobody hears this");
  std::string heard;
  window.SetSink([&heard](std::string_view text) { heard += text; });
  window.Print("Writing ");
  window.Print("100%s.rib\n");
  EXPECT_EQ(heard, "Writing 100%s.rib\n");
  window.SetSink(nullptr);
  window.Print("nor this");
  EXPECT_EQ(heard, "Writing 100%s.rib\n");
}

}  // namespace
}  // namespace host

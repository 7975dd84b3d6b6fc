#include "host/system/command_window.h"

#include <gtest/gtest.h>

#include <vector>

#include "host/system/progress_meter.h"

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

TEST(ProgressMeter, TellsHowFarAJobIsAndItsEnd) {
  CommandWindow window;
  std::vector<std::string> heard;
  window.SetProgressSink([&heard](const Progress* progress) {
    heard.push_back(progress == nullptr
                        ? std::string("end")
                        : std::string(progress->Task) + " " + std::to_string(progress->Done) + "/" +
                              std::to_string(progress->Total) + " " +
                              std::to_string(progress->Bytes));
  });
  {
    ProgressMeter meter(window, "Writing", 3);
    EXPECT_TRUE(heard.empty());
    meter.Show(1);
    meter.Show(2, 5000000000);
  }
  EXPECT_EQ(heard, (std::vector<std::string>{"Writing 1/3 0", "Writing 2/3 5000000000", "end"}));
}

TEST(ProgressMeter, IsHeardByNobodyWithoutASink) {
  const CommandWindow window;
  ProgressMeter meter(window, "Writing", 3);
  meter.Show(1);
}

}  // namespace
}  // namespace host

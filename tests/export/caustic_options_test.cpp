#include "export/caustic_options.h"

#include <gtest/gtest.h>

#include "rib_fragment.h"

namespace {

constexpr const char* kHead =
    "LightSource \"caustic\" 999 \"__channel\" [9]\n"
    "Attribute \"caustic\" \"maxpixeldist\" [10]\n"
    "Attribute \"caustic\" \"ngather\" [75]\n";
constexpr const char* kPhotons = "Attribute \"visibility\" \"indirect\" [1]\n";

class CausticOptions : public testing::Test {
 protected:
  CausticOptions() {
    settings_.CausticsEnable = true;
    settings_.CausticPhotonPass = true;
  }

  std::string Rib() {
    return WrittenRib(
        [this](orv::RibWriter& writer) { orv::WriteCausticOptions(writer, settings_); });
  }

  orv::RenderSettings settings_;
};

TEST_F(CausticOptions, AreNotWrittenWithoutCaustics) {
  settings_.CausticsEnable = false;
  EXPECT_EQ(Rib(), "");
}

TEST_F(CausticOptions, WithoutAFile) {
  settings_.CausticSearchDistance = 12.5;
  settings_.CausticMinPhotons = 100;
  EXPECT_EQ(Rib(),
            "LightSource \"caustic\" 999 \"__channel\" [9]\n"
            "Attribute \"caustic\" \"maxpixeldist\" [12.5]\n"
            "Attribute \"caustic\" \"ngather\" [100]\n"
            "Attribute \"visibility\" \"indirect\" [1]\n");
}

TEST_F(CausticOptions, AFileThatIsReadLeavesNoPhotonsToShoot) {
  settings_.CausticCacheMode = 1;
  settings_.CausticPhotonPass = false;
  EXPECT_EQ(Rib(),
            std::string(kHead) + "Option \"caustic\" \"seedfile\" \"OrvCausticCache.opc\"\n");
}

TEST_F(CausticOptions, AFileThatIsWritten) {
  settings_.CausticCacheMode = 2;
  settings_.CausticCacheName = "C:\\gi\\the \"light\".opc";
  EXPECT_EQ(Rib(), std::string(kHead) +
                       "Option \"caustic\" \"savefile\" \"C:/gi/the \\\"light\\\".opc\"\n" +
                       kPhotons);
}

TEST_F(CausticOptions, AFileWithoutANameIsNone) {
  settings_.CausticCacheName = "";
  for (const int mode : {1, 2}) {
    settings_.CausticCacheMode = mode;
    EXPECT_EQ(Rib(), std::string(kHead) + kPhotons);
  }
}

}  // namespace

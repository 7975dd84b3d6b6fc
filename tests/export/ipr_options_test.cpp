#include "export/ipr_options.h"

#include <gtest/gtest.h>

#include "rib_fragment.h"

namespace {

std::string Rib(const orv::IprSettings& iprSettings) {
  return WrittenRib([&](orv::RibWriter& writer) { orv::WriteIprOptions(writer, iprSettings); });
}

TEST(IprOptions, OfAFreshDocument) {
  EXPECT_EQ(Rib({}),
            "Attribute \"ipr\" \"shading\" \"relight\"\n"
            "Option \"ipr\" \"retrace\" [1]\n"
            "Option \"trace\" \"maxshadowsamples\" [1]\n"
            "Option \"trace\" \"maxtracesamples\" [1]\n");
}

TEST(IprOptions, DiffuseShadingWithSmoothEdges) {
  orv::IprSettings iprSettings;
  iprSettings.IprShadeMode = 0;
  iprSettings.IprAutoReflect = false;
  iprSettings.IprSmoothEdges = true;
  iprSettings.IprMaxShadowRays = 16;
  iprSettings.IprMaxReflectionRays = 4;
  EXPECT_EQ(Rib(iprSettings),
            "Attribute \"ipr\" \"shading\" \"matte\"\n"
            "Option \"ipr\" \"pixelsamples\" [4 4]\n"
            "Option \"trace\" \"maxshadowsamples\" [16]\n"
            "Option \"trace\" \"maxtracesamples\" [4]\n");
}

TEST(IprOptions, FullShadingIsNotSaid) {
  orv::IprSettings iprSettings;
  iprSettings.IprShadeMode = 2;
  iprSettings.IprAutoReflect = false;
  EXPECT_EQ(Rib(iprSettings),
            "Option \"trace\" \"maxshadowsamples\" [1]\n"
            "Option \"trace\" \"maxtracesamples\" [1]\n");
}

}  // namespace

#include "export/lights.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "export_fixture.h"
#include "host/geometry/on_light.h"
#include "light_fixture.h"
#include "rib_fragment.h"

namespace {

using Style = ON_LightStyle;

// The lights' statements without their parameters, such as "pointlight 1" and "Illuminate 1 1".
std::string Numbers(const std::string& rib) {
  std::string numbers;
  std::size_t at = 0;
  while (at < rib.size()) {
    const std::size_t end = rib.find('\n', at);
    const std::string line = rib.substr(at, end - at);
    const std::size_t source = line.find("LightSource \"");
    if (source != std::string::npos) {
      const std::size_t name = source + 13;
      const std::size_t quote = line.find('"', name);
      numbers += line.substr(name, quote - name) + line.substr(quote + 1, 2) + "\n";
    } else if (line.starts_with("Illuminate")) {
      numbers += line + "\n";
    }
    at = end + 1;
  }
  return numbers;
}

class Lights : public LightTest {
 protected:
  // What the light's shadow is said to be.
  std::string ShadowOf(ONX_ModelLight light) {
    const std::string rib = RibOf(std::move(light));
    const std::size_t at = rib.find(" \"string shadowname\"");
    return at == std::string::npos ? "" : rib.substr(at, rib.find('\n', at) - at);
  }
};

TEST_F(Lights, AreNumberedFromOne) {
  for (const Style style : {Style::world_point, Style::world_rectangular, Style::world_linear,
                            Style::world_spot, Style::world_directional}) {
    Add(LightOf(style));
  }
  EXPECT_EQ(Numbers(Rib()),
            "pointlight 1\nIlluminate 1 1\n"
            "arealight 2\nIlluminate 2 1\n"
            "arealight 3\nIlluminate 3 1\n"
            "spotlight 4\nIlluminate 4 1\n"
            "distantlight 5\nIlluminate 5 1\n");
  EXPECT_EQ(lighting_.LightCount, 5);
}

TEST_F(Lights, AreNumberedBehindTheGlobalLight) {
  Add(LightOf(Style::world_point));
  Add(LightOf(Style::world_point));
  lighting_.LightCount = 1;
  EXPECT_EQ(Numbers(Rib()), "pointlight 2\nIlluminate 2 1\npointlight 3\nIlluminate 3 1\n");
}

TEST_F(Lights, WithoutUseLightsThereAreNone) {
  Add(LightOf(Style::world_point));
  settings_.UseLights = false;
  EXPECT_EQ(Rib(), "");
  EXPECT_EQ(lighting_.LightCount, 0);
  EXPECT_FALSE(lighting_.ShadowUsed);
}

TEST_F(Lights, ThatAreOffOrHiddenAreLeftOut) {
  Add(LightOf(Style::world_point));
  Add(LightOf(Style::world_point));
  model_.m_light_table[0].m_light->m_bOn = false;
  model_.m_light_table[1].m_attributes.m_mode = ON_ObjectMode::hidden;
  EXPECT_EQ(Rib(), "");
  EXPECT_EQ(lighting_.LightCount, 0);
  EXPECT_FALSE(lighting_.ShadowUsed);
}

TEST_F(Lights, InASessionThoseThatAreOffAreWrittenAsOff) {
  const orv::IprSettings iprSettings;
  iprSettings_ = &iprSettings;
  Add(LightOf(Style::world_point));
  model_.m_light_table[0].m_light->m_bOn = false;
  const std::string rib = Rib();
  EXPECT_TRUE(rib.starts_with("LightSource \"pointlight\" " + Serial() + " \"lightcolor\"")) << rib;
  EXPECT_TRUE(rib.ends_with("\nIlluminate " + Serial() + " 0\n")) << rib;
  EXPECT_EQ(lighting_.LightCount, 1);
  model_.m_light_table[0].m_attributes.m_mode = ON_ObjectMode::hidden;
  EXPECT_EQ(Rib(), "");
}

TEST_F(Lights, ThoseWithoutAStatementHaveOnlyTheirIlluminate) {
  for (const Style style : {Style::unknown, Style::camera_directional, Style::camera_point,
                            Style::ambient, static_cast<Style>(77)}) {
    model_.m_light_table = {LightOf(style)};
    lighting_ = {};
    const std::string rib = Rib();
    EXPECT_EQ(rib, Illuminate());
    EXPECT_EQ(lighting_.LightCount, 0);
    EXPECT_TRUE(lighting_.ShadowUsed);
  }
}

TEST_F(Lights, ColorsAreAdjustedToTheGamma) {
  settings_.RhinoGamma = 2;
  ONX_ModelLight light = LightOf(Style::world_point);
  light.m_light->m_diffuse = {255, 128, 0};
  const std::string rib = RibOf(WithStrings(light, {{"OrvShadowColor", "0,1,0.501961"}}));
  EXPECT_NE(rib.find("\"lightcolor\" [ 1 0.25098 0 ]"), std::string::npos) << rib;
  EXPECT_NE(rib.find("\"color shadowcolor\" [0 1 0.25098]"), std::string::npos) << rib;
}

TEST_F(Lights, AFaintShadowFadesToTheLightsColor) {
  ONX_ModelLight light = LightOf(Style::world_point);
  light.m_light->m_shadow_intensity = 0.3;
  EXPECT_EQ(ShadowOf(WithStrings(light, {{"OrvShadowColor", "0,0.2,1"}})),
            " \"string shadowname\" \"raytrace\" \"color shadowcolor\" [0.7 0.34 0.44]"
            " \"float shadowsamples\" [8] \"float shadowblur\" [0.01]");
  light.m_light->m_shadow_intensity = 0;
  EXPECT_EQ(ShadowOf(light), "");
  EXPECT_FALSE(lighting_.ShadowUsed);
  light.m_light->m_shadow_intensity = -1;
  EXPECT_EQ(ShadowOf(light), "");
}

TEST_F(Lights, ADraftHasOneShadowSample) {
  settings_.Draft = true;
  const auto shadowWith = [this](std::string_view samples) {
    return ShadowOf(WithStrings(LightOf(Style::world_point), {{"OrvShadowSamples", samples}}));
  };
  const std::string one =
      " \"string shadowname\" \"raytrace\" \"color shadowcolor\" [0 0 0]"
      " \"float shadowsamples\" [1] \"float shadowblur\" [0.01]";
  EXPECT_EQ(shadowWith("16"), one);
  EXPECT_EQ(shadowWith("2"), one);
  EXPECT_EQ(shadowWith("1"), one);
  EXPECT_TRUE(lighting_.ShadowUsed);
  EXPECT_EQ(shadowWith("0"), "");
  EXPECT_FALSE(lighting_.ShadowUsed);
}

TEST_F(Lights, ADraftHasOneSampleOfAnAreaToo) {
  settings_.Draft = true;
  for (const Style style : {Style::world_rectangular, Style::world_linear}) {
    const std::string rib = RibOf(WithStrings(LightOf(style), {{"OrvShadowSamples", "16"}}));
    EXPECT_NE(rib.find("  Attribute \"light\" \"nsamples\" [1]\n"), std::string::npos) << rib;
  }
}

class Photons : public Lights {
 protected:
  Photons() { settings_.CausticPhotonPass = true; }
  std::string FirstLineOf(ONX_ModelLight light) {
    const std::string rib = RibOf(std::move(light));
    return rib.substr(0, rib.find('\n'));
  }
};

TEST_F(Photons, AreCountedInMillions) {
  const auto with = [this](std::string_view millions) {
    return FirstLineOf(WithStrings(LightOf(Style::world_point), {{"OrvLightEmitPhotons", "Yes"},
                                                                 {"OrvLightPhotons", millions}}));
  };
  EXPECT_EQ(with("0.1"), "Attribute \"light\" \"nphotons\" [100000]");
  EXPECT_EQ(with("1.2345678"), "Attribute \"light\" \"nphotons\" [1234567]");
  EXPECT_EQ(with("0"), "Attribute \"light\" \"nphotons\" [0]");
  EXPECT_EQ(with("2147.483647"), "Attribute \"light\" \"nphotons\" [2147483647]");
  EXPECT_EQ(with("1e9"), "Attribute \"light\" \"nphotons\" [2147483647]");
}

TEST_F(Photons, ComeFromLightsThatEmitThem) {
  EXPECT_EQ(FirstLineOf(LightOf(Style::world_point)), "Attribute \"light\" \"nphotons\" [0]");
  EXPECT_EQ(
      FirstLineOf(WithStrings(LightOf(Style::world_directional), {{"OrvLightEmitPhotons", "Yes"}})),
      "Attribute \"light\" \"nphotons\" [0]");
}

TEST_F(Photons, StandOutsideTheBlockOfAnArea) {
  EXPECT_TRUE(
      RibOf(WithStrings(LightOf(Style::world_rectangular), {{"OrvLightEmitPhotons", "Yes"}}))
          .starts_with("Attribute \"light\" \"nphotons\" [100000]\nAttributeBegin\n"));
}

TEST_F(Photons, ALightWithoutAStatementHasThemToo) {
  Add(LightOf(Style::ambient));
  const std::string rib = Rib();
  EXPECT_EQ(rib, "Attribute \"light\" \"nphotons\" [0]\n" + Illuminate());
}

TEST_F(Photons, AreNotShotOtherwise) {
  settings_.CausticPhotonPass = false;
  settings_.CausticsEnable = true;
  EXPECT_TRUE(
      FirstLineOf(WithStrings(LightOf(Style::world_point), {{"OrvLightEmitPhotons", "Yes"}}))
          .starts_with("LightSource"));
}

// A light that no renderer could read is left out, and the next one takes its number.
TEST_F(Lights, WithNumbersThatAreNoneAreLeftOut) {
  const double bad[] = {std::nan(""), std::numeric_limits<double>::infinity(), ON_UNSET_VALUE};
  for (const double number : bad) {
    for (const Style style : {Style::world_point, Style::world_rectangular, Style::world_linear,
                              Style::world_spot, Style::world_directional}) {
      ONX_ModelLight light = LightOf(style);
      light.m_light->m_location.y = number;
      model_.m_light_table = {light, PointLight()};
      lighting_ = {};
      EXPECT_EQ(Numbers(Rib()), "pointlight 1\nIlluminate 1 1\n");
    }
  }
}

TEST_F(Lights, AreLeftOutForTheNumbersOfTheirKindOnly) {
  const auto isLeftOut = [this](Style style, auto spoil) {
    ONX_ModelLight light = LightOf(style);
    spoil(*light.m_light);
    model_.m_light_table = {light};
    return Rib().empty();
  };
  const auto direction = [](ON_Light& light) { light.m_direction.x = std::nan(""); };
  const auto length = [](ON_Light& light) { light.m_length.x = ON_UNSET_VALUE; };
  const auto width = [](ON_Light& light) { light.m_width.z = ON_UNSET_VALUE; };
  const auto angle = [](ON_Light& light) { light.m_spot_angle = std::nan(""); };
  const auto exponent = [](ON_Light& light) { light.m_spot_exponent = std::nan(""); };
  const auto shadow = [](ON_Light& light) { light.m_shadow_intensity = std::nan(""); };
  EXPECT_TRUE(isLeftOut(Style::world_spot, direction));
  EXPECT_TRUE(isLeftOut(Style::world_directional, direction));
  EXPECT_TRUE(isLeftOut(Style::world_rectangular, direction));
  EXPECT_FALSE(isLeftOut(Style::world_point, direction));
  EXPECT_FALSE(isLeftOut(Style::world_linear, direction));
  EXPECT_TRUE(isLeftOut(Style::world_linear, length));
  EXPECT_TRUE(isLeftOut(Style::world_rectangular, length));
  EXPECT_FALSE(isLeftOut(Style::world_spot, length));
  EXPECT_TRUE(isLeftOut(Style::world_rectangular, width));
  EXPECT_FALSE(isLeftOut(Style::world_linear, width));
  EXPECT_TRUE(isLeftOut(Style::world_spot, angle));
  EXPECT_FALSE(isLeftOut(Style::world_point, angle));
  EXPECT_TRUE(isLeftOut(Style::world_spot, exponent));
  EXPECT_TRUE(isLeftOut(Style::camera_spot, exponent));
  EXPECT_TRUE(isLeftOut(Style::world_point, shadow));
  EXPECT_FALSE(isLeftOut(Style::ambient, shadow));
}

// A document's unset numbers are finite ones.
TEST_F(Lights, WithUnsetNumbersAreLeftOut) {
  const auto ribWith = [this](Style style, double ON_Light::*number) {
    ONX_ModelLight light = LightOf(style);
    (*light.m_light).*number = ON_UNSET_VALUE;
    model_.m_light_table = {light};
    lighting_ = {};
    return Rib();
  };
  EXPECT_EQ(ribWith(Style::world_spot, &ON_Light::m_spot_exponent), "");
  EXPECT_EQ(ribWith(Style::world_spot, &ON_Light::m_spot_angle), "");
  EXPECT_NE(ribWith(Style::world_point, &ON_Light::m_spot_exponent), "");
  for (const Style style : {Style::world_point, Style::world_rectangular, Style::world_linear,
                            Style::world_spot, Style::world_directional}) {
    EXPECT_EQ(ribWith(style, &ON_Light::m_shadow_intensity), "");
    EXPECT_EQ(lighting_.LightCount, 0);
  }
}

// With a hot spot the stored exponent says nothing.
TEST_F(Lights, AnUnsetExponentDoesNotMatterBesideAHotSpot) {
  ONX_ModelLight light = LightOf(Style::world_spot);
  light.m_light->m_spot_exponent = ON_UNSET_VALUE;
  light.m_light->m_hotspot = 1;
  EXPECT_NE(RibOf(light).find("\"beamdistribution\" [ 0 ]\n"), std::string::npos);
}

TEST_F(Lights, GreatNumbersAreReadableStill) {
  for (const Style style : {Style::world_point, Style::world_rectangular, Style::world_linear,
                            Style::world_spot, Style::world_directional}) {
    ONX_ModelLight light = LightOf(style);
    light.m_light->m_location = {1e300, -1e300, 0};
    light.m_light->m_direction = {1e300, 0, 1e300};
    light.m_light->m_length = {1e300, 1e300, 0};
    light.m_light->m_width = {1e300, 0, 1e300};
    light.m_light->m_spot_angle = 1e300;
    light.m_light->m_shadow_intensity = 1e300;
    EXPECT_NE(RibOf(WithStrings(light, {{"OrvLightIntensity", "nan"},
                                        {"OrvShadowBlur", "nan"},
                                        {"OrvShadowColor", "nan,inf,-inf"},
                                        {"OrvLightPhotons", "nan"},
                                        {"OrvLightUseTexture", "Yes"},
                                        {"OrvLightTexture", "a.ies"}})),
              "");
  }
}

TEST_F(Lights, ALongTextureNameFitsIntoALine) {
  const std::string name = std::string(10000, 'x') + ".tif";
  RibOf(WithStrings(LightOf(Style::world_rectangular),
                    {{"OrvLightUseTexture", "Yes"}, {"OrvLightTexture", name}}));
}

TEST_F(Lights, RaysForShadowsAndReflectionsAreSwitchedOn) {
  const auto visibility = [this](bool shadowUsed, int depth) {
    settings_.ReflectionMaxDepth = depth;
    const orv::Lighting lighting{.LightCount = 1, .ShadowUsed = shadowUsed};
    return WrittenRib(
        [&](orv::RibWriter& writer) { orv::WriteVisibility(writer, settings_, lighting); });
  };
  const std::string shadow = "Attribute \"visibility\" \"integer shadow\" [1]\n";
  const std::string trace = "Attribute \"visibility\" \"integer trace\" [1]\n";
  EXPECT_EQ(visibility(true, 6), shadow + trace);
  EXPECT_EQ(visibility(true, 0), shadow);
  EXPECT_EQ(visibility(false, 1), trace);
  EXPECT_EQ(visibility(false, 0), "");
  settings_.UseLights = false;
  EXPECT_EQ(visibility(true, 6), shadow + trace);
}

class DefaultLight : public Lights {
 protected:
  std::string DefaultLightWith(const orv::Lighting& lighting) {
    const CRhinoView view(PerspectiveView());
    return WrittenRib(
        [&](orv::RibWriter& writer) { orv::WriteDefaultLight(writer, view, settings_, lighting); });
  }
};

TEST_F(DefaultLight, ShinesFromTheCameraWhenThereIsNoOther) {
  EXPECT_EQ(DefaultLightWith({}),
            "LightSource \"distantlight\" 1 \"intensity\" [ 1 ] \"lightcolor\" [ 1 1 1 ] "
            "\"from\" [ 1 -10 2 ] \"to\" [ 1 0 2 ]\n");
}

TEST_F(DefaultLight, IsNotWrittenBesideAnother) {
  EXPECT_EQ(DefaultLightWith({.LightCount = 1}), "");
}

TEST_F(DefaultLight, IsNotWrittenWithoutUseLights) {
  settings_.UseLights = false;
  EXPECT_EQ(DefaultLightWith({}), "");
}

// A document of one light, written to a stream that has failed.
class FailedStream : public testing::Test {
 protected:
  bool Write(ONX_ModelLight light, const orv::IprSettings* iprSettings = nullptr) {
    ONX_Model model;
    model.m_light_table.push_back(std::move(light));
    CRhinoDoc doc;
    doc.SetModel(std::move(model), "");
    orv::RibWriter writer("/dev/full");
    while (!writer.HasError()) orv::RibPrintf(writer, "Identity\n");
    const orv::ObjectList objects = orv::GatherObjects(doc, false, settings_);
    EXPECT_EQ(objects.size(), 1U);
    orv::Lighting lighting;
    return orv::WriteDocumentLights(writer, objects, settings_, iprSettings, lighting);
  }

  orv::RenderSettings settings_;
};

TEST_F(FailedStream, EndsTheLightsBeforeTheNextOne) {
  EXPECT_FALSE(Write(PointLight()));
}

TEST_F(FailedStream, IsNotNoticedForALightThatIsNotWritten) {
  ONX_ModelLight hidden = PointLight();
  hidden.m_attributes.m_mode = ON_ObjectMode::hidden;
  EXPECT_TRUE(Write(hidden));
  ONX_ModelLight off = PointLight();
  off.m_light->m_bOn = false;
  EXPECT_TRUE(Write(off));
  settings_.UseLights = false;
  EXPECT_TRUE(Write(PointLight()));
}

TEST_F(FailedStream, IsNoticedInASessionForALightThatIsOff) {
  ONX_ModelLight off = PointLight();
  off.m_light->m_bOn = false;
  const orv::IprSettings iprSettings;
  EXPECT_FALSE(Write(off, &iprSettings));
}

}  // namespace

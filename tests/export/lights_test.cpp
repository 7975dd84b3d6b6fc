#include "export/lights.h"

#include <gtest/gtest.h>

#include "export_fixture.h"
#include "host/geometry/on_light.h"

namespace {

// A document of one light, written to a stream that has failed.
class LightsTest : public testing::Test {
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
    return orv::WriteLights(writer, objects, settings_, iprSettings);
  }

  orv::RenderSettings settings_;
};

TEST_F(LightsTest, AStreamWithAnErrorEndsThemBeforeTheNextLight) {
  EXPECT_FALSE(Write(PointLight()));
}

TEST_F(LightsTest, AStreamIsNotTestedForALightThatIsNotWritten) {
  ONX_ModelLight hidden = PointLight();
  hidden.m_attributes.m_mode = ON_ObjectMode::hidden;
  EXPECT_TRUE(Write(hidden));
  ONX_ModelLight off = PointLight();
  off.m_light->m_bOn = false;
  EXPECT_TRUE(Write(off));
  settings_.UseLights = false;
  EXPECT_TRUE(Write(PointLight()));
}

TEST_F(LightsTest, AnInteractiveSessionHasTheLightsThatAreOff) {
  ONX_ModelLight off = PointLight();
  off.m_light->m_bOn = false;
  const orv::IprSettings iprSettings;
  EXPECT_FALSE(Write(off, &iprSettings));
}

}  // namespace

#include "export/scene_units.h"

#include <gtest/gtest.h>

#include <limits>

#include "rib_fragment.h"

namespace {

std::string Rib(ON_UnitSystem unit, double customMeters = 1, double illuminanceUnity = 500) {
  ONX_Model model;
  model.m_settings.m_model_units.m_unit_system = unit;
  model.m_settings.m_model_units.m_custom_meters_per_unit = customMeters;
  CRhinoDoc doc;
  doc.SetModel(std::move(model), "");
  orv::RenderSettings settings;
  settings.IlluminanceUnity = illuminanceUnity;
  return WrittenRib([&](orv::RibWriter& writer) { orv::WriteSceneUnits(writer, doc, settings); });
}

std::string UnitSize(const std::string& size) {
  return "Option \"user\" \"float sceneunitsize\" [" + size +
         "]\n"
         "Option \"user\" \"float illuminanceunity\" [500]\n";
}

TEST(SceneUnits, OfEveryUnit) {
  // By the unit's code in documents.
  const char* const sizes[] = {
      "1",      "1e-06",   "0.001", "0.01",  "1",     "1000", "2.54e-08", "2.54e-05", "0.0254",
      "0.3408", "1609.34", "1",     "1e-10", "1e-09", "0.1",  "10",       "100",      "1e+06",
      "1e+09",  "0.9144",  "1",     "1",     "1",     "1",    "1",        "1"};
  for (int code = 0; code <= 25; ++code) {
    EXPECT_EQ(Rib(static_cast<ON_UnitSystem>(code)), UnitSize(sizes[code])) << code;
  }
  EXPECT_EQ(Rib(static_cast<ON_UnitSystem>(-1)), UnitSize("1"));
  EXPECT_EQ(Rib(static_cast<ON_UnitSystem>(1000)), UnitSize("1"));
}

TEST(SceneUnits, ACustomUnitIsAsTheDocumentSays) {
  EXPECT_EQ(Rib(ON_UnitSystem::custom, 0.4572), UnitSize("0.4572"));
  EXPECT_EQ(Rib(ON_UnitSystem::custom, 0), UnitSize("0"));
  EXPECT_EQ(Rib(ON_UnitSystem::custom, -2), UnitSize("-2"));
}

TEST(SceneUnits, ACustomUnitThatIsNoNumberIsAMetre) {
  EXPECT_EQ(Rib(ON_UnitSystem::custom, std::numeric_limits<double>::infinity()), UnitSize("1"));
  EXPECT_EQ(Rib(ON_UnitSystem::custom, std::numeric_limits<double>::quiet_NaN()), UnitSize("1"));
}

TEST(SceneUnits, TheIlluminanceIsTheUsers) {
  EXPECT_EQ(Rib(ON_UnitSystem::meters, 1, 1250.5),
            "Option \"user\" \"float sceneunitsize\" [1]\n"
            "Option \"user\" \"float illuminanceunity\" [1250.5]\n");
}

}  // namespace

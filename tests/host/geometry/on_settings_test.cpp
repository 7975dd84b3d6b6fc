#include "host/geometry/on_settings.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

ON_3dmUnitsAndTolerances Units(ON_UnitSystem us) {
  ON_3dmUnitsAndTolerances units;
  units.m_unit_system = us;
  return units;
}

TEST(Units, MetersOfEachUnit) {
  struct Row {
    ON_UnitSystem us;
    double meters;
  };
  const Row rows[] = {
      {ON_UnitSystem::none, 1},
      {ON_UnitSystem::microns, 0.000001},
      {ON_UnitSystem::millimeters, 0.001},
      {ON_UnitSystem::centimeters, 0.01},
      {ON_UnitSystem::meters, 1},
      {ON_UnitSystem::kilometers, 1000},
      {ON_UnitSystem::microinches, 0.0000000254},
      {ON_UnitSystem::mils, 0.0000254},
      {ON_UnitSystem::inches, 0.0254},
      {ON_UnitSystem::feet, 0.3048},
      {ON_UnitSystem::miles, 1609.344},
      {ON_UnitSystem::angstroms, 1e-10},
      {ON_UnitSystem::nanometers, 1e-9},
      {ON_UnitSystem::decimeters, 0.1},
      {ON_UnitSystem::dekameters, 10},
      {ON_UnitSystem::hectometers, 100},
      {ON_UnitSystem::megameters, 1e6},
      {ON_UnitSystem::gigameters, 1e9},
      {ON_UnitSystem::yards, 0.9144},
      {ON_UnitSystem::printer_points, 0.0254 / 72},
      {ON_UnitSystem::printer_picas, 0.0254 / 6},
      {ON_UnitSystem::nautical_miles, 1852},
      {ON_UnitSystem::astronomical_units, 149597870700.0},
      {ON_UnitSystem::light_years, 9460730472580800.0},
      {ON_UnitSystem::parsecs, 149597870700.0 * 648000 / 3.14159265358979323846},
  };
  for (const Row& row : rows) {
    EXPECT_DOUBLE_EQ(Units(row.us).MetersPerUnit(), row.meters) << static_cast<int>(row.us);
  }
}

TEST(Units, ScaleTellsHowManyUnitsMakeOneOfAnother) {
  EXPECT_DOUBLE_EQ(Units(ON_UnitSystem::centimeters).Scale(ON_UnitSystem::millimeters), 0.1);
  EXPECT_DOUBLE_EQ(Units(ON_UnitSystem::millimeters).Scale(ON_UnitSystem::millimeters), 1);
  EXPECT_DOUBLE_EQ(Units(ON_UnitSystem::inches).Scale(ON_UnitSystem::millimeters), 1 / 25.4);
  EXPECT_DOUBLE_EQ(Units(ON_UnitSystem::inches).Scale(ON_UnitSystem::feet), 12);
  EXPECT_DOUBLE_EQ(Units(ON_UnitSystem::meters).Scale(ON_UnitSystem::kilometers), 1000);
}

TEST(Units, WithoutUnitsTheScaleIsOne) {
  EXPECT_EQ(Units(ON_UnitSystem::none).Scale(ON_UnitSystem::millimeters), 1);
  EXPECT_EQ(Units(ON_UnitSystem::millimeters).Scale(ON_UnitSystem::none), 1);
  EXPECT_EQ(Units(ON_UnitSystem(77)).Scale(ON_UnitSystem::millimeters), 1);
  EXPECT_EQ(Units(ON_UnitSystem(-1)).MetersPerUnit(), 1);
}

TEST(Units, ACustomUnitHasItsOwnLength) {
  ON_3dmUnitsAndTolerances units = Units(ON_UnitSystem::custom);
  units.m_custom_meters_per_unit = 0.5;
  EXPECT_EQ(units.MetersPerUnit(), 0.5);
  EXPECT_EQ(units.Scale(ON_UnitSystem::meters), 2);
  for (const double length : {0.0, -1.0, std::numeric_limits<double>::infinity(), ON_UNSET_VALUE}) {
    units.m_custom_meters_per_unit = length;
    EXPECT_EQ(units.MetersPerUnit(), 1);
  }
}

TEST(Units, TheLengthOfACustomUnitMattersToNoOther) {
  ON_3dmUnitsAndTolerances units = Units(ON_UnitSystem::millimeters);
  units.m_custom_meters_per_unit = 5;
  EXPECT_EQ(units.MetersPerUnit(), 0.001);
}

}  // namespace

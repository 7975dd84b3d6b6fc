#include "export/scene_units.h"

#include <cmath>

namespace orv {
namespace {

// The foot that scenes have always been rendered with; it is not the one of 0.3048 metres.
constexpr double kSceneFoot = 0.3408;

// Scenes know the units up to yards; any later one counts as a metre. A custom unit has the length
// that the document says, whatever it is, as long as it is a number.
double SceneMetersPerUnit(const ON_3dmUnitsAndTolerances& units) {
  if (units.m_unit_system == ON_UnitSystem::feet) return kSceneFoot;
  if (units.m_unit_system > ON_UnitSystem::yards) return 1;
  const bool isCustom = units.m_unit_system == ON_UnitSystem::custom;
  return isCustom && std::isfinite(units.m_custom_meters_per_unit) ? units.m_custom_meters_per_unit
                                                                   : units.MetersPerUnit();
}

}  // namespace

void WriteSceneUnits(RibWriter& writer, const CRhinoDoc& doc, const RenderSettings& settings) {
  RibPrintf(writer, "Option \"user\" \"float sceneunitsize\" [%g]\n",
            SceneMetersPerUnit(doc.Properties().ModelUnitsAndTolerances()));
  RibPrintf(writer, "Option \"user\" \"float illuminanceunity\" [%g]\n", settings.IlluminanceUnity);
}

}  // namespace orv

#include "export/scene_units.h"

#include <cmath>

namespace orv {
namespace {

// The foot that scenes have always been rendered with; it is not the one of 0.3048 metres.
constexpr double kSceneFoot = 0.3408;

// Scenes know the units up to yards; any later one counts as a metre. A custom unit has the length
// that the document says, whatever it is, as long as it is a number.
double SceneMetersPerUnit(const CRhinoDoc& doc) {
  const ON_UnitSystem unit = doc.ModelUnits();
  if (unit == ON_UnitSystem::feet) return kSceneFoot;
  if (unit > ON_UnitSystem::yards) return 1;
  const ON_3dmUnitsAndTolerances& units = doc.Properties().ModelUnitsAndTolerances();
  const double custom = units.m_custom_meters_per_unit;
  return unit == ON_UnitSystem::custom && std::isfinite(custom) ? custom : units.MetersPerUnit();
}

}  // namespace

void WriteSceneUnits(RibWriter& writer, const CRhinoDoc& doc, const RenderSettings& settings) {
  RibPrintf(writer, "Option \"user\" \"float sceneunitsize\" [%g]\n", SceneMetersPerUnit(doc));
  RibPrintf(writer, "Option \"user\" \"float illuminanceunity\" [%g]\n", settings.IlluminanceUnity);
}

}  // namespace orv

#include "host/geometry/on_settings.h"

#include <cmath>

namespace {

// Metres in one unit; 0 for no units. The inch is 0.0254 m, a printer's point 1/72 and a pica 1/6
// of it, the astronomical unit 149,597,870,700 m, the parsec 648,000 / pi of those, and the light
// year a Julian year at 299,792,458 m/s.
double MetersPer(ON_UnitSystem us) {
  switch (us) {
    case ON_UnitSystem::none:
      return 0;
    case ON_UnitSystem::microns:
      return 1e-6;
    case ON_UnitSystem::millimeters:
      return 1e-3;
    case ON_UnitSystem::centimeters:
      return 1e-2;
    case ON_UnitSystem::meters:
    case ON_UnitSystem::custom:
      return 1;
    case ON_UnitSystem::kilometers:
      return 1e3;
    case ON_UnitSystem::microinches:
      return 2.54e-8;
    case ON_UnitSystem::mils:
      return 2.54e-5;
    case ON_UnitSystem::inches:
      return 0.0254;
    case ON_UnitSystem::feet:
      return 0.3048;
    case ON_UnitSystem::miles:
      return 1609.344;
    case ON_UnitSystem::angstroms:
      return 1e-10;
    case ON_UnitSystem::nanometers:
      return 1e-9;
    case ON_UnitSystem::decimeters:
      return 0.1;
    case ON_UnitSystem::dekameters:
      return 10;
    case ON_UnitSystem::hectometers:
      return 100;
    case ON_UnitSystem::megameters:
      return 1e6;
    case ON_UnitSystem::gigameters:
      return 1e9;
    case ON_UnitSystem::yards:
      return 0.9144;
    case ON_UnitSystem::printer_points:
      return 0.0254 / 72;
    case ON_UnitSystem::printer_picas:
      return 0.0254 / 6;
    case ON_UnitSystem::nautical_miles:
      return 1852;
    case ON_UnitSystem::astronomical_units:
      return 149597870700.0;
    case ON_UnitSystem::light_years:
      return 9460730472580800.0;
    case ON_UnitSystem::parsecs:
      return 3.0856775814913673e16;
  }
  return 0;
}

}  // namespace

double ON_3dmUnitsAndTolerances::MetersPerUnit() const {
  if (m_unit_system == ON_UnitSystem::custom) {
    const bool isLength = std::isfinite(m_custom_meters_per_unit) && m_custom_meters_per_unit > 0;
    return isLength ? m_custom_meters_per_unit : 1;
  }
  const double meters = MetersPer(m_unit_system);
  return meters > 0 ? meters : 1;
}

double ON_3dmUnitsAndTolerances::Scale(ON_UnitSystem us) const {
  const bool bothHaveUnits = MetersPer(us) > 0 && MetersPer(m_unit_system) > 0;
  return bothHaveUnits ? MetersPer(us) / MetersPerUnit() : 1;
}

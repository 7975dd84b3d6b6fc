#include "host/document/app_settings.h"

CRhinoAppSettings::CRhinoAppSettings() {
  default_material_.SetDiffuse(ON_Color(255, 255, 255));
  default_material_.SetTransparency(0);
  default_material_.m_shine = 0;
  default_material_.m_material_index = -1;
}

#include "support/camera_paths.h"

#include <utility>

#include "host/geometry/on_line_curve.h"
#include "host/geometry/on_nurbs_curve.h"

static ONX_ModelObject Path(const char* name, std::uint8_t number,
                            std::shared_ptr<ON_Curve> curve) {
  ONX_ModelObject object;
  object.m_attributes.m_name = name;
  object.m_attributes.m_uuid = "b7e0d5a4-4f01-4c11-9f3a-000000000000"_uuid;
  object.m_attributes.m_uuid.bytes[15] = number;
  object.m_attributes.m_layer_index = 0;
  object.m_geometry = std::move(curve);
  return object;
}

static std::shared_ptr<ON_Curve> Flight() {
  const auto curve = std::make_shared<ON_NurbsCurve>();
  const ON_3dPoint points[] = {
      {-160, -260, 140}, {-60, -300, 110}, {80, -260, 80}, {180, -140, 60}, {200, 0, 50}};
  ON_SimpleArray<ON_4dPoint> cvs;
  for (const ON_3dPoint& point : points) cvs.push_back(ON_NurbsCurve::Unweighted(point));
  curve->Create(4, {0, 0, 0, 1, 2, 2, 2}, std::move(cvs));
  return curve;
}

ONX_Model CameraPaths() {
  ONX_Model model;
  model.m_3dm_file_version = 50;
  model.m_properties.m_application_name = "RhinoOrv example_model";
  model.m_properties.m_create_time = {2026, 1, 1, 12, 0, 0};
  model.m_settings.m_model_units.m_unit_system = ON_UnitSystem::centimeters;
  model.m_layer_table.emplace_back().m_name = "Cameras";
  model.m_object_table = {
      Path("Flight", 1, Flight()),
      Path("Aim", 2,
           std::make_shared<ON_LineCurve>(ON_3dPoint{-10, 5, 15}, ON_3dPoint{30, 25, 25}))};
  return model;
}

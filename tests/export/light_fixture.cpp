#include "light_fixture.h"

#include "rib_fragment.h"

ONX_ModelLight LightOf(ON_LightStyle style) {
  ONX_ModelLight light;
  light.m_light = std::make_shared<ON_Light>();
  light.m_light->m_style = style;
  light.m_light->m_location = {1, 2, 3};
  light.m_light->m_direction = {0, 0, -2};
  light.m_light->m_length = {4, 0, 0};
  light.m_light->m_width = {0, 2, 0};
  light.m_light->m_diffuse = {255, 102, 51};
  light.m_light->m_spot_angle = 30;
  light.m_light->m_spot_exponent = 5;
  return light;
}

ONX_ModelLight WithStrings(ONX_ModelLight light, UserStrings strings) {
  light.m_light = std::make_shared<ON_Light>(*light.m_light);
  for (const auto& [key, value] : strings) light.m_light->SetUserString(key, value);
  return light;
}

std::string LightTest::Rib() {
  CRhinoDoc doc;
  doc.SetModel(model_, "");
  const orv::ObjectList objects = orv::GatherObjects(doc, false, settings_);
  if (!objects.empty()) serial_ = objects.back()->RuntimeSerialNumber();
  return WrittenRib([&](orv::RibWriter& writer) {
    EXPECT_TRUE(orv::WriteDocumentLights(writer, objects, settings_, iprSettings_, lighting_));
  });
}

std::string LightTest::RibOf(ONX_ModelLight light) {
  model_.m_light_table = {std::move(light)};
  lighting_ = {};
  std::string rib = Rib();
  const std::string end = iprSettings_ == nullptr ? std::string("Illuminate 1 1\n") : Illuminate();
  EXPECT_TRUE(rib.ends_with(end)) << rib;
  return rib.substr(0, rib.size() - end.size());
}

std::string LightTest::InteractiveRibOf(ONX_ModelLight light) {
  const orv::IprSettings iprSettings;
  iprSettings_ = &iprSettings;
  std::string rib = RibOf(std::move(light));
  iprSettings_ = nullptr;
  return rib;
}

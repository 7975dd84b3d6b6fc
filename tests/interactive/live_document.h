#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <utility>

#include "host/archive/model.h"
#include "host/document/app.h"
#include "host/geometry/on_light.h"
#include "shading/light_attributes.h"

// Works in the application's document, which is left empty.
class LiveDocument : public testing::Test {
 protected:
  ~LiveDocument() override { RhinoApp().ActiveDoc().SetModel({}, ""); }

  // A light at (1,2,3) that shines along (0,0,-2), is orange (1, 0.4, 0.2) and casts full shadows.
  // Its edges are (4,0,0) and (0,2,0), its spot has a half angle of 30 degrees and the exponent 5.
  static ON_Light Orange(ON_LightStyle style) {
    ON_Light light;
    light.m_style = style;
    light.m_location = {1, 2, 3};
    light.m_direction = {0, 0, -2};
    light.m_diffuse = {255, 102, 51};
    light.m_length = {4, 0, 0};
    light.m_width = {0, 2, 0};
    light.m_spot_angle = 30;
    light.m_spot_exponent = 5;
    return light;
  }

  static CRhinoDoc& Doc() { return RhinoApp().ActiveDoc(); }
  // Opens a document with this light alone.
  static CRhinoObject& Open(const ON_Light& light) {
    ONX_Model model;
    model.m_light_table.emplace_back().m_light = std::make_shared<ON_Light>(light);
    Doc().SetModel(std::move(model), "");
    return *Doc().m_light_table.At(0);
  }
};

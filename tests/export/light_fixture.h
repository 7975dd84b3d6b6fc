#pragma once

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>

#include "export/lights.h"
#include "host/archive/model.h"
#include "host/document/doc.h"
#include "settings/ipr_settings.h"
#include "settings/render_settings.h"

// A light of the style at (1,2,3) that shines along (0,0,-2), is switched on, orange without gamma
// (1, 0.4, 0.2) and casts full shadows. Its edges are (4,0,0) and (0,2,0), its spot has a half
// angle of 30 degrees and the exponent 5.
ONX_ModelLight LightOf(ON_LightStyle style);

using UserStrings = std::initializer_list<std::pair<std::string_view, std::string_view>>;
// A copy of the light with user strings.
ONX_ModelLight WithStrings(ONX_ModelLight light, UserStrings strings);

// Writes the lights that a test has put into `model_`, with a gamma of 1.
class LightTest : public testing::Test {
 protected:
  LightTest() { settings_.RhinoGamma = 1; }

  void Add(ONX_ModelLight light) { model_.m_light_table.push_back(std::move(light)); }
  // The statements of the lights, which must be RIB that a renderer takes.
  std::string Rib();
  // Those of one light alone, without its Illuminate.
  std::string RibOf(ONX_ModelLight light);
  // Those of one light alone in an interactive session.
  std::string InteractiveRibOf(ONX_ModelLight light);
  // "Illuminate N 1\n" with the serial number of the light that was written last.
  std::string Illuminate() const { return "Illuminate " + Serial() + " 1\n"; }
  std::string Serial() const { return std::to_string(serial_); }

  ONX_Model model_;
  orv::RenderSettings settings_;
  // Not null for an interactive session.
  const orv::IprSettings* iprSettings_ = nullptr;
  orv::Lighting lighting_;

 private:
  unsigned serial_ = 0;
};

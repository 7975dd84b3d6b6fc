#include "sequence_fixture.h"

#include "host/geometry/on_line_curve.h"
#include "host/geometry/on_mesh.h"
#include "jobs/animation_frames.h"

void SequenceTest::SetCurves(const std::vector<NamedCurve>& curves) {
  ONX_Model model;
  const auto mesh = std::make_shared<ON_Mesh>();
  mesh->m_V = {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}};
  mesh->m_F = {{{0, 1, 2, 3}}};
  model.m_object_table.emplace_back().m_geometry = mesh;
  for (const auto& [name, curve] : curves) {
    ONX_ModelObject& object = model.m_object_table.emplace_back();
    object.m_attributes.m_name = name;
    object.m_geometry = curve;
  }
  doc_.SetModel(std::move(model), "");
}

std::shared_ptr<ON_Curve> SequenceTest::Line(ON_3dPoint from, ON_3dPoint to) {
  return std::make_shared<ON_LineCurve>(from, to);
}

orv::RenderSettings SequenceTest::SettingsFor(int mode, int frames) const {
  orv::RenderSettings settings;
  settings.RibName = folder_.File("a.rib");
  settings.AnimMode = mode;
  settings.AnimFrames = frames;
  settings.CameraPath = "Path";
  settings.TargetPath = "Target";
  return settings;
}

void SequenceTest::WriteFrames(orv::RenderSettings settings) {
  EXPECT_TRUE(orv::WriteAnimationFrames(doc_, settings, nullptr));
  EXPECT_EQ(settings.RibName, folder_.File("a_world.rib"));
}

std::string SequenceTest::FrameText(const std::string& number, const std::string& time,
                                    const std::string& camera) const {
  return "FrameBegin " + number + "\n  Shutter " + time + " " + time + "\n" + camera +
         "  ReadArchive \"" + folder_.File("a_world.rib") + "\"\nFrameEnd\n";
}

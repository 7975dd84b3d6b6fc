#include "line_fixture.h"

std::string LineTest::WrittenOf(std::shared_ptr<ON_Geometry> geometry, const Write& write) {
  ONX_Model model = model_;
  model.m_object_table = {ObjectOf(std::move(geometry))};
  model.m_object_table[0].m_attributes = hostAttributes_;
  doc_.SetModel(std::move(model), "");
  orv::SceneMaterials materials(settings_, textures_);
  return Written([&](orv::RibWriter& writer) {
    write({.Writer = writer,
           .Doc = doc_,
           .Settings = settings_,
           .Materials = materials,
           .UseObjectNumbers = useObjectNumbers_},
          *doc_.Objects()[0]);
  });
}

std::string ConstantLook(std::string_view color) {
  return "Color " + std::string(color) +
         "\n"
         "Attribute \"visibility\" \"indirect\" [0]\n"
         "Attribute \"toon\" \"float inkwidth\" [0]\n"
         "Attribute \"indirect\" \"prepass\" [0]\n"
         "Attribute \"visibility\" \"integer transmission\" [0]\n"
         "Attribute \"visibility\" \"trace\" [0]\n";
}

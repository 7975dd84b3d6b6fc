#include "host/command/ask_for_name.h"

#include "host/command/get_string.h"
#include "host/document/doc.h"

void AskForLayer(CRhinoGetString& get, const CRhinoDoc& doc) {
  std::vector<std::string> words;
  for (int i = 0; i < doc.m_layer_table.Count(); ++i) {
    words.push_back(doc.m_layer_table.FullPath(i));
  }
  get.SetWords(std::move(words));
  get.SetCheck([&doc](const std::string& name) {
    return name.empty() || doc.m_layer_table.FindLayer(name) < 0
               ? "There is no layer '" + name + "'."
               : std::string();
  });
}

void AskForMaterial(CRhinoGetString& get, const CRhinoDoc& doc) {
  std::vector<std::string> words;
  for (const ON_Material& material : doc.m_material_table) {
    if (!material.m_name.empty()) words.push_back(material.m_name);
  }
  get.SetWords(std::move(words));
  get.SetCheck([&doc](const std::string& name) {
    return doc.m_material_table.FindMaterial(name) < 0 ? "There is no material '" + name + "'."
                                                       : std::string();
  });
}

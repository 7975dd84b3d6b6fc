#include <gtest/gtest.h>

#include <filesystem>

#include "host/document/app.h"
#include "support/model_corpus.h"

// Texts are set on everything that can carry one in each document of the corpus, and taken back.

namespace {

constexpr std::string_view kKey = "OrvTest";

// The user strings of all materials, layers, lights and objects.
std::vector<ON_UserStringList> UserStrings(const CRhinoDoc& doc) {
  std::vector<ON_UserStringList> strings;
  for (const ON_Material& material : doc.m_material_table)
    strings.push_back(material.m_user_strings);
  for (const ON_Layer& layer : doc.m_layer_table) strings.push_back(layer.m_user_strings);
  for (const auto& light : doc.Lights()) {
    if (light->Geometry() != nullptr) strings.push_back(light->Geometry()->m_user_strings);
  }
  for (const auto& object : doc.Objects()) strings.push_back(object->Attributes().m_user_strings);
  return strings;
}

template <class Carrier>
Carrier WithText(Carrier carrier, int number) {
  carrier.SetUserString(kKey, "\"Größe\" " + std::to_string(number));
  return carrier;
}

void SetTexts(CRhinoDoc& doc) {
  int number = 0;
  for (int i = 0; i < doc.m_material_table.Count(); ++i) {
    const ON_Material& material = *doc.m_material_table.At(i);
    EXPECT_TRUE(doc.m_material_table.ModifyMaterial(WithText(material, ++number), i));
  }
  for (int i = 0; i < doc.m_layer_table.Count(); ++i) {
    const ON_Layer& layer = *doc.m_layer_table.At(i);
    EXPECT_TRUE(doc.m_layer_table.ModifyLayer(WithText(layer, ++number), i));
  }
  for (int i = 0; i < doc.m_light_table.Count(); ++i) {
    const ON_Light* light = ON_Light::Cast(doc.m_light_table.At(i)->Geometry());
    if (light == nullptr) continue;
    EXPECT_TRUE(doc.m_light_table.ModifyLight(WithText(*light, ++number), i));
  }
  for (const auto& object : doc.Objects()) {
    const ON_3dmObjectAttributes& attributes = object->Attributes();
    EXPECT_TRUE(doc.ModifyObjectAttributes(*object, WithText(attributes, ++number)));
  }
}

bool AreEqual(const std::vector<ON_UserStringList>& a, const std::vector<ON_UserStringList>& b) {
  return std::equal(
      a.begin(), a.end(), b.begin(), b.end(),
      [](const ON_UserStringList& x, const ON_UserStringList& y) { return x.m_e == y.m_e; });
}

void TextsAreUndoneAndRedone(CRhinoDoc& doc) {
  const std::vector<ON_UserStringList> before = UserStrings(doc);
  const unsigned record = doc.BeginUndoRecord("Texts");
  SetTexts(doc);
  EXPECT_TRUE(doc.EndUndoRecord(record));
  const std::vector<ON_UserStringList> after = UserStrings(doc);
  for (const ON_UserStringList& list : after) EXPECT_TRUE(list.GetUserString(kKey));
  EXPECT_EQ(doc.Undo(), !before.empty());
  EXPECT_TRUE(AreEqual(UserStrings(doc), before));
  EXPECT_EQ(doc.Redo(), !before.empty());
  EXPECT_TRUE(AreEqual(UserStrings(doc), after));
}

TEST(CorpusEdit, TextsOnEverythingAreUndoneAndRedone) {
  const auto corpus = ModelCorpus();
  if (!corpus) GTEST_SKIP() << "ORV_MODEL_CORPUS is not set";
  int count = 0;
  for (const char* const folder : {"real", "made"}) {
    for (const auto& entry : std::filesystem::directory_iterator(*corpus / folder)) {
      CRhinoApp app;
      app.CommandWindow().SetSink([](std::string_view) {});
      if (entry.path().extension() != ".3dm" || !app.OpenDocument(entry.path().string())) continue;
      SCOPED_TRACE(entry.path().filename());
      TextsAreUndoneAndRedone(app.ActiveDoc());
      ++count;
    }
  }
  EXPECT_GT(count, 0);
}

}  // namespace

#include <gmock/gmock.h>

#include <filesystem>

#include "host/archive/document_source.h"
#include "host/archive/model_reader.h"
#include "host/document/app.h"
#include "support/model_corpus.h"
#include "support/temp_folder.h"

// Each document of the corpus is saved: as it is, changed in everything that can be, and with the
// changes undone.

namespace {

constexpr std::string_view kKey = "OrvTest";

template <class Carrier>
Carrier WithText(Carrier carrier, int number) {
  carrier.SetUserString(kKey, "\"Größe\" " + std::to_string(number));
  return carrier;
}

void ChangeMaterials(CRhinoDoc& doc) {
  for (int i = 0; i < doc.m_material_table.Count(); ++i) {
    ON_Material changed = WithText(*doc.m_material_table.At(i), i);
    changed.m_name += " anders";
    changed.SetDiffuse(ON_Color(1, 2, 3));
    changed.SetTransparency(0.25);
    EXPECT_TRUE(doc.m_material_table.ModifyMaterial(changed, i));
  }
  ON_Material added;
  added.m_name = "Added";
  added.SetUserString("OrvSurface", "\"plastic\"");
  added.m_textures.emplace_back().m_image_file = "added.png";
  doc.m_material_table.AddMaterial(added);
}

// As baked maps come into a material: its own maps of the kind go.
void ReplaceTextures(CRhinoDoc& doc) {
  for (int i = 0; i < doc.m_material_table.Count(); ++i) {
    ON_Material changed = *doc.m_material_table.At(i);
    std::erase_if(changed.m_textures, [](const ON_Texture& texture) {
      return texture.m_type == ON_Texture::Type::bitmap;
    });
    changed.m_textures.emplace_back().m_image_file = "baked " + std::to_string(i) + ".tx";
    EXPECT_TRUE(doc.m_material_table.ModifyMaterial(changed, i));
  }
}

void ChangeLayers(CRhinoDoc& doc) {
  for (int i = 0; i < doc.m_layer_table.Count(); ++i) {
    ON_Layer changed = WithText(*doc.m_layer_table.At(i), i);
    changed.SetRenderMaterialIndex(doc.m_material_table.Count() - 1);
    changed.m_visible = !changed.m_visible;
    EXPECT_TRUE(doc.m_layer_table.ModifyLayer(changed, i));
  }
}

void ChangeLights(CRhinoDoc& doc) {
  for (int i = 0; i < doc.m_light_table.Count(); ++i) {
    ON_Light changed = WithText(*ON_Light::Cast(doc.m_light_table.At(i)->Geometry()), i);
    changed.m_intensity = 0.125;
    changed.m_light_name += " heller";
    changed.Enable(!changed.IsEnabled());
    EXPECT_TRUE(doc.m_light_table.ModifyLight(changed, i));
  }
}

void ChangeObjects(CRhinoDoc& doc) {
  int number = 0;
  for (const auto& object : doc.Objects()) {
    ON_3dmObjectAttributes changed = WithText(object->Attributes(), ++number);
    changed.m_name += " neu";
    changed.m_material_index = doc.m_material_table.Count() - 1;
    changed.m_material_source = ON_AttributeSource::object;
    if (number % 2 == 0 && changed.m_mode == ON_ObjectMode::normal) {
      changed.m_mode = ON_ObjectMode::hidden;
    }
    EXPECT_TRUE(doc.ModifyObjectAttributes(*object, changed));
  }
}

using Changes = std::vector<void (*)(CRhinoDoc&)>;

void Change(CRhinoDoc& doc, const Changes& changes) {
  const unsigned record = doc.BeginUndoRecord("Changes");
  for (const auto change : changes) change(doc);
  doc.EndUndoRecord(record);
}

// A document of the corpus, opened, and a folder to save it in.
class SavedDocument {
 public:
  explicit SavedDocument(const std::filesystem::path& path)
      : name_(path.filename().string()), original_(FileContent(path)) {
    app_.CommandWindow().SetSink([this](std::string_view text) { told_ += text; });
    opened_ = app_.OpenDocument(path.string());
    told_.clear();
  }

  bool IsOpen() const { return opened_; }
  bool IsLarge() const { return original_.size() > 10'000'000; }
  CRhinoDoc& Doc() { return app_.ActiveDoc(); }
  std::string Save(const std::string& name) {
    const std::string path = folder_.File(name);
    EXPECT_TRUE(app_.SaveDocument(path)) << told_;
    return FileContent(path);
  }
  bool IsOriginal(const std::string& bytes) const { return bytes == original_; }
  void ExpectUndone(const std::string& bytes) const {
    // These have user data without content, and colours by default: what is written instead
    // says the same.
    constexpr std::string_view kSaidOtherwise[] = {"r3dm_nested_blocks.3dm", "v5_rhino_logo.3dm",
                                                   "v4_MechPartA.3dm", "ont_TestCSX.3dm",
                                                   "v4_DinerMug.3dm"};
    const bool mayDiffer = std::find(std::begin(kSaidOtherwise), std::end(kSaidOtherwise), name_) !=
                           std::end(kSaidOtherwise);
    EXPECT_TRUE(mayDiffer || IsOriginal(bytes)) << name_;
  }
  const std::string& Told() const { return told_; }
  std::string Path(const std::string& name) const { return folder_.File(name); }

 private:
  TempFolder folder_;
  std::string name_;
  std::string original_;
  CRhinoApp app_;
  std::string told_;
  bool opened_ = false;
};

void ForEachDocument(const std::function<void(SavedDocument& document)>& check) {
  const auto corpus = ModelCorpus();
  if (!corpus) GTEST_SKIP() << "ORV_MODEL_CORPUS is not set";
  int count = 0;
  for (const char* const folder : {"real", "made"}) {
    for (const auto& entry : std::filesystem::directory_iterator(*corpus / folder)) {
      if (entry.path().extension() != ".3dm") continue;
      SavedDocument document(entry.path());
      if (!document.IsOpen()) continue;
      SCOPED_TRACE(entry.path().filename());
      check(document);
      ++count;
    }
  }
  EXPECT_GT(count, 0);
}

TEST(CorpusSave, AnUnchangedDocumentGivesTheSameBytes) {
  ForEachDocument([](SavedDocument& document) {
    EXPECT_TRUE(document.IsOriginal(document.Save("same.3dm")));
    EXPECT_TRUE(document.IsOriginal(document.Save("same.3dm")));
    EXPECT_EQ(document.Told(), "");
  });
}

TEST(CorpusSave, WhatIsUndoneBeforeItIsSavedIsNoChange) {
  ForEachDocument([](SavedDocument& document) {
    Change(document.Doc(),
           {ChangeMaterials, ReplaceTextures, ChangeLayers, ChangeLights, ChangeObjects});
    EXPECT_TRUE(document.Doc().Undo());
    EXPECT_TRUE(document.IsOriginal(document.Save("same.3dm")));
  });
}

// So all that stood around the changes is there as it was, every length and check sum included.
TEST(CorpusSave, ChangesThatWereSavedAndUndoneLeaveNoTrace) {
  ForEachDocument([](SavedDocument& document) {
    // So many rounds with a large one would only take their time.
    if (document.IsLarge()) return;
    for (const Changes& changes :
         std::vector<Changes>{{ChangeMaterials},
                              {ChangeLayers},
                              {ChangeLights},
                              {ChangeObjects},
                              {ChangeMaterials, ChangeLayers, ChangeLights, ChangeObjects}}) {
      Change(document.Doc(), changes);
      document.Save("changed.3dm");
      document.Doc().Undo();
      document.ExpectUndone(document.Save("undone.3dm"));
    }
  });
}

void ExpectSame(const ON_3dmObjectAttributes& a, const ON_3dmObjectAttributes& b) {
  EXPECT_EQ(a.m_name, b.m_name);
  EXPECT_EQ(a.m_layer_index, b.m_layer_index);
  EXPECT_EQ(a.m_material_index, b.m_material_index);
  EXPECT_EQ(a.m_material_source, b.m_material_source);
  EXPECT_EQ(a.m_mode, b.m_mode);
  EXPECT_EQ(a.m_group, b.m_group);
  EXPECT_EQ(a.m_color, b.m_color);
  EXPECT_EQ(a.m_linetype_index, b.m_linetype_index);
  EXPECT_EQ(a.m_user_strings.m_e, b.m_user_strings.m_e);
}

void ExpectSame(const CRhinoDoc& a, const CRhinoDoc& b) {
  ASSERT_EQ(a.Objects().size(), b.Objects().size());
  for (std::size_t i = 0; i < a.Objects().size(); ++i) {
    ExpectSame(a.Objects()[i]->Attributes(), b.Objects()[i]->Attributes());
    EXPECT_EQ(a.Objects()[i]->FileSpan().offset, b.Objects()[i]->FileSpan().offset);
    EXPECT_EQ(a.Objects()[i]->FileSpan().length, b.Objects()[i]->FileSpan().length);
  }
  ASSERT_EQ(a.m_material_table.Count(), b.m_material_table.Count());
  for (int i = 0; i < a.m_material_table.Count(); ++i) {
    const ON_Material &x = *a.m_material_table.At(i), &y = *b.m_material_table.At(i);
    EXPECT_EQ(x.m_name, y.m_name);
    EXPECT_EQ(x.m_diffuse, y.m_diffuse);
    EXPECT_EQ(x.m_transparency, y.m_transparency);
    EXPECT_EQ(x.m_shine, y.m_shine);
    EXPECT_EQ(x.m_user_strings.m_e, y.m_user_strings.m_e);
  }
  ASSERT_EQ(a.m_layer_table.Count(), b.m_layer_table.Count());
  for (int i = 0; i < a.m_layer_table.Count(); ++i) {
    const ON_Layer &x = *a.m_layer_table.At(i), &y = *b.m_layer_table.At(i);
    EXPECT_EQ(x.m_name, y.m_name);
    EXPECT_EQ(x.m_visible, y.m_visible);
    EXPECT_EQ(x.m_render_material_index, y.m_render_material_index);
    EXPECT_EQ(x.m_parent_id, y.m_parent_id);
    EXPECT_EQ(x.m_user_strings.m_e, y.m_user_strings.m_e);
  }
  ASSERT_EQ(a.Lights().size(), b.Lights().size());
  for (std::size_t i = 0; i < a.Lights().size(); ++i) {
    const ON_Light& x = *ON_Light::Cast(a.Lights()[i]->Geometry());
    const ON_Light& y = *ON_Light::Cast(b.Lights()[i]->Geometry());
    EXPECT_EQ(x.m_light_name, y.m_light_name);
    EXPECT_EQ(x.m_intensity, y.m_intensity);
    EXPECT_EQ(x.m_bOn, y.m_bOn);
    EXPECT_EQ(x.m_style, y.m_style);
    EXPECT_EQ(x.m_user_strings.m_e, y.m_user_strings.m_e);
    ExpectSame(a.Lights()[i]->Attributes(), b.Lights()[i]->Attributes());
  }
}

TEST(CorpusSave, ChangesAreThereWhenTheDocumentIsOpenedAgain) {
  ForEachDocument([](SavedDocument& document) {
    const std::vector<std::string> problems = document.Doc().Problems();
    Change(document.Doc(),
           {ChangeMaterials, ReplaceTextures, ChangeLayers, ChangeLights, ChangeObjects});
    document.Save("changed.3dm");
    SavedDocument again(document.Path("changed.3dm"));
    ASSERT_TRUE(again.IsOpen());
    ExpectSame(document.Doc(), again.Doc());
    EXPECT_EQ(again.Doc().Problems().size(), problems.size());
    EXPECT_TRUE(again.IsOriginal(again.Save("same.3dm")));
  });
}

}  // namespace

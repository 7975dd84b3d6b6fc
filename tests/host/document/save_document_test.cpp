#include "host/document/save_document.h"

#include <gmock/gmock.h>
#include <sys/resource.h>

#include <csignal>
#include <cstring>
#include <filesystem>

#include "host/archive/file_layout.h"
#include "host/archive/new_document.h"
#include "host/archive/record_writers.h"
#include "host/document/app.h"
#include "model_parts.h"
#include "support/model_writer.h"
#include "support/record_writers.h"
#include "support/temp_folder.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

// Keeps a text in the document.
class NotePlugIn : public CRhinoPlugInDocumentData {
 public:
  ON_UUID PlugInID() const override { return TestId(77); }
  bool CallWriteDocument(const CRhinoFileWriteOptions& options) override {
    return !options.Mode(0) && !Note.empty();
  }
  bool WriteDocument(CRhinoDoc&, ON_BinaryArchive& archive,
                     const CRhinoFileWriteOptions&) override {
    if (Fails || !archive.BeginWrite3dmChunk(TCODE_ANONYMOUS_CHUNK, 1, 0)) return false;
    archive.WriteString(Note);
    return archive.EndWrite3dmChunk();
  }
  bool ReadDocument(CRhinoDoc&, ON_BinaryArchive& archive, const CRhinoFileReadOptions&) override {
    int major = 0, minor = 0;
    if (!archive.BeginRead3dmChunk(TCODE_ANONYMOUS_CHUNK, &major, &minor)) return false;
    const bool ok = archive.ReadString(&Note);
    return archive.EndRead3dmChunk() && ok;
  }

  std::string Note;
  bool Fails = false;
};

class SaveDocumentTest : public testing::Test {
 protected:
  SaveDocumentTest() {
    app_.CommandWindow().SetSink([this](std::string_view text) { told_ += text; });
  }

  static ONX_Model Model(int version) {
    ONX_Model model;
    model.m_3dm_file_version = version;
    model.m_layer_table = {Layer("House", TestId(1)), Layer("Garden", TestId(2))};
    ON_Material& brick = model.m_material_table.emplace_back();
    brick.m_name = "brick";
    brick.m_id = TestId(10);
    brick.m_textures.emplace_back().m_image_file = "C:\\bricks.png";
    for (unsigned i = 0; i < 3; ++i) {
      model.m_object_table.push_back(
          TriangleObject(TestId(20 + i), {5 * static_cast<float>(i), 0, 0}));
    }
    model.m_object_table[1].m_attributes.SetUserString("Old", "text");
    model.m_light_table = {PointLight(TestId(30))};
    return model;
  }

  // Opens a document of these bytes.
  CRhinoDoc& Open(const std::string& bytes) {
    original_ = bytes;
    WriteFileContent(Path(), bytes);
    EXPECT_TRUE(app_.OpenDocument(Path())) << told_;
    told_.clear();
    return app_.ActiveDoc();
  }
  std::string Path() const { return folder_.File("modell.3dm"); }
  bool Save() { return app_.SaveDocument(Path()); }
  bool IsOriginal() const { return FileContent(Path()) == original_; }
  // The document as another program finds it.
  const CRhinoDoc& Reopened() {
    reader_.CommandWindow().SetSink([this](std::string_view text) { found_ += text; });
    EXPECT_TRUE(reader_.OpenDocument(app_.ActiveDoc().PathName())) << found_;
    return reader_.ActiveDoc();
  }
  std::vector<std::string> Files() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder_.Path())) {
      names.push_back(entry.path().filename().string());
    }
    return names;
  }
  static void Name(CRhinoDoc& doc, std::size_t object, const std::string& name) {
    ON_3dmObjectAttributes changed = doc.Objects()[object]->Attributes();
    changed.m_name = name;
    EXPECT_TRUE(doc.ModifyObjectAttributes(*doc.Objects()[object], changed));
  }

  TempFolder folder_;
  CRhinoApp app_;
  CRhinoApp reader_;
  std::string original_;
  std::string told_;
  std::string found_;
};

class SaveVersionTest : public SaveDocumentTest, public testing::WithParamInterface<int> {};

TEST_P(SaveVersionTest, ChangesComeAndGo) {
  CRhinoDoc& doc = Open(WriteModel(Model(GetParam())));
  Name(doc, 0, "Größe");
  ASSERT_TRUE(Save()) << told_;
  EXPECT_FALSE(IsOriginal());
  EXPECT_EQ(Reopened().Objects()[0]->Attributes().m_name, "Größe");
  EXPECT_EQ(Reopened().FileVersion(), GetParam());
  EXPECT_THAT(Reopened().Problems(), IsEmpty());
  EXPECT_TRUE(doc.Undo());
  ASSERT_TRUE(Save());
  EXPECT_TRUE(IsOriginal());
}

// Each change is saved on top of the ones before.
TEST_P(SaveVersionTest, ADocumentIsSavedAgainAndAgain) {
  CRhinoDoc& doc = Open(WriteModel(Model(GetParam())));
  for (std::size_t i = 0; i < 3; ++i) {
    Name(doc, i, std::string(10 * (i + 1), 'x'));
    ASSERT_TRUE(Save());
    const CRhinoDoc& again = Reopened();
    for (std::size_t k = 0; k < 3; ++k) {
      EXPECT_EQ(again.Objects()[k]->Attributes().m_name, doc.Objects()[k]->Attributes().m_name);
      EXPECT_EQ(again.Objects()[k]->FileSpan().offset, doc.Objects()[k]->FileSpan().offset);
    }
  }
}

TEST_P(SaveVersionTest, MapsOfAMaterialAreReplaced) {
  CRhinoDoc& doc = Open(WriteModel(Model(GetParam())));
  ON_Material material = *doc.m_material_table.At(0);
  material.m_textures[0].m_image_file = "baked.tx";
  EXPECT_TRUE(doc.m_material_table.ModifyMaterial(material, 0));
  ASSERT_TRUE(Save());
  ASSERT_THAT(Reopened().m_material_table.At(0)->m_textures, SizeIs(1));
  EXPECT_EQ(Reopened().m_material_table.At(0)->m_textures[0].m_image_file, "baked.tx");
}

INSTANTIATE_TEST_SUITE_P(Versions, SaveVersionTest, testing::Values(4, 50, 80));

class SaveNewRecordsTest : public SaveDocumentTest,
                           public testing::WithParamInterface<std::pair<int, unsigned>> {};

ON_Material NewMaterial() {
  ON_Material material;
  material.m_name = "Käfer";
  material.SetUserString("OrvSurface", "\"plastic\"");
  material.m_shine = 40;
  material.m_transparency = 0.5;
  material.m_diffuse = ON_Color(1, 2, 3);
  material.m_textures.emplace_back().m_image_file = "map.png";
  return material;
}

TEST_P(SaveNewRecordsTest, MaterialsAndLightsAreWrittenInEachVersion) {
  const auto [version, library] = GetParam();
  CRhinoDoc& doc = Open(host::NewDocument(version, library, {}));
  EXPECT_EQ(doc.m_material_table.AddMaterial(NewMaterial()), 0);
  doc.m_user_strings.SetUserString("Kunde", "Größe");
  ONX_Model lights;
  lights.m_3dm_file_version = 80;
  lights.m_light_table = {PointLight(TestId(30))};
  lights.m_light_table[0].m_light->m_light_name = "Lampe";
  lights.m_light_table[0].m_light->SetUserString("OrvLightIntensity", "2");
  lights.m_light_table[0].m_attributes.m_name = "An der Decke";
  doc.ImportModel(std::move(lights));
  ASSERT_TRUE(Save()) << told_;
  EXPECT_EQ(told_, "");

  const CRhinoDoc& again = Reopened();
  EXPECT_THAT(again.Problems(), IsEmpty());
  ASSERT_EQ(again.m_material_table.Count(), 1);
  const ON_Material& material = *again.m_material_table.At(0);
  EXPECT_EQ(material.m_name, "Käfer");
  EXPECT_EQ(material.GetUserString("OrvSurface"), "\"plastic\"");
  EXPECT_EQ(material.m_shine, 40);
  EXPECT_EQ(material.m_transparency, 0.5);
  EXPECT_EQ(material.m_diffuse, ON_Color(1, 2, 3));
  ASSERT_THAT(material.m_textures, SizeIs(1));
  EXPECT_EQ(material.m_textures[0].m_image_file, "map.png");
  ASSERT_EQ(again.Lights().size(), 1u);
  const ON_Light& light = *ON_Light::Cast(again.Lights()[0]->Geometry());
  EXPECT_EQ(light.m_light_name, "Lampe");
  EXPECT_EQ(light.GetUserString("OrvLightIntensity"), "2");
  EXPECT_EQ(again.Lights()[0]->Attributes().m_name, "An der Decke");
  EXPECT_EQ(again.Lights()[0]->FileSpan().offset, doc.Lights()[0]->FileSpan().offset);
  EXPECT_EQ(again.m_user_strings.GetUserString("Kunde"), "Größe");
}

TEST_P(SaveNewRecordsTest, AMaterialWhoseAddingIsUndoneGoes) {
  const auto [version, library] = GetParam();
  CRhinoDoc& doc = Open(host::NewDocument(version, library, {}));
  doc.m_material_table.AddMaterial(NewMaterial());
  ASSERT_TRUE(Save());
  EXPECT_TRUE(doc.Undo());
  ASSERT_TRUE(Save());
  EXPECT_TRUE(IsOriginal());
}

INSTANTIATE_TEST_SUITE_P(Versions, SaveNewRecordsTest,
                         testing::Values(std::pair(2, 200012210u), std::pair(3, 200612060u),
                                         std::pair(4, 200712190u), std::pair(5, 200712190u),
                                         std::pair(50, 201008125u), std::pair(60, 0x8C005F94u),
                                         std::pair(70, 0x8E0072B4u), std::pair(80, 0x90007D00u)));

TEST_F(SaveDocumentTest, ATableThatTheDocumentLacksIsAdded) {
  ON_BinaryArchive archive(50);
  ASSERT_TRUE(host::WriteFileStart(archive, ""));
  host::WriteTable(archive, TCODE_PROPERTIES_TABLE, [](ON_BinaryArchive& table) {
    table.WriteShortChunk(TCODE_PROPERTIES_OPENNURBS_VERSION, 201008125);
  });
  host::WriteTable(archive, TCODE_OBJECT_TABLE, [](ON_BinaryArchive&) {});
  ASSERT_TRUE(host::WriteEndMark(archive));
  CRhinoDoc& doc = Open(archive.TakeBytes());
  doc.m_material_table.AddMaterial(NewMaterial());
  doc.m_material_table.AddMaterial(NewMaterial());
  ASSERT_TRUE(Save());
  EXPECT_EQ(Reopened().m_material_table.Count(), 2);
  EXPECT_THAT(Reopened().Problems(), IsEmpty());
}

TEST_F(SaveDocumentTest, ANewDocumentIsSavedAsOneOfVersion7) {
  app_.ActiveDoc().m_material_table.AddMaterial(NewMaterial());
  ASSERT_TRUE(app_.SaveDocument(folder_.File("neu.3dm")));
  EXPECT_EQ(app_.ActiveDoc().PathName(), folder_.File("neu.3dm"));
  EXPECT_EQ(Reopened().FileVersion(), 70);
  EXPECT_EQ(Reopened().m_material_table.Count(), 1);
  // It is then a document like any other.
  const std::string once = FileContent(folder_.File("neu.3dm"));
  ASSERT_TRUE(app_.SaveDocument(folder_.File("neu.3dm")));
  EXPECT_EQ(FileContent(folder_.File("neu.3dm")), once);
}

TEST_F(SaveDocumentTest, UndoGoesOnBehindSaving) {
  CRhinoDoc& doc = Open(WriteModel(Model(50)));
  Name(doc, 0, "one");
  ASSERT_TRUE(app_.SaveDocument(folder_.File("anders.3dm")));
  EXPECT_EQ(doc.PathName(), folder_.File("anders.3dm"));
  EXPECT_TRUE(doc.Undo());
  EXPECT_EQ(doc.Objects()[0]->Attributes().m_name, "");
  EXPECT_TRUE(doc.Redo());
  EXPECT_EQ(doc.Objects()[0]->Attributes().m_name, "one");
  EXPECT_TRUE(IsOriginal());
}

// It then stands behind them in the file.
TEST_F(SaveDocumentTest, LightsBehindOneThatWasBroughtBackAreStillSaved) {
  ONX_Model model = Model(50);
  model.m_light_table = {PointLight(TestId(30)), PointLight(TestId(31)), PointLight(TestId(32))};
  CRhinoDoc& doc = Open(WriteModel(model));
  EXPECT_TRUE(doc.m_light_table.DeleteLight(0));
  ASSERT_TRUE(Save());
  EXPECT_TRUE(doc.Undo());
  ASSERT_TRUE(Save());
  ON_Light moved = *ON_Light::Cast(doc.Lights()[1]->Geometry());
  moved.m_location = {5, 6, 7};
  EXPECT_TRUE(doc.m_light_table.ModifyLight(moved, 1));
  EXPECT_TRUE(doc.m_light_table.DeleteLight(2));
  ASSERT_TRUE(Save()) << told_;

  const auto lights = Reopened().Lights();
  ASSERT_EQ(lights.size(), 2u);
  EXPECT_EQ(lights[0]->Attributes().m_uuid, TestId(31));
  EXPECT_EQ(ON_Light::Cast(lights[0]->Geometry())->m_location.z, 7);
  EXPECT_EQ(lights[1]->Attributes().m_uuid, TestId(30));
}

TEST_F(SaveDocumentTest, DataOfAPlugInIsWrittenWhenItChanges) {
  NotePlugIn plugIn;
  Open(WriteModel(Model(50)));
  app_.AddPlugInData(plugIn);
  ASSERT_TRUE(Save());
  EXPECT_TRUE(IsOriginal());
  plugIn.Note = "Größe";
  ASSERT_TRUE(Save());
  ASSERT_THAT(Reopened().PlugInData(), SizeIs(1));
  NotePlugIn other;
  reader_.AddPlugInData(other);
  EXPECT_EQ(other.Note, "Größe");
  plugIn.Note.clear();
  ASSERT_TRUE(Save());
  EXPECT_TRUE(IsOriginal());
  app_.RemovePlugInData(plugIn);
}

TEST_F(SaveDocumentTest, DataThatAPlugInHadBeforeADocumentWasOpenedIsNoChangeOfIt) {
  NotePlugIn plugIn;
  plugIn.Note = "of the user";
  app_.AddPlugInData(plugIn);
  Open(WriteModel(Model(50)));
  ASSERT_TRUE(Save());
  EXPECT_TRUE(IsOriginal());
  plugIn.Note = "of the document";
  ASSERT_TRUE(Save());
  EXPECT_THAT(Reopened().PlugInData(), SizeIs(1));
  app_.RemovePlugInData(plugIn);
}

TEST_F(SaveDocumentTest, DataOfOtherPlugInsStays) {
  ONX_Model model = Model(50);
  for (const unsigned id : {76u, 77u, 77u, 78u}) {
    ONX_PlugInData& data = model.m_userdata_table.emplace_back();
    data.m_plugin_id = TestId(id);
    data.m_archive_version = 50;
    data.m_opennurbs_version = 201008125;
    data.m_bytes = "anything " + std::to_string(id);
  }
  NotePlugIn plugIn;
  app_.AddPlugInData(plugIn);
  Open(WriteModel(model));
  plugIn.Note = "mine";
  ASSERT_TRUE(Save());
  const auto& data = Reopened().PlugInData();
  ASSERT_THAT(data, SizeIs(3));
  EXPECT_EQ(data[0].m_bytes, "anything 76");
  EXPECT_EQ(data[1].m_plugin_id, TestId(77));
  EXPECT_EQ(data[2].m_bytes, "anything 78");
  app_.RemovePlugInData(plugIn);
}

TEST_F(SaveDocumentTest, DataThatThePlugInCanNotReadStays) {
  ONX_Model model = Model(50);
  ONX_PlugInData& data = model.m_userdata_table.emplace_back();
  data.m_plugin_id = TestId(77);
  data.m_archive_version = 50;
  data.m_opennurbs_version = 201008125;
  data.m_bytes = "of a later version";
  NotePlugIn plugIn;
  app_.AddPlugInData(plugIn);
  WriteFileContent(Path(), original_ = WriteModel(model));
  ASSERT_TRUE(app_.OpenDocument(Path()));
  EXPECT_THAT(told_, HasSubstr("could not be read"));
  ASSERT_TRUE(Save());
  EXPECT_TRUE(IsOriginal());
  app_.RemovePlugInData(plugIn);
}

TEST_F(SaveDocumentTest, APlugInThatCanNotWriteStopsTheSaving) {
  NotePlugIn plugIn;
  app_.AddPlugInData(plugIn);
  Open(WriteModel(Model(50)));
  plugIn.Note = "mine";
  plugIn.Fails = true;
  EXPECT_FALSE(Save());
  EXPECT_THAT(told_, HasSubstr("can't be written"));
  EXPECT_TRUE(IsOriginal());
  app_.RemovePlugInData(plugIn);
}

TEST_F(SaveDocumentTest, ImportedObjectsCanNotBeSaved) {
  CRhinoDoc& doc = Open(WriteModel(Model(50)));
  doc.ImportModel(Model(50));
  EXPECT_FALSE(Save());
  EXPECT_EQ(told_,
            "Unable to save " + Path() +
                ": it holds what was imported from other documents, which can't be saved.\n");
  EXPECT_TRUE(IsOriginal());
}

TEST_F(SaveDocumentTest, AFileThatIsWrittenToMeanwhileIsNotCopiedFrom) {
  CRhinoDoc& doc = Open(WriteModel(Model(50)));
  Name(doc, 0, "one");
  WriteFileContent(Path(), original_ + "more");
  EXPECT_FALSE(app_.SaveDocument(folder_.File("anders.3dm")));
  EXPECT_EQ(told_, "Unable to save " + folder_.File("anders.3dm") +
                       ": the file that it was opened from has been changed by another program "
                       "since.\n");
  EXPECT_THAT(Files(), ElementsAre("modell.3dm"));
}

// What was opened stays open, whatever its name stands for meanwhile.
TEST_F(SaveDocumentTest, AFileThatWasRemovedIsStillThereToBeCopied) {
  Open(WriteModel(Model(50)));
  std::filesystem::remove(Path());
  ASSERT_TRUE(app_.SaveDocument(folder_.File("anders.3dm"))) << told_;
  EXPECT_EQ(FileContent(folder_.File("anders.3dm")), original_);
}

TEST_F(SaveDocumentTest, WhereNoFileCanBeWrittenTheReasonIsTold) {
  CRhinoDoc& doc = Open(WriteModel(Model(50)));
  std::filesystem::create_directory(folder_.File("ordner.3dm"));
  EXPECT_FALSE(app_.SaveDocument(folder_.File("ordner.3dm")));
  EXPECT_THAT(told_, HasSubstr("Is a directory"));
  told_.clear();
  EXPECT_FALSE(app_.SaveDocument(folder_.File("weg/modell.3dm")));
  EXPECT_THAT(told_, HasSubstr("No such file or directory"));
  EXPECT_FALSE(app_.SaveDocument("/dev/full"));
  EXPECT_EQ(doc.PathName(), Path());
  EXPECT_THAT(Files(), testing::UnorderedElementsAre("modell.3dm", "ordner.3dm"));
}

TEST_F(SaveDocumentTest, AFullDiskLeavesTheFileAsItWas) {
  CRhinoDoc& doc = Open(WriteModel(Model(50)));
  Name(doc, 0, "one");
  rlimit before{};
  getrlimit(RLIMIT_FSIZE, &before);
  const auto handler = std::signal(SIGXFSZ, SIG_IGN);
  for (const rlim_t limit : {rlim_t{0}, rlim_t{100}, rlim_t{original_.size() - 1}}) {
    const rlimit small{limit, before.rlim_max};
    setrlimit(RLIMIT_FSIZE, &small);
    EXPECT_FALSE(Save());
    setrlimit(RLIMIT_FSIZE, &before);
    EXPECT_TRUE(IsOriginal());
    EXPECT_THAT(Files(), ElementsAre("modell.3dm"));
  }
  std::signal(SIGXFSZ, handler);
  EXPECT_THAT(told_, HasSubstr("File too large"));
  EXPECT_TRUE(Save());
}

TEST_F(SaveDocumentTest, PermissionsStayAndALinkIsFollowed) {
  CRhinoDoc& doc = Open(WriteModel(Model(50)));
  std::filesystem::permissions(Path(), std::filesystem::perms(0640));
  std::filesystem::create_symlink("modell.3dm", folder_.File("link.3dm"));
  Name(doc, 0, "one");
  ASSERT_TRUE(app_.SaveDocument(folder_.File("link.3dm")));
  EXPECT_TRUE(std::filesystem::is_symlink(folder_.File("link.3dm")));
  EXPECT_FALSE(IsOriginal());
  EXPECT_EQ(std::filesystem::status(Path()).permissions(), std::filesystem::perms(0640));
  EXPECT_EQ(Reopened().Objects()[0]->Attributes().m_name, "one");
}

// The bytes of one record in place of those of others.
TEST_F(SaveDocumentTest, BrokenRecordsStayAsTheyAre) {
  std::string bytes = WriteModel(Model(50));
  const std::size_t name = bytes.find(std::string("b\0r\0i\0c\0k", 9));
  ASSERT_NE(name, std::string::npos);
  // The count of the name's letters.
  bytes[name - 4] = '\x7f';
  bytes[name - 3] = '\x7f';
  CRhinoDoc& doc = Open(bytes);
  ASSERT_THAT(doc.Problems(), SizeIs(1));
  ASSERT_TRUE(Save());
  EXPECT_TRUE(IsOriginal());

  Name(doc, 2, "one");
  ON_Material material = *doc.m_material_table.At(0);
  material.SetUserString("OrvSurface", "\"plastic\"");
  EXPECT_TRUE(doc.m_material_table.ModifyMaterial(material, 0));
  ASSERT_TRUE(Save());
  EXPECT_THAT(told_, HasSubstr("The change of material "));
  EXPECT_EQ(Reopened().Objects()[2]->Attributes().m_name, "one");
  EXPECT_EQ(Reopened().Problems(), doc.Problems());
}

// Of a broken record, all that was read of it may have been changed.
TEST_F(SaveDocumentTest, EachChangeOfABrokenRecordIsTold) {
  std::string bytes = WriteModel(Model(50));
  const std::size_t name = bytes.find(std::string("H\0o\0u\0s\0e", 9));
  ASSERT_NE(name, std::string::npos);
  bytes[name - 4] = '\x7f';
  bytes[name - 3] = '\x7f';
  CRhinoDoc& doc = Open(bytes);
  ASSERT_THAT(doc.Problems(), SizeIs(1));
  ASSERT_TRUE(Save());
  EXPECT_EQ(told_, "");

  ON_Layer layer = *doc.m_layer_table.At(0);
  layer.m_color = ON_Color(1, 2, 3);
  EXPECT_TRUE(doc.m_layer_table.ModifyLayer(layer, 0));
  ASSERT_TRUE(Save());
  EXPECT_EQ(told_, "The change of layer  isn't saved: what the file holds of it is broken.\n");
  EXPECT_TRUE(IsOriginal());
}

TEST_F(SaveDocumentTest, AFileThatIsCutShortIsSavedAsItIsAndWithAChange) {
  const std::string whole = WriteModel(Model(50));
  for (std::size_t size = whole.size() - 1; size > whole.size() / 2; size -= 37) {
    SCOPED_TRACE(size);
    CRhinoDoc& doc = Open(whole.substr(0, size));
    ASSERT_TRUE(Save());
    EXPECT_TRUE(IsOriginal());
    if (doc.Objects().empty()) continue;
    Name(doc, 0, "one");
    ASSERT_TRUE(Save());
    ASSERT_EQ(Reopened().Objects().size(), doc.Objects().size());
    EXPECT_EQ(Reopened().Objects()[0]->Attributes().m_name, "one");
  }
}

TEST_F(SaveDocumentTest, WhatIsAddedToAFileThatIsCutShortIsRead) {
  const std::string whole = WriteModel(Model(50));
  for (std::size_t size = whole.size() - 1; size > whole.size() / 4; size -= 61) {
    SCOPED_TRACE(size);
    WriteFileContent(Path(), whole.substr(0, size));
    if (!app_.OpenDocument(Path())) continue;
    CRhinoDoc& doc = app_.ActiveDoc();
    const int material = doc.m_material_table.AddMaterial(NewMaterial());
    const int light = doc.m_light_table.AddLight(ON_Light());
    doc.m_user_strings.SetUserString("Kunde", "Größe");
    ASSERT_TRUE(Save()) << told_;
    const CRhinoDoc& again = Reopened();
    ASSERT_EQ(again.m_material_table.Count(), doc.m_material_table.Count());
    EXPECT_EQ(again.m_material_table.At(material)->m_name, "Käfer");
    EXPECT_EQ(again.m_light_table.Count(), light + 1);
    EXPECT_EQ(again.m_user_strings.GetUserString("Kunde"), "Größe");
    EXPECT_EQ(again.Objects().size(), doc.Objects().size());
  }
}

// Where the n-th record of a kind begins.
std::size_t RecordAt(const std::string& bytes, std::uint32_t typecode, int n) {
  const std::string head(reinterpret_cast<const char*>(&typecode), sizeof typecode);
  std::size_t at = bytes.find(head);
  while (n-- > 0) at = bytes.find(head, at + 1);
  return at;
}

// Nothing is read behind a record that leads out of its table.
TEST_F(SaveDocumentTest, NewRecordsComeInFrontOfOneThatLeadsOutOfItsTable) {
  ONX_Model model = Model(50);
  model.m_material_table.emplace_back().m_name = "wood";
  model.m_light_table.push_back(PointLight(TestId(31)));
  std::string bytes = WriteModel(model);
  const std::int64_t length = 1 << 20;
  for (const std::uint32_t typecode : {TCODE_MATERIAL_RECORD, TCODE_LIGHT_RECORD}) {
    const std::size_t at = RecordAt(bytes, typecode, 1);
    ASSERT_NE(at, std::string::npos);
    bytes.replace(at + 4, 8, reinterpret_cast<const char*>(&length), 8);
  }
  CRhinoDoc& doc = Open(bytes);
  EXPECT_EQ(doc.m_material_table.AddMaterial(NewMaterial()), 1);
  EXPECT_EQ(doc.m_light_table.AddLight(ON_Light()), 1);
  ASSERT_TRUE(Save());
  EXPECT_EQ(told_, "");
  ASSERT_EQ(Reopened().m_material_table.Count(), 2);
  EXPECT_EQ(Reopened().m_material_table.At(1)->m_name, "Käfer");
  EXPECT_EQ(Reopened().m_light_table.Count(), 2);
  EXPECT_EQ(Reopened().Objects().size(), 3u);
  // Where they go when they are taken back.
  EXPECT_TRUE(doc.Undo());
  EXPECT_TRUE(doc.Undo());
  ASSERT_TRUE(Save());
  EXPECT_TRUE(IsOriginal());
}

// A chunk of zeros, as a crash of the machine leaves them in a file, is one without content.
TEST_F(SaveDocumentTest, NewRecordsComeBehindZerosInATable) {
  std::string bytes = WriteModel(Model(50));
  const std::size_t record = RecordAt(bytes, TCODE_MATERIAL_RECORD, 0);
  std::fill(bytes.begin() + static_cast<std::ptrdiff_t>(record),
            bytes.begin() + static_cast<std::ptrdiff_t>(record) + 12, '\0');
  WriteFileContent(Path(), bytes);
  ASSERT_TRUE(app_.OpenDocument(Path()));
  const std::size_t objects = app_.ActiveDoc().Objects().size();
  const int index = app_.ActiveDoc().m_material_table.AddMaterial(NewMaterial());
  ASSERT_TRUE(Save());
  ASSERT_EQ(Reopened().m_material_table.Count(), index + 1);
  EXPECT_EQ(Reopened().m_material_table.At(index)->m_name, "Käfer");
  EXPECT_EQ(Reopened().Objects().size(), objects);
}

// The record of an object or light of version 50 with another chunk in it, at its end.
std::string WithChunk(std::string record, const std::string& chunk) {
  // The end mark, and the sum, which leaves out chunks.
  constexpr std::size_t kEnd = 12 + 4;
  std::int64_t length = 0;
  std::memcpy(&length, record.data() + 4, sizeof length);
  length += static_cast<std::int64_t>(chunk.size());
  record.replace(4, sizeof length, reinterpret_cast<const char*>(&length), sizeof length);
  return record.insert(record.size() - kEnd, chunk);
}

// The document with a record in the place of the first one of its kind.
std::string WithRecord(std::uint32_t table, const std::string& record) {
  ON_BinaryArchive archive(50);
  EXPECT_TRUE(host::WriteFileStart(archive, ""));
  host::WriteTable(archive, TCODE_PROPERTIES_TABLE, [](ON_BinaryArchive& properties) {
    properties.WriteShortChunk(TCODE_PROPERTIES_OPENNURBS_VERSION, 201008125);
  });
  host::WriteTable(archive, table, [&](ON_BinaryArchive& records) {
    records.WriteByte(std::as_bytes(std::span(record)));
  });
  EXPECT_TRUE(host::WriteEndMark(archive));
  return archive.TakeBytes();
}

TEST_F(SaveDocumentTest, ALightThatIsBroughtBackHasWhatOtherProgramsPutIntoIt) {
  ON_BinaryArchive record(50, 201008125);
  ON_BinaryArchive foreign(50, 201008125);
  host::WriteLight(record, PointLight(TestId(30)), 0);
  {
    const host::ChunkWriter chunk(foreign, TCODE_ANONYMOUS_CHUNK);
    foreign.WriteByte(std::as_bytes(std::span("of another program")));
  }
  CRhinoDoc& doc =
      Open(WithRecord(TCODE_LIGHT_TABLE, WithChunk(record.TakeBytes(), foreign.TakeBytes())));
  ASSERT_EQ(doc.m_light_table.Count(), 1);
  ASSERT_THAT(doc.Problems(), IsEmpty());
  for (int i = 0; i < 2; ++i) {
    EXPECT_TRUE(doc.m_light_table.DeleteLight(0));
    ASSERT_TRUE(Save());
    EXPECT_EQ(FileContent(Path()).find("of another program"), std::string::npos);
    EXPECT_TRUE(doc.Undo());
    ASSERT_TRUE(Save());
    EXPECT_TRUE(IsOriginal());
  }
  EXPECT_TRUE(doc.m_light_table.DeleteLight(0));
  ASSERT_TRUE(Save());
  EXPECT_TRUE(doc.Undo());
  ON_Light light = *ON_Light::Cast(doc.Lights()[0]->Geometry());
  light.m_intensity = 4;
  EXPECT_TRUE(doc.m_light_table.ModifyLight(light, 0));
  ASSERT_TRUE(Save());
  EXPECT_NE(FileContent(Path()).find("of another program"), std::string::npos);
  ASSERT_EQ(Reopened().Lights().size(), 1u);
  EXPECT_THAT(Reopened().Problems(), IsEmpty());
  EXPECT_EQ(ON_Light::Cast(Reopened().Lights()[0]->Geometry())->m_intensity, 4);
}

// The reader takes the last list of texts.
TEST_F(SaveDocumentTest, OfSeveralListsOfTextsOneIsLeft) {
  ON_BinaryArchive record(50, 201008125);
  ON_BinaryArchive second(50, 201008125);
  ONX_ModelObject object = TriangleObject(TestId(20));
  object.m_attributes.SetUserString("Text", "first");
  model_writer::WriteObject(record, object, {});
  ON_UserStringList strings;
  strings.SetUserString("Text", "second");
  host::WriteAttributeStrings(second, strings, TCODE_OBJECT_RECORD_ATTRIBUTES_USERDATA);
  CRhinoDoc& doc =
      Open(WithRecord(TCODE_OBJECT_TABLE, WithChunk(record.TakeBytes(), second.TakeBytes())));
  ASSERT_EQ(doc.Objects().size(), 1u);
  ASSERT_THAT(doc.Problems(), IsEmpty());
  ON_3dmObjectAttributes changed = doc.Objects()[0]->Attributes();
  EXPECT_EQ(changed.GetUserString("Text"), "second");
  changed.SetUserString("Text", "third");
  EXPECT_TRUE(doc.ModifyObjectAttributes(*doc.Objects()[0], changed));
  ASSERT_TRUE(Save());
  EXPECT_EQ(Reopened().Objects()[0]->Attributes().GetUserString("Text"), "third");
  EXPECT_THAT(Reopened().Problems(), IsEmpty());

  EXPECT_TRUE(doc.Undo());
  changed.m_user_strings = {};
  EXPECT_TRUE(doc.ModifyObjectAttributes(*doc.Objects()[0], changed));
  ASSERT_TRUE(Save());
  EXPECT_TRUE(Reopened().Objects()[0]->Attributes().m_user_strings.IsEmpty());
}

// Two tables of each kind, each with one record.
std::string TablesTwice() {
  ON_BinaryArchive archive(50);
  EXPECT_TRUE(host::WriteFileStart(archive, ""));
  host::WriteTable(archive, TCODE_PROPERTIES_TABLE, [](ON_BinaryArchive& table) {
    table.WriteShortChunk(TCODE_PROPERTIES_OPENNURBS_VERSION, 201008125);
  });
  const auto writeTwice = [&](std::uint32_t typecode, const auto& write) {
    for (unsigned i = 0; i < 2; ++i) {
      host::WriteTable(archive, typecode, [&](ON_BinaryArchive& table) { write(table, i); });
    }
  };
  writeTwice(TCODE_MATERIAL_TABLE, [](ON_BinaryArchive& table, unsigned i) {
    ON_Material material;
    material.m_id = TestId(10 + i);
    material.m_name = "material " + std::to_string(i);
    host::WriteMaterial(table, material, static_cast<int>(i));
  });
  writeTwice(TCODE_LAYER_TABLE, [](ON_BinaryArchive& table, unsigned i) {
    host::WriteLayer(table, Layer("layer " + std::to_string(i), TestId(i)), static_cast<int>(i));
  });
  writeTwice(TCODE_LIGHT_TABLE, [](ON_BinaryArchive& table, unsigned i) {
    host::WriteLight(table, PointLight(TestId(30 + i)), static_cast<int>(i));
  });
  writeTwice(TCODE_OBJECT_TABLE, [](ON_BinaryArchive& table, unsigned i) {
    model_writer::WriteObject(table, TriangleObject(TestId(20 + i)), {});
  });
  EXPECT_TRUE(host::WriteEndMark(archive));
  return archive.TakeBytes();
}

TEST_F(SaveDocumentTest, SeveralTablesOfAKindAreOneToTheReader) {
  CRhinoDoc& doc = Open(TablesTwice());
  ASSERT_EQ(doc.m_material_table.Count(), 2);
  ASSERT_TRUE(Save());
  EXPECT_TRUE(IsOriginal());

  for (int i = 0; i < 2; ++i) {
    ON_Material material = *doc.m_material_table.At(i);
    material.m_name += " changed";
    EXPECT_TRUE(doc.m_material_table.ModifyMaterial(material, i));
    ON_Layer layer = *doc.m_layer_table.At(i);
    layer.m_name += " changed";
    EXPECT_TRUE(doc.m_layer_table.ModifyLayer(layer, i));
    ON_Light light = *ON_Light::Cast(doc.Lights()[static_cast<std::size_t>(i)]->Geometry());
    light.m_intensity = 3 + i;
    EXPECT_TRUE(doc.m_light_table.ModifyLight(light, i));
    Name(doc, static_cast<std::size_t>(i), "object " + std::to_string(i));
  }
  doc.m_material_table.AddMaterial(NewMaterial());
  doc.m_light_table.AddLight(ON_Light());
  ASSERT_TRUE(Save());
  EXPECT_EQ(told_, "");

  const CRhinoDoc& again = Reopened();
  EXPECT_THAT(again.Problems(), IsEmpty());
  ASSERT_EQ(again.m_material_table.Count(), 3);
  EXPECT_EQ(again.m_material_table.At(2)->m_name, "Käfer");
  ASSERT_EQ(again.m_layer_table.Count(), 2);
  ASSERT_EQ(again.m_light_table.Count(), 3);
  ASSERT_EQ(again.Objects().size(), 2u);
  for (std::size_t i = 0; i < 2; ++i) {
    const std::string number = std::to_string(i);
    const int index = static_cast<int>(i);
    EXPECT_EQ(again.m_material_table.At(index)->m_name, "material " + number + " changed");
    EXPECT_EQ(again.m_layer_table.At(index)->m_name, "layer " + number + " changed");
    EXPECT_EQ(ON_Light::Cast(again.Lights()[i]->Geometry())->m_intensity, 3 + index);
    EXPECT_EQ(again.Objects()[i]->Attributes().m_name, "object " + number);
  }
}

// Whatever a byte says: as it is, it is copied; with a change, the file can be opened again.
TEST_F(SaveDocumentTest, WrongBytesAreSavedAsTheyAre) {
  const std::string whole = WriteModel(Model(50));
  for (std::size_t at = 40; at < whole.size(); at += 13) {
    SCOPED_TRACE(at);
    std::string bytes = whole;
    bytes[at] = static_cast<char>(bytes[at] ^ 0xff);
    WriteFileContent(Path(), bytes);
    original_ = bytes;
    if (!app_.OpenDocument(Path())) continue;
    ASSERT_TRUE(Save()) << told_;
    EXPECT_TRUE(IsOriginal());
    CRhinoDoc& doc = app_.ActiveDoc();
    for (std::size_t i = 0; i < doc.Objects().size(); ++i) Name(doc, i, "longer than before");
    doc.m_material_table.AddMaterial(NewMaterial());
    ASSERT_TRUE(Save()) << told_;
    EXPECT_EQ(Reopened().Objects().size(), doc.Objects().size());
  }
}

}  // namespace

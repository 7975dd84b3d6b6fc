#include "host/document/app.h"

#include <gtest/gtest.h>

#include "host/archive/binary_archive.h"
#include "model_parts.h"
#include "support/temp_folder.h"

namespace {

// Keeps an integer in the document, as a chunk of version 1.
class CountingPlugIn : public CRhinoPlugInDocumentData {
 public:
  explicit CountingPlugIn(unsigned id) : id_(TestId(id)) {}

  ON_UUID PlugInID() const override { return id_; }
  bool CallWriteDocument(const CRhinoFileWriteOptions&) override { return true; }
  bool WriteDocument(CRhinoDoc&, ON_BinaryArchive&, const CRhinoFileWriteOptions&) override {
    return false;
  }
  bool ReadDocument(CRhinoDoc&, ON_BinaryArchive& archive,
                    const CRhinoFileReadOptions& options) override {
    ++ReadCount;
    Merged = options.Mode(0);
    ArchiveVersion = archive.Archive3dmVersion();
    int major = 0;
    int minor = 0;
    if (!archive.BeginRead3dmChunk(TCODE_ANONYMOUS_CHUNK, &major, &minor)) return false;
    const bool ok = major == 1 && archive.ReadInt(&Value);
    return archive.EndRead3dmChunk() && ok;
  }

  int ReadCount = 0;
  bool Merged = false;
  int ArchiveVersion = 0;
  std::int32_t Value = 0;

 private:
  ON_UUID id_;
};

ONX_PlugInData DataOf(unsigned id, int archive_version, int major, std::int32_t value) {
  ON_BinaryArchive archive(archive_version);
  EXPECT_TRUE(archive.BeginWrite3dmChunk(TCODE_ANONYMOUS_CHUNK, major, 0));
  archive.WriteInt(value);
  EXPECT_TRUE(archive.EndWrite3dmChunk());
  ONX_PlugInData data;
  data.m_plugin_id = TestId(id);
  data.m_archive_version = archive_version;
  data.m_opennurbs_version = archive.ArchiveOpenNURBSVersion();
  data.m_bytes = archive.TakeBytes();
  return data;
}

class AppTest : public testing::Test {
 protected:
  AppTest() {
    app_.CommandWindow().SetSink([this](std::string_view text) { printed_ += text; });
  }

  // The open document gets these data of plug-ins, as if it had been opened with them.
  void SetDocumentData(std::vector<ONX_PlugInData> data) {
    ONX_Model model;
    model.m_settings.m_plugin_list.resize(1);
    model.m_settings.m_plugin_list[0].m_plugin_id = TestId(1);
    model.m_settings.m_plugin_list[0].m_plugin_name = "Counter";
    model.m_userdata_table = std::move(data);
    app_.ActiveDoc().SetModel(std::move(model), "open.3dm");
  }

  CRhinoApp app_;
  std::string printed_;
};

TEST_F(AppTest, StartsWithAnEmptyDocumentAndAView) {
  EXPECT_TRUE(app_.ActiveDoc().Objects().empty());
  ASSERT_NE(app_.ActiveView(), nullptr);
  EXPECT_EQ(app_.ActiveView()->Viewport().Name(), "Perspective");
}

TEST_F(AppTest, ThereIsOneApplication) {
  EXPECT_EQ(&RhinoApp(), &RhinoApp());
}

TEST_F(AppTest, PrintsAPercentSignAsItIs) {
  app_.Print("100%d\n");
  EXPECT_EQ(printed_, "100%d\n");
}

TEST_F(AppTest, KeepsTheProfileThatItIsGiven) {
  host::Profile profile((std::string()));
  profile.SaveProfileInt("Section", "Key", 5);
  app_.SetProfile(std::move(profile));
  EXPECT_EQ(app_.ProfileContext().LoadProfileInt("Section", "Key"), 5);
}

TEST_F(AppTest, AFileThatIsNotThereLeavesTheOpenDocument) {
  SetDocumentData({});
  const TempFolder folder;
  const std::string path = folder.File("100% gone.3dm");
  EXPECT_FALSE(app_.OpenDocument(path));
  EXPECT_EQ(printed_, "Unable to open " + path + ": No such file or directory\n");
  EXPECT_EQ(app_.ActiveDoc().PathName(), "open.3dm");
}

TEST_F(AppTest, AFolderIsNoDocument) {
  const TempFolder folder;
  EXPECT_FALSE(app_.OpenDocument(folder.Path().string()));
  EXPECT_EQ(printed_, "Unable to open " + folder.Path().string() + ": it is a folder\n");
}

TEST_F(AppTest, AForeignFileIsNotImportedEither) {
  const TempFolder folder;
  const std::string path = folder.File("note.3dm");
  WriteFileContent(path, "This is no model.");
  EXPECT_FALSE(app_.ImportDocument(path));
  EXPECT_EQ(printed_,
            "Unable to open " + path + ": it is no 3dm document: it doesn't begin as one\n");
}

TEST_F(AppTest, APlugInReadsItsDataOfTheOpenDocument) {
  for (const int version : {4, 50, 80}) {
    SetDocumentData({DataOf(2, version, 1, 22), DataOf(1, version, 1, 11)});
    CountingPlugIn plugIn(1);
    app_.AddPlugInData(plugIn);
    EXPECT_EQ(plugIn.ReadCount, 1);
    EXPECT_EQ(plugIn.Value, 11);
    EXPECT_EQ(plugIn.ArchiveVersion, version);
    EXPECT_FALSE(plugIn.Merged);
    app_.RemovePlugInData(plugIn);
  }
  EXPECT_EQ(printed_, "");
}

TEST_F(AppTest, APlugInWithoutDataIsNotAsked) {
  SetDocumentData({DataOf(2, 50, 1, 22)});
  CountingPlugIn plugIn(1);
  app_.AddPlugInData(plugIn);
  EXPECT_EQ(plugIn.ReadCount, 0);
}

TEST_F(AppTest, DataThatAPlugInCanNotReadIsToldByItsName) {
  SetDocumentData({DataOf(1, 50, 2, 11), DataOf(2, 50, 2, 22)});
  CountingPlugIn named(1);
  app_.AddPlugInData(named);
  EXPECT_EQ(printed_, "The document data of plug-in Counter could not be read.\n");
  printed_.clear();
  CountingPlugIn unnamed(2);
  app_.AddPlugInData(unnamed);
  EXPECT_EQ(printed_,
            "The document data of plug-in " + TestId(2).ToString() + " could not be read.\n");
}

TEST_F(AppTest, CutDataOfAPlugInIsToldAndDoesNoHarm) {
  ONX_PlugInData data = DataOf(1, 50, 1, 11);
  const std::string whole = data.m_bytes;
  for (std::size_t length = 0; length + 4 < whole.size(); ++length) {
    data.m_bytes = whole.substr(0, length);
    SetDocumentData({data});
    CountingPlugIn plugIn(1);
    printed_.clear();
    app_.AddPlugInData(plugIn);
    EXPECT_EQ(printed_, "The document data of plug-in Counter could not be read.\n") << length;
    app_.RemovePlugInData(plugIn);
  }
}

}  // namespace

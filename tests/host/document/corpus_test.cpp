#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <fstream>
#include <map>
#include <nlohmann/json.hpp>
#include <set>

#include "host/archive/binary_archive.h"
#include "host/document/app.h"
#include "host/document/object_iterator.h"
#include "host/document/read_report.h"
#include "support/class_words.h"
#include "support/model_corpus.h"

// Every document of the corpus is opened through the application and compared with what another
// reader found in it.

namespace {

using nlohmann::json;
namespace fs = std::filesystem;

struct Document {
  fs::path path;
  fs::path facts;
};

void PrintTo(const Document& document, std::ostream* out) {
  *out << document.path.filename();
}

std::vector<Document> Documents() {
  std::vector<Document> documents;
  const auto corpus = ModelCorpus();
  if (!corpus) return documents;
  for (const char* const folder : {"real", "made"}) {
    for (const auto& entry : fs::directory_iterator(*corpus / folder)) {
      const fs::path facts = *corpus / "facts" / (entry.path().stem().string() + ".json");
      if (entry.path().extension() == ".3dm" && fs::exists(facts)) {
        documents.push_back({entry.path(), facts});
      }
    }
  }
  std::sort(documents.begin(), documents.end(),
            [](const Document& a, const Document& b) { return a.path < b.path; });
  return documents;
}

std::string IdOf(const json& value) {
  return value.is_string() ? value.get<std::string>() : "";
}

// Whether a layer and all above it are on, by the facts.
bool IsOn(const json& layers, int index) {
  if (index < 0 || index >= static_cast<int>(layers.size())) return true;
  const json& layer = layers[static_cast<std::size_t>(index)];
  if (!layer.at("visible").get<bool>()) return false;
  const std::string parent = IdOf(layer.at("parent_id"));
  for (std::size_t i = 0; i < layers.size(); ++i) {
    if (!parent.empty() && IdOf(layers[i].at("uuid")) == parent) {
      return IsOn(layers, static_cast<int>(i));
    }
  }
  return true;
}

bool IsVisible(const json& facts, const json& object) {
  const json& attributes = object.at("attributes");
  const int mode = attributes.value("mode", 0);
  return !object.at("in_instance_definition").get<bool>() && (mode == 0 || mode == 2) &&
         attributes.value("visible", true) &&
         IsOn(facts.at("layers"), attributes.value("layer_index", 0));
}

class CorpusDocument : public testing::TestWithParam<Document> {
 protected:
  void SetUp() override {
    facts_ = json::parse(std::ifstream(GetParam().facts));
    app_.CommandWindow().SetSink([this](std::string_view text) { printed_ += text; });
    ASSERT_TRUE(app_.OpenDocument(GetParam().path.string())) << printed_;
  }

  CRhinoDoc& Doc() { return app_.ActiveDoc(); }
  void HasItsObjectsInOrder();
  void HasItsVisibleMeshes();
  void HasItsLayersByPath();
  void MeshesAndPointsHaveTheirBoxes();
  void OpensInItsActiveView();
  void ItsViewsAreUsable();
  void TellsInOneLineWhatWasNotRead();

  CRhinoApp app_;
  json facts_;
  std::string printed_;
};

void CorpusDocument::HasItsObjectsInOrder() {
  const json& objects = facts_.at("objects");
  ASSERT_EQ(Doc().Objects().size(), objects.size());
  ASSERT_EQ(Doc().Lights().size(), facts_.at("lights").size());
  for (std::size_t i = 0; i < objects.size(); ++i) {
    const CRhinoObject& object = *Doc().Objects()[i];
    SCOPED_TRACE(i);
    const std::string id = IdOf(objects[i].at("uuid"));
    if (!id.empty() && !ON_UuidFromString(id)->IsNil()) {
      EXPECT_EQ(object.Attributes().m_uuid.ToString(), id);
    }
    EXPECT_EQ(object.Attributes().m_name, objects[i].at("name").get<std::string>());
    EXPECT_EQ(object.IsVisible(), IsVisible(facts_, objects[i]));
    EXPECT_EQ(Doc().LookupObject(object.Attributes().m_uuid), &object);
    EXPECT_EQ(Doc().LookupObject(object.RuntimeSerialNumber()), &object);
  }
}

void CorpusDocument::HasItsVisibleMeshes() {
  const auto isVisibleMesh = [this](const json& object) {
    return object.at("class") == "ON_Mesh" && IsVisible(facts_, object);
  };
  const json& objects = facts_.at("objects");
  const auto expected = std::count_if(objects.begin(), objects.end(), isVisibleMesh);
  int visible = 0;
  CRhinoObjectIterator iterator(Doc());
  for (const CRhinoObject* o = iterator.First(); o != nullptr; o = iterator.Next()) {
    if (o->IsVisible() && o->Geometry() && o->ObjectType() == ON_ObjectType::mesh) ++visible;
  }
  EXPECT_EQ(visible, expected);
}

void CorpusDocument::HasItsLayersByPath() {
  const json& layers = facts_.at("layers");
  ASSERT_EQ(Doc().m_layer_table.Count(), static_cast<int>(layers.size()));
  for (int i = 0; i < Doc().m_layer_table.Count(); ++i) {
    const json& layer = layers[static_cast<std::size_t>(i)];
    EXPECT_EQ(Doc().m_layer_table.At(i)->m_name, layer.at("name").get<std::string>());
    EXPECT_EQ(Doc().m_layer_table.IsLayerVisible(i), IsOn(layers, i));
    EXPECT_TRUE(Doc().m_layer_table.FullPath(i).ends_with(layer.at("name").get<std::string>()));
  }
}

void CorpusDocument::MeshesAndPointsHaveTheirBoxes() {
  const json& objects = facts_.at("objects");
  for (std::size_t i = 0; i < objects.size(); ++i) {
    const ON_Geometry* geometry = Doc().Objects()[i]->Geometry();
    if (geometry == nullptr || !objects[i].at("bbox").is_array()) continue;
    // The other reader's boxes of annotations are those of their drawing.
    if (geometry->ObjectType() == ON_ObjectType::annotation) continue;
    SCOPED_TRACE(i);
    const auto expected = objects[i].at("bbox").get<std::vector<double>>();
    const ON_BoundingBox box = geometry->BoundingBox();
    const double found[] = {box.m_min.x, box.m_min.y, box.m_min.z,
                            box.m_max.x, box.m_max.y, box.m_max.z};
    // The other reader leaves room around surfaces of revolution that are part of a brep.
    const bool isLoose =
        objects[i].at("geometry").dump().find("ON_RevSurface") != std::string::npos;
    for (std::size_t k = 0; k < 6; ++k) {
      const double tolerance = 1e-5 * std::max(1.0, std::abs(expected.at(k)));
      const double outside = k < 3 ? expected[k] - found[k] : found[k] - expected[k];
      EXPECT_LE(outside, tolerance) << k;
      if (!isLoose) {
        EXPECT_GE(outside, -tolerance) << k;
      }
    }
  }
}

void CorpusDocument::OpensInItsActiveView() {
  const json& views = facts_.at("views");
  std::string expected = "Perspective";
  for (const json& view : views) {
    if (view.at("maximized").get<bool>() && view.at("view_type") == 0) {
      expected = view.at("name");
      break;
    }
  }
  const std::string named = IdOf(facts_.at("settings_misc").at("active_view_id"));
  for (const json& view : views) {
    if (!ON_UuidFromString(named)->IsNil() && IdOf(view.at("viewport_id")) == named) {
      expected = view.at("name");
    }
  }
  EXPECT_EQ(app_.ActiveView()->Viewport().Name(), expected);
}

void CorpusDocument::ItsViewsAreUsable() {
  std::vector<CRhinoView*> views;
  Doc().GetViewList(views, true, true);
  const std::size_t stored = facts_.at("views").size();
  EXPECT_EQ(views.size(), stored == 0 ? 4 : stored);
  std::set<ON_UUID> ids;
  for (const CRhinoView* view : views) {
    const CRhinoViewport& viewport = view->Viewport();
    SCOPED_TRACE(viewport.Name());
    const ON_Viewport::ScreenPort port = viewport.VP().GetScreenPort();
    const ON_Viewport::Frustum f = viewport.VP().GetFrustum();
    EXPECT_GE(port.right - port.left, 10);
    EXPECT_GE(port.bottom - port.top, 10);
    EXPECT_LE(port.right - port.left, 10000);
    // The shapes of port and frustum agree but for rounding to pixels.
    const double portAspect =
        static_cast<double>(port.right - port.left) / (port.bottom - port.top);
    EXPECT_NEAR((f.right - f.left) / (f.top - f.bottom) / portAspect, 1, 0.05);
    EXPECT_LT(f.near, f.far);
    EXPECT_TRUE(std::isfinite(viewport.Target().x));
    ids.insert(viewport.ViewportId());
  }
  EXPECT_EQ(ids.size(), views.size());
}

// What an object of a class is called. The facts call an annotation arrow of version 2 a line.
std::string NameOf(const CRhinoObject& object, const std::string& class_name) {
  const std::string found = object.ShortDescription();
  const bool isArrow = class_name == "ON_LineCurve" && found == "annotation arrow";
  return isArrow ? found : ClassWords().at(class_name);
}

// The line of the command window, by the facts and by which objects have no geometry.
void CorpusDocument::TellsInOneLineWhatWasNotRead() {
  const json& objects = facts_.at("objects");
  std::map<std::string, int> expected;
  for (std::size_t i = 0; i < objects.size(); ++i) {
    const std::string name = objects[i].at("class");
    const CRhinoObject& object = *Doc().Objects()[i];
    if (object.Geometry() != nullptr) continue;
    EXPECT_FALSE(IsReadClass(name) && object.ShortDescription() != "annotation arrow") << i;
    EXPECT_EQ(object.ShortDescription(), NameOf(object, name));
    ++expected[NameOf(object, name)];
  }
  const auto lines = std::count(printed_.begin(), printed_.end(), '\n');
  EXPECT_EQ(lines, Doc().UnreadKinds().empty() ? 0 : 1) << printed_;
  for (const auto& [name, count] : expected) {
    const std::string counted = std::to_string(count) + " " + (count == 1 ? name : Plural(name));
    EXPECT_THAT(printed_, testing::ContainsRegex("(: |, )" + counted + "(,|\\.)"));
  }
  EXPECT_TRUE(Doc().Problems().empty());
}

TEST_P(CorpusDocument, AgreesWithItsFacts) {
  HasItsObjectsInOrder();
  HasItsVisibleMeshes();
  HasItsLayersByPath();
  MeshesAndPointsHaveTheirBoxes();
  OpensInItsActiveView();
  ItsViewsAreUsable();
  TellsInOneLineWhatWasNotRead();
}

INSTANTIATE_TEST_SUITE_P(Corpus, CorpusDocument, testing::ValuesIn(Documents()),
                         [](const auto& instance) {
                           std::string name = instance.param.path.stem().string();
                           std::replace_if(
                               name.begin(), name.end(),
                               [](unsigned char c) { return std::isalnum(c) == 0; }, '_');
                           return name;
                         });
GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(CorpusDocument);

// Notes how many bytes it was given.
class MeasuringPlugIn : public CRhinoPlugInDocumentData {
 public:
  ON_UUID PlugInID() const override { return "a1b2c3d4-0001-4e5f-8a9b-0c1d2e3f4a5b"_uuid; }
  bool CallWriteDocument(const CRhinoFileWriteOptions&) override { return false; }
  bool WriteDocument(CRhinoDoc&, ON_BinaryArchive&, const CRhinoFileWriteOptions&) override {
    return false;
  }
  bool ReadDocument(CRhinoDoc&, ON_BinaryArchive& archive,
                    const CRhinoFileReadOptions& options) override {
    Bytes.push_back(archive.BytesLeft());
    Versions.push_back(archive.Archive3dmVersion());
    Merged.push_back(options.Mode(0));
    return true;
  }

  std::vector<std::uint64_t> Bytes;
  std::vector<int> Versions;
  std::vector<bool> Merged;
};

class CorpusFiles : public testing::Test {
 protected:
  void SetUp() override {
    if (!ModelCorpus()) GTEST_SKIP() << "ORV_MODEL_CORPUS is not set";
    app_.CommandWindow().SetSink([this](std::string_view text) { printed_ += text; });
  }
  static std::string Path(const char* file) { return (*ModelCorpus() / file).string(); }

  CRhinoApp app_;
  std::string printed_;
};

TEST_F(CorpusFiles, APlugInReadsItsDataWhenTheDocumentIsOpenedAndImported) {
  MeasuringPlugIn plugIn;
  app_.AddPlugInData(plugIn);
  ASSERT_TRUE(app_.OpenDocument(Path("made/plugin_data.3dm")));
  ASSERT_TRUE(app_.ImportDocument(Path("made/plugin_data.3dm")));
  EXPECT_THAT(plugIn.Bytes, testing::ElementsAre(1000, 1000));
  EXPECT_THAT(plugIn.Versions, testing::ElementsAre(80, 80));
  EXPECT_THAT(plugIn.Merged, testing::ElementsAre(false, true));
}

TEST_F(CorpusFiles, AnImportAddsTheObjectsAndKeepsTheDocument) {
  ASSERT_TRUE(app_.OpenDocument(Path("real/r3dm_hello_mesh.3dm")));
  CRhinoDoc& doc = app_.ActiveDoc();
  const ON_UUID first = doc.Objects()[0]->Attributes().m_uuid;
  const ON_BoundingBox box = doc.BoundingBox();
  ASSERT_TRUE(app_.ImportDocument(Path("made/dense_mesh.3dm")));
  EXPECT_EQ(doc.Objects().size(), 7u);
  EXPECT_EQ(doc.LookupObject(first), doc.Objects()[0].get());
  EXPECT_EQ(doc.PathName(), Path("real/r3dm_hello_mesh.3dm"));
  EXPECT_GT(doc.BoundingBox().m_max.x, box.m_max.x);
  EXPECT_EQ(printed_, "");
}

TEST_F(CorpusFiles, AnImportTellsWhatWasNotReadAndThatUnitsDiffer) {
  ASSERT_TRUE(app_.OpenDocument(Path("real/v3_my_points.3dm")));
  ASSERT_TRUE(app_.ImportDocument(Path("real/v3_T-Joint2.3dm")));
  EXPECT_THAT(printed_, testing::StartsWith("Not read: "));
  EXPECT_THAT(
      printed_,
      testing::EndsWith("\nThe imported document has other units; its objects were not scaled.\n"));
}

TEST_F(CorpusFiles, ImportingADocumentIntoItselfDoublesIt) {
  ASSERT_TRUE(app_.OpenDocument(Path("real/r3dm_hello_mesh.3dm")));
  const CRhinoDoc& doc = app_.ActiveDoc();
  const int layers = doc.m_layer_table.Count();
  ASSERT_TRUE(app_.ImportDocument(Path("real/r3dm_hello_mesh.3dm")));
  ASSERT_EQ(doc.Objects().size(), 12u);
  EXPECT_EQ(doc.m_layer_table.Count(), layers);
  for (std::size_t i = 0; i < 6; ++i) {
    const ON_3dmObjectAttributes& original = doc.Objects()[i]->Attributes();
    const ON_3dmObjectAttributes& copy = doc.Objects()[i + 6]->Attributes();
    EXPECT_EQ(copy.m_layer_index, original.m_layer_index);
    EXPECT_NE(copy.m_uuid, original.m_uuid);
  }
}

TEST_F(CorpusFiles, ADocumentOfVersionOneIsRefusedByItsVersion) {
  EXPECT_FALSE(app_.OpenDocument(Path("real/v1_three_points.3dm")));
  EXPECT_EQ(printed_, "Unable to open " + Path("real/v1_three_points.3dm") +
                          ": it is a version 1 document; versions 2 to 8 can be read\n");
}

TEST(Corpus, IsThere) {
  if (!ModelCorpus()) GTEST_SKIP() << "ORV_MODEL_CORPUS is not set";
  EXPECT_FALSE(Documents().empty());
}

}  // namespace

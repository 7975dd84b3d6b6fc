#include "host/document/event_watcher.h"

#include <functional>
#include <memory>

#include "edited_document.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// Notes each event: what happened, at which index, the old name and the new one.
class NotingWatcher : public CRhinoEventWatcher {
 public:
  NotingWatcher() {
    Register();
    Enable();
  }

  void LayerTableEvent(CRhinoTableEvent event, const CRhinoLayerTable& table, int index,
                       const ON_Layer* old_layer) override {
    Note("layer", event, index, old_layer->m_name, table.At(index)->m_name);
  }
  void LightTableEvent(CRhinoTableEvent event, const CRhinoLightTable& table, int index,
                       const ON_Light* old_light) override {
    const CRhinoObject* light = table.At(index);
    Note("light", event, index, old_light == nullptr ? "none" : old_light->m_light_name,
         light == nullptr ? "none" : ON_Light::Cast(light->Geometry())->m_light_name);
  }
  void MaterialTableEvent(CRhinoTableEvent event, const CRhinoMaterialTable& table, int index,
                          const ON_Material* old_material) override {
    const ON_Material* material = table.At(index);
    Note("material", event, index, old_material == nullptr ? "none" : old_material->m_name,
         material == nullptr ? "none" : material->m_name);
  }
  void OnModifyObjectAttributes(CRhinoDoc&, CRhinoObject& object,
                                const ON_3dmObjectAttributes& old_attributes) override {
    Note("object", CRhinoTableEvent::modified, -1, old_attributes.m_name,
         object.Attributes().m_name);
  }

  std::vector<std::string> Take() { return std::exchange(notes_, {}); }
  // Is called once, in the next event.
  std::function<void()> m_on_event;

 private:
  void Note(const std::string& what, CRhinoTableEvent event, int index, const std::string& before,
            const std::string& after) {
    const auto run = std::exchange(m_on_event, nullptr);
    notes_.push_back(what + " " + std::to_string(index) + " event " +
                     std::to_string(static_cast<int>(event)) + ": " + before + " > " + after);
    if (run) run();
  }

  std::vector<std::string> notes_;
};

class EventWatcherTest : public EditedDocument {};

TEST_F(EventWatcherTest, HearsOfEachEdit) {
  NotingWatcher watcher;
  Rename(0, "slate");
  ON_Material glass;
  glass.m_name = "glass";
  doc_.m_material_table.AddMaterial(glass);
  EXPECT_THAT(watcher.Take(),
              ElementsAre("material 0 event 3: brick > slate", "material 2 event 0: none > glass"));
  ON_Layer wall = LayerAt(kWall);
  wall.m_name = "Brickwork";
  doc_.m_layer_table.ModifyLayer(wall, kWall);
  ON_Light light = Light(1);
  light.m_light_name = "Sun";
  doc_.m_light_table.ModifyLight(light, 1);
  Rename(Object(0), "Door");
  Object(0).Hide();
  EXPECT_THAT(watcher.Take(),
              ElementsAre("layer 1 event 3: Wall > Brickwork", "light 1 event 3:  > Sun",
                          "object -1 event 3:  > Door", "object -1 event 3: Door > Door"));
}

TEST_F(EventWatcherTest, HearsOfUndoAndRedo) {
  const unsigned record = doc_.BeginUndoRecord("Repaint");
  Rename(0, "slate");
  ON_Material glass;
  glass.m_name = "glass";
  doc_.m_material_table.AddMaterial(glass);
  EXPECT_TRUE(doc_.EndUndoRecord(record));
  NotingWatcher watcher;
  EXPECT_TRUE(doc_.Undo());
  EXPECT_THAT(watcher.Take(),
              ElementsAre("material 2 event 1: glass > none", "material 0 event 3: slate > brick"));
  EXPECT_TRUE(doc_.Redo());
  EXPECT_THAT(watcher.Take(),
              ElementsAre("material 0 event 3: brick > slate", "material 2 event 2: none > glass"));
}

TEST_F(EventWatcherTest, HearsOfLightsThatComeAndGo) {
  NotingWatcher watcher;
  ON_Light light;
  light.m_light_name = "Sun";
  EXPECT_EQ(doc_.m_light_table.AddLight(light), 2);
  EXPECT_TRUE(doc_.m_light_table.DeleteLight(2));
  EXPECT_THAT(watcher.Take(),
              ElementsAre("light 2 event 0: none > Sun", "light 2 event 1: Sun > none"));
  EXPECT_TRUE(doc_.Undo());
  EXPECT_TRUE(doc_.Undo());
  EXPECT_TRUE(doc_.Redo());
  EXPECT_TRUE(doc_.Redo());
  EXPECT_THAT(watcher.Take(),
              ElementsAre("light 2 event 2: none > Sun", "light 2 event 1: Sun > none",
                          "light 2 event 2: none > Sun", "light 2 event 1: Sun > none"));
}

TEST_F(EventWatcherTest, ALightThatCameAndWentInOneRecordIsNotHeardOfAgain) {
  const unsigned record = doc_.BeginUndoRecord("Try a light");
  EXPECT_EQ(doc_.m_light_table.AddLight({}), 2);
  EXPECT_TRUE(doc_.m_light_table.DeleteLight(2));
  EXPECT_TRUE(doc_.EndUndoRecord(record));
  NotingWatcher watcher;
  EXPECT_TRUE(doc_.Undo());
  EXPECT_TRUE(doc_.Redo());
  EXPECT_THAT(watcher.Take(), IsEmpty());
  EXPECT_EQ(doc_.m_light_table.At(2), nullptr);
}

TEST_F(EventWatcherTest, ALightThatAWatcherDeletesIsNotHeardOfByTheOthersAgain) {
  NotingWatcher first;
  NotingWatcher second;
  first.m_on_event = [this] { EXPECT_TRUE(doc_.m_light_table.DeleteLight(2)); };
  EXPECT_EQ(doc_.m_light_table.AddLight({}), 2);
  EXPECT_THAT(first.Take(), ElementsAre("light 2 event 0: none > ", "light 2 event 1:  > none"));
  EXPECT_THAT(second.Take(), ElementsAre("light 2 event 1:  > none"));
}

TEST_F(EventWatcherTest, LoadingAndImportingTellNothing) {
  NotingWatcher watcher;
  doc_.SetModel(Model(), "");
  doc_.ImportModel(Model());
  EXPECT_THAT(watcher.Take(), IsEmpty());
}

TEST_F(EventWatcherTest, SelectingTellsNothing) {
  NotingWatcher watcher;
  EXPECT_TRUE(Object(0).Select());
  EXPECT_THAT(watcher.Take(), IsEmpty());
}

TEST_F(EventWatcherTest, HearsNothingUnlessRegisteredAndEnabled) {
  NotingWatcher watcher;
  watcher.Enable(false);
  Rename(0, "a");
  watcher.Enable();
  watcher.Unregister();
  Rename(0, "b");
  EXPECT_THAT(watcher.Take(), IsEmpty());
  watcher.Register();
  watcher.Register();
  Rename(0, "c");
  EXPECT_THAT(watcher.Take(), ElementsAre("material 0 event 3: b > c"));
  EXPECT_FALSE(CRhinoEventWatcher().IsEnabled());
}

TEST_F(EventWatcherTest, ADestroyedWatcherIsUnregistered) {
  auto watcher = std::make_unique<NotingWatcher>();
  watcher.reset();
  Rename(0, "a");
  EXPECT_EQ(doc_.m_material_table.At(0)->m_name, "a");
}

TEST_F(EventWatcherTest, MayDestroyItselfAndOthersInAnEvent) {
  auto first = std::make_unique<NotingWatcher>();
  auto second = std::make_unique<NotingWatcher>();
  NotingWatcher third;
  first->m_on_event = [&] {
    first.reset();
    second.reset();
  };
  Rename(0, "a");
  EXPECT_EQ(first, nullptr);
  EXPECT_THAT(third.Take(), ElementsAre("material 0 event 3: brick > a"));
  Rename(0, "b");
  EXPECT_THAT(third.Take(), ElementsAre("material 0 event 3: a > b"));
}

TEST_F(EventWatcherTest, AWatcherThatComesInAnEventHearsOfTheNext) {
  NotingWatcher first;
  std::vector<std::unique_ptr<NotingWatcher>> added;
  first.m_on_event = [&] {
    for (int i = 0; i < 20; ++i) added.push_back(std::make_unique<NotingWatcher>());
  };
  Rename(0, "a");
  ASSERT_EQ(added.size(), 20u);
  EXPECT_THAT(added.back()->Take(), IsEmpty());
  Rename(0, "b");
  EXPECT_THAT(added.back()->Take(), ElementsAre("material 0 event 3: a > b"));
}

TEST_F(EventWatcherTest, MayEditInAnEvent) {
  NotingWatcher watcher;
  const unsigned record = doc_.BeginUndoRecord("Both");
  watcher.m_on_event = [&] { Rename(1, "ash"); };
  Rename(0, "slate");
  EXPECT_TRUE(doc_.EndUndoRecord(record));
  EXPECT_THAT(watcher.Take(),
              ElementsAre("material 0 event 3: brick > slate", "material 1 event 3: oak > ash"));
  EXPECT_TRUE(doc_.Undo());
  EXPECT_THAT(MaterialNames(), ElementsAre("brick", "oak"));
}

TEST_F(EventWatcherTest, MayEditWhatTheEventIsAbout) {
  NotingWatcher watcher;
  watcher.m_on_event = [&] { Rename(0, "ash"); };
  Rename(0, "slate");
  EXPECT_TRUE(doc_.Undo());
  EXPECT_TRUE(doc_.Undo());
  EXPECT_EQ(doc_.m_material_table.At(0)->m_name, "brick");
}

TEST_F(EventWatcherTest, AnEditInAnEventOfUndoIsAChangeLikeAnyOther) {
  NotingWatcher watcher;
  doc_.m_material_table.AddMaterial({});
  watcher.m_on_event = [&] { doc_.m_material_table.AddMaterial({}); };
  EXPECT_TRUE(doc_.Undo());
  EXPECT_EQ(doc_.m_material_table.Count(), 3);
  EXPECT_FALSE(doc_.RedoCaption());
  EXPECT_TRUE(doc_.Undo());
  EXPECT_EQ(doc_.m_material_table.Count(), 2);
  EXPECT_FALSE(doc_.Undo());
}

TEST_F(EventWatcherTest, NothingIsUndoneInAnEvent) {
  NotingWatcher watcher;
  Rename(0, "a");
  bool undone = true;
  watcher.m_on_event = [&] { undone = doc_.Undo() || doc_.Redo(); };
  Rename(0, "b");
  EXPECT_FALSE(undone);
  EXPECT_EQ(doc_.m_material_table.At(0)->m_name, "b");
}

// Both watchers have heard of the new material 2, so neither hears any more that the old one went.
TEST_F(EventWatcherTest, ADeletionIsNotToldWhereAnotherMaterialStandsMeanwhile) {
  const unsigned record = doc_.BeginUndoRecord("Add");
  for (const char* name : {"glass", "steel"}) {
    ON_Material material;
    material.m_name = name;
    doc_.m_material_table.AddMaterial(material);
  }
  EXPECT_TRUE(doc_.EndUndoRecord(record));
  NotingWatcher first;
  NotingWatcher second;
  ON_Material ash;
  ash.m_name = "ash";
  first.m_on_event = [&] { doc_.m_material_table.AddMaterial(ash); };
  EXPECT_TRUE(doc_.Undo());
  EXPECT_THAT(MaterialNames(), ElementsAre("brick", "oak", "ash"));
  EXPECT_THAT(first.Take(),
              ElementsAre("material 3 event 1: steel > none", "material 2 event 0: none > ash"));
  EXPECT_THAT(second.Take(),
              ElementsAre("material 2 event 0: none > ash", "material 3 event 1: steel > none"));
}

TEST_F(EventWatcherTest, NoDocumentIsOpenedOrImportedInAnEvent) {
  std::string told;
  RhinoApp().CommandWindow().SetSink([&](std::string_view text) { told += text; });
  NotingWatcher watcher;
  bool opened = false;
  watcher.m_on_event = [&] {
    opened = RhinoApp().OpenDocument("a.3dm") || RhinoApp().ImportDocument("b.3dm");
  };
  Rename(0, "slate");
  RhinoApp().CommandWindow().SetSink({});
  EXPECT_FALSE(opened);
  EXPECT_EQ(told,
            "Unable to open a.3dm during a change of the open document.\n"
            "Unable to open b.3dm during a change of the open document.\n");
}

}  // namespace

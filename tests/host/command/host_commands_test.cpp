#include "host/command/host_commands.h"

#include <gmock/gmock.h>

#include "host/command/command_runner.h"
#include "host/command/script_input.h"
#include "host/geometry/on_instance_ref.h"
#include "host/geometry/on_line_curve.h"
#include "recorded_window.h"
#include "sample_document.h"
#include "sample_plugin.h"
#include "support/temp_folder.h"
#include "support/typed_input.h"

namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

class HostCommandsTest : public testing::Test {
 protected:
  HostCommandsTest() { Doc().SetModel(SampleModel(), "sample.3dm"); }
  ~HostCommandsTest() override { Doc().SetModel({}, {}); }

  static CRhinoDoc& Doc() { return RhinoApp().ActiveDoc(); }
  CommandResult Run(std::string_view script) {
    const RecordedWindow window;
    ScriptInput input(script, "-c");
    const CommandResult result = CommandRunner(registry_, input).RunAll(commands_.ExitRequested());
    told_ = window.Text();
    error_ = input.Error();
    return result;
  }
  static std::vector<std::string> Selected() {
    std::vector<std::string> names;
    for (const auto& object : Doc().Objects()) {
      if (object->IsSelected()) names.push_back(object->Attributes().m_name);
    }
    return names;
  }

  CommandRegistry registry_;
  HostCommands commands_{registry_};
  std::string told_;
  std::string error_;
};

TEST_F(HostCommandsTest, SelAllSelectsWhatIsVisible) {
  EXPECT_EQ(Run("SelAll"), CommandResult::success);
  EXPECT_THAT(Selected(), ElementsAre("Wall", "Wall", "Roof", "Mark"));
  EXPECT_EQ(told_, "4 objects added to the selection.\n");
}

TEST_F(HostCommandsTest, SelNoneDeselects) {
  EXPECT_EQ(Run("SelAll SelNone"), CommandResult::success);
  EXPECT_THAT(Selected(), IsEmpty());
  EXPECT_THAT(told_, HasSubstr("4 objects removed from the selection.\n"));
}

TEST_F(HostCommandsTest, SelNameTakesPatterns) {
  EXPECT_EQ(Run("SelName wall"), CommandResult::success);
  EXPECT_THAT(Selected(), ElementsAre("Wall", "Wall"));
  EXPECT_EQ(Run("SelNone SelName *O*f"), CommandResult::success);
  EXPECT_THAT(Selected(), ElementsAre("Roof"));
  EXPECT_EQ(Run("SelNone SelName Wal"), CommandResult::nothing);
  EXPECT_EQ(Run("SelName Cellar"), CommandResult::nothing);
  EXPECT_THAT(told_, "0 objects added to the selection.\n");
}

TEST_F(HostCommandsTest, SelectionIsAddedTo) {
  EXPECT_EQ(Run("SelName Roof SelName Mark"), CommandResult::success);
  EXPECT_THAT(Selected(), ElementsAre("Roof", "Mark"));
}

TEST_F(HostCommandsTest, SelLayerTakesNamesAndPaths) {
  EXPECT_EQ(Run("SelLayer house"), CommandResult::success);
  EXPECT_THAT(Selected(), ElementsAre("Wall", "Roof"));
  EXPECT_EQ(Run("SelNone SelLayer House::Inner"), CommandResult::success);
  EXPECT_THAT(Selected(), ElementsAre("Wall"));
  EXPECT_EQ(Run("SelLayer Garden"), CommandResult::failure);
  EXPECT_EQ(error_, "-c, line 1: There is no layer 'Garden'.");
}

TEST_F(HostCommandsTest, SelTypeTakesAKind) {
  EXPECT_EQ(Run("SelType Point"), CommandResult::success);
  EXPECT_THAT(Selected(), ElementsAre("Mark"));
  EXPECT_EQ(Run("SelNone SelType mesh"), CommandResult::success);
  EXPECT_THAT(Selected(), ElementsAre("Wall", "Wall", "Roof"));
  EXPECT_EQ(Run("SelType Nurbs"), CommandResult::failure);
  EXPECT_THAT(error_, HasSubstr("Unknown option 'Nurbs'; expected Point, PointCloud, Curve"));
}

TEST_F(HostCommandsTest, HideAndShow) {
  EXPECT_EQ(Run("SelName Roof Hide"), CommandResult::success);
  EXPECT_THAT(told_, HasSubstr("1 object hidden.\n"));
  EXPECT_EQ(Run("SelAll"), CommandResult::success);
  EXPECT_THAT(Selected(), ElementsAre("Wall", "Wall", "Mark"));
  EXPECT_EQ(Run("Show"), CommandResult::success);
  EXPECT_EQ(told_, "2 objects shown.\n");
  EXPECT_EQ(Run("Show"), CommandResult::nothing);
  EXPECT_EQ(Run("SelNone Hide Mark Enter SelAll"), CommandResult::success);
  EXPECT_THAT(Selected(), Not(testing::Contains("Mark")));
}

TEST_F(HostCommandsTest, SetViewTakesViewsAndNamedViews) {
  std::vector<CRhinoView*> views;
  Doc().GetViewList(views, true, true);
  ASSERT_GT(views.size(), 0U);
  const std::string name = views.back()->Viewport().Name();
  EXPECT_EQ(Run("SetView \"" + name + "\""), CommandResult::success);
  EXPECT_EQ(Doc().ActiveView(), views.back());
  EXPECT_EQ(told_, "The active view is " + name + ".\n");
  EXPECT_EQ(Run("SetView \"from the garden\""), CommandResult::success);
  EXPECT_EQ(told_, name + " shows the named view From the garden.\n");
  EXPECT_EQ(Run("SetView Attic"), CommandResult::failure);
  EXPECT_EQ(error_, "-c, line 1: There is no view 'Attic'.");
}

TEST_F(HostCommandsTest, WhatDescribesTheSelection) {
  EXPECT_EQ(Run("SelLayer House::Inner What"), CommandResult::success);
  EXPECT_THAT(told_, AllOf(HasSubstr("mesh \"Wall\", serial number "),
                           HasSubstr("\n  id: 00000000-0000-0000-0000-000000000002\n"),
                           HasSubstr("\n  layer: House::Inner\n"),
                           HasSubstr("\n  material: default, of the layer\n"),
                           HasSubstr("\n  state: visible\n"),
                           HasSubstr("\n  geometry: 3 vertices, 1 faces (1 triangles, 0 quads)\n"),
                           HasSubstr("\n  box: 0,0,0 to 2,3,0\n")));
}

TEST_F(HostCommandsTest, WhatTellsOfAPlacementItsBlockAndWhatItShows) {
  ONX_Model model = SampleModel();
  ON_InstanceDefinition& block = model.m_idef_table.emplace_back();
  block.m_id.bytes[0] = 9;
  block.m_name = "House";
  block.m_object_ids = {model.m_object_table[0].m_attributes.m_uuid};
  auto placement = std::make_shared<ON_InstanceRef>();
  placement->m_instance_definition_uuid = block.m_id;
  placement->m_xform.m_xform[0][3] = 10;
  model.m_object_table.emplace_back().m_geometry = std::move(placement);
  model.m_object_table.back().m_attributes.m_name = "Home";
  Doc().SetModel(std::move(model), "");
  EXPECT_EQ(Run("SelName Home What"), CommandResult::success);
  EXPECT_THAT(told_, AllOf(HasSubstr("block reference \"Home\", serial number "),
                           HasSubstr("\n  geometry: block \"House\"\n"),
                           HasSubstr("\n  box: 10,0,0 to 12,3,0\n")));
}

TEST_F(HostCommandsTest, WhatTellsOfACurveItsLengthAndPoints) {
  ONX_Model model;
  model.m_object_table.resize(1);
  model.m_object_table[0].m_geometry =
      std::make_shared<ON_LineCurve>(ON_3dPoint{0, 0, 0}, ON_3dPoint{3, 4, 0});
  Doc().SetModel(std::move(model), "");
  EXPECT_EQ(Run("SelAll What"), CommandResult::success);
  EXPECT_THAT(told_, AllOf(HasSubstr("\n  geometry: open, length 5, 2 points\n"),
                           HasSubstr("\n  box: 0,0,0 to 3,4,0\n")));
}

TEST_F(HostCommandsTest, DocumentInfoTellsWhatIsThere) {
  EXPECT_EQ(Run("SelName Roof DocumentInfo"), CommandResult::success);
  EXPECT_THAT(told_, AllOf(HasSubstr("Document: sample.3dm\n"), HasSubstr("File version: 6\n"),
                           HasSubstr("Units: millimeters, tolerance 0.001\n"),
                           HasSubstr("Objects: 4 meshes, 1 point\n"), HasSubstr("Selected: 1\n"),
                           HasSubstr("Layers: Default, House, House::Inner\n"),
                           HasSubstr(" (active)"), HasSubstr("Named views: From the garden\n")));
}

TEST_F(HostCommandsTest, HelpListsTheCommands) {
  EXPECT_EQ(Run("Help Enter"), CommandResult::success);
  EXPECT_THAT(told_, AllOf(HasSubstr("DocumentInfo       Describes the document.\n"),
                           HasSubstr("SetObjectMaterial  Gives objects a material of their own.\n"),
                           HasSubstr("tells what the command asks for.\n")));
}

TEST_F(HostCommandsTest, HelpTellsOneCommand) {
  EXPECT_EQ(Run("Help sella"), CommandResult::success);
  EXPECT_EQ(told_,
            "SelLayer: Adds the objects of a layer to the selection.\n"
            "Asks for the layer's name or its full path, as in Walls::Inner.\n");
  EXPECT_EQ(Run("Help Sel"), CommandResult::failure);
  EXPECT_EQ(told_, "There is no command 'Sel'.\n");
}

TEST_F(HostCommandsTest, EveryCommandTellsWhatItDoesAndAsksFor) {
  std::vector<std::string> names;
  std::vector<ON_UUID> ids;
  for (const CRhinoCommand* command : registry_.Commands()) {
    names.emplace_back(command->EnglishCommandName());
    ids.push_back(command->CommandUUID());
    EXPECT_TRUE(command->Description().ends_with('.')) << names.back();
    EXPECT_TRUE(command->Usage().ends_with('\n')) << names.back();
  }
  EXPECT_THAT(names, ElementsAre("AddLight", "AddMaterial", "DeleteLight", "DocumentInfo", "Exit",
                                 "Export", "Help", "Hide", "Import", "MoveObject", "Open",
                                 "Properties", "Redo", "Save", "SaveAs", "SelAll", "SelId",
                                 "SelLayer", "SelMaterial", "SelName", "SelNone", "SelType",
                                 "SetLight", "SetObjectLayer", "SetObjectMaterial", "SetObjectName",
                                 "SetUserText", "SetView", "Show", "Undo", "ViewCamera", "What"));
  std::sort(ids.begin(), ids.end());
  EXPECT_EQ(std::adjacent_find(ids.begin(), ids.end()), ids.end());
}

TEST_F(HostCommandsTest, ExitEndsTheScript) {
  EXPECT_EQ(Run("Exit SelAll"), CommandResult::success);
  EXPECT_THAT(Selected(), IsEmpty());
  EXPECT_TRUE(commands_.ExitRequested());
}

TEST_F(HostCommandsTest, ExportWritesAllOrTheSelection) {
  SamplePlugIn plug_in;
  ASSERT_TRUE(registry_.AddPlugIn(plug_in));
  EXPECT_EQ(Run("Export \"a b.smp\" Export Selected=Yes c.smp -Export Selected d.smp"),
            CommandResult::success);
  EXPECT_THAT(plug_in.m_calls,
              ElementsAre("load", "write a b.smp", "write c.smp selected", "write d.smp selected"));
  EXPECT_EQ(Run("Export a.unknown"), CommandResult::failure);
  registry_.RemovePlugIn(plug_in);
}

TEST_F(HostCommandsTest, DocumentThatCannotBeOpenedLeavesTheOldOne) {
  const TempFolder folder;
  EXPECT_EQ(Run("Open \"" + folder.File("none.3dm") + "\""), CommandResult::failure);
  EXPECT_THAT(told_, HasSubstr("none.3dm"));
  EXPECT_EQ(Run("Import \"" + folder.Path().string() + "\""), CommandResult::failure);
  EXPECT_EQ(Doc().Objects().size(), 5U);
  EXPECT_EQ(Run("Open"), CommandResult::cancel);
}

}  // namespace

// What property pages send to a running interactive renderer.

#include <gmock/gmock.h>

#include "host/document/doc.h"
#include "host/document/object.h"
#include "host/geometry/on_light.h"
#include "host/geometry/on_mesh.h"
#include "live_document.h"
#include "pages/light_page.h"
#include "pages/material_page.h"
#include "pages/object_page.h"
#include "support/listener.h"
#include "support/typed_input.h"
#include "tools/renderer_bench.h"

namespace orv {
namespace {

using namespace std::chrono_literals;
using testing::AllOf;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

// The pages of a document with two meshes of a material each and a light, all of them selected, and
// a session with the stand-in of the renderer.
class PropertyLiveTest : public LiveDocument {
 protected:
  PropertyLiveTest() {
    plugIn_.User().ConvertTextures = false;
    plugIn_.UserStrings().SetUserString("RhinoGamma", "1");
    ONX_Model model;
    model.m_material_table.resize(2);
    auto mesh = std::make_shared<ON_Mesh>();
    mesh->m_V = {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}};
    mesh->m_F = {{{0, 1, 2, 2}}};
    for (int i = 0; i < 2; ++i) {
      ONX_ModelObject& object = model.m_object_table.emplace_back();
      object.m_geometry = mesh;
      object.m_attributes.m_material_source = ON_AttributeSource::object;
      object.m_attributes.m_material_index = i;
      model.m_material_table[static_cast<std::size_t>(i)].SetUserString("OrvSurface",
                                                                        "\"X\" \"float K\" [1]");
    }
    model.m_light_table.emplace_back().m_light =
        std::make_shared<ON_Light>(Orange(ON_LightStyle::world_point));
    Doc().SetModel(std::move(model), "");
    for (const auto& object : Doc().Objects()) EXPECT_TRUE(object->Select());
    EXPECT_TRUE(Doc().m_light_table.At(0)->Select());
    EXPECT_TRUE(plugIn_.Live().StartIprSession("scene.rib", {Listener::FreePort(), 50, 100ms}));
  }

  static void Change(CRhinoDialogPage& page, std::string_view control, std::string_view value) {
    TypedInput input({});
    CRhinoCommandContext context(Doc(), input, true);
    page.Open(Doc());
    EXPECT_EQ(page.Change(context, control, value), "");
  }
  // What an object's frames begin with.
  static std::string Name(std::size_t index) {
    return "IrSelect \"name\" \"Object_" +
           std::to_string(Doc().Objects()[index]->RuntimeSerialNumber()) + "\"  IrColor ";
  }
  // The frames of the session, which ends.
  std::vector<std::string> Frames() {
    plugIn_.Live().EndIprSession();
    EXPECT_TRUE(bench_.Wait("end"));
    std::vector<std::string> frames = bench_.Frames();
    if (!frames.empty()) frames.pop_back();
    return frames;
  }

  const RendererBench bench_;
  CSceneOutPlugIn plugIn_;
  CLightPropPageDlg lights_{plugIn_};
  CMatDlg materials_{plugIn_};
  CObjectDlg objects_{plugIn_};
};

TEST_F(PropertyLiveTest, ALightGoesOutWithItsPlaceByItsTableAndWithoutByThePage) {
  Change(lights_, "Intensity", "3");
  const std::string number = std::to_string(Doc().m_light_table.At(0)->RuntimeSerialNumber());
  const auto tweak = AllOf(StartsWith("IrTweakLight " + number +
                                      " \"color lightcolor\" [1 0.4 0.2]"
                                      " \"float intensity\" [3]"),
                           EndsWith("IrIlluminateAll " + number + " 1"));
  EXPECT_THAT(Frames(), ElementsAre(AllOf(tweak, HasSubstr("\"point from\" [1 2 3]")),
                                    AllOf(tweak, Not(HasSubstr("\"point from\"")))));
}

TEST_F(PropertyLiveTest, ALightThatStaysSendsNothing) {
  Change(lights_, "Intensity", "1");
  lights_.Accept(Doc());
  EXPECT_THAT(Frames(), IsEmpty());
}

TEST_F(PropertyLiveTest, ColorAndShadersGoOutForEachObject) {
  for (const auto& [control, value] :
       std::vector<std::pair<std::string, std::string>>{{"Color", "255,0,0"},
                                                        {"Surface.K", "2"},
                                                        {"Displacement", "Rhino"},
                                                        {"DisplacementMode", "Off"},
                                                        {"Transparency", "0.5"}}) {
    SCOPED_TRACE(control);
    EXPECT_TRUE(plugIn_.Live().IsRunning());
    Change(materials_, control, value);
  }
  const std::vector<std::string> frames = Frames();
  // Both materials by their table, then both objects by the page, each time.
  ASSERT_EQ(frames.size(), 20U);
  for (std::size_t i = 0; i < frames.size(); ++i) {
    EXPECT_THAT(frames[i], StartsWith(Name(i % 2) + "1 0 0  IrOpacity ")) << i;
  }
  EXPECT_THAT(frames[7], HasSubstr("IrNewSurface \"X\" \"float K\" [2]"));
  EXPECT_THAT(frames[15], HasSubstr("IrNewDisplacement \"null\""));
  EXPECT_THAT(frames[19], HasSubstr("IrOpacity 0.5 0.5 0.5"));
}

TEST_F(PropertyLiveTest, OtherChangesOfAMaterialGoOutByItsTableAlone) {
  for (const auto& [control, value] :
       std::vector<std::pair<std::string, std::string>>{{"Name", "Elm"},
                                                        {"ShadingSamples", "4"},
                                                        {"ComplexShadow", "Yes"},
                                                        {"Transparency", "0.0"}}) {
    Change(materials_, control, value);
  }
  EXPECT_EQ(Frames().size(), 8U);
}

TEST_F(PropertyLiveTest, ThereIsNoPreviewMeanwhile) {
  const auto preview = [this](std::string_view id) {
    const std::vector<CRhinoControl> controls = materials_.Controls();
    return controls[static_cast<std::size_t>(FindControl(controls, id))];
  };
  EXPECT_FALSE(preview("Preview").IsEnabled);
  EXPECT_FALSE(preview("Picture").IsShown);
  TypedInput input({});
  CRhinoCommandContext context(Doc(), input, true);
  EXPECT_EQ(materials_.Change(context, "Preview", "Yes"), "'Preview' can't be changed now.");
  plugIn_.Live().EndIprSession();
  EXPECT_TRUE(preview("Preview").IsEnabled);
  EXPECT_TRUE(preview("Picture").IsShown);
}

TEST_F(PropertyLiveTest, AnObjectsAttributesAreNotLive) {
  Change(objects_, "Camera", "No");
  EXPECT_THAT(Frames(), IsEmpty());
}

}  // namespace
}  // namespace orv

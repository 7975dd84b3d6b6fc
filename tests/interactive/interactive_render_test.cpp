#include "interactive/interactive_render.h"

#include <gmock/gmock.h>

#include <thread>

#include "export/camera.h"
#include "host/geometry/on_mesh.h"
#include "host/system/text.h"
#include "live_document.h"
#include "support/listener.h"
#include "tools/renderer_bench.h"

namespace orv {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using testing::StartsWith;

ON_Material Named(const std::string& name, ON_Color color) {
  ON_Material material;
  material.m_name = name;
  material.SetDiffuse(color);
  material.SetUserString("OrvSurface", "\"VPlastic\" \"float Ks\" 0.5");
  return material;
}

// A document with two meshes of two materials, a curve-less layer material and a light, and a
// session with the stand-in of the renderer.
class InteractiveRenderTest : public LiveDocument {
 protected:
  InteractiveRenderTest() {
    RhinoApp().CommandWindow().SetSink([this](std::string_view text) { messages_ += text; });
    user_.ConvertTextures = false;
    settings_.SetUserString("RhinoGamma", "1");
    ONX_Model model;
    model.m_layer_table.emplace_back().SetRenderMaterialIndex(1);
    model.m_layer_table.emplace_back().SetRenderMaterialIndex(0);
    model.m_layer_table.back().m_id.bytes[0] = 1;
    model.m_material_table = {Named("red", {255, 0, 0}), Named("green", {0, 255, 0}),
                              Named("unused", {0, 0, 255})};
    model.m_object_table = {
        Mesh(ON_AttributeSource::object, 0), Mesh(ON_AttributeSource::layer, -1),
        Mesh(ON_AttributeSource::parent, 0), Mesh(ON_AttributeSource::material, 0)};
    model.m_light_table.emplace_back().m_light =
        std::make_shared<ON_Light>(Orange(ON_LightStyle::world_point));
    Doc().SetModel(std::move(model), "");
  }
  ~InteractiveRenderTest() override { RhinoApp().CommandWindow().SetSink({}); }

  static ONX_ModelObject Mesh(ON_AttributeSource source, int material) {
    ONX_ModelObject object;
    auto mesh = std::make_shared<ON_Mesh>();
    mesh->m_V = {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}};
    mesh->m_F = {{{0, 1, 2, 2}}};
    object.m_geometry = mesh;
    object.m_attributes.m_material_source = source;
    object.m_attributes.m_material_index = material;
    object.m_attributes.m_layer_index = 0;
    return object;
  }

  [[nodiscard]] bool Start() { return render_.StartIprSession("scene.rib", Connection()); }
  static IprConnection Connection() { return {Listener::FreePort(), 50, 100ms}; }
  static const CRhinoObject& Object(std::size_t index) { return *Doc().Objects()[index]; }
  static std::string Name(const CRhinoObject& object) {
    return "Object_" + std::to_string(object.RuntimeSerialNumber());
  }
  static std::string LightNumber() {
    return std::to_string(Doc().m_light_table.At(0)->RuntimeSerialNumber());
  }
  static CRhinoView& View() { return *Doc().ActiveView(); }
  // Gives the view the camera of a named view that looks from `location` to the origin.
  static void MoveView(ON_3dPoint location) {
    ON_3dmView view = View().Viewport().View();
    view.m_vp.SetCameraFrame(location, ON_3dPoint{0, 0, 0} - location, {0, 0, 1});
    View().Viewport().SetFromNamedView(view);
    View().Redraw();
  }
  static InteractiveRender::Scene SceneOf(const CRhinoView& view) {
    const ON_Viewport& vp = view.Viewport().VP();
    return {1, view.Viewport().ViewportId(), CameraMatrix(vp), FieldOfView(vp)};
  }
  // The frames of the session, which ends.
  std::vector<std::string> Frames() {
    render_.EndIprSession();
    EXPECT_TRUE(bench_.Wait("end"));
    std::vector<std::string> frames = bench_.Frames();
    EXPECT_FALSE(frames.empty());
    if (!frames.empty()) frames.pop_back();
    return frames;
  }

  const RendererBench bench_;
  ON_UserStringList settings_;
  UserValues user_;
  TextureConverter textures_;
  InteractiveRender render_{settings_, user_, textures_};
  std::string messages_;
};

TEST_F(InteractiveRenderTest, StartsAndEnds) {
  EXPECT_FALSE(render_.IsRunning());
  ASSERT_TRUE(Start());
  EXPECT_TRUE(render_.IsRunning());
  render_.EndIprSession();
  EXPECT_FALSE(render_.IsRunning());
  EXPECT_TRUE(bench_.Wait("end"));
  EXPECT_THAT(bench_.Frames(), ElementsAre("IrEnd"));
  render_.EndIprSession();
}

TEST_F(InteractiveRenderTest, AnotherStartEndsTheFirstSession) {
  ASSERT_TRUE(Start());
  // Time enough for the first one to note its end, however busy the machine is.
  ASSERT_TRUE(render_.StartIprSession("scene.rib", {Listener::FreePort(), 10, 2000ms}));
  EXPECT_TRUE(bench_.Wait("end"));
  EXPECT_TRUE(bench_.Wait("accepted", 2));
  const auto events = bench_.Events();
  const auto place = [&](const std::string& event, int nth) {
    for (std::size_t i = 0; i < events.size(); ++i) {
      if (events[i].event == event && --nth == 0) return static_cast<int>(i);
    }
    return -1;
  };
  // The first hears of its end before the second is connected to.
  EXPECT_LT(place("frame", 1), place("accepted", 2));
}

TEST_F(InteractiveRenderTest, AMaterialGoesToTheObjectsThatHaveIt) {
  ASSERT_TRUE(Start());
  ON_Material changed = Named("red", {255, 255, 0});
  changed.SetTransparency(0.25);
  EXPECT_TRUE(Doc().m_material_table.ModifyMaterial(changed, 0));
  EXPECT_TRUE(Doc().m_material_table.ModifyMaterial(Named("green", {0, 0, 0}), 1));
  EXPECT_TRUE(Doc().m_material_table.ModifyMaterial(Named("unused", {0, 0, 0}), 2));
  EXPECT_THAT(
      Frames(),
      ElementsAre("IrSelect \"name\" \"" + Name(Object(0)) +
                      "\"  IrColor 1 1 0  IrOpacity 0.75 0.75 0.75 "
                      "IrNewSurface \"VPlastic\" \"float Ks\" 0.5 IrNewDisplacement \"null\"",
                  StartsWith("IrSelect \"name\" \"" + Name(Object(2)) + "\"  IrColor "),
                  StartsWith("IrSelect \"name\" \"" + Name(Object(1)) + "\"  IrColor 0 0 0  ")));
}

TEST_F(InteractiveRenderTest, UndoGoesOutAsAChange) {
  ASSERT_TRUE(Start());
  const unsigned record = Doc().BeginUndoRecord("test");
  EXPECT_TRUE(Doc().m_material_table.ModifyMaterial(Named("green", {0, 0, 255}), 1));
  EXPECT_TRUE(Doc().EndUndoRecord(record));
  EXPECT_TRUE(Doc().Undo());
  EXPECT_TRUE(Doc().Redo());
  const std::string begin = "IrSelect \"name\" \"" + Name(Object(1)) + "\"  IrColor ";
  EXPECT_THAT(Frames(), ElementsAre(StartsWith(begin + "0 0 1 "), StartsWith(begin + "0 1 0 "),
                                    StartsWith(begin + "0 0 1 ")));
}

TEST_F(InteractiveRenderTest, ChangesOfLightsGoOut) {
  ASSERT_TRUE(Start());
  ON_Light light = Orange(ON_LightStyle::world_point);
  light.Enable(false);
  light.m_location = {7, 8, 9};
  EXPECT_TRUE(Doc().m_light_table.ModifyLight(light, 0));
  EXPECT_THAT(Frames(), ElementsAre("IrTweakLight " + LightNumber() +
                                    " \"color lightcolor\" [1 0.4 0.2] \"color shadowcolor\" [0 0 "
                                    "0] \"string shadowname\" \"raytrace\" \"point from\" [7 8 9] "
                                    "IrIlluminateAll " +
                                    LightNumber() + " 0"));
}

TEST_F(InteractiveRenderTest, AViewGoesOutWhenItMovesAndOnlyTheOneThatIsShown) {
  render_.SetScene(SceneOf(View()));
  ASSERT_TRUE(Start());
  View().Redraw();
  MoveView({10, 0, 0});
  MoveView({10, 0, 0});
  std::vector<CRhinoView*> views;
  Doc().GetViewList(views, true, true);
  for (CRhinoView* view : views) view->Redraw();
  const auto m = CameraMatrix(View().Viewport().VP());
  const std::string expected = host::Format(
      "IrTweakCamera \"default\" \"fov\" [%g] \"transform\" [ %g %g %g 0.0 %g %g %g 0.0 %g %g %g "
      "0.0 %g %g %g 1.0 ]\n",
      FieldOfView(View().Viewport().VP()), m[0], m[1], m[2], m[4], m[5], m[6], m[8], m[9], m[10],
      m[12], m[13], m[14]);
  EXPECT_THAT(Frames(), ElementsAre(expected));
}

TEST_F(InteractiveRenderTest, AParallelViewHasNoAngle) {
  ON_3dmView view = View().Viewport().View();
  view.m_vp.m_projection = ON_Viewport::View::parallel;
  View().Viewport().SetFromNamedView(view);
  render_.SetScene({1, View().Viewport().ViewportId(), {}, 0});
  ASSERT_TRUE(Start());
  View().Redraw();
  EXPECT_THAT(Frames(), ElementsAre(StartsWith("IrTweakCamera \"default\" \"fov\" [0] ")));
}

TEST_F(InteractiveRenderTest, TheViewIsFollowedOnlyWhenTheUserWantsThat) {
  user_.IprUpdateView = false;
  render_.SetScene(SceneOf(View()));
  ASSERT_TRUE(Start());
  user_.IprUpdateView = true;
  MoveView({10, 0, 0});
  EXPECT_THAT(Frames(), IsEmpty());
}

TEST_F(InteractiveRenderTest, TheAmbientLightFollowsInTheModeOfTheScene) {
  render_.SetScene({4, View().Viewport().ViewportId(), {}, 0});
  ASSERT_TRUE(Start());
  render_.SendAmbient({.Mode = 1});
  render_.SendAmbient({.Mode = 4, .Intensity = 2});
  EXPECT_THAT(Frames(), ElementsAre(StartsWith("IrTweakLight 0 \"float intensity\" [2] ")));
}

TEST_F(InteractiveRenderTest, BackgroundsGoOut) {
  ASSERT_TRUE(Start());
  render_.SendReflection({.Mode = 0});
  render_.SendReflection({.Mode = 9});
  render_.SendImager({.Mode = 0});
  EXPECT_THAT(Frames(),
              ElementsAre(StartsWith("IrTweakOption \"reflection\""), "IrNewImager \"null\""));
}

TEST_F(InteractiveRenderTest, EachOptionThatChangesIsAFrame) {
  ASSERT_TRUE(Start());
  const IprSettings before;
  IprSettings after;
  render_.SendIprOptions(before, after);
  after.IprSmoothEdges = true;
  after.IprMaxShadowRays = 7;
  after.IprMaxReflectionRays = 9;
  render_.SendIprOptions(before, after);
  render_.SendIprOptions(after, before);
  EXPECT_THAT(Frames(), ElementsAre("IrTweakOption \"ipr\" \"pixelsamples\" [4 4]",
                                    "IrTweakOption \"trace\" \"maxshadowsamples\" [7]",
                                    "IrTweakOption \"trace\" \"maxtracesamples\" [9]",
                                    "IrTweakOption \"ipr\" \"pixelsamples\" [1 1]",
                                    "IrTweakOption \"trace\" \"maxshadowsamples\" [1]",
                                    "IrTweakOption \"trace\" \"maxtracesamples\" [1]"));
}

TEST_F(InteractiveRenderTest, WithoutASessionNothingHappens) {
  render_.SendObject(Object(0));
  render_.SendLightTweak(*Doc().m_light_table.At(0), true);
  render_.SendImager({});
  render_.SendCamera(View().Viewport());
  ASSERT_TRUE(Start());
  EXPECT_THAT(Frames(), IsEmpty());
  EXPECT_TRUE(Doc().m_material_table.ModifyMaterial(Named("green", {0, 0, 255}), 1));
  MoveView({10, 0, 0});
  EXPECT_EQ(messages_, "");
}

TEST_F(InteractiveRenderTest, LayersDontGoOut) {
  ASSERT_TRUE(Start());
  ON_Layer layer = *Doc().m_layer_table.At(0);
  layer.SetRenderMaterialIndex(0);
  EXPECT_TRUE(Doc().m_layer_table.ModifyLayer(layer, 0));
  ON_3dmObjectAttributes attributes = Object(1).Attributes();
  attributes.m_layer_index = 1;
  EXPECT_TRUE(Doc().ModifyObjectAttributes(*Doc().Objects()[1], attributes));
  EXPECT_THAT(Frames(), IsEmpty());
}

TEST_F(InteractiveRenderTest, ADisplacementGoesOutByItsMode) {
  const auto displaced = [](const char* call, const char* mode) {
    ON_Material material = Named("green", {0, 0, 0});
    material.SetUserString("OrvDisplacement", call);
    material.SetUserString("OrvDisplacementMode", mode);
    return material;
  };
  ASSERT_TRUE(Start());
  const std::string own = "\"VDents\" \"float BumpMax\" 1";
  for (const auto& material : {displaced(own.c_str(), "bump"), displaced(own.c_str(), "off"),
                               displaced("\"Rhino\"", "off"), displaced("\"Rhino\"", "bump")}) {
    EXPECT_TRUE(Doc().m_material_table.ModifyMaterial(material, 1));
  }
  const std::vector<std::string> frames = Frames();
  ASSERT_THAT(frames, SizeIs(4));
  EXPECT_THAT(frames[0], testing::EndsWith(" IrNewDisplacement " + own));
  EXPECT_THAT(frames[1], testing::EndsWith(" IrNewDisplacement \"null\" "));
  EXPECT_THAT(frames[2], testing::EndsWith(" IrNewDisplacement \"null\" "));
  // The host's material has no bumps: that is what its displacement becomes.
  EXPECT_THAT(frames[3], testing::EndsWith(" IrNewDisplacement \"null\""));
}

// A renderer that goes after the first bytes.
class BrokenRender : public InteractiveRenderTest {
 protected:
  // Sends until the connection is known to be broken.
  template <class Send>
  void SendUntilItEnds(Send send) {
    for (int i = 0; i < 1000 && render_.IsRunning(); ++i) {
      send();
      std::this_thread::sleep_for(2ms);
    }
  }
};

TEST_F(BrokenRender, AnObjectThatCantBeSentEndsTheSession) {
  const RendererBench bench("close 10");
  ASSERT_TRUE(Start());
  SendUntilItEnds([this] { render_.SendObject(Object(0)); });
  EXPECT_FALSE(render_.IsRunning());
  EXPECT_EQ(messages_, "Error when sending IPR information.\n");
}

TEST_F(BrokenRender, ALightThatCantBeSentEndsTheSession) {
  const RendererBench bench("close 10");
  ASSERT_TRUE(Start());
  SendUntilItEnds([this] { render_.SendLightTweak(*Doc().m_light_table.At(0), false); });
  EXPECT_FALSE(render_.IsRunning());
  EXPECT_EQ(messages_, "Error when sending IPR information.\n");
}

TEST_F(BrokenRender, OtherFramesDontEndItButTheNextObjectDoes) {
  const RendererBench bench("close 10");
  ASSERT_TRUE(Start());
  for (int i = 0; i < 100; ++i) {
    render_.SendImager({.Mode = 0});
    std::this_thread::sleep_for(2ms);
  }
  EXPECT_TRUE(render_.IsRunning());
  EXPECT_EQ(messages_, "");
  EXPECT_TRUE(Doc().m_material_table.ModifyMaterial(Named("red", {0, 0, 255}), 0));
  EXPECT_FALSE(render_.IsRunning());
  EXPECT_EQ(messages_, "Error when sending IPR information.\n");
}

TEST_F(BrokenRender, ARendererThatCantBeStartedLeavesNoSession) {
  const ScopedEnvironment path("PATH", "/nowhere");
  EXPECT_FALSE(Start());
  EXPECT_FALSE(render_.IsRunning());
}

}  // namespace
}  // namespace orv

#include "walk_fixture.h"

#include <regex>

#include "export/object_walk.h"
#include "host/document/app.h"
#include "host/geometry/on_plane_surface.h"
#include "host/system/interrupt.h"

namespace {

std::string Blanks(int count) {
  return std::string(static_cast<std::size_t>(count), ' ');
}

}  // namespace

ONX_ModelObject SquareSurface() {
  auto surface = std::make_shared<ON_PlaneSurface>();
  for (const int direction : {0, 1}) {
    surface->m_domain[direction] = surface->m_extents[direction] = {0, 1};
  }
  return ObjectOf(surface);
}

std::string SquarePatch(int indent) {
  return Blanks(indent) + "TextureCoordinates [ 0 1 1 1 0 0 1 0 ]\n" + Blanks(indent) +
         "NuPatch 2 2 [ 0 0 1 1 ] 0 1 2 2 [ 0 0 1 1 ] 0 1 "
         "\"P\" [ 0 0 0 1 0 0 0 1 0 1 1 0 ]\n";
}

std::string SquarePolygon(int indent) {
  return Blanks(indent) + "PointsPolygons [ 4 ] [0 1 2 3 ]\n" + Blanks(indent) +
         " \"P\" [ 0 0 0 1 0 0 1 1 0 0 1 0  ]\n";
}

WalkTest::WalkTest() {
  settings_.WriteMaterials = false;
  settings_.RenderMesh = 0;
  RhinoApp().CommandWindow().SetSink([this](std::string_view text) { messages_ += text; });
}

WalkTest::~WalkTest() {
  RhinoApp().CommandWindow().SetSink({});
  host::ClearInterrupt();
}

std::string WalkTest::Walk(bool succeeds) {
  doc_.SetModel(std::move(model_), "");
  const auto objects = orv::FlattenObjects(orv::GatherObjects(doc_, false, orv::RenderSettings()));
  return Numbered(Written([&](orv::RibWriter& writer) {
    writer.Indent = 2;
    EXPECT_EQ(orv::WriteObjects(writer, doc_, objects, settings_, iprSettings_, textures_, blocks_),
              succeeds);
  }));
}

std::string WalkTest::Numbered(std::string rib) const {
  const std::regex number("(Block_|Object_)([0-9]+)");
  std::string text;
  std::smatch match;
  while (std::regex_search(rib, match, number)) {
    std::size_t position = 0;
    while (position < doc_.Objects().size() &&
           std::to_string(doc_.Objects()[position]->RuntimeSerialNumber()) != match[2]) {
      ++position;
    }
    text += match.prefix().str() + match[1].str() + "#" + std::to_string(position);
    rib = match.suffix();
  }
  return text + rib;
}

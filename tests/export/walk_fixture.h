#pragma once

#include <string>

#include "export/block_archives.h"
#include "export_fixture.h"

// A square of the xy plane with corners 0,0 and 1,1: a whole surface.
ONX_ModelObject SquareSurface();
// What it writes as NURBS, at the given indent.
std::string SquarePatch(int indent);
// What SquareMesh writes.
std::string SquarePolygon(int indent);

// Walks of all objects of a document that a test has put together. Writes no material unless a test
// asks for it.
class WalkTest : public testing::Test {
 protected:
  WalkTest();
  ~WalkTest() override;

  // What the walk writes at an indent of 2. Serial numbers are replaced by the objects' positions
  // in the document: the first object's archive is "Block_#0".
  std::string Walk(bool succeeds = true);
  // The same text with positions for serial numbers.
  std::string Numbered(std::string rib) const;

  ONX_Model model_;
  CRhinoDoc doc_;
  orv::RenderSettings settings_;
  const orv::IprSettings* iprSettings_ = nullptr;
  orv::TextureConverter textures_;
  orv::BlockIds blocks_;
  // All that the command window has shown.
  std::string messages_;
};

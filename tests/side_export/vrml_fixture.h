#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>

#include "host/archive/model.h"
#include "host/document/doc.h"
#include "host/geometry/on_mesh.h"
#include "side_export/vrml_export.h"
#include "support/temp_folder.h"

// A rectangle of the xy plane as one quad, with the texture over it once.
std::shared_ptr<ON_Mesh> TexturedRectangle(float width, float height);
ONX_ModelObject NamedObject(std::shared_ptr<ON_Geometry> geometry, std::uint8_t number);

// A view in perspective from `location` at `target`, with half angles whose tangents are given.
ON_3dmView PerspectiveView(const std::string& name, ON_3dPoint location, ON_3dPoint target,
                           double across = 1, double up = 0.5);

// VRML files of documents that a test has put together.
class VrmlTest : public testing::Test {
 protected:
  VrmlTest();
  ~VrmlTest() override;

  // Makes the document of `model_`.
  void Open() { doc_.SetModel(std::move(model_), ""); }
  CommandResult ExportTo(const std::string& path) {
    return orv::ExportVrml(path, doc_, {ON_Color(51, 102, 255), "maps\\hall.png"});
  }
  // The file of the open document, which must be a sound one.
  std::string Vrml();

  TempFolder folder_;
  ONX_Model model_;
  CRhinoDoc doc_;
  // All that the command window has shown.
  std::string messages_;
};

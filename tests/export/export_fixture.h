#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "export/rib_writer.h"
#include "host/archive/model.h"
#include "host/document/doc.h"
#include "host/document/file_options.h"
#include "host/geometry/on_mesh.h"
#include "settings/ipr_settings.h"
#include "settings/render_settings.h"
#include "shading/texture_converter.h"
#include "support/temp_folder.h"

// What a function writes into a stream of its own. The stream's file is `name` in a folder of its
// own.
std::string Written(const std::function<void(orv::RibWriter&)>& write,
                    std::string_view name = "scene.rib");

// A perspective view named "Camera" of 640 x 480 pixels: at (1,-10,2), looking along the positive y
// axis at (1,0,2), with a half angle of 0.3926990817 radians upward.
ON_3dmView PerspectiveView();
// A parallel view named "Plan" of 800 x 400 pixels: at (2,3,50), looking down, 40 units wide.
ON_3dmView ParallelView();

// A square of one quad at the height `z`, without normals.
std::shared_ptr<ON_Mesh> SquareMesh(float z = 0);
ONX_ModelObject ObjectOf(std::shared_ptr<ON_Geometry> geometry);
// An object that is hidden on its own.
ONX_ModelObject HiddenObjectOf(std::shared_ptr<ON_Geometry> geometry);
ONX_ModelLight PointLight();

// The stream's text without what differs from run to run: the folder in the line "##Scene" and the
// date in the line "##Creator", which must be one.
std::string WithoutFolderAndDate(std::string rib);

// Exports of a document that a test has put together.
class ExportTest : public testing::Test {
 protected:
  ExportTest();
  ~ExportTest() override;

  // Makes the document of `model_`.
  void Open() { doc_.SetModel(std::move(model_), ""); }
  // Exports to `path`; the result of the export.
  int ExportTo(std::string_view path);
  // Exports to scene.rib in the test's folder, which must succeed, and gives the stream.
  std::string Rib();

  TempFolder folder_;
  ONX_Model model_;
  CRhinoDoc doc_;
  orv::RenderSettings settings_;
  CRhinoFileWriteOptions options_;
  int reparameterize_ = 1;
  // Not null for an interactive export.
  const orv::IprSettings* iprSettings_ = nullptr;
  orv::TextureConverter textures_;
  // All that the command window has shown.
  std::string messages_;
};

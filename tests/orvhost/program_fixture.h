#pragma once

#include <gmock/gmock.h>

#include <memory>
#include <string>
#include <vector>

#include "host/archive/model.h"
#include "host/geometry/on_mesh.h"
#include "support/model_writer.h"
#include "support/process.h"
#include "support/temp_folder.h"

// Runs the real program in a folder of its own, with a profile of its own.
class ProgramTest : public testing::Test {
 protected:
  ProgramTest() {
    options_.folder = folder_.Path().string();
    options_.environment = {{"ORV_PROFILE_DIR", folder_.File("profile")},
                            {"HOME", folder_.Path().string()},
                            {"TERM", "vt100"}};
  }

  ProcessResult Run(std::vector<std::string> arguments) const {
    return RunProcess(Command(std::move(arguments)), options_);
  }
  static std::vector<std::string> Command(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), ORV_BIN_FOLDER "/orvhost");
    return arguments;
  }

  // Writes a document of `count` meshes, named Mesh1 and so on, of `faces` triangles each.
  void WriteMeshes(const std::string& name, int count = 2, int faces = 1) const {
    ONX_Model model;
    model.m_3dm_file_version = 50;
    model.m_layer_table.emplace_back().m_name = "Default";
    const auto mesh = std::make_shared<ON_Mesh>();
    for (int i = 0; i < faces + 2; ++i) {
      mesh->m_V.push_back({static_cast<float>(i), static_cast<float>(i % 2), 0});
    }
    for (int i = 0; i < faces; ++i) mesh->m_F.push_back({{i, i + 1, i + 2, i + 2}});
    for (int i = 1; i <= count; ++i) {
      ONX_ModelObject object;
      object.m_attributes.m_name = "Mesh" + std::to_string(i);
      object.m_attributes.m_uuid.bytes = {1, 2, 3, 4};
      object.m_attributes.m_uuid.bytes[14] = static_cast<std::uint8_t>(i >> 8);
      object.m_attributes.m_uuid.bytes[15] = static_cast<std::uint8_t>(i);
      object.m_geometry = mesh;
      model.m_object_table.push_back(object);
    }
    const std::string bytes = WriteModel(model);
    ASSERT_FALSE(bytes.empty());
    WriteFileContent(folder_.File(name), bytes);
  }

  // The names of the files and folders in the test's folder, sorted.
  std::vector<std::string> Files() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder_.Path())) {
      names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
  }

  TempFolder folder_;
  ProcessOptions options_;
};

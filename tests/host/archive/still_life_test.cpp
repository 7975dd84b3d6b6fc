#include "support/still_life.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

#include "host/archive/model_reader.h"
#include "support/camera_paths.h"
#include "support/model_writer.h"
#include "support/temp_folder.h"

namespace {

const char* const kExample = ORV_TEST_FOLDER "/../../../examples/still_life.3dm";
const char* const kPaths = ORV_TEST_FOLDER "/../../../examples/camera_paths.3dm";

TEST(StillLife, TheFileInTheExamplesIsWhatTheProgramMakes) {
  const std::string bytes = WriteModel(StillLife());
  EXPECT_LT(bytes.size(), 300'000u);
  EXPECT_TRUE(FileContent(kExample) == bytes) << "make it anew: example_model examples";
}

TEST(CameraPaths, TheFileInTheExamplesIsWhatTheProgramMakes) {
  EXPECT_TRUE(FileContent(kPaths) == WriteModel(CameraPaths()))
      << "make it anew: example_model examples";
}

TEST(StillLife, TheFileInTheExamplesIsReadWithoutProblems) {
  ONX_Model model;
  const ON_ReadResult result = ON_ReadModel(kExample, model);
  ASSERT_TRUE(result.ok) << result.error;
  EXPECT_TRUE(model.m_problems.empty());
  EXPECT_TRUE(model.m_unread.empty());
  EXPECT_EQ(model.m_layer_table.size(), 8u);
  EXPECT_EQ(model.m_material_table.size(), 8u);
  EXPECT_EQ(model.m_object_table.size(), 16u);
  EXPECT_EQ(model.m_light_table.size(), 1u);
  ASSERT_EQ(model.m_settings.m_views.size(), 2u);
  EXPECT_EQ(model.m_settings.m_views[0].m_name, "Perspective");
  EXPECT_NEAR(model.m_settings.m_views[0].m_vp.Camera35mmLensLength(), 50, 1e-12);
  EXPECT_EQ(model.m_settings.m_views[1].m_name, "Top");
}

TEST(StillLife, EveryObjectHasANameALayerAndAnIdOfItsOwn) {
  const ONX_Model model = StillLife();
  std::set<std::string> names;
  std::set<ON_UUID> ids;
  for (const ONX_ModelObject& object : model.m_object_table) {
    names.insert(object.m_attributes.m_name);
    ids.insert(object.m_attributes.m_uuid);
    EXPECT_LT(static_cast<std::size_t>(object.m_attributes.m_layer_index),
              model.m_layer_table.size());
    EXPECT_TRUE(object.m_geometry->BoundingBox().IsValid());
  }
  EXPECT_EQ(names.size(), model.m_object_table.size());
  EXPECT_EQ(ids.size(), model.m_object_table.size());
}

}  // namespace

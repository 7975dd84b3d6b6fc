#include "export/outline_options.h"

#include <gtest/gtest.h>

#include "export_fixture.h"
#include "rib_fragment.h"

namespace {

class OutlineOptions : public testing::Test {
 protected:
  OutlineOptions() { settings_.Outline = true; }

  // Objects with the line widths that these texts say.
  void AddObject(std::string_view useLineWidth, std::string_view lineWidth) {
    ONX_ModelObject object = ObjectOf(SquareMesh());
    object.m_attributes.SetUserString("OrvUseLineWidth", useLineWidth);
    object.m_attributes.SetUserString("OrvLineWidth", lineWidth);
    model_.m_object_table.push_back(std::move(object));
  }

  std::string Rib() {
    CRhinoDoc doc;
    doc.SetModel(model_, "");
    const orv::ObjectList objects = orv::GatherObjects(doc, false, settings_);
    return WrittenRib(
        [&](orv::RibWriter& writer) { orv::WriteOutlineOptions(writer, settings_, objects); });
  }

  std::string Line(std::string_view start) {
    const std::string rib = Rib();
    const std::size_t at = rib.find(start);
    return at == std::string::npos ? "" : rib.substr(at, rib.find('\n', at) - at);
  }
  std::string MaxInkWidth() { return Line("Option \"toon\" \"float maxinkwidth\""); }

  ONX_Model model_;
  orv::RenderSettings settings_;
};

TEST_F(OutlineOptions, AreNotWrittenWithoutOutlines) {
  settings_.Outline = false;
  settings_.FrontBack = true;
  settings_.ExportVectors = true;
  EXPECT_EQ(Rib(), "");
}

TEST_F(OutlineOptions, OfAFreshDocument) {
  EXPECT_EQ(Rib(),
            "Option \"toon\" \"float maxinkwidth\" 1\n"
            "Option \"toon\" \"float fadethreshold\" 0\n"
            "Option \"toon\" \"float mininkwidth\" 0\n"
            "Attribute \"toon\" \"float inkwidth\" 1\n"
            "Attribute \"toon\" \"color ink\" [0 0 0]\n"
            "Attribute \"toon\" \"float silhouette\" 0.5\n"
            "Attribute \"toon\" \"float id\" -1\n");
}

TEST_F(OutlineOptions, WithAllSwitches) {
  AddObject("Yes", "3");
  settings_.InkWidth = 2.5;
  settings_.FadeThreshold = 100;
  settings_.MinInkWidth = 0.5;
  settings_.RhinoGamma = 2;
  settings_.InkColor = {51, 102, 255};
  settings_.FrontBack = true;
  settings_.Silhouette = 0.75;
  settings_.ToonId = 4;
  settings_.UseMinEdgeAngle = true;
  settings_.MinEdgeAngle = 30;
  settings_.IncludeNakedEdges = true;
  settings_.ExportVectors = true;
  settings_.VectorExportName = "C:\\out\\the \"ink\".ai";
  EXPECT_EQ(Rib(),
            "Option \"toon\" \"float maxinkwidth\" 7.5\n"
            "Option \"toon\" \"float fadethreshold\" 100\n"
            "Option \"toon\" \"float mininkwidth\" 1.25\n"
            "Attribute \"toon\" \"float inkwidth\" 2.5\n"
            "Attribute \"toon\" \"color ink\" [0.2 0.4 1]\n"
            "Attribute \"toon\" \"integer frontback\" 1\n"
            "Attribute \"toon\" \"float silhouette\" 0.75\n"
            "Attribute \"toon\" \"float id\" -2\n"
            "Attribute \"toon\" \"faceangle\" [30]\n"
            "Attribute \"toon\" \"nakededges\" [1]\n"
            "Option \"toon\" \"string vectorexportfile\" \"C:/out/the \\\"ink\\\".ai\"\n");
}

TEST_F(OutlineOptions, AnIdForEachKindOfOutline) {
  const char* const ids[] = {"0", "1", "-1", "-1", "-2"};
  for (int id = 0; id <= 4; ++id) {
    settings_.ToonId = id;
    EXPECT_EQ(Line("Attribute \"toon\" \"float id\""),
              std::string("Attribute \"toon\" \"float id\" ") + ids[id]);
  }
}

TEST_F(OutlineOptions, TheWidestLineMakesRoom) {
  settings_.InkWidth = 2;
  EXPECT_EQ(MaxInkWidth(), "Option \"toon\" \"float maxinkwidth\" 2");
  AddObject("yes", "3");
  AddObject("Yes", "2");
  AddObject("Yes", "-5");
  EXPECT_EQ(MaxInkWidth(), "Option \"toon\" \"float maxinkwidth\" 6");
  AddObject("whatever", "1e6");
  EXPECT_EQ(MaxInkWidth(), "Option \"toon\" \"float maxinkwidth\" 200");
}

TEST_F(OutlineOptions, ALineIsNeverThinnerThanTheInk) {
  settings_.InkWidth = 2;
  AddObject("Yes", "0.5");
  EXPECT_EQ(MaxInkWidth(), "Option \"toon\" \"float maxinkwidth\" 2");
}

TEST_F(OutlineOptions, LineWidthsThatAreNotUsedOrNoNumbersDontCount) {
  AddObject("NO", "3");
  AddObject("Yes", "1e999");
  AddObject("Yes", "wide");
  AddObject("Yes", "nan");
  ONX_ModelObject withoutSwitch = ObjectOf(SquareMesh());
  withoutSwitch.m_attributes.SetUserString("OrvLineWidth", "3");
  model_.m_object_table.push_back(std::move(withoutSwitch));
  ONX_ModelObject withoutWidth = ObjectOf(SquareMesh());
  withoutWidth.m_attributes.SetUserString("OrvUseLineWidth", "Yes");
  model_.m_object_table.push_back(std::move(withoutWidth));
  EXPECT_EQ(MaxInkWidth(), "Option \"toon\" \"float maxinkwidth\" 1");
}

TEST_F(OutlineOptions, ALightsLineWidthCountsToo) {
  ONX_ModelLight light = PointLight();
  light.m_attributes.SetUserString("OrvUseLineWidth", "Yes");
  light.m_attributes.SetUserString("OrvLineWidth", "4");
  model_.m_light_table.push_back(std::move(light));
  EXPECT_EQ(MaxInkWidth(), "Option \"toon\" \"float maxinkwidth\" 4");
}

}  // namespace

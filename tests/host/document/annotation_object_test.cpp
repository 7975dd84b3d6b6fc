#include "host/document/annotation_object.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>

#include "host/document/doc.h"
#include "host/geometry/on_line_curve.h"
#include "host/geometry/on_point_cloud.h"

namespace {

using Type = ON_Annotation::Type;

constexpr ON_UUID kStyle = "11111111-2222-4333-8444-555555555551"_uuid;
constexpr ON_UUID kOtherStyle = "11111111-2222-4333-8444-555555555552"_uuid;

ONX_Model ModelOf(ON_Annotation annotation) {
  ONX_Model model;
  model.m_settings.m_model_units.m_unit_system = ON_UnitSystem::millimeters;
  ON_DimStyle style;
  style.m_id = kOtherStyle;
  model.m_dimstyle_table.push_back(style);
  style.m_id = kStyle;
  style.m_name = "mine";
  style.m_textheight = 3;
  style.m_lengthresolution = 1;
  model.m_dimstyle_table.push_back(style);
  model.m_object_table.emplace_back().m_geometry =
      std::make_shared<ON_Annotation>(std::move(annotation));
  return model;
}

ON_Annotation Linear(const ON_UUID& style) {
  ON_Annotation linear;
  linear.m_type = Type::linear;
  linear.m_points = {{0, 0}, {50.8, 0}, {0, 9}};
  linear.m_text = "<>";
  linear.m_dimstyle_id = style;
  return linear;
}

class AnnotationObject : public testing::Test {
 protected:
  const CRhinoAnnotationObject& Open(ONX_Model model) {
    doc_.SetModel(std::move(model), "");
    const auto* object = CRhinoAnnotationObject::Cast(doc_.Objects().front().get());
    EXPECT_NE(object, nullptr);
    return *object;
  }

  CRhinoDoc doc_;
  std::vector<std::shared_ptr<const ON_Curve>> curves_;
  std::vector<ON_TextEntity2> texts_;
};

TEST_F(AnnotationObject, AnObjectWithAnAnnotationIsOne) {
  const CRhinoAnnotationObject& object = Open(ModelOf(Linear(kStyle)));
  EXPECT_EQ(object.Type(), Type::linear);
  EXPECT_EQ(object.Plane().zaxis, (ON_3dVector{0, 0, 1}));
  EXPECT_EQ(object.ObjectType(), ON_ObjectType::annotation);
  EXPECT_TRUE(object.IsVisible());
}

TEST_F(AnnotationObject, OthersAreNone) {
  ONX_Model model;
  model.m_object_table.emplace_back().m_geometry = std::make_shared<ON_Point>();
  doc_.SetModel(std::move(model), "");
  EXPECT_EQ(CRhinoAnnotationObject::Cast(doc_.Objects().front().get()), nullptr);
  EXPECT_EQ(CRhinoAnnotationObject::Cast(nullptr), nullptr);
}

TEST_F(AnnotationObject, ItsStyleIsTheOneOfTheTable) {
  ON_DimStyle style;
  EXPECT_TRUE(Open(ModelOf(Linear(kStyle))).GetDimStyle(style));
  EXPECT_EQ(style.m_name, "mine");
  EXPECT_EQ(style.m_textheight, 3);
}

TEST_F(AnnotationObject, ItsOwnChangesComeFirst) {
  ON_Annotation linear = Linear(kStyle);
  linear.m_override.emplace().m_textheight = 9;
  ON_DimStyle style;
  EXPECT_TRUE(Open(ModelOf(linear)).GetDimStyle(style));
  EXPECT_EQ(style.m_textheight, 9);
}

TEST_F(AnnotationObject, WithoutAStyleItHasTheDefaultOne) {
  ON_DimStyle style;
  style.m_textheight = 77;
  EXPECT_FALSE(Open(ModelOf(Linear({}))).GetDimStyle(style));
  EXPECT_EQ(style.m_textheight, 1);
  EXPECT_FALSE(
      Open(ModelOf(Linear("99999999-2222-4333-8444-555555555551"_uuid))).GetDimStyle(style));
}

TEST_F(AnnotationObject, ExplodesIntoLinesArrowsAndText) {
  curves_.push_back(std::make_shared<ON_LineCurve>(ON_3dPoint{0, 0, 0}, ON_3dPoint{1, 0, 0}));
  EXPECT_TRUE(Open(ModelOf(Linear(kStyle))).Explode(curves_, texts_));
  // Behind what was there: two extension lines and the dimension line, and two arrowheads.
  EXPECT_EQ(curves_.size(), 6u);
  EXPECT_EQ(std::count_if(curves_.begin(), curves_.end(),
                          [](const auto& curve) { return curve->IsClosed(); }),
            2);
  ASSERT_EQ(texts_.size(), 1u);
  EXPECT_EQ(texts_[0].m_text, "50.8");
  EXPECT_EQ(texts_[0].m_height, 3);
}

TEST_F(AnnotationObject, LengthsMayBeToldInAnotherUnitThanTheDocuments) {
  ONX_Model model = ModelOf(Linear(kStyle));
  model.m_dimstyle_table[1].m_lengthunit = static_cast<int>(ON_UnitSystem::inches);
  EXPECT_TRUE(Open(std::move(model)).Explode(curves_, texts_));
  EXPECT_EQ(texts_.at(0).m_text, "2.0");
}

TEST_F(AnnotationObject, ATextIsItsEntityAlone) {
  ON_Annotation text;
  text.m_text = "words";
  text.m_dimstyle_id = kStyle;
  EXPECT_TRUE(Open(ModelOf(text)).Explode(curves_, texts_));
  EXPECT_TRUE(curves_.empty());
  ASSERT_EQ(texts_.size(), 1u);
  EXPECT_EQ(texts_[0].m_text, "words");
}

TEST_F(AnnotationObject, OneWithoutADrawingExplodesIntoNothing) {
  ON_Annotation flat = Linear(kStyle);
  flat.m_points[1] = {0, 0};
  EXPECT_FALSE(Open(ModelOf(flat)).Explode(curves_, texts_));
  EXPECT_TRUE(curves_.empty());
  EXPECT_TRUE(texts_.empty());
}

TEST_F(AnnotationObject, AnImportedOneKeepsItsOwnStyle) {
  doc_.SetModel(ModelOf(Linear(kStyle)), "");
  ONX_Model imported = ModelOf(Linear(kStyle));
  imported.m_dimstyle_table[1].m_name = "theirs";
  imported.m_object_table.emplace_back().m_geometry =
      std::make_shared<ON_Annotation>(Linear("99999999-2222-4333-8444-555555555551"_uuid));
  doc_.ImportModel(std::move(imported));
  ON_DimStyle style;
  ASSERT_EQ(doc_.Objects().size(), 3u);
  const auto at = [this](std::size_t i) {
    return CRhinoAnnotationObject::Cast(doc_.Objects()[i].get());
  };
  EXPECT_TRUE(at(0)->GetDimStyle(style));
  EXPECT_EQ(style.m_name, "mine");
  EXPECT_TRUE(at(1)->GetDimStyle(style));
  EXPECT_EQ(style.m_name, "theirs");
  EXPECT_FALSE(at(2)->GetDimStyle(style));
}

}  // namespace

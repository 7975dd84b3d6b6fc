#include "edited_document.h"

namespace {

class ObjectMaterialTest : public EditedDocument {
 protected:
  void SetSource(CRhinoObject& object, ON_AttributeSource source, int index) {
    ON_3dmObjectAttributes attributes = object.Attributes();
    attributes.m_material_source = source;
    attributes.m_material_index = index;
    EXPECT_TRUE(doc_.ModifyObjectAttributes(object, attributes));
  }
  void SetLayerMaterial(int layer, int index) {
    ON_Layer changed = LayerAt(layer);
    changed.SetRenderMaterialIndex(index);
    EXPECT_TRUE(doc_.m_layer_table.ModifyLayer(changed, layer));
  }
};

TEST_F(ObjectMaterialTest, ComesFromTheLayer) {
  SetLayerMaterial(kHouse, 1);
  SetSource(Object(0), ON_AttributeSource::layer, 0);
  EXPECT_EQ(Object(0).ObjectMaterial().m_name, "oak");
  EXPECT_EQ(Object(0).ObjectMaterial().MaterialIndex(), 1);
}

TEST_F(ObjectMaterialTest, IsTheObjectsOwn) {
  SetLayerMaterial(kHouse, 1);
  SetSource(Object(0), ON_AttributeSource::object, 0);
  EXPECT_EQ(Object(0).ObjectMaterial().m_name, "brick");
  SetSource(Object(0), ON_AttributeSource::parent, 1);
  EXPECT_EQ(Object(0).ObjectMaterial().m_name, "oak");
}

TEST_F(ObjectMaterialTest, IsTheHostsDefaultWhereThereIsNone) {
  const ON_Material* standard = &RhinoApp().AppSettings().DefaultMaterial();
  EXPECT_EQ(&Object(0).ObjectMaterial(), standard);
  SetLayerMaterial(kHouse, 2);
  EXPECT_EQ(&Object(0).ObjectMaterial(), standard);
  SetSource(Object(0), ON_AttributeSource::object, -1);
  EXPECT_EQ(&Object(0).ObjectMaterial(), standard);
  SetSource(Object(0), ON_AttributeSource::parent, 2);
  EXPECT_EQ(&Object(0).ObjectMaterial(), standard);
  SetSource(Object(0), ON_AttributeSource::material, 0);
  EXPECT_EQ(&Object(0).ObjectMaterial(), standard);
}

TEST_F(ObjectMaterialTest, IsTheHostsDefaultOnALayerThatIsNotInTheTable) {
  ON_3dmObjectAttributes attributes;
  attributes.m_layer_index = 9;
  EXPECT_TRUE(doc_.ModifyObjectAttributes(Object(0), attributes));
  EXPECT_EQ(Object(0).ObjectMaterial().MaterialIndex(), -1);
}

TEST_F(ObjectMaterialTest, IsOnePlaceForAllObjectsThatHaveIt) {
  SetSource(Object(0), ON_AttributeSource::object, 1);
  SetLayerMaterial(kWall, 1);
  EXPECT_EQ(&Object(0).ObjectMaterial(), &Object(1).ObjectMaterial());
  EXPECT_EQ(&Object(0).ObjectMaterial(), doc_.m_material_table.At(1));
}

TEST(DefaultMaterial, IsWhiteOpaqueAndDull) {
  const ON_Material& material = RhinoApp().AppSettings().DefaultMaterial();
  EXPECT_EQ(material.Diffuse(), ON_Color(255, 255, 255));
  EXPECT_EQ(material.Transparency(), 0);
  EXPECT_EQ(material.Shine(), 0);
  EXPECT_EQ(material.m_name, "");
  EXPECT_EQ(material.MaterialIndex(), -1);
}

TEST_F(ObjectMaterialTest, ToEditIsTheOneThatTheObjectHas) {
  SetLayerMaterial(kHouse, 1);
  EXPECT_EQ(doc_.MaterialToEdit(Object(0)), 1);
  SetSource(Object(0), ON_AttributeSource::object, 0);
  EXPECT_EQ(doc_.MaterialToEdit(Object(0)), 0);
  EXPECT_EQ(doc_.m_material_table.Count(), 2);
}

TEST_F(ObjectMaterialTest, ToEditIsMadeForALayerThatHasNone) {
  for (const int present : {-1, 99}) {
    SetLayerMaterial(kHouse, present);
    const int made = doc_.m_material_table.Count();
    EXPECT_EQ(doc_.MaterialToEdit(Object(0)), made);
    EXPECT_EQ(LayerAt(kHouse).RenderMaterialIndex(), made);
    EXPECT_EQ(doc_.MaterialToEdit(Object(0)), made);
    EXPECT_EQ(doc_.m_material_table.Count(), made + 1);
  }
}

TEST_F(ObjectMaterialTest, ToEditIsNoneWhereNothingCouldBeMadeForALayer) {
  SetSource(Object(0), ON_AttributeSource::object, -1);
  EXPECT_EQ(doc_.MaterialToEdit(Object(0)), -1);
  ON_3dmObjectAttributes attributes;
  attributes.m_layer_index = 9;
  EXPECT_TRUE(doc_.ModifyObjectAttributes(Object(0), attributes));
  EXPECT_EQ(doc_.MaterialToEdit(Object(0)), -1);
  EXPECT_EQ(doc_.m_material_table.Count(), 2);
}

}  // namespace

#include "shading/attributes.h"

#include <gtest/gtest.h>

#include "host/document/doc.h"

namespace {

// The attributes of an object with one user string.
orv::ObjectAttributes AttributesWith(std::string_view key, std::string_view value) {
  ONX_Model model;
  model.m_object_table.resize(1);
  model.m_object_table[0].m_attributes.SetUserString(key, value);
  CRhinoDoc doc;
  doc.SetModel(std::move(model), "");
  return orv::ReadObjectAttributes(*doc.Objects()[0]);
}

TEST(ObjectAttributes, AreOffWithoutStrings) {
  const orv::ObjectAttributes attributes = AttributesWith("Other", "Yes");
  EXPECT_FALSE(attributes.WeldPolyVerts);
  EXPECT_FALSE(attributes.SubdivisionMesh);
}

TEST(ObjectAttributes, AnyTextButNoIsYes) {
  for (const char* yes : {"Yes", "yes", "", "0", "nope", " no"}) {
    EXPECT_TRUE(AttributesWith("OrvWeldPolyVerts", yes).WeldPolyVerts) << yes;
    EXPECT_TRUE(AttributesWith("OrvSubdivisionMesh", yes).SubdivisionMesh) << yes;
  }
  for (const char* no : {"No", "no", "NO", "nO"}) {
    EXPECT_FALSE(AttributesWith("OrvWeldPolyVerts", no).WeldPolyVerts) << no;
    EXPECT_FALSE(AttributesWith("OrvSubdivisionMesh", no).SubdivisionMesh) << no;
  }
}

TEST(ObjectAttributes, AKeyCountsInAnyCase) {
  EXPECT_TRUE(AttributesWith("orvweldpolyverts", "Yes").WeldPolyVerts);
  EXPECT_FALSE(AttributesWith("orvweldpolyverts", "Yes").SubdivisionMesh);
}

}  // namespace

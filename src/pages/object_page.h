#pragma once

#include "pages/property_page.h"
#include "shading/object_attributes.h"

namespace orv {

// The renderer's attributes of all objects that are no lights.
class CObjectDlg : public PropertyPage<ObjectAttributes, bool ObjectAttributes::ChangeMarks::*> {
 public:
  explicit CObjectDlg(CSceneOutPlugIn& plugIn);

 protected:
  ObjectAttributes ReadRecord(const CRhinoObject& object) const override;
  void Store(CRhinoDoc& doc, const Row& row) override;
};

}  // namespace orv

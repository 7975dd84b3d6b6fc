#pragma once

#include "pages/property_page.h"
#include "shading/light_attributes.h"

namespace orv {

// The renderer's attributes of lights.
class CLightPropPageDlg : public PropertyPage<LightAttributes, LightField> {
 public:
  explicit CLightPropPageDlg(CSceneOutPlugIn& plugIn);

 protected:
  LightAttributes ReadRecord(const CRhinoObject& light) const override;
  // Tells a live session of each light.
  void Store(CRhinoDoc& doc, const Row& row) override;
};

}  // namespace orv

#pragma once

#include <memory>
#include <vector>

#include "host/document/object.h"
#include "host/geometry/on_annotation.h"
#include "host/geometry/on_curve.h"

// An annotation of the document. Its geometry is an ON_Annotation.
class CRhinoAnnotationObject : public CRhinoObject {
 public:
  using CRhinoObject::CRhinoObject;

  static const CRhinoAnnotationObject* Cast(const CRhinoObject* object);

  ON_Annotation::Type Type() const { return Annotation().m_type; }
  const ON_Plane& Plane() const { return Annotation().m_plane; }
  // The style that it is drawn in, with its own changes. False when the document has none for it;
  // `style` is then the default one.
  bool GetDimStyle(ON_DimStyle& style) const;
  // Appends the lines and closed curves of its drawing and its texts. A text is its own entity.
  // False when nothing was appended.
  bool Explode(std::vector<std::shared_ptr<const ON_Curve>>& curves,
               std::vector<ON_TextEntity2>& texts) const;

 private:
  const ON_Annotation& Annotation() const;
};

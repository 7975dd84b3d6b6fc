#include "host/document/annotation_object.h"

#include <algorithm>
#include <iterator>

#include "host/document/doc.h"
#include "host/modeling/explode_annotation.h"

namespace {

// How many of the units that the style tells lengths in make one of the document's.
double LengthScale(const CRhinoDoc& doc, const ON_DimStyle& style) {
  const auto unit = static_cast<ON_UnitSystem>(style.m_lengthunit);
  if (unit == ON_UnitSystem::none) return 1;
  return 1 / doc.Properties().ModelUnitsAndTolerances().Scale(unit);
}

}  // namespace

const CRhinoAnnotationObject* CRhinoAnnotationObject::Cast(const CRhinoObject* object) {
  return dynamic_cast<const CRhinoAnnotationObject*>(object);
}

bool CRhinoAnnotationObject::GetDimStyle(ON_DimStyle& style) const {
  const ON_Annotation& annotation = Annotation();
  const ON_UUID& id = annotation.m_dimstyle_id;
  const std::vector<ON_DimStyle>& styles = Document().m_dimstyle_table.Records();
  const auto found = std::find_if(styles.begin(), styles.end(), [&](const ON_DimStyle& s) {
    return !id.IsNil() && s.m_id == id;
  });
  const ON_DimStyle* of_table = found == styles.end() ? nullptr : &*found;
  style = annotation.DimStyle(of_table);
  return of_table != nullptr || annotation.m_override.has_value();
}

bool CRhinoAnnotationObject::Explode(std::vector<std::shared_ptr<const ON_Curve>>& curves,
                                     std::vector<ON_TextEntity2>& texts) const {
  ON_DimStyle style;
  // Without a style it is drawn in the default one.
  static_cast<void>(GetDimStyle(style));
  style.m_lengthfactor *= LengthScale(Document(), style);
  host::ExplodedAnnotation parts = host::ExplodeAnnotation(Annotation(), style);
  curves.insert(curves.end(), std::make_move_iterator(parts.curves.begin()),
                std::make_move_iterator(parts.curves.end()));
  texts.insert(texts.end(), std::make_move_iterator(parts.texts.begin()),
               std::make_move_iterator(parts.texts.end()));
  return !parts.curves.empty() || !parts.texts.empty();
}

const ON_Annotation& CRhinoAnnotationObject::Annotation() const {
  return static_cast<const ON_Annotation&>(*Geometry());
}

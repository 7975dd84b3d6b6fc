#pragma once

#include <optional>
#include <string>
#include <vector>

#include "host/geometry/on_object.h"
#include "host/geometry/on_tables.h"

// A text, a leader or a dimension: points and a text in a plane, drawn in a dimension style. Those
// of old documents are read into the same form.
class ON_Annotation : public ON_Geometry {
 public:
  // The values are those of the annotation objects.
  enum class Type {
    linear = 1,   // measured along the plane's x axis
    aligned = 2,  // the same; the x axis runs from the first point to the second
    angular = 3,
    diameter = 4,
    radius = 5,
    leader = 6,
    text = 7,
    ordinate = 8,
  };
  enum class HorizontalAlignment { left = 0, center = 1, right = 2, automatic = 3 };
  enum class VerticalAlignment {
    top = 0,
    middle_of_top = 1,
    bottom_of_top = 2,
    middle = 3,
    middle_of_bottom = 4,
    bottom = 5,
    bottom_of_bounding_box = 6,
  };

  static const ON_Annotation* Cast(const ON_Object* object);

  // True when the plane is one, and every coordinate and size is a number.
  bool IsValid() const;

  ON_ObjectType ObjectType() const override { return ON_ObjectType::annotation; }
  // The box of the points; the text's extent isn't known here.
  ON_BoundingBox BoundingBox() const override;

  // The style that it is drawn in: its own changed copy, else the one of the table, else the
  // default style.
  const ON_DimStyle& DimStyle(const ON_DimStyle* of_table) const;
  // What a dimension measures: a length in units of the document, or an angle in radians from 0 to
  // a whole turn. 0 for texts and leaders, and where points are missing.
  double Measurement() const;
  // The angle that an angular dimension measures: from where its arc starts (radians from the
  // plane's x axis), counterclockwise to where it ends. Empty when its points give none.
  std::optional<ON_Interval> MeasuredAngle() const;

  Type m_type = Type::text;
  ON_Plane m_plane;
  // In the plane's coordinates:
  //   linear, aligned   first and second measured point, a point of the dimension line
  //   angular           centre, a point on the first and on the second side, a point of the arc
  //   diameter, radius  centre, a point on the curve, where the line bends, its end at the text
  //   leader            from the arrow's tip to the text
  //   ordinate          the measured point, the leader's end, and the leader's two bends
  //   text              none; the text stands at the plane's origin
  std::vector<ON_2dPoint> m_points;
  // An ordinate dimension measures along the x axis, otherwise along the y axis.
  bool m_measures_x = true;
  // Where the text of a dimension stands, when the user has moved it: a point for the dimension
  // line, which the text's middle is in or above.
  std::optional<ON_2dPoint> m_text_point;
  // What is measured in a detail of a page counts by so much.
  double m_distance_scale = 1;
  // Plain text, lines parted by \n. In a dimension, "<>" stands for what is measured.
  std::string m_text;
  // Radians, counterclockwise from the plane's x axis.
  double m_text_rotation = 0;
  HorizontalAlignment m_halign = HorizontalAlignment::left;
  VerticalAlignment m_valign = VerticalAlignment::top;
  // Longer lines of a text are broken at blanks; 0 for as they are. Not yet multiplied by the
  // style's scale.
  double m_wrap_width = 0;
  // Of the document's table; nil when the document has none.
  ON_UUID m_dimstyle_id;
  // The style with this annotation's own changes.
  std::optional<ON_DimStyle> m_override;
};

// A text by itself, as what an annotation is exploded into. Its outlines lie in its plane.
struct ON_TextEntity2 {
  ON_Plane m_plane;
  // UTF-8; lines parted by \n.
  std::string m_text;
  // Of a capital letter, in units of the document.
  double m_height = 1;
  // The family's name; empty for the default one.
  std::string m_font;
  bool m_bold = false;
  bool m_italic = false;
  // Where the plane's origin stands in the text.
  ON_Annotation::HorizontalAlignment m_halign = ON_Annotation::HorizontalAlignment::left;
  ON_Annotation::VerticalAlignment m_valign = ON_Annotation::VerticalAlignment::bottom;
};

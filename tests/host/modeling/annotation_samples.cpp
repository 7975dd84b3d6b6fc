#include "annotation_samples.h"

#include <algorithm>

#include "host/geometry/on_line_curve.h"
#include "host/system/text.h"

double WidthOfLetters(const ON_TextEntity2& text) {
  std::size_t longest = 0;
  for (std::size_t at = 0; at <= text.m_text.size();) {
    const std::size_t end = std::min(text.m_text.find('\n', at), text.m_text.size());
    const std::string line = text.m_text.substr(at, end - at);
    longest = std::max(longest, host::CodePointCount(line));
    at = end + 1;
  }
  return 0.5 * text.m_height * static_cast<double>(longest);
}

Drawing Draw(const ON_Annotation& annotation, const ON_DimStyle& style) {
  Drawing drawing;
  drawing.parts = host::DrawAnnotation(annotation, style, WidthOfLetters);
  for (const auto& curve : drawing.parts.curves) {
    EXPECT_TRUE(curve->IsValid());
    if (curve->IsClosed()) {
      drawing.areas.push_back(curve.get());
    } else if (const ON_LineCurve* line = ON_LineCurve::Cast(curve.get())) {
      drawing.lines.push_back({line->m_line.from, line->m_line.to});
    } else {
      drawing.arcs.push_back(curve.get());
    }
  }
  drawing.texts = drawing.parts.texts;
  for (const ON_TextEntity2& text : drawing.texts) {
    EXPECT_TRUE(text.m_plane.origin.IsValid());
    EXPECT_NEAR(text.m_plane.xaxis.Length(), 1, 1e-9);
    EXPECT_NEAR(text.m_plane.yaxis.Length(), 1, 1e-9);
    EXPECT_GT(text.m_height, 0);
  }
  return drawing;
}

ON_Annotation MakeAnnotation(ON_Annotation::Type type, std::vector<ON_2dPoint> points,
                             std::string text) {
  ON_Annotation annotation;
  annotation.m_type = type;
  annotation.m_points = std::move(points);
  annotation.m_text = std::move(text);
  return annotation;
}

ON_DimStyle SampleStyle() {
  ON_DimStyle style;
  style.m_textheight = 2;
  style.m_textgap = 0.5;
  style.m_arrowsize = 1;
  style.m_leaderarrowsize = 1.5;
  style.m_extoffset = 0.25;
  style.m_extextension = 0.75;
  style.m_centermark = 0.5;
  style.m_lengthresolution = 1;
  style.m_angleresolution = 0;
  style.m_arrowtype1 = 2;
  style.m_arrowtype2 = 2;
  style.m_leaderarrowtype = 2;
  return style;
}

bool HasLine(const Drawing& drawing, ON_3dPoint a, ON_3dPoint b) {
  const auto near = [](ON_3dPoint p, ON_3dPoint q) { return p.DistanceTo(q) < 1e-9; };
  return std::any_of(drawing.lines.begin(), drawing.lines.end(), [&](const DrawnLine& line) {
    return (near(line.from, a) && near(line.to, b)) || (near(line.from, b) && near(line.to, a));
  });
}

std::string ToText(const Drawing& drawing) {
  const auto point = [](ON_3dPoint p) { return host::Format("(%g %g %g)", p.x, p.y, p.z); };
  std::string text;
  for (const DrawnLine& line : drawing.lines) {
    text += "line " + point(line.from) + " " + point(line.to) + "\n";
  }
  for (const ON_Curve* arc : drawing.arcs) {
    text += "arc " + point(arc->PointAtStart()) + " " + point(arc->PointAtEnd()) + "\n";
  }
  for (const ON_Curve* area : drawing.areas) {
    text += "area at " + point(area->PointAtStart()) + "\n";
  }
  for (const ON_TextEntity2& t : drawing.texts) {
    text += "text " + t.m_text + " at " + point(t.m_plane.origin) + "\n";
  }
  return text;
}

std::vector<ON_3dPoint> CornersOf(const ON_Curve& area) {
  std::vector<ON_3dPoint> corners;
  area.IsPolyline(&corners);
  if (!corners.empty()) corners.pop_back();
  return corners;
}

ON_3dPoint CenterOf(const ON_Curve& curve) {
  const ON_BoundingBox box = curve.BoundingBox();
  return box.m_min + (box.m_max - box.m_min) * 0.5;
}

void ExpectPoint(ON_3dPoint expected, ON_3dPoint found) {
  EXPECT_NEAR(expected.x, found.x, 1e-9);
  EXPECT_NEAR(expected.y, found.y, 1e-9);
  EXPECT_NEAR(expected.z, found.z, 1e-9);
}

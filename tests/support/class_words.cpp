#include "support/class_words.h"

const std::map<std::string, std::string>& ClassWords() {
  static const std::map<std::string, std::string> words = {
      {"ON_ArcCurve", "arc"},
      {"ON_Brep", "brep"},
      {"ON_ClippingPlaneSurface", "clipping plane"},
      {"ON_DetailView", "detail view"},
      {"ON_DimAngular", "angular dimension"},
      {"ON_DimLinear", "linear dimension"},
      {"ON_DimOrdinate", "ordinate dimension"},
      {"ON_DimRadial", "radial dimension"},
      {"ON_Extrusion", "extrusion"},
      {"ON_Hatch", "hatch"},
      {"ON_InstanceRef", "block reference"},
      {"ON_Leader", "leader"},
      {"ON_LineCurve", "line"},
      {"ON_NurbsCurve", "NURBS curve"},
      {"ON_NurbsSurface", "NURBS surface"},
      {"ON_PlaneSurface", "plane surface"},
      {"ON_PolyCurve", "polycurve"},
      {"ON_PolylineCurve", "polyline"},
      {"ON_RevSurface", "surface of revolution"},
      {"ON_SubD", "SubD"},
      {"ON_SumSurface", "sum surface"},
      {"ON_Text", "text"},
      {"ON_TextDot", "text dot"},
  };
  return words;
}

bool IsReadClass(const std::string& class_name) {
  return class_name != "ON_DetailView" && class_name != "ON_Hatch" && class_name != "ON_TextDot";
}

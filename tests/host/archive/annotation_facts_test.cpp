#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>

#include "facts_documents.h"
#include "host/geometry/on_annotation.h"

// The annotations of every document of the corpus against the facts that another reader took of
// them. It turns older ones into those of version 6, as is done here.

namespace {

using nlohmann::json;
using Type = ON_Annotation::Type;

std::string PlaceOf(std::size_t i) {
  return "objects[" + std::to_string(i) + "]";
}

Type TypeOf(const std::string& name) {
  static const std::map<std::string, Type> types = {
      {"text", Type::text},         {"leader", Type::leader},     {"rotated", Type::linear},
      {"aligned", Type::aligned},   {"angular", Type::angular},   {"radius", Type::radius},
      {"diameter", Type::diameter}, {"ordinate", Type::ordinate},
  };
  return types.at(name);
}

std::string WithPlainLineEnds(std::string text) {
  text.erase(std::remove(text.begin(), text.end(), '\r'), text.end());
  return text;
}

void ExpectNear(const json& fact, std::vector<double> values, const std::string& place) {
  ExpectNearly(fact, values, 1e-12, place);
}

void ExpectNear(const json& fact, double value, const std::string& place) {
  ExpectNear(json{fact}, std::vector{value}, place);
}

void ExpectPlane(const json& fact, const ON_Plane& plane, const std::string& place) {
  ExpectNear(fact["origin"], {plane.origin.x, plane.origin.y, plane.origin.z}, place + ".origin");
  ExpectNear(fact["x"], {plane.xaxis.x, plane.xaxis.y, plane.xaxis.z}, place + ".x");
  ExpectNear(fact["y"], {plane.yaxis.x, plane.yaxis.y, plane.yaxis.z}, place + ".y");
  ExpectNear(fact["z"], {plane.zaxis.x, plane.zaxis.y, plane.zaxis.z}, place + ".z");
}

std::vector<double> Flat(const std::vector<ON_2dPoint>& points, std::vector<std::size_t> order) {
  std::vector<double> flat;
  for (const std::size_t i : order) flat.insert(flat.end(), {points.at(i).x, points.at(i).y});
  return flat;
}

double Radius(const ON_Annotation& a) {
  const ON_2dPoint center = a.m_points.at(0);
  const ON_2dPoint on_arc = a.m_points.at(3);
  return std::hypot(on_arc.x - center.x, on_arc.y - center.y);
}

// By which points of the facts there are.
void ExpectPoints(const json& fact, const ON_Annotation& a, const std::string& place) {
  if (fact.contains("def1_def2_dimline_2d")) {
    ExpectNear(fact["def1_def2_dimline_2d"], Flat(a.m_points, {0, 1, 2}), place + ".points");
  }
  if (fact.contains("center_radius_dimline_knee_2d")) {
    ExpectNear(fact["center_radius_dimline_knee_2d"], Flat(a.m_points, {0, 1, 3, 2}),
               place + ".points");
  }
  if (fact.contains("def_leader_2d")) {
    ExpectNear(fact["def_leader_2d"], Flat(a.m_points, {0, 1}), place + ".points");
  }
  if (fact.contains("center_2d")) {
    ExpectNear(fact["center_2d"], Flat(a.m_points, {0}), place + ".center");
    ExpectNear(fact["radius"], Radius(a), place + ".radius");
  }
  if (!fact.contains("points_3d")) return;
  ASSERT_EQ(fact["points_3d"].size(), a.m_points.size()) << place;
  for (std::size_t i = 0; i < a.m_points.size(); ++i) {
    const ON_3dPoint p = a.m_plane.PointAt(a.m_points[i].x, a.m_points[i].y);
    ExpectNear(fact["points_3d"][i], {p.x, p.y, p.z}, place + ".points");
  }
}

void ExpectStyle(const json& fact, const ON_Annotation& a, const ONX_Model& model,
                 const std::string& place) {
  ExpectId(fact["dimstyle_id"], a.m_dimstyle_id, place + ".dimstyle_id");
  const auto& styles = model.m_dimstyle_table;
  const auto found = std::find_if(styles.begin(), styles.end(), [&](const ON_DimStyle& style) {
    return style.m_id == a.m_dimstyle_id;
  });
  ASSERT_NE(found, styles.end()) << place;
  EXPECT_EQ(fact["dimstyle_name"], found->m_name) << place;
  const ON_DimStyle& style = a.DimStyle(&*found);
  ExpectNumber(fact["text_height"], style.m_textheight, place + ".text_height");
  ExpectNumber(fact["arrow_size"], style.m_arrowsize, place + ".arrow_size");
  ExpectNumber(fact["leader_arrow_size"], style.m_leaderarrowsize, place + ".leader_arrow_size");
  ExpectNumber(fact["dim_scale"], style.m_dimscale, place + ".dim_scale");
  // The other reader gives older annotations changes of their own where it translates them.
  if (model.m_3dm_file_version < 60) return;
  EXPECT_EQ(fact["has_overrides"], a.m_override.has_value()) << place;
}

void ExpectText(const json& fact, const ON_Annotation& a, const ONX_Model& model,
                const std::string& place) {
  const bool is_dimension = fact.contains("measurement");
  EXPECT_EQ(WithPlainLineEnds(fact[is_dimension ? "plain_user_text" : "plain_text"]), a.m_text)
      << place;
  ExpectNumber(fact["text_rotation"], a.m_text_rotation, place + ".text_rotation");
  if (is_dimension) {
    EXPECT_EQ(fact["use_default_text_point"], !a.m_text_point.has_value()) << place;
    return;
  }
  // Those of leaders follow from their style when they are drawn; those of texts of version 5 are
  // lost in the other reader.
  if (a.m_type != Type::text || model.m_3dm_file_version == 50) return;
  EXPECT_EQ(fact["alignment_hv"][0], static_cast<int>(a.m_halign)) << place;
  EXPECT_EQ(fact["alignment_hv"][1], static_cast<int>(a.m_valign)) << place;
}

void ExpectAnnotation(const json& fact, const ON_Annotation& a, const ONX_Model& model,
                      const std::string& place) {
  EXPECT_EQ(TypeOf(fact["annotation_type"]), a.m_type) << place;
  ExpectPlane(fact["plane"], a.m_plane, place + ".plane");
  ExpectText(fact, a, model, place);
  ExpectStyle(fact, a, model, place);
  ExpectPoints(fact, a, place);
  if (fact.contains("measurement")) {
    ExpectNear(fact["measurement"], a.Measurement(), place + ".measurement");
  }
}

TEST(AnnotationFacts, Annotations) {
  int count = 0;
  ForEachFactsDocument([&count](const FactsDocument& document) {
    const json& facts = document.facts["objects"];
    const auto& objects = document.model.m_object_table;
    ASSERT_EQ(facts.size(), objects.size());
    for (std::size_t i = 0; i < objects.size(); ++i) {
      if (facts[i]["type"] != "annotation") continue;
      const ON_Annotation* annotation = ON_Annotation::Cast(objects[i].m_geometry.get());
      ASSERT_NE(annotation, nullptr) << PlaceOf(i);
      ExpectAnnotation(facts[i]["geometry"], *annotation, document.model, PlaceOf(i));
      ++count;
    }
  });
  if (!FactsDocuments().empty()) {
    EXPECT_GE(count, 26);
  }
}

}  // namespace

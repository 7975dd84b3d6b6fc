#include <algorithm>
#include <array>
#include <map>
#include <numbers>

#include "brep_facts.h"
#include "curve_facts.h"
#include "facts_documents.h"
#include "host/archive/class_names.h"
#include "host/geometry/on_annotation.h"
#include "host/geometry/on_instance_ref.h"
#include "host/geometry/on_mesh.h"
#include "host/geometry/on_plane_surface.h"
#include "host/geometry/on_point_cloud.h"
#include "solid_facts.h"
#include "support/class_words.h"
#include "surface_facts.h"

// The objects and lights of every document of the corpus against the facts that another reader took
// of them. Attributes are compared for every object. Geometry is compared where it is read: meshes,
// points, point clouds, clipping planes, curves, surfaces, breps and block references; the other
// kinds are counted.

using nlohmann::json;

namespace {

std::string Place(const char* table, std::size_t index) {
  return std::string(table) + "[" + std::to_string(index) + "]";
}

void ExpectMappings(const json& fact, const std::vector<ON_MappingRef>& refs,
                    const std::string& place) {
  json found = json::array();
  for (const ON_MappingRef& ref : refs) {
    found.push_back(
        {ref.m_plugin_id.ToString(), ref.m_mapping_channel, ref.m_mapping_id.ToString()});
  }
  json expected = json::array();
  const json applications = fact.is_null() ? json::array() : fact["mappings"];
  for (const json& application : applications) {
    for (const json& channel : application["channels"]) {
      expected.push_back({application["plugin_id"], channel["channel"], channel["mapping_id"]});
    }
  }
  EXPECT_EQ(expected, found) << place;
}

void ExpectAttributes(const json& fact, const ON_3dmObjectAttributes& a, const std::string& place) {
  EXPECT_EQ(fact["layer_index"], a.m_layer_index) << place;
  EXPECT_EQ(fact["material_index"], a.m_material_index) << place;
  EXPECT_EQ(fact["material_source"], static_cast<int>(a.m_material_source)) << place;
  ExpectColor(fact["color"], a.m_color, place + ".color");
  EXPECT_EQ(fact["color_source"], static_cast<int>(a.m_color_source)) << place;
  EXPECT_EQ(fact["mode"], static_cast<int>(a.m_mode)) << place;
  EXPECT_EQ(fact["visible"], a.m_visible) << place;
  EXPECT_EQ(fact["linetype_index"], a.m_linetype_index) << place;
  EXPECT_EQ(fact["linetype_source"], static_cast<int>(a.m_linetype_source)) << place;
  EXPECT_EQ(fact["wire_density"], a.m_wire_density) << place;
  EXPECT_EQ(fact["decoration"], a.m_decoration) << place;
  EXPECT_EQ(fact["display_order"], a.m_display_order) << place;
  EXPECT_EQ(fact["space"], a.m_space) << place;
  ExpectId(fact["viewport_id"], a.m_viewport_id, place + ".viewport_id");
  EXPECT_EQ(fact.value("url", ""), a.m_url) << place;
  EXPECT_EQ(fact.value("groups", json::array()), json(a.m_group)) << place;
  ExpectMappings(FactOrNull(fact, "rendering"), a.m_mapping_refs, place + ".mappings");
  ExpectUserStrings(FactOrNull(fact, "attribute_user_strings"), a.m_user_strings, place);
}

std::array<double, 3> Values(const ON_3fPoint& p) {
  return {p.x, p.y, p.z};
}
std::array<double, 3> Values(const ON_3dPoint& p) {
  return {p.x, p.y, p.z};
}
std::array<double, 2> Values(const ON_2fPoint& p) {
  return {p.x, p.y};
}
std::array<double, 2> Values(const ON_2dPoint& p) {
  return {p.x, p.y};
}

// Sums in the order of the file; nothing but the order of additions may differ from the fact.
template <class T>
auto Sum(const ON_SimpleArray<T>& values) {
  auto sum = Values(T{});
  for (const T& value : values) {
    const auto v = Values(value);
    for (std::size_t i = 0; i < v.size(); ++i) sum[i] += v[i];
  }
  return sum;
}

// Sums of many numbers of either sign come close to zero, where a relative comparison fails.
constexpr double kSumTolerance = 1e-12;

template <class T>
void ExpectSum(const json& fact, const ON_SimpleArray<T>& values, const std::string& what) {
  ExpectNearly(fact, Sum(values), kSumTolerance, what);
}

template <class T>
void ExpectValues(const json& fact, const T& value, const std::string& what) {
  const auto values = Values(value);
  ExpectNearly(fact, values, 0, what);
}

template <class T>
void ExpectVertices(const json& fact, const ON_SimpleArray<T>& points, const std::string& place) {
  const std::size_t count = std::min<std::size_t>(3, points.size());
  ASSERT_EQ(fact["first3"].size(), count) << place;
  for (std::size_t i = 0; i < count; ++i) {
    ExpectValues(fact["first3"][i], points[i], place + ".first");
  }
  if (!points.empty()) ExpectValues(fact["last"], points.back(), place + ".last");
  ExpectSum(fact["coord_sum"], points, place + ".coord_sum");
}

void ExpectFaces(const json& fact, const ON_Mesh& mesh, const std::string& place) {
  EXPECT_EQ(fact["F"], mesh.FaceCount()) << place;
  EXPECT_EQ(fact["quads"], mesh.QuadCount()) << place;
  EXPECT_EQ(fact["triangles"], mesh.TriangleCount()) << place;
  std::int64_t sum = 0;
  for (const ON_MeshFace& face : mesh.m_F) {
    for (std::size_t i = 0; i < 4; ++i) sum += static_cast<std::int64_t>(i + 1) * face.vi[i];
  }
  EXPECT_EQ(fact["face_index_checksum_v0+2v1+3v2+4v3"], sum) << place;
  if (mesh.m_F.empty()) return;
  EXPECT_EQ(fact["face0"], json(mesh.m_F.front().vi)) << place;
  EXPECT_EQ(fact["face_last"], json(mesh.m_F.back().vi)) << place;
}

void ExpectMeshColors(const json& fact, const ON_Mesh& mesh, const std::string& place) {
  EXPECT_EQ(fact["C_count"], mesh.m_C.size()) << place;
  EXPECT_EQ(fact["hasColors"], mesh.HasVertexColors()) << place;
  if (!mesh.HasVertexColors()) return;
  ExpectColor(fact["color0"], mesh.m_C.front(), place + ".color0");
  std::array<std::int64_t, 4> sum{};
  for (const ON_Color color : mesh.m_C) {
    sum[0] += color.Red();
    sum[1] += color.Green();
    sum[2] += color.Blue();
    sum[3] += color.Alpha();
  }
  EXPECT_EQ(fact["color_sum_rgba"], json(sum)) << place;
}

void ExpectChannels(const json& fact, const ON_Mesh& mesh, const std::string& place) {
  EXPECT_EQ(fact["N_count"], mesh.m_N.size()) << place;
  EXPECT_EQ(fact["hasN"], mesh.HasVertexNormals()) << place;
  EXPECT_EQ(fact["T_count"], mesh.m_T.size()) << place;
  EXPECT_EQ(fact["hasT"], mesh.HasTextureCoordinates()) << place;
  EXPECT_EQ(fact["K_count"], mesh.m_K.size()) << place;
  if (mesh.HasVertexNormals()) {
    ExpectValues(fact["normal0"], mesh.m_N.front(), place + ".normal0");
    ExpectSum(fact["normal_sum"], mesh.m_N, place + ".normal_sum");
  }
  if (mesh.HasTextureCoordinates()) {
    ExpectValues(fact["uv0"], mesh.m_T.front(), place + ".uv0");
    ExpectValues(fact["uv_last"], mesh.m_T.back(), place + ".uv_last");
    ExpectSum(fact["uv_sum"], mesh.m_T, place + ".uv_sum");
  }
  ExpectMeshColors(fact, mesh, place);
}

void ExpectSurfaceOrigin(const json& fact, const ON_Mesh& mesh, const std::string& place) {
  const auto& packed = mesh.m_packed_tex_domain;
  const auto& domain = mesh.m_srf_domain;
  ExpectNumbers(fact["packed_texture_region_u0u1v0v1"],
                {packed[0].Min, packed[0].Max, packed[1].Min, packed[1].Max}, place + ".packed");
  EXPECT_EQ(fact["has_packed_texture_region"], mesh.HasPackedTextureRegion()) << place;
  EXPECT_EQ(fact["packed_rotate"], mesh.m_packed_tex_rotate) << place;
  ExpectNumbers(fact["srf_domain"], {domain[0].Min, domain[0].Max, domain[1].Min, domain[1].Max},
                place + ".srf_domain");
  ExpectNumbers(fact["srf_scale"], {mesh.m_srf_scale[0], mesh.m_srf_scale[1]},
                place + ".srf_scale");
}

// The id that older writers gave to the mapping by surface parameters; the other reader leaves the
// type and makes the id nil.
constexpr ON_UUID kOldSurfaceMapping = "b988a6c2-61a6-45a7-aaee-9aed7ef4e316"_uuid;

// True for a mesh that tells its surface's domain but stores no surface parameters: the other
// reader makes them from the texture coordinates and tags the mesh.
bool HasMadeUpParameters(const json& fact, const ON_Mesh& mesh) {
  return mesh.m_S.empty() && !fact["srf_domain"][0].is_null() && mesh.HasTextureCoordinates();
}

void ExpectMappingTag(const json& fact, const ON_Mesh& mesh, const std::string& place) {
  const ON_MappingTag tag = mesh.m_Ttag.value_or(ON_MappingTag{});
  EXPECT_EQ(fact["mapping_tag_type"], tag.m_mapping_type) << place;
  if (tag.m_mapping_id == kOldSurfaceMapping) {
    EXPECT_EQ(1, tag.m_mapping_type) << place;
  } else {
    ExpectId(fact["mapping_tag_id"], tag.m_mapping_id, place + ".mapping_tag_id");
  }
}

void ExpectMesh(const json& fact, const ON_Mesh& mesh, const std::string& place) {
  EXPECT_EQ(fact["V"], mesh.VertexCount()) << place;
  EXPECT_EQ(fact["double_precision"], !mesh.m_dV.empty()) << place;
  if (mesh.m_dV.empty()) {
    ExpectVertices(fact, mesh.m_V, place);
  } else {
    ExpectVertices(fact, mesh.m_dV, place);
    ExpectSum(fact["float_coord_sum"], mesh.m_V, place + ".float_coord_sum");
  }
  ExpectFaces(fact, mesh, place);
  ExpectChannels(fact, mesh, place);
  ExpectSurfaceOrigin(fact, mesh, place);
  if (!HasMadeUpParameters(fact, mesh)) {
    EXPECT_EQ(fact["S_count"], mesh.m_S.size()) << place;
    if (!mesh.m_S.empty()) ExpectSum(fact["srf_param_sum"], mesh.m_S, place + ".srf_param_sum");
    ExpectMappingTag(fact, mesh, place);
  }
  EXPECT_EQ(fact["ngons"], mesh.m_Ngon.size()) << place;
  // The other reader finds out for itself where a document doesn't tell.
  if (mesh.m_closed >= 0) {
    EXPECT_EQ(fact["closed"], mesh.m_closed > 0) << place;
  }
}

void ExpectCloud(const json& fact, const ON_PointCloud& cloud, const std::string& place) {
  EXPECT_EQ(fact["count"], cloud.PointCount()) << place;
  EXPECT_EQ(fact["has_normals"], cloud.HasPointNormals()) << place;
  EXPECT_EQ(fact["has_colors"], cloud.HasPointColors()) << place;
  EXPECT_EQ(fact["has_values"], !cloud.m_V.empty()) << place;
  ASSERT_FALSE(cloud.m_P.empty()) << place;
  ExpectValues(fact["first"], cloud.m_P.front(), place + ".first");
  ExpectValues(fact["last"], cloud.m_P.back(), place + ".last");
  ExpectSum(fact["coord_sum"], cloud.m_P, place + ".coord_sum");
  if (!cloud.HasPointColors()) return;
  ExpectColor(fact["color0"], cloud.m_C.front(), place + ".color0");
  std::array<std::int64_t, 3> sum{};
  for (const ON_Color color : cloud.m_C) {
    sum[0] += color.Red();
    sum[1] += color.Green();
    sum[2] += color.Blue();
  }
  EXPECT_EQ(fact["color_sum_rgb"], json(sum)) << place;
}

void ExpectClippingPlane(const json& fact, const ON_ClippingPlaneSurface& surface,
                         const std::string& place) {
  const auto values = [](const ON_3dVector& v) { return std::array{v.x, v.y, v.z}; };
  const json& plane = fact["clipping_plane"];
  ExpectValues(plane["origin"], surface.m_plane.Origin(), place + ".origin");
  ExpectNearly(plane["x"], values(surface.m_plane.xaxis), 0, place + ".x");
  ExpectNearly(plane["y"], values(surface.m_plane.yaxis), 0, place + ".y");
  ExpectNearly(plane["z"], values(surface.m_plane.Normal()), 0, place + ".z");
  EXPECT_EQ(fact["viewports"], surface.m_viewport_ids.size()) << place;
  EXPECT_TRUE(surface.m_bEnabled) << place;
  ExpectSurface(fact, surface, place);
}

void ExpectBlockReference(const json& fact, const ON_InstanceRef& reference,
                          const std::string& place) {
  ExpectId(fact["definition_uuid"], reference.m_instance_definition_uuid, place + ".definition");
  std::vector<double> xform;
  for (const auto& row : reference.m_xform.m_xform) {
    xform.insert(xform.end(), row.begin(), row.end());
  }
  EXPECT_EQ(fact["xform"], json(xform)) << place;
}

// Boxes are exact but for meshes that round their vertices and for what is computed.
double BoxTolerance(const json& figures, const ON_Geometry& geometry) {
  const bool is_computed =
      ON_Curve::Cast(&geometry) || ON_Surface::Cast(&geometry) || ON_Extrusion::Cast(&geometry);
  if (is_computed) return 1e-12;
  if (ON_Brep::Cast(&geometry) != nullptr) return 1e-9;
  return figures.value("double_precision", false) ? 1e-6 : 0;
}

// The other reader leaves room around surfaces of revolution whose axis isn't along a coordinate.
bool HasLooseBox(const ON_Geometry& geometry) {
  const ON_Brep* brep = ON_Brep::Cast(&geometry);
  return brep != nullptr &&
         std::any_of(brep->m_S.begin(), brep->m_S.end(), [](const auto& surface) {
           return SurfaceClassName(*surface) == "ON_RevSurface";
         });
}

void ExpectGeometry(const json& fact, const ON_Geometry& geometry, const std::string& place) {
  const json& figures = fact["geometry"];
  // Annotations are compared apart, with their styles.
  if (ON_Annotation::Cast(&geometry) != nullptr) return;
  if (!HasLooseBox(geometry)) {
    ExpectBox(fact["bbox"], geometry.BoundingBox(), BoxTolerance(figures, geometry),
              place + ".bbox");
  }
  ExpectUserStrings(FactOrNull(fact, "geometry_user_strings"), geometry.m_user_strings, place);
  if (const auto* mesh = dynamic_cast<const ON_Mesh*>(&geometry)) {
    ExpectMesh(figures, *mesh, place);
  } else if (const auto* cloud = dynamic_cast<const ON_PointCloud*>(&geometry)) {
    ExpectCloud(figures, *cloud, place);
  } else if (const auto* point = dynamic_cast<const ON_Point*>(&geometry)) {
    ExpectValues(figures["point"], point->point, place + ".point");
  } else if (const auto* plane = dynamic_cast<const ON_ClippingPlaneSurface*>(&geometry)) {
    ExpectClippingPlane(figures, *plane, place);
  } else if (const ON_InstanceRef* reference = ON_InstanceRef::Cast(&geometry)) {
    ExpectBlockReference(figures, *reference, place);
  } else if (const ON_Curve* curve = ON_Curve::Cast(&geometry)) {
    ExpectCurve(figures, *curve, place);
  } else if (const ON_Surface* surface = ON_Surface::Cast(&geometry)) {
    ExpectSurface(figures, *surface, place);
  } else if (const ON_Brep* brep = ON_Brep::Cast(&geometry)) {
    ExpectBrep(figures, *brep, place);
  } else if (const ON_Extrusion* extrusion = ON_Extrusion::Cast(&geometry)) {
    ExpectExtrusion(figures, *extrusion, place);
    if (const ON_Mesh* cached = extrusion->m_render_mesh.get()) {
      ExpectMesh(figures["render_mesh"], *cached, place + ".render_mesh");
    }
  } else if (const ON_SubD* subd = ON_SubD::Cast(&geometry)) {
    ExpectSubD(figures, *subd, place);
  } else {
    ADD_FAILURE() << place << ": geometry of a kind that isn't compared";
  }
}

// The other reader turns the arrows of version 2 into lines.
bool IsArrow(const ONX_ModelObject& object) {
  return host::ClassName(object.m_class_id) == "annotation arrow";
}

void ExpectObject(const json& fact, const ONX_ModelObject& object, const std::string& place) {
  ExpectId(fact["uuid"], object.m_attributes.m_uuid, place + ".uuid");
  EXPECT_EQ(fact["name"], object.m_attributes.m_name) << place;
  ExpectAttributes(fact["attributes"], object.m_attributes, place);
  EXPECT_GT(object.m_span.length, 0u) << place;
  const std::string kind = fact["class"];
  EXPECT_EQ(IsReadClass(kind) && !IsArrow(object), object.m_geometry != nullptr)
      << place << " " << kind;
  if (object.m_geometry) ExpectGeometry(fact, *object.m_geometry, place);
}

void ExpectLight(const json& fact, const ONX_ModelLight& record, const std::string& place) {
  ASSERT_NE(record.m_light, nullptr) << place;
  const ON_Light& light = *record.m_light;
  EXPECT_EQ(fact["name"], light.m_light_name) << place;
  // The other reader takes the id of the attributes where the light has none.
  const ON_UUID& id = light.m_light_id.IsNil() ? record.m_attributes.m_uuid : light.m_light_id;
  ExpectId(fact["light_id"], id, place + ".light_id");
  EXPECT_EQ(fact["enabled"], light.m_bOn) << place;
  EXPECT_EQ(fact["style"], static_cast<int>(light.m_style)) << place;
  ExpectValues(fact["location"], light.m_location, place + ".location");
  const auto values = [](const ON_3dVector& v) { return std::array{v.x, v.y, v.z}; };
  ExpectNearly(fact["direction"], values(light.m_direction), 0, place + ".direction");
  ExpectNearly(fact["length"], values(light.m_length), 0, place + ".length");
  ExpectNearly(fact["width"], values(light.m_width), 0, place + ".width");
  ExpectNearly(fact["attenuation"], values(light.m_attenuation), 0, place + ".attenuation");
  ExpectColor(fact["ambient"], light.m_ambient, place + ".ambient");
  ExpectColor(fact["diffuse"], light.m_diffuse, place + ".diffuse");
  ExpectColor(fact["specular"], light.m_specular, place + ".specular");
  ExpectNumber(fact["intensity"], light.m_intensity, place + ".intensity");
  ExpectNumber(fact["watts"], light.m_watts, place + ".watts");
  ExpectNumber(fact["spot_angle_degrees"], light.m_spot_angle, place + ".spot_angle");
  ExpectNumber(fact["spot_exponent"], light.m_spot_exponent, place + ".spot_exponent");
  // The other reader derives it from the exponent where it isn't set.
  if (light.m_hotspot >= 0) ExpectNumber(fact["hotspot"], light.m_hotspot, place + ".hotspot");
  const double radians = fact["spot_angle_degrees"].get<double>() * std::numbers::pi / 180;
  EXPECT_DOUBLE_EQ(light.SpotAngleRadians(), radians) << place;
  // Exponent and hot spot follow from each other.
  ON_Light twin = light;
  EXPECT_NEAR(fact["spot_exponent"], twin.SpotExponent(), 1e-9) << place;
  twin.m_hotspot = fact["hotspot"];
  EXPECT_NEAR(fact["spot_exponent"], twin.SpotExponent(), 1e-9) << place;
  ExpectNumber(fact["shadow_intensity"], light.m_shadow_intensity, place + ".shadow");
  ExpectUserStrings(FactOrNull(fact, "geometry_user_strings"), light.m_user_strings, place);
  const json& attributes = fact["attributes"];
  ExpectId(attributes["uuid"], record.m_attributes.m_uuid, place + ".attributes.uuid");
  EXPECT_EQ(attributes["name"], record.m_attributes.m_name) << place;
  ExpectAttributes(attributes, record.m_attributes, place + ".attributes");
}

}  // namespace

TEST(ObjectFacts, AttributesAndReadGeometry) {
  ForEachFactsDocument([](const FactsDocument& document) {
    const json& facts = document.facts["objects"];
    const auto& objects = document.model.m_object_table;
    ASSERT_EQ(facts.size(), objects.size());
    for (std::size_t i = 0; i < objects.size(); ++i) {
      ExpectObject(facts[i], objects[i], Place("objects", i));
    }
  });
}

TEST(ObjectFacts, Lights) {
  ForEachFactsDocument([](const FactsDocument& document) {
    const json& facts = document.facts["lights"];
    const auto& lights = document.model.m_light_table;
    ASSERT_EQ(facts.size(), lights.size());
    for (std::size_t i = 0; i < lights.size(); ++i) {
      ExpectLight(facts[i], lights[i], Place("lights", i));
    }
  });
}

TEST(ObjectFacts, KindsThatAreNotReadAreCounted) {
  ForEachFactsDocument([](const FactsDocument& document) {
    std::map<std::string, int> expected;
    for (const auto& [name, count] : document.facts["summary"]["classes"].items()) {
      if (!IsReadClass(name)) expected[ClassWords().at(name)] += count.get<int>();
    }
    for (const ONX_ModelObject& object : document.model.m_object_table) {
      if (IsArrow(object)) ++expected["annotation arrow"];
    }
    std::map<std::string, int> found;
    for (const ONX_UnreadKind& kind : document.model.m_unread) found[kind.m_name] = kind.m_count;
    // Records of other tables that aren't read are counted in the same list.
    for (const auto& [name, count] : expected) EXPECT_EQ(count, found[name]) << name;
    for (const auto& [other, name] : ClassWords()) {
      if (!expected.contains(name)) {
        EXPECT_FALSE(found.contains(name)) << name;
      }
    }
  });
}

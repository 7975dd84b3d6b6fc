#include "facts_documents.h"

// The tables of every document of the corpus against the facts that another reader took of them.
// Known differences between the two readers are told where they are met.

using nlohmann::json;

namespace {

std::string Place(const char* table, std::size_t index) {
  return std::string(table) + "[" + std::to_string(index) + "]";
}

// Calls `check` with each fact and each member of a table, which must be as long as the list.
template <class T>
void ForEachMember(const json& facts, const std::vector<T>& table, const char* name,
                   const std::function<void(const json&, const T&, const std::string&)>& check) {
  ASSERT_EQ(facts.size(), table.size()) << name;
  for (std::size_t i = 0; i < table.size(); ++i) check(facts[i], table[i], Place(name, i));
}

// How many records of a kind the file holds, before the other reader adds or upgrades anything.
int RecordCount(const FactsDocument& document, const char* kind) {
  return document.facts["archive_raw"]["table_record_counts"].value(kind, 0);
}

void ExpectLayer(const json& fact, const ON_Layer& layer, const std::string& place) {
  EXPECT_EQ(fact["name"], layer.m_name) << place;
  ExpectId(fact["uuid"], layer.m_id, place + ".uuid");
  ExpectColor(fact["color"], layer.m_color, place + ".color");
  // The other reader gives the display colour where no plot colour is set.
  const bool has_plot_color = layer.m_plot_color != ON_UNSET_COLOR;
  ExpectColor(fact["plot_color"], has_plot_color ? layer.m_plot_color : layer.m_color,
              place + ".plot_color");
  ExpectNumber(fact["plot_weight_mm"], layer.m_plot_weight_mm, place + ".plot_weight");
  EXPECT_EQ(fact["visible"], layer.m_visible) << place;
  EXPECT_EQ(fact["locked"], layer.m_locked) << place;
  EXPECT_EQ(fact["expanded"], layer.m_expanded) << place;
  EXPECT_EQ(fact["render_material_index"], layer.m_render_material_index) << place;
  EXPECT_EQ(fact["linetype_index"], layer.m_linetype_index) << place;
  EXPECT_EQ(fact["iges_level"], layer.m_iges_level) << place;
  ExpectId(fact["parent_id"], layer.m_parent_id, place + ".parent_id");
  ExpectId(fact["display_material_id"], layer.m_display_material_id, place + ".display_material");
  ExpectUserStrings(FactOrNull(fact, "user_strings"), layer.m_user_strings, place);
}

void ExpectTexture(const json& fact, const ON_Texture& texture, const std::string& place) {
  ExpectId(fact["uuid"], texture.m_texture_id, place + ".uuid");
  EXPECT_EQ(fact["type"], static_cast<int>(texture.m_type)) << place;
  EXPECT_EQ(fact["file"], texture.m_image_file) << place;
  EXPECT_EQ(fact["enabled"], texture.m_bOn) << place;
  EXPECT_EQ(fact["mode"], texture.m_mode) << place;
  EXPECT_EQ(fact["minfilter"], texture.m_minfilter) << place;
  EXPECT_EQ(fact["magfilter"], texture.m_magfilter) << place;
  EXPECT_EQ(fact["wrap_uvw"], json(texture.m_wrap)) << place;
  EXPECT_EQ(fact["mapping_channel"], texture.m_mapping_channel_id) << place;
  ExpectColor(fact["border_color"], texture.m_border_color, place + ".border_color");
  ExpectColor(fact["transparent_color"], texture.m_transparent_color, place + ".transparent_color");
  const auto& bump = texture.m_bump_scale;
  ExpectNumbers(fact["bump_scale"], {bump[0], bump[1]}, place + ".bump_scale");
  const auto& m = texture.m_uvw.m_xform;
  ExpectNumbers(fact["uvw"],
                {m[0][0], m[0][1], m[0][2], m[0][3], m[1][0], m[1][1], m[1][2], m[1][3], m[2][0],
                 m[2][1], m[2][2], m[2][3], m[3][0], m[3][1], m[3][2], m[3][3]},
                place + ".uvw");
}

void ExpectMaterial(const json& fact, const ON_Material& material, const std::string& place) {
  EXPECT_EQ(fact["name"], material.m_name) << place;
  ExpectId(fact["uuid"], material.m_id, place + ".uuid");
  // The other reader gives an old material that names no renderer the id that stands for any.
  const bool is_made_up =
      material.m_plugin_id.IsNil() && fact["plugin_id"] == "99999999-9999-9999-9999-999999999999";
  if (!is_made_up) ExpectId(fact["plugin_id"], material.m_plugin_id, place + ".plugin_id");
  ExpectColor(fact["ambient"], material.m_ambient, place + ".ambient");
  ExpectColor(fact["diffuse"], material.m_diffuse, place + ".diffuse");
  ExpectColor(fact["emission"], material.m_emission, place + ".emission");
  ExpectColor(fact["specular"], material.m_specular, place + ".specular");
  ExpectColor(fact["reflection"], material.m_reflection, place + ".reflection");
  ExpectColor(fact["transparent"], material.m_transparent, place + ".transparent");
  // The other reader passes the shine of the oldest form through a number of single precision.
  EXPECT_FLOAT_EQ(fact["shine"].get<float>(), static_cast<float>(material.m_shine)) << place;
  ExpectNumber(fact["transparency"], material.m_transparency, place + ".transparency");
  ExpectNumber(fact["reflectivity"], material.m_reflectivity, place + ".reflectivity");
  ExpectNumber(fact["index_of_refraction"], material.m_index_of_refraction, place + ".ior");
  ExpectUserStrings(FactOrNull(fact, "user_strings"), material.m_user_strings, place);
  ForEachMember<ON_Texture>(fact["textures"], material.m_textures, (place + ".textures").c_str(),
                            ExpectTexture);
}

void ExpectLinetype(const json& fact, const ON_Linetype& linetype, const std::string& place) {
  EXPECT_EQ(fact["name"], linetype.m_name) << place;
  ExpectId(fact["uuid"], linetype.m_id, place + ".uuid");
  ASSERT_EQ(fact["segments"].size(), linetype.m_segments.size()) << place;
  for (std::size_t i = 0; i < linetype.m_segments.size(); ++i) {
    const json& segment = fact["segments"][i];
    ExpectNumber(segment[0], linetype.m_segments[i].m_length, place + ".segment");
    EXPECT_EQ(segment[1], linetype.m_segments[i].m_is_gap ? "space" : "line") << place;
  }
}

void ExpectGroup(const json& fact, const ON_Group& group, const std::string& place) {
  EXPECT_EQ(fact["name"], group.m_name) << place;
  EXPECT_EQ(fact["index"], group.m_index) << place;
  ExpectId(fact["uuid"], group.m_id, place + ".uuid");
}

void ExpectDimStyle(const json& fact, const ON_DimStyle& style, const std::string& place) {
  EXPECT_EQ(fact["name"], style.m_name) << place;
  ExpectId(fact["uuid"], style.m_id, place + ".uuid");
  ExpectNumber(fact["ext_extension"], style.m_extextension, place + ".ext_extension");
  ExpectNumber(fact["ext_offset"], style.m_extoffset, place + ".ext_offset");
  ExpectNumber(fact["arrow_size"], style.m_arrowsize, place + ".arrow_size");
  ExpectNumber(fact["leader_arrow_size"], style.m_leaderarrowsize, place + ".leader_arrow_size");
  ExpectNumber(fact["center_mark"], style.m_centermark, place + ".center_mark");
  ExpectNumber(fact["text_gap"], style.m_textgap, place + ".text_gap");
  ExpectNumber(fact["text_height"], style.m_textheight, place + ".text_height");
  ExpectNumber(fact["dim_scale"], style.m_dimscale, place + ".dim_scale");
  ExpectNumber(fact["length_factor"], style.m_lengthfactor, place + ".length_factor");
  EXPECT_EQ(fact["length_resolution"], style.m_lengthresolution) << place;
  EXPECT_EQ(fact["angle_resolution"], style.m_angleresolution) << place;
  EXPECT_EQ(fact["arrow_type1"], style.m_arrowtype1) << place;
  EXPECT_EQ(fact["arrow_type2"], style.m_arrowtype2) << place;
  EXPECT_EQ(fact["leader_arrow_type"], style.m_leaderarrowtype) << place;
  EXPECT_EQ(fact["prefix"], style.m_prefix) << place;
  EXPECT_EQ(fact["suffix"], style.m_suffix) << place;
}

void ExpectDefinition(const json& fact, const ON_InstanceDefinition& definition,
                      const std::string& place) {
  EXPECT_EQ(fact["name"], definition.m_name) << place;
  ExpectId(fact["uuid"], definition.m_id, place + ".uuid");
  EXPECT_EQ(fact["description"], definition.m_description) << place;
  EXPECT_EQ(fact["linked_file"], definition.m_linked_file) << place;
  // Old records say 0 for static, which the other reader turns into 1.
  EXPECT_EQ(fact["update_type"], definition.m_kind == 0 ? 1 : definition.m_kind) << place;
  ExpectBox(fact["bbox"], definition.m_bbox, 0, place + ".bbox");
  ASSERT_EQ(fact["objects"].size(), definition.m_object_ids.size()) << place;
  for (std::size_t i = 0; i < definition.m_object_ids.size(); ++i) {
    ExpectId(fact["objects"][i], definition.m_object_ids[i], place + ".objects");
  }
}

}  // namespace

TEST(TableFacts, HealthyDocumentsGiveNoProblems) {
  ForEachFactsDocument([](const FactsDocument& document) {
    EXPECT_EQ(document.facts["bad_crc_count"], 0);
    for (const std::string& problem : document.model.m_problems) ADD_FAILURE() << problem;
  });
}

TEST(TableFacts, Layers) {
  ForEachFactsDocument([](const FactsDocument& document) {
    ForEachMember<ON_Layer>(document.facts["layers"], document.model.m_layer_table, "layers",
                            ExpectLayer);
  });
}

TEST(TableFacts, MaterialsAndTheirTextures) {
  ForEachFactsDocument([](const FactsDocument& document) {
    ForEachMember<ON_Material>(document.facts["materials"], document.model.m_material_table,
                               "materials", ExpectMaterial);
  });
}

TEST(TableFacts, ATurnedTextureIsTiledOnlyWhereItsRowsStandAlone) {
  ForEachFactsDocument([](const FactsDocument& document) {
    if (document.name != "mappings_uvw") return;
    const ON_Material& material = document.model.m_material_table.at(0);
    const int found = material.FindTexture(nullptr, ON_Texture::Type::bitmap);
    ASSERT_EQ(found, 0);
    // Its rows are 2 -0.25 0 0.5 and 0 3 0 0.125.
    double count = 0;
    double offset = 0;
    EXPECT_FALSE(material.m_textures[0].IsTiled(0, &count, &offset));
    EXPECT_EQ(count, 1);
    EXPECT_EQ(offset, 0);
    EXPECT_TRUE(material.m_textures[0].IsTiled(1, &count, &offset));
    EXPECT_EQ(count, 3);
    EXPECT_EQ(offset, 0.125);
  });
}

TEST(TableFacts, Linetypes) {
  ForEachFactsDocument([](const FactsDocument& document) {
    ForEachMember<ON_Linetype>(document.facts["linetypes"], document.model.m_linetype_table,
                               "linetypes", ExpectLinetype);
  });
}

TEST(TableFacts, Groups) {
  ForEachFactsDocument([](const FactsDocument& document) {
    ForEachMember<ON_Group>(document.facts["groups"], document.model.m_group_table, "groups",
                            ExpectGroup);
  });
}

TEST(TableFacts, DimensionStyles) {
  ForEachFactsDocument([](const FactsDocument& document) {
    // The other reader makes a style up for a document that has none.
    const int count = RecordCount(document, "dimstyle");
    ASSERT_EQ(static_cast<std::size_t>(count), document.model.m_dimstyle_table.size());
    if (count == 0) return;
    ForEachMember<ON_DimStyle>(document.facts["dimstyles"], document.model.m_dimstyle_table,
                               "dimstyles", ExpectDimStyle);
  });
}

TEST(TableFacts, FontsOfDimensionStyles) {
  ForEachFactsDocument([](const FactsDocument& document) {
    const auto& styles = document.model.m_dimstyle_table;
    for (std::size_t i = 0; i < styles.size(); ++i) {
      EXPECT_EQ(document.facts["dimstyles"][i]["font"], styles[i].m_font) << Place("dimstyles", i);
    }
  });
}

// What the facts don't tell, by the names that the host gives such styles.
TEST(TableFacts, DimensionStylesByTheirNames) {
  ForEachFactsDocument([](const FactsDocument& document) {
    if (document.name != "r3dm_blocks") return;
    const auto& styles = document.model.m_dimstyle_table;
    ASSERT_GE(styles.size(), 2u);
    for (const ON_DimStyle& style : styles) {
      const bool is_metric = style.m_name.starts_with("Millimeter");
      EXPECT_EQ(style.m_lengthunit, is_metric ? 2 : 0) << style.m_name;
      EXPECT_EQ(style.m_lengthformat, 0) << style.m_name;
      EXPECT_EQ(style.m_leaderlandinglength, style.m_textheight) << style.m_name;
      EXPECT_EQ(style.m_centermarkstyle, 1) << style.m_name;
      EXPECT_EQ(style.m_textlocation, 0) << style.m_name;
      EXPECT_EQ(style.m_radialtextlocation, 1) << style.m_name;
      EXPECT_TRUE(style.m_radialtexthorizontal) << style.m_name;
      EXPECT_FALSE(style.m_texthorizontal) << style.m_name;
      EXPECT_FALSE(style.m_bold || style.m_italic) << style.m_name;
    }
    // Ticks stand out over the extension lines.
    EXPECT_EQ(styles[0].m_dimextension, 1.5);
    EXPECT_EQ(styles[1].m_dimextension, 0);
  });
}

TEST(TableFacts, BlockDefinitions) {
  ForEachFactsDocument([](const FactsDocument& document) {
    ForEachMember<ON_InstanceDefinition>(document.facts["instance_definitions"],
                                         document.model.m_idef_table, "instance_definitions",
                                         ExpectDefinition);
  });
}

TEST(TableFacts, DocumentUserStrings) {
  ForEachFactsDocument([](const FactsDocument& document) {
    ExpectUserStrings(FactOrNull(document.facts, "document_user_strings"),
                      document.model.m_document_user_strings, "document");
  });
}

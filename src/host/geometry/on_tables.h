#pragma once

#include <array>
#include <string>
#include <vector>

#include "host/geometry/on_bounding_box.h"
#include "host/geometry/on_color.h"
#include "host/geometry/on_object.h"
#include "host/geometry/on_uuid.h"

// The records of a document's tables. An index is a position in the table that is named; -1 none.

class ON_Layer : public ON_Object {
 public:
  // The material of objects that take theirs from the layer; -1 none.
  int RenderMaterialIndex() const { return m_render_material_index; }
  void SetRenderMaterialIndex(int index) { m_render_material_index = index; }

  ON_UUID m_id;
  std::string m_name;
  ON_Color m_color;
  ON_Color m_plot_color = ON_UNSET_COLOR;
  double m_plot_weight_mm = 0;
  bool m_visible = true;
  bool m_locked = false;
  bool m_expanded = true;
  int m_render_material_index = -1;
  int m_linetype_index = -1;
  int m_iges_level = -1;
  ON_UUID m_parent_id;
  ON_UUID m_display_material_id;
};

class ON_Texture : public ON_Object {
 public:
  // The values are those of documents; others occur (physically based kinds) and are kept.
  enum class Type : int { none = 0, bitmap = 1, bump = 2, transparency = 3, environment = 86 };

  // True when the texture is tiled along coordinate `dir` (0 or 1): exactly one row of the
  // transform depends on that coordinate alone. The row gives the number of tiles and the offset;
  // 1 and 0 when it isn't tiled.
  bool IsTiled(int dir, double* count, double* offset) const;

  ON_UUID m_texture_id;
  int m_mapping_channel_id = 1;
  // As the document stores it.
  std::string m_image_file;
  bool m_bOn = true;
  Type m_type = Type::bitmap;
  int m_mode = 1;
  int m_minfilter = 1;
  int m_magfilter = 1;
  // 0 repeat, 1 clamp.
  std::array<int, 3> m_wrap{0, 0, 0};
  ON_Xform m_uvw;
  ON_Color m_border_color = ON_UNSET_COLOR;
  ON_Color m_transparent_color = ON_UNSET_COLOR;
  ON_UUID m_transparency_texture_id;
  std::array<double, 2> m_bump_scale{0, 1};
};

class ON_Material : public ON_Object {
 public:
  // The shine of the most polished material.
  static constexpr double MaxShine = 255;

  // 0 to MaxShine.
  double Shine() const { return m_shine; }
  // 0 opaque to 1.
  double Transparency() const { return m_transparency; }
  void SetTransparency(double transparency) { m_transparency = transparency; }
  ON_Color Diffuse() const { return m_diffuse; }
  void SetDiffuse(ON_Color diffuse) { m_diffuse = diffuse; }
  // The position of the first texture of the kind behind position `after` (-1: of all); -1 when
  // there is none. With a file name, only textures of that file count.
  int FindTexture(const char* file_name, ON_Texture::Type type, int after = -1) const;
  // The position in the document's material table; -1 for a material that is in none, such as the
  // host's default material.
  int MaterialIndex() const { return m_material_index; }

  ON_UUID m_id;
  std::string m_name;
  ON_UUID m_plugin_id;
  ON_Color m_ambient{0, 0, 0};
  ON_Color m_diffuse{128, 128, 128};
  ON_Color m_emission{0, 0, 0};
  ON_Color m_specular{255, 255, 255};
  ON_Color m_reflection{255, 255, 255};
  ON_Color m_transparent{255, 255, 255};
  double m_index_of_refraction = 1;
  double m_reflectivity = 0;
  // 0 to 255.
  double m_shine = 0;
  // 0 opaque to 1.
  double m_transparency = 0;
  std::vector<ON_Texture> m_textures;
  // Set by the document's material table.
  int m_material_index = -1;
};

struct ON_Group {
  ON_UUID m_id;
  std::string m_name;
  // The number by which objects name this group.
  int m_index = 0;
};

class ON_Linetype : public ON_Object {
 public:
  struct Segment {
    // Millimetres on paper.
    double m_length = 0;
    bool m_is_gap = false;
  };
  ON_UUID m_id;
  std::string m_name;
  std::vector<Segment> m_segments;
};

class ON_DimStyle : public ON_Object {
 public:
  ON_UUID m_id;
  std::string m_name;
  double m_extextension = 0.5;
  double m_extoffset = 0.5;
  double m_arrowsize = 1;
  double m_leaderarrowsize = 1;
  double m_centermark = 0.5;
  double m_textgap = 0.25;
  double m_textheight = 1;
  double m_dimscale = 1;
  double m_lengthfactor = 1;
  int m_lengthresolution = 2;
  int m_angleresolution = 2;
  // How far the dimension line goes beyond the extension lines.
  double m_dimextension = 0;
  bool m_suppress_extension1 = false;
  bool m_suppress_extension2 = false;
  // 0 decimal, 1 fractions, 2 feet and inches.
  int m_lengthformat = 0;
  // The unit in which lengths are told, a value of ON_UnitSystem; 0 for the document's own.
  int m_lengthunit = 0;
  // Lengths are rounded to multiples of it; 0 for to none.
  double m_round = 0;
  // Zeros that are left out of numbers: 1 the leading one, 2 those at the end, 3 both.
  int m_zerosuppress = 0;
  int m_anglezerosuppress = 0;
  // 0 decimal degrees, 1 degrees, minutes and seconds, 2 radians, 3 gradians.
  int m_angleformat = 0;
  // 0 none, 1 a block of the user's, 2 solid triangle, 3 dot, 4 tick, 5 short triangle, 6 open
  // arrow, 7 rectangle, 8 long triangle, 9 longer triangle.
  int m_arrowtype1 = 2;
  int m_arrowtype2 = 2;
  int m_leaderarrowtype = 2;
  bool m_suppress_arrow1 = false;
  bool m_suppress_arrow2 = false;
  // 0 where there is room, 1 always between the extension lines, 2 always outside.
  int m_arrowfit = 0;
  // 0 where there is room, 1 always between the extension lines, 2 to the right, 3 to the left, 4
  // and 5 the same when there is no room.
  int m_textfit = 0;
  // Extension lines have this length, counted from the dimension line, when that is switched on.
  bool m_fixedextension = false;
  double m_fixedextensionlength = 1;
  // Of the text of linear, angular and ordinate dimensions, and of radial ones: 0 above the
  // dimension line, 1 in it, 2 below.
  int m_textlocation = 0;
  int m_radialtextlocation = 1;
  // Texts that stay horizontal instead of following the dimension line or the leader's end.
  bool m_texthorizontal = false;
  bool m_radialtexthorizontal = true;
  bool m_leadertexthorizontal = true;
  // A horizontal line at the leader's end.
  bool m_leaderlanding = false;
  double m_leaderlandinglength = 1;
  // Where the leader's end stands in the height of its text, as ON_Annotation::VerticalAlignment.
  int m_leadertextvalign = 1;
  // 0 no line, 1 straight ones, 2 a smooth one.
  int m_leadercurve = 1;
  // 0 none, 1 a cross in the centre, 2 with lines up to the circle.
  int m_centermarkstyle = 1;
  // The family's name.
  std::string m_font;
  bool m_bold = false;
  bool m_italic = false;
  std::string m_prefix;
  std::string m_suffix;
};

// A block: a set of objects of the object table that is drawn wherever a reference places it.
class ON_InstanceDefinition : public ON_Object {
 public:
  // 0 and 1 static, 2 linked and embedded, 3 linked.
  int m_kind = 0;
  ON_UUID m_id;
  std::string m_name;
  std::string m_description;
  std::string m_url;
  std::string m_url_tag;
  std::string m_linked_file;
  ON_BoundingBox m_bbox;
  // Ids of objects.
  std::vector<ON_UUID> m_object_ids;
};

#pragma once

#include <string>
#include <vector>

#include "host/geometry/on_color.h"
#include "host/geometry/on_object.h"
#include "host/geometry/on_uuid.h"

// Where an object takes a property from; the values are those of documents.
enum class ON_AttributeSource { layer = 0, object = 1, material = 2, parent = 3 };

enum class ON_ObjectMode { normal = 0, hidden = 1, locked = 2, idef_member = 3 };

// A host texture mapping that an object uses, for one render application and channel.
struct ON_MappingRef {
  ON_UUID m_plugin_id;
  int m_mapping_channel = 1;
  ON_UUID m_mapping_id;
};

// What an object is apart from its geometry. Its user strings are those of the object.
class ON_3dmObjectAttributes : public ON_Object {
 public:
  int GroupCount() const { return static_cast<int>(m_group.size()); }
  const std::vector<int>& GroupList() const { return m_group; }
  ON_AttributeSource MaterialSource() const { return m_material_source; }

  ON_UUID m_uuid;
  std::string m_name;
  std::string m_url;
  // Positions in the document's tables; -1 none.
  int m_layer_index = 0;
  int m_material_index = -1;
  int m_linetype_index = -1;
  // Indices of groups, as the groups themselves store them.
  std::vector<int> m_group;
  ON_AttributeSource m_color_source = ON_AttributeSource::layer;
  ON_AttributeSource m_material_source = ON_AttributeSource::layer;
  ON_AttributeSource m_linetype_source = ON_AttributeSource::layer;
  ON_AttributeSource m_plot_color_source = ON_AttributeSource::layer;
  ON_AttributeSource m_plot_weight_source = ON_AttributeSource::layer;
  ON_Color m_color;
  ON_Color m_plot_color;
  double m_plot_weight_mm = 0;
  ON_ObjectMode m_mode = ON_ObjectMode::normal;
  bool m_visible = true;
  int m_wire_density = 1;
  int m_decoration = 0;
  int m_display_order = 0;
  // 0 none, 1 model, 2 page.
  int m_space = 1;
  ON_UUID m_viewport_id;
  std::vector<ON_MappingRef> m_mapping_refs;
};

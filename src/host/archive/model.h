#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "host/geometry/on_light.h"
#include "host/geometry/on_object_attributes.h"
#include "host/geometry/on_settings.h"
#include "host/geometry/on_tables.h"

// The content of a .3dm document as plain values, in the order of the file.

// A stretch of the file that a thing was read from. Saving copies it as it is when the thing was
// not changed.
struct ON_FileSpan {
  std::uint64_t offset = 0;
  std::uint64_t length = 0;
};

struct ONX_ModelObject {
  ON_3dmObjectAttributes m_attributes;
  // Null when the class isn't read; the record then stays in the file's bytes alone.
  std::shared_ptr<ON_Geometry> m_geometry;
  ON_UUID m_class_id;
  // As stored; a hint only.
  unsigned m_object_type = 0;
  ON_FileSpan m_span;
};

struct ONX_ModelLight {
  std::shared_ptr<ON_Light> m_light;
  ON_3dmObjectAttributes m_attributes;
  ON_FileSpan m_span;
};

// The document data of one plug-in: the bytes of its records, and how to read them.
struct ONX_PlugInData {
  ON_UUID m_plugin_id;
  int m_archive_version = 0;
  unsigned m_opennurbs_version = 0;
  bool m_saved_as_goo = false;
  std::string m_bytes;
  ON_FileSpan m_span;
};

// Records of one kind that were not read; they stay in the file's bytes.
struct ONX_UnreadKind {
  // In words: "NURBS curve", "hatch pattern", or the class id.
  std::string m_name;
  int m_count = 0;
};

class DocumentSource;

class ONX_Model {
 public:
  // The file that it was read from, still open; null for a model that was read from memory or made
  // there. The spans of the records are stretches of it.
  std::shared_ptr<const DocumentSource> m_source;
  // 2, 3, 4, 50, 60, 70, 80.
  int m_3dm_file_version = 0;
  unsigned m_3dm_opennurbs_version = 0;
  std::string m_start_section_comments;
  ON_3dmProperties m_properties;
  ON_3dmSettings m_settings;
  std::vector<ON_Layer> m_layer_table;
  std::vector<ON_Material> m_material_table;
  std::vector<ON_Group> m_group_table;
  std::vector<ON_Linetype> m_linetype_table;
  std::vector<ON_DimStyle> m_dimstyle_table;
  std::vector<ONX_ModelLight> m_light_table;
  std::vector<ON_InstanceDefinition> m_idef_table;
  std::vector<ONX_ModelObject> m_object_table;
  std::vector<ONX_PlugInData> m_userdata_table;
  ON_UserStringList m_document_user_strings;

  std::vector<ONX_UnreadKind> m_unread;
  // What is wrong with the file, one message each: the record's kind, its offset, what was found.
  std::vector<std::string> m_problems;
};

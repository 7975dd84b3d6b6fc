#include "document_bytes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>

#include "host/archive/typecodes.h"
#include "host/geometry/on_mesh.h"
#include "support/model_writer.h"
#include "support/shapes.h"

namespace {

constexpr std::size_t kStart = 32;
constexpr std::size_t kHead = 8;

std::uint32_t Number(const std::string& bytes, std::size_t at) {
  std::uint32_t number = 0;
  if (at + 4 <= bytes.size()) std::memcpy(&number, bytes.data() + at, 4);
  return number;
}

std::string Text(std::uint32_t number) {
  return std::string(reinterpret_cast<const char*>(&number), 4);
}

void AddObjects(ONX_Model& model) {
  for (int i = 0; i < 3; ++i) {
    ONX_ModelObject& object = model.m_object_table.emplace_back();
    object.m_geometry = std::make_shared<ON_Mesh>(MakeSphere({0, 0, 1.0 * i}, 1, 4, 3));
    object.m_attributes.m_uuid.bytes[0] = static_cast<std::uint8_t>(i + 1);
    object.m_attributes.m_name = "sphere " + std::to_string(i);
    object.m_attributes.SetUserString("key", "value " + std::to_string(i));
  }
}

}  // namespace

ONX_Model SmallModel() {
  ONX_Model model;
  model.m_3dm_file_version = 4;
  model.m_start_section_comments = "a small document";
  model.m_properties.m_notes = "notes";
  model.m_settings.m_views.resize(2);
  model.m_settings.m_views[0].m_name = "Top";
  model.m_settings.m_views[1].m_name = "Perspective";
  for (const char* name : {"first", "second", "third"}) {
    model.m_layer_table.emplace_back().m_name = name;
    model.m_material_table.emplace_back().m_name = name;
  }
  AddObjects(model);
  model.m_document_user_strings.SetUserString("document", "string");
  ONX_PlugInData& data = model.m_userdata_table.emplace_back();
  data.m_plugin_id.bytes[0] = 1;
  data.m_bytes = "bytes of a plug-in";
  return model;
}

DocumentBytes TakeApart(const std::string& document) {
  DocumentBytes parts;
  parts.start = document.substr(0, kStart);
  std::size_t at = kStart;
  while (at + kHead <= document.size() && Number(document, at) != TCODE_ENDOFFILE) {
    const std::size_t size = kHead + Number(document, at + 4);
    parts.chunks.push_back({Number(document, at), document.substr(at, size)});
    at += size;
  }
  return parts;
}

std::string PutTogether(const DocumentBytes& document) {
  std::string bytes = document.start;
  for (const TopChunk& chunk : document.chunks) bytes += chunk.bytes;
  const auto size = static_cast<std::uint32_t>(bytes.size() + kHead + 4);
  return bytes + Text(TCODE_ENDOFFILE) + Text(4) + Text(size);
}

TopChunk& ChunkOf(DocumentBytes& document, std::uint32_t typecode) {
  const auto found =
      std::find_if(document.chunks.begin(), document.chunks.end(),
                   [typecode](const TopChunk& chunk) { return chunk.typecode == typecode; });
  EXPECT_NE(found, document.chunks.end());
  return *found;
}

std::vector<std::size_t> RecordOffsets(const TopChunk& table) {
  std::vector<std::size_t> offsets;
  std::size_t at = kHead;
  while (at + kHead <= table.bytes.size() && Number(table.bytes, at) != TCODE_ENDOFTABLE) {
    offsets.push_back(at);
    at += kHead + Number(table.bytes, at + 4);
  }
  return offsets;
}

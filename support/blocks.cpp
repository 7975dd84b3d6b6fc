#include "support/blocks.h"

#include <memory>
#include <utility>

#include "host/geometry/on_instance_ref.h"

namespace {

// An id that holds `kind` and `number`.
ON_UUID IdOf(unsigned char kind, std::size_t number) {
  ON_UUID id;
  id.bytes[0] = kind;
  for (std::size_t i = 0; i < 8; ++i) {
    id.bytes[15 - i] = static_cast<unsigned char>(number >> (8 * i));
  }
  return id;
}

}  // namespace

ON_UUID AddBlock(ONX_Model& model, std::string_view name, std::vector<ONX_ModelObject> members) {
  constexpr unsigned char kBlock = 0xb1;
  constexpr unsigned char kMember = 0xb2;
  ON_InstanceDefinition& block = model.m_idef_table.emplace_back();
  block.m_id = IdOf(kBlock, model.m_idef_table.size());
  block.m_name = name;
  for (ONX_ModelObject& member : members) {
    member.m_attributes.m_uuid = IdOf(kMember, model.m_object_table.size());
    block.m_object_ids.push_back(member.m_attributes.m_uuid);
    model.m_object_table.push_back(std::move(member));
  }
  return block.m_id;
}

ONX_ModelObject PlacementOf(const ON_UUID& block, const ON_Xform& xform) {
  auto reference = std::make_shared<ON_InstanceRef>();
  reference->m_instance_definition_uuid = block;
  reference->m_xform = xform;
  ONX_ModelObject object;
  object.m_geometry = std::move(reference);
  return object;
}

ON_Xform TranslationBy(double x, double y, double z) {
  ON_Xform xform;
  xform.m_xform[0][3] = x;
  xform.m_xform[1][3] = y;
  xform.m_xform[2][3] = z;
  return xform;
}

ON_Xform ScalingBy(double factor) {
  ON_Xform xform;
  for (std::size_t i = 0; i < 3; ++i) xform.m_xform[i][i] = factor;
  return xform;
}

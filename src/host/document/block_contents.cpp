#include "host/document/block_contents.h"

#include <algorithm>

#include "host/document/doc.h"
#include "host/geometry/on_instance_ref.h"
#include "host/system/text.h"

namespace {

// More than this of blocks is a mistake or a trap.
constexpr int kMaxLevels = 64;
constexpr std::int64_t kMaxPieces = 2'000'000;
constexpr std::int64_t kTooManyPieces = kMaxPieces + 1;

const ON_Xform& XformOf(const CRhinoObject& placement) {
  return static_cast<const ON_InstanceRef&>(*placement.Geometry()).m_xform;
}

bool IsFinite(const ON_Xform& xform) {
  return std::all_of(xform.m_xform.begin(), xform.m_xform.end(), [](const auto& row) {
    return std::all_of(row.begin(), row.end(), ON_IsValid);
  });
}

}  // namespace

BlockContents::BlockContents(const CRhinoDoc& doc) : doc_(doc) {
  FindMembers();
  Complete();
}

int BlockContents::Find(const ON_UUID& definition_id) const {
  const auto found = by_id_.find(definition_id);
  return found == by_id_.end() ? -1 : found->second;
}

void BlockContents::FindMembers() {
  const auto& definitions = doc_.m_instance_definition_table.Records();
  for (std::size_t i = 0; i < definitions.size(); ++i) {
    if (!definitions[i].m_id.IsNil()) by_id_.emplace(definitions[i].m_id, static_cast<int>(i));
  }
  contents_.resize(definitions.size());
  for (std::size_t i = 0; i < definitions.size(); ++i) {
    for (const ON_UUID& id : definitions[i].m_object_ids) {
      if (const CRhinoObject* object = doc_.LookupObject(id)) AddMember(contents_[i], *object);
    }
  }
}

void BlockContents::AddMember(Contents& contents, const CRhinoObject& object) const {
  const int layer = object.Attributes().m_layer_index;
  if (object.Geometry() == nullptr || object.IsHidden() ||
      !doc_.m_layer_table.IsLayerVisible(layer)) {
    return;
  }
  const ON_InstanceRef* placement = ON_InstanceRef::Cast(object.Geometry());
  const int definition = placement == nullptr ? -1 : Find(placement->m_instance_definition_uuid);
  if (placement != nullptr && definition < 0) return;
  contents.members.push_back({&object, definition});
}

void BlockContents::Complete() {
  // Of each definition, how many of the placements in it are not complete yet, and where it is
  // placed.
  std::vector<std::size_t> pending(contents_.size(), 0);
  std::vector<std::vector<std::size_t>> places(contents_.size());
  std::vector<std::size_t> ready;
  for (std::size_t i = 0; i < contents_.size(); ++i) {
    for (const Member& member : contents_[i].members) {
      if (member.definition < 0) continue;
      ++pending[i];
      places[static_cast<std::size_t>(member.definition)].push_back(i);
    }
    if (pending[i] == 0) ready.push_back(i);
  }
  while (!ready.empty()) {
    const std::size_t i = ready.back();
    ready.pop_back();
    Complete(contents_[i]);
    for (const std::size_t place : places[i]) {
      if (--pending[place] == 0) ready.push_back(place);
    }
  }
}

void BlockContents::Complete(Contents& contents) const {
  contents.is_complete = true;
  for (const Member& member : contents.members) {
    if (member.definition < 0) {
      contents.box.Include(member.object->Geometry()->BoundingBox());
      contents.piece_count = std::min(contents.piece_count + 1, kTooManyPieces);
      continue;
    }
    const Contents& nested = At(member.definition);
    contents.box.Include(nested.box.Transformed(XformOf(*member.object)));
    contents.piece_count = std::min(contents.piece_count + nested.piece_count, kTooManyPieces);
    contents.levels = std::max(contents.levels, nested.levels + 1);
  }
}

std::string BlockContents::ProblemOf(int definition) const {
  const Contents& contents = At(definition);
  const std::string& name = doc_.m_instance_definition_table.At(definition)->m_name;
  if (!contents.is_complete) {
    return host::Format("block \"%s\" contains itself or a block that does", name.c_str());
  }
  if (contents.levels > kMaxLevels) {
    return host::Format("block \"%s\" is more than %d blocks deep", name.c_str(), kMaxLevels);
  }
  if (contents.piece_count > kMaxPieces) {
    return host::Format("block \"%s\" shows more than %d objects", name.c_str(),
                        static_cast<int>(kMaxPieces));
  }
  return {};
}

bool BlockContents::Explode(int definition, const ON_Xform& xform,
                            std::vector<CRhinoInstanceObjectPiece>& pieces,
                            std::string& problem) const {
  problem = ProblemOf(definition);
  if (!problem.empty()) return false;
  const std::size_t count = pieces.size();
  if (Append(At(definition), xform, pieces)) return true;
  pieces.resize(count);
  problem = host::Format("block \"%s\" holds placements whose numbers are too large",
                         doc_.m_instance_definition_table.At(definition)->m_name.c_str());
  return false;
}

// Goes no deeper than kMaxLevels, and into nothing that shows nothing, so that its work is that of
// the pieces.
bool BlockContents::Append(const Contents& contents, const ON_Xform& xform,
                           std::vector<CRhinoInstanceObjectPiece>& pieces) const {
  if (!IsFinite(xform)) return false;
  for (const Member& member : contents.members) {
    if (member.definition < 0) {
      pieces.push_back({member.object, xform});
      continue;
    }
    const Contents& nested = At(member.definition);
    if (nested.piece_count == 0) continue;
    if (!Append(nested, xform * XformOf(*member.object), pieces)) return false;
  }
  return true;
}

#include "export/object_pieces.h"

#include <string>
#include <unordered_set>

#include "host/document/app.h"
#include "host/document/instance_object.h"

namespace orv {
namespace {

// Problems that are told one by one.
constexpr std::size_t kMaxProblems = 10;

// Tells each block that isn't exported once.
class LeftOutBlocks {
 public:
  void Add(const ON_InstanceDefinition& block, const std::string& problem) {
    if (!blocks_.insert(&block).second || blocks_.size() > kMaxProblems) return;
    RhinoApp().Print("Not exported: " + problem + ".\n");
  }
  ~LeftOutBlocks() {
    if (blocks_.size() <= kMaxProblems) return;
    RhinoApp().Print("... and " + std::to_string(blocks_.size() - kMaxProblems) +
                     " more blocks.\n");
  }

 private:
  std::unordered_set<const ON_InstanceDefinition*> blocks_;
};

class Flattener {
 public:
  Flattener(std::size_t objectCount, std::size_t maxRecords) : maxRecords_(maxRecords) {
    records_.reserve(objectCount);
  }

  void Add(const CRhinoObject& object) {
    if (object.ObjectType() == ON_ObjectType::instance_reference) {
      AddPlacement(CRhinoInstanceObject::Cast(&object));
    } else {
      records_.emplace_back().Object = &object;
    }
  }
  std::vector<RIBRhinoObject> TakeRecords() { return std::move(records_); }

 private:
  void AddPlacement(const CRhinoInstanceObject* placement) {
    const ON_InstanceDefinition* block =
        placement == nullptr ? nullptr : placement->InstanceDefinition();
    if (block == nullptr) return;
    std::string problem;
    pieces_.clear();
    pieces_.reserve(2 * block->m_object_ids.size() + 16);
    if (!placement->Explode(pieces_, problem)) return leftOut_.Add(*block, problem);
    if (records_.size() + pieces_.size() > maxRecords_) {
      return leftOut_.Add(*block, "block \"" + block->m_name + "\" is placed too often");
    }
    for (const CRhinoInstanceObjectPiece& piece : pieces_) {
      if (piece.m_object == nullptr) continue;
      records_.push_back({piece.m_object, placement, piece.m_xform, true});
    }
  }

  std::size_t maxRecords_;
  std::vector<RIBRhinoObject> records_;
  std::vector<CRhinoInstanceObjectPiece> pieces_;
  LeftOutBlocks leftOut_;
};

}  // namespace

std::vector<RIBRhinoObject> FlattenObjects(const ObjectList& objects, std::size_t maxRecords) {
  Flattener flattener(objects.size(), maxRecords);
  for (const CRhinoObject* object : objects) flattener.Add(*object);
  return flattener.TakeRecords();
}

}  // namespace orv

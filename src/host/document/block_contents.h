#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "host/document/id_map.h"
#include "host/document/instance_object.h"
#include "host/geometry/on_bounding_box.h"

class CRhinoDoc;

// What the block definitions of a document show, looked up once for all placements. It holds until
// objects come or go, are hidden or shown, or layers change.
class BlockContents {
 public:
  explicit BlockContents(const CRhinoDoc& doc);

  // The position of a definition in the document's table; -1 when there is none.
  int Find(const ON_UUID& definition_id) const;
  // Appends what a definition shows when it is placed by `xform`; otherwise as
  // CRhinoInstanceObject::Explode.
  [[nodiscard]] bool Explode(int definition, const ON_Xform& xform,
                             std::vector<CRhinoInstanceObjectPiece>& pieces,
                             std::string& problem) const;
  // The box of what a definition shows, in its own coordinates. Not valid when that is nothing, or
  // when it contains itself.
  const ON_BoundingBox& BoxOf(int definition) const { return At(definition).box; }

 private:
  // A member that is shown.
  struct Member {
    const CRhinoObject* object;
    // The position of the definition that it places; -1 when it is no placement.
    int definition;
  };
  struct Contents {
    std::vector<Member> members;
    ON_BoundingBox box;
    // How many objects are shown, those of nested blocks counted each time; kTooManyPieces for
    // more.
    std::int64_t piece_count = 0;
    // How many definitions contain each other here, itself counted.
    int levels = 1;
    // False for a definition that contains itself, or one that does. Nothing else is known of it.
    bool is_complete = false;
  };

  const Contents& At(int definition) const {
    return contents_[static_cast<std::size_t>(definition)];
  }
  void FindMembers();
  void AddMember(Contents& contents, const CRhinoObject& object) const;
  // Completes the definitions, each after those that it places.
  void Complete();
  void Complete(Contents& contents) const;
  // In words, what keeps a definition from being shown; empty when nothing does.
  std::string ProblemOf(int definition) const;
  [[nodiscard]] bool Append(const Contents& contents, const ON_Xform& xform,
                            std::vector<CRhinoInstanceObjectPiece>& pieces) const;

  const CRhinoDoc& doc_;
  IdMap<int> by_id_;
  // In the order of the document's definitions.
  std::vector<Contents> contents_;
};

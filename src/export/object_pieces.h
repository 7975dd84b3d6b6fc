#pragma once

#include <cstddef>
#include <vector>

#include "export/object_list.h"
#include "host/geometry/on_xform.h"

namespace orv {

// One object of an export, or one piece of a block placement.
struct RIBRhinoObject {
  // What is written; for a piece, the object inside the block's definition.
  const CRhinoObject* Object = nullptr;
  // The block placement of a piece; null for a plain object.
  const CRhinoObject* Parent = nullptr;
  // Where a piece stands.
  ON_Xform Xform;
  bool IsPiece = false;
};

// A plain object by itself; a piece with its placement: what its block hides is no piece.
inline bool IsShown(const RIBRhinoObject& record) {
  return (record.IsPiece ? record.Parent : record.Object)->IsVisible();
}

// The longest list. A file of so many instances has a gigabyte.
inline constexpr std::size_t kMaxRecords = 5'000'000;

// The list of what is to be written, in the order of `objects`: a block placement is replaced by
// its pieces, those of nested blocks included. A placement whose block can't be shown, or that
// would make the list longer than `maxRecords`, is left out; the command window tells its block
// once.
std::vector<RIBRhinoObject> FlattenObjects(const ObjectList& objects,
                                           std::size_t maxRecords = kMaxRecords);

}  // namespace orv

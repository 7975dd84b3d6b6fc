#pragma once

#include <unordered_set>
#include <vector>

#include "export/object_pieces.h"
#include "export/rib_writer.h"

// The archives of an export: each object of a block is one, which its first piece defines and each
// piece places. It is named by the object's runtime serial number.
namespace orv {

// The objects that are defined as archives already, in order of first use.
class BlockIds {
 public:
  // False when it is there already.
  bool Add(unsigned serialNumber);
  bool Contains(unsigned serialNumber) const { return known_.contains(serialNumber); }
  const std::vector<unsigned>& InOrder() const { return order_; }

 private:
  std::vector<unsigned> order_;
  std::unordered_set<unsigned> known_;
};

// What a record writes besides its place.
struct ArchiveUse {
  // Material, attributes and geometry.
  bool WriteBody = true;
  // They stand in an archive.
  bool Defining = false;
};

// The archive test: the first piece of an object defines its archive, which is thereby known. A
// record that is no piece has no archive.
ArchiveUse UseOfArchive(const RIBRhinoObject& record, BlockIds& blocks);

// Opens and closes the archive of an object. What it holds is indented.
void BeginArchive(RibWriter& writer, const CRhinoObject& object);
void EndArchive(RibWriter& writer);

// Writes a transform in the form of row vectors.
void WriteConcatTransform(RibWriter& writer, const ON_Xform& xform);
// Writes the place of a piece and its archive.
void WriteArchiveInstance(RibWriter& writer, const RIBRhinoObject& piece);

// Frees all archives, with a blank line before them; nothing when there is none.
void FreeArchives(RibWriter& writer, const BlockIds& blocks);

}  // namespace orv

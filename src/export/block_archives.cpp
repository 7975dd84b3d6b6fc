#include "export/block_archives.h"

namespace orv {
namespace {

int NumberOf(const CRhinoObject& object) {
  return static_cast<int>(object.RuntimeSerialNumber());
}

}  // namespace

bool BlockIds::Add(unsigned serialNumber) {
  if (!known_.insert(serialNumber).second) return false;
  order_.push_back(serialNumber);
  return true;
}

ArchiveUse UseOfArchive(const RIBRhinoObject& record, BlockIds& blocks) {
  if (!record.IsPiece) return {.WriteBody = true, .Defining = false};
  const bool isFirst = blocks.Add(record.Object->RuntimeSerialNumber());
  return {.WriteBody = isFirst, .Defining = isFirst};
}

void BeginArchive(RibWriter& writer, const CRhinoObject& object) {
  RibPrintf(writer, "ArchiveBegin \"Block_%d\"\n", NumberOf(object));
  writer.Indent += 2;
}

void EndArchive(RibWriter& writer) {
  writer.Indent -= 2;
  RibPrintf(writer, "ArchiveEnd\n");
}

void WriteConcatTransform(RibWriter& writer, const ON_Xform& xform) {
  const auto& m = xform.m_xform;
  RibPrintf(writer,
            "ConcatTransform [%g %g %g %g  %g %g %g %g  %g %g %g %g  %g %g %g %g]\n",  //
            m[0][0], m[1][0], m[2][0], m[3][0],                                        //
            m[0][1], m[1][1], m[2][1], m[3][1],                                        //
            m[0][2], m[1][2], m[2][2], m[3][2],                                        //
            m[0][3], m[1][3], m[2][3], m[3][3]);
}

void WriteArchiveInstance(RibWriter& writer, const RIBRhinoObject& piece) {
  WriteConcatTransform(writer, piece.Xform);
  RibPrintf(writer, "ArchiveInstance \"Block_%d\"\n", NumberOf(*piece.Object));
}

void FreeArchives(RibWriter& writer, const BlockIds& blocks) {
  if (blocks.InOrder().empty()) return;
  RibPrintf(writer, "\n");
  for (const unsigned serialNumber : blocks.InOrder()) {
    RibPrintf(writer, "FreeArchive \"Block_%d\"\n", static_cast<int>(serialNumber));
  }
}

}  // namespace orv

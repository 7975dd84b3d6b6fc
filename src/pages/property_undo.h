#pragma once

#include <string_view>

#include "host/document/doc.h"

namespace orv {

// Makes all that is done in its life one record for Undo, unless it is done inside another record.
class PropertyUndo {
 public:
  PropertyUndo(CRhinoDoc& doc, std::string_view caption)
      : doc_(doc), number_(doc.BeginUndoRecord(caption)) {}
  ~PropertyUndo() { doc_.EndUndoRecord(number_); }
  PropertyUndo(const PropertyUndo&) = delete;
  PropertyUndo& operator=(const PropertyUndo&) = delete;

 private:
  CRhinoDoc& doc_;
  unsigned number_;
};

}  // namespace orv

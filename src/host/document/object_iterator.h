#pragma once

#include <cstddef>

class CRhinoDoc;
class CRhinoObject;

// Walks a document's objects in the order of the document, lights last. Objects that come or go in
// between make it start over; selecting, hiding and showing don't.
class CRhinoObjectIterator {
 public:
  // Bits of the object state mask. An object counts as one of them: as a member of a block
  // definition, else as hidden (by itself or by its layer), else as locked, else as normal.
  enum : unsigned { normal_objects = 1, locked_objects = 2, hidden_objects = 4, idef_objects = 8 };
  // Bits of the category.
  enum : unsigned { active_objects = 1 };

  explicit CRhinoObjectIterator(CRhinoDoc& doc, unsigned state_mask = 7,
                                unsigned category = active_objects);
  void IncludeLights(bool include = true) { include_lights_ = include; }

  // The first object, or null; starts the walk anew.
  CRhinoObject* First();
  // The next object, or null at the end.
  CRhinoObject* Next();

 private:
  bool Matches(const CRhinoObject& object) const;

  CRhinoDoc& doc_;
  unsigned state_mask_;
  unsigned category_;
  bool include_lights_ = false;
  std::size_t next_ = 0;
  // Of the document, when the walk began.
  unsigned content_number_ = 0;
};

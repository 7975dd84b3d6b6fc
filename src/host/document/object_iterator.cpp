#include "host/document/object_iterator.h"

#include "host/document/doc.h"

namespace {

unsigned StateOf(const CRhinoObject& object) {
  if (object.IsInstanceDefinitionGeometry()) return CRhinoObjectIterator::idef_objects;
  if (!object.IsVisible()) return CRhinoObjectIterator::hidden_objects;
  if (object.IsLocked()) return CRhinoObjectIterator::locked_objects;
  return CRhinoObjectIterator::normal_objects;
}

}  // namespace

CRhinoObjectIterator::CRhinoObjectIterator(CRhinoDoc& doc, unsigned state_mask, unsigned category)
    : doc_(doc),
      state_mask_(state_mask),
      category_(category),
      content_number_(doc.ContentNumber()) {}

CRhinoObject* CRhinoObjectIterator::First() {
  next_ = 0;
  content_number_ = doc_.ContentNumber();
  return Next();
}

CRhinoObject* CRhinoObjectIterator::Next() {
  if (content_number_ != doc_.ContentNumber()) return First();
  const auto objects = doc_.Objects();
  const auto lights = doc_.Lights();
  const std::size_t count = objects.size() + (include_lights_ ? lights.size() : 0);
  while (next_ < count) {
    const std::size_t index = next_++;
    CRhinoObject& object =
        index < objects.size() ? *objects[index] : *lights[index - objects.size()];
    if (Matches(object)) return &object;
  }
  return nullptr;
}

// A document of this host has active objects only.
bool CRhinoObjectIterator::Matches(const CRhinoObject& object) const {
  return !object.IsDeleted() && (category_ & active_objects) != 0 &&
         (state_mask_ & StateOf(object)) != 0;
}

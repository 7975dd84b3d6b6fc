#include "host/command/get_object.h"

#include <charconv>

#include "host/document/doc.h"
#include "host/document/object_iterator.h"
#include "host/system/text.h"

namespace {

constexpr unsigned Bits(ON_ObjectType type) {
  return static_cast<unsigned>(type);
}

// The bits of a geometry filter that an object fits.
unsigned FilterBits(ON_ObjectType type) {
  if (type == ON_ObjectType::brep || type == ON_ObjectType::extrusion) {
    return Bits(type) | Bits(ON_ObjectType::surface) | CRhinoGetObject::polysurface_filter;
  }
  if (type == ON_ObjectType::subd) return Bits(type) | Bits(ON_ObjectType::mesh);
  return Bits(type);
}

}  // namespace

void CRhinoGetObject::EnablePreSelect(bool enable, bool ignore_unacceptable) {
  pre_select_ = enable;
  ignore_unacceptable_ = ignore_unacceptable;
}

CRhinoGet::Result CRhinoGetObject::GetObjects(int min, int max) {
  min_ = min;
  max_ = max;
  if (clear_on_entry_) {
    objects_.clear();
    chosen_.clear();
  }
  if (pre_select_ && TakeSelection()) return Have(Result::object);
  return Get();
}

CRhinoObject* CRhinoGetObject::Object(int index) const {
  if (index < 0 || index >= ObjectCount()) return nullptr;
  return objects_[static_cast<std::size_t>(index)];
}

bool CRhinoGetObject::FitsFilter(const CRhinoObject& object) const {
  return filter_ == any_object || (FilterBits(object.ObjectType()) & filter_) != 0;
}

bool CRhinoGetObject::TakeSelection() {
  std::vector<CRhinoObject*> selected;
  CRhinoObjectIterator it(Context().m_doc);
  it.IncludeLights();
  for (CRhinoObject* object = it.First(); object != nullptr; object = it.Next()) {
    if (!object->IsSelected()) continue;
    if (FitsFilter(*object)) {
      selected.push_back(object);
    } else if (!ignore_unacceptable_) {
      return false;
    }
  }
  const int count = static_cast<int>(selected.size());
  if (count == 0 || count < min_ || (max_ > 0 && count > max_)) return false;
  for (CRhinoObject* object : selected) Add(*object);
  return true;
}

void CRhinoGetObject::Add(CRhinoObject& object) {
  if (chosen_.insert(&object).second) objects_.push_back(&object);
}

CRhinoObject* FindObjectByNumber(const CRhinoDoc& doc, std::string_view text) {
  CRhinoObject* object = nullptr;
  unsigned number = 0;
  const char* end = text.data() + text.size();
  if (const auto id = ON_UuidFromString(text)) {
    object = doc.LookupObject(*id);
  } else if (const auto [stop, error] = std::from_chars(text.data(), end, number);
             error == std::errc{} && stop == end) {
    object = doc.LookupObject(number);
  }
  return object == nullptr || object->IsInstanceDefinitionGeometry() ? nullptr : object;
}

std::vector<CRhinoObject*> CRhinoGetObject::FindObjects(std::string_view text) const {
  std::vector<CRhinoObject*> found;
  CRhinoObjectIterator it(Context().m_doc);
  it.IncludeLights();
  for (CRhinoObject* object = it.First(); object != nullptr; object = it.Next()) {
    const std::string& name = object->Attributes().m_name;
    if (!name.empty() && host::EqualNoCase(name, text)) found.push_back(object);
  }
  if (!found.empty()) return found;
  CRhinoObject* object = FindObjectByNumber(Context().m_doc, text);
  if (object != nullptr) found.push_back(object);
  return found;
}

std::optional<CRhinoGet::Result> CRhinoGetObject::TakeText(const Answer& answer) {
  const std::vector<CRhinoObject*> found = FindObjects(answer.Text);
  if (found.empty()) {
    return Refuse("There is no object with the name, id or serial number '" + answer.Text + "'.");
  }
  bool added = false;
  for (CRhinoObject* object : found) {
    if (!FitsFilter(*object) || !object->IsVisible() || object->IsLocked() || IsFull()) continue;
    object->Select();
    Add(*object);
    added = true;
  }
  if (!added) return Refuse("'" + answer.Text + "' can't be selected here.");
  if (max_ > 0 && IsFull()) return Result::object;
  return std::nullopt;
}

std::optional<CRhinoGet::Result> CRhinoGetObject::TakeEnter() {
  if (objects_.empty()) return CRhinoGet::TakeEnter();
  if (ObjectCount() >= min_) return Result::object;
  return Refuse(host::Format("At least %d objects are needed.", min_));
}

void CRhinoGetObject::CompletePrompt(Prompt& prompt) const {
  if (!objects_.empty()) {
    prompt.AcceptsEnter = ObjectCount() >= min_;
    prompt.Text += host::Format(" (%d selected, Enter ends)", ObjectCount());
  }
  // The names are for a person, and there may be many.
  if (!Context().m_input.IsInteractive()) return;
  CRhinoObjectIterator it(Context().m_doc);
  it.IncludeLights();
  for (CRhinoObject* object = it.First(); object != nullptr; object = it.Next()) {
    const std::string& name = object->Attributes().m_name;
    if (!name.empty()) prompt.Words.push_back(name);
  }
}

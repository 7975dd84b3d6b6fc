#pragma once

#include <optional>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "host/command/getter.h"
#include "host/document/object.h"

// Asks for objects of the document. The selected ones are taken without asking when they suffice;
// otherwise objects are typed by name (every object that has it), id or runtime serial number, and
// Enter ends. Only visible, unlocked objects can be had; those that were typed get selected.
class CRhinoGetObject : public CRhinoGet {
 public:
  // Bits of the geometry filter beside those of ON_ObjectType.
  enum : unsigned { polysurface_filter = 0x200000, any_object = 0xFFFFFFFF };

  explicit CRhinoGetObject(CRhinoCommandContext& context) : CRhinoGet(context) {}

  // Kinds that can be had, as bits of ON_ObjectType and polysurface_filter. A brep or an extrusion
  // fits the filter of surfaces and of polysurfaces, a SubD that of meshes. All kinds at first.
  void SetGeometryFilter(unsigned filter) { filter_ = filter; }
  // Whether the selected objects are taken (they are at first), and whether selected ones of other
  // kinds are passed over rather than making it ask.
  void EnablePreSelect(bool enable = true, bool ignore_unacceptable = true);
  // Whether objects of an earlier call are forgotten; they are at first.
  void EnableClearObjectsOnEntry(bool enable = true) { clear_on_entry_ = enable; }

  // At least `min` objects and at most `max`, 0 for any number. object, nothing, option, cancel or
  // no_result.
  Result GetObjects(int min = 1, int max = 1);

  int ObjectCount() const { return static_cast<int>(objects_.size()); }
  // Null when there is none at `index`.
  CRhinoObject* Object(int index) const;
  const std::vector<CRhinoObject*>& Objects() const { return objects_; }

 protected:
  std::optional<Result> TakeText(const Answer& answer) override;
  std::optional<Result> TakeEnter() override;
  bool TakesFreeText() const override { return true; }
  void CompletePrompt(Prompt& prompt) const override;

 private:
  bool TakeSelection();
  bool FitsFilter(const CRhinoObject& object) const;
  // The objects that a typed text means, whatever their kind.
  std::vector<CRhinoObject*> FindObjects(std::string_view text) const;
  void Add(CRhinoObject& object);
  bool IsFull() const { return max_ > 0 && ObjectCount() >= max_; }

  unsigned filter_ = any_object;
  bool pre_select_ = true;
  bool ignore_unacceptable_ = true;
  bool clear_on_entry_ = true;
  int min_ = 1;
  int max_ = 1;
  std::vector<CRhinoObject*> objects_;
  // The same, to be looked up.
  std::unordered_set<const CRhinoObject*> chosen_;
};

// The object or light with the id or runtime serial number that `text` is; null when there is none,
// and for a member of a block definition.
CRhinoObject* FindObjectByNumber(const CRhinoDoc& doc, std::string_view text);

#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "host/geometry/on_bounding_box.h"
#include "host/geometry/on_user_string_list.h"

// The base of what a document holds: it carries user strings.
class ON_Object {
 public:
  virtual ~ON_Object();

  std::optional<std::string_view> GetUserString(std::string_view key) const {
    return m_user_strings.GetUserString(key);
  }
  void SetUserString(std::string_view key, std::string_view value) {
    m_user_strings.SetUserString(key, value);
  }

  ON_UserStringList m_user_strings;

 protected:
  ON_Object() = default;
  ON_Object(const ON_Object&) = default;
  ON_Object(ON_Object&&) = default;
  ON_Object& operator=(const ON_Object&) = default;
  ON_Object& operator=(ON_Object&&) = default;
};

// Kinds of geometry, as bits; the values are those of documents.
enum class ON_ObjectType : unsigned {
  unknown = 0,
  point = 0x1,
  pointset = 0x2,
  curve = 0x4,
  surface = 0x8,
  brep = 0x10,
  mesh = 0x20,
  light = 0x100,
  annotation = 0x200,
  instance_reference = 0x1000,
  text_dot = 0x2000,
  detail = 0x8000,
  hatch = 0x10000,
  subd = 0x40000,
  clipping_plane = 0x20000000,
  extrusion = 0x40000000,
};

class ON_Brep;

class ON_Geometry : public ON_Object {
 public:
  ~ON_Geometry() override;

  virtual ON_ObjectType ObjectType() const = 0;
  // Empty (not valid) when there is nothing to bound.
  virtual ON_BoundingBox BoundingBox() const = 0;
  // True for surfaces and all that consists of faces of surfaces.
  virtual bool HasBrepForm() const { return false; }
  // A brep of the same faces. Null when there is none.
  virtual std::unique_ptr<ON_Brep> BrepForm() const;

 protected:
  ON_Geometry() = default;
  ON_Geometry(const ON_Geometry&) = default;
  ON_Geometry(ON_Geometry&&) = default;
  ON_Geometry& operator=(const ON_Geometry&) = default;
  ON_Geometry& operator=(ON_Geometry&&) = default;
};

#include "shading/attributes.h"

#include <optional>
#include <string_view>

#include "host/document/object.h"
#include "host/system/text.h"

namespace orv {
namespace {

void ReadYesNo(const ON_Object& carrier, std::string_view key, bool& value) {
  const std::optional<std::string_view> text = carrier.GetUserString(key);
  if (text) value = !host::EqualNoCase(*text, "no");
}

}  // namespace

ObjectAttributes ReadObjectAttributes(const CRhinoObject& object) {
  ObjectAttributes attributes;
  ReadYesNo(object.Attributes(), "OrvWeldPolyVerts", attributes.WeldPolyVerts);
  ReadYesNo(object.Attributes(), "OrvSubdivisionMesh", attributes.SubdivisionMesh);
  return attributes;
}

}  // namespace orv

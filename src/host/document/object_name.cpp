#include "host/document/object_name.h"

#include <algorithm>

#include "host/document/object.h"
#include "host/system/text.h"

namespace host {

std::string QuotedName(std::string_view name) {
  constexpr std::size_t kMaxLength = 100;
  const std::string_view first = FirstCodePoints(name, kMaxLength);
  std::string text(first);
  std::replace_if(text.begin(), text.end(), IsControl, ' ');
  return '"' + text + (first.size() < name.size() ? "...\"" : "\"");
}

std::string DescribeByName(const CRhinoObject& object) {
  const std::string& name = object.Attributes().m_name;
  return object.ShortDescription() + " " +
         (name.empty() ? std::to_string(object.RuntimeSerialNumber()) : QuotedName(name));
}

}  // namespace host

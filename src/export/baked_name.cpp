#include "export/baked_name.h"

#include "host/document/object.h"
#include "host/system/path.h"

namespace orv {

std::string BakedMapFileName(std::string_view pattern, const CRhinoObject& object,
                             std::string_view suffix) {
  host::PathParts parts = host::SplitPath(pattern);
  parts.Base += suffix;
  parts.Base += "_" + object.Attributes().m_uuid.ToString();
  return host::JoinPath(parts);
}

}  // namespace orv

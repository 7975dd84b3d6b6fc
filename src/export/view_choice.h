#pragma once

#include <string_view>

#include "host/document/doc.h"

namespace orv {

// The last model view whose name is `viewName` without regard to case; the active view when there
// is none or the name is exactly "Current". Null when the document has no view at all.
const CRhinoView* ChooseView(const CRhinoDoc& doc, std::string_view viewName);

}  // namespace orv

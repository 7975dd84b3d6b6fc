#pragma once

#include <memory>
#include <vector>

#include "host/geometry/on_annotation.h"
#include "host/geometry/on_curve.h"

namespace host {

// The outlines of a text's letters, closed curves in its plane: outer ones and the counters inside
// letters. Empty for a text without visible letters, and when no font can be found.
[[nodiscard]] std::vector<std::shared_ptr<const ON_Curve>> TextOutlines(const ON_TextEntity2& text);

// How wide the text is drawn, in units of the document; 0 for an empty one.
[[nodiscard]] double TextWidth(const ON_TextEntity2& text);

}  // namespace host

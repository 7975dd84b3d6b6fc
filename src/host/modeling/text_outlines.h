#pragma once

#include <memory>
#include <vector>

#include "host/geometry/on_annotation.h"
#include "host/geometry/on_curve.h"

// Texts are drawn in the font that they name or in the one of the machine that comes nearest to it;
// letters that this doesn't have come from another, or are drawn as the font's own sign for what is
// missing. In each font, the letter H is as high as the text says. Lines are as far from each other
// as the font's maker gave it. May be called from any thread; one at a time is served.
namespace host {

// The outlines of a text's letters, closed curves in its plane: outer ones, which run
// counterclockwise, and the counters inside letters, which run clockwise. Empty for a text without
// visible letters, and when no font can be found.
[[nodiscard]] std::vector<std::shared_ptr<const ON_Curve>> TextOutlines(const ON_TextEntity2& text);

// How wide the text is drawn, in units of the document: the sum of what the letters of the widest
// line take up, blanks included. 0 for an empty one.
[[nodiscard]] double TextWidth(const ON_TextEntity2& text);

}  // namespace host

#pragma once

#include "host/geometry/on_brep.h"

// Steps on the way to a brep whose parts name each other rightly.

namespace host {

// Drops faces, edges and vertices that were deleted, but still stand in their tables without a
// surface, curve or place.
void DropDeleted(ON_Brep& brep);
// True when the loops that faces list and the trims that listed loops list are there and each is
// listed once, and no list is empty.
[[nodiscard]] bool BrepListsAreValid(const ON_Brep& brep);
// Drops loops and trims that nobody lists. The lists must be valid.
void DropUnlisted(ON_Brep& brep);
// True when edges, trims and faces name curves, surfaces, vertices and edges that are there, and
// vertices have a place.
[[nodiscard]] bool BrepNamesAreValid(const ON_Brep& brep);
// Leaves out faces whose surface or one of whose curves is null, and all that only they need. The
// lists and names must be valid.
void LeaveOutUnusableFaces(ON_Brep& brep);

}  // namespace host

#pragma once

#include <vector>

#include "host/geometry/on_settings.h"

// The views that a document has when its file gives none: Top, Front, Right and Perspective, each
// with a camera that shows `box`, or the surroundings of the origin when that is not valid.
std::vector<ON_3dmView> DefaultViews(const ON_BoundingBox& box);

// Gives a view of a file what it lacks, or has and can't be used: a port (800 by 600 pixels at
// most, in the shape of the frustum), a camera and a frustum that show `box`. Turns the port so
// that its bottom is below its top in window coordinates.
void CompleteView(ON_3dmView& view, const ON_BoundingBox& box);

// Makes a frustum as wide or as high as the port's shape asks for; nothing that was seen is lost.
void FitFrustumToPort(ON_Viewport& viewport);

#pragma once

#include "host/geometry/on_surface.h"

// What holds for every surface.

void ExpectPointsAgree(const ON_3dPoint& expected, const ON_3dPoint& found,
                       double tolerance = 1e-12);
// The derivatives inside the domain are what differences come near to.
void ExpectDerivativesAreLimits(const ON_Surface& surface);
// The NURBS form is valid, has the surface's domain and runs along the same points: it agrees where
// spans meet and in their middle.
void ExpectFormAgrees(const ON_Surface& surface);

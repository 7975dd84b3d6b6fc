#pragma once

#include "support/rib_checker.h"

// Complains about the arrays of a NuPatch, TrimCurve, NuCurves, Curves or Points statement; other
// statements pass.
void CheckRibNurbs(const RibStatement& statement, RibReport& report);

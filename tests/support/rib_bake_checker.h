#pragma once

#include "support/rib_checker.h"

// Complains about the options, attributes and maps of a bake pass.
void CheckRibBake(RibReport& report);

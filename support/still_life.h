#pragma once

#include "host/archive/model.h"

// The example document: a bowl of fruit, a vase, a knot on a plinth and some small things before a
// backdrop, in centimetres. It has named objects on layers (one of them switched off), a hidden and
// a locked object, a group, materials on layers and on objects, a spot light, a perspective and a
// parallel view, and user strings. The same at each call.
ONX_Model StillLife();

#pragma once

#include "host/archive/model.h"

// Two curves for flights through the still life, in centimetres: "Flight", which comes down in a
// bend from the front left to the right, and "Aim", which the camera may look at on its way. The
// same at each call.
ONX_Model CameraPaths();

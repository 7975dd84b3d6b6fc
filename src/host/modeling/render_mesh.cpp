#include "host/modeling/render_mesh.h"

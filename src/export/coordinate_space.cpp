#include "export/coordinate_space.h"

namespace orv {

void WriteTurnedSpace(RibWriter& writer, const char* name, double x, double y, double z) {
  RibPrintf(writer, "TransformBegin\n");
  RibPrintf(writer, "  Rotate %g 1 0 0\n", x);
  RibPrintf(writer, "  Rotate %g 0 1 0\n", y);
  RibPrintf(writer, "  Rotate %g 0 0 1\n", z);
  RibPrintf(writer, "  CoordinateSystem \"%s\"\n", name);
  RibPrintf(writer, "TransformEnd\n");
}

}  // namespace orv

#pragma once

#include "host/geometry/on_brep.h"
#include "record_bytes.h"

// The data of a brep in the form of version 2, which has no vertices and none of the kinds of
// trims.

struct OldBrepRecord {
  int major = 2;
  int minor = 1;
  // What the record tells of the brep's faces, edges, loops and trims when it isn't the truth.
  int face_count = -1;
  int edge_count = -1;
  int loop_count = -1;
  int trim_count = -1;
};

WriteContent Writer(const OldBrepRecord& record, const ON_Brep& brep);

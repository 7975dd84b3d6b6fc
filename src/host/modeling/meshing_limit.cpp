#include "host/modeling/meshing_limit.h"

#include "host/system/interrupt.h"

namespace host {

Standard_Boolean MeshingLimit::UserBreak() {
  return InterruptRequested() || std::chrono::steady_clock::now() > end_;
}

}  // namespace host

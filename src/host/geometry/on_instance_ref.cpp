#include "host/geometry/on_instance_ref.h"

const ON_InstanceRef* ON_InstanceRef::Cast(const ON_Object* object) {
  return dynamic_cast<const ON_InstanceRef*>(object);
}

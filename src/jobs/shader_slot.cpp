#include "jobs/shader_slot.h"

#include "jobs/edit_shader_call.h"

namespace orv {

CommandResult EditShaderSlot(CRhinoCommandContext& context, CSceneOutPlugIn& plugIn,
                             const ShaderSlot& slot, const CRhinoObject& object,
                             MaterialAttributes& attributes) {
  std::string call = attributes.*slot.Call;
  const CommandResult edited = EditShaderCall(context, plugIn, slot.Kind, call, &object);
  if (edited != CommandResult::success) return edited;
  attributes.*slot.Call = call;
  attributes.*slot.CallChanged = true;
  (attributes.*slot.Layout).clear();
  attributes.*slot.LayoutChanged = true;
  return edited;
}

}  // namespace orv

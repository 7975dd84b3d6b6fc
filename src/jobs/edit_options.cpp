#include "jobs/edit_options.h"

#include "host/command/get_option.h"

namespace orv {

CommandResult EditOptions(CRhinoCommandContext& context, CSceneOutPlugIn&, RenderSettings&) {
  CRhinoGetOption get(context);
  get.SetCommandPrompt("Orv Options");
  get.AcceptNothing();
  const CRhinoGet::Result result = get.GetOption();
  if (result == CRhinoGet::Result::nothing) return CommandResult::success;
  return result == CRhinoGet::Result::cancel ? CommandResult::cancel : CommandResult::failure;
}

}  // namespace orv

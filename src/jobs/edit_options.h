#pragma once

#include "jobs/option_table.h"

namespace orv {

// The options of every export and render.
extern const OptionTable kGeneralOptions;

// Lets the user change the general options of `settings` one by one, until Enter. Nothing is
// stored. Success when they were accepted; cancel, failure, or what a prompt in between has ended
// with.
CommandResult EditOptions(CRhinoCommandContext& context, CSceneOutPlugIn& plugIn,
                          RenderSettings& settings);

}  // namespace orv

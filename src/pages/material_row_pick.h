#pragma once

#include <string_view>

#include "host/command/command.h"
#include "jobs/shader_draft.h"

class CRhinoObject;

namespace orv {

class CSceneOutPlugIn;

// What the ".." button of a parameter's row asks for.
enum class RowPick {
  none,  // the row has no button
  archive,
  darkTree,
  texture,
  decal,
  place,  // on the object's surface, in texture coordinates
  length,
  origin,
};

RowPick RowPickOf(const ShaderParam& param);

// Whether the tweaks of a DarkTree shader are to be read anew with the value that was picked.
bool RefreshesTweaks(RowPick pick);

// Asks for the value of the parameter at `index` and sets it. `value` is the name of a file that
// isn't to be asked for; a place is picked on `object`, which may be null. False when nothing was
// chosen.
[[nodiscard]] bool PickRowValue(CRhinoCommandContext& context, CSceneOutPlugIn& plugIn,
                                const CRhinoObject* object, std::string_view value,
                                std::size_t index, ShaderDraft& draft);

}  // namespace orv

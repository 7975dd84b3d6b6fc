#include "pages/material_row_pick.h"

#include <algorithm>
#include <optional>
#include <string>

#include "host/command/get_point.h"
#include "host/system/text.h"
#include "jobs/pick_decal_matrix.h"
#include "jobs/pick_texture_coordinates.h"
#include "jobs/plugin.h"
#include "pages/property_control.h"
#include "shading/call_string.h"

namespace orv {
namespace {

constexpr FileQuestion kDarkTree{
    {"Choose DarkTree shader", "DarkTree Shaders;*.dsts;All files;*.*;"},
    FileQuestion::Dialog::open,
    {},
    &UserValues::DarkTreeDir};
constexpr FileQuestion kTexture{
    {"Choose texture", kImageFilter}, FileQuestion::Dialog::open, {}, &UserValues::TextureDir};

const FileQuestion& QuestionOf(RowPick pick) {
  if (pick == RowPick::archive) return kRibFileQuestion;
  return pick == RowPick::darkTree ? kDarkTree : kTexture;
}

RowPick PickOfText(const ShaderParam& param) {
  if (param.IsProjection || param.IsSpace) return RowPick::none;
  if (host::Contains(param.Name, "rchive")) return RowPick::archive;
  return host::Contains(param.Name, "DarkTree") ? RowPick::darkTree : RowPick::texture;
}

RowPick PickOfNumbers(const ShaderParam& param) {
  if (param.Count == 16) return RowPick::decal;
  if (param.Count == 2) return RowPick::place;
  if (param.Count == 1 && host::EqualNoCase(param.Name, "PatternSize")) return RowPick::length;
  const bool isOrigin = param.Count == 3 && host::Contains(param.Name, "Origin");
  return isOrigin ? RowPick::origin : RowPick::none;
}

// Dialogs take backslashes, calls forward slashes.
bool PickFile(CRhinoCommandContext& context, const FileQuestion& question, UserValues& user,
              std::string_view value, ShaderParam& param) {
  std::string file = DecodeCallString(param.Text);
  std::replace(file.begin(), file.end(), '/', '\\');
  if (!ChooseFile(context, question, user, value, file)) return false;
  std::replace(file.begin(), file.end(), '\\', '/');
  param.Text = EncodeCallString(file);
  return true;
}

bool IsPlaceOfOrigin(const ShaderDraft& draft, std::size_t index) {
  if (index >= draft.Params.size()) return false;
  const ShaderParam& param = draft.Params[index];
  return param.Kind == ParamKind::Float && param.Count == 2 && host::Contains(param.Name, "Origin");
}

// Where the tile of a map begins whose size is the parameter at `index`: the origin behind it, else
// the one before it.
ON_2dPoint OriginOf(const ShaderDraft& draft, std::size_t index) {
  if (!host::Contains(draft.Params[index].Name, "Size")) return {0, 0};
  for (const std::size_t place : {index + 1, index - 1}) {
    if (!IsPlaceOfOrigin(draft, place)) continue;
    return {draft.Params[place].Values[0], draft.Params[place].Values[1]};
  }
  return {0, 0};
}

bool PickPlace(CRhinoCommandContext& context, const CRhinoObject* object, std::size_t index,
               ShaderDraft& draft) {
  if (object == nullptr) return false;
  const std::optional<ON_2dPoint> place = PickTextureCoordinates(context, *object);
  if (!place) return false;
  const ON_2dPoint origin = OriginOf(draft, index);
  draft.Params[index].Values[0] = place->x - origin.x;
  draft.Params[index].Values[1] = place->y - origin.y;
  return true;
}

bool PickDecal(CRhinoCommandContext& context, ShaderParam& param) {
  const auto matrix = PickDecalMatrix(context);
  if (matrix) param.Values = *matrix;
  return matrix.has_value();
}

bool PickPoint(CRhinoCommandContext& context, std::string_view prompt, ON_3dPoint& point) {
  return AskForPoint(context, prompt, point) == CommandResult::success;
}

bool PickLength(CRhinoCommandContext& context, ShaderParam& param) {
  ON_3dPoint from;
  ON_3dPoint to;
  if (!PickPoint(context, "Pick reference point", from)) return false;
  if (!PickPoint(context, "Pick end for pattern size", to)) return false;
  param.Values[0] = (to - from).Length();
  return true;
}

bool PickOrigin(CRhinoCommandContext& context, ShaderParam& param) {
  ON_3dPoint point;
  if (!PickPoint(context, "Pick origin point", point)) return false;
  param.Values[0] = point.x;
  param.Values[1] = point.y;
  param.Values[2] = point.z;
  return true;
}

}  // namespace

RowPick RowPickOf(const ShaderParam& param) {
  if (param.Kind == ParamKind::String) return PickOfText(param);
  return param.Kind == ParamKind::Float ? PickOfNumbers(param) : RowPick::none;
}

bool RefreshesTweaks(RowPick pick) {
  return pick == RowPick::darkTree || pick == RowPick::decal;
}

bool PickRowValue(CRhinoCommandContext& context, CSceneOutPlugIn& plugIn,
                  const CRhinoObject* object, std::string_view value, std::size_t index,
                  ShaderDraft& draft) {
  ShaderParam& param = draft.Params[index];
  const RowPick pick = RowPickOf(param);
  switch (pick) {
    case RowPick::none:
      return false;
    case RowPick::decal:
      return PickDecal(context, param);
    case RowPick::place:
      return PickPlace(context, object, index, draft);
    case RowPick::length:
      return PickLength(context, param);
    case RowPick::origin:
      return PickOrigin(context, param);
    default:
      return PickFile(context, QuestionOf(pick), plugIn.User(), value, param);
  }
}

}  // namespace orv

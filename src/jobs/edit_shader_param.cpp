#include "jobs/edit_shader_param.h"

#include <algorithm>
#include <optional>
#include <string>

#include "host/command/get_point.h"
#include "host/command/get_string.h"
#include "host/document/object.h"
#include "host/system/text.h"
#include "jobs/orv_home.h"
#include "jobs/pick_decal_matrix.h"
#include "jobs/pick_texture_coordinates.h"
#include "jobs/plugin.h"
#include "settings/number_list.h"
#include "shading/call_string.h"
#include "shading/dark_tree.h"
#include "shading/shader_params.h"

namespace orv {
namespace {

std::string WithSeparator(std::string path, char separator) {
  const char other = separator == '/' ? '\\' : '/';
  std::replace(path.begin(), path.end(), other, separator);
  return path;
}

// Each of these asks for numbers in its own way.

void TypeNumbers(CRhinoCommandContext& context, ShaderParam& param) {
  CRhinoGetString get(context);
  get.SetCommandPrompt(param.Label);
  get.SetDefaultString(ParamDisplayText(param));
  get.AcceptNothing();
  if (get.GetString() == CRhinoGet::Result::string) ParseNumberList(get.String(), param.Values);
}

void PickPoint(CRhinoCommandContext& context, ShaderParam& param) {
  CRhinoGetPoint get(context);
  get.SetCommandPrompt("Pick point: ");
  get.AcceptNothing();
  if (get.GetPoint() != CRhinoGet::Result::point) return;
  const ON_3dPoint point = get.Point();
  param.Values[0] = point.x;
  param.Values[1] = point.y;
  param.Values[2] = point.z;
}

// Where the tile of a map begins whose size is the parameter at `index`.
ON_2dPoint OriginBehind(const ShaderDraft& draft, std::size_t index) {
  if (!host::Contains(draft.Params[index].Name, "Size") || index + 1 == draft.Params.size()) {
    return {0, 0};
  }
  const ShaderParam& next = draft.Params[index + 1];
  const bool isOrigin =
      host::Contains(next.Name, "Origin") && next.Kind == ParamKind::Float && next.Count == 2;
  return isOrigin ? ON_2dPoint{next.Values[0], next.Values[1]} : ON_2dPoint{0, 0};
}

void PickPlace(CRhinoCommandContext& context, const CRhinoObject& object, ShaderDraft& draft,
               std::size_t index) {
  const std::optional<ON_2dPoint> place = PickTextureCoordinates(context, object);
  if (!place) return;
  const ON_2dPoint origin = OriginBehind(draft, index);
  draft.Params[index].Values[0] = place->x - origin.x;
  draft.Params[index].Values[1] = place->y - origin.y;
}

void PickMatrix(CRhinoCommandContext& context, ShaderParam& param) {
  if (const auto matrix = PickDecalMatrix(context)) param.Values = *matrix;
}

bool IsSurfaceObject(const CRhinoObject* object) {
  return object != nullptr && object->Geometry() != nullptr && object->Geometry()->HasBrepForm();
}

void EditNumbers(CRhinoCommandContext& context, const CRhinoObject* object, ShaderDraft& draft,
                 std::size_t index) {
  ShaderParam& param = draft.Params[index];
  if (context.IsInteractive() && param.Count == 3) {
    PickPoint(context, param);
  } else if (context.IsInteractive() && param.Count == 2 && IsSurfaceObject(object)) {
    PickPlace(context, *object, draft, index);
  } else if (context.IsInteractive() && param.Count == 16) {
    PickMatrix(context, param);
  } else {
    TypeNumbers(context, param);
  }
}

// Texts stand in calls as EncodeCallString has them.

void PickImage(CRhinoCommandContext& context, CSceneOutPlugIn& plugIn, ShaderParam& param) {
  std::string file = WithSeparator(DecodeCallString(param.Text), '\\');
  if (!PickFileToOpen(context, kImagePicker, plugIn.User().TextureDir, file)) return;
  param.Text = EncodeCallString(WithSeparator(file, '/'));
}

// False when nothing was typed.
bool TypeText(CRhinoCommandContext& context, ShaderParam& param) {
  const std::string present = DecodeCallString(param.Text);
  CRhinoGetString get(context);
  get.SetCommandPrompt(param.Label);
  get.SetDefaultString(present);
  get.AcceptNothing();
  get.TakePath();
  if (get.GetString() != CRhinoGet::Result::string) return false;
  const std::string text = ExpandOrvHome(get.String());
  if (text != present) param.Text = EncodeCallString(text);
  return true;
}

void RefreshTweaks(ShaderDraft& draft) {
  std::string call = draft.CallText();
  RefreshDarkTreeTweaks(call);
  draft.Read(call);
}

}  // namespace

void EditShaderParam(CRhinoCommandContext& context, CSceneOutPlugIn& plugIn,
                     const CRhinoObject* object, ShaderDraft& draft, std::size_t index) {
  ShaderParam& param = draft.Params[index];
  if (param.Kind == ParamKind::Float && param.Count > 1) {
    EditNumbers(context, object, draft, index);
  } else if (param.Kind == ParamKind::String && context.IsInteractive()) {
    PickImage(context, plugIn, param);
  } else if (param.Kind == ParamKind::String && TypeText(context, param) &&
             host::EqualNoCase(param.Name, "DarkTreeShader")) {
    RefreshTweaks(draft);
  }
}

}  // namespace orv
